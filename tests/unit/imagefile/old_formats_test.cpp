// SPDX-License-Identifier: MIT
// PCX and LBM: fixtures of other encoders, the written forms, round trips, damage.
#include "imagefile/lbm.h"
#include "imagefile/pcx.h"

#include "imagefile/indexed.h"
#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

TEST(pcx, is_written_as_the_library_writes_it)
{
    const TemporaryFolder folder;
    for (const int w : {1, 2, 3, 63, 64, 257}) {
        const Bitmap picture = paint(w, 9, [&](int x, int y) {
            return y < 2 ? 0xc0c0c0 : y < 4 ? 0xff0000 : y < 6 ? x / 2 * 0x010305 : level(x, y, 0) * 0x010101;
        });
        ASSERT_EQ(save_pcx_picture("ours.pcx", picture), 0);
        const PALETTE none = {}; // the library puts 16 colours into the head, whatever they are
        ASSERT_EQ(save_pcx("theirs.pcx", picture, none), 0);
        EXPECT_TRUE(folder.text("ours.pcx") == folder.text("theirs.pcx")) << w;
        Bytes bytes;
        encode_pcx(picture, bytes);
        EXPECT_EQ(difference(decode_pcx(bytes), picture), "") << w;
    }
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

TEST(lbm, is_read_back_at_odd_widths)
{
    const TemporaryFolder folder;
    PALETTE palette = {};
    for (int i = 0; i < 256; ++i)
        palette[i] = {static_cast<unsigned char>(i % 8 * 9), static_cast<unsigned char>(i / 8 % 8 * 9),
                      static_cast<unsigned char>(i / 64 * 21), 0};
    const auto colors = palette_colors(palette);
    for (const int w : {1, 2, 3, 255, 256, 257}) {
        const Bitmap picture =
            paint(w, 3, [&](int x, int y) { return colors[static_cast<std::size_t>(level(x, y, 0))]; });
        ASSERT_EQ(save_lbm("picture.lbm", picture, palette), 0);
        const std::string text = folder.text("picture.lbm");
        const std::span bytes(reinterpret_cast<const uint8_t*>(text.data()), text.size());
        EXPECT_EQ(difference(decode_lbm(bytes), picture), "") << w;
        EXPECT_EQ(text.size(), static_cast<std::size_t>(824 + 3 * w + w % 2));
    }
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

} // namespace
} // namespace kelu
