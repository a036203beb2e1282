// SPDX-License-Identifier: MIT
// Damaged files of every format: cut anywhere, with a wrong word, and with sizes that can't be. Nothing is read out of
// bounds, and where a format can't tell what is missing there is no picture.
#include "imagefile/bmp.h"
#include "imagefile/gif.h"
#include "imagefile/ico.h"
#include "imagefile/jpeg.h"
#include "imagefile/lbm.h"
#include "imagefile/pcx.h"
#include "imagefile/png.h"
#include "imagefile/tga.h"
#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

/// A byte of a file that is exchanged.
struct Change {
    std::size_t at;
    uint8_t value;
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
    std::size_t whole_from_end; ///< bytes that the end can lack without loss of a pixel; a cut by one more is refused
    std::vector<std::vector<Change>> refused; ///< changes that leave no picture
};

constexpr std::size_t gives_what_there_is = SIZE_MAX; ///< a cut file shows the rows that it has

const Bytes plain_tga{0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 32, 8, 1, 2, 3, 4, 5, 6, 7, 8};
const Bytes packed_tga{0,  0,    10, 0, 0, 0, 0, 0, 0, 0, 0, 0,    2, 0, 2, 0,
                       32, 0x28, 1,  1, 2, 3, 4, 5, 6, 7, 8, 0x81, 9, 9, 9, 9};

const Damage damages[] = {
    // Magic, where the pixels are, size of the head, sides, depth, compression.
    {"bmp/rgb-8.bmp",
     decode_bmp,
     0,
     {{{0, 'X'}}, {{12, 1}}, {{14, 13}}, {{21, 0x40}}, {{25, 0x40}}, {{28, 7}}, {{30, 4}}}},
    {"gif/plain.gif", alone<decode_gif>, gives_what_there_is, {{{0, 'J'}}, {{67, 0xff}, {69, 0xff}}}},
    {"ico/indexed-4.ico", decode_ico, gives_what_there_is, {{{2, 2}}}}, // a cursor
    {"ico/rgba-8.ico", decode_ico, gives_what_there_is, {{{22 + 5, 0x70}, {22 + 9, 0x70}}}},
    {"ico/indexed-8-png.ico", decode_ico, gives_what_there_is, {}},
    {"pcx/rgb-8.pcx", alone<decode_pcx>, gives_what_there_is, {{{8, 0xff}, {9, 0xff}, {10, 0xff}, {11, 0xff}}}},
    {"pcx/indexed-4.pcx", alone<decode_pcx>, gives_what_there_is, {{{8, 0xff}, {9, 0xff}, {10, 0xff}, {11, 0xff}}}},
    {"lbm/rgb-8.lbm", alone<decode_lbm>, gives_what_there_is, {{{20, 0xff}, {21, 0xff}, {22, 0xff}, {23, 0xff}}}},
    {"lbm/indexed-4-plain.lbm",
     alone<decode_lbm>,
     gives_what_there_is,
     {{{20, 0xff}, {21, 0xff}, {22, 0xff}, {23, 0xff}}}},
    {"jpeg/rgb.jpg", decode_jpeg, gives_what_there_is, {{{1, 0}}}},
    // No width, a palette, 16 bits, 65535 a side, and 8447 a side: a valid size, yet more than these bytes can hold.
    {"plain.tga",
     decode_tga,
     0,
     {{{12, 0}}, {{2, 1}, {16, 8}}, {{16, 16}}, {{12, 255}, {13, 255}, {14, 255}, {15, 255}}}},
    {"packed.tga", decode_tga, 0, {{{12, 255}, {13, 0x20}, {14, 255}, {15, 0x20}}}},
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
            if (size < 20 || damage.whole_from_end == 0) {
                EXPECT_FALSE(cut) << damage.name << " of " << size << " bytes";
            } else if (cut) {
                EXPECT_EQ(cut.width(), picture.width()) << damage.name << " of " << size << " bytes";
            }
        }
        for (const auto& changes : damage.refused) {
            Bytes changed = whole;
            for (const auto& [at, value] : changes)
                changed[at] = value;
            EXPECT_FALSE(damage.decode(changed)) << damage.name << " changed at " << changes[0].at;
        }
    }
}

TEST(damage, a_picture_larger_than_its_file_can_hold_is_refused)
{
    Bytes whole = data_file("jpeg/rgb.jpg");
    const Bytes frame_mark{0xff, 0xc0};
    const auto sof = std::search(whole.begin(), whole.end(), frame_mark.begin(), frame_mark.end());
    ASSERT_NE(sof, whole.end());
    std::fill_n(sof + 5, 4, 0x40); // a picture of 16448 x 16448 in 900 bytes
    EXPECT_FALSE(decode_jpeg(whole));
}

TEST(damage, missing_files_and_unwritable_targets_come_back_as_results)
{
    const TemporaryFolder folder;
    const Bitmap picture(3, 3, 0x102030);
    EXPECT_FALSE(load_gif("missing.gif"));
    EXPECT_FALSE(save_jpeg("no/such/folder/picture.jpg", picture, 90));
    EXPECT_FALSE(save_jpeg("none.jpg", nullptr, 90));
    EXPECT_FALSE(write_tga("no/such/folder/frame", picture));
}

} // namespace
} // namespace kelu
