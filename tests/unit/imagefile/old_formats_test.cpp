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

} // namespace
} // namespace kelu
