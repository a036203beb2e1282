// SPDX-License-Identifier: MIT
// The marker of a rectangle that the user is grabbing on the frame.
#pragma once

namespace kelu {

/// The overlay with the marker, from the start of a grab to its end. In the end the overlay is clear, and no message
/// of the grab is left in the status bar.
class GrabMarker {
public:
    /// Starts with a corner in frame pixels, or with `no_grab` or `no_corner_yet` of draw/cel.h.
    GrabMarker(int x, int y);
    ~GrabMarker();
    GrabMarker(const GrabMarker&) = delete;
    GrabMarker& operator=(const GrabMarker&) = delete;

    /// The first corner: the rectangle shows from here to the pointer.
    static void set(int x, int y);
};

} // namespace kelu
