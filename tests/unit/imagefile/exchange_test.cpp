// SPDX-License-Identifier: MIT
// Pictures that other encoders wrote, named <kind>-<depth>: what they show is a formula of their place. And every
// format both ways with another program, at the sizes where rows, planes and bytes are odd.
#include "imagefile/bmp.h"
#include "imagefile/formats.h"
#include "imagefile/gif.h"
#include "imagefile/ico.h"
#include "imagefile/jpeg.h"
#include "imagefile/lbm.h"
#include "imagefile/pcx.h"
#include "imagefile/picture_files.h"
#include "imagefile/png.h"
#include "imagefile/tga.h"
#include "runtime/pixels.h"
#include "support/paths.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

struct Folder {
    const char* name;
    Bitmap (*decode)(std::span<const uint8_t>);
    int (*from_palette)(int color); ///< what a palette of the format keeps of a colour
    int files;
    int alpha; ///< top byte of a picture without alpha
};

int whole(int color) { return color; }

const Folder folders[] = {
    {"bmp", decode_bmp, whole, 9, 0},
    {"pcx", [](std::span<const uint8_t> bytes) { return decode_pcx(bytes); }, six_bit, 10, 0},
    {"lbm", [](std::span<const uint8_t> bytes) { return decode_lbm(bytes); }, six_bit, 7, 0},
    {"ico", decode_ico, whole, 5, 255},
};

/// The pixel of a fixture; a PNG in an icon has a palette of 6 bits of the plain colours.
int fixture_pixel(const Folder& folder, const std::string& name, int x, int y)
{
    const std::string kind = name.substr(0, name.find('-'));
    const int depth = std::stoi(name.substr(kind.size() + 1));
    const int color = pack_rgb(level(x, y, 0), level(x, y, 1), level(x, y, 2));
    const int alpha = kind == "rgba" ? level(x, y, 3) : folder.alpha;
    const int shown = name.ends_with("-png") ? six_bit(color)
                      : kind != "indexed"    ? color
                                             : folder.from_palette(palette_entry(level(x, y, 0) & ((1 << depth) - 1)));
    return shown | static_cast<int>(static_cast<uint32_t>(alpha) << 24);
}

TEST(fixtures, are_read_as_their_encoders_meant_them)
{
    for (const Folder& folder : folders) {
        int count = 0;
        for (const auto& entry :
             std::filesystem::directory_iterator(std::filesystem::path(data_folder()) / folder.name)) {
            const std::string name = entry.path().stem().string();
            SCOPED_TRACE(entry.path());
            ++count;
            const Bitmap picture =
                folder.decode(data_file(std::string(folder.name) + "/" + entry.path().filename().string()));
            const Bitmap expected = paint(13, 11, [&](int x, int y) { return fixture_pixel(folder, name, x, y); });
            const bool few_bits = name == "rgb-555" || name == "rgb-565"; // within the encoder's rounding
            EXPECT_EQ(few_bits ? "" : difference(picture, expected), "");
            EXPECT_LT(loss(picture, expected), 5);
        }
        EXPECT_EQ(count, folder.files) << folder.name;
    }
}

TEST(fixtures, of_jpeg_are_near_what_was_drawn)
{
    const Bitmap colors = paint(37, 19, [](int x, int y) { return pack_rgb(6 * x, 12 * y, 255 - 6 * x); });
    EXPECT_LT(loss(decode_jpeg(data_file("jpeg/rgb.jpg")), colors), 4);
    EXPECT_LT(loss(decode_jpeg(data_file("jpeg/progressive.jpg")), colors), 4);
    EXPECT_LT(loss(decode_jpeg(data_file("jpeg/grey.jpg")), paint(37, 19, [](int x, int) { return 6 * x * 0x010101; })),
              1);
    EXPECT_FALSE(save_jpeg("no/such/folder/picture.jpg", colors, 90));
}

/// A format and another program for it. The commands go between in.png and the file, and from it to out.png.
struct ExchangeRow {
    int format;
    std::string file, program, write, read;
    double loss; ///< most mean difference of a channel, of 255
};

/// The row of two filters between the format and PNM.
ExchangeRow filters(int format, const std::string& file, const std::string& to, const std::string& from, double loss)
{
    return {format,
            file,
            to.substr(0, to.find(' ')),
            "pngtopnm in.png | " + to + " >" + file,
            from + " " + file + " | pnmtopng >out.png",
            loss};
}

