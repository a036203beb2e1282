// SPDX-License-Identifier: MIT
// The event as an eventfd.
#include "platform/wake_event.h"

#include <cstdint>
#include <ctime>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace kelu::platform {

WakeEvent::WakeEvent() : fd_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

WakeEvent::~WakeEvent() { close(fd_); }

void WakeEvent::signal()
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(fd_, &one, sizeof(one)); // full is as good: the event is signalled
}

void WakeEvent::clear()
{
    std::uint64_t count = 0;
    [[maybe_unused]] const auto taken = read(fd_, &count, sizeof(count)); // nothing to read: nothing to forget
}

void WakeEvent::wait(long long nanoseconds)
{
    constexpr long long second = 1000000000;
    const timespec limit{static_cast<time_t>(nanoseconds / second), static_cast<long>(nanoseconds % second)};
    pollfd event{fd_, POLLIN, 0};
    if (ppoll(&event, 1, nanoseconds < 0 ? nullptr : &limit, nullptr) > 0) clear();
}

} // namespace kelu::platform
