// SPDX-License-Identifier: MIT
// The clipboard's thread, and the main thread's way to it: a job is handed over and waited for.
#include "platform/clipboard.h"

#include "platform/clipboard_link.h"
#include "platform/clipboard_owner.h"
#include "platform/clipboard_reader.h"
#include <csignal>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <poll.h>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace kelu::platform {
namespace {

/// While a transfer is under way the thread looks so often whether it has stalled.
constexpr int watch_milliseconds = 1000;

class ClipboardThread {
public:
    /// Connects and starts the thread, unless it runs. False without a display.
    bool start()
    {
        if (thread_.joinable()) return true;
        auto link = std::make_unique<ClipboardLink>();
        if (!link->open()) return false;
        link_ = std::move(link);
        owner_ = std::make_unique<ClipboardOwner>(*link_);
        link_->handle = [this](const XEvent& event) { owner_->handle(event); };
        wake_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
        ending_ = false;
        // Signals are the main thread's: the new thread takes over the mask that is at its start.
        sigset_t all, before;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before);
        thread_ = std::thread([this] { run(); });
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        return true;
    }

    /// Runs a job on the thread and waits for its result.
    template <class Job>
    auto call(Job job)
    {
        std::packaged_task<decltype(job(*link_, *owner_))()> task([&] { return job(*link_, *owner_); });
        auto result = task.get_future();
        post([&task] { task(); });
        return result.get();
    }

    void stop()
    {
        if (!thread_.joinable()) return;
        post([this] {
            if (!link_->broken()) owner_->hand_over();
            ending_ = true;
        });
        thread_.join();
        owner_.reset();
        link_.reset();
        close(wake_);
    }

private:
    void post(std::function<void()> job)
    {
        const std::lock_guard lock(mutex_);
        job_ = std::move(job);
        const uint64_t one = 1;
        [[maybe_unused]] const ssize_t written = write(wake_, &one, sizeof one);
    }

    void run()
    {
        while (!ending_) {
            link_->handle_pending();
            owner_->drop_stalled();
            const int connection = link_->broken() ? -1 : ConnectionNumber(link_->display()); // -1 is passed over
            pollfd sources[] = {{connection, POLLIN, 0}, {wake_, POLLIN, 0}};
            poll(sources, std::size(sources), owner_->busy() ? watch_milliseconds : -1);
            uint64_t count = 0;
            if (read(wake_, &count, sizeof count) == sizeof count) take_job()();
        }
    }

    std::function<void()> take_job()
    {
        const std::lock_guard lock(mutex_);
        return std::exchange(job_, nullptr);
    }

    std::thread thread_;
    int wake_ = -1; ///< event counter: a job waits
    std::mutex mutex_;
    std::function<void()> job_; ///< guarded by mutex_; the main thread waits for each, so there is one at a time
    // From the start to the end of the thread only the thread touches these.
    bool ending_ = false;
    std::unique_ptr<ClipboardLink> link_;
    std::unique_ptr<ClipboardOwner> owner_;
};

/// Never destroyed: an exit from anywhere must not wait for the thread.
ClipboardThread& clipboard()
{
    static auto* const thread = new ClipboardThread;
    return *thread;
}

} // namespace

bool clipboard_offer(std::vector<ClipboardItem> items)
{
    if (!clipboard().start()) return false;
    return clipboard().call([&items](ClipboardLink&, ClipboardOwner& owner) { return owner.offer(std::move(items)); });
}

ClipboardItem clipboard_take(std::span<const char* const> wanted, std::size_t limit)
{
    if (!clipboard().start()) return {};
    return clipboard().call([wanted, limit](ClipboardLink& link, ClipboardOwner& owner) -> ClipboardItem {
        if (link.broken()) return {};
        if (owner.items().empty()) return read_clipboard(link, wanted, limit);
        for (const char* type : wanted) {
            for (const ClipboardItem& item : owner.items()) {
                if (item.type == type) return item;
            }
        }
        return {};
    });
}

void clipboard_close() { clipboard().stop(); }

} // namespace kelu::platform
