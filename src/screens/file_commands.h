// SPDX-License-Identifier: MIT
// Commands that bring pictures in and out of the frame: files and the clipboard.
#pragma once

namespace kelu {

/// The file browser, for a picture out of the frame or into it.
void save_frame_picture();
void load_frame_picture();
/// Pastes the clipboard's picture; one that is larger than the frame may enlarge it.
void paste_by_key();

} // namespace kelu
