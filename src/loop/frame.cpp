// SPDX-License-Identifier: MIT
// One frame, from the bottom of the picture to its top.
#include "loop/frame.h"

#include "base/run_state.h"
#include "draw/cel.h"
#include "draw/cel_render.h"
#include "draw/preview.h"
#include "framework/actor_shadow.h"
#include "framework/tint.h"
#include "gui/menus.h"
#include "gui/render.h"
#include "gui/slots.h"
#include "gui/status_bar.h"
#include "loop/actions.h"
#include "loop/frame_pointer.h"
#include "loop/input_turn.h"
#include "loop/inspector.h"
#include "loop/measurement.h"
#include "loop/zoom_preview.h"
#include "runtime/clock.h"
#include "runtime/frame_flags.h"
#include "runtime/frame_picture.h"
#include "runtime/frame_snapshot.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/jobs.h"
#include "runtime/measure.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/present.h"
#include "runtime/shows.h"
#include "runtime/view.h"
#include "workspace/running_work.h"

namespace kelu {
namespace {

constexpr int ghost_opacity = 64;    ///< of a frozen menu behind a pop-up
constexpr int caret_shows_below = 3; ///< of `caret_phase`

void paint_ghost(BITMAP* target)
{
    const GhostRect& rect = menus.ghost_rect;
    if (rect.x == -1) return;
    Bitmap part(rect.w, rect.h, mask_magenta);
    if (!part) return;
    blit(screen_state.screen_buffer_a, part, rect.x, rect.y, 0, 0, rect.w, rect.h);
    blend_sprite(part, target, rect.x, rect.y, ghost_opacity);
}

void paint_pointer(BITMAP* target, bool scaled, bool waiting)
{
    if (waiting) {
        paint_waiting_cursor(target);
    } else {
        paint_cursor(target, scaled);
    }
}

bool measuring() { return measure.measure_x >= 0; }

/// A tool's size has no lines.
int measured_lines() { return measure.measure_is_distance + measure.measure_state; }

/// What the running operation shows on the overlay. Each writer clears it, so that the last one is what shows; the
/// measurement adds to what is there.
void draw_tool_overlay()
{
    if (cel_work.cel_place.mode != CEL_NONE) draw_cel_preview();
    if (preview.preview_kind != no_preview) draw_tool_preview();
    if (cel_work.grab_x != no_grab) draw_grab_marker();
    if (measuring()) draw_measurement(measured_lines(), 0);
}

/// Figures at the pointer, above everything but the status bar.
void draw_readings(BITMAP* picture)
{
    if (measuring()) draw_measurement(measured_lines(), 1);
    if (inspector.inspector_on != 0) draw_inspector(picture);
}

} // namespace

void take_frame_snapshot()
{
    note_frame_size();
    FrameSnapshot& shot = frame_snapshot;
    shot.mouse_x = pointer.mouse_x;
    shot.mouse_y = pointer.mouse_y;
    shot.zoom = view.zoom;
    shot.factor = 1 << (shot.zoom - 1);
    shot.pan_x = view.pan_x;
    shot.pan_y = view.pan_y;
    shot.frame_mouse_x = (shot.mouse_x >> (shot.zoom - 1)) + shot.pan_x;
    shot.frame_mouse_y = (shot.mouse_y >> (shot.zoom - 1)) + shot.pan_y;
    shot.backdrop = view.backdrop;
    shot.dash_phase = clock_state.marching_ants_phase;
    shot.status_message = menus.status_message;
    shot.hover_slot = pointer.gui_hover_slot;
    shot.pulse = gui_logic.pulse_value;
    shot.caret = gui_logic.gui_key_focus != -1 && clock_state.caret_phase < caret_shows_below ? 1 : 0;
    shot.tooltip_slot = gui_logic.tooltip_active;
    shot.tint = {tint.tint_red, tint.tint_green, tint.tint_blue, tint.tint_opacity};
}

void compose_frame(bool waiting)
{
    BITMAP* picture = screen_state.back_buffer;
    const bool clean = frame_flags.clean_render != 0;
    paint_background(picture);
    if (!waiting) draw_tool_overlay();
    paint_frame(picture, !waiting && !clean && (preview.preview_active != 0 || measuring()));
    if (!clean && !waiting) paint_crosshairs(picture);
    const bool below_menus = preferences.cursor_scaling_off == 0 && frame_snapshot.hover_slot < 0;
    if (below_menus && !clean) paint_pointer(picture, true, waiting);
    paint_ghost(picture);
    gui_render();
    update_zoom_preview();
    if (!below_menus && !clean) paint_pointer(picture, false, waiting);
    if (!clean && !waiting) draw_readings(picture);
    draw_status_bar();
    draw_screen_tint(picture);
}

void run_frame(uint8_t no_tool_preview)
{
    const bool clean = frame_flags.clean_render != 0;
    const bool waiting = no_tool_preview != 0;
    update_actor_shadow();
    take_frame_snapshot();
    const bool due = picture_is_due(clean || waiting);
    if (due) {
        compose_frame(waiting);
    } else if (still_frame_check) {
        still_frame_check();
    }
    if (!clean) present_back_buffer(due);
    if (!waiting) take_input_turn(); // an operation that shows its progress has yet to look at this turn
    escape_frames = escape_down() ? escape_frames + 1 : 0;
    clock_state.tool_ticks = 0;
    if (action_state.frame_locked == 0) keep_running_work();
    run_jobs();
}

void run_frame_plain() { run_frame(0); }

void run_frame_in_passing()
{
    frame_flags.in_passing = 1;
    run_frame(0);
    frame_flags.in_passing = 0;
}

} // namespace kelu
