// The application's part of the logic tick.
#include "screens/application_tick.h"

#include "gui/menus.h"
#include "runtime/input.h"
#include "runtime/run_state.h"
#include "runtime/view.h"
#include <allegro.h>

namespace kelu {
namespace {

/// Any turn of the wheel over the bare canvas is one zoom step.
void zoom_by_wheel()
{
    const int turned = ::mouse_z - pointer.last_mouse_z;
    if (turned != 0 && pointer.gui_hover_slot < 0) zoom_step(turned > 0 ? 1 : 0);
}

} // namespace

void application_tick()
{
    if (run_state.gui_active == 0) return;
    clamp_pan();
    update_mouse_position();
    count_status_message();
    zoom_by_wheel();
}

} // namespace kelu
