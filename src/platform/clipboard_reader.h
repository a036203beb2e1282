// SPDX-License-Identifier: MIT
// The side of the clipboard that takes content from another program. Runs on the clipboard's thread.
#pragma once

#include "platform/clipboard.h"
#include "platform/clipboard_link.h"

namespace kelu::platform {

/// The owner of the selection, as who takes its content sees it.
class SelectionOwner {
public:
    SelectionOwner() = default;
    virtual ~SelectionOwner() = default;
    SelectionOwner(const SelectionOwner&) = delete;
    SelectionOwner& operator=(const SelectionOwner&) = delete;
    virtual Atom atom(const char* name) = 0;
    /// Asks for the content in one form; false when there is none, or no answer in that time.
    virtual bool ask(Atom target, std::chrono::milliseconds patience) = 0;
    /// Waits for the next piece of a transfer in pieces; false when it doesn't come in time.
    virtual bool wait_for_piece() = 0;
    /// Takes the answer or piece, after which the owner knows that we have it; false when it has more than `limit`
    /// bytes.
    virtual bool take(std::size_t limit, ClipboardLink::Property& property) = 0;
};

/// The owner's content in the first of the wanted types that it has; an item without a type as below.
ClipboardItem read_selection(SelectionOwner& owner, std::span<const char* const> wanted, std::size_t limit);

/// The selection's content in the first of the wanted types that its owner has; an item without a type when there is
/// none, or it doesn't arrive within the times of clipboard_link.h and `limit` bytes.
ClipboardItem read_clipboard(ClipboardLink& link, std::span<const char* const> wanted, std::size_t limit);

} // namespace kelu::platform
