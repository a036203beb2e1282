// SPDX-License-Identifier: MIT
// Layout and contents of the macro screen.
#include "screens/macro_slots.h"

#include "gui/build.h"
#include <cstdlib>
#include <string>

namespace kelu {
namespace {

constexpr int no_tip = 10000; ///< tip number of a button that shows none

/// The four numbers of the grid, in the order of their fields.
constexpr std::array<int Macro::*, 4> grid_words{&Macro::grid_w, &Macro::grid_h, &Macro::grid_off_x,
                                                 &Macro::grid_off_y};

constexpr SlotRow mode_row(int mode, int x, int w, int text, int tooltip)
{
    return {MACRO_SLOT_GRID_MODE_0 + mode, x, 91, w, KIND_BUTTON, text, ACT_CLICK, ACT_NONE, tooltip};
}

constexpr std::array layout_rows{
    title_row(2, 2, 39, TEXT_MACRO),
    SlotRow{MACRO_SLOT_BRUSH_CAPTION, 2, 13, 119, KIND_BUTTON, TEXT_BRUSH_OPTIONS},
    SlotRow{MACRO_SLOT_INK_CAPTION, 2, 47, 119, KIND_BUTTON, TEXT_INK_OPTIONS},
    SlotRow{MACRO_SLOT_GRID_CAPTION, 2, 81, 119, KIND_BUTTON, TEXT_GRID_OPTIONS},
    mode_row(MACRO_GRID_ON, 2, 34, TEXT_ON, TIP_MACRO_GRID_ON),
    mode_row(MACRO_GRID_IGNORE, 37, 49, TEXT_IGNORE, TIP_MACRO_GRID_IGNORE),
    mode_row(MACRO_GRID_OFF, 87, 34, TEXT_OFF, TIP_MACRO_GRID_OFF),
    caption_row(MACRO_SLOT_FIELD_0 - 1, 2, 101, 77, TEXT_WIDTH),
    caption_row(MACRO_SLOT_FIELD_0 + 1, 2, 111, 77, TEXT_HEIGHT),
    caption_row(MACRO_SLOT_FIELD_0 + 3, 2, 121, 77, TEXT_X_OFF),
    caption_row(MACRO_SLOT_FIELD_0 + 5, 2, 131, 77, TEXT_Y_OFF),
    field_row(MACRO_SLOT_FIELD_0, 80, 101, 41, 4, 4),
    field_row(MACRO_SLOT_FIELD_0 + 2, 80, 111, 41, 4, 4),
    field_row(MACRO_SLOT_FIELD_0 + 4, 80, 121, 41, 4, 4),
    field_row(MACRO_SLOT_FIELD_0 + 6, 80, 131, 41, 4, 4),
    caption_row(MACRO_SLOT_OPACITY_CAPTION, 2, 141, 119, TEXT_OPACITY),
    slider_row(MACRO_SLOT_OPACITY, 2, 151, 119, 256),
    SlotRow{MACRO_SLOT_TIP_CAPTION, 2, 165, 97, KIND_BUTTON, TEXT_BRUSH_TIP},
    SlotRow{MACRO_SLOT_TIP, 100, 165, 21, KIND_TIP_BUTTON, TEXT_NONE, ACT_CLICK, ACT_RIGHT_CLICK, TIP_MACRO_TIP},
    push_row(MACRO_SLOT_OKAY, 2, 179, 54, TEXT_OKAY),
    push_row(MACRO_SLOT_CANCEL, 67, 179, 54, TEXT_CANCEL),
};
constexpr MenuLayout layout{.menu_id = MENU_MACRO,
                            .row = WINDOW_MACRO,
                            .x = 0,
                            .y = 207,
                            .w = 122,
                            .h = 189,
                            .slot_count = MACRO_SLOTS,
                            .slots = layout_rows};

int lit(bool on) { return on ? KIND_BUTTON_LIT : KIND_BUTTON; }

} // namespace

void show_macro_block(const MacroBlock& block, const Macro& record)
{
    for (int i = 0; i < macro_choices; ++i) {
        const int word = (record.*block.words)[i];
        gui.text_id[block.first_slot + i] = word == 0 ? int(TEXT_DOTS) : block.list.first_text + word;
        gui.kind[block.first_slot + i] = lit(i == record.*block.selected);
    }
}

void show_macro_grid_mode(const Macro& record)
{
    for (int mode = 0; mode < macro_grid_modes; ++mode)
        gui.kind[MACRO_SLOT_GRID_MODE_0 + mode] = lit(mode == record.grid_mode);
}

void show_macro_tip(const Macro& record)
{
    gui.list_items[MACRO_SLOT_TIP][0] = 1;
    gui.list_items[MACRO_SLOT_TIP][1] = record.brush_tip == -1 ? no_tip : record.brush_tip;
}

void build_macro_menu(int shown, const Macro& record)
{
    const Origin at = build_screen(layout);
    for (int i = 0; i < macro_count; ++i)
        build_slot({MACRO_SLOT_NUMBER_1 + i, 42 + 10 * i, 2, 9, lit(i == shown), TEXT_DIGIT_1 + i, ACT_CLICK, ACT_NONE,
                    TIP_MACRO_1 + i},
                   at.x, at.y);
    for (const MacroBlock& block : macro_blocks) {
        for (int i = 0; i < macro_choices; ++i)
            build_slot({block.first_slot + i, 2 + 40 * (i % 3), block.y + 10 * (i / 3), standard_button_w, KIND_BUTTON,
                        TEXT_DOTS, ACT_CLICK, ACT_RIGHT_CLICK, TIP_MACRO_SLOT},
                       at.x, at.y);
        show_macro_block(block, record);
    }
    for (std::size_t i = 0; i < grid_words.size(); ++i)
        set_field_text(MACRO_SLOT_FIELD_0 + 2 * static_cast<int>(i), std::to_string(record.*grid_words[i]).c_str());
    gui.scroll_value[MACRO_SLOT_OPACITY] = record.grid_opacity;
    gui.scroll_show[MACRO_SLOT_OPACITY] = &gui.scroll_value[MACRO_SLOT_OPACITY];
    show_macro_grid_mode(record);
    show_macro_tip(record);
}

void store_macro_fields(Macro& record)
{
    for (std::size_t i = 0; i < grid_words.size(); ++i) {
        const FieldText text = field_text_of(MACRO_SLOT_FIELD_0 + 2 * static_cast<int>(i));
        record.*grid_words[i] = static_cast<int>(std::strtol(text.data(), nullptr, 10));
    }
}

} // namespace kelu
