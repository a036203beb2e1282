// SPDX-License-Identifier: MIT
// Places and homes.
#include "screens/browser_places.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/build.h"
#include "platform/files.h"
#include "platform/places.h"
#include "runtime/browser_state.h"
#include "runtime/text_settings.h"
#include "screens/browser_listing.h"
#include "screens/browser_slots.h"

namespace kelu {
namespace {

constexpr std::size_t longest_home = 255;

bool go_to(const std::string& folder)
{
    const bool entered = enter_folder(folder);
    show_in_field(BROWSER_PATH, platform::upper_case(platform::working_directory()));
    show_current_drive();
    return entered;
}

} // namespace

std::string& home_dir(int task)
{
    return task == BROWSER_FONT ? browser_state.home_font_dir : browser_state.home_image_dir;
}

bool read_places(int task)
{
    bool moved = false;
    if (gui.event[BROWSER_PATH].take() != 0) moved |= go_to(field_text_of(BROWSER_PATH).data());
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
