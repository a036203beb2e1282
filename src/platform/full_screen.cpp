// SPDX-License-Identifier: MIT
// Allegro takes the pointer's events of both windows and has their positions for those in the picture. So events of the
// outer window are moved where they become events.
#include "platform/full_screen.h"

#include "platform/ending.h"
#include "platform/x_events.h"
#include "platform/x_lock.h"
#include "platform/x_properties.h"
#include <chrono>
#include <thread>
#include <X11/Xutil.h>

namespace kelu::platform {
namespace {

/// Guarded by Allegro's lock.
struct FullScreen {
    bool entered = false;   ///< the manager has made our window fill the screen
    int left = 0, top = 0;  ///< place of the picture in our window
    Extent window;          ///< its size, as last told
    bool resized = false;   ///< that has come, and the picture isn't in the middle yet
    bool listening = false; ///< the makers below are ours
};
FullScreen full_screen;

/// Xlib's own maker of each type of event.
template <int type>
EventMaker made_by_xlib = nullptr;

void note_place(XMotionEvent& event)
{
    if (event.window != _xwin.wm_window) return;
    event.x -= full_screen.left;
    event.y -= full_screen.top;
}

void note_place(XCrossingEvent& event)
{
    if (event.window != _xwin.wm_window) return;
    event.x -= full_screen.left;
    event.y -= full_screen.top;
}

void note_size(const XConfigureEvent& event)
{
    if (event.window != _xwin.wm_window) return;
    full_screen.window = {event.width, event.height};
    full_screen.resized = true;
}

template <int type>
Bool make_event(Display* display, XEvent* event, void* bytes)
{
    if (!made_by_xlib<type>(display, event, bytes)) return False;
    if constexpr (type == ConfigureNotify)
        note_size(event->xconfigure);
    else if constexpr (type == EnterNotify)
        note_place(event->xcrossing);
    else
        note_place(event->xmotion);
    return True;
}

template <int type>
void listen_to()
{
    made_by_xlib<type> = XESetWireToEvent(_xwin.display, type, make_event<type>);
}

void listen()
{
    if (full_screen.listening) return;
    full_screen.listening = true;
    listen_to<ConfigureNotify>();
    listen_to<EnterNotify>();
    listen_to<MotionNotify>();
}

/// The window may have any size from this one on; Allegro has fixed it.
void allow_sizes_from(int w, int h)
{
    XSizeHints* const hints = XAllocSizeHints();
    if (!hints) return;
    hints->flags = PMinSize | PBaseSize;
    hints->min_width = hints->base_width = w;
    hints->min_height = hints->base_height = h;
    XSetWMNormalHints(_xwin.display, _xwin.wm_window, hints);
    XFree(hints);
}

void send_request()
{
    constexpr long add = 1, from_program = 1;
    const Window root = RootWindow(_xwin.display, _xwin.screen);
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = _xwin.wm_window;
    event.xclient.message_type = atom("_NET_WM_STATE");
    event.xclient.format = 32;
    event.xclient.data.l[0] = add;
    event.xclient.data.l[1] = static_cast<long>(atom("_NET_WM_STATE_FULLSCREEN"));
    event.xclient.data.l[3] = from_program;
    XSendEvent(_xwin.display, root, False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XFlush(_xwin.display);
}

/// The window's size once it is full screen, else 0 x 0.
Extent granted_size()
{
    if (!lists_atom(_xwin.wm_window, atom("_NET_WM_STATE"), atom("_NET_WM_STATE_FULLSCREEN"))) return {};
    XWindowAttributes window{};
    if (XGetWindowAttributes(_xwin.display, _xwin.wm_window, &window) == 0) return {};
    return {window.width, window.height};
}

/// Waits until the manager has answered and the size hasn't changed for a moment.
Extent await_answer()
{
    using namespace std::chrono_literals;
    constexpr auto pause = 10ms;
    constexpr int enough = 10;
    const auto end = std::chrono::steady_clock::now() + 5s;
    Extent size;
    for (int alike = 0; alike < enough && std::chrono::steady_clock::now() < end;) {
        std::this_thread::sleep_for(pause);
        if (display_lost()) return {};
        const XLock lock;
        const Extent now = granted_size();
        alike = now.w > 0 && now.w == size.w && now.h == size.h ? alike + 1 : 0;
        size = now;
    }
    return size;
}

void place_picture()
{
    full_screen.resized = false;
    full_screen.left = (full_screen.window.w - _xwin.window_width) / 2;
    full_screen.top = (full_screen.window.h - _xwin.window_height) / 2;
    XMoveWindow(_xwin.display, _xwin.window, full_screen.left, full_screen.top);
    XFlush(_xwin.display);
}

} // namespace

bool manager_offers_full_screen()
{
    const XLock lock;
    const Window root = RootWindow(_xwin.display, _xwin.screen);
    // A manager that has gone leaves its name behind: the window that it names is to name itself.
    const Atom check = atom("_NET_SUPPORTING_WM_CHECK");
    const Window manager = named_window(root, check);
    return manager != None && named_window(manager, check) == manager &&
           lists_atom(root, atom("_NET_SUPPORTED"), atom("_NET_WM_STATE_FULLSCREEN"));
}

Extent ask_for_full_screen()
{
    {
        const XLock lock;
        listen();
        allow_sizes_from(1, 1); // a screen may be smaller than the picture, which then is made smaller
        send_request();
    }
    const Extent size = await_answer();
    if (size.w == 0) return {};
    const XLock lock;
    full_screen.entered = true;
    full_screen.window = granted_size(); // it may have changed since
    // The pointer that we draw ends at the picture's edge; the display's own is hidden over the picture only.
    if (_xwin.cursor != None) XDefineCursor(_xwin.display, _xwin.wm_window, _xwin.cursor);
    place_picture();
    if (size.w >= _xwin.window_width && size.h >= _xwin.window_height)
        allow_sizes_from(_xwin.window_width, _xwin.window_height);
    return size;
}

void leave_full_screen()
{
    const XLock lock;
    if (!full_screen.entered) return;
    full_screen.entered = false;
    full_screen.left = full_screen.top = 0;
    XUndefineCursor(_xwin.display, _xwin.wm_window);
    XMoveWindow(_xwin.display, _xwin.window, 0, 0);
}

void follow_full_screen()
{
    if (full_screen.entered && full_screen.resized) place_picture();
}

} // namespace kelu::platform
