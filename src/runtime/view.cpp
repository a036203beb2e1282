// SPDX-License-Identifier: MIT
// The view's arithmetic. Each axis is worked out by itself; divisions truncate toward zero.
#include "runtime/view.h"

#include "base/run_state.h"
#include "runtime/input.h"
#include "runtime/store.h"
#include <algorithm>

namespace kelu {
namespace {

int level() { return std::clamp(int(view.zoom), 1, max_zoom); }

/// The pan within half a view of the frame's edges. `screen` is the logical size of the axis, `frame` the frame's.
int clamped(int pan, int screen, int frame)
{
    const int factor = 1 << (level() - 1);
    const int half = (screen + factor - 1) / factor / 2;
    return std::clamp(pan, -half, frame - half);
}

} // namespace

void fill_view_tables()
{
    view.view_w[0] = view.view_w[1] = logical_w;
    view.view_h[0] = view.view_h[1] = logical_h;
    for (std::size_t i = 2; i < view.view_w.size(); ++i) {
        view.view_w[i] = view.view_w[i - 1] / 2;
        view.view_h[i] = view.view_h[i - 1] / 2;
    }
}

void update_mouse_position()
{
    const std::size_t shift = level() - 1;
    const auto center = [](float in_view, int pan) {
        return static_cast<int>(in_view * 0.5F + static_cast<float>(pan));
    };
    view.frame_mouse_x = (pointer.mouse_x >> shift) + view.pan_x;
    view.frame_mouse_y = (pointer.mouse_y >> shift) + view.pan_y;
    view.view_center_x = center(view.view_w[level()], view.pan_x);
    view.view_center_y = center(view.view_h[level()], view.pan_y);
}

void clamp_pan()
{
    view.pan_x = clamped(view.pan_x, logical_w, view.frame_w);
    view.pan_y = clamped(view.pan_y, logical_h, view.frame_h);
}

void note_frame_size()
{
    if (!store.frame_bitmap) return;
    view.frame_w = store.frame_bitmap.width();
    view.frame_h = store.frame_bitmap.height();
}

void zoom_step(int in)
{
    const int wanted = view.zoom + (in != 0 ? 1 : -1);
    if (wanted < 1 || wanted > max_zoom) return;
    const auto new_center = [in](int center, int mouse) {
        return in != 0 ? center - (center - mouse) / 2 : 2 * center - mouse;
    };
    const int x = new_center(view.view_center_x, view.frame_mouse_x);
    const int y = new_center(view.view_center_y, view.frame_mouse_y);
    view.zoom = wanted;
    view.pan_x = static_cast<int>(static_cast<float>(x) - view.view_w[level()] * 0.5F);
    view.pan_y = static_cast<int>(static_cast<float>(y) - view.view_h[level()] * 0.5F);
    clamp_pan();
    update_mouse_position();
}

void center_view()
{
    view.zoom = 1;
    view.pan_x = store.frame_bitmap.width() / 2 - logical_w / 2;
    view.pan_y = store.frame_bitmap.height() / 2 - logical_h / 2;
    update_mouse_position();
}

} // namespace kelu
