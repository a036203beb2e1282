// SPDX-License-Identifier: MIT
// Pictures of a file on their way to frames.
#include "gui/build.h"
#include "imagefile/apng.h"
#include "imagefile/formats.h"
#include "imagefile/gif_animation.h"
#include "imagefile/picture_files.h"
#include "imagefile/refusal.h"
#include "loop/actions.h"
#include "loop/frame.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/grid.h"
#include "runtime/hotkeys.h"
#include "runtime/store.h"
#include "screens/animation_files.h"
#include "screens/browser_listing.h"
#include "screens/dialogs.h"
#include "screens/dispatch.h"
#include "screens/file_browser.h"
#include "workspace/archive_progress.h"
#include "workspace/frame_import.h"
#include "workspace/state.h"
#include <new>
#include <vector>

namespace kelu {
namespace {

constexpr const char* state_file = "current.spa";
constexpr int usual_duration = time_units / 10; // of a picture that says none
constexpr int color_bits = 0xffffff;

/// What a file holds before its pictures become frames.
struct Content {
    Bytes bytes;
    Bitmap still;   ///< its only picture, in merged form; empty for an animation
    int format = 0; ///< FORMAT_GIF or FORMAT_PNG of an animation
    int frames = 0; ///< that it makes
};

using ReadPictures = bool (*)(std::span<const uint8_t>, TakePicture);

ReadPictures reader_of(int format) { return format == FORMAT_GIF ? read_gif_animation : read_apng; }

/// The cells of the grid on a sheet. One that lies more than half beyond the edge isn't meant.
struct Cells {
    explicit Cells(BITMAP* sheet)
        : w(std::max(2, int(grid.grid_w))), h(std::max(2, int(grid.grid_h))), left(grid.grid_off_x),
          top(grid.grid_off_y), columns((sheet->w - left + w / 2) / w), rows((sheet->h - top + h / 2) / h)
    {}
    int w, h, left, top, columns, rows;
};

Bitmap cell_of(BITMAP* sheet, const Cells& cells, int i)
{
    Bitmap cell(cells.w, cells.h);
    if (cell)
        blit(sheet, cell, cells.left + i % cells.columns * cells.w, cells.top + i / cells.columns * cells.h, 0, 0,
             cells.w, cells.h);
    return cell;
}

bool is_empty(BITMAP* picture)
{
    for (int y = 0; y < picture->h; ++y)
        for (int x = 0; x < picture->w; ++x)
            if (static_cast<unsigned>(row(picture, y)[x]) > unsigned{color_bits}) return false;
    return true;
}

/// Cells of a sheet that make frames: all but the empty ones at its end.
int cells_in_use(BITMAP* sheet, const Cells& cells)
{
    int count = std::max(0, cells.columns) * std::max(0, cells.rows);
    for (; count > 1; --count) {
        const Bitmap last = cell_of(sheet, cells, count - 1);
        if (!last || !is_empty(last)) break;
    }
    return count;
}

/// Takes the only picture of a file.
bool take_still(Content& content)
{
    const auto keep = [&content](const Bitmap& picture, int) {
        content.still = picture.copy();
        return false;
    };
    reader_of(content.format)(content.bytes, keep);
    return static_cast<bool>(content.still);
}

/// Reads a file as far as it takes to know how many frames it makes; false, with the reason in `picture_refusal`.
bool look_into(const std::string& name, Content& content)
{
    if (!platform::read_file(name, max_picture_file, content.bytes)) {
        picture_refusal = platform::file_exists(name) ? platform::failure_reason() : "No such file!";
        return false;
    }
    // By what it holds, whatever it is called.
    content.format = format_from_signature(name);
    if (content.format == FORMAT_GIF || content.format == FORMAT_PNG) {
        const AnimationHead head =
            content.format == FORMAT_GIF ? gif_animation_head(content.bytes) : apng_head(content.bytes);
        content.frames = head.pictures;
        if (content.frames != 1) return content.frames > 1;
        if (!take_still(content)) return false;
    } else {
        content.still = load_picture(name, format_of_file(name));
        if (!content.still) return false;
        content.bytes.clear();
    }
    const Cells cells(content.still);
    content.frames = grid.grid_on != 0 ? std::max(1, cells_in_use(content.still, cells)) : 1;
    return true;
}

/// Frames that are to come; 0: none after all. More than there is room for are announced before anything is done.
int frames_to_load(const Content& content)
{
    const int room = FrameImport::room();
    if (content.frames <= room) return content.frames;
    told_text =
        std::to_string(content.frames) + " PICTURES, AND ROOM FOR " + (room == 0 ? "NONE" : std::to_string(room)) + ".";
    constexpr int answers[] = {TEXT_OKAY, TEXT_CANCEL};
    const bool some = room > 0;
    const int answer =
        choose_over_window(TEXT_TOLD, std::span(answers).first(some ? 2 : 1), some ? TEXT_LOAD_FIRST_ONES : TEXT_NONE);
    return some && answer == 0 ? room : 0;
}

/// One loading of a file: frames are staged one by one, with the times of their pictures.
class Loading {
public:
    Loading(const Content& content, int frames)
        : content_(content), frames_(frames), progress_(TEXT_LOADING_ANIMATION, 1, run_frame_in_passing, true)
    {}
    /// False: nothing has changed.
    bool run() { return (content_.still ? stage_still() : stage_pictures()) && import_.commit(delays()); }
    bool called_off() { return progress_.called_off(); }
    /// Frames whose time doesn't fit the speed of the animation.
    int cut_times() const { return cut_times_; }

private:
    bool stage(BITMAP* picture, int duration)
    {
        if (!picture || !import_.add(picture)) {
            picture_refusal = picture ? platform::failure_reason() : refusal::no_memory;
            return false;
        }
        ticks_.push_back(std::max(1, (duration + units_per_tick / 2) / units_per_tick));
        progress_.show_part(import_.count(), frames_);
        return !progress_.called_off();
    }
    bool stage_still()
    {
        if (grid.grid_on == 0) return stage(content_.still, usual_duration);
        const Cells cells(content_.still);
        for (int i = 0; i < frames_; ++i)
            if (!stage(cell_of(content_.still, cells, i), usual_duration)) return false;
        return true;
    }
    bool stage_pictures()
    {
        const auto take = [this](const Bitmap& picture, int duration) {
            return import_.count() < frames_ && stage(picture, duration == 0 ? usual_duration : duration);
        };
        return reader_of(content_.format)(content_.bytes, take) || import_.count() == frames_;
    }
    /// The times at the speed of the animation. The first animation of a workspace brings its own.
    std::vector<int> delays()
    {
        if (animation.anim_count == 0) animation.anim_speed = speed_for_ticks(*std::ranges::max_element(ticks_));
        std::vector<int> all;
        for (const int ticks : ticks_) {
            all.push_back(delay_of_ticks(ticks, animation.anim_speed));
            cut_times_ += all.back() == max_anim_delay && ticks_of_delay(all.back(), animation.anim_speed) < ticks;
        }
        return all;
    }

