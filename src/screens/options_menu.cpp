// SPDX-License-Identifier: MIT
// The list, the widgets of the rows in view, and what CANCEL, DEFAULTS and the end of the screen do.
#include "screens/options_menu.h"

#include "draw/tips.h"
#include "draw/undo.h"
#include "gui/build.h"
#include "gui/logic.h"
#include "loop/pass.h"
#include "runtime/preferences.h"
#include "runtime/view.h"
#include "screens/commands.h"
#include "screens/options_table.h"

namespace kelu {
namespace {

enum {
    SLOT_LIST = 2,
    SLOT_ITEM = 3,
    SLOT_SETTINGS = 4,
    SLOT_OKAY = 5,
    SLOT_DEFAULTS = 6,
    SLOT_CANCEL = 7,
    SLOT_WIDGET_0 = 8,
    menu_slots = 40
};

constexpr int shown_rows = 9;
constexpr int row_slots = 3; ///< for each row in view
constexpr int scroll_positions = option_rows_count - shown_rows + 1;
constexpr int widget_x = 162, slider_w = 141;
constexpr int default_mouse_speed = 4;

constexpr std::array layout_rows{
    title_row(2, 2, 51, TEXT_OPTIONS),
    SlotRow{SLOT_LIST, 2, 12, 316, KIND_LIST}
        .high(93)
        .with(ListRows{.first_text = first_option_name,
                       .items = option_rows_count,
                       .rows = shown_rows,
                       .pitch = 10,
                       .font = 5,
                       .text_y = 1})
        .with(ScrollBar{.steps = scroll_positions, .wheel = 2, .dx = 306}),
    SlotRow{SLOT_ITEM, 54, 2, 107, KIND_BUTTON, TEXT_ITEM},
    SlotRow{SLOT_SETTINGS, 162, 2, 156, KIND_BUTTON, TEXT_SETTINGS},
    push_row(SLOT_OKAY, 2, 106, 64, TEXT_OKAY),
    push_row(SLOT_DEFAULTS, 128, 106, 64, TEXT_DEFAULTS),
    push_row(SLOT_CANCEL, 254, 106, 64, TEXT_CANCEL),
};
constexpr MenuLayout layout{.menu_id = MENU_OPTIONS,
                            .row = WINDOW_HOTKEYS_AND_OPTIONS,
                            .x = 0,
                            .y = 123,
                            .w = 319,
                            .h = 116,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

const OptionRow& row_of(int option) { return options_table()[option]; }

/// Place of a radio in its row.
struct RadioPlace {
    int x, w;
};
constexpr RadioPlace two_radios[] = {{162, 70}, {233, 70}};
constexpr RadioPlace three_radios[] = {{162, 46}, {209, 46}, {256, 47}};

/// Radios take no hover, so that the wheel over them scrolls the list.
void build_radios(const OptionRow& row, int first_slot, Origin at, int y)
{
    const RadioPlace* places = row.choices == 2 ? two_radios : three_radios;
    for (int i = 0; i < row.choices; ++i) {
        const OptionValue& value = row.values[i];
        const int kind = *row.word == value.value ? KIND_RADIO_ON : KIND_RADIO_OFF;
        const int slot = build_slot(
            SlotRow{first_slot + i, places[i].x, y, places[i].w, kind, value.text, ACT_RADIO}.no_hover(), at.x, at.y);
        gui.radio_ptr[slot] = row.word;
        gui.list_items[slot][0] = value.value;
        std::size_t partners = 0;
        for (int other = 0; other < row.choices; ++other)
            if (other != i) gui.params[slot][partners++] = first_slot + other;
    }
}

/// Builds the widgets of an option, 0 to 41, in a row in view, 0 to 8.
void option_row(int shown, int option)
{
    const OptionRow& row = row_of(option);
    const Origin at{gui.x[0], gui.y[0]};
    const int slot = SLOT_WIDGET_0 + row_slots * shown;
    const int y = 14 + 10 * shown;
    switch (row.form) {
    case OptionForm::BLANK:
        break;
    case OptionForm::HEADING:
        build_slot(caption_row(slot, 5, y, 298, first_option_name + option).no_hover(), at.x, at.y);
        break;
    case OptionForm::CHOICE:
        build_radios(row, slot, at, y);
        break;
    case OptionForm::SLIDER:
        build_slot(SlotRow{slot, widget_x, y, slider_w, KIND_PANEL}.with(
                       ScrollBar{.steps = row.steps, .wheel = row.wheel, .min = row.lowest, .horizontal = true}),
                   at.x, at.y);
        bind_slider(slot, *row.word);
        break;
    }
}

/// Only an option has a name in the list: a heading covers its row, and neither lights up under the pointer.
void build_options_menu()
{
    build_screen(layout);
    for (std::size_t i = 0; i < options_table().size(); ++i)
        if (!options_table()[i].word) gui.list_items[SLOT_LIST][i] = TEXT_NONE;
}

/// Takes the widgets away; from here on no slider writes its word.
void clear_rows()
{
    for (int slot = SLOT_WIDGET_0; slot < SLOT_WIDGET_0 + row_slots * shown_rows; ++slot)
        gui_reset_slot(slot);
}

void build_rows(int first)
{
    clear_rows();
    for (int shown = 0; shown < shown_rows; ++shown)
        option_row(shown, first + shown);
}

/// All words that the screen may change.
struct KeptOptions {
    std::array<int, option_rows_count> values{};
    int mouse_speed = preferences.mouse_speed;

    KeptOptions()
    {
        for (std::size_t i = 0; i < values.size(); ++i)
            if (const Shared<int>* word = options_table()[i].word) values[i] = *word;
    }
    void put_back() const
    {
        for (std::size_t i = 0; i < values.size(); ++i)
            if (Shared<int>* word = options_table()[i].word) *word = values[i];
        preferences.mouse_speed = mouse_speed;
    }
};

void set_default_options()
{
    clear_rows();
    for (const OptionRow& row : options_table())
        if (row.word) *row.word = row.by_default;
    preferences.mouse_speed = default_mouse_speed;
}

/// Runs the loop; true after OKAY.
bool choose_options()
{
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .right_click = RightClick::LEAVES};
    constexpr int not_built = -1;
    int built = not_built;
    const auto follow_list = [&built] {
        const int first = gui.scroll_value[SLOT_LIST];
        if (built != first) build_rows(first);
        built = first;
    };
    for (follow_list(); run_pass(pass); follow_list()) {
        if (gui.event[SLOT_DEFAULTS].take() != 0) {
            set_default_options();
            built = not_built;
        }
        if (gui.event[SLOT_CANCEL].take() != 0) return false;
        if (gui.event[SLOT_OKAY].take() != 0) return true;
    }
    return false;
}

/// What follows from the options and isn't looked up when it is needed.
void apply_options()
{
    if (options_state.onion_staged != view.onion_on) flip_onion();
    rebuild_tip_cursor();
    install_logic_timer();
}

} // namespace

void options_menu()
{
    options_state.onion_staged = int(view.onion_on);
    const KeptOptions kept;
    const int undo_depth = preferences.undo_depth;
    build_options_menu();
    const bool accepted = choose_options();
    close_screen();
    if (!accepted) kept.put_back();
    if (preferences.undo_depth != undo_depth) reset_undo_slots();
    apply_options();
}

} // namespace kelu
