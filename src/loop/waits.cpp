// What the loops of many screens do with keys and raw buttons.
#include "loop/waits.h"

#include "gui/menus.h"
#include "gui/slots.h"
#include "loop/home_strip.h"
#include "loop/quick_pan.h"
#include "loop/tool_loop.h"
#include "runtime/hotkeys.h"

namespace kelu {

bool right_press_on_bare_frame() { return right_down() && slot_under_pointer() < 0; }

void hide_on_right_press()
{
    if (!right_press_on_bare_frame()) return;
    wait_right_release();
    if (menus.menu_id == MENU_DRAW) {
        flip_draw_menu();
    } else {
        menu_toggle_hidden(0);
    }
}

void run_quick_pan()
{
    if (hotkey_test(ACTION_QUICK_PAN)) quick_pan();
}

} // namespace kelu
