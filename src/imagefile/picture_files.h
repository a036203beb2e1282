// Pictures from files by their extension, and our formats in Allegro's table of file types.
//
// Nothing that comes from a file reaches a reader of Allegro's: those crash on damaged files.
#pragma once

#include "imagefile/reader.h"
#include "runtime/bitmap.h"
#include <string>

namespace kelu {

/// Longest file that is taken for a picture, in bytes.
constexpr std::size_t max_picture_file = std::size_t{1} << 30;

/// Reads a picture as its extension says, in any case of letters: gif, pcx, bmp, png, lbm. 32 bits a pixel, with
/// the file's alpha in the top byte where it has one.
/// `palette`: 256 entries, filled by formats that have one; may be null. Empty when the extension is another, or the
/// file can't be read or isn't such a picture.
Bitmap load_picture(const std::string& file_name, RGB* palette = nullptr);

/// Enters "png" and "gif" into Allegro's table of bitmap file types, and PNG as a datafile object "PNG ". Once, after
/// Allegro's start.
void register_picture_formats();

} // namespace kelu
