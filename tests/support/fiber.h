// SPDX-License-Identifier: MIT
// A function on a stack of its own that takes turns with its caller, in the caller's thread.
#pragma once

#include <cstddef>
#include <memory>
#include <ucontext.h>

namespace kelu::test {

class Fiber {
public:
    /// The function runs from the first resume() on.
    explicit Fiber(void (*function)());
    ~Fiber();
    Fiber(const Fiber&) = delete;
    Fiber& operator=(const Fiber&) = delete;

    /// For the caller: lets the function run until it pauses or returns. Not again once it has returned.
    void resume();
    /// For the function: gives the turn back, and returns when it is resumed.
    void pause();
    /// True while it is the function's turn.
    bool runs() const { return runs_; }
    /// True once the function has returned.
    bool done() const { return done_; }

private:
    /// Where one of the two goes on, and what the sanitizers know of it.
    struct Side {
        ucontext_t context{};
        const void* stack = nullptr;
        std::size_t stack_size = 0;
        void* memory_watch = nullptr; ///< AddressSanitizer's
        void* thread_watch = nullptr; ///< ThreadSanitizer's
    };
    static void start();
    static void leave(void** memory_watch, const Side& next);
    static void arrive(const Side& side, Side& last);

    void (*function_)();
    std::unique_ptr<char[]> stack_;
    Side caller_, own_;
    bool runs_ = false, done_ = false;
};

} // namespace kelu::test
