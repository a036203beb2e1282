// SPDX-License-Identifier: MIT
// The measurement's key, lines and figures.
#include "loop/measurement.h"

#include "base/run_state.h"
#include "draw/dashes.h"
#include "draw/preview.h"
#include "gui/text.h"
#include "runtime/frame_snapshot.h"
#include "runtime/hotkeys.h"
#include "runtime/measure.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include <array>
#include <cstdio>

namespace kelu {
namespace {

/// Values of `measure_state`.
enum MeasureState : int {
    MEASURE_OF_TOOL, ///< none, or a tool's own
    MEASURE_STARTED, ///< the key is still held from the start
    MEASURE_RUNS,
    MEASURE_ENDS ///< the key is held for the end
};

constexpr int pointer_gap = 6; ///< pixels from the frame pixel under the pointer to the text
constexpr int line_pitch = 9;  ///< from the figures to the word below them

/// One step each time the key goes down or up; the second release ends the measurement.
void follow_key()
{
    const bool down = hotkey_test(ACTION_MEASURE);
    const int state = measure.measure_state;
    if (state == MEASURE_OF_TOOL) return;
    const bool waits_for_press = state == MEASURE_RUNS;
    if (down != waits_for_press) return;
    if (state == MEASURE_ENDS) {
        measure = {};
    } else {
        measure.measure_state = state + 1;
    }
}

/// A figure counts both ends.
int size_of(int difference) { return difference < 0 ? difference - 1 : difference + 1; }

/// One axis: on the far side of the pointer, seen from the anchor, unless the text would leave the screen there.
/// `before` and `after` tell whether the text fits on the side of the lower and of the higher coordinates.
bool goes_before(bool pointer_before_anchor, bool before, bool after)
{
    return pointer_before_anchor ? before : !after;
}

void draw_lines()
{
    const Point anchor{measure.measure_x - frame_snapshot.pan_x, measure.measure_y - frame_snapshot.pan_y};
    const DashPen pen(screen_state.tool_overlay);
    pen.line(anchor, {anchor.x - logical_w, anchor.y});
    pen.line(anchor, {anchor.x + logical_w, anchor.y});
    pen.line(anchor, {anchor.x, anchor.y - logical_h});
    pen.line(anchor, {anchor.x, anchor.y + logical_h});
}

void draw_figures(BITMAP* target, bool distance)
{
    const FrameSnapshot& shot = frame_snapshot;
    const int dx = shot.frame_mouse_x - measure.measure_x;
    const int dy = shot.frame_mouse_y - measure.measure_y;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%d, %d", distance ? dx : size_of(dx), distance ? dy : size_of(dy));
    set_outlined_text(FONT_NARROW, SET_MESSAGE);
    const int w = text_width(text.data());
    const int gap = shot.factor + pointer_gap;
    const int px = (shot.frame_mouse_x - shot.pan_x) * shot.factor;
    const int py = (shot.frame_mouse_y - shot.pan_y) * shot.factor;
    const bool left = goes_before(dx<0, px - gap - w> 0, px + gap + w < logical_w);
    const bool above = goes_before(dy<0, py - gap> 5, shot.factor + 11 + py < logical_h);
    const int x = left ? px - w - gap : px + gap;
    const int y = above ? py - gap - 5 : py + gap;
    draw_text(target, x, y, text.data());
    set_outlined_text(FONT_NARROW, distance ? SET_ALPHA : SET_FRAME);
    draw_text(target, x, y + line_pitch, distance ? "(DIST)" : "(SIZE)");
}

} // namespace

void start_measurement()
{
    if (measure.measure_state != MEASURE_OF_TOOL) return;
    if (!in_bitmap(store.frame_bitmap, view.frame_mouse_x, view.frame_mouse_y)) return;
    measure = {.measure_x = view.frame_mouse_x, .measure_y = view.frame_mouse_y, .measure_state = MEASURE_STARTED};
}

void draw_measurement(int lines, int text)
{
    const bool inside = in_bitmap(store.frame_bitmap, measure.measure_x, measure.measure_y);
    if (text != 0) {
        if (inside) draw_figures(screen_state.back_buffer, lines != 0);
        follow_key();
        return;
    }
    if (preview.preview_active == 0) clear_to_color(screen_state.tool_overlay, mask_magenta);
    if (lines != 0 && inside) draw_lines();
}

} // namespace kelu
