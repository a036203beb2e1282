// SPDX-License-Identifier: MIT
// The transport buttons, and the showing of the frame that the tick has come to.
#include "screens/playback_menu.h"

#include "base/log.h"
#include "gui/build.h"
#include "loop/tool_loop.h"
#include "runtime/animation.h"
#include "runtime/hotkeys.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "screens/frame_loan.h"
#include "screens/speed_slider.h"
#include "workspace/frame_cache.h"
#include <array>

namespace kelu {
namespace {

enum {
    SLOT_BACKWARD = 3,
    SLOT_STOP = 4,
    SLOT_PAUSE = 5,
    SLOT_FORWARD = 6,
    SLOT_HIDE = 7,
    SLOT_OKAY = 8,
    SLOT_SPEED = 9,
    SLOT_NUMBER = 10,
    SLOT_SHOW = 11, ///< is alone while the window is hidden
    menu_slots = 11
};

constexpr int none_shown = -1;
constexpr int near_x = 5, near_y = 5, far_x = 280, far_y = 226; ///< places of SLOT_SHOW
constexpr int left_third = 108, upper_third = 81;               ///< a window before these has it at the near place

constexpr SlotRow transport_row(int slot, int text)
{
    return push_row(slot, 39 + 20 * (slot - SLOT_BACKWARD), 2, 19, text);
}

constexpr std::array layout_rows{
    title_row(2, 2, 36, TEXT_PLAY),
    transport_row(SLOT_BACKWARD, TEXT_TO_START),
    transport_row(SLOT_STOP, TEXT_STOP),
    transport_row(SLOT_PAUSE, TEXT_PAUSE),
    transport_row(SLOT_FORWARD, TEXT_FORWARD),
    transport_row(SLOT_HIDE, TEXT_HIDE),
    speed_slider_row(SLOT_SPEED, 2, 12, 136),
    push_row(SLOT_OKAY, 139, 12, 35, TEXT_OKAY),
    SlotRow{SLOT_NUMBER, 139, 2, 35, KIND_NUMBER},
};
constexpr MenuLayout layout{.menu_id = MENU_PLAYBACK,
                            .row = WINDOW_PLAYBACK,
                            .x = 5,
                            .y = 147,
                            .w = 175,
                            .h = 22,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

/// One run of the screen.
struct Playback {
    bool cached = false;    ///< the cache has been filled for this run
    int shown = none_shown; ///< position that shows
    bool resized = false;   ///< a frame of another size has shown, at whose edges the view was held
};

int frame_at(int pos) { return animation.anim_list[pos % max_frames]; }

void show_number() { gui.list_items[SLOT_NUMBER][0] = frame_at(animation.anim_pos); }

void fill_cache(Playback& run)
{
    if (run.cached) return;
    refresh_frame_cache();
    fill_frame_cache();
    run.cached = true;
}

void flip_window()
{
    menu_toggle_hidden(0);
    if (gui.hidden[0] == 0) {
        gui_reset_slot(SLOT_SHOW);
        return;
    }
    const int x = gui.x[0] < left_third ? near_x : far_x;
    const int y = gui.y[0] < upper_third ? near_y : far_y;
    build_slot({SLOT_SHOW, x, y, 35, KIND_GHOST_BUTTON, TEXT_PLAY, ACT_CLICK}, 0, 0);
}

void read_window(CanvasButtons& buttons)
{
    const bool right = buttons.right_pressed();
    if (right) wait_right_release();
    const bool button = gui.event[SLOT_HIDE].take() != 0;
    if (gui.event[SLOT_SHOW].take() != 0 || button || right) flip_window();
}

void read_transport(Playback& run)
{
    const auto start = [&run](int slot, int state) {
        if (gui.event[slot].take() == 0 || animation.anim_state == state) return;
        fill_cache(run);
        animation.anim_state = state;
    };
    start(SLOT_BACKWARD, ANIM_BACKWARD);
    if (gui.event[SLOT_STOP].take() != 0) stop_animation();
    if (gui.event[SLOT_PAUSE].take() != 0) animation.anim_state = -animation.anim_state;
    start(SLOT_FORWARD, ANIM_FORWARD);
}

/// Puts the picture of the present position in the frame's place. A frame that could not be cached is passed over.
void show_position(Playback& run)
{
    const int pos = animation.anim_pos;
    if (animation.anim_state <= 0 || pos == run.shown) return;
    const int frame = frame_at(pos);
    BITMAP* picture = frame < 0 ? nullptr : cached_frame(frame);
    if (!picture) return;
    if (picture->w != store.frame_bitmap.width() || picture->h != store.frame_bitmap.height()) {
        Bitmap sized(picture->w, picture->h);
        if (!sized) return;
        store.frame_bitmap = std::move(sized);
        run.resized = true;
    }
    blit(picture, store.frame_bitmap, 0, 0, 0, 0, picture->w, picture->h);
    run.shown = pos;
}

void run_playback(Playback& run)
{
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .leave_key = ACTION_PLAY};
    CanvasButtons buttons;
    while (run_pass(pass)) {
        read_window(buttons);
        if (gui.event[SLOT_OKAY].take() != 0) {
            stop_animation();
            return;
        }
        read_transport(run);
        show_position(run);
        show_number();
    }
}

/// The screen from its opening to its closing, with `picture` in the frame's place.
void show_playback(Playback& run, Bitmap picture)
{
    const FrameLoan loan(std::move(picture));
    build_screen(layout);
    bind_speed_slider(SLOT_SPEED);
    show_number();
    wait_for_release(ACTION_PLAY);
    run_playback(run);
    gui_reset_slot(SLOT_SHOW);
    close_screen();
}

} // namespace

void playback_menu()
{
    if (animation.anim_count < 2) {
        flash_status_message(TIP_TAG_MORE_FRAMES);
        return;
    }
    Playback run;
    if (animation.anim_state != ANIM_STOPPED) fill_cache(run);
    Bitmap copy = store.frame_bitmap.copy();
    if (!copy) {
        log_line("[ ERROR ] : No memory for a copy of the frame. Playback can't start.");
        return;
    }
    if (animation.anim_pos >= max_frames) {
        log_line("[ ERROR ] : Current anim frame OOB in playback_menu. Clipping to zero. Value was %d",
                 int(animation.anim_pos));
        animation.anim_pos = 0;
    }
    const int zoom = view.zoom, pan_x = view.pan_x, pan_y = view.pan_y;
    show_playback(run, std::move(copy));
    if (!run.resized) return;
    view.zoom = zoom;
    view.pan_x = pan_x;
    view.pan_y = pan_y;
    update_mouse_position();
}

} // namespace kelu
