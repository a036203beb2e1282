// SPDX-License-Identifier: MIT
// The window beyond Allegro's calls: its class and its icon for the desktop, its events for us. The only unit that sees
// X11 and Allegro's own X words.
#include "platform/desktop_window.h"

#include "base/bitmap.h"
#include "platform/desktop_rest.h"
#include "platform/ending.h"
#include "platform/x_lock.h"
#include <cstdint>
#include <iterator>
#include <poll.h>
#include <string_view>
#include <unistd.h>
#include <vector>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace kelu::platform {
namespace {

/// A property of our window; items of 32 bits are longs. Under the lock.
void set_property(const char* name, Atom type, int format, const void* items, std::size_t count)
{
    XChangeProperty(_xwin.display, _xwin.wm_window, XInternAtom(_xwin.display, name, False), type, format,
                    PropModeReplace, static_cast<const unsigned char*>(items), static_cast<int>(count));
}

} // namespace

void name_window_class() { xwin_set_window_name("kelu", "Kelu"); }

void watch_connection()
{
    // The library's own answer to a broken connection is to call exit on the thread that notices, which would hang in
    // Allegro's lock and lose the work.
    XSetIOErrorHandler([](Display*) {
        note_display_lost();
        return 0;
    });
    XSetIOErrorExitHandler(
        _xwin.display, [](Display*, void*) {}, nullptr);
}

bool connection_stands()
{
    if (display_lost()) return false;
    pollfd connection = {ConnectionNumber(_xwin.display), POLLIN, 0};
    if (poll(&connection, 1, 0) > 0 && (connection.revents & (POLLHUP | POLLERR)) != 0) note_display_lost();
    return !display_lost();
}

namespace {

/// Under the lock. Allegro asks the display and waits for its answer, which is dear where nothing has come.
void take_events()
{
    pollfd connection = {ConnectionNumber(_xwin.display), POLLIN, 0};
    const bool readable = poll(&connection, 1, 0) > 0;
    XFlush(_xwin.display); // which may itself read what has come
    if (readable || XEventsQueued(_xwin.display, QueuedAfterReading) > 0) _xwin_handle_input();
    // After a jump of ours the pointer moves by steps, not to places, until Allegro has looked 200 times in vain.
    constexpr int looks = 20;
    for (int i = 0; i < looks && _xwin.mouse_warped != 0 && connection_stands(); ++i)
        _xwin_handle_input();
}

} // namespace

void deliver_input()
{
    if (display_lost() || !screen) return;
    // Under the lock of the event thread, which may be the one to see the display go.
    acquire_screen();
    if (connection_stands()) take_events();
    release_screen();
}

BITMAP* window_image()
{
    XImage* const image = _xwin.ximage;
    const bool serves = screen && image && _xwin.matching_formats != 0 &&
                        screen->line[0] == reinterpret_cast<unsigned char*>(image->data) &&
                        image->bytes_per_line == screen->w * static_cast<int>(sizeof(int));
    return serves ? screen : nullptr;
}

void push_image(int top, int height)
{
    const auto w = static_cast<unsigned>(screen->w);
    const auto h = static_cast<unsigned>(height);
#ifdef ALLEGRO_XWINDOWS_WITH_SHM
    if (_xwin.use_shm != 0) {
        XShmPutImage(_xwin.display, _xwin.window, _xwin.gc, _xwin.ximage, 0, top, 0, top, w, h, False);
        return;
    }
#endif
    XPutImage(_xwin.display, _xwin.window, _xwin.gc, _xwin.ximage, 0, top, 0, top, w, h);
}

void send_requests() { XFlush(_xwin.display); }

void await_input(int milliseconds)
{
    if (display_lost()) return;
    pollfd sources[] = {{ConnectionNumber(_xwin.display), POLLIN, 0}, {rest_descriptor(), POLLIN, 0}};
    poll(sources, std::size(sources), milliseconds);
}

void describe_window(const char* title)
{
    set_window_title(title); // WM_NAME, for managers that know no other
    const XLock lock;
    Display* display = _xwin.display;
    // The class is set already: this call, which sets the machine as well, is asked for nothing else.
    XSetWMProperties(display, _xwin.wm_window, nullptr, nullptr, nullptr, 0, nullptr, nullptr, nullptr);
    const long process = getpid();
    set_property("_NET_WM_PID", XA_CARDINAL, 32, &process, 1);
    const std::string_view name = title;
    const Atom utf8 = XInternAtom(display, "UTF8_STRING", False);
    set_property("_NET_WM_NAME", utf8, 8, name.data(), name.size());
    set_property("_NET_WM_ICON_NAME", utf8, 8, name.data(), name.size());
    const Atom normal = XInternAtom(display, "_NET_WM_WINDOW_TYPE_NORMAL", False);
    set_property("_NET_WM_WINDOW_TYPE", XA_ATOM, 32, &normal, 1);
    XFlush(display);
}

void set_desktop_icons(std::span<BITMAP* const> pictures)
{
    // Each: width, height, then one word of alpha, red, green and blue a pixel; X takes 32-bit data as longs.
    std::vector<unsigned long> words;
    for (BITMAP* picture : pictures) {
        if (!picture || picture->w > 256 || picture->h > 256) continue;
        words.push_back(static_cast<unsigned long>(picture->w));
        words.push_back(static_cast<unsigned long>(picture->h));
        for (int y = 0; y < picture->h; ++y) {
            for (int x = 0; x < picture->w; ++x)
                words.push_back(static_cast<uint32_t>(row(picture, y)[x]));
        }
    }
    if (_xwin.wm_window == None || words.empty()) return;
    const XLock lock;
    set_property("_NET_WM_ICON", XA_CARDINAL, 32, words.data(), words.size());
    XFlush(_xwin.display);
}

} // namespace kelu::platform
