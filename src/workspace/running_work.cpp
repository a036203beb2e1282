// SPDX-License-Identifier: MIT
// The thread that writes running work, and what the main thread hands it.
#include "workspace/running_work.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/operation.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "draw/unsaved.h"
#include "gui/strings.h"
#include "imagefile/tga.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "workspace/change_set.h"
#include "workspace/folder.h"
#include "workspace/journal_writer.h"
#include "workspace/merged.h"
#include "workspace/running_files.h"
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <deque>
#include <thread>
#include <variant>

namespace kelu {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto gather_time = 200ms;       // strokes that follow one another at once share a batch
constexpr auto in_hand_time = 500ms;      // between two looks at a stroke in hand
constexpr auto retry_time = 3s;           // after a failure
constexpr auto quiet_time = 20s;          // in which another failure of the same kind belongs to the same row
constexpr std::size_t most_in_hand = 128; // tiles of a stroke in hand that are copied at once: 2 MB
constexpr uint64_t pictures_kept = 3;     // a journal that outgrows so many pictures of its frame is written anew
constexpr uint64_t least_kept = uint64_t{1} << 20; // bytes

struct BeginOrder {
    int frame;
    std::string frame_name, journal_name;
    bool drops; ///< the journal before has done its work
};
struct TileOrder {
    Plane plane;
    std::size_t tile;
    std::unique_ptr<TilePixels> pixels;
};
struct PictureOrder {
    Bitmap merged;
};
struct CommitOrder {
    LeftFrame left;
    std::string name; ///< of the frame's file, absolute
};
using Order = std::variant<BeginOrder, TileOrder, PictureOrder, CommitOrder, RunningFile>;

Plane plane_of_frame() { return store.alpha_edit_mode ? Plane::ALPHA : Plane::COLOR; }

std::string in_store(const std::string& name) { return run_state.program_dir + '/' + workspace_folder + '/' + name; }

/// Colours on an edited alpha picture count as grey.
void merge_pixels(const int* color, const int* alpha, int* to, int count)
{
    for (int x = 0; x < count; ++x) {
        const auto level = static_cast<unsigned>(red_of(alpha[x]) + green_of(alpha[x]) + blue_of(alpha[x])) / 3;
        to[x] = static_cast<int>((static_cast<unsigned>(color[x]) & 0xffffffU) | level << 24);
    }
}

/// The thread and its orders. All members are guarded by `unsaved.mutex`, but for the writer, which is the thread's.
class Worker {
public:
    ~Worker() { stop(); }

    void start()
    {
        stop_ = false;
        thread_ = std::thread([this] { run(); });
    }
    bool running() const { return thread_.joinable(); }

    void stop()
    {
        if (!running()) return;
        {
            const std::lock_guard lock(unsaved.mutex);
            stop_ = true;
        }
        unsaved.news.notify_all();
        thread_.join();
    }

    /// Hands over what stands in the queue's order. The caller holds the mutex.
    void hand(Order order)
    {
        orders_.push_back(std::move(order));
        unsaved.news.notify_all();
    }

    /// False: a frame that was left could not be written, nor now.
    bool settle()
    {
        std::unique_lock lock(unsaved.mutex);
        for (CommitOrder& failed : failed_commits_)
            hand_commit(std::move(failed));
        failed_commits_.clear();
        urgent_ = true;
        unsaved.news.notify_all();
        done_.wait(lock, [this] { return !busy_ && orders_.empty() && !tiles_wait(); });
        urgent_ = false;
        return failed_commits_.empty();
    }

    /// The caller holds the mutex.
    void hand_commit(CommitOrder order)
    {
        on_their_way_.push_back(order.name);
        hand(std::move(order));
    }

    void wait_for(const std::string& name)
    {
        std::unique_lock lock(unsaved.mutex);
        done_.wait(lock, [&] { return std::ranges::find(on_their_way_, name) == on_their_way_.end(); });
    }

    std::optional<LeftFrame> take_back(int frame)
    {
        const std::lock_guard lock(unsaved.mutex);
        const auto found =
            std::ranges::find(failed_commits_, frame, [](const CommitOrder& one) { return one.left.frame; });
        if (found == failed_commits_.end()) return std::nullopt;
        LeftFrame left = std::move(found->left);
        failed_commits_.erase(found);
        return left;
    }

    /// The plane that the stroke source is of. The caller holds the mutex.
    void set_plane(Plane plane) { plane_ = plane; }
    Plane plane() const { return plane_; }

