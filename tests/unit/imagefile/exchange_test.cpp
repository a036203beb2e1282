// SPDX-License-Identifier: MIT
// Every format both ways with another program, at the sizes where rows, planes and bytes are odd.
#include "imagefile/formats.h"
#include "imagefile/picture_files.h"
#include "imagefile/png.h"
#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

/// A format and another program for it. The commands go between a file and in.ppm or out.png; all end in PNG, which is
/// compared by the tests of its own.
struct ExchangeRow {
    int format;
    std::string file, program;
    std::string write, read; ///< from in.png to the file, and from the file to out.png
    int most_side;
    double loss; ///< most mean difference of a channel, of 255
};

const ExchangeRow rows[] = {
    {FORMAT_PNG, "a.png", "pnmtopng", "pngtopnm in.png | pnmtopng >a.png", "pngtopnm a.png | pnmtopng >out.png", 999,
     0},
    {FORMAT_GIF, "a.gif", "ppmtogif", "pngtopnm in.png | ppmtogif >a.gif", "giftopnm a.gif | pnmtopng >out.png", 999,
     3},
    {FORMAT_PCX, "a.pcx", "ppmtopcx", "pngtopnm in.png | ppmtopcx -24bit >a.pcx", "pcxtoppm a.pcx | pnmtopng >out.png",
     999, 0},
    {FORMAT_BMP, "a.bmp", "ppmtobmp", "pngtopnm in.png | ppmtobmp -bpp=24 >a.bmp", "bmptopnm a.bmp | pnmtopng >out.png",
     999, 0},
    {FORMAT_LBM, "a.lbm", "ppmtoilbm", "pngtopnm in.png | ppmtoilbm >a.lbm", "ilbmtoppm a.lbm | pnmtopng >out.png", 999,
     3},
    {FORMAT_JPG, "a.jpg", "djpeg", "pngtopnm in.png | cjpeg -quality 95 >a.jpg", "djpeg a.jpg | pnmtopng >out.png", 999,
     4},
    {FORMAT_ICO, "a.ico", "icotool", "icotool -c -o a.ico in.png", "icotool -x -o out.png a.ico", 256, 0},
    {FORMAT_PCX, "b.pcx", "convert", "convert in.png b.pcx", "convert b.pcx PNG24:out.png", 999, 0},
    {FORMAT_BMP, "b.bmp", "convert", "convert in.png BMP3:b.bmp", "convert b.bmp PNG24:out.png", 999, 0},
    {FORMAT_GIF, "b.gif", "convert", "convert in.png b.gif", "convert b.gif PNG24:out.png", 999, 3},
    {FORMAT_JPG, "b.jpg", "convert", "convert in.png -quality 95 b.jpg", "convert b.jpg PNG24:out.png", 999, 4},
    {FORMAT_ICO, "b.ico", "convert", "convert in.png b.ico", "convert b.ico PNG32:out.png", 256, 0},
};

bool run(const std::string& command) { return std::system(("( " + command + " ) >/dev/null 2>&1").c_str()) == 0; }

/// Mean difference of a channel; 999 for pictures of different sizes or none.
double loss(BITMAP* a, BITMAP* b)
{
    if (!a || !b || a->w != b->w || a->h != b->h) return 999;
    long sum = 0;
    for (int y = 0; y < a->h; ++y) {
        for (int x = 0; x < a->w; ++x) {
            const int p = row(a, y)[x], q = row(b, y)[x];
            sum += std::abs(red_of(p) - red_of(q)) + std::abs(green_of(p) - green_of(q)) +
                   std::abs(blue_of(p) - blue_of(q));
        }
    }
    return static_cast<double>(sum) / (3.0 * a->w * a->h);
}

/// Steps of few colours, so that a palette holds them all, and not too steep for JPEG.
Bitmap steps(int w, int h)
{
    return paint(w, h, [=](int x, int y) {
        const int level = 40 + x * 5 / w * 16 + y * 5 / h * 12;
        return six_bit(pack_rgb(level, level + 40, level + 20));
    });
}

} // namespace

TEST(exchange, other_programs_read_what_is_written_and_write_what_is_read)
{
    const TemporaryFolder folder;
    for (const ExchangeRow& row : rows) {
        if (!run("command -v " + row.program)) continue;
        for (const int w : {1, 2, 3, 255, 256, 257}) {
            const int h = 258 - w;
            if (std::max(w, h) > row.most_side) continue;
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

} // namespace kelu
