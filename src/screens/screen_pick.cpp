// SPDX-License-Identifier: MIT
// Picking from the screen.
#include "screens/screen_pick.h"

#include "base/run_state.h"
#include "gui/menus.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "gui/tooltips.h"
#include "loop/freeze.h"
#include "loop/pass.h"
#include "runtime/color_band.h"
#include "runtime/input.h"
#include <cstdint>

namespace kelu {
namespace {

constexpr int nothing_picked = -1;
constexpr int off_the_screen = -2;

/// As long as it lives, presses start nothing on the slots; at its end nothing is left of what they did.
class PickScope {
public:
    PickScope() : clicks_before_(run_state.gui_clicks_enabled) { run_state.gui_clicks_enabled = 0; }
    ~PickScope()
    {
        for (int slot = 0; slot < gui_slots; ++slot)
            gui.event[slot] = 0;
        run_state.gui_clicks_enabled = clicks_before_;
    }
    PickScope(const PickScope&) = delete;
    PickScope& operator=(const PickScope&) = delete;

private:
    uint8_t clicks_before_;
};

bool pointer_on_screen()
{
    return pointer.mouse_x >= 0 && pointer.mouse_x < logical_w && pointer.mouse_y >= 0 && pointer.mouse_y < logical_h;
}

/// Runs passes until a button goes down: the colour that was pressed on.
int wait_for_color(const Pass& pass)
{
    while (run_pass(pass)) {
        if (left_down()) {
            const int color = pointer_on_screen() ? grab_screen_color() : off_the_screen;
            wait_left_release();
            return color;
        }
        if (right_down()) {
            wait_right_release();
            return nothing_picked;
        }
    }
    return nothing_picked;
}

/// The same with a text in the status bar.
int wait_for_end_color(int message)
{
    menus.status_message = message;
    return wait_for_color(passes::menu);
}

} // namespace

int pick_screen_color()
{
    const PickScope scope;
    return wait_for_color(passes::plain);
}

void pick_spectrum(int spectrum_slot)
{
    const PickScope scope;
    gui.params[spectrum_slot][0] = random_border;
    const int start = wait_for_end_color(TIP_SPECTRUM_START);
    const int end = start < 0 ? nothing_picked : wait_for_end_color(TIP_SPECTRUM_END);
    if (end >= 0) {
        spectrum.spectrum_start = start;
        spectrum.spectrum_end = end;
    }
    menus.status_message = TIP_NONE;
    gui.params[spectrum_slot][0] = menu_scheme.scheme_border;
}

} // namespace kelu
