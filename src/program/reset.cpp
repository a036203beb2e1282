// SPDX-License-Identifier: MIT
// The start values of every table. The initialisers in the headers are the values; this is the list of resets.
#include "program/startup.h"

#include "draw/lifted.h"
#include "draw/operation.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "framework/script.h"
#include "framework/sound.h"
#include "framework/tint.h"
#include "gui/menus.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "loop/actions.h"
#include "loop/home_strip.h"
#include "loop/inspector.h"
#include "runtime/actors.h"
#include "runtime/animation.h"
#include "runtime/browser_state.h"
#include "runtime/bubble_table.h"
#include "runtime/cel.h"
#include "runtime/clock.h"
#include "runtime/color_band.h"
#include "runtime/color_settings.h"
#include "runtime/frame_flags.h"
#include "runtime/grid.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/jobs.h"
#include "runtime/macros.h"
#include "runtime/measure.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/random.h"
#include "runtime/shape_settings.h"
#include "runtime/store.h"
#include "runtime/text_settings.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "screens/action_table.h"
#include "workspace/running_work.h"

namespace kelu {
namespace {

/// The framework: actors and what belongs to them, jobs and scripts.
void reset_framework()
{
    clear_jobs();
    reset_actors();
    actor_layer = {};
    bloom = {};
    tint = {};
    sound = {};
    for (int bubble = 1; bubble < max_bubbles; ++bubble)
        release_bubble(bubble);
    for (int slot = 0; slot < max_scripts; ++slot)
        reset_script(slot);
}

/// Input, windows and what the loops share.
void reset_interface()
{
    for (int slot = 0; slot < gui_slots; ++slot)
        gui_reset_slot(slot);
    gui_logic = {};
    menus = {};
    measure = {};
    inspector = {};
    action_state = {};
    home_strip = {};
    clock_state = {};
    pointer = {};
    frame_flags = {};
    stroke_position = {};
    hotkeys = {};
    action_rows = action_table();
    set_default_hotkeys();
}

/// What the user works on and works with.
void reset_work()
{
    preferences = {};
    view = {};
    store = {};
    toolbox = {};
    stop_running_work(false);
    undo = {};
    lifted = {};
    touched = {};
    animation = {};
    browser_state = {};
    cel = {};
    spectrum = {};
    color_settings = {};
    grid = {};
    macros = {};
    menu_scheme = {};
    shape_settings = {};
    text_settings = {};
    for (Shared<int>& favorite : toolbox.favorites)
        favorite = random_color();
}

} // namespace

void FW_initialize_variables()
{
    reset_framework();
    reset_interface();
    reset_work();
}

} // namespace kelu
