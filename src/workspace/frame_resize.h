// SPDX-License-Identifier: MIT
// Other sizes for the current frame: scaled, placed by an anchor, or cut out. Main thread.
//
// The restoration copy keeps the old size, so that RESTORE brings it back. A size that can't be had is refused with a
// line in the log and a message in the status bar, and the frame stays as it was.
#pragma once

namespace kelu {

constexpr int anchors = 9; ///< 3 x 3 from the top left corner on: 0 top left, 4 middle, 8 bottom right

/// Gives the frame, which must be the current one, the size w x h, each at least 2 pixels. With `scale` the picture is
/// stretched, or averaged when both sides become shorter. Without it the picture keeps its scale, `anchor` (0 to 8)
/// names the point that both sizes share, and what is new is black and opaque. The undo queue is emptied. Returns
/// false when nothing was changed.
bool resize_frame(int frame, int w, int h, int anchor, int scale);

/// Cuts the frame to the w x h pixels whose corner is (x, y). What lies beyond the old frame takes the mask colour,
/// opaque. The undo queue stays as it is. Returns false when nothing was changed.
bool crop_frame(int x, int y, int w, int h);

} // namespace kelu
