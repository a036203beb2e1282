// SPDX-License-Identifier: MIT
// Sleeping and waking, by the connection to the display and by an event of our own.
#include "platform/desktop_rest.h"

#include "base/words.h"
#include "platform/desktop_window.h"
#include "platform/wake_event.h"
#include <algorithm>
#include <allegro.h>
#include <array>
#include <chrono>
#include <thread>

namespace kelu::platform {
namespace {

constexpr int short_rests = 10;
constexpr int hurried_ms = 2;
constexpr int motion_frame_ms = 4; ///< at most one frame in this time while only the pointer moves
constexpr int motion_pause_ms = 1; ///< between two looks then: a fast mouse reports each 1 ms

/// The last input, as Allegro's words have it.
struct InputState {
    int x = 0, y = 0, wheel = 0, buttons = 0;
    std::array<char, KEY_MAX> keys{};
};
InputState last_input;

WakeEvent rest_event;
Shared<uint8_t> roused = 0; ///< 1: the present rest, or the next one, is to end; any thread

/// Rests that are still to be short.
int short_rests_left = 0;

InputState read_input()
{
    InputState input{::mouse_x, ::mouse_y, ::mouse_z, ::mouse_b, {}};
    for (std::size_t i = 0; i < input.keys.size(); ++i)
        input.keys[i] = ::key[i];
    return input;
}

enum class Change { NONE, MOTION, PRESS };

/// What has changed since the last call.
Change take_change()
{
    const InputState now = read_input();
    const bool pressed =
        now.buttons != last_input.buttons || now.wheel != last_input.wheel || now.keys != last_input.keys;
    const bool moved = now.x != last_input.x || now.y != last_input.y;
    last_input = now;
    return pressed ? Change::PRESS : moved ? Change::MOTION : Change::NONE;
}

int length_of_rest(int milliseconds)
{
    return short_rests_left > 0 ? std::min(milliseconds, hurried_ms) : milliseconds;
}

} // namespace

void rest_until_input(int milliseconds)
{
    using std::chrono::steady_clock;
    const bool still = picture_stands_still();
    const auto end = steady_clock::now() + std::chrono::milliseconds(length_of_rest(milliseconds));
    short_rests_left = std::max(short_rests_left - 1, 0);
    static steady_clock::time_point last_end{}; // of the last rest: when the frame before this one began
    bool moved = false;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now()).count();
        await_input(static_cast<int>(std::max<long>(left, 0)));
        deliver_input();
        rest_event.clear(); // of the input that has just been delivered too
        const Change change = take_change();
        moved = moved || change == Change::MOTION;
        const bool frame_due = still || steady_clock::now() - last_end >= std::chrono::milliseconds(motion_frame_ms);
        if (change == Change::PRESS || (moved && frame_due)) {
            if (change == Change::PRESS || still) short_rests_left = short_rests;
            last_end = steady_clock::now();
            return;
        }
        if (roused.take() != 0 || left <= motion_pause_ms) {
            last_end = steady_clock::now();
            return;
        }
        if (moved) std::this_thread::sleep_for(std::chrono::milliseconds(motion_pause_ms));
    }
}

void rouse_rest()
{
    roused = 1;
    rest_event.signal();
}

void note_input_queued() { rest_event.signal(); }

int rest_descriptor() { return rest_event.descriptor(); }

} // namespace kelu::platform
