// SPDX-License-Identifier: MIT
// From a file's name to the routine that loads or saves it.
#include "screens/dispatch.h"

#include "gui/key_labels.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "gui/strings.h"
#include "gui/tooltips.h"
#include "imagefile/formats.h"
#include "imagefile/ico.h"
#include "imagefile/refusal.h"
#include "loop/frame.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/browser_state.h"
#include "runtime/hotkeys.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "screens/animation_files.h"
#include "screens/browser_listing.h"
#include "screens/jpeg_quality.h"
#include "workspace/archive.h"
#include "workspace/colour_files.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_store.h"
#include "workspace/merged.h"

namespace kelu {
namespace {

/// Tells of a file that wasn't loaded: in a dialog when the system wouldn't read it, else with a reason of our own.
bool refuse_file(const std::string& name, const std::string& reason)
{
    if (platform::last_failure() != 0)
        report_unread(name, TEXT_FILE_NOT_READ);
    else
        flash_failure(TIP_LOAD_FAILED, reason);
    return false;
}

/// Says in the status bar what was saved, or reports why it wasn't.
bool saved(const std::string& name, bool good)
{
    if (good) {
        flash_done(TIP_SAVED, shown_name(name));
    } else if (platform::last_failure() != 0) {
        report_unwritten(name, TEXT_FILE_NOT_WRITTEN);
    } else {
        flash_status_message(TIP_NOT_ENOUGH_MEMORY);
    }
    return good;
}

/// Says in the status bar what was loaded into the frame, and the way back.
void tell_loaded(const std::string& name)
{
    constexpr std::size_t longest_name = 14; // beside the way back
    const HotkeyRow& keys = hotkeys.hotkey_table[ACTION_PIC_RESTORE];
    const int key = keys.primary > 0 ? keys.primary : keys.alternate;
    const std::string way = key > 0 ? key_label(key) : "PIC, RESTORE";
    const std::string shown = shown_name(name);
    flash_done(TIP_LOADED, (shown.size() > longest_name ? "" : shown + ". ") + way + " BRINGS THE OLD PICTURE BACK");
}

/// The format that a browser mode stands for by itself, or the one determined from the file.
int format_in_mode(int file_format, int browser_mode)
{
    switch (browser_mode) {
    case BROWSE_WORKSPACE:
        return FORMAT_WSP;
    case BROWSE_FAVORITES:
        return FORMAT_FAVORITES;
    case BROWSE_SCHEME:
        return FORMAT_SCHEME;
    default:
        return file_format;
    }
}

/// Loads a picture, or says why it can't be.
bool load_into_frame(const std::string& name, int format)
{
    const bool is_picture = format != FORMAT_NONE && format_row(format).decode;
    const char* reason = is_picture ? refusal::no_memory : "No kind of picture!";
    picture_refusal = platform::file_exists(name) ? reason : "No such file!"; // until a decoder says something else
    if (is_picture) {
        refresh_frame_cache();
        if (load_frame_file(name, LOAD_PICTURE, format)) {
            tell_loaded(name);
            return true;
        }
    }
    return refuse_file(name, picture_refusal);
}

/// Asks for the quality of a JPEG while the browser's window, which begins at slot 0, is hidden; -1: cancelled.
int ask_quality()
{
    menu_hide(0);
    gui.active[0] = 0; // not hidden as the others are, for with slot 0 the status bar would hide its message
    gui.hidden[0] = 0;
    gui_logic.gui_key_focus = -1; // keys move the view over the preview and aren't the hidden field's
    const int quality = jpeg_quality_dialog();
    gui.active[0] = 1;
    menu_show(0);
    return quality;
}

/// Saves the frame; false when that failed.
bool write_frame_picture(const std::string& name, int format, const SaveOptions& options)
{
    if (format == FORMAT_NONE || !format_row(format).save)
        return format_row(FORMAT_PNG).save(name.c_str(), store.frame_bitmap, options);
    const FormatRow& row = format_row(format);
    if (!row.keeps_alpha) return row.save(name.c_str(), store.frame_bitmap, options);
    const Bitmap merged(store.frame_bitmap.width(), store.frame_bitmap.height());
    if (!merged) return false;
    alpha_merge(merged);
    return row.save(name.c_str(), merged, options);
}

bool too_large_for(int format)
{
    return format == FORMAT_ICO &&
           (store.frame_bitmap.width() > max_icon_side || store.frame_bitmap.height() > max_icon_side);
}

bool save_frame(const std::string& name, int format)
{
    if (too_large_for(format)) {
        flash_status_message(TIP_PICTURE_TOO_LARGE);
        return false;
    }
    SaveOptions options{.color_reduction = preferences.color_reduction};
    if (format == FORMAT_JPG) {
        options.jpg_quality = ask_quality();
        if (options.jpg_quality < 0) return false;
    }
    return saved(name, write_frame_picture(name, format, options));
}

} // namespace

bool load_picture_file(const std::string& name, int browser_mode)
{
    platform::forget_failure();
    if (browser_mode == BROWSE_ANIMATION) return load_animation_file(name);
    const int format =
        format_in_mode(browser_mode == BROWSE_PICTURE ? format_of_file(name) : FORMAT_NONE, browser_mode);
    switch (format) {
    case FORMAT_WSP:
        return load_workspace_archive(name, run_frame_in_passing) == 0; // which reports its failures itself
    case FORMAT_FAVORITES:
        return load_favorites_file(name) == 1 || refuse_file(name, "No file of colors!");
    case FORMAT_SCHEME:
        return load_scheme_file(name) == 1 || refuse_file(name, "No color scheme!");
    default:
        return load_into_frame(name, format);
    }
}

bool save_picture_file(const std::string& name, int browser_mode)
{
    platform::forget_failure();
    if (browser_mode == BROWSE_ANIMATION) return save_animation_file(name);
    const int format = format_in_mode(format_from_extension(name, false), browser_mode);
    switch (format) {
    case FORMAT_WSP:
        if (save_workspace_archive(name, run_frame_in_passing) != 0) return false; // which reports its failures itself
        return saved(name, true);
    case FORMAT_FAVORITES:
        return saved(name, save_favorites_file(name));
    case FORMAT_SCHEME:
        return saved(name, save_scheme_file(name));
    default:
        return save_frame(name, format);
    }
}

} // namespace kelu
