// SPDX-License-Identifier: MIT
// The presenter's scaler against Allegro's own enlarging.
#include "base/bitmap.h"
#include "platform/scaler.h"
#include "support/pictures.h"
#include <gtest/gtest.h>

namespace kelu::platform {
namespace {

TEST(Scaler, EachPixelBecomesASquareAtEveryScale)
{
    const Bitmap picture = test::paint(13, 6, [](int x, int y) { return (x * 7 + 1) << 16 | (y * 5 + 2) << 8 | 9; });
    for (int scale = min_scale; scale <= max_scale; ++scale) {
        const Bitmap scaled(13 * scale, 6 * scale);
        const Bitmap expected(13 * scale, 6 * scale);
        stretch_blit(picture, expected, 0, 0, 13, 6, 0, 0, 13 * scale, 6 * scale);
        scale_rows(picture, scaled, scale, 0, 5, ChannelOrder::PLAIN);
        EXPECT_EQ(test::difference(scaled, expected), "") << scale;
    }
}

TEST(Scaler, LeavesOtherRowsAloneAndExchangesRedAndBlue)
{
    const Bitmap picture(13, 6, 0x112233);
    const Bitmap scaled(13 * 3, 6 * 3, 0x123456);
    scale_rows(picture, scaled, 3, 2, 3, ChannelOrder::EXCHANGED);
    const Bitmap expected =
        test::paint(13 * 3, 6 * 3, [](int, int y) { return y < 6 || y > 11 ? 0x123456 : 0x332211; });
    EXPECT_EQ(test::difference(scaled, expected), "");
}

} // namespace
} // namespace kelu::platform
