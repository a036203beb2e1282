// SPDX-License-Identifier: MIT
// Frames and containers on disk: what the readers take, what they refuse, and the bytes that the writers leave.
#include "base/reader.h"
#include "imagefile/bmp.h"
#include "imagefile/tga.h"
#include "support/pictures.h"
#include "support/pixel_text.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

using test::to_text;

const test::Legend legend{{'r', static_cast<int>(0xffff0000)}, {'g', static_cast<int>(0x8000ff00)}, {'b', 0x000000ff}};
const Bytes red{0, 0, 255, 255}, green{0, 255, 0, 128}, blue{255, 0, 0, 0};

Bytes bytes_of(const std::string& text) { return {text.begin(), text.end()}; }

Bytes tga(int type, int w, int h, int bits, int descriptor, const std::vector<Bytes>& parts)
{
    Bytes file{0,
               0,
               uint8_t(type),
               0,
               0,
               0,
               0,
               0,
               0,
               0,
               0,
               0,
               uint8_t(w),
               0,
               uint8_t(h),
               0,
               uint8_t(bits),
               uint8_t(descriptor)};
    for (const Bytes& part : parts)
        file.insert(file.end(), part.begin(), part.end());
    return file;
}

} // namespace

TEST(Tga, ReadsEveryCornerAndBothCodings)
{
    const std::vector<std::string> expected{"rg", "bb"};
    const Bytes plain = tga(2, 2, 2, 32, 8, {blue, blue, red, green});
    EXPECT_EQ(to_text(decode_tga(plain), legend), expected);
    EXPECT_EQ(to_text(decode_tga(tga(2, 2, 2, 32, 0x28, {red, green, blue, blue})), legend), expected);
    EXPECT_EQ(to_text(decode_tga(tga(2, 2, 2, 32, 0x38, {green, red, blue, blue})), legend), expected);
    // A run, then three pixels; the packets don't end where the row does.
    EXPECT_EQ(to_text(decode_tga(tga(10, 2, 2, 32, 0x28, {{1}, red, green, {0x81}, blue})), legend), expected);
    EXPECT_EQ(to_text(decode_tga(tga(10, 2, 2, 32, 0x28, {{0}, red, {0}, green, {0x81}, blue})), legend), expected);
    EXPECT_EQ(to_text(decode_tga(tga(10, 3, 2, 32, 0x28, {{0x83}, red, {0x81}, green})), legend),
              (std::vector<std::string>{"rrr", "rgg"}));

    const Bitmap opaque = decode_tga(tga(2, 2, 1, 24, 0, {{1, 2, 3}, {4, 5, 6}}));
    ASSERT_TRUE(opaque);
    EXPECT_EQ(row(opaque, 0)[0], static_cast<int>(0xff030201));

    Bytes named = plain; // an id of three bytes before the pixels
    named[0] = 3;
    named.insert(named.begin() + 18, {1, 2, 3});
    EXPECT_EQ(to_text(decode_tga(named), legend), expected);
}

TEST(Tga, FilesAreWhatTheirBytesAre)
{
    const TemporaryFolder folder;
    const auto put = [&folder](const Bytes& bytes) {
        folder.put("file", {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    };
    Bytes named = tga(2, 2, 2, 32, 8, {{'i', 'd'}, blue, blue, red, green, {9, 9}});
    named[0] = 2;
    for (const Bytes& bytes :
         {named, tga(2, 2, 2, 32, 0x28, {red, green, blue, blue}), tga(2, 2, 2, 32, 0x38, {green, red, blue, blue}),
          tga(10, 2, 2, 32, 0x28, {{1}, red, green, {0x81}, blue})}) {
        put(bytes);
        EXPECT_EQ(to_text(read_tga("file"), legend), (std::vector<std::string>{"rg", "bb"}));
        EXPECT_TRUE(tga_readable("file", 2));
        EXPECT_FALSE(tga_readable("file", 3));
    }
    for (const Bytes& bytes : {tga(2, 2, 2, 32, 8, {blue, blue, red}), tga(10, 2, 2, 32, 8, {{0x80}, red}),
                               tga(2, 0, 2, 32, 8, {}), tga(3, 2, 2, 32, 8, {blue, blue, red, green}), Bytes{}}) {
        put(bytes);
        EXPECT_FALSE(read_tga("file"));
        EXPECT_FALSE(tga_readable("file", 1));
    }
    EXPECT_FALSE(tga_readable("missing", 1));
    // More rows than are read at once.
    const Bitmap large = test::paint(700, 300, [](int x, int y) { return x * 7919 + y; });
    ASSERT_TRUE(write_tga("large", large));
    EXPECT_EQ(test::difference(read_tga("large"), large), "");
}

TEST(Tga, WritesThePlainFormAndReadsItBack)
{
    const TemporaryFolder folder;
    const Bitmap picture = test::from_text({"rgb", "bbr"}, legend);
    ASSERT_TRUE(write_tga("frame", picture));
    EXPECT_EQ(bytes_of(folder.text("frame")), tga(2, 3, 2, 32, 8, {blue, blue, red, red, green, blue}));
    EXPECT_EQ(to_text(read_tga("frame"), legend), to_text(picture, legend));

    EXPECT_FALSE(write_tga("missing/frame", picture));
    EXPECT_FALSE(read_tga("missing"));
    EXPECT_FALSE(read_tga("."));
}

TEST(Bmp, ReadsPalettesAndBothDirections)
{
    Bytes file(54, 0);
    file[0] = 'B', file[1] = 'M', file[10] = 62, file[14] = 40, file[18] = 10, file[22] = 1, file[26] = 1, file[28] = 1;
    file.insert(file.end(), {1, 2, 3, 0, 0, 0, 255, 0});     // palette: dark, red
    file.insert(file.end(), {0b10000000, 0b01000000, 0, 0}); // ten pixels of one bit, padded
    EXPECT_EQ(to_text(decode_bmp(file), {{'r', 0xff0000}, {'.', 0x030201}}), (std::vector<std::string>{"r........r"}));

    file[18] = 1, file[22] = 0xfe, file[23] = file[24] = file[25] = 0xff; // one pixel wide, two rows from the top
    file.insert(file.end(), {0, 0, 0, 0});
    EXPECT_EQ(to_text(decode_bmp(file), {{'r', 0xff0000}, {'.', 0x030201}}), (std::vector<std::string>{"r", "."}));

    file[22] = file[23] = file[24] = 0, file[25] = 0x80; // the height that has no positive counterpart
    EXPECT_FALSE(decode_bmp(file));
    file[25] = 0, file[22] = 1, file[30] = 1; // run-length coded
    EXPECT_FALSE(decode_bmp(file));
}

} // namespace kelu
