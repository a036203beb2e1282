// SPDX-License-Identifier: MIT
// The thread that writes running work, and the orders that it takes.
//
// It takes tiles of the stroke source without being asked (draw/unsaved); everything else comes as an order, and orders
// are carried out in the order in which they came. Records that follow one another at once are sealed as one batch.
#pragma once

#include "draw/unsaved.h"
#include "workspace/journal_writer.h"
#include "workspace/running_files.h"
#include "workspace/running_work.h"
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <variant>

namespace kelu {

/// Another frame is current: its journal begins.
struct BeginOrder {
    int frame;
    std::string frame_name, journal_name;
    bool drops; ///< the journal before is no longer needed
};
/// A tile to be added to the journal.
struct TileOrder {
    Plane plane;
    std::size_t tile;
    std::unique_ptr<TilePixels> pixels;
};
/// The whole picture, which begins a new journal.
struct PictureOrder {
    Bitmap merged;
};
/// The file of a frame that was left.
struct CommitOrder {
    LeftFrame left;
    std::string name; ///< of the frame's file, absolute
};
using Order = std::variant<BeginOrder, TileOrder, PictureOrder, CommitOrder, RunningFile>;

/// All members are guarded by `unsaved.mutex`, but for the writer and the state of the batch, which are the thread's.
class WorkThread {
public:
    ~WorkThread() { stop(); }

    void start();
    bool running() const { return thread_.joinable(); }
    /// Carries out what is left and ends the thread.
    void stop();

    /// Adds an order to the queue. The caller holds the mutex.
    void append(Order order);
    /// Adds the order for a frame that was left, which `wait_for` knows of. The caller holds the mutex.
    void append_commit(CommitOrder order);

    /// Waits until everything is on the disk or has failed; commits that have failed are tried again. False: one of
    /// them failed again.
    bool settle();
    /// Waits while the order for the file `name` is in the queue.
    void wait_for(const std::string& name);
    /// Gives out a frame whose commit failed, and forgets it.
    std::optional<LeftFrame> take_back(int frame);

    /// The plane that the stroke source belongs to. The caller holds the mutex.
    void set_plane(Plane plane) { plane_ = plane; }
    Plane plane() const { return plane_; }

    struct Failure {
        std::string name; ///< of the file that could not be written
        int error;        ///< as in errno
    };
    /// The newest failure since the last call.
    std::optional<Failure> take_failure();

private:
    bool tiles_wait() const { return !unsaved.whole && (!unsaved.tiles.empty() || unsaved.settling); }
    bool work_waits() const { return !orders_.empty() || (!unsaved.whole && !unsaved.tiles.empty()); }
    bool commit_waits(int frame);

    void run();
    void write_all(std::unique_lock<std::mutex>& lock);
    void take_tiles(std::unique_lock<std::mutex>& lock);

    void carry_out(BeginOrder& order);
    void carry_out(TileOrder& order) { add_tile(order.plane, order.tile, *order.pixels); }
    void carry_out(PictureOrder& order);
    void carry_out(CommitOrder& order);
    void carry_out(RunningFile& file);

    void add_tile(Plane plane, std::size_t tile, const TilePixels& pixels);
    void seal();
    void give_up();
    void fail(const std::string& name);
    void note_failure(const std::string& name, int error);

    std::thread thread_;
    std::deque<Order> orders_;
    std::condition_variable done_;
    std::optional<Failure> failure_;
    std::vector<CommitOrder> failed_commits_; ///< to be tried again
    std::vector<std::string> pending_files_;  ///< of frames whose orders are in the queue or being carried out
    Plane plane_ = Plane::COLOR;
    bool stop_ = false, urgent_ = false, busy_ = false;

    JournalWriter writer_;
    uint64_t limit_ = least_kept; ///< bytes of the journal that are written before it is made anew
    bool batch_ = false;          ///< the present batch has records
    bool failed_ = false;         ///< the present batch is lost

    static constexpr uint64_t least_kept = uint64_t{1} << 20; ///< bytes; a smaller journal is never made anew
};

} // namespace kelu
