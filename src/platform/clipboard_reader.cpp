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
using TimePoint = ClipboardClock::time_point;

/// Reads what is in the property, and deletes it: the other side then knows that we have it.
bool take_property(ClipboardLink& link, std::size_t limit, Property& property)
{
    const bool good = link.read_property(link.window(), link.atoms().received, limit, property);
    XDeleteProperty(link.display(), link.window(), link.atoms().received);
    XFlush(link.display());
    return good;
}

/// Collects a transfer in pieces, which an empty one ends.
bool collect_pieces(ClipboardLink& link, std::size_t limit, TimePoint end, std::vector<uint8_t>& bytes)
{
    const auto is_piece = [&](const XEvent& event) {
        return event.type == PropertyNotify && event.xproperty.window == link.window() &&
               event.xproperty.atom == link.atoms().received && event.xproperty.state == PropertyNewValue;
    };
    for (;;) {
        const TimePoint step_end = std::min(end, ClipboardClock::now() + step_time);
        Property piece;
        if (!link.wait_for(is_piece, step_end) || !take_property(link, limit - bytes.size(), piece)) return false;
        if (piece.type == 0) continue; // news of a property that we have taken already
        if (piece.bytes.empty()) return true;
        bytes.insert(bytes.end(), piece.bytes.begin(), piece.bytes.end());
    }
}

/// Asks the owner for the content in one form, and waits for all of it.
std::optional<std::vector<uint8_t>> convert(ClipboardLink& link, Atom target, std::chrono::milliseconds patience,
                                            std::size_t limit)
{
    const Atom clipboard = link.atoms().clipboard;
    const TimePoint end = ClipboardClock::now() + transfer_time;
    XDeleteProperty(link.display(), link.window(), link.atoms().received);
    XConvertSelection(link.display(), clipboard, target, link.atoms().received, link.window(), link.server_time());
    XFlush(link.display());
    bool refused = false;
    const auto is_answer = [&](const XEvent& event) {
        if (event.type != SelectionNotify || event.xselection.selection != clipboard ||
            event.xselection.target != target)
            return false;
        refused = event.xselection.property == 0;
        return true;
    };
    if (!link.wait_for(is_answer, ClipboardClock::now() + patience) || refused) return {};
    Property property;
    if (!take_property(link, limit, property)) return {};
    if (property.type != link.atoms().incr) return std::move(property.bytes);
    std::vector<uint8_t> bytes;
    if (!collect_pieces(link, limit, end, bytes)) return {};
    return bytes;
}

} // namespace

ClipboardItem read_clipboard(ClipboardLink& link, std::span<const char* const> wanted, std::size_t limit)
{
    if (XGetSelectionOwner(link.display(), link.atoms().clipboard) == 0) return {};
    // Some owners answer any request with whatever they have, so the list of what there is decides.
    const auto list = convert(link, link.atoms().targets, answer_time, most_targets);
    if (!list) return {};
    std::vector<Atom> targets(list->size() / sizeof(Atom));
    std::copy_n(list->begin(), targets.size() * sizeof(Atom), reinterpret_cast<uint8_t*>(targets.data()));
    for (const char* type : wanted) {
        const Atom target = link.atom(type);
        if (std::find(targets.begin(), targets.end(), target) == targets.end()) continue;
        auto bytes = convert(link, target, step_time, limit);
        if (bytes) return {type, std::move(*bytes)};
        return {};
    }
    return {};
}

} // namespace kelu::platform
