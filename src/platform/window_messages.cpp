// SPDX-License-Identifier: MIT
// The answers, under Allegro's lock on whichever thread reads the connection. The state below is guarded by that lock.
#include "platform/window_messages.h"

#include "platform/dropped_files.h"
#include "platform/ending.h"
#include "platform/full_screen.h"
#include "platform/x_events.h"
#include "platform/x_lock.h"
#include "platform/x_properties.h"
#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>
#include <X11/Xatom.h>
#include <X11/Xlib.h>

extern "C" {
/// Allegro's own handling of input, which stands aside while `_xwin_input_handler` is set.
void _xwin_private_handle_input(void);
}

namespace kelu::platform {
namespace {

constexpr long protocol_version = 5; ///< of dragging, the newest one

struct Atoms {
    Atom protocols, close, ping, aware, enter, position, leave, drop, status, finished, selection, type_list, copy,
        uri_list, received;
};

/// A drag over our window.
struct Drag {
    Window source = None;  ///< window that it comes from; None: there is no drag
    bool has_list = false; ///< it offers a list of URIs
};

struct Messages {
    Atoms atoms{};
    EventMaker make_message = nullptr, make_notice = nullptr; ///< Xlib's own
    std::vector<XEvent> waiting;                              ///< messages that have come and aren't answered
    Drag drag;
};
Messages messages;

/// Sends five words to a window of another program.
void send(Window target, Atom type, std::array<long, 5> words)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = target;
    event.xclient.message_type = type;
    event.xclient.format = 32;
    std::copy(words.begin(), words.end(), event.xclient.data.l);
    XSendEvent(_xwin.display, target, False, NoEventMask, &event);
}

long our_window() { return static_cast<long>(_xwin.wm_window); }

bool lists_uris(const XClientMessageEvent& enter)
{
    for (int i = 2; i < 5; ++i) {
        if (static_cast<Atom>(enter.data.l[i]) == messages.atoms.uri_list) return true;
    }
    if ((enter.data.l[1] & 1) == 0) return false; // there are no more than these
    return lists_atom(messages.drag.source, messages.atoms.type_list, messages.atoms.uri_list);
}

void finish_drop(bool taken)
{
    if (messages.drag.source == None) return;
    send(messages.drag.source, messages.atoms.finished,
         {our_window(), taken ? 1 : 0, taken ? static_cast<long>(messages.atoms.copy) : 0, 0, 0});
    messages.drag = {};
}

void answer_ping(XEvent event)
{
    const Window root = RootWindow(_xwin.display, _xwin.screen);
    event.xclient.window = root;
    XSendEvent(_xwin.display, root, False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

void answer_message(const XEvent& event)
{
    const Atoms& atoms = messages.atoms;
    const XClientMessageEvent& message = event.xclient;
    const auto source = static_cast<Window>(message.data.l[0]);
    if (message.message_type == atoms.protocols) {
        answer_ping(event);
    } else if (message.message_type == atoms.enter) {
        messages.drag = {.source = source, .has_list = false};
        messages.drag.has_list = (message.data.l[1] >> 24) <= protocol_version && lists_uris(message);
    } else if (source != messages.drag.source) {
        return; // a drag that we know nothing of
    } else if (message.message_type == atoms.position) {
        const bool taken = messages.drag.has_list;
        send(source, atoms.status, {our_window(), taken ? 1 : 0, 0, 0, taken ? static_cast<long>(atoms.copy) : 0});
    } else if (message.message_type == atoms.drop && messages.drag.has_list) {
        XConvertSelection(_xwin.display, atoms.selection, atoms.uri_list, atoms.received, _xwin.wm_window,
                          static_cast<Time>(message.data.l[2]));
    } else if (message.message_type == atoms.drop) {
        finish_drop(false);
    } else {
        messages.drag = {}; // it has left
    }
}

/// The source has handed over what was dropped, or refuses to.
void take_drop(const XSelectionEvent& notice)
{
    std::string list;
    if (notice.property != None) list = take_property(_xwin.wm_window, notice.property, messages.atoms.uri_list);
    std::vector<std::string> files = files_of_uri_list(list);
    const bool taken = !files.empty();
    if (taken) add_dropped_files(std::move(files));
    finish_drop(taken);
}

/// True for what Allegro would pass over.
bool concerns_us(const XEvent& event)
{
    const Atoms& atoms = messages.atoms;
    if (event.type == SelectionNotify) return event.xselection.selection == atoms.selection;
    const Atom type = event.xclient.message_type;
    if (type == atoms.protocols) return static_cast<Atom>(event.xclient.data.l[0]) == atoms.ping;
    return type == atoms.enter || type == atoms.position || type == atoms.leave || type == atoms.drop;
}

/// Xlib calls this with its own lock held: we may keep the event and no more. False: nobody else is to see it.
Bool keep_event(EventMaker make, XEvent* event, void* bytes)
{
    constexpr std::size_t most_waiting = 256; // of a program that floods us
    if (!make(_xwin.display, event, bytes)) return False;
    if (!concerns_us(*event)) return True;
    if (messages.waiting.size() < most_waiting) messages.waiting.push_back(*event);
    return False;
}

void answer_all()
{
    if (messages.waiting.empty() || display_lost()) return;
    for (const XEvent& event : std::exchange(messages.waiting, {})) {
        if (event.type == SelectionNotify)
            take_drop(event.xselection);
        else
            answer_message(event);
    }
    XFlush(_xwin.display);
}

/// The program from which something is dragged may go at any time; what we ask of it then fails, which harms nobody.
XErrorHandler other_handler = nullptr;
int pass_error(Display* display, XErrorEvent* error)
{
    if (display == _xwin.display && error->error_code == BadWindow) return 0;
    return other_handler ? other_handler(display, error) : 0;
}

} // namespace

void listen_to_messages()
{
    const XLock lock;
    messages = {};
    Atoms& atoms = messages.atoms;
    atoms = {.protocols = atom("WM_PROTOCOLS"),
             .close = atom("WM_DELETE_WINDOW"),
             .ping = atom("_NET_WM_PING"),
             .aware = atom("XdndAware"),
             .enter = atom("XdndEnter"),
             .position = atom("XdndPosition"),
             .leave = atom("XdndLeave"),
             .drop = atom("XdndDrop"),
             .status = atom("XdndStatus"),
             .finished = atom("XdndFinished"),
             .selection = atom("XdndSelection"),
             .type_list = atom("XdndTypeList"),
             .copy = atom("XdndActionCopy"),
             .uri_list = atom("text/uri-list"),
             .received = atom("_KELU_DROPPED")};
    other_handler = XSetErrorHandler(pass_error);
    messages.make_message = XESetWireToEvent(_xwin.display, ClientMessage, [](Display*, XEvent* event, void* bytes) {
        return keep_event(messages.make_message, event, bytes);
    });
    messages.make_notice = XESetWireToEvent(_xwin.display, SelectionNotify, [](Display*, XEvent* event, void* bytes) {
        return keep_event(messages.make_notice, event, bytes);
    });
    _xwin_input_handler = [] {
        _xwin_private_handle_input();
        answer_all();
        if (!display_lost()) follow_full_screen();
    };
    std::array<Atom, 2> protocols = {atoms.close, atoms.ping};
    XSetWMProtocols(_xwin.display, _xwin.wm_window, protocols.data(), static_cast<int>(protocols.size()));
    XChangeProperty(_xwin.display, _xwin.wm_window, atoms.aware, XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(&protocol_version), 1);
}

} // namespace kelu::platform
