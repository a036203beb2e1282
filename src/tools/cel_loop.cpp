// SPDX-License-Identifier: MIT
// Dragging and anchoring the cel, and the window of what is offscreen.
#include "tools/cel_loop.h"

#include "base/run_state.h"
#include "draw/cel_render.h"
#include "draw/preview.h"
#include "draw/undo.h"
#include "loop/home_strip.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/store.h"
#include "runtime/view.h"

namespace kelu {
namespace {

constexpr int window_w = 104, window_h = 33;
enum OffscreenSlot : int { SLOT_FIRST = 2, SLOT_SECOND = 3, SLOT_END = 4 };

} // namespace

std::optional<Point> ask_point(int message)
{
    menus.status_message = message;
    CanvasButtons buttons;
    std::optional<Point> point;
    while (!point && run_pass(passes::cel)) {
        if (buttons.left_pressed()) {
            sample_press();
            point = Point{pointer.press_x, pointer.press_y};
            wait_left_release();
        } else if (buttons.right_pressed()) {
            wait_right_release();
            break;
        }
    }
    menus.status_message = TIP_NONE;
    return ending() ? std::nullopt : point;
}

FloatingCel::FloatingCel(int mode, Point at)
{
    preview = {1, no_preview};
    cel_work.cel_place = {};
    cel_work.cel_place.x = at.x;
    cel_work.cel_place.y = at.y;
    cel_work.cel_place.mode = mode;
    cel_work.cel_place.show_outline = 0;
    cel_work.cel_in_view = 1;
}

FloatingCel::~FloatingCel()
{
    cel_work.cel_place = {};
    preview = {};
    menus.status_message = TIP_NONE;
    clear_to_color(screen_state.tool_overlay, mask_magenta);
}

bool cel_drag()
{
    CelPlace& place = cel_work.cel_place;
    const CelPlace start = place;
    const Point grabbed = snapped_mouse();
    const auto follow = [&] {
        const Point mouse = snapped_mouse();
        place.x = start.x + mouse.x - grabbed.x;
        place.y = start.y + mouse.y - grabbed.y;
        if (place.mode == CEL_STRETCH) {
            place.x2 = start.x2 + mouse.x - grabbed.x;
            place.y2 = start.y2 + mouse.y - grabbed.y;
        }
    };
    for (follow(); run_pass(passes::plain); follow()) {
        if (left_down()) {
            wait_left_release();
            cel.cel_origin_x = place.x;
            cel.cel_origin_y = place.y;
            return false;
        }
        if (right_down()) {
            wait_right_release();
            return true;
        }
    }
    return false;
}

void anchor_cel(int mode, bool undoable)
{
    std::optional<UndoableOperation> step;
    if (undoable) step.emplace();
    commit_cel(mode);
}

Point in_view(Point frame) { return {frame.x - view.pan_x, frame.y - view.pan_y}; }

Point mouse_in_view() { return in_view(frame_mouse()); }

void center_view_on(Point frame)
{
    const int level = view.zoom;
    view.pan_x = frame.x - static_cast<int>(view.view_w[level]) / 2;
    view.pan_y = frame.y - static_cast<int>(view.view_h[level]) / 2;
    clamp_pan();
    update_mouse_position();
}

void OffscreenWindow::open()
{
    menu_stood_ = gui.active[0] != 0;
    menu_was_hidden_ = gui.hidden[0] != 0;
    menu_before_ = menus.menu_id;
    constexpr int row_w = window_w - 3;
    const std::array rows{
        title_row(2, 2, row_w, texts_[0]),
        push_row(SLOT_FIRST, 2, 12, row_w, texts_[1]),
        push_row(SLOT_SECOND, 2, 22, row_w, texts_[2]),
    };
    build_screen(MenuLayout{.menu_id = MENU_DIALOG,
                            .x = (logical_w - window_w) / 2,
                            .y = (logical_h - window_h) / 2,
                            .w = window_w,
                            .h = window_h,
                            .slot_count = SLOT_END,
                            .slots = rows});
    is_open_ = true;
}

void OffscreenWindow::close()
{
    if (!is_open_) return;
    is_open_ = false;
    close_screen();
    if (menu_stood_) {
        build_draw_menu();
        if (menu_was_hidden_) menu_hide(0);
    }
    menus.menu_id = menu_before_;
}

void OffscreenWindow::show(bool needed)
{
    if (needed && !is_open_) open();
    if (!needed) close();
}

bool OffscreenWindow::first_clicked() const { return is_open_ && gui.event[SLOT_FIRST].take() != 0; }

bool OffscreenWindow::second_clicked() const { return is_open_ && gui.event[SLOT_SECOND].take() != 0; }

} // namespace kelu
