// SPDX-License-Identifier: MIT
// The loop of a window that is being moved.
#include "loop/drag.h"

#include "base/run_state.h"
#include "gui/menus.h"
#include "gui/scroll_bar.h"
#include "gui/slots.h"
#include "loop/pass.h"
#include "runtime/input.h"
#include "runtime/jobs.h"
#include <algorithm>
#include <array>

namespace kelu {
namespace {

constexpr int dashed_frame = 2; // value of `frame_state`

struct Place {
    int x = 0, y = 0;
};

/// Places of a window's slots, from the window's corner.
using Places = std::array<Place, gui_slots>;

Places places_in_window(int first, int end)
{
    Places places{};
    for (int slot = first + 1; slot < end; ++slot)
        places[slot] = {gui.x[slot] - gui.x[first], gui.y[slot] - gui.y[first]};
    return places;
}

/// New place of one axis: at the pointer, on the screen, and unmoved where the window fills the screen.
int follow(int place, int at_pointer, int size, int screen_size)
{
    return size >= screen_size ? place : std::max(0, std::min(at_pointer, screen_size - 1 - size));
}

void move_window(int first, int end, const Places& places, int x, int y)
{
    gui.x[first] = x;
    gui.y[first] = y;
    for (int slot = first + 1; slot < end; ++slot) {
        gui.x[slot] = x + places[slot].x;
        gui.y[slot] = y + places[slot].y;
    }
    // The next frame builds the bars' knobs at the new place.
    forget_knob_tables(first, end - first);
}

void drag_window_job(int index)
{
    const auto argument = [&job = job_queue[index]](std::size_t i) { return int(job.arguments[i]); };
    const int row = argument(0);
    const int dx = argument(1);
    const int dy = argument(2);
    const int first = argument(3);
    // The loop below runs the queue again: the record must be gone by then.
    job_clear(index);
    gui_drag_window(row, dx, dy, first);
}

} // namespace

void gui_drag_window(int row, int dx, int dy, int first)
{
    if (!gui_check_slot(first, "gui_drag_window")) return;
    run_state.gui_clicks_enabled = 0;
    gui.frame_state[first] = dashed_frame;
    const int end = std::min(first + gui.slot_count[first], gui_slots);
    const Places places = places_in_window(first, end);
    do {
        const int x = follow(gui.x[first], pointer.mouse_x - dx, gui.w[first], logical_w);
        const int y = follow(gui.y[first], pointer.mouse_y - dy, gui.h[first], logical_h);
        move_window(first, end, places, x, y);
    } while (run_pass(passes::plain) && gui_button_state() == 0);
    while (gui_button_state() != 0 && run_pass(passes::plain)) {}
    if (row >= 0 && row < WINDOW_ROWS) menus.window_pos[row] = {gui.x[first], gui.y[first]};
    gui.frame_state[first] = 0;
    run_state.gui_clicks_enabled = 1;
}

void install_drag_job() { set_job_handler(JOB_DRAG_WINDOW, drag_window_job); }

} // namespace kelu
