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
constexpr int motion_pause_ms = 2; ///< between two looks while only the pointer moves: a fast mouse reports each 1 ms

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
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now()).count();
        await_input(static_cast<int>(std::max<long>(left, 0)));
        deliver_input();
        const Change change = take_change();
        if (change == Change::PRESS || (change == Change::MOTION && still)) {
            short_rests_left = short_rests;
            return;
        }
        if (left <= motion_pause_ms) return;
        if (change == Change::MOTION) ::rest(motion_pause_ms);
    }
}

} // namespace kelu::platform
