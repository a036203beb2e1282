// SPDX-License-Identifier: MIT
// An event that ends the sleep of the thread that waits for it.
#pragma once

namespace kelu::platform {

/// A counter of the system's that a sleeper polls. `signal` may be called on any thread.
class WakeEvent {
public:
    WakeEvent();
    ~WakeEvent();
    WakeEvent(const WakeEvent&) = delete;
    WakeEvent& operator=(const WakeEvent&) = delete;

    /// Ends the present sleep, or the next one.
    void signal();
    /// Forgets the signals so far.
    void clear();
    /// Sleeps until a signal, `nanoseconds` at most; below 0: without a limit. Takes the signal.
    void wait(long long nanoseconds);
    /// To be polled for reading.
    int descriptor() const { return fd_; }

private:
    int fd_;
};

} // namespace kelu::platform
