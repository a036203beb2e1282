// The window beyond Allegro's calls: its class and its icon for the desktop, its events for us. The only unit that sees
// X11 and Allegro's own X words.
#include "platform/desktop_window.h"

#include "base/bitmap.h"
#include "platform/ending.h"
#include <poll.h>
#include <vector>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <xalleg.h>

namespace kelu::platform {

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

void deliver_input()
{
    if (display_lost() || !screen) return;
    // Under the lock of the event thread, which may be the one to see the display go.
    acquire_screen();
    if (connection_stands()) _xwin_handle_input();
    release_screen();
}

void send_requests() { XFlush(_xwin.display); }

void await_input(int milliseconds)
{
    if (display_lost()) return;
    pollfd connection = {ConnectionNumber(_xwin.display), POLLIN, 0};
    poll(&connection, 1, milliseconds);
}

void set_desktop_icon(BITMAP* picture)
{
    if (!picture || picture->w > 256 || picture->h > 256 || _xwin.wm_window == None) return;
    // Width, height, then one word of alpha, red, green and blue a pixel; X takes 32-bit data as longs.
    std::vector<unsigned long> words = {static_cast<unsigned long>(picture->w), static_cast<unsigned long>(picture->h)};
    for (int y = 0; y < picture->h; ++y) {
        for (int x = 0; x < picture->w; ++x) {
            const int color = row(picture, y)[x];
            words.push_back(color == mask_magenta ? 0UL : 0xff000000UL | static_cast<unsigned long>(color & 0xffffff));
        }
    }
    // A connection of our own for the one request: Allegro's belongs to its event thread.
    Display* display = XOpenDisplay(nullptr);
    if (!display) return;
    XChangeProperty(display, _xwin.wm_window, XInternAtom(display, "_NET_WM_ICON", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(words.data()),
                    static_cast<int>(words.size()));
    XCloseDisplay(display);
}

} // namespace kelu::platform
