// SPDX-License-Identifier: MIT
// The tags of a workspace's state: one row each, for reader, writer and test.
#include "base/run_state.h"
#include "draw/ink_rows.h"
#include "gui/menus.h"
#include "runtime/animation.h"
#include "runtime/browser_state.h"
#include "runtime/cel.h"
#include "runtime/color_band.h"
#include "runtime/color_settings.h"
#include "runtime/grid.h"
#include "runtime/preferences.h"
#include "runtime/shape_settings.h"
#include "runtime/store.h"
#include "runtime/text_settings.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "workspace/state.h"
#include <cstddef>

namespace kelu {
namespace {

constexpr int long_text = 256; ///< bytes of a text's field, with its terminator
constexpr int short_text = 128;
constexpr int written_constant = 16; ///< tag 31 has no meaning, but older readers want its record

constexpr Range tool_range{TOOL_BOX, TOOL_COUNT - 1};
constexpr Range ink_range{0, INK_COUNT - 1};
constexpr Range slot_range{0, 5};
constexpr Range frame_range{0, max_frames - 1};
constexpr Range frame_pixel_range{-max_bitmap_side, max_bitmap_side};
constexpr Range zoom_range{1, max_zoom};
constexpr Range grid_pitch_range{2, 999};
constexpr Range grid_offset_range{0, 998};
constexpr Range window_range{-1, logical_w - 1};
constexpr Range percent_range{0, 100};

constexpr Range degrees_range{0, 359};
constexpr Range exponent_range{-3000, 3000};
constexpr Range supershape_ranges[] = {degrees_range, {0, 3000}, exponent_range, exponent_range, {0, 20}, {0, 500}};
constexpr Range spiral_ranges[] = {degrees_range, {0, 500}, {0, 64}, level_range, flag_range};
constexpr Range rpoly_ranges[] = {degrees_range, {0, 500}, {0, 32}};
constexpr Range shift_range{-128, 128};
constexpr Range tint_ranges[] = {shift_range, shift_range, shift_range, flag_range};

/// The words of a record, in the order of its file.
constexpr SupershapeSettings& supershape = shape_settings.supershape_settings;
constexpr int* supershape_words[] = {&supershape.degrees, &supershape.n1,   &supershape.n2,
                                     &supershape.n3,      &supershape.arms, &supershape.magnitude};
constexpr SpiralSettings& spiral = shape_settings.spiral_settings;
constexpr int* spiral_words[] = {&spiral.angle, &spiral.scale, &spiral.wraps, &spiral.spread, &spiral.flip};
constexpr RpolySettings& rpoly = shape_settings.rpoly_settings;
constexpr int* rpoly_words[] = {&rpoly.angle, &rpoly.radius, &rpoly.sides};
constexpr int* tint_words[] = {&color_settings.tint_values[0], &color_settings.tint_values[1],
                               &color_settings.tint_values[2], &color_settings.tint_ignore_mask};

/// Only the favourites of the drawing menu are kept.
constexpr int stored_favorites = 10;
constexpr Field favorites_field(toolbox.favorites[0], stored_favorites, sizeof toolbox.favorites[0]);
constexpr Field window_x(menus.window_pos[0].x, WINDOW_ROWS, sizeof(WindowPos));
constexpr Field window_y(menus.window_pos[0].y, WINDOW_ROWS, sizeof(WindowPos));

constexpr Range animation_ranges[] = {flag_range, percent_range};

constexpr TagRow rows[] = {
    {1, tool_range, toolbox.tool_slots},
    {2, ink_range, toolbox.ink_slots},
    {3, slot_range, toolbox.tool_slot},
    {4, slot_range, toolbox.ink_slot},
    {5, {0, COLORSPACE_COUNT - 1}, color_settings.colorspace},
    {6, any_word, store.spa_flag},
    {7, zoom_range, view.zoom},
    {8, frame_range, store.current_frame},
    {9, {1, max_frames}, store.frame_count},
    {10, {0, 350}, text_settings.text_size},
    {11, {0, 13}, color_settings.favorites_scroll},
    {12, {0, 3}, spectrum.spectrum_fold},
    {13, flag_range, preferences.cel_masking},
    {14, {0, custom_tip}, toolbox.brush_tip},
    {.tag = 15, .a = supershape_words, .ranges = supershape_ranges},
    {.tag = 16, .a = spiral_words, .ranges = spiral_ranges},
    {.tag = 17, .a = rpoly_words, .ranges = rpoly_ranges},
    {18, color_range, favorites_field},
    {19, color_range, toolbox.extended_favorites},
    {20, any_word, store.alpha_edit_mode},
    {21, flag_range, view.onion_on},
    {22, level_range, view.onion_opacity},
    {23, grid_pitch_range, grid.grid_w},
    {24, grid_pitch_range, grid.grid_h},
    {25, grid_offset_range, grid.grid_off_x},
    {26, grid_offset_range, grid.grid_off_y},
    {27, level_range, grid.grid_opacity},
    {28, flag_range, grid.grid_on},
    {29, {0, 2}, preferences.cursor_tip},
    {30, {0, 32}, text_settings.text_gap},
    {31, any_word, Field::constant(written_constant)},
    {32, {0, 360}, cel.cel_rotation},
    {33, percent_range, browser_state.jpg_quality},
    {34, frame_pixel_range, cel.cel_origin_x, cel.cel_origin_y},
    {35, frame_pixel_range, view.pan_x, view.pan_y},
    {36, color_range, spectrum.spectrum_start, spectrum.spectrum_end},
    {37, color_range, toolbox.brush_color},
    {38, color_range, toolbox.mask_color},
    {39, zoom_range, view.frame_zoom},
    {40, frame_pixel_range, toolbox.tool_table, toolbox.ink_table, 2 * option_columns},
    {41, window_range, window_x, window_y, 2},
    {.tag = 42}, // accepted and passed over
    {43, frame_pixel_range, view.frame_pan_x, view.frame_pan_y, 2},
    {.tag = 44, .a = animation.anim_tag, .b = animation.anim_delay, .unit = 2, .ranges = animation_ranges},
    {45, {-10, 10}, animation.anim_speed},
    {.tag = 46, .text = &store.workspace_title, .text_room = long_text},
    {.tag = 47, .text = &store.workspace_notes, .text_room = long_text},
    {.tag = 48, .text = &browser_state.browser_dir, .text_room = long_text},
    {.tag = 49, .text = &browser_state.browser_file, .text_room = short_text},
    {.tag = 50, .text = &text_settings.text_string, .text_room = long_text},
    {.tag = 51, .text = &browser_state.home_image_dir, .text_room = long_text},
    {.tag = 52, .text = &browser_state.home_font_dir, .text_room = long_text},
    {.tag = 53, .text = &text_settings.font_file, .text_room = short_text},
    {.tag = 54, .text = &text_settings.font_dir, .text_room = long_text},
    {.tag = 60, .a = tint_words, .ranges = tint_ranges},
};

} // namespace

std::span<const TagRow> state_tags() { return rows; }

} // namespace kelu
