// SPDX-License-Identifier: MIT
// The browser's loop: clicks on the list, fields and buttons, and what OKAY does.
#include "screens/file_browser.h"

#include "base/run_state.h"
#include "gui/build.h"
#include "gui/field.h"
#include "gui/scheme.h"
#include "imagefile/font_preview.h"
#include "imagefile/formats.h"
#include "loop/pass.h"
#include "platform/files.h"
#include "runtime/browser_list.h"
#include "runtime/browser_state.h"
#include "runtime/clock.h"
#include "runtime/input.h"
#include "runtime/jobs.h"
#include "screens/browser_listing.h"
#include "screens/browser_places.h"
#include "screens/dialogs.h"
#include "screens/dispatch.h"
#include "screens/failure_dialog.h"
#include "screens/preview.h"
#include "workspace/text_font.h"
#include "workspace/thumbnails.h"
#include <algorithm>
#include <optional>
#include <utility>

namespace kelu {
namespace {

constexpr int double_click = 250; ///< counts of 1/500 s

/// One opening of the screen.
class Browser {
public:
    Browser(int task, int file_kind) : task_(task), file_kind_(file_kind) {}
    void open();
    /// One pass; false when the screen is to be left.
    bool run_pass();
    bool cancelled() const { return cancelled_; }

private:
    void show_preview();
    void read_list();
    void choose_file(int row);
    void read_filters();
    bool chosen();
    bool okay();
    bool choose_font(const std::string& name);
    std::string name_to_save(const std::string& typed) const;
    void keep_name(const std::string& name) const;
    void reload();

