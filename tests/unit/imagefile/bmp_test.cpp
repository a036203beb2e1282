// SPDX-License-Identifier: MIT
// BMP: fixtures of other encoders, runs to the letter, damage.
#include "imagefile/bmp.h"

#include "base/reader.h"
#include "runtime/pixels.h"
#include "support/pictures.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

/// A BMP of 16 greys, value i x 16, with run-length coded pixels.
Bytes runs_file(int w, int h, int bits, const Bytes& runs)
{
    Bytes bytes;
    ByteWriter out(bytes);
    out.text("BM");
    out.fill(8);
    out.little32(14 + 40 + 64);
    out.little32(40);
    out.little32(static_cast<uint32_t>(w));
    out.little32(static_cast<uint32_t>(h));
    out.little16(1);
    out.little16(bits);
    out.little32(bits == 8 ? 1 : 2);
    out.fill(20);
    for (int i = 0; i < 16; ++i)
        out.little32(static_cast<uint32_t>(i * 0x101010));
    out.append(runs);
    return bytes;
}

std::string digits(const Bytes& file)
{
    const Bitmap picture = decode_bmp(file);
    std::string text;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            text += "0123456789abcdef"[(row(picture, y)[x] & 255) / 16];
        text += '/';
    }
    return text;
}

TEST(bmp, runs_literals_steps_and_ends)
{
    // Bottom row: a run; then a step to the right and up; then literals, padded; then the end.
    EXPECT_EQ(digits(runs_file(5, 3, 8, {3, 7, 0, 2, 1, 1, 1, 9, 0, 0, 0, 3, 1, 2, 3, 0, 0, 1})), "12300/00009/77700/");
    // Two pixels in a byte: a run takes turns, literals end in half a byte.
    EXPECT_EQ(digits(runs_file(6, 2, 4, {5, 0xab, 0, 0, 0, 5, 0x12, 0x34, 0x50, 0, 0, 1})), "123450/ababa0/");
    // What doesn't fit, and what is cut, harms nothing.
    EXPECT_EQ(digits(runs_file(3, 2, 8, {255, 4, 0, 0, 0, 200, 5})), "500/444/");
    EXPECT_EQ(digits(runs_file(2, 1, 8, {0, 2, 200, 200, 9, 9})), "00/");
}

} // namespace
} // namespace kelu
