// SPDX-License-Identifier: MIT
// The palette, its scrolling, its files and its clearing; the rest is the colour editor's.
#include "screens/favorites_menu.h"

#include "gui/scheme.h"
#include "loop/actions.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "runtime/color_settings.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/toolbox.h"
#include "screens/color_editor.h"
#include "screens/dialogs.h"
#include "screens/dispatch.h"
#include "screens/draw_menu.h"
#include "screens/file_browser.h"

namespace kelu {
namespace {

constexpr int cells_per_row = 13;
constexpr int cell_rows = 6;
constexpr int scroll_positions = 14;
constexpr int no_number = 1000; ///< the number's slot is blank from here on

enum {
    SLOT_SAVE = 2,
    SLOT_LOAD = 3,
    SLOT_NUKE = 4,
    SLOT_NUMBER = 5,
    SLOT_PANEL = EDITOR_END,
    SLOT_CELL_0,
    SLOT_CELL_END = SLOT_CELL_0 + cells_per_row * cell_rows,
    SLOT_MAP = SLOT_CELL_END,
    menu_slots
};

constexpr std::array own_rows{
    title_row(2, 2, 79, TEXT_FAVORITES),
    push_row(SLOT_SAVE, 2, 12, standard_button_w, TEXT_SAVE, TIP_SAVE_FAVORITES),
    push_row(SLOT_LOAD, 42, 12, standard_button_w, TEXT_LOAD, TIP_LOAD_FAVORITES),
    push_row(SLOT_NUKE, 2, 22, standard_button_w, TEXT_NUKE, TIP_CLEAR_FAVORITES),
    SlotRow{SLOT_NUMBER, 42, 22, standard_button_w, KIND_NUMBER},
    SlotRow{SLOT_PANEL, 2, 31, 155, KIND_HIT}.high(61).with(
        ScrollBar{.steps = scroll_positions, .wheel = 2, .dx = 146}),
};
constexpr MenuLayout layout{.menu_id = MENU_FAVORITES,
                            .row = WINDOW_FAVORITES,
                            .x = 0,
                            .y = 147,
                            .w = 319,
                            .h = 92,
                            .slot_count = menu_slots,
                            .slots = own_rows};

/// Number of the palette's colour that a cell shows.
int palette_index(int slot) { return slot - SLOT_CELL_0 + cells_per_row * gui.scroll_value[SLOT_PANEL]; }

Shared<int>& palette_entry(int slot) { return toolbox.extended_favorites[palette_index(slot)]; }

void show_palette()
{
    for (int slot = SLOT_CELL_0; slot < SLOT_CELL_END; ++slot)
        gui.colour[slot] = int(palette_entry(slot));
}

bool pointer_on_cells()
{
    const int x = pointer.mouse_x - gui.x[0];
    const int y = pointer.mouse_y - gui.y[0];
    return x >= 2 && x <= 145 && y >= 30 && y <= 90;
}

/// The number of the colour under the pointer. It stays between two cells, and goes outside the palette.
void show_number()
{
    const int hovered = pointer.gui_hover_slot;
    if (hovered >= SLOT_CELL_0 && hovered < SLOT_CELL_END) {
        gui.list_items[SLOT_NUMBER][0] = palette_index(hovered);
    } else if (!pointer_on_cells()) {
        gui.list_items[SLOT_NUMBER][0] = no_number;
    }
}

void build_favorites_menu(ColorEditor& editor)
{
    const Origin at = build_screen(layout);
    gui.scroll_value[SLOT_PANEL] = color_settings.favorites_scroll;
    gui.list_items[SLOT_NUMBER][0] = no_number;
    editor.build(at);
    for (int slot = SLOT_CELL_0; slot < SLOT_CELL_END; ++slot) {
        const int cell = slot - SLOT_CELL_0;
        build_slot(palette_cell_row(slot, 2 + 11 * (cell % cells_per_row), 32 + 10 * (cell / cells_per_row)), at.x,
                   at.y);
    }
    show_palette();
}

/// Asks, and gives all colours of the palette the background's.
void clear_palette(ColorEditor& editor)
{
    freeze_menu();
    gui_clear_window();
    const int answer = confirm_dialog(TEXT_CLEAR_FAVORITES, TEXT_CANT_BE_UNDONE);
    clear_ghost();
    if (answer != 0) {
        for (Shared<int>& entry : toolbox.extended_favorites)
            entry = menu_scheme.scheme_background;
    }
    build_favorites_menu(editor);
}

/// Keeps the palette in a file, or takes one from it.
void use_file(ColorEditor& editor, int task)
{
    file_browser(task, BROWSE_FAVORITES);
    build_favorites_menu(editor);
}

} // namespace

void favorites_menu()
{
    ColorEditor editor(toolbox.brush_color, SLOT_MAP);
    build_favorites_menu(editor);
    wait_for_release(ACTION_FAVORITES);
    while (editor.run_pass(ACTION_FAVORITES)) {
        color_settings.favorites_scroll = gui.scroll_value[SLOT_PANEL];
        for (int slot = SLOT_CELL_0; slot < SLOT_CELL_END; ++slot)
            editor.read_palette_cell(slot, palette_entry(slot));
        if (gui.event[SLOT_SAVE].take() != 0) use_file(editor, BROWSER_SAVE);
        if (gui.event[SLOT_LOAD].take() != 0) use_file(editor, BROWSER_LOAD);
        if (gui.event[SLOT_NUKE].take() != 0) clear_palette(editor);
        show_palette();
        show_number();
    }
    build_draw_menu();
}

} // namespace kelu
