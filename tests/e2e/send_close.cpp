// SPDX-License-Identifier: MIT
// send_close WINDOW: presses the close button of a window, as a window manager would.
#include <cstdlib>
#include <X11/Xlib.h>

int main(int count, char** words)
{
    Display* display = count == 2 ? XOpenDisplay(nullptr) : nullptr;
    if (!display) return 1;
    const Window window = std::strtoul(words[1], nullptr, 0);
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window, False, NoEventMask, &event);
    XCloseDisplay(display);
}
