// SPDX-License-Identifier: MIT
// Cropping the frame by hand.
#pragma once

namespace kelu {

/// Two clicks on the frame, of which each is a corner, crop it; both pixels belong to what stays. A right click leaves
/// the frame as it is, and so does a rectangle that is too small for a frame. The caller has cleared the slots.
void quick_crop();

} // namespace kelu
