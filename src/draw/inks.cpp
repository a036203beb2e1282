// The table of inks and the calls that look an ink up once and run one of its loops.
#include "draw/inks.h"

#include "draw/ink.h"
#include "draw/ink_classes.h"
#include "draw/tool_options.h"
#include "draw/undo.h"
#include "runtime/store.h"
#include <iterator>

namespace kelu {
namespace {

template <class Ink>
constexpr InkRow ink_row(int id, std::span<const DrawOption> options)
{
    return {{id, first_ink_name + id, ink_description_row + id, options},
            &InkLoops<Ink>::pixel,
            &InkLoops<Ink>::stamp,
            &InkLoops<Ink>::span,
            &InkLoops<Ink>::sprite};
}

using namespace option_lists;

constexpr InkRow inks[] = {
    ink_row<Add>(INK_ADD, strength<128>),
    ink_row<Bright>(INK_BRIGHT, strength<64>),
    ink_row<Close>(INK_CLOSE, strength<5>),
    ink_row<Dark>(INK_DARK, strength<64>),
    ink_row<Emboss>(INK_EMBOSS, strength<128>),
    ink_row<Glass>(INK_GLASS, strength<128>),
    ink_row<Glow>(INK_GLOW, glow),
    ink_row<Grain>(INK_GRAIN, grain),
    ink_row<Gray>(INK_GRAY, strength<255>),
    ink_row<HGrad>(INK_H_GRAD, gradient),
    ink_row<Hollow>(INK_HOLLOW, ink_tolerance),
    ink_row<Jumble>(INK_JUMBLE, jumble),
    ink_row<LGrad>(INK_L_GRAD, gradient),
    ink_row<Opaque>(INK_OPAQUE, none),
    ink_row<Pull>(INK_PULL, strength<128>),
    ink_row<RGrad>(INK_R_GRAD, gradient),
    ink_row<Scrape>(INK_SCRAPE, strength<128>),
    ink_row<Spark>(INK_SPARK, strength<64>),
    ink_row<Soften>(INK_SOFTEN, strength<192>),
    ink_row<Sub>(INK_SUB, strength<128>),
    ink_row<Sweep>(INK_SWEEP, strength<32>),
    ink_row<Tile>(INK_TILE, none),
    ink_row<Unzag>(INK_UNZAG, unzag),
    ink_row<VGrad>(INK_V_GRAD, gradient),
    ink_row<Xor>(INK_XOR, none),
};

constexpr bool rows_in_order()
{
    for (int i = 0; i < INK_COUNT; ++i) {
        if (inks[i].id != i) return false;
    }
    return true;
}
static_assert(std::size(inks) == INK_COUNT && rows_in_order());

} // namespace

Canvas Canvas::present() { return {store.frame_bitmap, store.coverage_bitmap, stroke_source()}; }

const InkRow* find_ink(int ink) { return ink >= 0 && ink < INK_COUNT ? &inks[ink] : nullptr; }

void apply_ink(int x, int y, int ink, int color, int tip_value)
{
    if (const InkRow* found = find_ink(ink)) found->pixel(x, y, color, tip_value);
}

void stamp_ink(int x, int y, int ink, int color, const TipCell& tip)
{
    if (const InkRow* found = find_ink(ink)) found->stamp(x, y, color, tip);
}

void span_ink(int left, int right, int y, int ink, int color)
{
    if (const InkRow* found = find_ink(ink)) found->span(left, right, y, color);
}

void ink_sprite(BITMAP* picture, int x, int y)
{
    if (const InkRow* found = find_ink(current_ink())) found->sprite(picture, x, y, SpriteRule::OVER);
}

void ink_below(BITMAP* picture, int x, int y)
{
    if (const InkRow* found = find_ink(current_ink())) found->sprite(picture, x, y, SpriteRule::BELOW);
}

void set_initial_ink_options()
{
    for (const InkRow& ink : inks)
        set_initial_options(toolbox.ink_table, ink);
}

} // namespace kelu
