// The table of inks and the calls that look an ink up once and run one of its loops.
#include "draw/inks.h"

#include "draw/ink.h"
#include "draw/ink_classes.h"
#include "draw/undo.h"
#include "runtime/store.h"
#include <iterator>

namespace kelu {
namespace {

template <class Ink>
constexpr InkRow ink_row(int id, InkOptions options, std::array<int, 2> initial = {})
{
    return {id,
            options,
            initial,
            &InkLoops<Ink>::pixel,
            &InkLoops<Ink>::stamp,
            &InkLoops<Ink>::span,
            &InkLoops<Ink>::sprite};
}

constexpr InkRow inks[] = {
    ink_row<Add>(INK_ADD, InkOptions::STRENGTH, {128}),
    ink_row<Bright>(INK_BRIGHT, InkOptions::STRENGTH, {64}),
    ink_row<Close>(INK_CLOSE, InkOptions::STRENGTH, {5}),
    ink_row<Dark>(INK_DARK, InkOptions::STRENGTH, {64}),
    ink_row<Emboss>(INK_EMBOSS, InkOptions::STRENGTH, {128}),
    ink_row<Glass>(INK_GLASS, InkOptions::STRENGTH, {128}),
    ink_row<Glow>(INK_GLOW, InkOptions::STRENGTH_RADIUS, {32, 8}),
    ink_row<Grain>(INK_GRAIN, InkOptions::STRENGTH_FREQUENCY, {128, 50}),
    ink_row<Gray>(INK_GRAY, InkOptions::STRENGTH, {255}),
    ink_row<HGrad>(INK_H_GRAD, InkOptions::GRADIENT),
    ink_row<Hollow>(INK_HOLLOW, InkOptions::TOLERANCE, {5}),
    ink_row<Jumble>(INK_JUMBLE, InkOptions::DISTANCE, {3}),
    ink_row<LGrad>(INK_L_GRAD, InkOptions::GRADIENT),
    ink_row<Opaque>(INK_OPAQUE, InkOptions::NONE),
    ink_row<Pull>(INK_PULL, InkOptions::STRENGTH, {128}),
    ink_row<RGrad>(INK_R_GRAD, InkOptions::GRADIENT),
    ink_row<Scrape>(INK_SCRAPE, InkOptions::STRENGTH, {128}),
    ink_row<Spark>(INK_SPARK, InkOptions::STRENGTH, {64}),
    ink_row<Soften>(INK_SOFTEN, InkOptions::STRENGTH, {192}),
    ink_row<Sub>(INK_SUB, InkOptions::STRENGTH, {128}),
    ink_row<Sweep>(INK_SWEEP, InkOptions::STRENGTH, {32}),
    ink_row<Tile>(INK_TILE, InkOptions::NONE),
    ink_row<Unzag>(INK_UNZAG, InkOptions::PERCENT, {100}),
    ink_row<VGrad>(INK_V_GRAD, InkOptions::GRADIENT),
    ink_row<Xor>(INK_XOR, InkOptions::NONE),
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
    for (const InkRow& ink : inks) {
        auto& cells = toolbox.ink_table[static_cast<std::size_t>(ink.id)];
        for (std::size_t column = 0; column < ink.initial.size(); ++column)
            cells[column] = ink.initial[column];
    }
}

} // namespace kelu
