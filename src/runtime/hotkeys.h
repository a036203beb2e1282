// SPDX-License-Identifier: MIT
// Keys and mouse buttons of every action, and the test whether one is being asked for.
#pragma once

#include "base/table.h"
#include "base/words.h"
#include <array>

namespace kelu {

/// Actions by id; the row of the hotkey table, and the name of action n is the UI string 400 + n.
enum ActionId : int {
    ACTION_CEL_GET,
    ACTION_CEL_CLIP,
    ACTION_CEL_PASTE,
    ACTION_CEL_BELOW,
    ACTION_CEL_1_COLOR,
    ACTION_CEL_TURN,
    ACTION_CEL_STRETCH,
    ACTION_CEL_XFORM,
    ACTION_PIC_CLEAR,
    ACTION_PIC_RESTORE,
    ACTION_PIC_SHEET,
    ACTION_PIC_TINT,
    ACTION_PIC_GRID,
    ACTION_PIC_SAVE,
    ACTION_PIC_LOAD,
    ACTION_FRAME_CLONE,
    ACTION_FRAME_INSERT,
    ACTION_FRAME_RESIZE,
    ACTION_FRAME_DELETE,
    ACTION_PAN_UP,
    ACTION_PAN_DOWN,
    ACTION_PAN_LEFT,
    ACTION_PAN_RIGHT,
    ACTION_QUICK_PAN,
    ACTION_NEXT,
    ACTION_PREVIOUS,
    ACTION_FIRST,
    ACTION_LAST,
    ACTION_CENTER,
    ACTION_ANIMATE,
    ACTION_BRUSH_DROPPER,
    ACTION_MASK_DROPPER,
    ACTION_COLOR_MENU,
    ACTION_TIP_SELECT,
    ACTION_TOOL_SELECT,
    ACTION_INK_SELECT,
    ACTION_HIDE_MENU,
    ACTION_MEASURE,
    ACTION_INSPECT,
    ACTION_FRAME_JUMP,
    ACTION_BRUSH_OPTION,
    ACTION_INK_OPTION,
    ACTION_GRID_TOGGLE,
    ACTION_COPY,
    ACTION_PASTE,
    ACTION_UNDO,
    ACTION_REDO,
    ACTION_ZOOM_IN,
    ACTION_ZOOM_OUT,
    ACTION_FAVORITES,
    ACTION_MACRO_MENU,
    ACTION_MACRO_1,
    ACTION_MACRO_8 = ACTION_MACRO_1 + 7,
    ACTION_ALPHA_TOGGLE,
    ACTION_ALPHA_PREVIEW,
    ACTION_ONION_TOGGLE,
    ACTION_PLAY,
    ACTION_EXIT,
    ACTION_RAPID_EXIT,
    ACTION_ANIMATION_SAVE,
    ACTION_ANIMATION_LOAD,
    ACTION_LIST_END
};

constexpr int hotkey_rows = 128;
constexpr int last_key_code = 105; ///< highest scancode that an action may have
constexpr int key_control = 1024;  ///< added to a key code: Control must be held
constexpr int key_alt = 2048;      ///< Alt must be held
constexpr int key_shift = 4096;    ///< Shift must be held
constexpr int key_modifiers = key_control | key_alt | key_shift;

/// Primary and alternate key of an action: scancode 1 to 105 and modifiers; 0 or below is no key.
struct HotkeyRow {
    Shared<int> primary = 0, alternate = 0;
};

/// Written by the settings file, the hotkey screen and the mouse button screen.
/// Writers: screens.
struct Hotkeys {
    Table<HotkeyRow, hotkey_rows> hotkey_table{};
    std::array<Shared<int>, 5> mouse_button_map{0, 1, 2, 3,
                                                4}; ///< function of the left, right, middle, 4th, 5th button
};
inline Hotkeys hotkeys;

/// True while any key is down, or was for however short a time in the last turn.
bool any_key_down();
/// The modifier bits of the keys that are held.
int modifiers_held();
/// The mouse function that stands for an action, -1 for an action that no button can take.
int mouse_function_of(int action);
/// True while Escape is down, alone.
bool escape_down();
/// True when Escape alone is a key of the action.
bool answers_escape(int action);
/// True while a mouse button with the action's function is down.
bool mouse_function_test(int action);
/// True while the action (0 to 127) is being asked for by a button or a key. A level, not an edge. Modifiers must
/// match exactly. Both threads.
bool hotkey_test(int action);

} // namespace kelu
