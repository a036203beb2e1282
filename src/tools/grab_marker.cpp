// SPDX-License-Identifier: MIT
// What run_frame draws of a grab is in `cel_work`; this is its scope.
#include "tools/grab_marker.h"

#include "base/run_state.h"
#include "draw/cel.h"
#include "draw/preview.h"
#include "gui/menus.h"
#include "gui/tooltips.h"

namespace kelu {

GrabMarker::GrabMarker(int x, int y)
{
    clear_to_color(screen_state.tool_overlay, mask_magenta);
    preview = {1, no_preview};
    set(x, y);
}

GrabMarker::~GrabMarker()
{
    set(no_grab, no_grab);
    preview = {};
    menus.status_message = TIP_NONE;
    clear_to_color(screen_state.tool_overlay, mask_magenta);
}

void GrabMarker::set(int x, int y)
{
    cel_work.grab_x = x;
    cel_work.grab_y = y;
}

} // namespace kelu
