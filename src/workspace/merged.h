// SPDX-License-Identifier: MIT
// Between the two pictures of the current frame and its merged form, in which it lies on disk.
//
// A merged pixel has its colour in the low 24 bits and its alpha in the top byte, 255 opaque. In memory colour and
// alpha are two bitmaps, so that tools can draw on either: while `alpha_edit_mode` is set, frame_bitmap holds the
// alpha picture and alpha_bitmap the colours. Everything here goes by role, so the mode shows in no file.
#pragma once

#include "base/bitmap.h"
#include "imagefile/row_source.h"

namespace kelu {

/// The bitmap that holds the colours of the current frame, or its alpha, in either mode.
Bitmap& color_picture();
Bitmap& alpha_picture();

/// Writes the current frame in merged form into `dest`, as far as both reach. In alpha editing the alpha picture is
/// made grey first. A missing bitmap is refused with a line in the log.
void alpha_merge(BITMAP* dest);

/// Merges `count` pixels. A colour on the alpha picture counts as the grey that is kept of it: the mean of its
/// channels.
void merge_pixels(const int* color, const int* alpha, int* to, int count);
/// Two pictures of one size in merged form, without a change to either; empty when there is no memory for it.
Bitmap merged_picture(const Bitmap& color, const Bitmap& alpha);

/// The current frame as rows in merged form, for writers. The frame must exist as long as the source is in use.
RowSource merged_rows();

/// Splits merged pixels: the colours go to `first` and the grey alpha to `second`, or the other way round in alpha
/// editing. `first` may be `src` itself. A missing bitmap is refused with a line in the log.
void alpha_strip(BITMAP* src, BITMAP* first, BITMAP* second);

/// The same for `w` pixels of a row.
void strip_row(const int* from, int* first, int* second, int w);

/// Makes every pixel grey: the mean of its three channels, truncated.
void gray_normalize(BITMAP* bitmap);

/// Exchanges the two pictures and flips `alpha_edit_mode`. The undo and redo copies stay as they are.
void toggle_alpha_edit();

/// True when size, colours or alpha of the current frame differ from the restoration copy. Alpha counts by the grey
/// that it would be kept as.
bool frame_changed();

} // namespace kelu
