// SPDX-License-Identifier: MIT
// The measurement from an anchor to the pointer, as it is started by its key and drawn. Main thread.
#pragma once

namespace kelu {

/// Sets the anchor on the frame pixel under the pointer, unless the pointer is off the frame or a measurement runs.
/// The next press of the key ends it.
void start_measurement();
/// Draws the measurement that `measure` holds, in two steps of a frame. `lines` not 0 is a distance, 0 the size of a
/// tool's figure. With `text` 0, before the frame is painted: for a distance four dashed lines on the overlay, from the
/// anchor over the whole view; clears the overlay first unless a tool has it in use. With `text` 1, above the frame:
/// the figures in the back buffer, beside the pointer where there is room. Follows the key from start to end.
void draw_measurement(int lines, int text);

} // namespace kelu
