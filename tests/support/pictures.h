// SPDX-License-Identifier: MIT
// Pictures for the tests of the picture formats: what the fixtures in tests/data show, and the eyes of another program.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"
#include <functional>
#include <optional>
#include <string>

namespace kelu::test {

/// Sample of the fixtures at (x, y); they are made by tests/data/make_pictures.py, which has the same formula.
constexpr int level(int x, int y, int channel) { return (37 * x + 59 * y + 83 * channel + x * y) & 255; }
/// Colour k of the fixtures with a palette.
int palette_entry(int k);
/// A colour as it comes out of a palette of 6 bits a channel.
int six_bit(int color);

/// The whole of a file below tests/data.
Bytes data_file(const std::string& name);
/// A picture of w x h pixels by a formula.
Bitmap paint(int w, int h, const std::function<int(int x, int y)>& pixel);
/// A picture with many colours, and an alpha that is 0 nowhere and 255 seldom.
Bitmap colorful(int w, int h);
/// The picture without the colours that transparent pixels have.
Bitmap plain_nothing(BITMAP* picture);

/// Where two pictures differ first, as a text; empty when they are equal in size and every word.
std::string difference(BITMAP* a, BITMAP* b);
/// Mean difference of a channel of red, green and blue; 999 for pictures of different sizes or none.
double loss(BITMAP* a, BITMAP* b);

/// How ImageMagick's convert decodes a file, in merged form; nothing when it can't, or isn't installed.
std::optional<Bitmap> decoded_by_convert(const std::string& file_name);

} // namespace kelu::test
