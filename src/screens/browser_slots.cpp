// SPDX-License-Identifier: MIT
// Rows of the slots, and the buttons that change.
#include "screens/browser_slots.h"

#include "gui/build.h"
#include "imagefile/formats.h"
#include "platform/files.h"
#include "platform/places.h"
#include "screens/browser_listing.h"
#include <array>

namespace kelu {
namespace {

constexpr int window_w = 319, window_h = 124;
constexpr int slots = 38, slots_with_fonts = 40;
constexpr int row_characters = 30;
constexpr int name_characters = 25, name_max = 254;
constexpr int filter_columns = 3;

constexpr auto fixed_rows = std::to_array<SlotRow>({
    title_row(2, 2, 61, TEXT_LOAD_FILE),
    field_row(BROWSER_PATH, 32, 12, 166, name_characters, name_max),
    field_row(BROWSER_FILE, 32, 22, 166, name_characters, name_max),
    SlotRow{BROWSER_LIST, 2, 32, 196, KIND_FILE_LIST}.high(81).with(ScrollBar{.steps = 1, .wheel = 2, .dx = 186}),
    SlotRow{BROWSER_PREVIEW, 199, 42, 119, KIND_PREVIEW, TEXT_NONE, ACT_CLICK}.high(81),
    push_row(BROWSER_OKAY, 2, 114, 59, TEXT_OKAY),
    push_row(BROWSER_CANCEL, 139, 114, 59, TEXT_CANCEL),
    caption_row(35, 2, 12, 29, TEXT_PATH),
    caption_row(36, 2, 22, 29, TEXT_FILE),
    SlotRow{BROWSER_HOME, 76, 114, 47, KIND_PUSH_DARK, TEXT_HOME, ACT_CLICK},
});

/// What the font browser has more, and elsewhere.
constexpr auto font_rows = std::to_array<SlotRow>({
    SlotRow{BROWSER_PREVIEW, 199, 42, 119, KIND_PREVIEW, TEXT_NONE, ACT_CLICK}.high(71),
    push_row(BROWSER_CANCEL, 259, 114, 59, TEXT_CANCEL),
    SlotRow{BROWSER_HOME, 86, 114, 47, KIND_PUSH_DARK, TEXT_HOME, ACT_CLICK},
    SlotRow{BROWSER_LOCAL, 136, 114, 47, KIND_PUSH_DARK, TEXT_LOCAL, ACT_CLICK, ACT_NONE, TIP_LOCAL_FONTS},
    SlotRow{BROWSER_OS, 186, 114, 47, KIND_PUSH_DARK, TEXT_OS, ACT_CLICK, ACT_NONE, TIP_SYSTEM_FONTS},
});

constexpr MenuLayout layout{.menu_id = MENU_BROWSER,
                            .row = WINDOW_BROWSER,
                            .x = 0,
                            .y = 115,
                            .w = window_w,
                            .h = window_h,
                            .slot_count = slots,
                            .slots = fixed_rows};

// The filters' texts and tooltips follow each other in the same order.
static_assert(TEXT_WSP - TEXT_GIF == browser_filters - 1 && TIP_FILTER_WSP - TIP_FILTER_GIF == browser_filters - 1);

void build_filters(Origin at)
{
    for (int i = 0; i < browser_filters; ++i) {
        const int x = 199 + 40 * (i % filter_columns);
        const int y = 12 + 10 * (i / filter_columns);
        build_slot({BROWSER_FILTER_0 + i, x, y, standard_button_w, KIND_BUTTON, TEXT_GIF + i, ACT_TOGGLE, ACT_NONE,
                    TIP_FILTER_GIF + i},
                   at.x, at.y);
    }
}

/// The drives in the order of their letters; what is left of the row stays blank.
void build_drives(Origin at)
{
    int drive = 0;
    for (int i = 0; i < browser_drives; ++i) {
        while (drive < platform::drive_count && !platform::drive_exists(drive))
            ++drive;
        SlotRow row{BROWSER_DRIVE_0 + i, 64 + 15 * i, 2, 14, KIND_BUTTON};
        if (drive < platform::drive_count) {
            row.text = first_drive_name + drive++;
            row.left = ACT_LIGHT;
        }
        build_slot(row, at.x, at.y);
    }
}

} // namespace

void build_file_browser(int task)
{
    const bool fonts = task == BROWSER_FONT;
    const Origin at = build_screen(layout);
    gui.slot_count[0] = fonts ? slots_with_fonts : slots;
    if (fonts) build_slots(font_rows, at.x, at.y);
    build_filters(at);
    build_drives(at);
    gui.text_id[BROWSER_TITLE] = task == BROWSER_SAVE ? TEXT_SAVE_FILE : TEXT_LOAD_FILE;
    gui.field_visible[BROWSER_LIST] = row_characters;
    fit_list_bar(BROWSER_LIST);
}

void show_current_drive()
{
    const int drive = platform::drive_of(platform::working_directory());
    for (int slot = BROWSER_DRIVE_0; slot < BROWSER_DRIVE_0 + browser_drives; ++slot) {
        const bool here = gui.text_id[slot] != TEXT_NONE && gui.text_id[slot] - first_drive_name == drive;
        gui.kind[slot] = here ? KIND_BUTTON_LIT : KIND_BUTTON;
    }
}

const std::string& drive_root_of(int slot) { return platform::places.drive_root[gui.text_id[slot] - first_drive_name]; }

void show_home_button(bool is_set)
{
    gui.text_id[BROWSER_HOME] = is_set ? TEXT_FLOAT : TEXT_HOME;
    gui.tooltip[BROWSER_HOME] = is_set ? TIP_CLEAR_HOME_DIRECTORY : TIP_HOME_DIRECTORY;
}

void keep_filter(int slot)
{
    for (int filter = BROWSER_FILTER_0; filter < BROWSER_FILTER_0 + browser_filters; ++filter) {
        if (filter != slot) gui.kind[filter] = KIND_BUTTON;
    }
}

std::string lit_pattern()
{
    for (int slot = BROWSER_FILTER_0; slot < BROWSER_FILTER_0 + browser_filters; ++slot) {
        if (gui.kind[slot] == KIND_BUTTON_LIT)
            return std::string("*.").append(format_of_filter(slot - BROWSER_FILTER_0).extension);
    }
    return std::string(every_file);
}

} // namespace kelu
