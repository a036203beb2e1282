// SPDX-License-Identifier: MIT
// The rows of the user's settings, their defaults, and their file.
#include "workspace/settings.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/ink_rows.h"
#include "gui/scheme.h"
#include "gui/strings.h"
#include "platform/files.h"
#include "runtime/hotkeys.h"
#include "runtime/macros.h"
#include "runtime/preferences.h"
#include "runtime/toolbox.h"
#include "workspace/folder.h"
#include "workspace/running_work.h"
#include "workspace/tag_files.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr const char* settings_folder = "resource";
constexpr const char* settings_file = "user.def";
constexpr const char* damaged_file = "damaged.def";

constexpr int mouse_functions = 28;
constexpr Range key_range{0, last_key_code | key_modifiers, Range::ZERO};

constexpr int macro_words = static_cast<int>(sizeof(Macro) / sizeof(int));
static_assert(macro_words == 21, "a macro is stored as a record of 21 words");

/// Word i of a macro's record in the file, as a word of the macro in memory: tool, ink and grid words take turns.
constexpr int macro_order(int i)
{
    constexpr int inks = 6, grid = 15, slots = 12, interleaved = 18;
    if (i >= interleaved) return slots + i - interleaved;
    constexpr int first[] = {0, inks, grid};
    return first[i % 3] + i / 3;
}
int place_macro(int minor, int i) { return minor * macro_words + macro_order(i); }
int place_hotkey(int minor, int i) { return 2 * hotkey_row_of(minor) + i; }
/// Actions for which the records of the key table have no room have a tag of their own.
constexpr int first_later_hotkey = ACTION_ANIMATION_SAVE, later_hotkeys = ACTION_LIST_END - first_later_hotkey;
int place_later_hotkey(int minor, int i) { return 2 * (first_later_hotkey + minor) + i; }

/// Ranges of a macro's words, in the order of the file.
constexpr Range macro_tool{0, TOOL_COUNT - 1}, macro_ink{0, INK_COUNT}, macro_slot{-1, 5}, macro_tip{-1, custom_tip};
constexpr Range macro_mode{MACRO_GRID_ON, MACRO_GRID_OFF}, macro_pitch{0, 999};
constexpr Range macro_ranges[] = {macro_tool, macro_ink,  macro_mode,  macro_tool, macro_ink, macro_pitch,
                                  macro_tool, macro_ink,  macro_pitch, macro_tool, macro_ink, macro_pitch,
                                  macro_tool, macro_ink,  macro_pitch, macro_tool, macro_ink, level_range,
                                  macro_slot, macro_slot, macro_tip};
static_assert(std::size(macro_ranges) == macro_words);

constexpr Field macro_field(macros.macro_table[0].tools[0], macro_count* macro_words, sizeof(int));
constexpr Field primary_keys(hotkeys.hotkey_table[0].primary, hotkey_rows, sizeof(HotkeyRow));
constexpr Field alternate_keys(hotkeys.hotkey_table[0].alternate, hotkey_rows, sizeof(HotkeyRow));

constexpr TagRow rows[] = {
    {1, flag_range, preferences.mouse_swap},
    {2, any_word, preferences.power_save},
    {3, level_range, preferences.sample_volume},
    {4, level_range, preferences.music_volume},
    {5, {1, 12}, preferences.undo_depth},
    {6, flag_range, preferences.show_tool_distance},
    {8, {0, mouse_functions - 1, Range::ZERO}, hotkeys.mouse_button_map},
    {9, flag_range, preferences.anti_jitter},
    {10, {0, 2}, preferences.frame_limiter},
    {11, {0, 2}, preferences.color_reduction},
    {12, flag_range, preferences.zoom_preview_on},
    {13, {1, 3}, preferences.zoom_preview_size},
    {14, level_range, preferences.crosshair_opacity},
    {15, flag_range, preferences.crosshair_scaling},
    {16, {0, 2, Range::ZERO}, preferences.crosshair_color},
    {17, flag_range, preferences.cel_masking},
    {18, level_range, preferences.cel_tolerance},
    {19, flag_range, preferences.status_bar_on},
    {20, flag_range, preferences.tooltips_on},
    {21, flag_range, preferences.backless_mode},
    {22, flag_range, preferences.cursor_scaling_off},
    {23, any_word, preferences.mouse_speed},
    {24, {0, 2}, preferences.file_preview_mode},
    {25, level_range, preferences.quickpan_opacity},
    {26, color_range, menu_scheme.scheme},
    {.tag = 27,
     .a = macro_field,
     .records = macro_count,
     .minors = macro_count,
     .place = place_macro,
     .ranges = macro_ranges,
     .bad_minor = "[ ERROR ] : Macro import failed. Index OOB. Index = %d"},
    {.tag = 7,
     .range = key_range,
     .a = primary_keys,
     .b = alternate_keys,
     .records = hotkey_rows,
     .minors = stored_hotkeys,
     .place = place_hotkey},
    {.tag = 28,
     .range = key_range,
     .a = primary_keys,
     .b = alternate_keys,
     .records = hotkey_rows,
     .minors = later_hotkeys,
     .place = place_later_hotkey},
};

/// What a first run has where it differs from the start values.
void set_missing_settings()
{
    preferences.mouse_swap = 0;
    preferences.sample_volume = 255;
    preferences.music_volume = 255;
    preferences.crosshair_opacity = 18;
    preferences.crosshair_scaling = 1;
    preferences.crosshair_color = 0;
}

} // namespace

int hotkey_row_of(int minor)
{
    // Rows 6 and 7 are at the end of the file; row 11 isn't kept, and those from 65 on are elsewhere.
    if (minor < 6) return minor;
    if (minor < 9) return minor + 2;
    return minor < 62 ? minor + 3 : minor - 56;
}

std::span<const TagRow> settings_tags() { return rows; }

void read_user_settings()
{
    const platform::DirectoryVisit visit(settings_folder);
    if (read_tag_file(settings_file, damaged_file, rows, TEXT_SETTINGS_NOT_READ) != TagFile::MISSING) return;
    log_line("[ INFO ] : Couldn't locate the user settings file. Assuming default settings.");
    set_missing_settings();
}

Bytes user_settings_bytes()
{
    Bytes bytes;
    ByteWriter out(bytes);
    write_tags(rows, out);
    return bytes;
}

bool write_user_settings()
{
    settle_running_work();
    platform::change_directory(run_state.program_dir);
    const platform::DirectoryVisit visit(settings_folder);
    if (visit.entered() && make_way(settings_file) && write_tag_file(settings_file, rows)) return true;
    report_unwritten(settings_file, TEXT_SETTINGS_NOT_WRITTEN);
    return false;
}

} // namespace kelu