    int task_, file_kind_;
    PickedFile picked_;
    bool preview_pending_ = false, reload_ = false, confirmed_ = false, cancelled_ = false;
    int clicked_field_ = -1; ///< field that shows what was clicked in this pass
};

std::string field_text(int slot) { return field_text_of(slot).data(); }

void Browser::open()
{
    scan_directory(every_file, -1, -1);
    build_file_browser(task_);
    show_current_drive();
    show_home_button(!home_dir(task_).empty());
    show_present_folder();
    show_preview_message(PREVIEW_UNAVAILABLE);
    if (file_kind_ == BROWSE_PICTURE) show_in_field(BROWSER_FILE, browser_state.last_picture);
    gui_propose_text(BROWSER_FILE);
}

void Browser::show_preview()
{
    const bool forced = gui.event[BROWSER_PREVIEW].take() != 0;
    if (!std::exchange(preview_pending_, false) && !forced) return;
    const std::string name = file_named(field_text(BROWSER_FILE), picked_);
    if (task_ == BROWSER_FONT) {
        update_font_preview(name);
    } else {
        update_preview(name, forced);
    }
}

/// A file takes the place of the one selected before; a second click on it confirms.
void Browser::choose_file(int row)
{
    confirmed_ = browser_listing.selected_row == row && clock_state.idle_counter < double_click;
    browser_listing.selected_row = row;
    picked_ = {browser_listing.browser_list[row].data(), browser_listing.true_name[row], platform::working_directory()};
    browser_state.browser_file = picked_.shown;
    show_present_folder(); // the file is one of those that are listed, whatever was typed there
    show_in_field(BROWSER_FILE, picked_.shown);
    clicked_field_ = BROWSER_FILE;
    preview_pending_ = format_from_extension(picked_.name, task_ == BROWSER_FONT) != FORMAT_NONE;
    if (!preview_pending_) show_preview_message(PREVIEW_UNAVAILABLE);
    clock_state.idle_counter = 0;
}

void Browser::read_list()
{
    if (!left_down()) return;
    const int press_x = pointer.mouse_x;
    wait_left_release();
    const int row = pointed_row(BROWSER_LIST, press_x);
    if (row < 0) return;
    if (browser_listing.browser_isdir[row] == 0) {
        choose_file(row);
        return;
    }
    enter_folder("./" + browser_listing.true_name[row]);
    reload_ = true;
    clicked_field_ = BROWSER_PATH;
}

void Browser::read_filters()
{
    for (int slot = BROWSER_FILTER_0; slot < BROWSER_FILTER_0 + browser_filters; ++slot) {
        if (gui.event[slot].take() == 0) continue;
        keep_filter(slot);
        reload_ = true;
    }
}

/// True when OKAY was clicked, Enter was pressed in the field, or a file was clicked twice.
bool Browser::chosen()
{
    const bool by_button = gui.event[BROWSER_OKAY].take() != 0;
    const bool by_key = gui.event[BROWSER_FILE].take() != 0;
    const bool by_clicks = std::exchange(confirmed_, false);
    return by_button || by_key || by_clicks;
}

/// True when the font is the text tool's now; otherwise that keeps the one it has.
bool Browser::choose_font(const std::string& name)
{
    if (!platform::file_exists(name)) flash_failure(TIP_LOAD_FAILED, "No such file!");
    if (load_vector_font(name) != 1) return false;
    browser_state.browser_file = field_text(BROWSER_FILE);
    return true;
}

/// The typed name with the ending that the lit filter gives it. Without one an animation becomes a GIF.
std::string Browser::name_to_save(const std::string& typed) const
{
    if (file_kind_ == BROWSE_PICTURE) return with_ending(typed, lit_pattern());
    if (file_kind_ != BROWSE_ANIMATION) return typed;
    return with_ending(typed, lit_pattern() == every_file ? "*.GIF" : lit_pattern());
}

/// The name is proposed the next time, if the field has all of its letters.
void Browser::keep_name(const std::string& name) const
{
    const bool plain = std::ranges::all_of(name, [](char c) { return c >= ' ' && c < 0x7f; });
    if (file_kind_ == BROWSE_PICTURE && plain) browser_state.last_picture = name;
}

/// True when the file of the field has been loaded or saved, or that was tried.
bool Browser::okay()
{
    const std::string folder = platform::working_directory();
    const bool settled = settle_path();
    reload_ |= platform::working_directory() != folder;
    if (!settled) return false;
    const std::string typed = field_text(BROWSER_FILE);
    const std::string name = file_named(task_ == BROWSER_SAVE ? name_to_save(typed) : typed, picked_);
    if (task_ == BROWSER_FONT) {
        cancelled_ = !choose_font(name);
    } else if (task_ == BROWSER_SAVE) {
        if (platform::file_exists(name) && confirm_over_window(TEXT_FILE_EXISTS, TEXT_NONE) == 0) return false;
        if (save_picture_file(name, file_kind_)) keep_name(name);
    } else if (load_picture_file(name, file_kind_)) {
        keep_name(name);
        update_frame_nail(0);
    }
    return true;
}

void Browser::reload()
{
    picked_.name = field_text(BROWSER_FILE) == picked_.shown ? picked_.name : std::string();
    if (std::exchange(reload_, false)) {
        scan_directory(lit_pattern(), BROWSER_LIST, BROWSER_PATH);
        show_current_drive();
    }
    const int clicked = std::exchange(clicked_field_, -1);
    if (clicked >= 0 && gui_logic.gui_key_focus == clicked) gui_set_key_focus(clicked, true);
}

bool Browser::run_pass()
{
    cancelled_ = !kelu::run_pass({.right_click = RightClick::LEAVES});
    if (cancelled_) return false;
    show_preview();
    read_list();
    reload_ |= read_places(task_);
    read_home(task_);
    if (chosen() && okay()) return false;
    cancelled_ = gui.event[BROWSER_CANCEL].take() != 0;
    if (cancelled_) return false;
    read_filters();
    reload();
    return true;
}

} // namespace

void file_browser(int task, int file_kind)
{
    std::optional<FontPlace> font_place;
    if (task == BROWSER_FONT) font_place.emplace();
    const std::string& home = home_dir(task);
    if (!home.empty()) {
        enter_folder(home);
    } else if (!font_place && platform::working_directory() == run_state.program_dir) {
        platform::change_directory(run_state.current_dir); // writing the workspace leaves the user's folder
    }
    Browser browser(task, file_kind);
    browser.open();
    while (browser.run_pass()) {}
    clear_to_color(screen_state.preview_bitmap, menu_scheme.scheme_background);
    gui_logic.gui_key_focus = -1;
    close_screen();
    if (!font_place) run_state.current_dir = platform::working_directory();
    if (font_place && !browser.cancelled()) FontPlace::keep();
    tell_of_failures(); // wherever the browser was opened
}

void choose_font_job(int index)
{
    job_clear(index);
    file_browser(BROWSER_FONT, BROWSE_FONT);
}

} // namespace kelu