const ExchangeRow rows[] = {
    filters(FORMAT_PNG, "a.png", "pnmtopng", "pngtopnm", 0),
    filters(FORMAT_GIF, "a.gif", "ppmtogif", "giftopnm", 3),
    filters(FORMAT_PCX, "a.pcx", "ppmtopcx -24bit", "pcxtoppm", 0),
    filters(FORMAT_BMP, "a.bmp", "ppmtobmp -bpp=24", "bmptopnm", 0),
    filters(FORMAT_LBM, "a.lbm", "ppmtoilbm", "ilbmtoppm", 3),
    filters(FORMAT_JPG, "a.jpg", "cjpeg -quality 95", "djpeg", 4),
    {FORMAT_ICO, "a.ico", "icotool", "icotool -c -o a.ico in.png", "icotool -x -o out.png a.ico", 0},
    {FORMAT_PCX, "b.pcx", "convert", "convert in.png b.pcx", "convert b.pcx PNG24:out.png", 0},
    {FORMAT_BMP, "b.bmp", "convert", "convert in.png BMP3:b.bmp", "convert b.bmp PNG24:out.png", 0},
    {FORMAT_GIF, "b.gif", "convert", "convert in.png b.gif", "convert b.gif PNG24:out.png", 3},
    {FORMAT_ICO, "b.ico", "convert", "convert in.png b.ico", "convert b.ico PNG32:out.png", 0},
};

bool run(const std::string& command) { return std::system(("( " + command + " ) >/dev/null 2>&1").c_str()) == 0; }

/// Steps of few colours, so that a palette holds them all, and not too steep for JPEG.
Bitmap steps(int w, int h)
{
    return paint(w, h, [=](int x, int y) {
        const int level = 40 + x * 5 / w * 16 + y * 5 / h * 12;
        return six_bit(pack_rgb(level, level + 40, level + 20));
    });
}

TEST(exchange, other_programs_read_what_is_written_and_write_what_is_read)
{
    const TemporaryFolder folder;
    for (const ExchangeRow& row : rows) {
        if (!run("command -v " + row.program)) continue;
        for (const int w : {1, 2, 3, 255, 256, 257}) {
            const int h = 258 - w;
            if (row.format == FORMAT_ICO && std::max(w, h) > 256) continue;
            const auto where = row.program + " " + row.file + " " + std::to_string(w);
            const Bitmap picture = steps(w, h);
            save_png("in.png", picture);
            ASSERT_TRUE(run(row.write)) << where;
            EXPECT_LE(loss(load_picture(row.file, row.format), picture), row.loss) << "read, " << where;
            std::filesystem::remove(row.file);
            ASSERT_TRUE(format_row(row.format).save(row.file.c_str(), picture, {.color_reduction = 2})) << where;
            ASSERT_TRUE(run(row.read)) << where;
            EXPECT_LE(loss(load_png("out.png"), picture), row.loss) << "written, " << where;
        }
    }
}

TEST(formats, extensions_stand_behind_the_last_point)
{
    struct Row {
        const char* name;
        int format;
    };
    for (const auto& [name, format] :
         {Row{"a.gif", FORMAT_GIF}, Row{"A.PcX", FORMAT_PCX}, Row{".bmp", FORMAT_BMP}, Row{"a.b.png", FORMAT_PNG},
          Row{"a.jpg", FORMAT_JPG}, Row{"a.LBM", FORMAT_LBM}, Row{"a.ttf", FORMAT_TTF}, Row{"a.fon", FORMAT_FON},
          Row{"a.wsp", FORMAT_WSP}, Row{"a.ico", FORMAT_ICO}, Row{"IMAGE.JPEG", FORMAT_JPG}, Row{"a.jpe", FORMAT_JPG},
          Row{"a.jpg.x", FORMAT_NONE}, Row{"a.jp", FORMAT_NONE}, Row{"png", FORMAT_NONE}, Row{"apng", FORMAT_NONE},
          Row{"a.tga", FORMAT_NONE}, Row{"", FORMAT_NONE}, Row{"a.", FORMAT_NONE}}) {
        EXPECT_EQ(format_from_extension(name, false), format) << name;
        const bool font = format == FORMAT_TTF || format == FORMAT_FON;
        EXPECT_EQ(format_from_extension(name, true), font ? format : FORMAT_NONE) << name;
    }
}

TEST(formats, signatures_tell_when_names_do_not)
{
    const TemporaryFolder folder;
    struct Row {
        std::string start;
        int format;
    };
    for (const auto& [start, format] :
         {Row{"GIF87a", FORMAT_GIF}, Row{"BMxx", FORMAT_BMP}, Row{"\x89PNG", FORMAT_PNG}, Row{"FORM", FORMAT_LBM},
          Row{"kWSP", FORMAT_WSP}, Row{"COL1", FORMAT_FAVORITES}, Row{"SCH1", FORMAT_SCHEME},
          Row{std::string("\0\0\1\0", 4), FORMAT_ICO}, Row{"\xff\xd8\xff\xe0", FORMAT_JPG},
          Row{"\xff\xd8\xfe\xe0", FORMAT_NONE}, Row{"\n\5\1\x8", FORMAT_PCX},
          Row{std::string("\n\0\1\1", 4), FORMAT_PCX}, Row{"\n\6\1\x8", FORMAT_NONE}, Row{"\n\5\1a", FORMAT_NONE},
          Row{"xPN", FORMAT_NONE}, Row{"text", FORMAT_NONE}, Row{"BM", FORMAT_NONE}}) {
        folder.put("file", start);
        EXPECT_EQ(format_from_signature("file"), format) << start;
        EXPECT_EQ(format_of_file("file"), format) << start;
    }
    folder.put("file.png", "GIF89a");
    EXPECT_EQ(format_of_file("file.png"), FORMAT_PNG); // the name comes first
    EXPECT_EQ(format_from_signature("missing"), FORMAT_NONE);
}

