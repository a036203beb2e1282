// SPDX-License-Identifier: MIT
// The commands on frames, colours and view that need no screen of their own.
#include "screens/commands.h"

#include "base/run_state.h"
#include "draw/grid.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "gui/build.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "runtime/clock.h"
#include "runtime/frame_flags.h"
#include "runtime/hotkeys.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "screens/choice_menu.h"
#include "screens/color_menu.h"
#include "screens/dialogs.h"
#include "screens/draw_menu.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_order.h"
#include "workspace/frame_store.h"
#include "workspace/restore.h"
#include "workspace/state.h"
#include "workspace/thumbnails.h"
#include <array>

namespace kelu {
namespace {

constexpr const char* state_file = "current.spa";
constexpr int first_repeat = 200; ///< counts of 1/500 s until a held key steps again
constexpr int next_repeat = 35;

/// Adds one frame behind the current one and writes the state. `blank` 0 clones.
void add_frame(int blank, int message)
{
    const int count = store.frame_count;
    insert_frames(store.current_frame, 1, blank);
    if (store.frame_count == count) return;
    // The message of a failure stays.
    if (write_workspace_state(state_file, true)) flash_status_message(message);
}

void pick_color(Shared<int>& target) { target = grab_screen_color(); }

/// Swaps to a frame, and lets the onion skin follow when `step` 1 leaves the frame that shows through, -1 the other
/// way.
void step_to(int frame, int step)
{
    const bool skin = view.onion_on != 0;
    store.onion_bitmap = skin && step > 0 ? store.frame_bitmap.copy() : Bitmap();
    fetch_frame(store.current_frame, frame, 0);
    if (skin && step < 0) {
        view.onion_on = 0;
        show_onion_skin();
    }
}

/// One step, and more while the key is held: the first after 0.4 s, then every 70 ms.
void step_while_held(int action, int step)
{
    for (int wait = first_repeat;; wait = next_repeat) {
        clock_state.wait_counter = 0;
        const int count = store.frame_count;
        step_to((store.current_frame + count + step) % count, step);
        do {
            if (!run_pass(passes::plain) || !hotkey_test(action)) return;
        } while (clock_state.wait_counter <= wait);
    }
}

void go_to(int frame)
{
    if (store.current_frame != frame) fetch_frame(store.current_frame, frame, 0);
}

/// Frame pixels that a pan moves at each logic tick, by zoom level.
int pan_step()
{
    constexpr std::array<int, max_zoom + 1> steps{1, 3, 2, 1, 1, 1, 1};
    return steps[int(view.zoom)];
}

void pan_by(Shared<int>& pan, int step)
{
    pan = pan + step;
    frame_flags.vsync_once = 1;
}

} // namespace

void clone_frame() { add_frame(0, TIP_CLONED); }

void insert_blank_frame() { add_frame(1, TIP_FRAME_CREATED); }

void delete_current_frame()
{
    wait_for_release(ACTION_FRAME_DELETE);
    if (store.frame_count == 1) {
        ask(TEXT_FRAME_CANT_BE_DELETED, TEXT_NONE, DialogButtons::OKAY);
        return;
    }
    if (ask(TEXT_DELETE_FRAME, TEXT_CANNOT_BE_UNDONE) == 0) return;
    delete_frames(store.current_frame, 1);
    write_workspace_state(state_file, true);
}

void clear_picture()
{
    const UndoableOperation step;
    clear_to_color(store.frame_bitmap, toolbox.mask_color);
    touch_frame();
}

void restore_picture() { restore_frame(); }

void ask_exit()
{
    wait_for_release(ACTION_EXIT);
    if (ask(TEXT_EXIT_KELU, TEXT_CHANGES_PERSIST) != 0) run_state.exit_requested = 1;
}

void flip_menu() { flip_draw_menu(); }

void pick_brush_color() { pick_color(toolbox.brush_color); }

void pick_mask_color() { pick_color(toolbox.mask_color); }

void next_frame() { step_while_held(ACTION_NEXT, 1); }

void previous_frame() { step_while_held(ACTION_PREVIOUS, -1); }

void first_frame() { go_to(0); }

void last_frame() { go_to(store.frame_count - 1); }

void flip_grid()
{
    repair_grid();
    grid.grid_on = grid.grid_on == 0 ? 1 : 0;
    flash_status_message(grid.grid_on != 0 ? TIP_GRID_ACTIVE : TIP_GRID_DISABLED);
}

void flip_alpha() { switch_alpha_mode(); }

void flip_onion()
{
    if (view.onion_on != 0) {
        view.onion_on = 0;
    } else if (!show_onion_skin()) {
        menus.status_message = TIP_ONION_NEEDS_FRAMES;
        wait_for_release(ACTION_ONION_TOGGLE);
        menus.status_message = TIP_NONE;
    }
}

void pan_up() { pan_by(view.pan_y, -pan_step()); }
void pan_down() { pan_by(view.pan_y, pan_step()); }
void pan_left() { pan_by(view.pan_x, -pan_step()); }
void pan_right() { pan_by(view.pan_x, pan_step()); }

void zoom_in() { zoom_step(1); }
void zoom_out() { zoom_step(0); }

void run_over_draw_menu(void (*operation)())
{
    gui_clear_window();
    operation();
    build_draw_menu();
}

void choose_tool()
{
    run_over_draw_menu([] { brush_tool_menu(toolbox.tool_slot); });
}

void choose_ink()
{
    run_over_draw_menu([] { ink_menu(toolbox.ink_slot); });
}

void choose_brush_color()
{
    run_over_draw_menu([] { color_menu(ColorTarget::BRUSH); });
}

void choose_mask_color()
{
    run_over_draw_menu([] { color_menu(ColorTarget::MASK); });
}

} // namespace kelu
