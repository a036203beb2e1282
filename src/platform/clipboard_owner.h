// SPDX-License-Identifier: MIT
// The side of the clipboard that offers: it owns the selection and answers those who ask for it. Runs on the
// clipboard's thread.
#pragma once

#include "platform/clipboard.h"
#include "platform/clipboard_link.h"
#include <memory>

namespace kelu::platform {

class ClipboardOwner {
public:
    explicit ClipboardOwner(ClipboardLink& link) : link_(link) {}

    /// Takes the selection with new content; false when another program has it after all.
    bool offer(std::vector<ClipboardItem> items);
    /// What is offered, while we own the selection; empty when another program does.
    const std::vector<ClipboardItem>& items() const { return content_->items; }
    /// True while a transfer in pieces is under way.
    bool busy() const { return !transfers_.empty(); }

    /// Answers requests, feeds transfers, notes the loss of the selection.
    void handle(const XEvent& event);
    /// Gives up transfers that make no progress.
    void drop_stalled();
    /// Asks the desktop's clipboard manager to take the content over, and serves it.
    void hand_over();

private:
    /// Content as it was offered at one time. Transfers keep theirs when a new one is offered.
    struct Content {
        std::vector<ClipboardItem> items;
        std::vector<Atom> types; ///< of the items, in their order
        Time since = 0;
    };
    /// Content on its way in pieces: the next one goes when the receiver has deleted the one before.
    struct Transfer {
        Window window;
        Atom property;
        std::shared_ptr<const Content> content;
        std::size_t item, sent;
        ClipboardClock::time_point last_step;
    };

    void answer(const XSelectionRequestEvent& request);
    bool answer_many(const XSelectionRequestEvent& request);
    bool deliver(Window window, Atom target, Atom property);
    void start_transfer(Window window, Atom property, std::size_t item);
    void feed(const XPropertyEvent& event);
    /// Forgets transfers to a window; `property` 0 stands for all.
    void drop_transfers(Window window, Atom property);

    ClipboardLink& link_;
    std::shared_ptr<const Content> content_ = std::make_shared<Content>();
    std::vector<Transfer> transfers_;
};

} // namespace kelu::platform
