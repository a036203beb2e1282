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
constexpr int hurried_rests = 10;
constexpr int hurried_ms = 2;
constexpr int motion_pause_ms = 2; ///< between two looks while only the pointer moves: a fast mouse reports each 1 ms

/// What the user's hands did last, as Allegro's words have it.
struct Hands {
    int x = 0, y = 0, wheel = 0, buttons = 0;
    std::array<char, KEY_MAX> keys{};
};
Hands last_hands;

/// Rests that are still to be short.
int hurry = 0;

Hands look_at_hands()
{
    Hands hands{::mouse_x, ::mouse_y, ::mouse_z, ::mouse_b, {}};
    for (std::size_t i = 0; i < hands.keys.size(); ++i)
        hands.keys[i] = ::key[i];
    return hands;
}

enum class Change { NONE, MOTION, PRESS };

/// What has changed since the last call.
Change take_change()
{
    const Hands now = look_at_hands();
    const bool pressed =
        now.buttons != last_hands.buttons || now.wheel != last_hands.wheel || now.keys != last_hands.keys;
    const bool moved = now.x != last_hands.x || now.y != last_hands.y;
    last_hands = now;
    return pressed ? Change::PRESS : moved ? Change::MOTION : Change::NONE;
}

int length_of_rest(int milliseconds, bool still)
{
    if (hurry > 0) return std::min(milliseconds, hurried_ms);
    return still ? still_factor * milliseconds : milliseconds;
}

} // namespace

void rest_until_input(int milliseconds)
{
    using std::chrono::steady_clock;
    const bool still = picture_stands_still();
    const auto end = steady_clock::now() + std::chrono::milliseconds(length_of_rest(milliseconds, still));
    hurry = std::max(hurry - 1, 0);
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now()).count();
        await_input(static_cast<int>(std::max<long>(left, 0)));
        deliver_input();
        const Change change = take_change();
        if (change == Change::PRESS || (change == Change::MOTION && still)) {
            hurry = hurried_rests;
            return;
        }
        if (left <= motion_pause_ms) return;
        if (change == Change::MOTION) ::rest(motion_pause_ms);
    }
}

} // namespace kelu::platform
