// The macro screen. It edits a copy of the eight records, which OKAY stores.
#include "screens/macro_menu.h"

#include "gui/build.h"
#include "runtime/frame.h"
#include "runtime/hotkeys.h"
#include "screens/actions.h"
#include "screens/draw_menu.h"
#include "screens/list_popup.h"
#include "screens/tip_menu.h"
#include <array>
#include <cstdlib>
#include <string>

namespace kelu {
namespace {

enum {
    SLOT_NUMBER_1 = 2,
    SLOT_TOOL_0 = 10,
    SLOT_INK_0 = 16,
    SLOT_BRUSH_CAPTION = 22,
    SLOT_INK_CAPTION,
    SLOT_GRID_CAPTION,
    SLOT_GRID_MODE_0 = 25, ///< + GridMode
    SLOT_FIELD_0 = 29,     ///< + 2 x field; the caption before it
    SLOT_OPACITY_CAPTION = 36,
    SLOT_OPACITY,
    SLOT_TIP_CAPTION,
    SLOT_TIP,
    SLOT_OKAY,
    SLOT_CANCEL,
    menu_slots
};

constexpr int choices = 6; ///< tool slots, ink slots
constexpr int grid_modes = 3;
constexpr int no_tip = 10000; ///< tip number of a button that shows none
constexpr int no_selection = -1;

/// The four numbers of the grid, in the order of their fields.
constexpr std::array<int Macro::*, 4> grid_words{&Macro::grid_w, &Macro::grid_h, &Macro::grid_off_x,
                                                 &Macro::grid_off_y};

/// One of the two blocks of six slots: what a record says of them.
struct ChoiceBlock {
    int first_slot;
    std::array<int, 6> Macro::*words; ///< 0: the slot is left alone
    int Macro::*selected;
    ListPopup list; ///< row 0 is no choice, row n the word n
};
constexpr std::array blocks{
    ChoiceBlock{SLOT_TOOL_0, &Macro::tools, &Macro::tool_slot, {first_tool_name, 23, 11, 72, TEXT_UNUSED}},
    ChoiceBlock{SLOT_INK_0, &Macro::inks, &Macro::ink_slot, {first_ink_name - 1, 27, 18, 72, TEXT_UNUSED}},
};

constexpr SlotRow mode_row(int mode, int x, int w, int text, int tooltip)
{
    return {SLOT_GRID_MODE_0 + mode, x, 91, w, KIND_BUTTON, text, ACT_CLICK, ACT_NONE, tooltip};
}

constexpr std::array layout_rows{
    title_row(2, 2, 39, TEXT_MACRO),
    SlotRow{SLOT_BRUSH_CAPTION, 2, 13, 119, KIND_BUTTON, TEXT_BRUSH_OPTIONS},
    SlotRow{SLOT_INK_CAPTION, 2, 47, 119, KIND_BUTTON, TEXT_INK_OPTIONS},
    SlotRow{SLOT_GRID_CAPTION, 2, 81, 119, KIND_BUTTON, TEXT_GRID_OPTIONS},
    mode_row(MACRO_GRID_ON, 2, 34, TEXT_ON, TIP_MACRO_GRID_ON),
    mode_row(MACRO_GRID_IGNORE, 37, 49, TEXT_IGNORE, TIP_MACRO_GRID_IGNORE),
    mode_row(MACRO_GRID_OFF, 87, 34, TEXT_OFF, TIP_MACRO_GRID_OFF),
    caption_row(SLOT_FIELD_0 - 1, 2, 101, 77, TEXT_WIDTH),
    caption_row(SLOT_FIELD_0 + 1, 2, 111, 77, TEXT_HEIGHT),
    caption_row(SLOT_FIELD_0 + 3, 2, 121, 77, TEXT_X_OFF),
    caption_row(SLOT_FIELD_0 + 5, 2, 131, 77, TEXT_Y_OFF),
    field_row(SLOT_FIELD_0, 80, 101, 41, 4, 4),
    field_row(SLOT_FIELD_0 + 2, 80, 111, 41, 4, 4),
    field_row(SLOT_FIELD_0 + 4, 80, 121, 41, 4, 4),
    field_row(SLOT_FIELD_0 + 6, 80, 131, 41, 4, 4),
    caption_row(SLOT_OPACITY_CAPTION, 2, 141, 119, TEXT_OPACITY),
    slider_row(SLOT_OPACITY, 2, 151, 119, 256),
    SlotRow{SLOT_TIP_CAPTION, 2, 165, 97, KIND_BUTTON, TEXT_BRUSH_TIP},
    SlotRow{SLOT_TIP, 100, 165, 21, KIND_TIP_BUTTON, TEXT_NONE, ACT_CLICK, ACT_RIGHT_CLICK, TIP_MACRO_TIP},
    push_row(SLOT_OKAY, 2, 179, 54, TEXT_OKAY),
    push_row(SLOT_CANCEL, 67, 179, 54, TEXT_CANCEL),
};
constexpr MenuLayout layout{.menu_id = MENU_MACRO,
                            .row = WINDOW_MACRO,
                            .x = 0,
                            .y = 207,
                            .w = 122,
                            .h = 189,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

/// The records while they are edited.
struct Editor {
    std::array<Macro, macro_count> records;
    int shown;

    Macro& record() { return records[static_cast<std::size_t>(shown)]; }
};

int lit(bool on) { return on ? KIND_BUTTON_LIT : KIND_BUTTON; }

void show_block(const ChoiceBlock& block, const Macro& record)
{
    for (int i = 0; i < choices; ++i) {
        const int word = (record.*block.words)[static_cast<std::size_t>(i)];
        gui.text_id[block.first_slot + i] = word == 0 ? int(TEXT_DOTS) : block.list.first_text + word;
        gui.kind[block.first_slot + i] = lit(i == record.*block.selected);
    }
}

void show_grid_mode(const Macro& record)
{
    for (int mode = 0; mode < grid_modes; ++mode)
        gui.kind[SLOT_GRID_MODE_0 + mode] = lit(mode == record.grid_mode);
}

void show_tip(const Macro& record)
{
    gui.list_items[SLOT_TIP][0] = 1;
    gui.list_items[SLOT_TIP][1] = record.brush_tip == -1 ? no_tip : record.brush_tip;
}

void build_macro_menu(int shown, const Macro& record)
{
    const Origin at = build_screen(layout);
    for (int i = 0; i < macro_count; ++i)
        build_slot({SLOT_NUMBER_1 + i, 42 + 10 * i, 2, 9, lit(i == shown), TEXT_DIGIT_1 + i, ACT_CLICK, ACT_NONE,
                    TIP_MACRO_1 + i},
                   at.x, at.y);
    for (const ChoiceBlock& block : blocks) {
        const int top = block.first_slot == SLOT_TOOL_0 ? 23 : 57;
        for (int i = 0; i < choices; ++i)
            build_slot({block.first_slot + i, 2 + 40 * (i % 3), top + 10 * (i / 3), standard_button_w, KIND_BUTTON,
                        TEXT_DOTS, ACT_CLICK, ACT_RIGHT_CLICK, TIP_MACRO_SLOT},
                       at.x, at.y);
        show_block(block, record);
    }
    for (std::size_t i = 0; i < grid_words.size(); ++i)
        set_field_text(SLOT_FIELD_0 + 2 * static_cast<int>(i), std::to_string(record.*grid_words[i]).c_str());
    gui.scroll_value[SLOT_OPACITY] = record.grid_opacity;
    show_grid_mode(record);
    show_tip(record);
}

/// The numbers that stand in the fields go into the record. Text that is no number is 0.
void store_fields(Macro& record)
{
    for (std::size_t i = 0; i < grid_words.size(); ++i) {
        const FieldText text = field_text_of(SLOT_FIELD_0 + 2 * static_cast<int>(i));
        record.*grid_words[i] = static_cast<int>(std::strtol(text.data(), nullptr, 10));
    }
}

void read_numbers(Editor& editor)
{
    for (int i = 0; i < macro_count; ++i) {
        if (gui.event[SLOT_NUMBER_1 + i].take() == 0) continue;
        editor.shown = i;
        build_macro_menu(i, editor.record());
    }
}

void read_grid_mode(Macro& record)
{
    for (int mode = 0; mode < grid_modes; ++mode) {
        if (gui.event[SLOT_GRID_MODE_0 + mode].take() == 0) continue;
        record.grid_mode = mode;
        show_grid_mode(record);
    }
}

void read_tip(Editor& editor)
{
    const int event = gui.event[SLOT_TIP].take();
    if (event == 0) return;
    Macro& record = editor.record();
    if (event == EVENT_RIGHT) {
        record.brush_tip = -1;
        show_tip(record);
        return;
    }
    store_fields(record);
    const int tip = tip_menu();
    if (tip >= 0) record.brush_tip = tip;
    build_macro_menu(editor.shown, record);
}

/// A left click selects a slot or takes the selection away, a right click asks what the slot shall hold.
void read_block(Editor& editor, const ChoiceBlock& block)
{
    Macro& record = editor.record();
    for (int i = 0; i < choices; ++i) {
        const int slot = block.first_slot + i;
        const int event = gui.event[slot].take();
        if (event == 0) continue;
        if (event == EVENT_RIGHT) {
            const int word = choose_from_list(block.list, gui.x[slot], gui.y[slot]);
            if (word != no_choice) (record.*block.words)[static_cast<std::size_t>(i)] = word;
            build_macro_menu(editor.shown, record);
        } else {
            record.*block.selected = record.*block.selected == i ? no_selection : i;
            show_block(block, record);
        }
    }
}

/// True when the screen is to close; `keep` says whether the records are stored.
bool wants_to_leave(bool& keep)
{
    if (hotkey_test(ACTION_MACRO_MENU)) {
        wait_for_release(ACTION_MACRO_MENU);
        return true;
    }
    keep = gui.event[SLOT_OKAY].take() != 0;
    return keep || gui.event[SLOT_CANCEL].take() != 0;
}

void store_records(Editor& editor)
{
    store_fields(editor.record());
    for (Macro& record : editor.records)
        record = valid_macro(record);
    macros.macro_table = editor.records;
}

} // namespace

void macro_menu()
{
    Editor editor{macros.macro_table, macros.macro_current};
    build_macro_menu(editor.shown, editor.record());
    wait_for_release(ACTION_MACRO_MENU);
    bool keep = false;
    do {
        run_frame(0);
        hotkey_dispatch(1);
        read_numbers(editor);
        read_grid_mode(editor.record());
        read_tip(editor);
        for (const ChoiceBlock& block : blocks)
            read_block(editor, block);
        editor.record().grid_opacity = gui.scroll_value[SLOT_OPACITY];
    } while (!wants_to_leave(keep));
    if (keep) store_records(editor);
    macros.macro_current = editor.shown;
    close_screen();
    build_draw_menu();
}

} // namespace kelu
