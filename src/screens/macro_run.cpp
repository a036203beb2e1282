// SPDX-License-Identifier: MIT
// A macro put in place.
#include "base/log.h"
#include "draw/grid.h"
#include "draw/tips.h"
#include "gui/menus.h"
#include "gui/tooltips.h"
#include "loop/home_strip.h"
#include "runtime/toolbox.h"
#include "screens/draw_menu.h"
#include "screens/macro_menu.h"

namespace kelu {
namespace {

constexpr int lowest_pitch = 2, highest_pitch = 999;

void apply_grid(const Macro& record)
{
    if (record.grid_mode == MACRO_GRID_OFF) grid.grid_on = 0;
    if (record.grid_mode != MACRO_GRID_ON) return;
    grid.grid_w = record.grid_w;
    grid.grid_h = record.grid_h;
    grid.grid_off_x = record.grid_off_x;
    grid.grid_off_y = record.grid_off_y;
    grid.grid_opacity = record.grid_opacity;
    repair_grid(); // the record may come from a settings file of any content
    grid.grid_on = 1;
}

bool on_axis(int pitch, int offset)
{
    return pitch >= lowest_pitch && pitch <= highest_pitch && offset >= 0 && offset < pitch;
}

} // namespace

void exec_macro(int slot)
{
    if (slot < 0 || slot >= macro_count) {
        log_line("[ ERROR ] : Slot value OOB in call to exec_macro. Slot = %d", slot);
        return;
    }
    const Macro& record = macros.macro_table[slot];
    for (std::size_t i = 0; i < record.tools.size(); ++i) {
        if (record.tools[i] != 0) toolbox.tool_slots[i] = record.tools[i];
        if (record.inks[i] != 0) toolbox.ink_slots[i] = record.inks[i] - 1;
    }
    if (record.tool_slot != -1) toolbox.tool_slot = record.tool_slot;
    if (record.ink_slot != -1) toolbox.ink_slot = record.ink_slot;
    if (record.brush_tip != -1) set_brush_tip(record.brush_tip);
    apply_grid(record);
    home_strip = {}; // what the macro has chosen shows
    build_draw_menu();
    flash_status_message(TIP_MACRO_DONE_1 + slot);
}

Macro valid_macro(Macro record)
{
    const bool on = record.grid_mode == MACRO_GRID_ON && on_axis(record.grid_w, record.grid_off_x) &&
                    on_axis(record.grid_h, record.grid_off_y);
    if (on) return record;
    if (record.grid_mode == MACRO_GRID_ON) record.grid_mode = MACRO_GRID_IGNORE;
    record.grid_w = record.grid_h = record.grid_off_x = record.grid_off_y = record.grid_opacity = 0;
    return record;
}

} // namespace kelu
