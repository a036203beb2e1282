// SPDX-License-Identifier: MIT
// The sheet of thumbnails.
#include "workspace/thumbnails.h"

#include "gui/strings.h"
#include "imagefile/bmp.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "workspace/folder.h"
#include "workspace/merged.h"

namespace kelu {
namespace {

constexpr int stretched_side = 160; // a frame smaller than a cell is stretched to this before it is shrunk

} // namespace

void draw_nail(int frame) { draw_nail(frame, color_picture()); }

void draw_nail(int frame, BITMAP* picture)
{
    BITMAP* source = picture;
    if (!source || !store.nail_sheet) return;
    Bitmap stretched;
    if (source->w < nail_side || source->h < nail_side) {
        stretched = Bitmap(stretched_side, stretched_side);
        if (!stretched) return;
        stretch_blit(source, stretched, 0, 0, source->w, source->h, 0, 0, stretched_side, stretched_side);
        source = stretched;
    }
    downscale_bitmap(source, store.nail_sheet, nail_x(frame), nail_y(frame), nail_side, nail_side);
}

void clear_nail(int frame)
{
    rectfill(store.nail_sheet, nail_x(frame), nail_y(frame), nail_x(frame) + nail_side - 1,
             nail_y(frame) + nail_side - 1, 0);
}

void move_nail(int from, int to)
{
    blit(store.nail_sheet, store.nail_sheet, nail_x(from), nail_y(from), nail_x(to), nail_y(to), nail_side, nail_side);
}

bool save_nails()
{
    const std::string name = set_file("nal");
    if (make_way(name) && write_bmp(name, store.nail_sheet)) return true;
    report_unwritten(name, TEXT_WORKSPACE_NOT_WRITTEN);
    return false;
}

void update_frame_nail(int save)
{
    draw_nail(store.current_frame);
    if (save != 0) save_nails();
}

} // namespace kelu
