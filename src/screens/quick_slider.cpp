// SPDX-License-Identifier: MIT
// A window with one slider that lives while the key is held.
#include "screens/quick_slider.h"

#include "base/log.h"
#include "draw/draw_options.h"
#include "draw/inks.h"
#include "gui/build.h"
#include "loop/actions.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/toolbox.h"
#include "screens/draw_menu.h"
#include "tools/gradient_placing.h"
#include "tools/tools.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int slider_slot = 2;
constexpr int window_slots = 3;
constexpr int last_slot = 6; ///< highest slot number that the checks let pass

void build_quick_slider(const OptionKey& key, Shared<int>& cell)
{
    const int y = std::max(0, pointer.mouse_y - 16);
    gui_window(0, y, 319, 22, window_slots);
    build_slot(title_row(2, 2, 316, key.title), 0, y);
    build_slot(slider_row(slider_slot, 2, 12, 316, key.steps, 3), 0, y);
    bind_slider(slider_slot, cell);
}

void quick_slider(const OptionKey& key, Shared<int>& cell, int action)
{
    const int menu_before = menus.menu_id;
    menus.menu_id = MENU_DIALOG;
    freeze_menu();
    gui_clear_window();
    build_quick_slider(key, cell);
    wait_for_release(action);
    clear_ghost();
    build_draw_menu();
    menus.menu_id = menu_before;
}

void flip(Shared<int>& cell, int message_off, int message_on)
{
    cell = cell == 0 ? 1 : 0;
    flash_status_message(cell != 0 ? message_on : message_off);
}

bool choice_valid(int slot, int tool)
{
    if (slot < 0 || slot > last_slot) {
        log_line("[ ERROR ] : Current brush slot value is OOB in brush option tweak. Slot = %d", slot);
        return false;
    }
    if (tool < 0 || tool >= TOOL_COUNT) {
        log_line("[ ERROR ] : Current brush value is OOB in brush option tweak. Brush = %d", tool);
        return false;
    }
    return true;
}

/// Does with the option of the tool or ink what the key does. `action` is the key.
void apply_key(const DrawChoice& choice, OptionTable& table, int action)
{
    const DrawOption* option = option_of_key(choice.options);
    if (!option) return;
    Shared<int>& cell = table[choice.id][option->column];
    const OptionKey& key = option->key;
    if (key.effect == OptionKey::PLACE_GRADIENT) reposition_gradient(choice.id);
    if (key.effect == OptionKey::FLIP) flip(cell, key.message_off, key.message_on);
    if (key.effect == OptionKey::SLIDE) quick_slider(key, cell, action);
}

} // namespace

void brush_option_hotkey()
{
    const int tool = current_tool();
    if (!choice_valid(toolbox.tool_slot, tool)) return;
    apply_key(tools[tool], toolbox.tool_table, ACTION_BRUSH_OPTION);
}

void ink_option_hotkey()
{
    if (const InkRow* ink = find_ink(current_ink())) apply_key(*ink, toolbox.ink_table, ACTION_INK_OPTION);
}

} // namespace kelu
