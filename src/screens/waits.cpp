// The way out of many screens: buttons are read raw.
#include "screens/waits.h"

#include "draw/tool_loop.h"
#include "runtime/input.h"

namespace kelu {

bool right_press_on_bare_frame() { return right_down() && pointer.gui_hover_slot < 0; }

} // namespace kelu