    struct Failure {
        std::string name;
        int error;
    };
    std::optional<Failure> take_failure()
    {
        const std::lock_guard lock(unsaved.mutex);
        return std::exchange(failure_, std::nullopt);
    }

private:
    bool tiles_wait() const { return !unsaved.whole && (!unsaved.tiles.empty() || unsaved.settling); }
    bool work_waits() const { return !orders_.empty() || (!unsaved.whole && !unsaved.tiles.empty()); }

    void run()
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
    void write_all(std::unique_lock<std::mutex>& lock)
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
    void take_tiles(std::unique_lock<std::mutex>& lock)
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

    void add_tile(Plane plane, std::size_t tile, const TilePixels& pixels)
    {
        if (failed_) return;
        writer_.records().tile(plane, tile, pixels);
        batch_ = true;
        if (!writer_.spill()) fail(writer_.name());
    }

    void seal()
    {
        if (batch_ && !failed_ && !writer_.finish()) fail(writer_.name());
        batch_ = false;
        if (!failed_ && writer_.size() > limit_) ask_for_picture();
        failed_ = false;
    }

    /// What the journal's file holds is unsure, so that the picture has to be handed over whole.
    void fail(const std::string& name)
    {
        note_failure(name, errno);
        give_up();
        failed_ = true;
        ask_for_picture();
    }

    void give_up()
    {
        writer_.give_up();
        batch_ = false;
    }

    static void ask_for_picture()
    {
        const std::lock_guard lock(unsaved.mutex);
        unsaved.whole = true;
    }

    void note_failure(const std::string& name, int error)
    {
        const std::lock_guard lock(unsaved.mutex);
        failure_ = Failure{name, error};
    }

    /// A frame that was left isn't in its file yet: its order waits, also to be tried again.
    bool commit_waits(int frame)
    {
        const std::lock_guard lock(unsaved.mutex);
        const auto is_of_frame = [frame](const CommitOrder& one) { return one.left.frame == frame; };
        return std::ranges::any_of(failed_commits_, is_of_frame) ||
               std::ranges::find(on_their_way_, in_store(frame_file(frame))) != on_their_way_.end();
    }

    void carry_out(BeginOrder& order)
    {
        seal();
        if (order.drops && !commit_waits(writer_.frame())) writer_.drop();
        writer_.begin(order.frame, std::move(order.frame_name), std::move(order.journal_name));
        limit_ = least_kept;
    }

    void carry_out(CommitOrder& order)
    {
        seal();
        platform::forget_failure();
        const bool written = write_left_frame(order);
        const int error = platform::last_failure();
        if (written && writer_.frame() == order.left.frame)
            writer_.drop();
        else if (written)
            platform::remove_file(in_store(frame_file(order.left.frame, file_set::journal)));
        const std::lock_guard lock(unsaved.mutex);
        std::erase(on_their_way_, order.name);
        if (!written) {
            failure_ = Failure{order.name, error};
            failed_commits_.push_back(std::move(order));
        }
        done_.notify_all();
    }

    static bool write_left_frame(const CommitOrder& order)
    {
        const Bitmap& color = order.left.color;
        return write_tga(order.name, color.width(), color.height(), [&](int y, int* pixels) {
            merge_pixels(row(color, y), row(order.left.alpha, y), pixels, color.width());
        });
    }

    void carry_out(TileOrder& order) { add_tile(order.plane, order.tile, *order.pixels); }

