// SPDX-License-Identifier: MIT
// Rows, folders and names.
#include "screens/browser_listing.h"

#include "base/log.h"
#include "gui/build.h"
#include "gui/scroll_bar.h"
#include "imagefile/formats.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "platform/places.h"
#include "runtime/browser_list.h"
#include "runtime/browser_state.h"
#include "runtime/input.h"
#include <algorithm>
#include <cctype>

namespace kelu {
namespace {

constexpr int shown_rows = 13;
constexpr int row_pitch = 6;
constexpr int most_steps = 1023;
constexpr int bar_x = 183; ///< a press further right of the list's edge is the bar's
constexpr std::size_t longest_dir = 255;
constexpr std::size_t longest_shown = 30; ///< characters of a name in a message

/// What a row shows of a name. The font has the letters of ASCII alone.
std::string row_text(const std::string& name, bool folder)
{
    std::string text = folder ? "\\" : "";
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        const bool continues = byte >= 0x80 && byte < 0xc0; // of a letter that has its mark already
        if (!continues) text += byte >= ' ' && byte < 0x7f ? c : '?';
    }
    return platform::upper_case(text.substr(0, browser_name_bytes - 1));
}

void add_row(const std::string& name, bool folder)
{
    if (browser_listing.browser_count >= browser_list_rows) return;
    const auto index = static_cast<std::size_t>(browser_listing.browser_count++);
    std::ranges::copy(row_text(name, folder), browser_listing.browser_list[index].begin());
    browser_listing.browser_isdir[index] = folder ? 1 : 0;
    browser_listing.true_name[index] = name;
}

/// `pattern` is "*.*" or a star and an ending. An ending takes every other one of its format too.
bool matches(const std::string& name, std::string_view pattern)
{
    if (pattern == every_file) return true;
    const std::string_view ending = pattern.substr(1);
    const int format = format_from_extension(std::string(pattern), false);
    if (format != FORMAT_NONE) return format_from_extension(name, false) == format;
    return name.size() >= ending.size() &&
           platform::same_name(std::string_view(name).substr(name.size() - ending.size()), ending);
}

/// A path with its drive's folder in the place of the drive's letter.
std::string without_drive(const std::string& path)
{
    if (path.size() < 2 || path[1] != ':') return path;
    const int drive = std::toupper(static_cast<unsigned char>(path[0])) - 'A';
    if (!platform::drive_exists(drive)) return path;
    return platform::places.drive_root[drive] + "/" + path.substr(2);
}

} // namespace

std::string path_named(const std::string& typed)
{
    std::string path = platform::resolve_path(without_drive(typed));
    while (path.size() > 1 && (path.back() == '/' || path.back() == '\\'))
        path.pop_back();
    return path;
}

std::string shown_name(const std::string& path)
{
    const std::string name = row_text(path.substr(path.rfind('/') + 1), false);
    return name.size() <= longest_shown ? name : "..." + name.substr(name.size() - longest_shown + 3);
}

void scan_directory(std::string_view pattern, int list_slot, int path_slot)
{
    browser_listing = {};
    browser_state.browser_file.clear();
    const std::string folder = platform::working_directory();
    browser_state.browser_dir = platform::upper_case(folder).substr(0, longest_dir);
    if (folder != "/") add_row("..", true);
    platform::forget_failure();
    for (const platform::Entry& entry : platform::list_folder(".")) {
        if (entry.is_folder || matches(entry.name, pattern)) add_row(entry.name, entry.is_folder);
    }
    if (platform::last_failure() != 0) flash_failure(TIP_FOLDER_NOT_READ, platform::failure_reason());
    if (path_slot >= 0) show_in_field(path_slot, browser_state.browser_dir);
    if (list_slot >= 0) fit_list_bar(list_slot);
}

void fit_list_bar(int slot)
{
    gui.scroll_on[slot] = 0;
    gui.scroll_value[slot] = 0;
    if (browser_listing.browser_count <= shown_rows) return;
    const int steps = std::min(browser_listing.browser_count - shown_rows + 1, most_steps);
    gui.scroll_min[slot] = 0;
    gui.scroll_max[slot] = steps;
    gui.scroll_steps[slot] = steps;
    build_knob_table(slot);
    gui.scroll_on[slot] = 1;
}

int pointed_row(int slot, int press_x)
{
    if (slot_under_pointer() != slot || press_x > gui.x[slot] + bar_x) return -1;
    const int line = (pointer.mouse_y - 2 - gui.y[slot]) / row_pitch;
    const int row = line + gui.scroll_value[slot];
    return line < shown_rows && row < browser_listing.browser_count ? row : -1;
}

bool enter_folder(const std::string& path)
{
    if (platform::change_directory(without_drive(path))) return true;
    platform::note_failure();
    log_line("[ ERROR ] : Couldn't open the folder! Name = %s", path);
    const bool missing = !platform::file_exists(path_named(path));
    flash_failure(TIP_FOLDER_NOT_OPENED, missing ? "NO SUCH FOLDER" : platform::failure_reason());
    return false;
}

void show_in_field(int slot, const std::string& text)
{
    set_field_text(slot, text.c_str());
    gui.field_scroll[slot] = std::max(0, gui.field_caret[slot] - gui.field_visible[slot]);
}

std::string with_ending(const std::string& text, std::string_view pattern)
{
    constexpr std::string_view ends_of_folders = "/\\.";
    const std::string row_ending(pattern);
    const bool names_a_file = !text.empty() && ends_of_folders.find(text.back()) == std::string_view::npos;
    const bool has_ending = format_from_extension(text, false) != FORMAT_NONE;
    const int format = format_from_extension(row_ending, false);
    const bool can_be_written = format != FORMAT_NONE && format_row(format).save;
    return names_a_file && !has_ending && can_be_written ? text + row_ending.substr(1) : text;
}

std::string file_named(const std::string& text, const PickedFile& picked)
{
    const bool is_picked = !picked.name.empty() && text == picked.shown;
    if (is_picked && picked.folder == platform::working_directory()) return picked.name;
    return platform::resolve_path(without_drive(text));
}

} // namespace kelu
