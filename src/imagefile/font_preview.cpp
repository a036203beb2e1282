// SPDX-License-Identifier: MIT
// The sample is drawn with room on all sides, and what it uses is cut out.
#include "imagefile/font_preview.h"

#include "base/run_state.h"
#include "imagefile/vector_font.h"
#include "platform/files.h"
#include "runtime/pixels.h"

namespace kelu {
namespace {

constexpr const char* sample = "A";
constexpr int sample_y = 20;
constexpr int sample_size = 75, sample_spacing = 5;
constexpr int hidden_rows = 10; ///< at the preview's foot, below the font browser's buttons

} // namespace

void draw_font_sample(BITMAP* preview, VectorFont& font)
{
    font_set_up(font, sample_spacing, sample_size);
    const int ground = fixed_colours.menu_grey;
    clear_to_color(preview, ground);
    const Bitmap room(2 * preview->w, 2 * preview->h);
    if (!room) return;
    font_draw_sample(room, font, sample, preview->w / 2, sample_y, fixed_colours.black, ground);
    const UsedBox box = used_box(room, ground);
    blit(room, preview, box.x, box.y, (preview->w - box.w) / 2, (preview->h - hidden_rows - box.h) / 2, box.w, box.h);
}

void update_font_preview(const std::string& name)
{
    open_fonts.preview_font.reset();
    FontOwner font = font_load(platform::resolve_path(name));
    if (!font) return;
    draw_font_sample(screen_state.preview_bitmap, *font);
    open_fonts.preview_font = std::move(font);
}

} // namespace kelu
