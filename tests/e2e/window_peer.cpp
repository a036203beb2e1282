// SPDX-License-Identifier: MIT
// Another program's side of the window's messages: a window manager's ping and promises, and files dragged and dropped.
//
//   window_peer WINDOW close          presses the close button
//   window_peer WINDOW ping           0 when the answer comes within two seconds
//   window_peer WINDOW drop TEXT      drops a list of URIs; 0 when the window takes it
//   window_peer WINDOW drop-other     drags something that is no list; 0 when the window refuses it
//   window_peer WINDOW drop-dying     drops a list and is gone before it is asked for it
//   window_peer WINDOW leave          asks the window manager to end the window's full screen
//   window_peer ROOT manager          names the root window as a manager that does full screen
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <unistd.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace {

using Clock = std::chrono::steady_clock;

Display* display = nullptr;
Window target = None, own = None;

Atom atom(const char* name) { return XInternAtom(display, name, False); }

/// A message about the target, to the target or to the window manager.
void send_to(Window receiver, long mask, const char* type, const long (&words)[5])
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = target;
    event.xclient.message_type = atom(type);
    event.xclient.format = 32;
    std::memcpy(event.xclient.data.l, words, sizeof words);
    XSendEvent(display, receiver, False, mask, &event);
    XFlush(display);
}

void send(const char* type, long l0, long l1 = 0, long l2 = 0, long l3 = 0, long l4 = 0)
{
    send_to(target, NoEventMask, type, {l0, l1, l2, l3, l4});
}

/// The next event, or none within two seconds.
bool next_event(XEvent& event)
{
    const auto end = Clock::now() + std::chrono::seconds(2);
    while (XPending(display) == 0) {
        if (Clock::now() > end) return false;
        usleep(1000);
    }
    XNextEvent(display, &event);
    return true;
}

bool ping()
{
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    const long stamp = 4711;
    send("WM_PROTOCOLS", static_cast<long>(atom("_NET_WM_PING")), stamp, static_cast<long>(target));
    for (XEvent event; next_event(event);) {
        if (event.type != ClientMessage || event.xclient.message_type != atom("WM_PROTOCOLS")) continue;
        return event.xclient.window == DefaultRootWindow(display) && event.xclient.data.l[1] == stamp &&
               event.xclient.data.l[2] == static_cast<long>(target);
    }
    return false;
}

void hand_over(const XSelectionRequestEvent& request, std::string_view text)
{
    XChangeProperty(display, request.requestor, request.property, request.target, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
    XEvent notice = {};
    notice.xselection.type = SelectionNotify;
    notice.xselection.requestor = request.requestor;
    notice.xselection.selection = request.selection;
    notice.xselection.target = request.target;
    notice.xselection.property = request.property;
    notice.xselection.time = request.time;
    XSendEvent(display, request.requestor, False, NoEventMask, &notice);
    XFlush(display);
}

/// Drags over the window; true when it would take what we have.
bool drag(const char* type)
{
    const auto self = static_cast<long>(own);
    XSetSelectionOwner(display, atom("XdndSelection"), own, CurrentTime);
    // The list stands behind three other types, as file managers with many of them have it.
    const Atom types[] = {atom("text/a"), atom("text/b"), atom("text/c"), atom(type)};
    XChangeProperty(display, own, atom("XdndTypeList"), XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(types), 4);
    send("XdndEnter", self, 5L << 24 | 1, static_cast<long>(types[0]), static_cast<long>(types[1]),
         static_cast<long>(types[2]));
    send("XdndPosition", self, 0, 100L << 16 | 100, CurrentTime, static_cast<long>(atom("XdndActionCopy")));
    for (XEvent event; next_event(event);) {
        if (event.type == ClientMessage && event.xclient.message_type == atom("XdndStatus"))
            return (event.xclient.data.l[1] & 1) != 0;
    }
    return false;
}

bool drop(std::string_view text)
{
    if (!drag("text/uri-list")) return false;
    send("XdndDrop", static_cast<long>(own), 0, CurrentTime);
    for (XEvent event; next_event(event);) {
        if (event.type == SelectionRequest) hand_over(event.xselectionrequest, text);
        if (event.type == ClientMessage && event.xclient.message_type == atom("XdndFinished"))
            return (event.xclient.data.l[1] & 1) != 0;
    }
    return false;
}

void leave_full_screen()
{
    constexpr long remove = 0, from_pager = 2;
    send_to(DefaultRootWindow(display), SubstructureRedirectMask | SubstructureNotifyMask, "_NET_WM_STATE",
            {remove, static_cast<long>(atom("_NET_WM_STATE_FULLSCREEN")), 0, from_pager, 0});
}

void promise_full_screen()
{
    const auto set = [](const char* name, Atom type, Atom word) {
        XChangeProperty(display, target, atom(name), type, 32, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(&word), 1);
    };
    set("_NET_SUPPORTING_WM_CHECK", XA_WINDOW, target);
    set("_NET_SUPPORTED", XA_ATOM, atom("_NET_WM_STATE_FULLSCREEN"));
}

} // namespace

int main(int count, char** words)
{
    display = count >= 3 ? XOpenDisplay(nullptr) : nullptr;
    if (!display) return 2;
    target = std::strtoul(words[1], nullptr, 0);
    own = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
    const std::string_view what = words[2];
    if (what == "ping") return ping() ? 0 : 1;
    if (what == "drop" && count == 4) return drop(words[3]) ? 0 : 1;
    if (what == "close" || what == "leave" || what == "manager") {
        if (what == "close") send("WM_PROTOCOLS", static_cast<long>(atom("WM_DELETE_WINDOW")), CurrentTime);
        if (what == "leave") leave_full_screen();
        if (what == "manager") promise_full_screen();
        XSync(display, False);
        return 0;
    }
    if (what == "drop-other") {
        const bool taken = drag("text/other");
        send("XdndLeave", static_cast<long>(own));
        return taken ? 1 : 0;
    }
    if (what != "drop-dying" || !drag("text/uri-list")) return 2;
    send("XdndDrop", static_cast<long>(own), 0, CurrentTime);
    XSync(display, False);
    return 0; // and the connection goes with the window
}
