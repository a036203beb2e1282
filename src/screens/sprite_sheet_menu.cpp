// SPDX-License-Identifier: MIT
// Six fields and three swatches. Their slots lie above those of the colour menu, which runs while they are hidden.
#include "screens/sprite_sheet_menu.h"

#include "gui/build.h"
#include "loop/freeze.h"
#include "loop/pass.h"
#include "screens/color_menu.h"
#include "workspace/sprite_sheet.h"
#include <array>
#include <string>

namespace kelu {
namespace {

enum { SLOT_FIRST = 75, SLOT_OKAY = 93, SLOT_CANCEL = 94, menu_slots = 99 };

constexpr int label_x = 2, label_w = 95;
constexpr int value_x = 98, value_w = 29;
constexpr int most = 256; ///< of every number

/// A label in `slot`, and behind it the field of a number of the sheet.
struct NumberRow {
    int slot, y, text;
    int least;
    int SpriteSheet::*number;
};
constexpr std::array number_rows{
    NumberRow{75, 12, TEXT_SPRITE_W, 1, &SpriteSheet::sprite_w},
    NumberRow{77, 22, TEXT_SPRITE_H, 1, &SpriteSheet::sprite_h},
    NumberRow{79, 37, TEXT_X_SPACING, 0, &SpriteSheet::spacing_x},
    NumberRow{81, 47, TEXT_Y_SPACING, 0, &SpriteSheet::spacing_y},
    NumberRow{83, 62, TEXT_TOTAL_ROWS, 1, &SpriteSheet::rows},
    NumberRow{85, 72, TEXT_TOTAL_COLUMNS, 1, &SpriteSheet::columns},
};

/// A label in `slot`, and behind it the swatch of a colour.
struct ColorRow {
    int slot, y, text, tooltip;
    int SpriteSheet::*color;
};
constexpr std::array color_rows{
    ColorRow{87, 87, TEXT_SPRITE_COLOR, TIP_SPRITE_COLOR, &SpriteSheet::sprite_color},
    ColorRow{89, 97, TEXT_SHEET_COLOR, TIP_SHEET_COLOR, &SpriteSheet::sheet_color},
    ColorRow{91, 107, TEXT_BORDER_COLOR, TIP_BORDER_COLOR, &SpriteSheet::border_color},
};

constexpr std::array layout_rows{
    title_row(2, 2, 125, TEXT_SHEET_TOOL),
    push_row(SLOT_OKAY, 2, 121, 59, TEXT_OKAY),
    push_row(SLOT_CANCEL, 68, 121, 59, TEXT_CANCEL),
};
constexpr MenuLayout layout{.menu_id = MENU_SHEET,
                            .row = WINDOW_SHEET,
                            .x = 70,
                            .y = 80,
                            .w = 128,
                            .h = 131,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

int value_slot(const auto& row) { return row.slot + 1; }

void build_sheet_menu(const SpriteSheet& sheet)
{
    const Origin at = build_screen(layout);
    for (const NumberRow& row : number_rows) {
        build_slot(caption_row(row.slot, label_x, row.y, label_w, row.text), at.x, at.y);
        const int field = build_slot(field_row(value_slot(row), value_x, row.y, value_w, 4, 4), at.x, at.y);
        set_field_text(field, std::to_string(sheet.*row.number).c_str());
    }
    for (const ColorRow& row : color_rows) {
        build_slot(caption_row(row.slot, label_x, row.y, label_w, row.text), at.x, at.y);
        const int swatch = build_slot(
            {value_slot(row), value_x, row.y, value_w, KIND_PANEL, TEXT_NONE, ACT_CLICK, ACT_RIGHT_CLICK, row.tooltip},
            at.x, at.y);
        gui.colour[swatch] = sheet.*row.color;
    }
}

void hide_own_slots(int hidden)
{
    for (int slot = SLOT_FIRST; slot < menu_slots; ++slot)
        gui.hidden[slot] = hidden;
}

/// Lets the colour menu edit a swatch. Window and title give way to it; the other slots keep what they hold.
void edit_color(int& color)
{
    const Origin at{gui.x[0], gui.y[0]};
    freeze_menu();
    hide_own_slots(1);
    gui_reset_slot(0);
    gui_reset_slot(1);
    color = color_menu(ColorTarget::VALUE, color);
    gui_clear_window();
    clear_ghost();
    menus.menu_id = MENU_SHEET;
    gui_window(at.x, at.y, layout.w, layout.h, menu_slots);
    build_slot(layout_rows[0], at.x, at.y);
    gui.label_row[1] = WINDOW_SHEET;
    hide_own_slots(0);
}

void read_colors(SpriteSheet& sheet)
{
    for (const ColorRow& row : color_rows) {
        if (gui.event[value_slot(row)].take() == 0) continue;
        edit_color(sheet.*row.color);
        gui.colour[value_slot(row)] = sheet.*row.color;
    }
}

/// Takes the fields into the sheet and marks those that are out of range. True when all are good.
bool read_numbers(SpriteSheet& sheet)
{
    bool good = true;
    for (const NumberRow& row : number_rows) {
        const int number = field_number(value_slot(row));
        const bool refused = number < row.least || number > most;
        gui.field_error[value_slot(row)] = refused ? 1 : 0;
        if (refused) good = false;
        sheet.*row.number = number;
    }
    return good;
}

} // namespace

void sprite_sheet_menu()
{
    SpriteSheet sheet{.sprite_color = fill_colour(FILL_HIGHLIGHT_FORE)};
    build_sheet_menu(sheet);
    gui_logic.gui_key_focus = -1;
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .quick_pan = true, .right_click = RightClick::HIDES};
    while (run_pass(pass)) {
        read_colors(sheet);
        const bool good = read_numbers(sheet);
        if (gui.event[SLOT_CANCEL].take() != 0) break;
        if (gui.event[SLOT_OKAY].take() != 0 && good && build_sprite_sheet(sheet)) break;
    }
    if (read_numbers(sheet)) sheet_settings = sheet;
    close_screen();
}

} // namespace kelu
