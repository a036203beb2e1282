// SPDX-License-Identifier: MIT
// The calls that look an ink up once and run one of its loops.
#include "draw/inks.h"

#include "draw/ink.h"
#include "draw/tips.h"
#include "draw/tool_options.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "runtime/store.h"

namespace kelu {
namespace {

/// The pixels that an ink writes when it is brought from (left, top) to (right, bottom).
void touch(const InkRow& ink, int left, int top, int right, int bottom)
{
    touch_area(left - ink.reach, top - ink.reach, right + ink.reach, bottom + ink.reach);
}

void touch_picture(const InkRow& ink, BITMAP* picture, int x, int y)
{
    touch(ink, x, y, x + picture->w - 1, y + picture->h - 1);
}

} // namespace

Canvas Canvas::present() { return {store.frame_bitmap, store.coverage_bitmap, stroke_source()}; }

const InkRow* find_ink(int ink) { return ink >= 0 && ink < INK_COUNT ? &inks[ink] : nullptr; }

void apply_ink(int x, int y, int ink, int color, int tip_value)
{
    const InkRow* found = find_ink(ink);
    if (!found) return;
    found->pixel(x, y, color, tip_value);
    touch(*found, x, y, x, y);
}

void stamp_ink(int x, int y, int ink, int color, const TipCell& tip)
{
    const InkRow* found = find_ink(ink);
    if (!found) return;
    found->stamp(x, y, color, tip);
    const int left = x - tip_center_x, top = y - tip_center_y;
    touch(*found, left, top, left + tip_cell_w - 1, top + tip_cell_h - 1);
}

void span_ink(int left, int right, int y, int ink, int color)
{
    const InkRow* found = find_ink(ink);
    if (!found) return;
    found->span(left, right, y, color);
    touch(*found, left, y, right, y);
}

void ink_sprite(BITMAP* picture, int x, int y)
{
    const InkRow* found = find_ink(current_ink());
    if (!found) return;
    found->sprite(picture, x, y, SpriteRule::OVER);
    touch_picture(*found, picture, x, y);
}

void ink_below(BITMAP* picture, int x, int y)
{
    const InkRow* found = find_ink(current_ink());
    if (!found) return;
    found->sprite(picture, x, y, SpriteRule::BELOW);
    touch_picture(*found, picture, x, y);
}

void set_initial_ink_options()
{
    for (const InkRow& ink : inks)
        set_initial_options(toolbox.ink_table, ink);
}

} // namespace kelu
