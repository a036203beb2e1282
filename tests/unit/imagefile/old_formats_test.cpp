// SPDX-License-Identifier: MIT
// TGA, BMP, PCX, LBM and ICO out of bytes made by hand: what the readers take, what they refuse, and the bytes that the
// writers leave. What other encoders write stands in the fixtures.
#include "imagefile/bmp.h"
#include "imagefile/ico.h"
#include "imagefile/lbm.h"
#include "imagefile/pcx.h"
#include "imagefile/png.h"
#include "imagefile/tga.h"
#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/pixel_text.h"
#include "support/temporary_folder.h"
#include <climits>
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;
using Lines = std::vector<std::string>;

const Legend legend{{'r', static_cast<int>(0xffff0000)}, {'g', static_cast<int>(0x8000ff00)}, {'b', 0x000000ff}};
const Bytes red{0, 0, 255, 255}, green{0, 255, 0, 128}, blue{255, 0, 0, 0};

Bytes tga_file(int type, int w, int h, int bits, int descriptor, const std::vector<Bytes>& parts, int id_size = 0)
{
    Bytes file;
    ByteWriter out(file);
    for (const int value : {id_size, 0, type})
        out.byte(value);
    out.fill(9);
    out.little16(w);
    out.little16(h);
    out.byte(bits);
    out.byte(descriptor);
    for (const Bytes& part : parts)
        out.append(part);
    return file;
}

struct TgaCase {
    const char* name;
    Bytes file;
    Lines picture; ///< none: refused
};

const TgaCase tga_cases[] = {
    {"from the bottom", tga_file(2, 2, 2, 32, 8, {blue, blue, red, green}), {"rg", "bb"}},
    {"from the top", tga_file(2, 2, 2, 32, 0x28, {red, green, blue, blue}), {"rg", "bb"}},
    {"from the right", tga_file(2, 2, 2, 32, 0x38, {green, red, blue, blue}), {"rg", "bb"}},
    {"id and tail", tga_file(2, 2, 2, 32, 8, {{'i', 'd'}, blue, blue, red, green, {9, 9}}, 2), {"rg", "bb"}},
    {"pixels, then a run", tga_file(10, 2, 2, 32, 0x28, {{1}, red, green, {0x81}, blue}), {"rg", "bb"}},
    {"packets of one", tga_file(10, 2, 2, 32, 0x28, {{0}, red, {0}, green, {0x81}, blue}), {"rg", "bb"}},
    {"a run over the row's end", tga_file(10, 3, 2, 32, 0x28, {{0x83}, red, {0x81}, green}), {"rrr", "rgg"}},
    {"24 bits are opaque",
     tga_file(2, 2, 2, 24, 0, {{0, 0, 255}, {0, 0, 255}, {0, 0, 255}, {0, 0, 255}}),
     {"rr", "rr"}},
    {"cut", tga_file(2, 2, 2, 32, 8, {blue, blue, red}), {}},
    {"empty", {}, {}},
};

TEST(tga, reads_every_corner_and_both_codings)
{
    const TemporaryFolder folder;
    for (const auto& [name, file, picture] : tga_cases) {
        folder.put("file", file);
        EXPECT_EQ(to_text(decode_tga(file), legend), picture) << name;
        EXPECT_EQ(to_text(read_tga("file"), legend), picture) << name;
        EXPECT_EQ(tga_readable("file", 2), !picture.empty()) << name;
        EXPECT_FALSE(tga_readable("file", 3)) << name;
    }
    EXPECT_FALSE(tga_readable("missing", 1));
}

TEST(tga, writes_the_plain_form_and_reads_it_back)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(write_tga("frame", from_text({"rgb", "bbr"}, legend)));
    const Bytes bytes = tga_file(2, 3, 2, 32, 8, {blue, blue, red, red, green, blue});
    EXPECT_EQ(folder.text("frame"), std::string(bytes.begin(), bytes.end()));
    const Bitmap large = paint(700, 300, [](int x, int y) { return x * 7919 + y; }); // more rows than are read at once
    ASSERT_TRUE(write_tga("large", large));
    EXPECT_EQ(difference(read_tga("large"), large), "");
    EXPECT_FALSE(write_tga("missing/frame", large));
    EXPECT_FALSE(read_tga("missing"));
    EXPECT_FALSE(read_tga("."));
}

