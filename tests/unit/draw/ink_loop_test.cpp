// SPDX-License-Identifier: MIT
// The loops that carry an ink over a tip, a span and a picture: clipping, order, and that all of them are the one-pixel
// form, for every ink.
#include "support/golden.h"
#include "support/ink_test.h"

#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/pixel_text.h"
#include <array>

namespace kelu {
namespace {

class InkLoopTest : public test::InkTest {
protected:
    /// A frame in which each pixel has its own colour, and options under which every ink leaves a mark.
    static void begin_scattered()
    {
        seed_random(7);
        begin(test::paint(24, 20, [](int x, int y) {
            return pack_rgb(x * 151 & 255, (x * 67 + y * 29) & 255, (y * 97 + x * y) & 255);
        }));
        toolbox.brush_color = 0x40c0f0;
        toolbox.mask_color = 0x102030;
        for (int ink = 0; ink < INK_COUNT; ++ink)
            set_option(ink, 0, 5);
        set_option(INK_GRAIN, 1, 50);
        set_option(INK_GLOW, 1, 3);
        store.cel_source_bitmap = Bitmap(3, 2, 0x80a0c0);
    }
    /// A tip with every value from 0 to 254.
    static TipCell ramp()
    {
        TipCell tip{};
        for (std::size_t i = 0; i < tip.values.size(); ++i)
            tip.values[i] = static_cast<uint8_t>(i);
        return tip;
    }
    static Bitmap picture_after(void (*paint)(int ink), int ink)
    {
        begin_scattered();
        paint(ink);
        return store.frame_bitmap.copy();
    }
};

TEST_F(InkLoopTest, StampAndSpanAreTheOnePixelFormOfEveryInk)
{
    for (int ink = 0; ink < INK_COUNT; ++ink) {
        SCOPED_TRACE(ink);
        // In the middle, and over the frame's corner, where the tip is cut.
        const Bitmap stamped = picture_after(
            [](int i) {
                stamp_ink(12, 10, i, 0x40c0f0, ramp());
                stamp_ink(1, 18, i, 0x40c0f0, ramp());
            },
            ink);
        const Bitmap by_pixel = picture_after(
            [](int i) {
                const TipCell tip = ramp();
                for (const auto& [x, y] : {std::pair{12, 10}, {1, 18}}) {
                    for (int r = 0; r < tip_cell_h; ++r) {
                        for (int c = 0; c < tip_cell_w; ++c)
                            apply_ink(x - 8 + c, y - 7 + r, i, 0x40c0f0, tip.line(r)[c]);
                    }
                }
            },
            ink);
        EXPECT_EQ(test::difference(stamped, by_pixel), "");
        const Bitmap spanned = picture_after(
            [](int i) {
                span_ink(-4, 13, 5, i, 0x40c0f0);
                span_ink(20, 99, 19, i, 0x40c0f0);
                span_ink(0, 23, -1, i, 0x40c0f0);
                span_ink(0, 23, 20, i, 0x40c0f0);
                span_ink(9, 8, 7, i, 0x40c0f0);
            },
            ink);
        const Bitmap dotted = picture_after(
            [](int i) {
                for (int x = -4; x <= 13; ++x)
                    apply_ink(x, 5, i, 0x40c0f0, 0);
                for (int x = 20; x <= 99; ++x)
                    apply_ink(x, 19, i, 0x40c0f0, 0);
            },
            ink);
        EXPECT_EQ(test::difference(spanned, dotted), "");
    }
}

TEST_F(InkLoopTest, InksLookAsTheyDid)
{
    // Each ink at three strengths, under a tip with every value and along a row.
    constexpr std::array strengths{1, 128, 255};
    const Bitmap sheet(5 * 24 * 3, 5 * 20);
    for (int ink = 0; ink < INK_COUNT; ++ink) {
        for (int i = 0; i < 3; ++i) {
            begin_scattered();
            set_option(ink, 0, strengths[static_cast<std::size_t>(i)]);
            stamp_ink(12, 10, ink, 0x40c0f0, ramp());
            span_ink(2, 21, 18, ink, 0x40c0f0);
            blit(store.frame_bitmap, sheet, 0, 0, (ink % 5 * 3 + i) * 24, ink / 5 * 20, 24, 20);
        }
    }
    EXPECT_TRUE(test::matches_golden(sheet, "inks"));
}

TEST_F(InkLoopTest, NumbersThatAreNoInkDoNothing)
{
    begin_scattered();
    const Bitmap before = store.frame_bitmap.copy();
    for (const int ink : {-1, int(INK_COUNT), 99}) {
        apply_ink(3, 3, ink, 0xffffff, 0);
        stamp_ink(3, 3, ink, 0xffffff, ramp());
        span_ink(0, 9, 3, ink, 0xffffff);
    }
    EXPECT_EQ(test::difference(store.frame_bitmap, before), "");
}

TEST_F(InkLoopTest, SpriteLeavesMagentaOutAndCarriesItsOwnColours)
{
    const test::Legend legend{{'.', 0x000000}, {'a', 0x101010}, {'b', 0x202020}, {'t', 0xff00ff}};
    const Bitmap picture = test::from_text({"ab", "tb"}, legend);
    toolbox.ink_slots[0] = INK_OPAQUE;
    begin(Bitmap(3, 3));
    ink_sprite(picture, -1, 0); // cut at the left
    ink_sprite(picture, 1, 1);
    ink_sprite(picture, 2, 2);
    ink_sprite(picture, 9, -9);
    EXPECT_EQ(test::to_text(store.frame_bitmap, legend), (std::vector<std::string>{"b..", "bab", "..a"}));
    toolbox.ink_slots[0] = INK_BRIGHT; // brightens by the picture's shape, whatever its colours
    set_option(INK_BRIGHT, 0, 255);
    begin(Bitmap(2, 2));
    ink_sprite(picture, 0, 0);
    EXPECT_EQ((std::array{frame(0, 0), frame(1, 0), frame(0, 1), frame(1, 1)}),
              (std::array{0xffffff, 0xffffff, 0x000000, 0xffffff}));
}

TEST_F(InkLoopTest, BelowShowsWhereTheFrameHasItsMaskColour)
{
    toolbox.mask_color = 0x808080;
    toolbox.ink_slots[0] = INK_OPAQUE;
    Bitmap picture(5, 1);
    constexpr std::array before{0x808080, 0x84807c, 0x858080, 0x80807b, 0x123456};
    std::copy(before.begin(), before.end(), row(picture, 0));
    begin(std::move(picture));
    ink_below(Bitmap(6, 2, 0x010203), 0, 0);
    EXPECT_EQ((std::array{frame(0, 0), frame(1, 0), frame(2, 0), frame(3, 0), frame(4, 0)}),
              (std::array{0x010203, 0x010203, 0x858080, 0x80807b, 0x123456}));
}

TEST_F(InkLoopTest, OptionsFromForeignFilesAreBroughtIntoRange)
{
    for (const int wild : {-2000000000, 2000000000}) {
        for (int ink = 0; ink < INK_COUNT; ++ink) {
            SCOPED_TRACE(ink);
            begin_scattered();
            for (int column = 0; column < option_columns; ++column)
                set_option(ink, column, wild);
            cel.cel_origin_x = cel.cel_origin_y = wild;
            toolbox.ink_derived[INK_L_GRAD] = {0, 1e30F, 1, 1};
            span_ink(0, 23, 10, ink, 0x40c0f0);
            for (int x = 0; x < 24; ++x)
                ASSERT_EQ(frame(x, 10) & ~0xffffff, 0);
        }
    }
}

} // namespace
} // namespace kelu
