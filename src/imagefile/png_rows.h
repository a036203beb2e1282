// SPDX-License-Identifier: MIT
// What the readers of PNG pictures and PNG animations share: chunks, the head, and the way from compressed rows to
// pixels.
//
// Every size is checked before it is allocated: the sides by the bounds of a bitmap, the raw rows by what the
// compressed bytes can hold at most. Each function that fails says why in `png_error` and returns false or nothing.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"
#include <array>

namespace kelu {

/// The colour types of the format.
enum PngColorType { PNG_GREY = 0, PNG_RGB = 2, PNG_INDEXED = 3, PNG_GREY_ALPHA = 4, PNG_RGBA = 6 };

/// By colour type: samples of one pixel, and the sum of the sample depths that go with it.
struct PngColorForm {
    int channels;
    int depths;
};
constexpr PngColorForm png_color_forms[] = {
    {1, 1 | 2 | 4 | 8 | 16}, {}, {3, 8 | 16}, {1, 1 | 2 | 4 | 8}, {2, 8 | 16}, {}, {4, 8 | 16}};

/// Bytes that one of a deflate stream stands for at most: a run of 258 takes two bits or more.
constexpr std::size_t deflate_most_a_byte = 1032;
constexpr std::size_t png_most_pixels_a_byte = 8 * deflate_most_a_byte; ///< pixels of one bit

/// The form of a picture's data, as its head gives it.
struct PngForm {
    int width = 0, height = 0;
    int depth = 0; ///< bits of a sample
    int color_type = 0;
    bool interlaced = false;

    int channels() const { return png_color_forms[color_type].channels; }
    /// Bytes of `count` pixels in a row, without the filter byte.
    std::size_t row_bytes(int count) const
    {
        return (static_cast<std::size_t>(count) * static_cast<std::size_t>(channels() * depth) + 7) / 8;
    }
};

/// Length and type of a chunk.
struct PngChunk {
    std::size_t length = 0;
    std::string_view type;
};

/// Notes a failure; false.
bool png_fail(const char* error);
/// Reads the length and type that a chunk begins with.
bool read_png_chunk(ByteReader& in, PngChunk& chunk);
/// Steps over what is left of a chunk's data and its CRC.
bool skip_png_chunk(ByteReader& in, std::size_t data_left);
/// Reads the signature and the head.
bool read_png_header(ByteReader& in, PngForm& form);
/// What the sample values of a grey picture stand for. 16-bit samples count by their high byte.
std::array<int, 256> png_greys(int depth);
/// The pixels of a picture. `parts` together are one zlib stream of filtered rows. Samples of one channel go through
/// the table `colors`; types with alpha carry it in the top byte, RGB has 0 there.
Bitmap read_png_rows(const PngForm& form, const std::array<int, 256>& colors,
                     std::span<const std::span<const uint8_t>> parts);

} // namespace kelu
