// SPDX-License-Identifier: MIT
// JPEG: fixtures, round trips within the loss of the format, damage that never ends the process.
#include "imagefile/formats.h"
#include "imagefile/jpeg.h"

#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

/// The largest difference in a channel.
int loss(BITMAP* a, BITMAP* b)
{
    if (!a || a->w != b->w || a->h != b->h) return 256;
    int most = 0;
    for (int y = 0; y < a->h; ++y) {
        for (int x = 0; x < a->w; ++x) {
            for (const int shift : {0, 8, 16})
                most = std::max(most, std::abs((row(a, y)[x] >> shift & 255) - (row(b, y)[x] >> shift & 255)));
        }
    }
    return most;
}

Bitmap ramp()
{
    return paint(37, 19, [](int x, int y) { return pack_rgb(6 * x, 12 * y, 255 - 6 * x); });
}

TEST(jpeg, reads_what_other_encoders_write)
{
    EXPECT_LT(loss(decode_jpeg(data_file("jpeg/rgb.jpg")), ramp()), 16);
    EXPECT_LT(loss(decode_jpeg(data_file("jpeg/progressive.jpg")), ramp()), 16);
    EXPECT_LT(loss(decode_jpeg(data_file("jpeg/grey.jpg")), paint(37, 19, [](int x, int) { return 6 * x * 0x010101; })),
              4);
}

TEST(jpeg, quality_is_passed_on_and_round_trips_hold)
{
    const TemporaryFolder folder;
    std::uintmax_t last = 0;
    for (const int quality : {0, 50, 90, 100}) {
        ASSERT_TRUE(save_jpeg("picture.jpg", ramp(), quality));
        const Bitmap read = load_picture("picture.jpg", FORMAT_JPG);
        EXPECT_LT(loss(read, ramp()), quality >= 90 ? 12 : 120) << quality;
        if (convert_installed() && quality == 90) {
            EXPECT_LT(loss(*decoded_by_convert("picture.jpg"), read), 3);
        }
        EXPECT_GT(std::filesystem::file_size("picture.jpg"), last) << quality;
        last = std::filesystem::file_size("picture.jpg");
    }
}

} // namespace
} // namespace kelu
