// SPDX-License-Identifier: MIT
// Tagged frames on their way into a file.
#include "gui/build.h"
#include "imagefile/apng.h"
#include "imagefile/formats.h"
#include "imagefile/gif_animation.h"
#include "imagefile/png.h"
#include "imagefile/refusal.h"
#include "loop/actions.h"
#include "loop/frame.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/failure_reports.h"
#include "runtime/hotkeys.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "screens/animation_files.h"
#include "screens/browser_listing.h"
#include "screens/dialogs.h"
#include "screens/dispatch.h"
#include "screens/file_browser.h"
#include "workspace/archive_progress.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_store.h"
#include "workspace/merged.h"
#include "workspace/sprite_sheet.h"
#include <new>
#include <vector>

namespace kelu {
namespace {

/// The tagged frames on a canvas of the largest, each at its top left as the playback shows them.
class Film {
public:
    /// False, with the reason in `picture_refusal`, when a frame can't be read.
    bool measure()
    {
        for (int i = 0; i < count(); ++i) {
            const Bitmap frame = frame_at(i);
            if (!frame) return false;
            width = std::max(width, frame.width());
            height = std::max(height, frame.height());
            const int delay = animation.anim_delay[animation.anim_list[i]];
            durations.push_back(units_per_tick * ticks_of_delay(delay, animation.anim_speed));
        }
        return true;
    }
    int count() const { return animation.anim_count; }
    /// Frame i of the animation; must be asked for in the store's folder.
    Bitmap frame_at(int i) const
    {
        const int frame = animation.anim_list[i];
        Bitmap picture;
        if (frame != store.current_frame) {
            picture = read_stored_frame(frame_file(frame));
        } else if ((picture = Bitmap(store.frame_bitmap.width(), store.frame_bitmap.height()))) {
            alpha_merge(picture);
        }
        if (!picture) picture_refusal = "Frame " + std::to_string(frame) + " can't be read!";
        return picture;
    }
    /// The same on the canvas.
    Bitmap on_canvas(int i) const
    {
        Bitmap frame = frame_at(i);
        if (!frame || (frame.width() == width && frame.height() == height)) return frame;
        Bitmap canvas(width, height);
        if (canvas) blit(frame, canvas, 0, 0, 0, 0, frame.width(), frame.height());
        return canvas;
    }

    int width = 0, height = 0;
    std::vector<int> durations; ///< in time units
};

/// All pictures in one, by the columns and spaces of the sprite sheet screen. Empty when it would be too large.
Bitmap sheet_of(const Film& film, ArchiveProgress& progress)
{
    const SpriteSheet& form = sheet_settings;
    const int columns = std::min(form.columns, film.count());
    const int rows = (film.count() + columns - 1) / columns;
    const int pitch_x = film.width + form.spacing_x, pitch_y = film.height + form.spacing_y;
    Bitmap sheet(columns * pitch_x - form.spacing_x, rows * pitch_y - form.spacing_y);
    if (!sheet) return refuse(refusal::too_large);
    for (int i = 0; i < film.count(); ++i) {
        const Bitmap frame = film.frame_at(i);
        if (!frame) return {};
        blit(frame, sheet, 0, 0, i % columns * pitch_x, i / columns * pitch_y, frame.width(), frame.height());
        progress.show_part(i + 1, film.count());
        if (progress.called_off()) return {};
    }
    return sheet;
}

WriteResult write_sheet(const Film& film, platform::FileReplacement& file, ArchiveProgress& progress)
{
    const Bitmap sheet = sheet_of(film, progress);
    if (progress.called_off()) return WriteResult::CALLED_OFF;
    Bytes bytes;
    if (!sheet || encode_png(sheet, nullptr, bytes) != 0) return WriteResult::NO_PICTURE;
    return file.write(bytes) ? WriteResult::WRITTEN : WriteResult::NOT_TAKEN;
}

enum class Form { GIF, PNG, SHEET };

WriteResult write_film(const Film& film, Form form, platform::FileReplacement& file, ArchiveProgress& progress)
{
    if (form == Form::SHEET) return write_sheet(film, file, progress);
    const auto picture = [&film](int i) { return film.on_canvas(i); };
    const auto sink = [&file](std::span<const uint8_t> bytes) { return file.write(bytes); };
    const auto done = [&progress](int part, int all) {
        progress.show_part(part, all);
        return !progress.called_off();
    };
    const AnimationSource source{film.width, film.height, film.durations, picture};
    return form == Form::GIF ? write_gif_animation(source, preferences.color_reduction, sink, done)
                             : write_apng(source, sink, done);
}

/// Writes the file, and says so. Why not is told in a dialog.
bool save(const std::string& name, Form form)
{
    picture_refusal = refusal::no_memory;
    platform::FileReplacement file(name);
    const std::string path = platform::absolute_path(name); // the name is the folder's that is left
    if (!file.write({})) {
        report_unwritten(path, TEXT_FILE_NOT_WRITTEN);
        return false;
    }
    const WorkspaceVisit visit({});
    ArchiveProgress progress(TEXT_SAVING_ANIMATION, 1, run_frame_in_passing, true);
    Film film;
    WriteResult result = WriteResult::NO_PICTURE;
    try {
        if (visit.entered() && film.measure()) result = write_film(film, form, file, progress);
    } catch (const std::bad_alloc&) {
        picture_refusal = refusal::no_memory;
    }
    if (result == WriteResult::WRITTEN && !file.commit()) result = WriteResult::NOT_TAKEN;
    if (result == WriteResult::WRITTEN)
        flash_done(TIP_SAVED, shown_name(name));
    else if (result == WriteResult::CALLED_OFF)
        flash_status_message(TIP_CALLED_OFF);
    else if (result == WriteResult::NOT_TAKEN)
        report_unwritten(path, TEXT_FILE_NOT_WRITTEN);
    else
        report_failure(ui_strings[TEXT_FILE_NOT_WRITTEN], path, platform::upper_case(picture_refusal));
    return result == WriteResult::WRITTEN;
}

} // namespace

bool save_animation_file(const std::string& name)
{
    const int format = format_from_extension(name, false);
    if (format == FORMAT_GIF) return save(name, Form::GIF);
    if (format != FORMAT_PNG) {
        flash_failure(TIP_SAVE_FAILED, "An animation becomes a GIF or PNG!");
        return false;
    }
    constexpr int answers[] = {TEXT_ANIMATION, TEXT_SHEET, TEXT_CANCEL};
    const int answer = choose_over_window(TEXT_SHEET_OR_ANIMATION, answers);
    return answer < 2 && save(name, answer == 0 ? Form::PNG : Form::SHEET);
}

void save_animation()
{
    wait_for_release(ACTION_ANIMATION_SAVE); // or the key would be the first letter of the name
    if (animation.anim_count == 0)
        flash_status_message(TIP_NO_TAGGED_FRAMES);
    else
        file_browser(BROWSER_SAVE, BROWSE_ANIMATION);
}

} // namespace kelu
