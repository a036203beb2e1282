// SPDX-License-Identifier: MIT
// PNG: fixtures of other encoders, round trips, what other decoders see, damage.
#include "imagefile/png.h"

#include "imagefile/picture_files.h"
#include "imagefile/png_write.h"
#include "runtime/pixels.h"
#include "support/paths.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <functional>
#include <gtest/gtest.h>
#include <zlib.h>

namespace kelu {
namespace {

using namespace test;

/// The pixel of a fixture called "<kind>-<depth>...".
int fixture_pixel(const std::string& kind, int depth, int x, int y)
{
    const int levels = 1 << std::min(depth, 8);
    const auto grey = [&](int channel) { return (level(x, y, channel) & (levels - 1)) * 255 / (levels - 1); };
    const auto alpha = [&](int channel) { return static_cast<int>(static_cast<uint32_t>(level(x, y, channel)) << 24); };
    const int color = pack_rgb(level(x, y, 0), level(x, y, 1), level(x, y, 2));
    if (kind == "grey") return pack_rgb(grey(0), grey(0), grey(0));
    if (kind == "greyalpha") return pack_rgb(grey(0), grey(0), grey(0)) | alpha(1);
    if (kind == "indexed") return six_bit(palette_entry(level(x, y, 0) & (levels - 1)));
    return kind == "rgba" ? color | alpha(3) : color;
}

/// A file of chunks.
class Chunks {
public:
    Chunks() { ByteWriter(bytes).text("\x89PNG\r\n\x1a\n"); }
    Chunks& add(const std::string& type, const Bytes& data)
    {
        ByteWriter out(bytes);
        put_png_chunk(out, type, data);
        return *this;
    }
    Chunks& head(uint32_t w, uint32_t h, int depth, int color_type, int compression = 0, int filter = 0,
                 int interlace = 0)
    {
        Bytes data;
        ByteWriter out(data);
        out.big32(w);
        out.big32(h);
        for (const int value : {depth, color_type, compression, filter, interlace})
            out.byte(value);
        return add("IHDR", data);
    }
    /// Rows as they are, compressed, in parts.
    Chunks& data(const Bytes& rows, int parts = 1, const std::string& between = "")
    {
        uLongf size = compressBound(rows.size());
        Bytes packed(size);
        compress(packed.data(), &size, rows.data(), rows.size());
        packed.resize(size);
        const auto part = static_cast<std::ptrdiff_t>(size) / parts;
        for (int i = 0; i < parts; ++i) {
            if (i > 0 && !between.empty()) add(between, {1, 2, 3});
            add("IDAT", {packed.begin() + i * part, i + 1 < parts ? packed.begin() + (i + 1) * part : packed.end()});
        }
        return *this;
    }
    Bytes end() { return add("IEND", {}).bytes; }

    Bytes bytes;
};

TEST(png, reads_every_type_depth_filter_and_interlacing)
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(test::data_folder()) / "png")) {
        const std::string name = entry.path().stem().string();
        const std::string kind = name.substr(0, name.find('-'));
        if (kind == "small") continue;
        const int depth = std::stoi(name.substr(kind.size() + 1));
        const Bitmap picture = decode_png(data_file("png/" + name + ".png"));
        const Bitmap expected = paint(13, 11, [&](int x, int y) { return fixture_pixel(kind, depth, x, y); });
        EXPECT_EQ(difference(picture, expected), "") << name << ": " << png_error;
        ++count;
    }
    EXPECT_EQ(count, 42);
    for (const auto& [w, h] : {std::pair{1, 1}, {2, 3}, {5, 1}, {1, 6}}) { // passes without columns or rows
        const std::string name = "png/small-" + std::to_string(w) + "x" + std::to_string(h) + "-interlaced.png";
        const Bitmap expected = paint(w, h, [](int x, int y) { return fixture_pixel("rgb", 8, x, y); });
        EXPECT_EQ(difference(decode_png(data_file(name)), expected), "") << name;
    }
}

