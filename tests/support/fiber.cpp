// SPDX-License-Identifier: MIT
// Switches from stack to stack, of which the sanitizers are told.
#include "support/fiber.h"

#include <sanitizer/common_interface_defs.h>
#include <sanitizer/tsan_interface.h>

// Each is there in the builds of its sanitizer.
#pragma weak __sanitizer_start_switch_fiber
#pragma weak __sanitizer_finish_switch_fiber
#pragma weak __tsan_get_current_fiber
#pragma weak __tsan_create_fiber
#pragma weak __tsan_destroy_fiber
#pragma weak __tsan_switch_to_fiber

namespace kelu::test {
namespace {

constexpr std::size_t stack_bytes = 16 << 20; ///< twice a thread's, for what the sanitizers add

Fiber* starting = nullptr; ///< whose function begins with the present switch

} // namespace

Fiber::Fiber(void (*function)()) : function_(function), stack_(new char[stack_bytes])
{
    own_.stack = stack_.get();
    own_.stack_size = stack_bytes;
    getcontext(&own_.context);
    own_.context.uc_stack.ss_sp = stack_.get();
    own_.context.uc_stack.ss_size = stack_bytes;
    makecontext(&own_.context, start, 0);
    if (__tsan_create_fiber) {
        caller_.thread_watch = __tsan_get_current_fiber();
        own_.thread_watch = __tsan_create_fiber(0);
    }
}

Fiber::~Fiber()
{
    if (__tsan_destroy_fiber) __tsan_destroy_fiber(own_.thread_watch);
}

/// Before a switch. `memory_watch` is the word of the stack that is left; nullptr when it has done its work.
void Fiber::leave(void** memory_watch, const Side& next)
{
    if (__sanitizer_start_switch_fiber) __sanitizer_start_switch_fiber(memory_watch, next.stack, next.stack_size);
    if (__tsan_switch_to_fiber) __tsan_switch_to_fiber(next.thread_watch, 0);
}

/// Behind a switch, on the stack that it came to.
void Fiber::arrive(const Side& side, Side& last)
{
    if (__sanitizer_finish_switch_fiber)
        __sanitizer_finish_switch_fiber(side.memory_watch, &last.stack, &last.stack_size);
}

void Fiber::start()
{
    Fiber& fiber = *starting;
    arrive(fiber.own_, fiber.caller_);
    fiber.function_();
    fiber.done_ = true;
    leave(nullptr, fiber.caller_);
    setcontext(&fiber.caller_.context);
}

void Fiber::resume()
{
    starting = this;
    runs_ = true;
    leave(&caller_.memory_watch, own_);
    swapcontext(&caller_.context, &own_.context);
    runs_ = false;
    arrive(caller_, own_);
}

void Fiber::pause()
{
    leave(&own_.memory_watch, caller_);
    swapcontext(&own_.context, &caller_.context);
    arrive(own_, caller_);
}

} // namespace kelu::test
