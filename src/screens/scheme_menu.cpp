// SPDX-License-Identifier: MIT
// The scheme editor. Only the GUI sheet follows the swatches: the screens keep their colours until OKAY.
#include "screens/scheme_menu.h"

#include "gui/build.h"
#include "gui/scheme.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "screens/color_menu.h"
#include "screens/dispatch.h"
#include "screens/draw_menu.h"
#include "screens/file_browser.h"
#include <array>

namespace kelu {
namespace {

/// The editor's slots but for window and title begin high, so that the colour menu and the file browser can use the
/// low ones meanwhile.
enum {
    SLOT_PREVIEW_CAPTION = 75,
    SLOT_COLOUR_ROWS = 76, ///< label and swatch by turns, rows 0 to 4
    SLOT_TEXT_ROWS = 86,   ///< rows 5 to 9
    SLOT_PREVIEW = 97,
    SLOT_PREVIEW_LIST,
    SLOT_PREVIEW_TITLE,
    SLOT_PREVIEW_LIT,
    SLOT_PREVIEW_BUTTON,
    SLOT_PREVIEW_ALT,
    SLOT_PREVIEW_FIELD,
    SLOT_PREVIEW_SLIDER,
    SLOT_OKAY = 107,
    SLOT_SAVE,
    SLOT_LOAD,
    SLOT_CANCEL,
    menu_slots
};

constexpr int low_slots = 2; ///< window and title
constexpr int first_text_row = SCHEME_TEXT_LIGHT;
constexpr int preview_rows = 24;
constexpr int preview_slider_value = 64;
constexpr const char* preview_text = "TEXT INPUT WINDOW";

constexpr std::array layout_rows{
    title_row(2, 2, 125, TEXT_COLOR_SCHEME),
    SlotRow{SLOT_PREVIEW_CAPTION, 128, 2, 127, KIND_BUTTON, TEXT_SCHEME_PREVIEW},
    SlotRow{SLOT_PREVIEW, 128, 12, 127, KIND_SCHEME_PANEL}.high(105).no_hover(),
    SlotRow{SLOT_PREVIEW_LIST, 130, 14, 123, KIND_SCHEME_LIST}
        .high(58)
        .with(ListRows{.rows = 8, .pitch = 7, .font = 5, .width = 110})
        .with(ScrollBar{.steps = 10, .wheel = 2, .dx = 113}),
    SlotRow{SLOT_PREVIEW_TITLE, 130, 74, 61, KIND_SCHEME_TITLE, TEXT_INVERT},
    SlotRow{SLOT_PREVIEW_LIT, 192, 74, 61, KIND_SCHEME_LIT, TEXT_OPTIONS},
    SlotRow{SLOT_PREVIEW_BUTTON, 130, 84, 61, KIND_SCHEME_BUTTON, TEXT_ACTION},
    SlotRow{SLOT_PREVIEW_ALT, 192, 84, 61, KIND_SCHEME_ALT, TEXT_ACTION},
    SlotRow{SLOT_PREVIEW_FIELD, 130, 94, 123, KIND_SCHEME_FIELD, TEXT_NONE, ACT_FOCUS}.with(TextField{21, 120}),
    SlotRow{SLOT_PREVIEW_SLIDER, 130, 104, 123, KIND_SCHEME_PANEL}.with(
        ScrollBar{.steps = 256, .wheel = 5, .horizontal = true}),
    push_row(SLOT_OKAY, 2, 121, 59, TEXT_OKAY),
    push_row(SLOT_SAVE, 67, 121, 59, TEXT_SAVE),
    push_row(SLOT_LOAD, 132, 121, 59, TEXT_LOAD),
    push_row(SLOT_CANCEL, 197, 121, 58, TEXT_CANCEL),
};
constexpr MenuLayout layout{.menu_id = MENU_SCHEME,
                            .row = WINDOW_SCHEME,
                            .x = 31,
                            .y = 70,
                            .w = 256,
                            .h = 131,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

/// Label of a row of the scheme; its swatch is the slot behind it.
int label_slot(int row)
{
    return row < first_text_row ? SLOT_COLOUR_ROWS + 2 * row : SLOT_TEXT_ROWS + 2 * (row - first_text_row);
}
int swatch_slot(int row) { return label_slot(row) + 1; }

void build_scheme_menu()
{
    const Origin at = build_screen(layout);
    for (int row = 0; row < SCHEME_ROWS; ++row) {
        const int y = row < first_text_row ? 12 + 10 * row : 68 + 10 * (row - first_text_row);
        build_slot(caption_row(label_slot(row), 2, y, 95, TEXT_SCHEME_BACKGROUND + row), at.x, at.y);
        build_slot({swatch_slot(row), 98, y, 29, KIND_PANEL, TEXT_NONE, ACT_CLICK, ACT_RIGHT_CLICK, TIP_SCHEME_SWATCH},
                   at.x, at.y);
    }
    auto& preview_texts = gui.list_items[SLOT_PREVIEW_LIST];
    for (std::size_t i = 0; i < preview_rows; ++i)
        preview_texts[i] = i == 0 ? TEXT_SCHEME_ROW_UP : i == 1 ? TEXT_SCHEME_ROW_SELECTED : TEXT_SCHEME_ROW;
    set_field_text(SLOT_PREVIEW_FIELD, preview_text);
    gui.scroll_value[SLOT_PREVIEW_SLIDER] = preview_slider_value;
    apply_scheme(SCHEME_TO_SWATCHES);
}

void recolor_sheet(const SchemeColours& colours)
{
    recolor_gui_sheet(colours[SCHEME_BACKGROUND], colours[SCHEME_BORDER], colours[SCHEME_SHADOW],
                      colours[SCHEME_HIGHLIGHT_FORE]);
}

void set_hidden(int hidden)
{
    for (int slot = SLOT_PREVIEW_CAPTION; slot < menu_slots; ++slot)
        gui.hidden[slot] = hidden;
}

/// Runs another screen in the low slots, in the colours that the screens still have, and comes back.
template <class Screen>
void run_over_editor(const SchemeColours& worn, Screen screen)
{
    const Origin at{gui.x[0], gui.y[0]};
    set_hidden(1);
    gui.slot_count[0] = low_slots;
    recolor_sheet(worn);
    screen();
    gui_clear_window();
    clear_ghost();
    recolor_sheet(menu_scheme.scheme);
    gui_window(at.x, at.y, layout.w, layout.h, menu_slots);
    build_slot(layout_rows[0], at.x, at.y);
    gui.label_row[1] = layout.row;
    set_hidden(0);
    menus.menu_id = MENU_SCHEME;
}

void read_swatches(const SchemeColours& worn)
{
    for (int row = 0; row < SCHEME_ROWS; ++row) {
        const int slot = swatch_slot(row);
        const int event = gui.event[slot].take();
        if (event == 0) continue;
        if (event == EVENT_RIGHT) {
            gui.colour[slot] = scheme_default[row];
        } else {
            freeze_menu();
            run_over_editor(worn, [slot] { gui.colour[slot] = color_menu(ColorTarget::VALUE, gui.colour[slot]); });
        }
        apply_scheme(SWATCHES_TO_SCHEME);
        recolor_sheet(menu_scheme.scheme);
    }
}

void read_files(const SchemeColours& worn)
{
    if (gui.event[SLOT_SAVE].take() != 0) run_over_editor(worn, [] { file_browser(BROWSER_SAVE, BROWSE_SCHEME); });
    if (gui.event[SLOT_LOAD].take() == 0) return;
    run_over_editor(worn, [] { file_browser(BROWSER_LOAD, BROWSE_SCHEME); });
    apply_scheme(SCHEME_TO_SWATCHES);
}

/// Runs the loop; true after OKAY.
bool edit_scheme(const SchemeColours& worn)
{
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .right_click = RightClick::HIDES};
    const auto follow = [] { apply_scheme(SWATCHES_TO_SCHEME); };
    for (follow(); run_pass(pass); follow()) {
        read_swatches(worn);
        read_files(worn);
        if (gui.event[SLOT_CANCEL].take() != 0) return false;
        if (gui.event[SLOT_OKAY].take() != 0) return true;
    }
    return false;
}

} // namespace

void apply_scheme(SchemeStep step)
{
    if (step == SCHEME_TO_LIVE) {
        apply_scheme();
        return;
    }
    for (int row = 0; row < SCHEME_ROWS; ++row) {
        int& kept = menu_scheme.scheme[row];
        if (step == SWATCHES_TO_SCHEME)
            kept = gui.colour[swatch_slot(row)];
        else
            gui.colour[swatch_slot(row)] = kept;
    }
    if (step == SWATCHES_TO_SCHEME) preview_scheme();
}

void scheme_menu()
{
    const SchemeColours worn = menu_scheme.scheme;
    build_scheme_menu();
    if (edit_scheme(worn)) {
        apply_scheme(SCHEME_TO_LIVE);
    } else {
        menu_scheme.scheme = worn;
    }
    recolor_sheet(menu_scheme.scheme);
    build_draw_menu();
}

} // namespace kelu
