// SPDX-License-Identifier: MIT
// Offering content to other programs.
#include "platform/clipboard_owner.h"

#include <algorithm>
#include <X11/Xatom.h>

namespace kelu::platform {
namespace {

/// Transfers at one time; who asks for more is refused.
constexpr std::size_t most_transfers = 16;
/// Bytes of a list of targets in one request.
constexpr std::size_t most_pairs = 4096;

} // namespace

bool ClipboardOwner::offer(std::vector<ClipboardItem> items)
{
    auto content = std::make_shared<Content>();
    for (const ClipboardItem& item : items)
        content->types.push_back(link_.atom(item.type.c_str()));
    content->items = std::move(items);
    content->since = link_.server_time();
    content_ = std::move(content);
    XSetSelectionOwner(link_.display(), link_.atoms().clipboard, link_.window(), content_->since);
    if (XGetSelectionOwner(link_.display(), link_.atoms().clipboard) == link_.window()) return true;
    content_ = std::make_shared<Content>();
    return false;
}

void ClipboardOwner::handle(const XEvent& event)
{
    switch (event.type) {
    case SelectionRequest:
        answer(event.xselectionrequest);
        break;
    case SelectionClear:
        if (event.xselectionclear.selection == link_.atoms().clipboard) content_ = std::make_shared<Content>();
        break;
    // The server gives the number of a vanished window to the next one that is made.
    case DestroyNotify:
        drop_transfers(event.xdestroywindow.window, 0);
        break;
    case PropertyNotify:
        if (event.xproperty.state == PropertyDelete) feed(event.xproperty);
        break;
    default:
        break;
    }
}

void ClipboardOwner::answer(const XSelectionRequestEvent& request)
{
    XEvent reply = {};
    reply.xselection.type = SelectionNotify;
    reply.xselection.requestor = request.requestor;
    reply.xselection.selection = request.selection;
    reply.xselection.target = request.target;
    reply.xselection.time = request.time;
    // Old programs name no property and expect the content in that of the target's name. No property in the reply
    // means a refusal.
    const Atom property = request.property != 0 ? request.property : request.target;
    const bool many = request.target == link_.atoms().multiple;
    const bool ours = request.selection == link_.atoms().clipboard && !content_->items.empty();
    const bool done = ours && (many ? answer_many(request) : deliver(request.requestor, request.target, property));
    reply.xselection.property = done ? property : 0;
    XSendEvent(link_.display(), request.requestor, False, NoEventMask, &reply);
    XFlush(link_.display());
}

bool ClipboardOwner::answer_many(const XSelectionRequestEvent& request)
{
    ClipboardLink::Property list;
    if (request.property == 0 || !link_.read_property(request.requestor, request.property, most_pairs, list))
        return false;
    std::vector<Atom> pairs(list.bytes.size() / sizeof(Atom));
    std::copy_n(list.bytes.begin(), pairs.size() * sizeof(Atom), reinterpret_cast<uint8_t*>(pairs.data()));
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
        if (!deliver(request.requestor, pairs[i], pairs[i + 1])) pairs[i + 1] = 0;
    }
    link_.write_atoms(request.requestor, request.property, link_.atoms().atom_pair, pairs);
    return true;
}

bool ClipboardOwner::deliver(Window window, Atom target, Atom property)
{
    const ClipboardAtoms& atoms = link_.atoms();
    if (target == atoms.targets) {
        std::vector<Atom> list = {atoms.targets, atoms.timestamp, atoms.multiple, atoms.save_targets};
        list.insert(list.end(), content_->types.begin(), content_->types.end());
        link_.write_atoms(window, property, XA_ATOM, list);
        return true;
    }
    if (target == atoms.timestamp) {
        link_.write_number(window, property, XA_INTEGER, content_->since);
        return true;
    }
    if (target == atoms.save_targets) {
        link_.write_atoms(window, property, atoms.null, {});
        return true;
    }
    const auto type = std::find(content_->types.begin(), content_->types.end(), target);
    if (type == content_->types.end()) return false;
    const auto item = static_cast<std::size_t>(type - content_->types.begin());
    const std::vector<uint8_t>& bytes = content_->items[item].bytes;
    drop_transfers(window, property);
    if (bytes.size() <= link_.chunk()) {
        link_.write_bytes(window, property, target, bytes.data(), bytes.size());
        return true;
    }
    if (transfers_.size() >= most_transfers) return false;
    start_transfer(window, property, item);
    return true;
}

void ClipboardOwner::start_transfer(Window window, Atom property, std::size_t item)
{
    // We have to hear when the receiver deletes a piece, and when it is gone.
    XSelectInput(link_.display(), window, PropertyChangeMask | StructureNotifyMask);
    link_.write_number(window, property, link_.atoms().incr, content_->items[item].bytes.size());
    transfers_.push_back({window, property, content_, item, 0, ClipboardClock::now()});
}

void ClipboardOwner::feed(const XPropertyEvent& event)
{
    const auto transfer = std::find_if(transfers_.begin(), transfers_.end(), [&](const Transfer& t) {
        return t.window == event.window && t.property == event.atom;
    });
    if (transfer == transfers_.end()) return;
    const std::vector<uint8_t>& bytes = transfer->content->items[transfer->item].bytes;
    const std::size_t count = std::min(link_.chunk(), bytes.size() - transfer->sent);
    link_.write_bytes(transfer->window, transfer->property, transfer->content->types[transfer->item],
                      bytes.data() + transfer->sent, count);
    transfer->sent += count;
    transfer->last_step = ClipboardClock::now();
    if (count == 0) drop_transfers(event.window, event.atom); // an empty piece marks the end
    XFlush(link_.display());
}

void ClipboardOwner::drop_transfers(Window window, Atom property)
{
    std::erase_if(transfers_,
                  [&](const Transfer& t) { return t.window == window && (property == 0 || t.property == property); });
}

void ClipboardOwner::drop_stalled()
{
    const auto limit = ClipboardClock::now() - stalled_time;
    std::erase_if(transfers_, [&](const Transfer& t) { return t.last_step < limit; });
}

void ClipboardOwner::hand_over()
{
    const ClipboardAtoms& atoms = link_.atoms();
    if (content_->items.empty() || XGetSelectionOwner(link_.display(), atoms.manager) == 0) return;
    link_.write_atoms(link_.window(), atoms.offered, XA_ATOM, content_->types);
    XConvertSelection(link_.display(), atoms.manager, atoms.save_targets, atoms.offered, link_.window(),
                      link_.server_time());
    XFlush(link_.display());
    const auto is_done = [&](const XEvent& event) {
        return event.type == SelectionNotify && event.xselection.selection == atoms.manager;
    };
    link_.wait_for(is_done, ClipboardClock::now() + step_time);
}

} // namespace kelu::platform
