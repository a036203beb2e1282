// SPDX-License-Identifier: MIT
// Four fields that write through while their numbers are good, the switch, and the opacity.
#include "screens/grid_menu.h"

#include "gui/build.h"
#include "gui/scheme.h"
#include "loop/pass.h"
#include "runtime/grid.h"
#include "runtime/hotkeys.h"
#include <algorithm>
#include <array>
#include <string>

namespace kelu {
namespace {

enum {
    SLOT_CAPTION_0 = 3, ///< every second slot, with its field behind it
    SLOT_FIELD_0 = 4,
    SLOT_OPACITY_CAPTION = 11,
    SLOT_OPACITY = 12,
    SLOT_OKAY = 15,
    SLOT_CANCEL = 16,
    SLOT_ACTIVE = 17,
    menu_slots = 21
};

constexpr int least_typed = 1; ///< pitch that acts while it is typed; OKAY wants more
constexpr int least_pitch = 2;
constexpr int most_pitch = 999;

constexpr std::array layout_rows{
    title_row(2, 2, 87, TEXT_GRID_SETTINGS),
    SlotRow{SLOT_ACTIVE, 2, 13, 87, KIND_BUTTON, TEXT_DISABLED, ACT_FLIP, ACT_NONE, TIP_GRID_ACTIVATE},
    caption_row(SLOT_OPACITY_CAPTION, 2, 67, 87, TEXT_OPACITY),
    slider_row(SLOT_OPACITY, 2, 77, 87, 256),
    push_row(SLOT_OKAY, 2, 90, 39, TEXT_OKAY),
    push_row(SLOT_CANCEL, 45, 90, 44, TEXT_CANCEL),
};
constexpr MenuLayout layout{.menu_id = MENU_GRID,
                            .row = WINDOW_GRID,
                            .x = 70,
                            .y = 80,
                            .w = 90,
                            .h = 100,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

/// One field: its label, its word, and for an offset the pitch that it stays below.
struct GridField {
    int text;
    Shared<int>& word;
    const Shared<int>* pitch;
};
const std::array fields{
    GridField{TEXT_WIDTH, grid.grid_w, nullptr},
    GridField{TEXT_HEIGHT, grid.grid_h, nullptr},
    GridField{TEXT_X_OFF, grid.grid_off_x, &grid.grid_w},
    GridField{TEXT_Y_OFF, grid.grid_off_y, &grid.grid_h},
};

constexpr int slot_of(std::size_t field) { return SLOT_FIELD_0 + 2 * static_cast<int>(field); }

void build_grid_menu()
{
    const Origin at = build_screen(layout);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const int y = 25 + 10 * static_cast<int>(i);
        build_slot(caption_row(slot_of(i) - 1, 2, y, 45, fields[i].text), at.x, at.y);
        build_slot(field_row(slot_of(i), 48, y, 41, 4, 4), at.x, at.y);
        set_field_text(slot_of(i), std::to_string(fields[i].word).c_str());
    }
    gui.kind[SLOT_ACTIVE] = grid.grid_on != 0 ? KIND_BUTTON_LIT : KIND_BUTTON;
    bind_slider(SLOT_OPACITY, grid.grid_opacity);
    gui_logic.gui_key_focus = -1;
}

/// Takes a number into a pitch; true when OKAY may leave it there.
bool read_pitch(Shared<int>& pitch, int number)
{
    if (number >= least_typed && number <= most_pitch) pitch = number;
    return number >= least_pitch;
}

/// The same of an offset; a negative number stands for 0.
bool read_offset(Shared<int>& offset, int number, int pitch)
{
    const bool good = number < pitch || pitch == 0;
    if (good || number < 0) offset = std::max(0, number);
    return good;
}

/// Takes all fields, and shows in red what OKAY refuses. True when there is nothing to refuse.
bool read_fields()
{
    bool all_good = true;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const GridField& field = fields[i];
        const int number = field_number(slot_of(i));
        const bool good = field.pitch ? read_offset(field.word, number, *field.pitch) : read_pitch(field.word, number);
        gui.colour[slot_of(i)] = good ? menu_scheme.scheme_border : warning_red;
        all_good = all_good && good;
    }
    return all_good;
}

bool shows_active() { return gui.kind[SLOT_ACTIVE] == KIND_BUTTON_LIT; }

void show_switch()
{
    gui.text_id[SLOT_ACTIVE] = shows_active() ? TEXT_ACTIVE : TEXT_DISABLED;
    gui.tooltip[SLOT_ACTIVE] = shows_active() ? TIP_GRID_TURN_OFF : TIP_GRID_ACTIVATE;
}

/// Runs the loop; true after OKAY. The screen's own key gives everything up, as CANCEL does.
bool choose_grid()
{
    constexpr Pass pass{.quick_pan = true, .right_click = RightClick::HIDES, .leave_key = ACTION_PIC_GRID};
    bool good = read_fields();
    show_switch();
    while (run_pass(pass)) {
        if (gui.event[SLOT_CANCEL].take() != 0) return false;
        if (gui.event[SLOT_OKAY].take() != 0 && good) return true;
        good = read_fields();
        show_switch();
    }
    return false;
}

} // namespace

void grid_menu()
{
    const Grid kept = grid;
    build_grid_menu();
    wait_for_release(ACTION_PIC_GRID);
    const bool accepted = choose_grid();
    const int active = shows_active() ? 1 : 0;
    close_screen(); // first: the slider writes its word as long as its slot is built
    if (accepted) {
        grid.grid_on = active;
    } else {
        grid = kept;
    }
}

} // namespace kelu
