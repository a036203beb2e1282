// SPDX-License-Identifier: MIT
// Pictures that previews show and other folders make.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Owner: quick pan, which makes it while its key is held. Main thread.
/// Writers: loop.
struct QuickPanPicture {
    Bitmap quickpan_bitmap; ///< the whole frame at the size of the screen less a margin; empty otherwise
};
inline QuickPanPicture quick_pan_picture;

} // namespace kelu
