// SPDX-License-Identifier: MIT
// ICO: fixtures of other encoders, the written form, alpha on the way, damage.
#include "imagefile/ico.h"

#include "imagefile/png.h"
#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

/// An icon of one image: the directory's colour count and bits, then what follows the info header.
Bytes icon_file(int w, int h, int colors, int bits, const Bytes& data)
{
    Bytes bytes;
    ByteWriter out(bytes);
    for (const int value : {0, 1, 1})
        out.little16(value);
    for (const int value : {w, h, colors, 0})
        out.byte(value);
    out.little16(1);
    out.little16(bits);
    out.little32(static_cast<uint32_t>(40 + data.size()));
    out.little32(22);
    out.little32(40);
    out.little32(static_cast<uint32_t>(w));
    out.little32(static_cast<uint32_t>(2 * h));
    out.little16(1);
    out.little16(bits);
    out.fill(24);
    out.append(data);
    return bytes;
}

/// The formula of a picture with all pixels opaque.
Bitmap opaque(int w, int h, const std::function<int(int x, int y)>& pixel)
{
    return paint(w, h, [&](int x, int y) { return pixel(x, y) | static_cast<int>(0xff000000); });
}

TEST(ico, the_mask_becomes_alpha_below_32_bits)
{
    // 2 x 2, bottom row first, rows padded to 4 bytes: blue green / red white, the mask takes out green and red.
    const Bytes colors{0, 0, 255, 255, 255, 255, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0};
    const Bytes mask{0x80, 0, 0, 0, 0x40, 0, 0, 0};
    Bytes data = colors;
    data.insert(data.end(), mask.begin(), mask.end());
    const int pixels[2][2] = {{0x0000ff, 0x00ff00}, {0xff0000, 0xffffff}};
    const Bitmap masked =
        paint(2, 2, [&](int x, int y) { return pixels[y][x] | (x == y ? static_cast<int>(0xff000000) : 0); });
    EXPECT_EQ(difference(decode_ico(icon_file(2, 2, 0, 24, data)), masked), "");
    EXPECT_EQ(difference(decode_ico(icon_file(2, 2, 0, 24, colors)),
                         opaque(2, 2, [&](int x, int y) { return pixels[y][x]; })),
              "");
    // With 32 bits a mask behind the pixels isn't looked at.
    EXPECT_EQ(row(decode_ico(icon_file(1, 1, 0, 32, {1, 2, 3, 4, 0x80, 0, 0, 0})), 0)[0], 0x04030201);
}

TEST(ico, colour_counts)
{
    Bytes data(256 * 4 + 4 + 4);
    data[255 * 4 + 1] = 200; // green of the last colour
    data[256 * 4] = 255;
    const Bitmap all = decode_ico(icon_file(1, 1, 0, 8, data)); // 0 stands for 256
    ASSERT_TRUE(all);
    EXPECT_EQ(row(all, 0)[0], static_cast<int>(0xff00c800));
    EXPECT_TRUE(decode_ico(icon_file(1, 1, 3, 8, data))); // irregular, but taken
    EXPECT_FALSE(decode_ico(icon_file(1, 1, 20, 8, data)));
}

TEST(ico, writes_one_png_and_keeps_every_bit)
{
    const TemporaryFolder folder;
    for (const int w : {1, 2, 255, 256}) {
        const Bitmap merged = colorful(w, 3);
        ASSERT_EQ(save_ico("icon.ico", merged), 1);
        Bytes expected;
        ByteWriter out(expected);
        Bytes png;
        encode_png(merged, nullptr, png);
        out.append(Bytes{0, 0, 1, 0, 1, 0, static_cast<uint8_t>(w), 3, 0, 0, 1, 0, 32, 0});
        out.little32(static_cast<uint32_t>(png.size()));
        out.little32(22);
        out.append(png);
        EXPECT_TRUE(folder.text("icon.ico") == std::string(expected.begin(), expected.end())) << w;
        if (convert_installed()) {
            EXPECT_EQ(difference(*decoded_by_convert("icon.ico"), merged), "") << w;
        }
    }
    EXPECT_EQ(save_ico("large.ico", Bitmap(257, 1)), -1);
    EXPECT_FALSE(std::filesystem::exists("large.ico"));
}

} // namespace
} // namespace kelu
