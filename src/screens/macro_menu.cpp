// SPDX-License-Identifier: MIT
// The macro screen. It edits a copy of the eight records, which OKAY stores.
#include "screens/macro_menu.h"

#include "gui/build.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "runtime/hotkeys.h"
#include "screens/draw_menu.h"
#include "screens/macro_slots.h"
#include "screens/tip_menu.h"
#include <array>

namespace kelu {
namespace {

constexpr int no_selection = -1;

/// The records while they are edited.
struct Editor {
    Table<Macro, macro_count> records;
    int shown;

    Macro& record() { return records[shown]; }
};

void read_numbers(Editor& editor)
{
    for (int i = 0; i < macro_count; ++i) {
        if (gui.event[MACRO_SLOT_NUMBER_1 + i].take() == 0) continue;
        editor.shown = i;
        build_macro_menu(i, editor.record());
    }
}

void read_grid_mode(Macro& record)
{
    for (int mode = 0; mode < macro_grid_modes; ++mode) {
        if (gui.event[MACRO_SLOT_GRID_MODE_0 + mode].take() == 0) continue;
        record.grid_mode = mode;
        show_macro_grid_mode(record);
    }
}

void read_tip(Editor& editor)
{
    const int event = gui.event[MACRO_SLOT_TIP].take();
    if (event == 0) return;
    Macro& record = editor.record();
    if (event == EVENT_RIGHT) {
        record.brush_tip = -1;
        show_macro_tip(record);
        return;
    }
    store_macro_fields(record);
    const int tip = tip_menu();
    if (tip >= 0) record.brush_tip = tip;
    build_macro_menu(editor.shown, record);
}

/// A left click selects a slot or takes the selection away, a right click asks what the slot shall hold.
void read_block(Editor& editor, const MacroBlock& block)
{
    Macro& record = editor.record();
    for (int i = 0; i < macro_choices; ++i) {
        const int slot = block.first_slot + i;
        const int event = gui.event[slot].take();
        if (event == 0) continue;
        if (event == EVENT_RIGHT) {
            const int word = choose_from_list(block.list, gui.x[slot], gui.y[slot]);
            if (word != no_choice) (record.*block.words)[i] = word;
            build_macro_menu(editor.shown, record);
        } else {
            record.*block.selected = record.*block.selected == i ? no_selection : i;
            show_macro_block(block, record);
        }
    }
}

/// Runs the loop; true after OKAY.
bool edit_records(Editor& editor)
{
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .leave_key = ACTION_MACRO_MENU};
    while (run_pass(pass)) {
        read_numbers(editor);
        read_grid_mode(editor.record());
        read_tip(editor);
        for (const MacroBlock& block : macro_blocks)
            read_block(editor, block);
        editor.record().grid_opacity = gui.scroll_value[MACRO_SLOT_OPACITY];
        if (gui.event[MACRO_SLOT_OKAY].take() != 0) return true;
        if (gui.event[MACRO_SLOT_CANCEL].take() != 0) return false;
    }
    return false;
}

void store_records(Editor& editor)
{
    store_macro_fields(editor.record());
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
    if (edit_records(editor)) store_records(editor);
    macros.macro_current = editor.shown;
    build_draw_menu();
}

} // namespace kelu
