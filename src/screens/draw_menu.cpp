// The home screen's loop.
#include "screens/draw_menu.h"

#include "draw/operation.h"
#include "draw/tools.h"
#include "draw/undo.h"
#include "runtime/frame.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/run_state.h"

namespace kelu {
namespace {

void wait_release(int action)
{
    while (hotkey_test(action))
        run_frame(0);
}

void draw_on_press()
{
    poll_mouse_buttons();
    if (pointer.mouse_left == 0 || pointer.gui_hover_slot >= 0) return;
    tool_dispatch();
    while (pointer.mouse_left != 0) {
        run_frame(0);
        poll_mouse_buttons();
    }
    clear_to_color(screen_state.tool_overlay, mask_magenta);
}

} // namespace

void draw_menu()
{
    while (run_state.exit_requested == 0) {
        run_frame(0);
        draw_on_press();
        stroke_position = {};
        if (hotkey_test(ACTION_UNDO)) {
            undo_step();
            wait_release(ACTION_UNDO);
        }
        if (hotkey_test(ACTION_REDO)) {
            redo_step();
            wait_release(ACTION_REDO);
        }
        if (hotkey_test(ACTION_RAPID_EXIT)) {
            wait_release(ACTION_RAPID_EXIT);
            run_state.exit_requested = 1;
        }
    }
}

} // namespace kelu
