// ICO: fixtures of other encoders, the written form, alpha on the way, damage.
#include "imagefile/ico.h"

#include "imagefile/png.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
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

TEST(ico, reads_what_other_encoders_write)
{
    for (const int depth : {1, 4, 8}) {
        const Icon icon = decode_ico(data_file("ico/indexed-" + std::to_string(depth) + ".ico"));
        const Bitmap expected =
            paint(13, 11, [&](int x, int y) { return palette_entry(level(x, y, 0) & ((1 << depth) - 1)); });
        EXPECT_EQ(difference(icon.picture, expected), "") << depth;
        EXPECT_EQ(difference(icon.alpha, Bitmap(13, 11, 0xffffff)), "") << depth;
    }
    const Bitmap colors =
        paint(13, 11, [](int x, int y) { return pack_rgb(level(x, y, 0), level(x, y, 1), level(x, y, 2)); });
    const Icon deep = decode_ico(data_file("ico/rgba-8.ico"));
    EXPECT_EQ(difference(deep.picture, colors), "");
    EXPECT_EQ(difference(deep.alpha, paint(13, 11, [](int x, int y) { return level(x, y, 3) * 0x010101; })), "");
    // A PNG with a palette inside.
    const Icon embedded = decode_ico(data_file("ico/indexed-8-png.ico"));
    EXPECT_EQ(difference(embedded.picture, paint(13, 11, [&](int x, int y) { return six_bit(row(colors, y)[x]); })),
              "");
    EXPECT_EQ(difference(embedded.alpha, Bitmap(13, 11, 0xffffff)), "");
}

TEST(ico, the_mask_becomes_alpha_below_32_bits)
{
    // 2 x 2, bottom row first, rows padded to 4 bytes: blue green / red white, the mask takes out green and red.
    const Bytes colors24{0, 0, 255, 255, 255, 255, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0};
    const Bytes mask{0x80, 0, 0, 0, 0x40, 0, 0, 0};
    Bytes data = colors24;
    data.insert(data.end(), mask.begin(), mask.end());
    const Icon icon = decode_ico(icon_file(2, 2, 0, 24, data));
    const Bitmap expected = paint(2, 2, [](int x, int y) {
        return y == 0 ? x == 0 ? 0x0000ff : 0x00ff00 : x == 0 ? 0xff0000 : 0xffffff;
    });
    EXPECT_EQ(difference(icon.picture, expected), "");
    EXPECT_EQ(difference(icon.alpha, paint(2, 2, [](int x, int y) { return x == y ? 0xffffff : 0; })), "");

    const Icon maskless = decode_ico(icon_file(2, 2, 0, 24, colors24));
    EXPECT_EQ(difference(maskless.alpha, Bitmap(2, 2, 0xffffff)), "");
    // With 32 bits a mask behind the pixels isn't looked at.
    const Icon deep = decode_ico(icon_file(1, 1, 0, 32, {1, 2, 3, 4, 0x80, 0, 0, 0}));
    EXPECT_EQ(row(deep.picture, 0)[0], 0x030201);
    EXPECT_EQ(row(deep.alpha, 0)[0], 0x040404);
}

TEST(ico, colour_counts)
{
    Bytes data(256 * 4 + 4 + 4);
    data[255 * 4 + 1] = 200; // green of the last colour
    data[256 * 4] = 255;
    const Icon all = decode_ico(icon_file(1, 1, 0, 8, data)); // 0 stands for 256
    ASSERT_TRUE(all.picture);
    EXPECT_EQ(row(all.picture, 0)[0], 0x00c800);
    EXPECT_TRUE(decode_ico(icon_file(1, 1, 3, 8, data)).picture); // irregular, but taken
    EXPECT_FALSE(decode_ico(icon_file(1, 1, 20, 8, data)).picture);
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
        EXPECT_EQ(folder.text("icon.ico"), std::string(expected.begin(), expected.end()));
        if (convert_installed()) {
            EXPECT_EQ(difference(*decoded_by_convert("icon.ico"), merged), "") << w;
        }
    }
    EXPECT_EQ(save_ico("large.ico", Bitmap(257, 1)), -1);
    EXPECT_FALSE(std::filesystem::exists("large.ico"));
}

TEST(ico, only_a_good_load_replaces_the_alpha_picture)
{
    const TemporaryFolder folder;
    const Bitmap merged = colorful(5, 4);
    ASSERT_EQ(save_ico("good.ico", merged), 1);
    folder.put("bad.ico", std::string("\0\0\1\0\1\0\5\4", 8));
    store.alpha_bitmap = Bitmap(2, 2, 0x123456);
    EXPECT_TRUE(load_ico("good.ico", true));
    EXPECT_FALSE(load_ico("bad.ico", false));
    EXPECT_FALSE(load_ico("missing.ico", false));
    EXPECT_EQ(difference(store.alpha_bitmap, Bitmap(2, 2, 0x123456)), "");
    const Bitmap picture = load_ico("good.ico", false);
    EXPECT_EQ(row(picture, 1)[1], row(merged, 1)[1] & 0xffffff);
    EXPECT_EQ(row(store.alpha_bitmap, 1)[1], (row(merged, 1)[1] >> 24 & 255) * 0x010101);
    store.alpha_bitmap.reset();
}

TEST(ico, refuses_what_is_cut_or_cannot_be)
{
    for (const char* name : {"ico/indexed-4.ico", "ico/rgba-8.ico", "ico/indexed-8-png.ico"}) {
        const Bytes whole = data_file(name);
        for (const std::size_t size : {std::size_t{0}, std::size_t{5}, std::size_t{30}, whole.size() / 2})
            EXPECT_FALSE(decode_ico(std::span(whole).first(size)).picture) << name << " " << size;
    }
    Bytes huge = icon_file(1, 1, 0, 32, {1, 2, 3, 4});
    huge[22 + 4 + 1] = huge[22 + 8 + 1] = 0x70;
    EXPECT_FALSE(decode_ico(huge).picture);
    Bytes pointer = icon_file(1, 1, 0, 32, {1, 2, 3, 4});
    pointer[2] = 2; // a cursor
    EXPECT_FALSE(decode_ico(pointer).picture);
}

} // namespace
} // namespace kelu
