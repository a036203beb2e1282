// SPDX-License-Identifier: MIT
// The hotkey test: mouse buttons first, then the primary and the alternate key with exact modifiers.
#include "runtime/hotkeys.h"

#include "base/log.h"
#include "platform/input_events.h"
#include "runtime/input.h"
#include <algorithm>
#include <allegro.h>

namespace kelu {
namespace {

/// Actions that a mouse button can take, and the function that stands for each.
struct MouseFunctionRow {
    int action, function;
};
constexpr MouseFunctionRow mouse_functions[] = {
    {ACTION_CEL_GET, 10},      {ACTION_CEL_PASTE, 9},    {ACTION_QUICK_PAN, 3},     {ACTION_NEXT, 11},
    {ACTION_PREVIOUS, 12},     {ACTION_MEASURE, 13},     {ACTION_INSPECT, 14},      {ACTION_FRAME_JUMP, 6},
    {ACTION_BRUSH_DROPPER, 4}, {ACTION_MASK_DROPPER, 5}, {ACTION_COLOR_MENU, 7},    {ACTION_UNDO, 15},
    {ACTION_REDO, 16},         {ACTION_FAVORITES, 8},    {ACTION_MACRO_1, 17},      {ACTION_MACRO_1 + 1, 18},
    {ACTION_MACRO_1 + 2, 19},  {ACTION_MACRO_1 + 3, 20}, {ACTION_MACRO_1 + 4, 21},  {ACTION_MACRO_1 + 5, 22},
    {ACTION_MACRO_1 + 6, 23},  {ACTION_MACRO_8, 24},     {ACTION_ALPHA_TOGGLE, 25}, {ACTION_ALPHA_PREVIEW, 26},
    {ACTION_ONION_TOGGLE, 27},
};

bool down(int scancode) { return ::key[scancode] != 0 || platform::key_pressed_lately(scancode); }

bool button_down(std::size_t button)
{
    switch (button) {
    case 0:
        return pointer.mouse_left != 0;
    case 1:
        return pointer.mouse_right != 0;
    case 2:
        return pointer.mouse_middle != 0;
    case 3:
        return pointer.mouse_button_4 != 0;
    default:
        return pointer.mouse_button_5 != 0;
    }
}

} // namespace

bool any_key_down()
{
    for (int scancode = 1; scancode < KEY_MAX; ++scancode) {
        if (down(scancode)) return true;
    }
    return false;
}

int modifiers_held()
{
    return (down(KEY_LCONTROL) || down(KEY_RCONTROL) ? key_control : 0) |
           (down(KEY_ALT) || down(KEY_ALTGR) ? key_alt : 0) | (down(KEY_LSHIFT) || down(KEY_RSHIFT) ? key_shift : 0);
}

bool escape_down() { return down(KEY_ESC) && modifiers_held() == 0; }

bool answers_escape(int action)
{
    const HotkeyRow& keys = hotkeys.hotkey_table[action];
    return keys.primary == KEY_ESC || keys.alternate == KEY_ESC;
}

int mouse_function_of(int action)
{
    const auto* found = std::ranges::find(mouse_functions, action, &MouseFunctionRow::action);
    return found == std::end(mouse_functions) ? -1 : found->function;
}

bool mouse_function_test(int action)
{
    const int function = mouse_function_of(action);
    if (function < 0) return false;
    for (std::size_t button = 0; button < hotkeys.mouse_button_map.size(); ++button) {
        if (hotkeys.mouse_button_map[button] == function && button_down(button)) return true;
    }
    return false;
}

bool hotkey_test(int action)
{
    if (action < 0 || action >= hotkey_rows) return false;
    if (mouse_function_test(action)) return true;
    const int held = modifiers_held();
    const HotkeyRow& keys = hotkeys.hotkey_table[action];
    for (const int code : {int(keys.primary), int(keys.alternate)}) {
        if (code <= 0) continue;
        const int scancode = code & ~key_modifiers;
        if (scancode < 1 || scancode > last_key_code) {
            log_line("[ ERROR ] : Key value OOB in hotkey check. Key = %d", scancode);
            return false;
        }
        if (down(scancode) && (code & key_modifiers) == held) return true;
    }
    return false;
}

} // namespace kelu
