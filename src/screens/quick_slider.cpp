// A window with one slider that lives while the key is held.
#include "screens/quick_slider.h"

#include "base/log.h"
#include "gui/build.h"
#include "loop/actions.h"
#include "loop/frame.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/toolbox.h"
#include "screens/draw_menu.h"
#include "tools/gradient_placing.h"
#include <algorithm>
#include <array>

namespace kelu {
namespace {

constexpr int slider_slot = 2;
constexpr int window_slots = 3;
constexpr int message_ticks = 120;
constexpr int last_slot = 6; ///< highest slot number that the checks let pass

/// What the key does to the first option.
enum class Quick {
    NOTHING,
    FLIP_FILL,      ///< hollow or filled
    FLIP_ANTIALIAS, ///< rough or smooth
    SLIDE,
    POSITION ///< places the gradient
};

struct QuickRow {
    Quick what = Quick::NOTHING;
    int title = TEXT_NONE, steps = 0; ///< of the slider
};

constexpr std::array<QuickRow, TOOL_COUNT> quick_tools = [] {
    std::array<QuickRow, TOOL_COUNT> rows{};
    for (const int id : {TOOL_BOX, TOOL_CIRCLE, TOOL_OVAL, TOOL_POLY, TOOL_SSHAPE, TOOL_FSHAPE})
        rows[static_cast<std::size_t>(id)] = {Quick::FLIP_FILL};
    for (const int id : {TOOL_EDGE, TOOL_FILL, TOOL_SEP})
        rows[static_cast<std::size_t>(id)] = {Quick::SLIDE, TEXT_BRUSH_TO_TOLERANCE, 256};
    rows[TOOL_DRIZ] = {Quick::SLIDE, TEXT_BRUSH_TO_RADIUS, 33};
    rows[TOOL_SPRAY] = {Quick::SLIDE, TEXT_BRUSH_TO_DENSITY, 33};
    rows[TOOL_TEXT] = {Quick::FLIP_ANTIALIAS};
    return rows;
}();

constexpr std::array<QuickRow, INK_COUNT> quick_inks = [] {
    std::array<QuickRow, INK_COUNT> rows{};
    rows.fill({Quick::SLIDE, TEXT_INK_TO_STRENGTH, 256});
    for (const int id : {INK_H_GRAD, INK_V_GRAD, INK_L_GRAD, INK_R_GRAD})
        rows[static_cast<std::size_t>(id)] = {Quick::POSITION};
    for (const int id : {INK_OPAQUE, INK_TILE, INK_XOR})
        rows[static_cast<std::size_t>(id)] = {};
    rows[INK_HOLLOW] = {Quick::SLIDE, TEXT_INK_TO_TOLERANCE, 256};
    rows[INK_JUMBLE] = {Quick::SLIDE, TEXT_INK_TO_STRENGTH, 6};
    rows[INK_UNZAG] = {Quick::SLIDE, TEXT_INK_TO_STRENGTH, 101};
    return rows;
}();

void build_quick_slider(const QuickRow& row, Shared<int>& cell)
{
    const int y = std::max(0, pointer.mouse_y - 16);
    gui_window(0, y, 319, 22, window_slots);
    build_slot(title_row(2, 2, 316, row.title), 0, y);
    build_slot(slider_row(slider_slot, 2, 12, 316, row.steps, 3), 0, y);
    bind_slider(slider_slot, cell);
}

void quick_slider(const QuickRow& row, Shared<int>& cell, int action)
{
    const int menu_before = menus.menu_id;
    menus.menu_id = MENU_DIALOG;
    freeze_menu();
    gui_clear_window();
    build_quick_slider(row, cell);
    wait_for_release(action);
    clear_ghost();
    build_draw_menu();
    menus.menu_id = menu_before;
}

void flip(Shared<int>& cell, int message_off, int message_on)
{
    cell = cell == 0 ? 1 : 0;
    flash_status_message(cell != 0 ? message_on : message_off, message_ticks);
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

void apply(const QuickRow& row, Shared<int>& cell, int id, int action)
{
    switch (row.what) {
    case Quick::NOTHING:
        break;
    case Quick::POSITION:
        reposition_gradient(id);
        break;
    case Quick::FLIP_FILL:
        flip(cell, TIP_NOW_HOLLOW, TIP_NOW_FILLED);
        break;
    case Quick::FLIP_ANTIALIAS:
        flip(cell, TIP_NOW_ROUGH, TIP_NOW_ANTIALIASED);
        break;
    case Quick::SLIDE:
        quick_slider(row, cell, action);
        break;
    }
}

} // namespace

void brush_option_hotkey()
{
    const int tool = current_tool();
    if (!choice_valid(toolbox.tool_slot, tool)) return;
    const auto id = static_cast<std::size_t>(tool);
    apply(quick_tools[id], toolbox.tool_table[id][0], tool, ACTION_BRUSH_OPTION);
}

void ink_option_hotkey()
{
    const int ink = current_ink();
    if (ink < 0 || ink >= INK_COUNT) return;
    const auto id = static_cast<std::size_t>(ink);
    apply(quick_inks[id], toolbox.ink_table[id][0], ink, ACTION_INK_OPTION);
}

} // namespace kelu
