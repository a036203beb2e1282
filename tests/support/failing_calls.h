// SPDX-License-Identifier: MIT
// The calls on files with a failure at the n-th of them, or the end of the process there.
#pragma once

#include "platform/file_calls.h"

namespace kelu {

enum class Fault {
    NONE,     ///< all goes well; the calls are counted
    NO_SPACE, ///< the call fails, the disk is full
    IO_ERROR, ///< the call fails, the disk is broken
    SHORT,    ///< the call writes or reads half of it; one of another kind fails
    BROKEN,   ///< this call and all that follow fail, the disk is gone
    ENDS      ///< from this call on nothing reaches the disk any more
};

constexpr Fault all_faults[] = {Fault::NO_SPACE, Fault::IO_ERROR, Fault::SHORT, Fault::BROKEN, Fault::ENDS};

/// The calls at which a fault is tried, from the first on.
struct FaultPoints {
    int first, step;
};
/// Where each point takes the time of two starts only the end comes at each of them, unless KELU_ALL_FAILURES is in the
/// environment.
FaultPoints sampled_points(Fault fault);

/// Takes the place of the system's calls for the time of a block. Nothing is flushed to disk, which takes long and
/// shows only when the power goes.
class FailingCalls {
public:
    /// `at` counts from 1.
    FailingCalls(Fault fault, int at);
    ~FailingCalls();
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;
    /// Calls made so far.
    static int count();
};

} // namespace kelu
