// What the loops of many screens do with keys and raw buttons.
#pragma once

namespace kelu {

/// True when the right button is down with no slot under the pointer.
bool right_press_on_bare_frame();
/// Hides the open window at such a press, or shows it again, once the button is up.
void hide_on_right_press();
/// Quick pan, as long as its key is held.
void run_quick_pan();

} // namespace kelu
