// SPDX-License-Identifier: MIT
// What the main thread hands over for the thread that writes: the journal's beginnings, the stroke that is being drawn,
// whole pictures, frames that were left, small files; and its failures, which are reported.
#include "workspace/running_work.h"

#include "draw/operation.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "gui/strings.h"
#include "platform/file_calls.h"
#include "runtime/store.h"
#include "workspace/change_set.h"
#include "workspace/folder.h"
#include "workspace/merged.h"
#include "workspace/running_files.h"
#include "workspace/work_thread.h"
#include <cerrno>
#include <chrono>

namespace kelu {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto unfinished_time = 500ms;         // between two looks at a stroke that is being drawn
constexpr auto retry_time = 3s;                 // after a failure
constexpr auto quiet_time = 20s;                // in which a failure like the last one isn't reported again
constexpr std::size_t most_tiles_at_once = 128; // that the main thread copies by itself: 2 MB

WorkThread worker;

Clock::time_point next_unfinished, next_files, next_picture;

Plane plane_of_frame() { return store.alpha_edit_mode ? Plane::ALPHA : Plane::COLOR; }

void hand_over_picture()
{
    Bitmap merged = merged_picture(color_picture(), alpha_picture());
    if (!merged) return;
    const std::lock_guard lock(unsaved.mutex);
    unsaved.clear();
    worker.append(PictureOrder{std::move(merged)});
}

bool picture_wanted()
{
    const std::lock_guard lock(unsaved.mutex);
    return unsaved.whole;
}

void hand_over_tile(BITMAP* picture, TileGrid grid, std::size_t tile)
{
    auto pixels = std::make_unique_for_overwrite<TilePixels>();
    pixels->take(picture, grid.box(tile));
    worker.append(TileOrder{worker.plane(), tile, std::move(pixels)});
}

/// Hands over the settled tiles that the thread would take by itself later. The caller holds the mutex.
void hand_over_settled_tiles()
{
    while (!unsaved.tiles.empty())
        hand_over_tile(undo.source_bitmap, TileGrid::of(undo.source_bitmap), unsaved.take_last());
}

/// What a stroke that is still drawn has painted since the last look. What was settled before it goes first.
void keep_unfinished_stroke()
{
    const std::lock_guard lock(unsaved.mutex);
    if (unsaved.tiles.size() > most_tiles_at_once) return; // the thread is about to take them
    hand_over_settled_tiles();
    for (std::size_t i = 0; i < most_tiles_at_once && !touched.fresh.empty(); ++i) {
        hand_over_tile(store.frame_bitmap, touched.grid, touched.take_fresh());
    }
}

WorkThread::Failure reported{}; ///< the last failure, which isn't reported again before `reported_until`
Clock::time_point reported_until;

void report_newest_failure()
{
    const std::optional<WorkThread::Failure> failure = worker.take_failure();
    if (!failure) return;
    next_picture = Clock::now() + retry_time;
    errno = failure->error;
    platform::note_failure();
    forget_running_files();
    // The thread tries again by itself: of several failures of one kind only the first is reported.
    const bool goes_on =
        failure->name == reported.name && failure->error == reported.error && Clock::now() < reported_until;
    reported = *failure;
    reported_until = Clock::now() + quiet_time;
    if (!goes_on) report_unwritten(failure->name, TEXT_WORKSPACE_NOT_WRITTEN);
}

BeginOrder begin_order(bool drops)
{
    const int frame = store.current_frame;
    return {frame, store_path(frame_file(frame)), store_path(frame_file(frame, file_set::journal)), drops};
}

} // namespace

void start_running_work()
{
    if (worker.running()) return;
    const bool recovered = picture_wanted();
    {
        const std::lock_guard lock(unsaved.mutex);
        unsaved.clear();
        unsaved.collecting = true;
        worker.set_plane(plane_of_frame());
        worker.append(begin_order(false));
    }
    reported = {};
    next_unfinished = next_picture = Clock::now();
    next_files = next_unfinished + files_time;
    remember_running_files();
    if (recovered) hand_over_picture();
    worker.start();
}

void stop_running_work(bool committed)
{
    if (!worker.running()) return;
    if (committed) {
        begin_journal();
    } else if (picture_wanted()) {
        hand_over_picture();
    }
    worker.stop();
    const std::lock_guard lock(unsaved.mutex);
    unsaved.collecting = false;
    unsaved.clear();
}

void begin_journal()
{
    const std::lock_guard lock(unsaved.mutex);
    unsaved.clear();
    if (!worker.running()) return;
    worker.set_plane(plane_of_frame());
    worker.append(begin_order(true));
}

void exchange_journal_plane()
{
    const std::lock_guard lock(unsaved.mutex);
    if (!worker.running()) return;
    hand_over_settled_tiles();
    worker.set_plane(plane_of_frame() == Plane::COLOR ? Plane::ALPHA : Plane::COLOR);
}

void keep_running_work()
{
    if (!worker.running()) return;
    const Clock::time_point now = Clock::now();
    report_newest_failure();
    if (undo.operations == 0) {
        if (now >= next_picture && picture_wanted()) hand_over_picture();
    } else if (operation.show_progress && now >= next_unfinished && !picture_wanted()) {
        next_unfinished = now + unfinished_time;
        keep_unfinished_stroke();
    }
    if (now < next_files || change_waits()) return; // a change that waits would take back what is written now
    next_files = now + files_time;
    std::vector<RunningFile> files = changed_running_files();
    const std::lock_guard lock(unsaved.mutex);
    for (RunningFile& file : files)
        worker.append(std::move(file));
}

bool settle_running_work()
{
    if (!worker.running()) return true;
    if (undo.operations == 0 && picture_wanted()) hand_over_picture();
    return worker.settle();
}

bool running_work_started() { return worker.running(); }

void hand_over_left_frame(LeftFrame left)
{
    std::string name = store_path(frame_file(left.frame));
    const std::lock_guard lock(unsaved.mutex);
    if (!unsaved.whole && unsaved.tiles.size() <= most_tiles_at_once)
        hand_over_settled_tiles(); // more isn't worth the wait
    worker.append_commit({std::move(left), std::move(name)});
}

void hand_over_nails()
{
    RunningFile file{store_path(set_file("nal")), {}, store.nail_sheet.copy()};
    if (!file.picture) return;
    const std::lock_guard lock(unsaved.mutex);
    worker.append(std::move(file));
}

void wait_for_frame_file(const std::string& name)
{
    if (worker.running()) worker.wait_for(store_path(name));
}

Bitmap take_back_left_frame(int frame)
{
    if (!worker.running()) return {};
    std::optional<LeftFrame> left = worker.take_back(frame);
    if (!left) return {};
    return merged_picture(left->color, left->alpha);
}

} // namespace kelu
