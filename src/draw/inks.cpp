// The calls that look an ink up once and run one of its loops.
#include "draw/inks.h"

#include "draw/ink.h"
#include "draw/tool_options.h"
#include "draw/undo.h"
#include "runtime/store.h"

namespace kelu {
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
