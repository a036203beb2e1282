// SPDX-License-Identifier: MIT
// The bounded reader and the byte writer.
#include "base/reader.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

TEST(byte_reader, reads_what_the_writer_wrote_in_both_orders)
{
    Bytes bytes;
    ByteWriter out(bytes);
    out.text("Ab");
    out.byte(0x1ff);
    out.big16(0x1234);
    out.little16(0xfedc);
    out.big32(0x89abcdef);
    out.little32(0x80000001);
    out.fill(2, 7);
    EXPECT_EQ(bytes, (Bytes{'A', 'b', 0xff, 0x12, 0x34, 0xdc, 0xfe, 0x89, 0xab, 0xcd, 0xef, 1, 0, 0, 0x80, 7, 7}));

    ByteReader in(bytes);
    EXPECT_FALSE(in.match("AB"));
    EXPECT_TRUE(in.match("Ab"));
    EXPECT_EQ(in.byte(), 0xff);
    EXPECT_EQ(in.big16(), 0x1234);
    EXPECT_EQ(in.little16(), 0xfedc);
    EXPECT_EQ(in.big32(), 0x89abcdef);
    EXPECT_EQ(in.little32(), 0x80000001);
    EXPECT_EQ(in.left(), 2u);
    EXPECT_FALSE(in.ended());
}

TEST(byte_reader, gives_zeros_and_ends_past_the_end)
{
    const Bytes bytes{1, 2, 3};
    ByteReader in(bytes);
    EXPECT_EQ(in.big32(), 0u); // a number that is cut is no number
    EXPECT_TRUE(in.ended());
    EXPECT_EQ(in.left(), 0u);
    EXPECT_EQ(in.byte(), 0);

    ByteReader again(bytes);
    EXPECT_TRUE(again.seek(3)); // the end itself is a place
    EXPECT_FALSE(again.ended());
    EXPECT_FALSE(again.starts_with("x"));
    EXPECT_FALSE(again.seek(4));
    EXPECT_TRUE(again.ended());
    EXPECT_TRUE(again.seek(1));
    EXPECT_EQ(again.take(9).size(), 2u);
    EXPECT_FALSE(again.skip(SIZE_MAX));
}

} // namespace
} // namespace kelu
