// SPDX-License-Identifier: MIT
// What a key or a spare mouse button can do, and the dispatcher. The rows are in the screens' table of actions.
#pragma once

#include "base/words.h"
#include <cstdint>
#include <span>

namespace kelu {

/// Where an action answers, as bits of ActionRow::contexts. The number of the bit is the context of hotkey_dispatch.
enum ActionContext : uint8_t {
    IN_DRAW_MENU = 1, ///< the pass of the drawing menu
    IN_ANY_MENU = 2,  ///< nearly every menu's loop
    ON_TIMER = 4,     ///< the logic tick
    WHILE_MOVING = 8  ///< the loop that moves a node of a tool
};

enum ActionFlag : uint8_t {
    ONCE = 1,         ///< waits for the key's release
    IN_FIELD = 2,     ///< acts while a text field has the keys
    TWO_FRAMES = 4,   ///< needs two frames or more
    CHANGES_FRAME = 8 ///< may commit, swap, replace or change the frame; kept out of previews and playback
};

struct ActionRow {
    int action;
    int primary, alternate; ///< default keys: scancode and modifiers, 0 none
    uint8_t contexts, flags;
    void (*run)(); ///< null: no effect
};

/// Owner: the dispatcher and the screens that show a picture which is not the frame.
struct ActionState {
    Shared<uint8_t> hotkey_dispatch_running = 0; ///< 1: the timer dispatches nothing
    int frame_locked = 0; ///< above 0: what shows is not the frame, and no action may touch it; counts nested locks
};
inline ActionState action_state;

/// No action runs on the timer from its making to its end: for screens that take keys for themselves.
class HotkeysOff {
public:
    HotkeysOff() : before_(action_state.hotkey_dispatch_running) { action_state.hotkey_dispatch_running = 1; }
    ~HotkeysOff() { action_state.hotkey_dispatch_running = before_; }
    HotkeysOff(const HotkeysOff&) = delete;
    HotkeysOff& operator=(const HotkeysOff&) = delete;

private:
    uint8_t before_;
};

/// The rows in the order of their ids. Set once, before the timers run, by start-up, which sees the table.
inline std::span<const ActionRow> action_rows;

/// Runs every action that is being asked for and answers in the context: 0 drawing menu, 1 any menu, 2 logic tick,
/// 3 moving a node.
void hotkey_dispatch(int context);
/// Runs passes until the action's key or button is up.
void wait_for_release(int action);
/// 1 when another action has the same key as the one of `major` (action) and `minor` (0 primary, 1 alternate).
int dupe_hotkey_check(int major, int minor);

} // namespace kelu