/// Bytes of a file that are exchanged.
struct Change {
    std::size_t at;
    Bytes values;
};

/// A reader without the palette that it can hand out.
template <Bitmap (*read)(std::span<const uint8_t>, RGB*)>
Bitmap alone(std::span<const uint8_t> bytes)
{
    return read(bytes, nullptr);
}

struct Damage {
    const char* name; ///< a fixture, or the name of bytes made here
    Bitmap (*decode)(std::span<const uint8_t>);
    bool needs_all;              ///< else a cut file shows the rows that it has
    std::vector<Change> refused; ///< each leaves no picture
};

const Bytes plain_tga{0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 32, 8, 1, 2, 3, 4, 5, 6, 7, 8};
const Bytes packed_tga{0,  0,    10, 0, 0, 0, 0, 0, 0, 0, 0, 0,    2, 0, 2, 0,
                       32, 0x28, 1,  1, 2, 3, 4, 5, 6, 7, 8, 0x81, 9, 9, 9, 9};

const Bytes huge{255, 255, 255, 255};

const Damage damages[] = {
    // Magic, where the pixels are, size of the head, sides, depth, compression.
    {"bmp/rgb-8.bmp",
     decode_bmp,
     true,
     {{0, {'X'}}, {12, {1}}, {14, {13}}, {21, {0x40}}, {25, {0x40}}, {28, {7}}, {30, {4}}}},
    {"gif/plain.gif", alone<decode_gif>, false, {{0, {'J'}}, {67, {255, 255, 255}}}},
    {"ico/indexed-4.ico", decode_ico, false, {{2, {2}}}}, // a cursor
    {"ico/rgba-8.ico", decode_ico, false, {{22 + 5, {0x70, 0, 0, 0, 0x70}}}},
    {"ico/indexed-8-png.ico", decode_ico, false, {}},
    {"pcx/rgb-8.pcx", alone<decode_pcx>, false, {{8, huge}}},
    {"pcx/indexed-4.pcx", alone<decode_pcx>, false, {{8, huge}}},
    {"lbm/rgb-8.lbm", alone<decode_lbm>, false, {{20, huge}}},
    {"lbm/indexed-4-plain.lbm", alone<decode_lbm>, false, {{20, huge}}},
    {"jpeg/rgb.jpg", decode_jpeg, false, {{1, {0}}, {163, {0x40, 0x40, 0x40, 0x40}}}}, // 16448 a side
    // No width, a palette, 16 bits, 65535 a side, and 8447 a side: a valid size, yet more than these bytes can hold.
    {"plain.tga", decode_tga, true, {{12, {0}}, {2, {1}}, {16, {16}}, {12, huge}}},
    {"packed.tga", decode_tga, true, {{12, {255, 0x20, 255, 0x20}}}},
};

Bytes bytes_of(const Damage& damage)
{
    const std::string name = damage.name;
    return name == "plain.tga" ? plain_tga : name == "packed.tga" ? packed_tga : data_file(name);
}

TEST(damage, cut_and_changed_files_give_no_picture_or_what_there_is)
{
    for (const Damage& damage : damages) {
        const Bytes whole = bytes_of(damage);
        const Bitmap picture = damage.decode(whole);
        ASSERT_TRUE(picture) << damage.name;
        for (std::size_t size = 0; size < whole.size(); size += 1 + size / 64) {
            const Bitmap cut = damage.decode(std::span(whole).first(size));
            if (size < 20 || damage.needs_all) {
                EXPECT_FALSE(cut) << damage.name << " of " << size << " bytes";
            } else if (cut) {
                EXPECT_EQ(cut.width(), picture.width()) << damage.name << " of " << size << " bytes";
            }
        }
        for (const auto& [at, values] : damage.refused) {
            Bytes changed = whole;
            std::ranges::copy(values, changed.begin() + static_cast<std::ptrdiff_t>(at));
            EXPECT_FALSE(damage.decode(changed)) << damage.name << " changed at " << at;
        }
    }
}

} // namespace
} // namespace kelu
