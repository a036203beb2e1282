// The way out of many screens.
#pragma once

namespace kelu {

/// True when the right button is down with no slot under the pointer.
bool right_press_on_bare_frame();

} // namespace kelu
