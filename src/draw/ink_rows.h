// SPDX-License-Identifier: MIT
// The inks: enumerator, class and row of each, in the order of the menus.
//
// The class is in the file of its family, with the instantiation of its loops.
#pragma once

#include "base/table.h"
#include "draw/draw_options.h"
#include "draw/tips.h"
#include "gui/choice_names.h"

namespace kelu {

enum InkId : int {
    INK_ADD,
    INK_BRIGHT,
    INK_CLOSE,
    INK_DARK,
    INK_EMBOSS,
    INK_GLASS,
    INK_GLOW,
    INK_GRAIN,
    INK_GRAY,
    INK_H_GRAD,
    INK_HOLLOW,
    INK_JUMBLE,
    INK_L_GRAD,
    INK_OPAQUE,
    INK_PULL,
    INK_R_GRAD,
    INK_SCRAPE,
    INK_SPARK,
    INK_SOFTEN,
    INK_SUB,
    INK_SWEEP,
    INK_TILE,
    INK_UNZAG,
    INK_V_GRAD,
    INK_XOR,
    INK_COUNT
};

/// Which pixels of a picture are pasted.
enum class SpriteRule {
    OVER, ///< all but magenta
    BELOW ///< all, where the frame's pixel is near the mask colour
};
constexpr int below_tolerance = 5; ///< differences of up to 4 in each channel are near

/// The loops of one ink, made from its class in the file of its family.
template <class Ink>
struct InkLoops {
    static void pixel(int x, int y, int color, int tip_value);
    static void stamp(int x, int y, int color, const TipCell& tip);
    static void span(int left, int right, int y, int color);
    static void sprite(BITMAP* picture, int x, int y, SpriteRule rule);
};

// The classes, whose loops are made in the files of their families alone.
extern template struct InkLoops<struct Add>;
extern template struct InkLoops<struct Bright>;
extern template struct InkLoops<struct Close>;
extern template struct InkLoops<struct Dark>;
extern template struct InkLoops<struct Emboss>;
extern template struct InkLoops<struct Glass>;
extern template struct InkLoops<struct Glow>;
extern template struct InkLoops<struct Grain>;
extern template struct InkLoops<struct Gray>;
extern template struct InkLoops<struct HGrad>;
extern template struct InkLoops<struct Hollow>;
extern template struct InkLoops<struct Jumble>;
extern template struct InkLoops<struct LGrad>;
extern template struct InkLoops<struct Opaque>;
extern template struct InkLoops<struct Pull>;
extern template struct InkLoops<struct RGrad>;
extern template struct InkLoops<struct Scrape>;
extern template struct InkLoops<struct Spark>;
extern template struct InkLoops<struct Soften>;
extern template struct InkLoops<struct Sub>;
extern template struct InkLoops<struct Sweep>;
extern template struct InkLoops<struct Tile>;
extern template struct InkLoops<struct Unzag>;
extern template struct InkLoops<struct VGrad>;
extern template struct InkLoops<struct Xor>;

/// One ink: what the menus show, and its loops.
struct InkRow : DrawChoice {
    int reach; ///< how far from the pixel under the brush it writes, in pixels
    void (*pixel)(int x, int y, int color, int tip_value);
    void (*stamp)(int x, int y, int color, const TipCell& tip);
    void (*span)(int left, int right, int y, int color);
    void (*sprite)(BITMAP* picture, int x, int y, SpriteRule rule);
};

template <class Ink>
constexpr InkRow ink_row(int id, std::span<const DrawOption> options, int reach = 0)
{
    return {{id, first_ink_name + id, ink_description_row + id, options},
            reach,
            &InkLoops<Ink>::pixel,
            &InkLoops<Ink>::stamp,
            &InkLoops<Ink>::span,
            &InkLoops<Ink>::sprite};
}

/// The rows, by InkId.
inline constexpr Table<InkRow, INK_COUNT> inks{
    ink_row<Add>(INK_ADD, option_lists::strength<128>),
    ink_row<Bright>(INK_BRIGHT, option_lists::strength<64>),
    ink_row<Close>(INK_CLOSE, option_lists::strength<5>),
    ink_row<Dark>(INK_DARK, option_lists::strength<64>),
    ink_row<Emboss>(INK_EMBOSS, option_lists::strength<128>),
    ink_row<Glass>(INK_GLASS, option_lists::strength<128>),
    ink_row<Glow>(INK_GLOW, option_lists::glow, options::glow_radius.highest()),
    ink_row<Grain>(INK_GRAIN, option_lists::grain),
    ink_row<Gray>(INK_GRAY, option_lists::strength<255>),
    ink_row<HGrad>(INK_H_GRAD, option_lists::gradient),
    ink_row<Hollow>(INK_HOLLOW, option_lists::ink_tolerance),
    ink_row<Jumble>(INK_JUMBLE, option_lists::jumble),
    ink_row<LGrad>(INK_L_GRAD, option_lists::gradient),
    ink_row<Opaque>(INK_OPAQUE, option_lists::none),
    ink_row<Pull>(INK_PULL, option_lists::strength<128>),
    ink_row<RGrad>(INK_R_GRAD, option_lists::gradient),
    ink_row<Scrape>(INK_SCRAPE, option_lists::strength<128>),
    ink_row<Spark>(INK_SPARK, option_lists::strength<64>),
    ink_row<Soften>(INK_SOFTEN, option_lists::strength<192>),
    ink_row<Sub>(INK_SUB, option_lists::strength<128>),
    ink_row<Sweep>(INK_SWEEP, option_lists::strength<32>),
    ink_row<Tile>(INK_TILE, option_lists::none),
    ink_row<Unzag>(INK_UNZAG, option_lists::unzag),
    ink_row<VGrad>(INK_V_GRAD, option_lists::gradient),
    ink_row<Xor>(INK_XOR, option_lists::none),
};

static_assert(in_order(inks), "a row of an ink is missing, or out of the order of InkId");
static_assert(std::size(ink_names) == INK_COUNT, "the name of an ink is missing");

} // namespace kelu
