// SPDX-License-Identifier: MIT
// Events of the pointer, one press or release a frame.
#include "loop/input_turn.h"

#include "base/run_state.h"
#include "gui/slots.h"
#include "platform/input_events.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/shows.h"
#include "runtime/view.h"
#include <chrono>
#include <utility>
#include <vector>

namespace kelu {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto longest_wait = std::chrono::milliseconds(60); ///< for a logic pass, which may be held off

/// Owner: this file. Main thread.
struct InputTurn {
    std::vector<Point> path; ///< frame pixels of this turn
    int buttons = 0;         ///< as the last event that was taken had them
    bool waits = false;      ///< a press or release that the logic pass hasn't seen
    int looks = 0;           ///< its looks at the buttons when that was taken
    Clock::time_point taken_at{};
};
InputTurn turn;

/// The input as `input_lasts` saw it. Main thread.
struct SeenInput {
    int x = 0, y = 0, wheel = 0;
    unsigned events = 0;
    bool end = false; ///< the program is asked to end: loops put back what they have
    bool operator==(const SeenInput&) const = default;
};
SeenInput seen;

bool still_unseen()
{
    if (turn.waits && (pointer.button_looks != turn.looks || Clock::now() - turn.taken_at > longest_wait))
        turn.waits = false;
    return turn.waits;
}

void add_to_path()
{
    update_mouse_position();
    const Point at{view.frame_mouse_x, view.frame_mouse_y};
    if (turn.path.empty() || turn.path.back() != at) turn.path.push_back(at);
}

/// Puts an event into the words that loops read.
void apply(const platform::PointerEvent& event)
{
    set_pointer(event.x / screen_state.screen_scale, event.y / screen_state.screen_scale, event.buttons);
    add_to_path();
}

/// The menus follow presses on the timer thread: they must see this one before the next event hides it.
void note_change(int buttons)
{
    turn.buttons = buttons;
    turn.waits = slot_under_pointer() >= 0 || gui_logic.gui_capture != 0;
    turn.looks = pointer.button_looks;
    turn.taken_at = Clock::now();
}

/// True while a button or key is down, and once after an event or a motion.
bool input_lasts()
{
    const SeenInput now{pointer.mouse_x, pointer.mouse_y, wheel_position(), platform::input_event_count(),
                        run_state.exit_requested != 0};
    const bool moved = now != std::exchange(seen, now);
    const bool button_down = pointer.mouse_left != 0 || pointer.mouse_right != 0 || pointer.mouse_middle != 0 ||
                             pointer.mouse_button_4 != 0 || pointer.mouse_button_5 != 0;
    return moved || button_down || any_key_down();
}

} // namespace

void take_input_turn()
{
    turn.path.clear();
    if (platform::input_events_queued()) {
        platform::turn_key_presses();
        platform::PointerEvent event;
        while (!still_unseen() && platform::peek_pointer_event(event)) {
            platform::drop_pointer_event();
            apply(event);
            if (event.buttons == turn.buttons) continue;
            note_change(event.buttons);
            break;
        }
    }
    add_to_path();
    if (input_lasts()) stay_lively();
}

std::span<const Point> pointer_path() { return turn.path; }

bool input_turn_waits() { return turn.waits; }

} // namespace kelu
