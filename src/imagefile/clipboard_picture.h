// SPDX-License-Identifier: MIT
// Pictures on the system's clipboard.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Puts a picture on the clipboard, as PNG and as BMP, for any program to take; top bytes are left out. False when
/// there is no clipboard or no picture.
bool copy_to_clipboard(BITMAP* picture);

/// The picture on the clipboard, top bytes 0, from whichever program; empty when there is none, or when it is damaged
/// or larger than a bitmap may be. Waits for the other program, a few seconds at most.
Bitmap picture_from_clipboard();

} // namespace kelu
