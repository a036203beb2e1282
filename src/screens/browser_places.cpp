// SPDX-License-Identifier: MIT
// Places and homes.
#include "screens/browser_places.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/build.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "platform/places.h"
#include "runtime/browser_state.h"
#include "runtime/text_settings.h"
#include "screens/browser_listing.h"
#include "screens/browser_slots.h"
#include "screens/dialogs.h"

namespace kelu {
namespace {

constexpr std::size_t longest_home = 255;
constexpr std::size_t longest_path = 254; ///< characters that the path field takes

std::string shown_folder() { return platform::upper_case(platform::working_directory()).substr(0, longest_path); }

bool go_to(const std::string& folder)
{
    const bool entered = enter_folder(folder);
    show_present_folder();
    show_current_drive();
    return entered;
}

/// Asks whether a folder should be made whose parent there is. True when it was made.
bool make_missing_folder(const std::string& folder)
{
    const std::size_t slash = folder.rfind('/');
    const std::string parent = slash == std::string::npos ? "." : folder.substr(0, slash + 1);
    if (folder.empty() || platform::file_exists(folder) || !platform::DirectoryVisit(parent).entered()) return false;
    told_text = '<' + shown_name(folder) + '>';
    if (confirm_over_window(TEXT_MAKE_FOLDER, TEXT_TOLD) == 0) return false;
    if (platform::make_folder(folder)) return true;
    flash_failure(TIP_FOLDER_NOT_OPENED, platform::failure_reason());
    return false;
}

/// Goes where the path field says. When that can't be, its text stays.
bool go_to_typed()
{
    const std::string typed = field_text_of(BROWSER_PATH).data();
    const bool entered =
        enter_folder(typed) || (make_missing_folder(path_named(typed)) && enter_folder(path_named(typed)));
    if (!entered) return false;
    if (menus.status_message == TIP_FOLDER_NOT_OPENED) menus.status_message = TIP_NONE; // it is there now
    show_present_folder();
    show_current_drive();
    return true;
}

} // namespace

void show_present_folder() { show_in_field(BROWSER_PATH, shown_folder()); }

bool settle_path() { return shown_folder() == field_text_of(BROWSER_PATH).data() || go_to_typed(); }

std::string& home_dir(int task)
{
    return task == BROWSER_FONT ? browser_state.home_font_dir : browser_state.home_image_dir;
}

bool read_places(int task)
{
    bool moved = false;
    if (gui.event[BROWSER_PATH].take() != 0) moved |= go_to_typed();
    for (int slot = BROWSER_DRIVE_0; slot < BROWSER_DRIVE_0 + browser_drives; ++slot) {
        if (gui.event[slot].take() != 0) moved |= go_to(drive_root_of(slot));
    }
    if (task != BROWSER_FONT) return moved;
    if (gui.event[BROWSER_LOCAL].take() != 0) moved |= go_to(run_state.program_dir + "/fonts");
    if (gui.event[BROWSER_OS].take() != 0) moved |= go_to(platform::system_font_folder());
    return moved;
}

void read_home(int task)
{
    if (gui.event[BROWSER_HOME].take() == 0) return;
    std::string& home = home_dir(task);
    const std::string here = platform::working_directory();
    const bool fits = here.size() <= longest_home;
    if (!fits) log_line("[ ERROR ] : Path is too long for a home directory! Path = %s", here);
    home = home.empty() && fits ? here : std::string();
    show_home_button(!home.empty());
}

FontPlace::FontPlace()
    : folder_(platform::working_directory()), browser_dir_(browser_state.browser_dir),
      browser_file_(browser_state.browser_file)
{
    browser_state.browser_dir = text_settings.font_dir;
    browser_state.browser_file = text_settings.font_file;
    platform::change_directory(browser_state.browser_dir);
}

FontPlace::~FontPlace()
{
    browser_state.browser_dir = browser_dir_;
    browser_state.browser_file = browser_file_;
    if (!platform::change_back(browser_dir_, folder_)) platform::change_directory(folder_);
}

void FontPlace::keep()
{
    text_settings.font_dir = browser_state.browser_dir;
    text_settings.font_file = browser_state.browser_file;
}

} // namespace kelu
