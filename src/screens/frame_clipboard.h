// SPDX-License-Identifier: MIT
// The frame and the system's clipboard.
#pragma once

namespace kelu {

/// Puts the frame's picture on the clipboard, without its alpha, and says so in the status bar.
void copy_frame_to_clipboard();

/// Brings the clipboard's picture in: as a floating cel when it is smaller than the frame in both directions, else
/// over the frame from its corner. `offer_larger_frame` is called first for a picture that is wider or higher than the
/// frame: it asks the user, and enlarges the frame to at least w x h pixels if he agrees.
void paste_from_clipboard(void (*offer_larger_frame)(int w, int h));

} // namespace kelu