TEST(png, hands_out_the_palette_at_six_bits)
{
    PALETTE palette;
    std::fill(std::begin(palette), std::end(palette), RGB{9, 9, 9, 0});
    const Bytes bytes = Chunks().head(1, 1, 2, 3).add("PLTE", {255, 130, 3, 4, 8, 12}).data({0, 0x40}).end();
    ASSERT_TRUE(decode_png(bytes, palette));
    EXPECT_EQ(palette[0].r, 63);
    EXPECT_EQ(palette[0].g, 32);
    EXPECT_EQ(palette[0].b, 0);
    EXPECT_EQ(palette[1].b, 3);
    EXPECT_EQ(palette[2].r, 0); // the rest is zeroed
    EXPECT_EQ(palette[255].g, 0);
}

TEST(png, round_trips_keep_every_bit_and_other_decoders_agree)
{
    const TemporaryFolder folder;
    const auto round_trip = [](BITMAP* picture, int color_type) {
        Bytes bytes;
        EXPECT_EQ(encode_png(picture, nullptr, bytes), 0);
        EXPECT_EQ(bytes[25], color_type);
        ASSERT_EQ(save_png("picture.png", picture), 0);
        EXPECT_EQ(difference(load_png("picture.png"), picture), "");
    };
    Bitmap last(5, 4);
    row(last, 3)[4] = 0x01000000; // alpha is written when any is not zero
    round_trip(last, 6);
    for (const int w : {1, 2, 3, 255, 256, 257}) {
        const Bitmap merged = colorful(w, 258 - w);
        round_trip(paint(w, 258 - w, [&](int x, int y) { return row(merged, y)[x] & 0xffffff; }), 2);
        round_trip(merged, 6);
        const auto seen = decoded_by_convert("picture.png");
        EXPECT_TRUE(!seen || difference(*seen, merged).empty()) << w;
    }
}

/// Areas of one colour with a few pixels in them; rows that repeat, and more bytes than are unpacked at once.
Bitmap flat_areas()
{
    return paint(400, 300, [](int x, int y) {
        const bool speck = y % 16 == 3 && (x * 7 + y) % 90 == 0;
        return speck ? 0x123456 : (x / 50 + y / 16) % 3 * 0x305070;
    });
}

/// The rows of a picture of RGB, filtered as the format's text says, each by the filter of its number.
Bytes filtered_by_the_book(BITMAP* picture, const std::function<int(int y)>& filter_of)
{
    const auto sample = [picture](int i, int y) {
        return i < 0 || y < 0 ? 0 : row(picture, y)[i / 3] >> (16 - i % 3 * 8) & 255;
    };
    Bytes rows;
    for (int y = 0; y < picture->h; ++y) {
        const int filter = filter_of(y);
        rows.push_back(static_cast<uint8_t>(filter));
        for (int i = 0; i < picture->w * 3; ++i) {
            const int a = sample(i - 3, y), b = sample(i, y - 1), c = sample(i - 3, y - 1), p = a + b - c;
            const int pa = std::abs(p - a), pb = std::abs(p - b), pc = std::abs(p - c);
            const int predicted[] = {0, a, b, (a + b) / 2, pa <= pb && pa <= pc ? a : pb <= pc ? b : c};
            rows.push_back(static_cast<uint8_t>(sample(i, y) - predicted[filter]));
        }
    }
    return rows;
}

TEST(png, areas_of_one_colour_go_both_ways_by_every_filter)
{
    const Bitmap picture = flat_areas();
    for (int filter = 0; filter <= 5; ++filter) { // 5: all of them in turn
        const Bytes rows = filtered_by_the_book(picture, [filter](int y) { return filter < 5 ? filter : y % 5; });
        const Bytes bytes = Chunks().head(400, 300, 8, 2).data(rows, 7).end();
        EXPECT_EQ(difference(decode_png(bytes), picture), "") << filter;
    }
    const Bytes rows = filtered_by_the_book(picture, [](int) { return 4; });
    uLongf size = compressBound(rows.size());
    Bytes packed(size), bytes;
    compress2(packed.data(), &size, rows.data(), rows.size(), 9);
    packed.resize(size);
    ASSERT_EQ(encode_png(picture, nullptr, bytes), 0);
    EXPECT_EQ(bytes, Chunks().head(400, 300, 8, 2).add("IDAT", packed).end());
}

TEST(png, an_eight_bit_bitmap_becomes_a_palette_picture)
{
    const Bitmap indexed(create_bitmap_ex(8, 300, 2));
    clear_to_color(indexed, 7);
    PALETTE palette = {};
    palette[7] = {63, 32, 1, 0};
    Bytes bytes;
    ASSERT_EQ(encode_png(indexed, palette, bytes), 0);
    EXPECT_EQ(bytes[25], 3);
    PALETTE read;
    EXPECT_EQ(difference(decode_png(bytes, read), Bitmap(300, 2, pack_rgb(255, 129, 4))), "");
    EXPECT_EQ(read[7].g, 32);
}

