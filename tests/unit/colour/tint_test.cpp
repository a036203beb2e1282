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

TEST_F(TintFrameTest, PreviewTouchesTheScreenAndOkayTheWhole)
{
    const Bitmap source(500, 400, 0xff0000);
    const auto touched = [&](bool whole) {
        Bitmap dest(500, 400, 0x123456);
        tint_frame(whole, false, source, dest, {.hue = 85});
        return dest;
    };
    view.pan_x = 50;
    view.pan_y = 60;
    const Bitmap shown = touched(false);
    EXPECT_EQ(at(shown, 50, 60), 0x00ff00);
    EXPECT_EQ(at(shown, 369, 299), 0x00ff00);
    EXPECT_EQ(at(shown, 49, 60), 0x123456);
    EXPECT_EQ(at(shown, 50, 59), 0x123456);
    EXPECT_EQ(at(shown, 370, 299), 0x123456);
    EXPECT_EQ(at(shown, 369, 300), 0x123456);
    view.zoom = 3; // the area moves by 20 x the size of the zoom preview + 30
    preferences.zoom_preview_size = 1;
    const Bitmap zoomed = touched(false);
    EXPECT_EQ(at(zoomed, 0, 10), 0x00ff00);
    EXPECT_EQ(at(zoomed, 319, 249), 0x00ff00);
    EXPECT_EQ(at(zoomed, 0, 9), 0x123456);
    EXPECT_EQ(at(zoomed, 320, 249), 0x123456);
    view.pan_x = 5000; // nothing in view
    EXPECT_EQ(at(touched(false), 499, 399), 0x123456);
    const Bitmap all = touched(true);
    EXPECT_EQ(at(all, 0, 0), 0x00ff00);
    EXPECT_EQ(at(all, 499, 399), 0x00ff00);
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
