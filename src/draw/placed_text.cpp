// SPDX-License-Identifier: MIT
// Every pixel of the text's picture is a strength: the mix of what lies below and the brush colour.
#include "draw/placed_text.h"

#include "base/function_ref.h"
#include "base/log.h"
#include "draw/inks.h"
#include "draw/tool_input.h"
#include "draw/undo.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int white = 0xffffff;

/// A side with room to grow.
int roomy(int side) { return std::min(side + side / 4, max_bitmap_side); }

/// A black picture for a text of w x h pixels. Fresh memory costs more than all drawing in it, so the old is used
/// again while it is large enough.
Bitmap picture_for(int w, int h)
{
    const int whole = w + 2 * text_margin;
    if (whole > max_bitmap_side) log_line("[ WARNING ] : Text is too wide and loses its end. Width = %d", w);
    w = std::min(whole, max_bitmap_side);
    h = std::min(h + 2 * text_margin, max_bitmap_side);
    Bitmap& memory = placed_text.text_memory;
    if (w > memory.width() || h > memory.height()) {
        placed_text.text_bitmap.reset();
        memory = Bitmap(roomy(w), roomy(h));
        if (!memory) return {};
    }
    Bitmap part(create_sub_bitmap(memory, 0, 0, w, h));
    if (part) clear_bitmap(part);
    return part;
}

/// Visits the frame pixels that the text colours and that lie in the rectangle, with the mixed colour of each.
void visit_text(int left, int top, int w, int h, FunctionRef<void(int x, int y, int color)> visit)
{
    BITMAP* const text = placed_text.text_bitmap;
    BITMAP* const frame = store.frame_bitmap;
    const Point corner = tool_input.tool_nodes[0];
    const int first_x = std::max({left, 0, corner.x});
    const int end_x = std::min({left + w, frame->w, corner.x + text->w});
    const int end_y = std::min({top + h, frame->h, corner.y + text->h});
    for (int y = std::max({top, 0, corner.y}); y < end_y; ++y) {
        const int* strengths = row(text, y - corner.y);
        for (int x = first_x; x < end_x; ++x) {
            const int strength = strengths[x - corner.x];
            if (strength != 0) visit(x, y, mix_colors(row(frame, y)[x], toolbox.brush_color, red_of(strength)));
        }
    }
}

} // namespace

void render_placed_text(VectorFont& font, const char* text, bool soft)
{
    Bitmap picture = picture_for(font_text_length(font, text), font_text_height(font));
    if (!picture) {
        placed_text.text_bitmap = Bitmap(1, 1);
        log_line("[ ERROR ] : Not enough memory for the text");
        return;
    }
    const auto draw = soft ? font_draw_text : font_draw_text_plain;
    draw(picture, font, text, text_margin, text_margin, white);
    const UsedBox box = used_box(picture, 0);
    if (box.w > 1 && box.h > 1) placed_text.text_box = {box.x, box.y, box.x + box.w - 1, box.y + box.h - 1};
    placed_text.text_bitmap = std::move(picture);
}

bool placed_text_holds(Point frame_pixel)
{
    const Point corner = tool_input.tool_nodes[0];
    return placed_text.text_box.holds(frame_pixel.x - corner.x, frame_pixel.y - corner.y);
}

void draw_placed_text(BITMAP* overlay, Point origin)
{
    visit_text(origin.x, origin.y, overlay->w, overlay->h,
               [&](int x, int y, int color) { row(overlay, y - origin.y)[x - origin.x] = color; });
}

void ink_placed_text()
{
    const UndoableOperation step;
    const int ink = current_ink();
    visit_text(0, 0, store.frame_bitmap.width(), store.frame_bitmap.height(),
               [&](int x, int y, int color) { apply_ink(x, y, ink, color, 0); });
}

} // namespace kelu
