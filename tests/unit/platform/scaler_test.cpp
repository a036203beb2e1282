// The presenter's scaler against Allegro's own enlarging.
#include "platform/scaler.h"
#include "runtime/bitmap.h"
#include <gtest/gtest.h>

namespace kelu::platform {
namespace {

/// A picture in which all pixels differ.
Bitmap gradient(int w, int h)
{
    Bitmap picture(w, h);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x)
            row(picture, y)[x] = (x * 7 + 1) << 16 | (y * 5 + 2) << 8 | (x + y);
    }
    return picture;
}

int differing_pixels(BITMAP* a, BITMAP* b)
{
    int count = 0;
    for (int y = 0; y < a->h; ++y) {
        for (int x = 0; x < a->w; ++x)
            count += row(a, y)[x] != row(b, y)[x];
    }
    return count;
}

TEST(Scaler, EachPixelBecomesASquareAtEveryScale)
{
    const Bitmap picture = gradient(13, 6);
    for (int scale = min_scale; scale <= max_scale; ++scale) {
        const Bitmap scaled(13 * scale, 6 * scale);
        const Bitmap expected(13 * scale, 6 * scale);
        stretch_blit(picture, expected, 0, 0, 13, 6, 0, 0, 13 * scale, 6 * scale);
        scale_rows(picture, scaled, scale, 0, 5, ChannelOrder::PLAIN);
        EXPECT_EQ(differing_pixels(scaled, expected), 0) << scale;
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
