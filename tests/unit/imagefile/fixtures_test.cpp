// SPDX-License-Identifier: MIT
// Pictures that other encoders wrote, named <kind>-<depth>: what they show is a formula of their place.
#include "imagefile/bmp.h"
#include "imagefile/ico.h"
#include "imagefile/lbm.h"
#include "imagefile/pcx.h"
#include "runtime/pixels.h"
#include "support/paths.h"
#include "support/pictures.h"
#include <filesystem>
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

struct Folder {
    const char* name;
    int files;
    Bitmap (*decode)(std::span<const uint8_t>);
    int (*from_palette)(int color); ///< what a palette of the format keeps of a colour
    int alpha;                      ///< top byte of a picture without alpha
};

int whole(int color) { return color; }

const Folder folders[] = {
    {"bmp", 9, decode_bmp, whole, 0},
    {"pcx", 10, [](std::span<const uint8_t> bytes) { return decode_pcx(bytes); }, six_bit, 0},
    {"lbm", 7, [](std::span<const uint8_t> bytes) { return decode_lbm(bytes); }, six_bit, 0},
    {"ico", 5, decode_ico, whole, 255},
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
            if (!few_bits) {
                EXPECT_EQ(difference(picture, expected), "");
                continue;
            }
            ASSERT_TRUE(picture);
            for (int x = 0; x < 13; ++x) {
                EXPECT_NEAR(red_of(row(picture, 5)[x]), red_of(row(expected, 5)[x]), 8);
                EXPECT_NEAR(green_of(row(picture, 5)[x]), green_of(row(expected, 5)[x]), 8);
                EXPECT_NEAR(blue_of(row(picture, 5)[x]), blue_of(row(expected, 5)[x]), 8);
            }
        }
        EXPECT_EQ(count, folder.files) << folder.name;
    }
}

} // namespace
} // namespace kelu
