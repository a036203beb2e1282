// SPDX-License-Identifier: MIT
// Orders carried out one after the other, and tiles between them.
#include "workspace/work_thread.h"

#include "draw/undo.h"
#include "imagefile/tga.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/pixels.h"
#include "workspace/folder.h"
#include "workspace/merged.h"
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <utility>

namespace kelu {
namespace {

using namespace std::chrono_literals;

constexpr auto gather_time = 200ms;   // strokes that follow one another at once share a batch
constexpr uint64_t pictures_kept = 3; // a journal that outgrows so many pictures of its frame is written anew

/// Lets the main thread hand over the whole picture, after which the journal begins anew.
void ask_for_picture()
{
    const std::lock_guard lock(unsaved.mutex);
    unsaved.whole = true;
}

bool write_left_frame(const CommitOrder& order)
{
    const Bitmap& color = order.left.color;
    return write_tga(order.name, color.width(), color.height(), [&](int y, int* pixels) {
        merge_pixels(row(color, y), row(order.left.alpha, y), pixels, color.width());
    });
}

} // namespace

void WorkThread::start()
{
    stop_ = false;
    thread_ = std::thread([this] { run(); });
}

void WorkThread::stop()
{
    if (!running()) return;
    {
        const std::lock_guard lock(unsaved.mutex);
        stop_ = true;
    }
    unsaved.news.notify_all();
    thread_.join();
}

void WorkThread::append(Order order)
{
    orders_.push_back(std::move(order));
    unsaved.news.notify_all();
}

void WorkThread::append_commit(CommitOrder order)
{
    pending_files_.push_back(order.name);
    append(std::move(order));
}

bool WorkThread::settle()
{
    std::unique_lock lock(unsaved.mutex);
    for (CommitOrder& failed : failed_commits_)
        append_commit(std::move(failed));
    failed_commits_.clear();
    urgent_ = true;
    unsaved.news.notify_all();
    done_.wait(lock, [this] { return !busy_ && orders_.empty() && !tiles_wait(); });
    urgent_ = false;
    return failed_commits_.empty();
}

void WorkThread::wait_for(const std::string& name)
{
    std::unique_lock lock(unsaved.mutex);
    done_.wait(lock, [&] { return std::ranges::find(pending_files_, name) == pending_files_.end(); });
}

std::optional<LeftFrame> WorkThread::take_back(int frame)
{
    const std::lock_guard lock(unsaved.mutex);
    const auto found = std::ranges::find(failed_commits_, frame, [](const CommitOrder& one) { return one.left.frame; });
    if (found == failed_commits_.end()) return std::nullopt;
    LeftFrame left = std::move(found->left);
    failed_commits_.erase(found);
    return left;
}

std::optional<WorkThread::Failure> WorkThread::take_failure()
{
    const std::lock_guard lock(unsaved.mutex);
    return std::exchange(failure_, std::nullopt);
}

/// A frame that was left isn't in its file yet: its order is in the queue, or is to be tried again.
bool WorkThread::commit_waits(int frame)
{
    const std::lock_guard lock(unsaved.mutex);
    const auto is_of_frame = [frame](const CommitOrder& one) { return one.left.frame == frame; };
    return std::ranges::any_of(failed_commits_, is_of_frame) ||
           std::ranges::find(pending_files_, store_path(frame_file(frame))) != pending_files_.end();
}

void WorkThread::run()
{
    std::unique_lock lock(unsaved.mutex);
    for (;;) {
        unsaved.news.wait(lock, [this] { return stop_ || work_waits(); });
        if (stop_ && !work_waits()) return;
        if (orders_.empty())
            unsaved.news.wait_for(lock, gather_time, [this] { return stop_ || urgent_ || !orders_.empty(); });
        busy_ = true;
        write_all(lock);
        busy_ = false;
        done_.notify_all();
    }
}

/// Carries out all orders and takes all tiles. The lock is held at the begin and at the end.
void WorkThread::write_all(std::unique_lock<std::mutex>& lock)
{
    do {
        while (!orders_.empty()) {
            Order order = std::move(orders_.front());
            orders_.pop_front();
            lock.unlock();
            std::visit([this](auto& what) { carry_out(what); }, order);
            lock.lock();
        }
        take_tiles(lock);
    } while (!orders_.empty());
    // Tiles that were thrown away while they were taken leave half an operation; a whole picture follows.
    const bool torn = unsaved.whole;
    lock.unlock();
    if (torn) give_up();
    seal();
    lock.lock();
}

/// Takes the tiles that wait, until none does at the end of an operation. Orders go first.
void WorkThread::take_tiles(std::unique_lock<std::mutex>& lock)
{
    TilePixels pixels;
    while (orders_.empty() && tiles_wait()) {
        if (unsaved.tiles.empty()) {
            unsaved.news.wait(lock);
            continue;
        }
        const std::size_t tile = unsaved.take_last();
        const Plane plane = plane_;
        pixels.take(undo.source_bitmap, TileGrid::of(undo.source_bitmap).box(tile));
        lock.unlock();
        add_tile(plane, tile, pixels);
        lock.lock();
    }
}

void WorkThread::carry_out(BeginOrder& order)
{
    seal();
    if (order.drops && !commit_waits(writer_.frame())) writer_.drop();
    writer_.begin(order.frame, std::move(order.frame_name), std::move(order.journal_name));
    limit_ = least_kept;
}

void WorkThread::carry_out(PictureOrder& order)
{
    const TileGrid grid = TileGrid::of(order.merged);
    limit_ = least_kept + pictures_kept * static_cast<uint64_t>(grid.w) * static_cast<uint64_t>(grid.h) * sizeof(int);
    give_up();
    writer_.start_anew();
    failed_ = false;
    writer_.records().size(grid);
    for (std::size_t tile = 0; tile < grid.count(); ++tile) {
        TilePixels color, alpha;
        color.take(order.merged, grid.box(tile));
        for (std::size_t i = 0; i < color.pixels.size(); ++i) {
            const int level = static_cast<int>(static_cast<unsigned>(color.pixels[i]) >> 24);
            alpha.pixels[i] = pack_rgb(level, level, level);
        }
        add_tile(Plane::COLOR, tile, color);
        add_tile(Plane::ALPHA, tile, alpha);
    }
}

void WorkThread::carry_out(CommitOrder& order)
{
    seal();
    platform::forget_failure();
    const bool written = write_left_frame(order);
    const int error = platform::last_failure();
    if (written && writer_.frame() == order.left.frame)
        writer_.drop();
    else if (written)
        platform::remove_file(store_path(frame_file(order.left.frame, file_set::journal)));
    const std::lock_guard lock(unsaved.mutex);
    std::erase(pending_files_, order.name);
    if (!written) {
        failure_ = Failure{order.name, error};
        failed_commits_.push_back(std::move(order));
    }
    done_.notify_all();
}

void WorkThread::carry_out(RunningFile& file)
{
    platform::forget_failure();
    if (!write_running_file(file)) note_failure(file.name, platform::last_failure());
}

void WorkThread::add_tile(Plane plane, std::size_t tile, const TilePixels& pixels)
{
    if (failed_) return;
    writer_.records().tile(plane, tile, pixels);
    batch_ = true;
    if (!writer_.spill()) fail(writer_.name());
}

void WorkThread::seal()
{
    if (batch_ && !failed_ && !writer_.finish()) fail(writer_.name());
    batch_ = false;
    if (!failed_ && writer_.size() > limit_) ask_for_picture();
    failed_ = false;
}

void WorkThread::give_up()
{
    writer_.give_up();
    batch_ = false;
}

/// What the journal's file holds is unsure now, so that the picture has to be handed over whole.
void WorkThread::fail(const std::string& name)
{
    note_failure(name, errno);
    give_up();
    failed_ = true;
    ask_for_picture();
}

void WorkThread::note_failure(const std::string& name, int error)
{
    const std::lock_guard lock(unsaved.mutex);
    failure_ = Failure{name, error};
}

} // namespace kelu
