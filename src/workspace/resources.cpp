// SPDX-License-Identifier: MIT
// The fixed pictures of the program, and what is made from them at start.
#include "workspace/resources.h"

#include "base/log.h"
#include "base/run_state.h"
#include "framework/resource_files.h"
#include "gui/text.h"
#include "gui/text_colours.h"
#include "imagefile/png.h"
#include "platform/files.h"
#include "runtime/failure.h"
#include "runtime/fonts.h"
#include "runtime/pixels.h"
#include "runtime/sheets.h"
#include "runtime/store.h"
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <string>

namespace kelu {
namespace {

constexpr const char* resource_folder = "resource";
constexpr const char* app_sheet_file = "K_HD_1X.RES";
constexpr const char* tips_file = "brushie.PNG";

constexpr int emblem_x = 70, emblem_side = 33, emblem_factor = 6;
constexpr int tip_sheet_w = 206, tip_sheet_h = 62;
constexpr int tip_rows_h = 48; ///< pixel rows of the tip sheet that come from the file; the custom tip has the rest

constexpr std::size_t object_row_head = 5; ///< words of a library row before its pairs; the last is the count

constexpr int hatch_pitch = 8, hatch_width = 4; ///< of the white bands, in pixels down a column
constexpr int checker_side = 16;                ///< of a backdrop square, in pixels

/// The two colours of each backdrop tile.
constexpr int backdrop_colors[3][2] = {
    {pack_rgb(152, 150, 109), pack_rgb(135, 133, 96)},
    {pack_rgb(84, 98, 143), pack_rgb(76, 85, 115)},
    {pack_rgb(110, 97, 83), pack_rgb(94, 82, 70)},
};

[[noreturn]] void stop_for(const char* name)
{
    log_line("ERROR: Failed to find a resource file. File = %s", name);
    fatal_stop(fatal_text::resource_missing);
}

/// The picture, without which the program can't run.
Bitmap needed(Bitmap picture, const char* name)
{
    if (!picture) stop_for(name);
    return picture;
}

Bitmap make_hatch_tile()
{
    Bitmap tile(tile_side, tile_side);
    for (int y = 0; y < tile_side; ++y)
        for (int x = 0; x < tile_side; ++x)
            if ((x + y + 1) % hatch_pitch < hatch_width) row(tile, y)[x] = pack_rgb(255, 255, 255);
    return tile;
}

Bitmap make_backdrop_tiles()
{
    Bitmap tiles(3 * tile_side, tile_side);
    for (int y = 0; y < tile_side; ++y)
        for (int x = 0; x < 3 * tile_side; ++x)
            row(tiles, y)[x] = backdrop_colors[x / tile_side][(x / checker_side + y / checker_side) % 2];
    return tiles;
}

Bitmap enlarge_emblem(BITMAP* logo)
{
    constexpr int side = emblem_side * emblem_factor;
    Bitmap picture(side, side, mask_magenta);
    stretch_blit(logo, picture, emblem_x, 0, emblem_side, emblem_side, 0, 0, side, side);
    return picture;
}

Bitmap make_tip_sheet(BITMAP* tips)
{
    Bitmap sheet(tip_sheet_w, tip_sheet_h, mask_magenta);
    blit(tips, sheet, 0, 0, 0, 0, tip_sheet_w, tip_rows_h);
    return sheet;
}

void load_font_resource(FontSlot slot, const char* name)
{
    const Bitmap picture = load_resource_bitmap(name);
    BITMAP* const pictures[] = {picture};
    if (!load_font(slot, pictures)) stop_for(name);
}

/// Whole numbers of a text file, one a line; what follows the number on its line is passed over.
class NumberLines {
public:
    explicit NumberLines(std::span<const uint8_t> bytes) : text_(bytes.begin(), bytes.end()) {}
    bool more() const { return at_ < text_.size(); }
    /// The number at the head of the next line, held to 32 bits; 0 when the line has none.
    int next()
    {
        if (!more()) return 0;
        const std::size_t end = std::min(text_.find('\n', at_), text_.size());
        const long number = std::strtol(text_.substr(at_, end - at_).c_str(), nullptr, 10);
        at_ = end + 1;
        return static_cast<int>(std::clamp<long>(number, INT_MIN, INT_MAX));
    }

private:
    std::string text_;
    std::size_t at_ = 0;
};

} // namespace

void load_object_library()
{
    constexpr std::size_t max_library_file = 4u << 20;
    std::vector<uint8_t> bytes;
    if (!platform::read_file("obj_lib.def", max_library_file, bytes)) bytes.clear();
    read_object_library(bytes);
}

void read_object_library(std::span<const uint8_t> bytes)
{
    object_library = {};
    NumberLines numbers(bytes);
    for (auto& record : object_library.rows) {
        if (!numbers.more()) return;
        for (std::size_t word = 0; word < object_row_head; ++word)
            record[word] = numbers.next();
        // Pairs beyond the row are read over, so that the next record is found.
        const long words = 2L * record[object_row_head - 1];
        for (long word = 0; word < words && numbers.more(); ++word) {
            const int number = numbers.next();
            if (word < 2 * object_row_pairs) record[object_row_head + word] = number;
        }
        record[object_row_head - 1] = std::clamp(record[object_row_head - 1], 0, object_row_pairs);
    }
}

void copy_object_record(int slot, int row)
{
    if (slot < 0 || slot >= max_actors || row < 0 || row >= object_library_rows) {
        log_line("[ ERROR ] : OOB in call to copy_object_record. slot = %d, row = %d", slot, row);
        return;
    }
    const auto& record = object_library.rows[row];
    actor_outlines.pair_count[slot] = record[object_row_head - 1];
    std::copy_n(record.begin() + object_row_head, 2 * object_row_pairs, actor_outlines.pairs[slot].begin());
}

void make_pattern_tiles()
{
    sheets.hatch_tile = make_hatch_tile();
    sheets.backdrop_tiles = make_backdrop_tiles();
}

void load_application_resources()
{
    const platform::DirectoryVisit visit(delivered_folder(resource_folder));
    sheets.app_sheet = needed(load_png(app_sheet_file), app_sheet_file);
    sheets.enlarged_picture = enlarge_emblem(sheets.app_sheet);
    make_pattern_tiles();
    store.tip_sheet = make_tip_sheet(needed(load_png(tips_file), tips_file));
}

void load_framework_video()
{
    const platform::DirectoryVisit visit(delivered_folder(resource_folder));
    sheets.gui_sheet = load_resource_bitmap("FW_GUI");
    mask_black(sheets.gui_sheet);
    load_resource_bitmap("PALETTE"); // for its palette alone
    set_palette(framework_palette);
    init_text_colours();
    load_font_resource(FONT_NARROW, "FW_FONT_04");
    load_font_resource(FONT_WIDE, "FW_FONT_05");
}

} // namespace kelu
