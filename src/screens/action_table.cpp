// SPDX-License-Identifier: MIT
// One row an action.
#include "screens/action_table.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/undo.h"
#include "loop/inspector.h"
#include "loop/measurement.h"
#include "loop/quick_pan.h"
#include "runtime/hotkeys.h"
#include "runtime/view.h"
#include "screens/alpha_preview.h"
#include "screens/animation_files.h"
#include "screens/animation_menu.h"
#include "screens/cel_commands.h"
#include "screens/cel_transform.h"
#include "screens/commands.h"
#include "screens/favorites_menu.h"
#include "screens/file_commands.h"
#include "screens/frame_clipboard.h"
#include "screens/frame_jump.h"
#include "screens/grid_menu.h"
#include "screens/macro_menu.h"
#include "screens/playback_menu.h"
#include "screens/quick_slider.h"
#include "screens/resize_menu.h"
#include "screens/sprite_sheet_menu.h"
#include "screens/tint_menu.h"
#include "screens/tip_menu.h"
#include "tools/cel_stretch.h"
#include "tools/cel_turn.h"
#include <allegro.h>
#include <array>
#include <iterator>

namespace kelu {
namespace {

constexpr ActionRow actions[] = {
    {ACTION_CEL_GET, KEY_ESC, 0, IN_DRAW_MENU, CHANGES_FRAME, get_cel},
    {ACTION_CEL_CLIP, KEY_TAB, 0, IN_DRAW_MENU, CHANGES_FRAME, clip_cel},
    {ACTION_CEL_PASTE, KEY_TILDE, 0, IN_DRAW_MENU, CHANGES_FRAME, paste_cel_by_key},
    {ACTION_CEL_BELOW, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, paste_cel_below_by_key},
    {ACTION_CEL_1_COLOR, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, convert_cel},
    {ACTION_CEL_TURN, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<cel_turn>},
    {ACTION_CEL_STRETCH, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<cel_stretch>},
    {ACTION_CEL_XFORM, KEY_TILDE + key_shift, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<cel_transform>},
    {ACTION_PIC_CLEAR, KEY_X, 0, IN_DRAW_MENU, ONCE | CHANGES_FRAME, clear_picture},
    {ACTION_PIC_RESTORE, KEY_R, 0, IN_DRAW_MENU, ONCE | IN_FIELD | CHANGES_FRAME, restore_picture},
    {ACTION_PIC_SHEET, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<sprite_sheet_menu>},
    {ACTION_PIC_TINT, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<tint_menu>},
    {ACTION_PIC_GRID, KEY_G, 0, IN_DRAW_MENU, 0, over_draw_menu<grid_menu>},
    {ACTION_PIC_SAVE, KEY_F5, 0, IN_DRAW_MENU, IN_FIELD | CHANGES_FRAME, over_draw_menu<save_frame_picture>},
    {ACTION_PIC_LOAD, KEY_F9, 0, IN_DRAW_MENU, IN_FIELD | CHANGES_FRAME, over_draw_menu<load_frame_picture>},
    {ACTION_FRAME_CLONE, 0, 0, IN_DRAW_MENU, ONCE | CHANGES_FRAME, clone_frame},
    {ACTION_FRAME_INSERT, 0, 0, IN_DRAW_MENU, ONCE | CHANGES_FRAME, insert_blank_frame},
    {ACTION_FRAME_RESIZE, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<resize_menu>},
    {ACTION_FRAME_DELETE, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, delete_current_frame},
    {ACTION_PAN_UP, KEY_UP, KEY_W, ON_TIMER, 0, pan_up},
    {ACTION_PAN_DOWN, KEY_DOWN, KEY_S, ON_TIMER, 0, pan_down},
    {ACTION_PAN_LEFT, KEY_LEFT, KEY_A, ON_TIMER, 0, pan_left},
    {ACTION_PAN_RIGHT, KEY_RIGHT, KEY_D, ON_TIMER, 0, pan_right},
    {ACTION_QUICK_PAN, KEY_0_PAD, 0, IN_DRAW_MENU | WHILE_MOVING, 0, quick_pan},
    {ACTION_NEXT, KEY_PGDN, 0, IN_ANY_MENU, TWO_FRAMES | CHANGES_FRAME, next_frame},
    {ACTION_PREVIOUS, KEY_DEL, 0, IN_ANY_MENU, TWO_FRAMES | CHANGES_FRAME, previous_frame},
    {ACTION_FIRST, KEY_HOME, 0, IN_ANY_MENU, ONCE | TWO_FRAMES | CHANGES_FRAME, first_frame},
    {ACTION_LAST, KEY_END, 0, IN_ANY_MENU, ONCE | TWO_FRAMES | CHANGES_FRAME, last_frame},
    {ACTION_CENTER, KEY_5_PAD, 0, IN_DRAW_MENU, 0, center_view},
    {ACTION_ANIMATE, KEY_Z + key_shift, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<animation_menu>},
    {ACTION_BRUSH_DROPPER, KEY_F1, 0, IN_DRAW_MENU, ONCE | IN_FIELD, pick_brush_color},
    {ACTION_MASK_DROPPER, KEY_F2, 0, IN_DRAW_MENU, ONCE | IN_FIELD, pick_mask_color},
    {ACTION_COLOR_MENU, KEY_C, 0, IN_DRAW_MENU, 0, choose_brush_color},
    {ACTION_TIP_SELECT, KEY_T, 0, IN_DRAW_MENU, 0, choose_tip},
    {ACTION_TOOL_SELECT, KEY_B, 0, IN_DRAW_MENU, 0, choose_tool},
    {ACTION_INK_SELECT, KEY_I, 0, IN_DRAW_MENU, 0, choose_ink},
    {ACTION_HIDE_MENU, KEY_BACKSPACE, 0, IN_DRAW_MENU, ONCE | IN_FIELD, flip_menu},
    {ACTION_MEASURE, KEY_F12, 0, IN_DRAW_MENU, IN_FIELD, start_measurement},
    {ACTION_INSPECT, KEY_F11, 0, IN_DRAW_MENU, ONCE | IN_FIELD, flip_inspector},
    {ACTION_FRAME_JUMP, KEY_BACKSLASH, 0, IN_DRAW_MENU, CHANGES_FRAME, frame_jump},
    {ACTION_BRUSH_OPTION, KEY_INSERT, 0, IN_DRAW_MENU, ONCE, brush_option_hotkey},
    {ACTION_INK_OPTION, KEY_PGUP, 0, IN_DRAW_MENU, ONCE, ink_option_hotkey},
    {ACTION_GRID_TOGGLE, KEY_ASTERISK, 0, IN_DRAW_MENU, ONCE, flip_grid},
    {ACTION_COPY, KEY_C + key_control, 0, IN_DRAW_MENU, ONCE, copy_frame_to_clipboard},
    {ACTION_PASTE, KEY_V + key_control, 0, IN_DRAW_MENU, ONCE | CHANGES_FRAME, paste_by_key},
    {ACTION_UNDO, KEY_U, 0, IN_DRAW_MENU, ONCE | CHANGES_FRAME, undo_step},
    {ACTION_REDO, KEY_U + key_shift, 0, IN_DRAW_MENU, ONCE | CHANGES_FRAME, redo_step},
    {ACTION_ZOOM_IN, KEY_PLUS_PAD, 0, IN_DRAW_MENU, ONCE, zoom_in},
    {ACTION_ZOOM_OUT, KEY_MINUS_PAD, 0, IN_DRAW_MENU, ONCE, zoom_out},
    {ACTION_FAVORITES, KEY_P, 0, IN_DRAW_MENU, ONCE, favorites_menu},
    {ACTION_MACRO_MENU, KEY_M, 0, IN_DRAW_MENU, ONCE, macro_menu},
    {ACTION_MACRO_1, KEY_1, 0, IN_DRAW_MENU, ONCE, run_macro<0>},
    {ACTION_MACRO_1 + 1, KEY_2, 0, IN_DRAW_MENU, ONCE, run_macro<1>},
    {ACTION_MACRO_1 + 2, KEY_3, 0, IN_DRAW_MENU, ONCE, run_macro<2>},
    {ACTION_MACRO_1 + 3, KEY_4, 0, IN_DRAW_MENU, ONCE, run_macro<3>},
    {ACTION_MACRO_1 + 4, KEY_5, 0, IN_DRAW_MENU, ONCE, run_macro<4>},
    {ACTION_MACRO_1 + 5, KEY_6, 0, IN_DRAW_MENU, ONCE, run_macro<5>},
    {ACTION_MACRO_1 + 6, KEY_7, 0, IN_DRAW_MENU, ONCE, run_macro<6>},
    {ACTION_MACRO_8, KEY_8, 0, IN_DRAW_MENU, ONCE, run_macro<7>},
    {ACTION_ALPHA_TOGGLE, KEY_SPACE, 0, IN_DRAW_MENU, ONCE | CHANGES_FRAME, flip_alpha},
    {ACTION_ALPHA_PREVIEW, KEY_SLASH, 0, IN_DRAW_MENU, ONCE | CHANGES_FRAME, preview_alpha},
    {ACTION_ONION_TOGGLE, KEY_O, 0, IN_DRAW_MENU, ONCE, flip_onion},
    {ACTION_PLAY, KEY_Z, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<playback_menu>},
    {ACTION_EXIT, KEY_Q, 0, IN_DRAW_MENU, IN_FIELD | CHANGES_FRAME, ask_exit},
    {ACTION_RAPID_EXIT, KEY_Q + key_shift, 0, IN_ANY_MENU, ONCE | IN_FIELD, request_end},
    {ACTION_ANIMATION_SAVE, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<save_animation>},
    {ACTION_ANIMATION_LOAD, 0, 0, IN_DRAW_MENU, CHANGES_FRAME, over_draw_menu<load_animation>},
    {ACTION_LIST_END, 0, 0, 0, 0, nullptr},
};
static_assert(std::size(actions) == ACTION_LIST_END + 1, "the row of an action is missing");
static_assert([] {
    for (std::size_t i = 0; i < std::size(actions); ++i) {
        if (actions[i].action != static_cast<int>(i)) return false;
    }
    return true;
}());

} // namespace

std::span<const ActionRow> action_table() { return actions; }

void set_default_hotkeys()
{
    for (HotkeyRow& row : hotkeys.hotkey_table)
        row = {};
    for (const ActionRow& row : actions) {
        HotkeyRow& keys = hotkeys.hotkey_table[row.action];
        keys.primary = row.primary;
        keys.alternate = row.alternate;
    }
}

} // namespace kelu
