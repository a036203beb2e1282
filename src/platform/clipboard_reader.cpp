// SPDX-License-Identifier: MIT
// Taking content from another program.
#include "platform/clipboard_reader.h"

#include <algorithm>
#include <optional>
#include <X11/Xatom.h>

namespace kelu::platform {
namespace {

/// Bytes of a list of targets. No program has so many.
constexpr std::size_t most_targets = 64 * 1024;

using Property = ClipboardLink::Property;

/// The owner on the other side of our connection.
class LinkedOwner final : public SelectionOwner {
public:
    explicit LinkedOwner(ClipboardLink& link) : link_(link), end_(ClipboardClock::now() + transfer_time) {}

    Atom atom(const char* name) override { return link_.atom(name); }
    bool ask(Atom target, std::chrono::milliseconds patience) override
    {
        const Atom clipboard = link_.atoms().clipboard, received = link_.atoms().received;
        end_ = ClipboardClock::now() + transfer_time;
        XDeleteProperty(link_.display(), link_.window(), received);
        XConvertSelection(link_.display(), clipboard, target, received, link_.window(), link_.server_time());
        XFlush(link_.display());
        bool refused = false;
        const auto is_answer = [&](const XEvent& event) {
            if (event.type != SelectionNotify || event.xselection.selection != clipboard ||
                event.xselection.target != target)
                return false;
            refused = event.xselection.property == 0;
            return true;
        };
        return link_.wait_for(is_answer, ClipboardClock::now() + patience) && !refused;
    }
    bool wait_for_piece() override
    {
        const auto is_piece = [&](const XEvent& event) {
            return event.type == PropertyNotify && event.xproperty.window == link_.window() &&
                   event.xproperty.atom == link_.atoms().received && event.xproperty.state == PropertyNewValue;
        };
        return link_.wait_for(is_piece, std::min(end_, ClipboardClock::now() + step_time));
    }
    bool take(std::size_t limit, Property& property) override
    {
        const bool good = link_.read_property(link_.window(), link_.atoms().received, limit, property);
        XDeleteProperty(link_.display(), link_.window(), link_.atoms().received);
        XFlush(link_.display());
        return good;
    }

private:
    ClipboardLink& link_;
    ClipboardClock::time_point end_; ///< of the transfer
};

/// Collects a transfer in pieces, which an empty one ends.
bool collect_pieces(SelectionOwner& owner, std::size_t limit, std::vector<uint8_t>& bytes)
{
    for (;;) {
        Property piece;
        if (!owner.wait_for_piece() || !owner.take(limit - bytes.size(), piece)) return false;
        if (piece.type == 0) continue; // news of a property that we have taken already
        if (piece.bytes.empty()) return true;
        bytes.insert(bytes.end(), piece.bytes.begin(), piece.bytes.end());
    }
}

/// Asks the owner for the content in one form, and waits for all of it.
std::optional<std::vector<uint8_t>> convert(SelectionOwner& owner, Atom target, std::chrono::milliseconds patience,
                                            std::size_t limit)
{
    Property property;
    if (!owner.ask(target, patience) || !owner.take(limit, property)) return {};
    if (property.type != owner.atom("INCR")) return std::move(property.bytes);
    std::vector<uint8_t> bytes;
    if (!collect_pieces(owner, limit, bytes)) return {};
    return bytes;
}

} // namespace

ClipboardItem read_selection(SelectionOwner& owner, std::span<const char* const> wanted, std::size_t limit)
{
    // Some owners answer any request with whatever they have, so the list of what there is decides.
    const auto list = convert(owner, owner.atom("TARGETS"), answer_time, most_targets);
    if (!list) return {};
    std::vector<Atom> targets(list->size() / sizeof(Atom));
    std::copy_n(list->begin(), targets.size() * sizeof(Atom), reinterpret_cast<uint8_t*>(targets.data()));
    for (const char* type : wanted) {
        const Atom target = owner.atom(type);
        if (std::find(targets.begin(), targets.end(), target) == targets.end()) continue;
        auto bytes = convert(owner, target, step_time, limit);
        if (bytes) return {type, std::move(*bytes)};
        return {};
    }
    return {};
}

ClipboardItem read_clipboard(ClipboardLink& link, std::span<const char* const> wanted, std::size_t limit)
{
    if (XGetSelectionOwner(link.display(), link.atoms().clipboard) == 0) return {};
    LinkedOwner owner(link);
    return read_selection(owner, wanted, limit);
}

} // namespace kelu::platform
