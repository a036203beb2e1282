// Sleeping and waking by the connection to the display.
#include "platform/desktop_rest.h"

#include "platform/desktop_window.h"
#include <algorithm>
#include <allegro.h>
#include <array>
#include <chrono>
#include <cstring>

namespace kelu::platform {
namespace {

constexpr int still_factor = 3;
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

int length_of_rest(int milliseconds, bool still)
{
    if (short_rests_left > 0) return std::min(milliseconds, hurried_ms);
    return still ? still_factor * milliseconds : milliseconds;
}

} // namespace

void rest_until_input(int milliseconds)
{
    using std::chrono::steady_clock;
    const bool still = picture_stands_still();
    const auto end = steady_clock::now() + std::chrono::milliseconds(length_of_rest(milliseconds, still));
    short_rests_left = std::max(short_rests_left - 1, 0);
    static steady_clock::time_point last_end{}; // of the last rest: when the frame before this one began
    bool moved = false;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now()).count();
        await_input(static_cast<int>(std::max<long>(left, 0)));
        deliver_input();
        const Change change = take_change();
        moved = moved || change == Change::MOTION;
        const bool frame_due = still || steady_clock::now() - last_end >= std::chrono::milliseconds(motion_frame_ms);
        if (change == Change::PRESS || (moved && frame_due)) {
            if (change == Change::PRESS || still) short_rests_left = short_rests;
            last_end = steady_clock::now();
            return;
        }
        if (left <= motion_pause_ms) {
            last_end = steady_clock::now();
            return;
        }
        if (moved) ::rest(motion_pause_ms);
    }
}

} // namespace kelu::platform
