// What the program does at every logic tick beside the GUI. Timer thread.
#pragma once

namespace kelu {

/// Pans, pan limits, the frame position of the pointer, the countdown of a timed status message, and the wheel on the
/// bare canvas.
void application_tick();

} // namespace kelu
