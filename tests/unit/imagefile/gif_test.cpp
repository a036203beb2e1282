// SPDX-License-Identifier: MIT
// GIF: fixtures of other encoders, the codes, indices. Reduction to 256 colours: exact palettes, and the network's
// integers, which stand in a picture.
#include "imagefile/gif.h"

#include "imagefile/indexed.h"
#include "imagefile/lzw.h"
#include "imagefile/neural.h"
#include "imagefile/picture_files.h"
#include "imagefile/reduce.h"
#include "runtime/pixels.h"
#include "support/golden.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <cstring>
#include <gtest/gtest.h>
#include <zlib.h>

namespace kelu {
namespace {

using namespace test;

int fixture_pixel(int x, int y, int colors) { return six_bit(palette_entry(level(x, y, 0) & (colors - 1))); }

TEST(gif, reads_what_other_encoders_write)
{
    using Row = std::tuple<const char*, int, int, int>;
    for (const auto& [name, w, h, colors] :
         {Row{"plain", 13, 11, 16}, Row{"interlaced", 13, 11, 16}, Row{"animated", 13, 11, 16},
          Row{"colours256", 257, 64, 256}, Row{"two-colours", 13, 11, 2}, Row{"small-1x1", 1, 1, 2}}) {
        const Bitmap expected = paint(w, h, [count = colors](int x, int y) { return fixture_pixel(x, y, count); });
        EXPECT_EQ(difference(decode_gif(data_file("gif/" + std::string(name) + ".gif")), expected), "") << name;
    }
}

TEST(gif, transparent_pixels_are_magenta_and_end_at_index_0)
{
    PALETTE palette;
    const Bitmap expected =
        paint(13, 11, [](int x, int y) { return (level(x, y, 0) & 15) == 5 ? mask_magenta : fixture_pixel(x, y, 16); });
    const Bytes bytes = data_file("gif/transparent.gif");
    EXPECT_EQ(difference(decode_gif(bytes, palette), expected), "");
    // The entry of the transparent index takes entry 0's colour; entry 0 keeps it.
    const int transparent = bytes[bytes[10] & 0x80 ? 13 + 48 + 6 : 13 + 6];
    ASSERT_NE(transparent, 0);
    EXPECT_EQ(palette[transparent].g, palette[0].g);
}

TEST(gif, a_local_table_takes_the_place_of_the_global_one)
{
    // The fixture's table of 16 entries moves behind the image's descriptor; a global one of 256 greys comes in.
    const Bytes fixture = data_file("gif/plain.gif");
    ASSERT_EQ(fixture[10] & 0x87, 0x83);
    const auto table = fixture.begin() + 13;
    const auto image = table + 48;
    ASSERT_EQ(*image, ',');
    Bytes bytes(fixture.begin(), table);
    bytes[10] = 0xf7;
    for (int i = 0; i < 768; ++i)
        bytes.push_back(static_cast<uint8_t>(i / 3));
    bytes.insert(bytes.end(), {'!', 0xfe, 4, ',', ';', '!', ',', 0}); // a comment that looks like blocks
    bytes.insert(bytes.end(), image, image + 9);
    bytes.push_back(0x83);
    bytes.insert(bytes.end(), table, image);
    bytes.insert(bytes.end(), image + 10, fixture.end());
    PALETTE palette;
    EXPECT_EQ(difference(decode_gif(bytes, palette), decode_gif(fixture)), "");
    EXPECT_EQ(palette[200].r, 50); // beyond the local table the global one stands
}

TEST(lzw, codes_decode_again_where_tables_fill_and_widths_change)
{
    uint32_t state = 1;
    for (const std::size_t count : {1u, 2u, 3u, 254u, 255u, 257u, 4000u, 20000u}) {
        for (const uint32_t colors : {1u, 2u, 7u, 256u}) {
            Bytes pixels(count);
            for (uint8_t& pixel : pixels) {
                state = state * 1664525 + 1013904223;
                pixel = static_cast<uint8_t>((state >> 24) % colors);
            }
            Bytes blocks, decoded;
            lzw_encode(pixels, blocks);
            blocks.push_back(0);
            ByteReader in(blocks);
            lzw_decode(in, 8, count + 100, decoded);
            EXPECT_EQ(decoded, pixels) << count << " pixels of " << colors;
            if (count == 20000 && colors == 7) {
                EXPECT_EQ(crc32(0, blocks.data(), static_cast<uInt>(blocks.size())), 1682899594U)
                    << "other codes than before";
            }
        }
    }
}

TEST(indexed, the_first_colour_of_a_palette_is_a_colour)
{
    PALETTE palette = {};
    palette[0] = {63, 63, 63, 0};
    palette[1] = {63, 0, 0, 0};
    const Bitmap picture = paint(3, 1, [](int x, int) { return x == 0 ? 0xffffff : x == 1 ? 0xff0000 : 0; });
    EXPECT_EQ(index_pixels(picture, palette), (Bytes{0, 1, 2}));
}

TEST(picture_files, stand_in_the_library_s_table_of_types)
{
    register_picture_formats();
    const TemporaryFolder folder;
    const Bitmap picture = colorful(9, 7);
    ASSERT_EQ(save_bitmap("a.PNG", picture, nullptr), 0);
    EXPECT_EQ(difference(Bitmap(load_bitmap("a.PNG", nullptr)), picture), "");
    EXPECT_EQ(save_bitmap("b.gif", picture, nullptr), 0);
    const Bitmap read(load_bitmap("b.gif", nullptr));
    EXPECT_EQ(read.width(), 9);
    EXPECT_EQ(load_bitmap("missing.png", nullptr), nullptr);
}

TEST(neural, palettes_are_those_that_were_worked_out_once)
{
    // 499 columns: the first step would stay in its column and isn't taken. 7 x 3: fewer samples than cycles.
    const std::tuple<int, int, int> cases[] = {{61, 47, 1}, {61, 47, 10}, {499, 9, 1},
                                               {7, 3, 1},   {7, 3, 10},   {1, 1, 1}};
    const Bitmap strips(256, static_cast<int>(std::size(cases)));
    for (int i = 0; const auto& [w, h, factor] : cases) {
        PALETTE palette;
        quantize_neural(colorful(w, h), factor, palette);
        for (int k = 0; k < 256; ++k)
            row(strips, i)[k] = pack_rgb(palette[k].r * 4, palette[k].g * 4, palette[k].b * 4);
        ++i;
    }
    EXPECT_TRUE(matches_golden(strips, "neural_palettes"));
}

TEST(reduce, exact_colours_keep_the_order_of_first_appearance)
{
    PALETTE palette;
    std::fill(std::begin(palette), std::end(palette), RGB{1, 2, 3, 0});
    const int colors[] = {0xfc8040, 0x000000, 0x04080c};
    const Bitmap picture = paint(6, 2, [&](int x, int y) {
        return colors[std::min(2, x / 2)] | static_cast<int>(static_cast<uint32_t>(x + y) << 24); // alpha plays no part
    });
    EXPECT_EQ(quantize_exact(picture, palette), 3);
    EXPECT_EQ(palette[0].r, 63);
    EXPECT_EQ(palette[0].g, 32);
    EXPECT_EQ(palette[0].b, 16);
    EXPECT_EQ(palette[1].r + palette[1].g + palette[1].b, 0);
    EXPECT_EQ(palette[2].b, 3);
    EXPECT_EQ(palette[255].g, 0);

    const auto ladder = [](int count) { return paint(count, 1, [](int x, int) { return x * 0x000101; }); };
    EXPECT_EQ(quantize_exact(ladder(256), palette), 256);
    const Bitmap many = paint(257, 1, [](int x, int) { return x * 3; });
    const unsigned char before = palette[200].g;
    EXPECT_EQ(quantize_exact(many, palette), -1);
    EXPECT_EQ(palette[200].g, before);
}

TEST(reduce, the_option_picks_the_way)
{
    const Bitmap two = paint(40, 40, [](int x, int) { return x < 20 ? 0xffffff : 0x204060; });
    const Bitmap many = colorful(40, 40);
    PALETTE fast, good, best, other;
    reduce_colors(two, REDUCE_BEST, best);
    EXPECT_EQ(best[0].r, 63);
    EXPECT_EQ(best[1].g, 0x40 >> 2);
    reduce_colors(two, REDUCE_GOOD, good); // the network, however few the colours
    quantize_neural(two, 10, other);
    EXPECT_EQ(std::memcmp(good, other, sizeof good), 0);
    reduce_colors(many, REDUCE_BEST, best);
    quantize_neural(many, 1, other);
    EXPECT_EQ(std::memcmp(best, other, sizeof best), 0);
    reduce_colors(two, REDUCE_FAST, fast);
    const signed char reserved[256] = {};
    std::fill(std::begin(other), std::end(other), RGB{});
    generate_optimized_palette(two, other, reserved);
    EXPECT_EQ(std::memcmp(fast, other, sizeof fast), 0);
}

} // namespace
} // namespace kelu
