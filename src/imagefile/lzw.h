// SPDX-License-Identifier: MIT
// The LZW coding of GIF pixel data, in sub-blocks of up to 255 bytes, codes packed least significant bit first.
//
// The codes below 1 << m are single pixels, then follow the clear code and the end code, then strings: each string
// is the one before plus one pixel. Codes start at m + 1 bits and grow to 12.
#pragma once

#include "base/reader.h"

namespace kelu {

/// Codes have at most this many bits.
constexpr int lzw_max_width = 12;
/// Pixels that a byte stands for at most: a code of 12 bits may name a string of 4096.
constexpr std::size_t lzw_most_a_byte = 4096 * 8 / lzw_max_width + 1;

/// How a stream is coded.
struct LzwForm {
    int minimum_size = 8;          ///< bits of a pixel, 2 to 8; no pixel is larger
    bool clears_when_full = false; ///< a full table of strings begins anew; otherwise it stays as it is
};

/// Appends the pixels as sub-blocks, without the empty block that ends them. A clear code opens the stream. There is at
/// least one pixel.
void lzw_encode(std::span<const uint8_t> pixels, Bytes& out, LzwForm form = {});

/// Decodes sub-blocks into at most `limit` pixels, appended to `pixels`. Stops at the end code, at the empty block, at
/// the end of the bytes and at codes that can't be.
/// `minimum_size`: bits of a pixel, 1 to 8.
void lzw_decode(ByteReader& in, int minimum_size, std::size_t limit, Bytes& pixels);

} // namespace kelu