    void carry_out(PictureOrder& order)
    {
        const TileGrid grid = TileGrid::of(order.merged);
        limit_ =
            least_kept + pictures_kept * static_cast<uint64_t>(grid.w) * static_cast<uint64_t>(grid.h) * sizeof(int);
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

    void carry_out(RunningFile& file)
    {
        platform::forget_failure();
        if (!write_running_file(file)) note_failure(file.name, platform::last_failure());
    }

    std::thread thread_;
    std::deque<Order> orders_;
    std::condition_variable done_;
    std::optional<Failure> failure_;
    std::vector<CommitOrder> failed_commits_; ///< to be tried again
    std::vector<std::string> on_their_way_;   ///< files of frames whose orders wait or are being carried out
    Plane plane_ = Plane::COLOR;
    bool stop_ = false, urgent_ = false, busy_ = false;

    JournalWriter writer_;
    uint64_t limit_ = least_kept; ///< bytes of the journal that are written before it is made anew
    bool batch_ = false;          ///< the present batch has records
    bool failed_ = false;         ///< the present batch is lost
};
Worker worker;

Clock::time_point next_in_hand, next_files, next_picture;

/// Both pictures as they are, without a change to either.
Bitmap merged_copy()
{
    Bitmap merged = Bitmap::unfilled(store.frame_bitmap.width(), store.frame_bitmap.height());
    for (int y = 0; y < merged.height(); ++y) {
        merge_pixels(row(color_picture(), y), row(alpha_picture(), y), row(merged, y), merged.width());
    }
    return merged;
}

void hand_over_picture()
{
    Bitmap merged = merged_copy();
    if (!merged) return;
    const std::lock_guard lock(unsaved.mutex);
    unsaved.clear();
    worker.hand(PictureOrder{std::move(merged)});
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
    worker.hand(TileOrder{worker.plane(), tile, std::move(pixels)});
}

/// Hands over the settled tiles that the thread would take by itself later. The caller holds the mutex.
void hand_over_settled_tiles()
{
    while (!unsaved.tiles.empty())
        hand_over_tile(undo.source_bitmap, TileGrid::of(undo.source_bitmap), unsaved.take_last());
}

/// What a stroke that is still drawn has painted since the last look. What was settled before it goes first.
void keep_stroke_in_hand()
{
    const std::lock_guard lock(unsaved.mutex);
    if (unsaved.tiles.size() > most_in_hand) return; // the thread is about to take them
    hand_over_settled_tiles();
    for (std::size_t i = 0; i < most_in_hand && !touched.fresh.empty(); ++i) {
        hand_over_tile(store.frame_bitmap, touched.grid, touched.take_fresh());
    }
}

Worker::Failure told{}; ///< the last failure, which isn't told again before `told_until`
Clock::time_point told_until;

void tell_failure()
{
    const std::optional<Worker::Failure> failure = worker.take_failure();
    if (!failure) return;
    next_picture = Clock::now() + retry_time;
    errno = failure->error;
    platform::note_failure();
    forget_running_files();
    // The thread tries again by itself: only the first failure of a row is told.
    const bool goes_on = failure->name == told.name && failure->error == told.error && Clock::now() < told_until;
    told = *failure;
    told_until = Clock::now() + quiet_time;
    if (!goes_on) report_unwritten(failure->name, TEXT_WORKSPACE_NOT_WRITTEN);
}

BeginOrder begin_order(bool drops)
{
    const int frame = store.current_frame;
    return {frame, in_store(frame_file(frame)), in_store(frame_file(frame, file_set::journal)), drops};
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
        worker.hand(begin_order(false));
    }
    told = {};
    next_in_hand = next_picture = Clock::now();
    next_files = next_in_hand + files_time;
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
    worker.hand(begin_order(true));
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
    tell_failure();
    if (undo.operations == 0) {
        if (now >= next_picture && picture_wanted()) hand_over_picture();
    } else if (operation.show_progress && now >= next_in_hand && !picture_wanted()) {
        next_in_hand = now + in_hand_time;
        keep_stroke_in_hand();
    }
    if (now < next_files || change_waits()) return; // a change that waits would take back what is written now
    next_files = now + files_time;
    std::vector<RunningFile> files = changed_running_files();
    const std::lock_guard lock(unsaved.mutex);
    for (RunningFile& file : files)
        worker.hand(std::move(file));
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
    std::string name = in_store(frame_file(left.frame));
    const std::lock_guard lock(unsaved.mutex);
    if (!unsaved.whole && unsaved.tiles.size() <= most_in_hand) hand_over_settled_tiles(); // more isn't worth the wait
    worker.hand_commit({std::move(left), std::move(name)});
}

void hand_over_nails()
{
    RunningFile file{in_store(set_file("nal")), {}, store.nail_sheet.copy()};
    if (!file.picture) return;
    const std::lock_guard lock(unsaved.mutex);
    worker.hand(std::move(file));
}

void wait_for_frame_file(const std::string& name)
{
    if (worker.running()) worker.wait_for(in_store(name));
}

Bitmap take_back_left_frame(int frame)
{
    if (!worker.running()) return {};
    std::optional<LeftFrame> left = worker.take_back(frame);
    if (!left) return {};
    for (int y = 0; y < left->color.height(); ++y)
        merge_pixels(row(left->color, y), row(left->alpha, y), row(left->color, y), left->color.width());
    return std::move(left->color);
}

} // namespace kelu
