// SPDX-License-Identifier: MIT
// Shifts of single colours, and the area that a preview touches.
#include "colour/tint.h"

#include "runtime/preferences.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "support/fresh_state.h"

namespace kelu {
namespace {

class TintFrameTest : public test::FreshState {
protected:
    static int at(const Bitmap& bitmap, int x, int y) { return row(bitmap, y)[x]; }
};

TEST_F(TintFrameTest, ShiftsOfWorkedColours)
{
    // Red has hue 0, lightness 127.5, saturation 255.
    EXPECT_EQ(tinted(0xff0000, {.hue = 85}), 0x00ff00);
    EXPECT_EQ(tinted(0xff0000, {.hue = -85}), 0x0000ff);
    EXPECT_EQ(tinted(0xff0000, {.hue = 128}), tinted(0xff0000, {.hue = -127})); // the short way round
    EXPECT_EQ(tinted(0xff0000, {.hue = -128}), tinted(0xff0000, {.hue = 127}));
    EXPECT_EQ(tinted(0xff0000, {.lightness = 128}), 0xffffff);
    EXPECT_EQ(tinted(0xff0000, {.lightness = -128}), 0x000000);
    EXPECT_EQ(tinted(0xff0000, {.saturation = 128}), 0xff0000);
    // Saturation 127 of 255 about the middle: 127.5 x (1 + 127 / 255) and 127.5 x (1 - 127 / 255).
    EXPECT_EQ(tinted(0xff0000, {.saturation = -128}), 0xbf4040);
    // A grey has no hue: lightness moves it, saturation turns it towards red.
    EXPECT_EQ(tinted(0x808080, {.hue = 100}), 0x808080);
    EXPECT_EQ(tinted(0x808080, {.lightness = 16}), 0x909090);
    EXPECT_EQ(tinted(0x808080, {.saturation = 64}), 0x9f6060);
}

TEST_F(TintFrameTest, MaskColourStaysOnlyWhereItIsExact)
{
    toolbox.mask_color = 0x102030;
    Bitmap source(3, 1, 0x102030);
    row(source, 0)[1] = 0x102031;
    Bitmap dest(3, 1);
    tint_frame(true, true, source, dest, {.lightness = 50});
    EXPECT_EQ(at(dest, 0, 0), 0x102030);
    EXPECT_NE(at(dest, 1, 0), 0x102031);
    tint_frame(true, false, source, dest, {.lightness = 50});
    EXPECT_NE(at(dest, 2, 0), 0x102030);
    tint_frame(true, true, source, dest, {}); // no shift: the untouched pixels
    EXPECT_EQ(at(dest, 1, 0), 0x102031);
    EXPECT_EQ(at(dest, 2, 0), 0x102030);
}

} // namespace
} // namespace kelu
