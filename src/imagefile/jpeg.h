// SPDX-License-Identifier: MIT
// JPEG pictures through libjpeg. Its errors come back as results: nothing ends the process.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"

namespace kelu {

/// Decodes a JPEG file in memory, greyscale ones as colours. A file that ends early keeps the rows that there are.
/// Empty when the bytes are no JPEG or its sides are beyond those of a bitmap.
Bitmap decode_jpeg(std::span<const uint8_t> bytes);

/// Appends a bitmap as a baseline JPEG file to `out`; top bytes are left out. `quality`: 0 to 100, passed on as it is.
/// False, with nothing appended, when libjpeg gives up.
bool encode_jpeg(BITMAP* bitmap, int quality, Bytes& out);

/// Writes a JPEG file, which replaces an old one only when it is whole on disk. False, with a line in the log, when
/// that failed.
bool save_jpeg(const char* file_name, BITMAP* bitmap, int quality);

} // namespace kelu
