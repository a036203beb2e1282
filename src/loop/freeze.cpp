// SPDX-License-Identifier: MIT
// Frozen menus and the colour dropper.
#include "loop/freeze.h"

#include "base/run_state.h"
#include "gui/render.h"
#include "loop/frame.h"
#include "runtime/frame_flags.h"
#include "runtime/input.h"
#include <algorithm>

namespace kelu {
void freeze_menu() { freeze_menu(screen_state.screen_buffer_a); }

int grab_screen_color()
{
    frame_flags.clean_render = 1;
    run_frame(0);
    frame_flags.clean_render = 0;
    const int x = std::clamp(int(pointer.mouse_x), 0, logical_w - 1);
    const int y = std::clamp(int(pointer.mouse_y), 0, logical_h - 1);
    return row(screen_state.back_buffer, y)[x] & 0xffffff;
}

} // namespace kelu