/// A BMP of 16 greys, value i x 16; as text its pixels as digits, and a stroke behind each row.
std::string bmp_text(int w, int h, int bits, int compression, const Bytes& data)
{
    Bytes bytes;
    ByteWriter out(bytes);
    out.text("BM");
    out.fill(8);
    for (const int value : {14 + 40 + 64, 40, w, h})
        out.little32(static_cast<uint32_t>(value));
    out.little16(1);
    out.little16(bits);
    out.little32(static_cast<uint32_t>(compression));
    out.fill(20);
    for (int i = 0; i < 16; ++i)
        out.little32(static_cast<uint32_t>(i * 0x101010));
    out.append(data);
    const Bitmap picture = decode_bmp(bytes);
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
    EXPECT_EQ(bmp_text(5, 3, 8, 1, {3, 7, 0, 2, 1, 1, 1, 9, 0, 0, 0, 3, 1, 2, 3, 0, 0, 1}), "12300/00009/77700/");
    // Two pixels in a byte: a run takes turns, literals end in half a byte.
    EXPECT_EQ(bmp_text(6, 2, 4, 2, {5, 0xab, 0, 0, 0, 5, 0x12, 0x34, 0x50, 0, 0, 1}), "123450/ababa0/");
    // What doesn't fit, and what is cut, harms nothing.
    EXPECT_EQ(bmp_text(3, 2, 8, 1, {255, 4, 0, 0, 0, 200, 5}), "500/444/");
    EXPECT_EQ(bmp_text(2, 1, 8, 1, {0, 2, 200, 200, 9, 9}), "00/");
    // Rows from the top; the height that has no positive counterpart, and runs of single bits, are refused.
    EXPECT_EQ(bmp_text(1, -2, 8, 0, {7, 0, 0, 0, 9, 0, 0, 0}), "7/9/");
    EXPECT_EQ(bmp_text(1, INT_MIN, 8, 0, {7, 0, 0, 0, 9, 0, 0, 0}), "");
    EXPECT_EQ(bmp_text(1, 1, 1, 1, {1, 0, 0, 0, 0, 1}), "");
}

TEST(pcx, two_colours_without_a_palette_are_black_and_white)
{
    Bytes bytes(128);
    bytes[0] = 10;
    bytes[1] = 5;
    bytes[2] = bytes[3] = bytes[65] = 1;
    bytes[8] = 3; // four pixels, one row
    bytes[66] = 2;
    bytes.insert(bytes.end(), {0xc1, 0xa0, 0x00});
    const Bitmap expected = paint(4, 1, [](int x, int) { return x % 2 == 0 ? 0xffffff : 0; });
    EXPECT_EQ(difference(decode_pcx(bytes), expected), "");
}

TEST(lbm, rows_of_other_writers_are_padded)
{
    const Bitmap picture = paint(3, 2, [](int x, int y) { return six_bit(x == y ? 0xffffff : 0); });
    PALETTE palette = {};
    palette[1] = {63, 63, 63, 0};
    for (const bool packed : {false, true}) {
        Bytes bytes;
        ASSERT_EQ(encode_lbm(picture, palette, bytes), 0);
        bytes.resize(816);
        bytes[30] = packed ? 1 : 0;
        ByteWriter out(bytes);
        out.text("BODY");
        const Bytes rows = packed ? Bytes{0x80, 0, 1, 0xff, 0, 0, 9, 3, 0, 1, 0, 9} : Bytes{1, 0, 0, 9, 0, 1, 0, 9};
        out.big32(static_cast<uint32_t>(rows.size()));
        out.append(rows);
        EXPECT_EQ(difference(decode_lbm(bytes), picture), "") << packed;
    }
}

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

TEST(ico, the_mask_becomes_alpha_below_32_bits)
{
    // 2 x 2, bottom row first, rows padded to 4 bytes: blue green / red white, the mask takes out green and red.
    const Bytes colors{0, 0, 255, 255, 255, 255, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0};
    Bytes masked = colors;
    masked.insert(masked.end(), {0x80, 0, 0, 0, 0x40, 0, 0, 0});
    const int full = static_cast<int>(0xff000000);
    const Legend colours{{'B', full | 0x0000ff}, {'G', full | 0x00ff00}, {'R', full | 0xff0000},
                         {'W', full | 0xffffff}, {'g', 0x00ff00},        {'r', 0xff0000}};
    EXPECT_EQ(to_text(decode_ico(icon_file(2, 2, 0, 24, masked)), colours), (Lines{"Bg", "rW"}));
    EXPECT_EQ(to_text(decode_ico(icon_file(2, 2, 0, 24, colors)), colours), (Lines{"BG", "RW"}));
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
    }
    EXPECT_EQ(save_ico("large.ico", Bitmap(257, 1)), -1);
    EXPECT_FALSE(std::filesystem::exists("large.ico"));
}

} // namespace
} // namespace kelu
