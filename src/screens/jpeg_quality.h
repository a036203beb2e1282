// SPDX-License-Identifier: MIT
// The quality dialog of a JPEG, with its preview on the frame itself.
#pragma once

namespace kelu {

/// Asks for the quality, 0 to 100, from `jpg_quality` on, which takes the answer. VIEW, and the opening, show the
/// frame as the file would hold it; the frame is as before at the end. Returns the quality, or -1 on CANCEL. Works in
/// slots of its own and leaves those of the open window alone.
int jpeg_quality_dialog();

} // namespace kelu