    const Content& content_;
    int frames_;
    ArchiveProgress progress_;
    FrameImport import_;
    std::vector<int> ticks_; ///< of each frame so far
    int cut_times_ = 0;
};

bool refused()
{
    flash_failure(TIP_LOAD_FAILED, picture_refusal);
    return false;
}

bool load(const Content& content, int frames)
{
    Loading loading(content, frames);
    if (!loading.run()) {
        if (!loading.called_off()) return refused();
        flash_status_message(TIP_CALLED_OFF);
        return false;
    }
    std::string summary = std::to_string(frames) + (frames == 1 ? " frame" : " frames");
    if (const int cut = loading.cut_times(); cut > 0)
        summary += ", " + std::to_string(cut) + " times cut at this speed";
    flash_done(TIP_LOADED, summary);
    return true;
}

} // namespace

bool load_animation_file(const std::string& name)
{
    picture_refusal = refusal::no_memory;
    try {
        Content content;
        if (!look_into(name, content)) return refused();
        const int frames = frames_to_load(content);
        const platform::DirectoryVisit here(platform::working_directory()); // the state is written from elsewhere
        // The message of a failure to write the state stays.
        return frames > 0 && load(content, frames) && write_workspace_state(state_file, true);
    } catch (const std::bad_alloc&) {
        picture_refusal = refusal::no_memory;
    }
    return refused();
}

void load_animation()
{
    wait_for_release(ACTION_ANIMATION_LOAD);
    file_browser(BROWSER_LOAD, BROWSE_ANIMATION);
}

} // namespace kelu