TEST(png, takes_what_other_programs_may_write)
{
    const Bytes rows{0, 1, 2, 3, 0, 4, 5, 6};
    const Bitmap expected = paint(1, 2, [](int, int y) { return y == 0 ? 0x010203 : 0x040506; });
    Bytes wrong_crc = Chunks().head(1, 2, 8, 2).data(rows).end();
    wrong_crc[8 + 8 + 13] ^= 0x55;
    wrong_crc.back() ^= 0x55;
    for (const Bytes& bytes :
         {wrong_crc, Chunks().head(1, 2, 8, 2).add("tEXt", {1, 2}).data(rows, 5).add("tIME", {9}).end(),
          Chunks().head(1, 2, 8, 2).add("IDAT", {}).data(rows).end()})
        EXPECT_EQ(difference(decode_png(bytes), expected), "");
}

TEST(png, says_why_it_refuses)
{
    const Bytes rows{0, 1, 2, 3, 0, 4, 5, 6};
    const auto shape = [](int depth, int type, int compression = 0, int filter = 0, int interlace = 0) {
        return Chunks().head(1, 2, depth, type, compression, filter, interlace);
    };
    Bytes truncated = shape(8, 2).data(rows).end();
    truncated.resize(truncated.size() - 14);
    const std::pair<Bytes, const char*> table[] = {
        {{0x89, 'P'}, "File shorter than PNG signature!"},
        {Bytes(40, 'x'), "File signature mismatch!"},
        {Chunks().bytes, "Cannot read chunk length!"},
        {Chunks().add("IDAT", {}).bytes, "First chunk must be of IHDR type!"},
        {Chunks().add("IHDR", {0}).bytes, "Incorrect IHDR length!"},
        {Chunks().head(0, 1, 8, 2).bytes, "Zero width!"},
        {Chunks().head(1, 0, 8, 2).bytes, "Zero height!"},
        {Chunks().head(0x7fffffff, 0x7fffffff, 8, 2).data(rows).end(), "Cannot allocate bitmap!"},
        {shape(16, 3).bytes, "Unsupported color type/depth combination!"},
        {shape(8, 7).bytes, "Unsupported color type/depth combination!"},
        {shape(8, 2, 1).bytes, "Unsupported compression method!"},
        {shape(8, 2, 0, 1).bytes, "Unsupported filter method!"},
        {shape(8, 2, 0, 0, 2).bytes, "Interlace not supported!"},
        {shape(8, 2).add("PLTE", {1, 2}).bytes, "Palette chunk length not divisible by 3!"},
        {shape(8, 2).add("PLTE", Bytes(771)).bytes, "Incorrect number of palette entries!"},
        {shape(8, 3).data(rows).end(), "Palette required but not found!"},
        {shape(8, 2).add("IDAT", {1, 2, 3, 4, 5, 6}).end(), "File without data!"},
        {shape(8, 2).data(rows, 2, "teSt").end(), "Not enough data!"}, // only the first run of chunks is read
        {shape(8, 2).data({0, 1, 2, 3, 0, 4, 5}).end(), "Not enough data!"},
        {shape(8, 2).data({0, 1, 2, 3, 0, 4, 5, 6, 0}).end(), "Cannot decompress data!"},
        {shape(8, 2).data({9, 1, 2, 3, 0, 4, 5, 6}).end(), "Unknown filter!"},
        {truncated, "Cannot fseek!"},
        {shape(8, 2).data(rows).add("IEND", {1}).bytes, "Incorrect IEND length!"},
    };
    for (const auto& [bytes, error] : table) {
        png_error = "";
        EXPECT_FALSE(decode_png(bytes)) << error;
        EXPECT_STREQ(png_error, error);
    }
    EXPECT_FALSE(load_png("no such file.png"));
    EXPECT_STREQ(png_error, "Cannot open file!");
    Bytes none;
    EXPECT_EQ(encode_png(nullptr, nullptr, none), -1);
    EXPECT_TRUE(none.empty());
}

} // namespace
} // namespace kelu
