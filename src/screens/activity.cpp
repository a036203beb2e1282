// SPDX-License-Identifier: MIT
// The activity columns as tables of entries.
#include "screens/activity.h"

#include "gui/build.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "runtime/view.h"
#include "screens/animation_menu.h"
#include "screens/cel_commands.h"
#include "screens/cel_transform.h"
#include "screens/commands.h"
#include "screens/draw_menu.h"
#include "screens/file_commands.h"
#include "screens/grid_menu.h"
#include "screens/help_menu.h"
#include "screens/hotkey_menu.h"
#include "screens/mouse_menu.h"
#include "screens/options_menu.h"
#include "screens/playback_menu.h"
#include "screens/resize_menu.h"
#include "screens/scheme_menu.h"
#include "screens/sprite_sheet_menu.h"
#include "screens/tint_menu.h"
#include "screens/workspace_menu.h"
#include "tools/cel_stretch.h"
#include "tools/cel_turn.h"
#include <array>
#include <span>

namespace kelu {
namespace {

/// One entry: its label, its tooltip, and what it does once the column has gone.
struct Entry {
    int text, tooltip;
    void (*run)(); ///< null: nothing follows
};

constexpr std::array frame_entries{
    Entry{TEXT_CLONE, TIP_CLONE, clone_frame},         Entry{TEXT_INSERT, TIP_INSERT, insert_blank_frame},
    Entry{TEXT_RESIZE, TIP_RESIZE, resize_menu},       Entry{TEXT_DELETE, TIP_DELETE, delete_current_frame},
    Entry{TEXT_CENTER, TIP_CENTER, center_view},       Entry{TEXT_ANIMATE, TIP_ANIMATE, animation_menu},
    Entry{TEXT_PLAYBACK, TIP_PLAYBACK, playback_menu},
};
constexpr std::array pic_entries{
    Entry{TEXT_CLEAR, TIP_CLEAR, clear_picture},
    Entry{TEXT_RESTORE, TIP_RESTORE, restore_picture},
    Entry{TEXT_SHEET, TIP_SHEET, sprite_sheet_menu},
    Entry{TEXT_TINT, TIP_TINT, tint_menu},
    Entry{TEXT_GRID, TIP_GRID, grid_menu},
    Entry{TEXT_SAVE, TIP_SAVE_FRAME, save_frame_picture},
    Entry{TEXT_LOAD, TIP_LOAD_FRAME, load_frame_picture},
};
constexpr std::array cel_entries{
    Entry{TEXT_GET, TIP_CEL_GET, get_cel},
    Entry{TEXT_CLIP, TIP_CEL_CLIP, clip_cel},
    Entry{TEXT_PASTE, TIP_CEL_PASTE, paste_cel},
    Entry{TEXT_BELOW, TIP_CEL_BELOW, paste_cel_below},
    Entry{TEXT_ONE_COLOR, TIP_CEL_ONE_COLOR, convert_cel},
    Entry{TEXT_TURN, TIP_CEL_TURN, cel_turn},
    Entry{TEXT_STRETCH, TIP_CEL_STRETCH, cel_stretch},
    Entry{TEXT_XFORM, TIP_CEL_XFORM, cel_transform},
};
constexpr std::array user_entries{
    Entry{TEXT_OPTIONS, TIP_OPTIONS, options_menu},
    Entry{TEXT_KEYS, TIP_KEYS, hotkey_menu},
    Entry{TEXT_BUTTONS, TIP_BUTTONS, mouse_button_menu},
    Entry{TEXT_SCHEME, TIP_SCHEME, scheme_menu},
    Entry{TEXT_HELP, TIP_HELP, help_menu},
    Entry{TEXT_WORKSPC, TIP_WORKSPACE, workspace_menu},
    Entry{TEXT_ABOUT, TIP_ABOUT, about_menu},
    Entry{TEXT_QUIT, TIP_QUIT, ask_exit},
};

/// One column. It opens `left` pixels left of its button: downward, 2 above the button, when that lies above
/// `opens_down_above`, else `rise` above the button.
struct ColumnRow {
    int menu_id, window_row, title;
    std::span<const Entry> entries;
    int height, left, opens_down_above, rise;
};

constexpr std::array columns{
    ColumnRow{MENU_FRAME, WINDOW_COLUMN, TEXT_FRAME, frame_entries, 102, 10, 92, 92},
    ColumnRow{MENU_PIC, WINDOW_COLUMN, TEXT_PIC, pic_entries, 102, 10, 92, 92},
    ColumnRow{MENU_CEL, WINDOW_COLUMN, TEXT_CEL, cel_entries, 112, 10, 112, 102},
    ColumnRow{MENU_USER, WINDOW_USER, TEXT_USER, user_entries, 112, 18, 102, 102},
};

constexpr int window_w = 58;
constexpr int button_w = 55;
constexpr int first_entry_slot = 2;
constexpr int first_entry_y = 12;
constexpr int row_pitch = 10;

int back_slot(const ColumnRow& column) { return first_entry_slot + static_cast<int>(column.entries.size()); }

void build_column(const ColumnRow& column, int x, int y)
{
    gui_window(x, y, window_w, column.height, back_slot(column) + 1);
    build_slot(title_row(2, 2, button_w, column.title), x, y);
    int slot = first_entry_slot;
    for (const Entry& entry : column.entries) {
        const int row_y = first_entry_y + row_pitch * (slot - first_entry_slot);
        build_slot(push_row(slot++, 2, row_y, button_w, entry.text, entry.tooltip), x, y);
    }
    build_slot({slot, 2, column.height - row_pitch, button_w, KIND_PUSH_DARK, TEXT_BACK, ACT_CLICK, ACT_NONE, TIP_BACK},
               x, y);
    menus.window_pos[column.window_row] = {x, y};
    menus.menu_id = column.menu_id;
}

/// Waits for a click; returns the slot of the entry, or of BACK, also when the program ends.
int clicked_slot(const ColumnRow& column)
{
    while (run_pass({.hotkeys = IN_ANY_MENU, .quick_pan = true})) {
        for (int slot = first_entry_slot; slot <= back_slot(column); ++slot) {
            if (gui.event[slot].take() != 0) return slot;
        }
    }
    return back_slot(column);
}

} // namespace

void activity_menu(ActivityColumn which, int slot)
{
    const ColumnRow& column = columns[static_cast<int>(which)];
    const int x = gui.x[slot] - column.left;
    const int button_y = gui.y[slot];
    const int y = button_y - (button_y < column.opens_down_above ? 2 : column.rise);
    freeze_menu();
    gui_clear_window();
    build_column(column, x, y);
    const int clicked = clicked_slot(column);
    gui_clear_window();
    clear_ghost();
    const auto entry = static_cast<std::size_t>(clicked - first_entry_slot);
    if (entry < column.entries.size() && column.entries[entry].run) column.entries[entry].run();
    build_draw_menu();
}

} // namespace kelu
