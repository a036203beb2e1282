// SPDX-License-Identifier: MIT
// The tip's cell, and the mask and the reach that the pointer and the crosshairs take from it.
#include "draw/tips.h"

#include "base/log.h"
#include "base/run_state.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include <algorithm>
#include <array>

namespace kelu {
namespace {

constexpr int most_tip = 99;
constexpr int custom_tip_w = 16, custom_tip_h = 14;
constexpr int no_ink_value = 255;

/// Modes of `preferences.cursor_tip`.
enum CursorTip : int { CURSOR_TIP_OFF, CURSOR_TIP_INLINE, CURSOR_TIP_OUTLINE };

bool has_ink(int tip_value) { return tip_value < tip_no_ink; }

/// Number of cells from the centre to the farthest one with ink in direction (dx, dy), 0 when there is none.
int reach(const TipCell& tip, int dx, int dy)
{
    int farthest = 0;
    int x = tip_center_x + dx;
    int y = tip_center_y + dy;
    for (int steps = 1; x >= 0 && x < tip_cell_w && y >= 0 && y < tip_cell_h; ++steps, x += dx, y += dy) {
        if (has_ink(tip.line(y)[x])) farthest = steps;
    }
    return farthest;
}

bool sheet_has_ink(int x, int y)
{
    return in_bitmap(store.tip_sheet, x, y) && has_ink(red_of(row(store.tip_sheet, y)[x]));
}

/// Draws the tip's rim, or the outline one pixel outside it, into the cursor: wherever a pixel with ink meets one
/// without. The neighbours are those on the sheet, also across the cell's border.
void trace_edges(int tip, const TipCell& cell, bool outline)
{
    constexpr std::array<std::array<int, 2>, 4> neighbours{{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};
    const int left = tip % tips_per_row * tip_cell_w;
    const int top = tip / tips_per_row * tip_cell_h;
    for (int y = 0; y < tip_cell_h; ++y) {
        for (int x = 0; x < tip_cell_w; ++x) {
            if (!has_ink(cell.line(y)[x])) continue;
            for (const auto& [dx, dy] : neighbours) {
                if (sheet_has_ink(left + x + dx, top + y + dy)) continue;
                const int mark_x = outline ? x + dx : x;
                const int mark_y = outline ? y + dy : y;
                if (in_bitmap(tips.tip_cursor, mark_x, mark_y))
                    row(tips.tip_cursor, mark_y)[mark_x] = fixed_colours.white;
            }
        }
    }
}

} // namespace

TipCell tip_cell(int tip)
{
    TipCell cell;
    cell.values.fill(no_ink_value);
    BITMAP* sheet = store.tip_sheet;
    if (!sheet || tip < 0 || tip > most_tip) return cell;
    const int left = tip % tips_per_row * tip_cell_w;
    const int top = tip / tips_per_row * tip_cell_h;
    const int end_x = std::min(tip == custom_tip ? custom_tip_w : tip_cell_w, sheet->w - left);
    const int end_y = std::min(tip == custom_tip ? custom_tip_h : tip_cell_h, sheet->h - top);
    for (int y = 0; y < end_y; ++y) {
        const int* pixels = row(sheet, top + y) + left;
        std::transform(pixels, pixels + std::max(end_x, 0), cell.line(y),
                       [](int pixel) { return static_cast<uint8_t>(red_of(pixel)); });
    }
    return cell;
}

void set_brush_tip(int tip)
{
    if (tip < -1 || tip > most_tip) {
        log_line("[ ERROR ] : Tip OOB in call to set_brush_tip. Tip = %d", tip);
        return;
    }
    toolbox.brush_tip = tip;
    rebuild_tip_cursor();
}

void rebuild_tip_cursor()
{
    const TipCell cell = tip_cell(toolbox.brush_tip);
    tips.tip_cursor = Bitmap(tip_cell_w, tip_cell_h, fixed_colours.black);
    tips.reach = {reach(cell, -1, 0), reach(cell, 1, 0), reach(cell, 0, -1), reach(cell, 0, 1)};
    if (preferences.cursor_tip == CURSOR_TIP_OFF || !store.tip_sheet) return;
    trace_edges(toolbox.brush_tip, cell, preferences.cursor_tip == CURSOR_TIP_OUTLINE);
}

} // namespace kelu
