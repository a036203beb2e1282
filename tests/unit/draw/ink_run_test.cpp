// SPDX-License-Identifier: MIT
// The loops that carry an ink over tips and spans do to whole pictures what its one-pixel form does, at all strengths.
#include "draw/cel.h"
#include "draw/cel_render.h"
#include "draw/gradient.h"
#include "draw/ink_rows.h"
#include "runtime/pixels.h"
#include "runtime/random.h"
#include "support/ink_test.h"
#include "support/pictures.h"
#include <algorithm>
#include <array>

namespace kelu {
namespace {

constexpr int w = 70, h = 34;

/// Greys, edges of the channels, flat areas and noise.
int scattered(int x, int y)
{
    if (y < 4) return pack_rgb(x * 3, x * 3, x * 3);
    if (y < 8) return x < 40 ? 0x406080 : 0xffffff;
    return rnd(8) == 0 ? pack_rgb(255, rnd(256), 0) : pack_rgb(rnd(256), rnd(256), rnd(256));
}

/// Each tip value from none to full, in no order.
TipCell scattered_tip()
{
    TipCell tip{};
    for (std::size_t i = 0; i < tip.values.size(); ++i)
        tip.values[i] = i % 7 == 0 ? 0 : static_cast<uint8_t>(i * 37 % 256);
    return tip;
}

class InkRunTest : public test::InkTest {
protected:
    static void begin_scattered()
    {
        seed_random(11);
        begin(test::paint(w, h, scattered));
        for (int y = 0; y < h; y += 3)
            row(store.coverage_bitmap, y)[y * 2] = 1 + y;
    }
    /// Spans of many lengths, and stamps over each other and over the edges.
    static void paint_all(int ink, int color, bool by_pixel)
    {
        const TipCell tip = scattered_tip();
        const auto span = [=](int left, int right, int y) {
            if (!by_pixel) return span_ink(left, right, y, ink, color);
            for (int x = left; x <= right; ++x)
                apply_ink(x, y, ink, color, 0);
        };
        const auto stamp = [&](int x, int y) {
            if (!by_pixel) return stamp_ink(x, y, ink, color, tip);
            for (int r = 0; r < tip_cell_h; ++r)
                for (int c = 0; c < tip_cell_w; ++c)
                    apply_ink(x - tip_center_x + c, y - tip_center_y + r, ink, color, tip.line(r)[c]);
        };
        begin_scattered();
        for (int y = 0; y < h / 2; ++y)
            span(y - 3, y < 9 ? w + 2 : 3 * y, y);
        for (int i = 0; i < 5; ++i)
            stamp(14 * i, h - 9 + 3 * i);
        stamp(40, 26);
    }
    static void expect_as_by_pixel(int ink, int color)
    {
        toolbox.brush_color = color;
        paint_all(ink, color, false);
        const Bitmap frame = store.frame_bitmap.copy();
        const Bitmap covered = store.coverage_bitmap.copy();
        paint_all(ink, color, true);
        ASSERT_EQ(test::difference(frame, store.frame_bitmap), "");
        ASSERT_EQ(test::difference(covered, store.coverage_bitmap), "");
    }
};

/// Inks whose runs have loops of their own; the others are walked pixel by pixel in any case.
constexpr std::array fast_inks{INK_OPAQUE, INK_ADD,    INK_SUB,  INK_BRIGHT, INK_DARK,
                               INK_GLASS,  INK_SOFTEN, INK_PULL, INK_SPARK};

TEST_F(InkRunTest, EveryInkIsAsByPixel)
{
    store.cel_source_bitmap = Bitmap(3, 2, 0x80a0c0);
    set_option(INK_GRAIN, 1, 50);
    set_option(INK_GLOW, 1, 3);
    for (int ink = 0; ink < INK_COUNT; ++ink) {
        const bool fast = std::ranges::find(fast_inks, ink) != fast_inks.end();
        const int step = ink == INK_ADD ? 1 : fast ? 5 : 125;
        for (int strength = fast ? 0 : 5; strength <= 255; strength += step) {
            SCOPED_TRACE(ink * 1000 + strength);
            set_option(ink, 0, strength);
            expect_as_by_pixel(ink, pack_rgb(strength * 7 & 255, 255 - strength, 0x33));
            if (HasFatalFailure()) return;
        }
    }
}

TEST_F(InkRunTest, LightIsAsByPixelAtAllRadii)
{
    for (int radius = 1; radius <= options::glow_radius.highest(); radius += radius < 8 ? 1 : 6) {
        for (const int strength : {0, 1, 37, 128, 254, 255}) {
            SCOPED_TRACE(radius * 1000 + strength);
            set_option(INK_GLOW, options::strength.column, strength);
            set_option(INK_GLOW, options::glow_radius.column, radius);
            expect_as_by_pixel(INK_GLOW, 0x0305ff);
            if (HasFatalFailure()) return;
        }
    }
}

TEST_F(InkRunTest, GradientsAreAsByPixel)
{
    spectrum.spectrum_start = 0x102040;
    spectrum.spectrum_end = 0xf0c000;
    for (const int banding : {1, 2, 7}) {
        for (const int repeat : {0, 1}) {
            for (const auto& [x, y] : {std::pair{60, 30}, {-20, 9}, {3, 300}, {5, 4}}) {
                SCOPED_TRACE(x);
                set_option(INK_L_GRAD, options::banding.column, banding);
                set_option(INK_L_GRAD, options::repeat.column, repeat);
                for (int column = GRADIENT_START_X; const int node : {5, 4, x, y})
                    set_option(INK_L_GRAD, column++, node);
                update_gradient_geometry();
                expect_as_by_pixel(INK_L_GRAD, 0);
                if (HasFatalFailure()) return;
            }
        }
    }
    toolbox.ink_derived[INK_L_GRAD][LINEAR_SIN] = 3; // no sine
    expect_as_by_pixel(INK_L_GRAD, 0);
}

/// The cel turned over as a whole and stretched by Allegro.
void stretch_plainly(BITMAP* target)
{
    const CelPlace& place = cel_work.cel_place;
    BITMAP* const picture = store.cel_bitmap;
    const Bitmap turned(picture->w, picture->h, mask_magenta);
    const bool mirrored = place.x2 < place.x;
    const bool flipped = place.y2 < place.y;
    for (int y = 0; y < picture->h; ++y) {
        for (int x = 0; x < picture->w; ++x)
            row(turned, y)[x] = row(picture, flipped ? picture->h - 1 - y : y)[mirrored ? picture->w - 1 - x : x];
    }
    const StretchBox box = stretch_box();
    if (box.w > 0 && box.h > 0) stretch_sprite(target, turned, box.x, box.y, box.w, box.h);
}

TEST_F(InkRunTest, AStretchedCelIsAsStretchedByAllegro)
{
    seed_random(5);
    for (int i = 0; i < 200; ++i) {
        SCOPED_TRACE(i);
        const int cel_w = 1 + rnd(60);
        const int cel_h = 1 + rnd(60);
        begin(Bitmap(w, h, 0x123456));
        store.cel_bitmap =
            test::paint(cel_w, cel_h, [](int, int) { return rnd(4) == 0 ? mask_magenta : rnd(0xffffff); });
        CelPlace& place = cel_work.cel_place;
        for (int* const corner : {&place.x, &place.y, &place.x2, &place.y2})
            *corner = rnd(260) - 100;
        const Bitmap expected = store.frame_bitmap.copy();
        stretch_plainly(expected);
        toolbox.ink_slots[toolbox.ink_slot] = INK_OPAQUE;
        screen_state.tool_overlay = Bitmap(320, 240);
        commit_cel(CEL_STRETCH);
        ASSERT_EQ(test::difference(expected, store.frame_bitmap), "");
    }
    cel_work = {};
}

} // namespace
} // namespace kelu
