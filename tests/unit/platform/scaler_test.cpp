// SPDX-License-Identifier: MIT
// The presenter's scaler against Allegro's own enlarging.
#include "base/bitmap.h"
#include "platform/scaler.h"
#include "support/pictures.h"
#include <gtest/gtest.h>

namespace kelu::platform {
namespace {

/// A picture in which all pixels differ.
Bitmap gradient(int w, int h)
{
    return test::paint(w, h, [](int x, int y) { return (x * 7 + 1) << 16 | (y * 5 + 2) << 8 | (x + y); });
}

TEST(Scaler, EachPixelBecomesASquareAtEveryScale)
{
    const Bitmap picture = gradient(13, 6);
    for (int scale = min_scale; scale <= max_scale; ++scale) {
        const Bitmap scaled(13 * scale, 6 * scale);
        const Bitmap expected(13 * scale, 6 * scale);
        stretch_blit(picture, expected, 0, 0, 13, 6, 0, 0, 13 * scale, 6 * scale);
        scale_rows(picture, scaled, scale, 0, 5, ChannelOrder::PLAIN);
        EXPECT_EQ(test::difference(scaled, expected), "") << scale;
    }
}

TEST(Scaler, LeavesOtherRowsAlone)
{
    const Bitmap picture = gradient(13, 6);
    const int untouched = 0x123456;
    const Bitmap scaled(13 * 3, 6 * 3, untouched);
    scale_rows(picture, scaled, 3, 2, 3, ChannelOrder::PLAIN);
    EXPECT_EQ(row(scaled, 5)[0], untouched);
    EXPECT_EQ(row(scaled, 6)[0], row(picture, 2)[0]);
    EXPECT_EQ(row(scaled, 11)[38], row(picture, 3)[12]);
    EXPECT_EQ(row(scaled, 12)[0], untouched);
}

TEST(Scaler, ExchangesRedAndBlue)
{
    const Bitmap picture(1, 1, 0x112233);
    const Bitmap scaled(2, 2);
    scale_rows(picture, scaled, 2, 0, 0, ChannelOrder::EXCHANGED);
    EXPECT_EQ(row(scaled, 1)[1], 0x332211);
}

} // namespace
} // namespace kelu::platform
