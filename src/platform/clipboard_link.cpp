// SPDX-License-Identifier: MIT
// The clipboard's connection.
#include "platform/clipboard_link.h"

#include <algorithm>
#include <atomic>
#include <poll.h>
#include <X11/Xatom.h>

namespace kelu::platform {
namespace {

constexpr std::size_t most_chunk = std::size_t{256} * 1024;

/// The connection whose errors are swallowed, and who handled errors before. Error handlers are the whole process's.
std::atomic<Display*> quiet_display = nullptr;
XErrorHandler other_handler = nullptr;

/// Windows of other programs may vanish at any time; requests to them then fail, which harms nobody.
int pass_error(Display* display, XErrorEvent* error)
{
    if (display == quiet_display) return 0;
    return other_handler ? other_handler(display, error) : 0;
}

void swallow_errors(Display* display)
{
    quiet_display = display;
    const XErrorHandler present = XSetErrorHandler(pass_error);
    if (present != pass_error) other_handler = present;
}

/// Bytes of one item of a property in Xlib's memory.
std::size_t item_bytes(int format) { return format == 32 ? sizeof(long) : format == 16 ? sizeof(short) : 1; }

} // namespace

ClipboardLink::~ClipboardLink()
{
    if (!display_) return;
    if (!broken_) XCloseDisplay(display_);
    quiet_display = nullptr;
}

bool ClipboardLink::open()
{
    display_ = XOpenDisplay(nullptr);
    if (!display_) return false;
    swallow_errors(display_);
    // Without this the library would call exit on our thread when the server goes, and the work would be lost.
    XSetIOErrorExitHandler(
        display_, [](Display*, void* link) { static_cast<ClipboardLink*>(link)->broken_ = true; }, this);
    window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), -1, -1, 1, 1, 0, 0, 0);
    XSelectInput(display_, window_, PropertyChangeMask);
    atoms_ = {.clipboard = atom("CLIPBOARD"),
              .targets = atom("TARGETS"),
              .timestamp = atom("TIMESTAMP"),
              .multiple = atom("MULTIPLE"),
              .atom_pair = atom("ATOM_PAIR"),
              .incr = atom("INCR"),
              .null = atom("NULL"),
              .manager = atom("CLIPBOARD_MANAGER"),
              .save_targets = atom("SAVE_TARGETS"),
              .received = atom("_KELU_RECEIVED"),
              .stamp = atom("_KELU_STAMP"),
              .offered = atom("_KELU_OFFERED")};
    // Sizes of requests count words of 4 bytes; the head of a request needs some of them.
    const long words = std::max(XExtendedMaxRequestSize(display_), XMaxRequestSize(display_));
    chunk_ = std::min(most_chunk, static_cast<std::size_t>(words) * 4 - 256);
    return true;
}

void ClipboardLink::handle_pending()
{
    while (!broken_ && XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        handle(event);
    }
}

bool ClipboardLink::wait_for(const std::function<bool(const XEvent&)>& accepts, ClipboardClock::time_point deadline)
{
    for (;;) {
        while (!broken_ && XPending(display_) > 0) {
            XEvent event;
            XNextEvent(display_, &event);
            const bool accepted = accepts(event);
            handle(event);
            if (accepted) return true;
        }
        if (broken_) return false;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - ClipboardClock::now()).count();
        if (left <= 0) return false;
        pollfd connection = {ConnectionNumber(display_), POLLIN, 0};
        poll(&connection, 1, static_cast<int>(left));
    }
}

Time ClipboardLink::server_time()
{
    // An empty append changes nothing but is reported, with its time.
    XChangeProperty(display_, window_, atoms_.stamp, XA_INTEGER, 32, PropModeAppend, nullptr, 0);
    Time time = CurrentTime;
    const auto is_stamp = [&](const XEvent& event) {
        if (event.type != PropertyNotify || event.xproperty.atom != atoms_.stamp) return false;
        time = event.xproperty.time;
        return true;
    };
    wait_for(is_stamp, ClipboardClock::now() + answer_time);
    return time;
}

bool ClipboardLink::read_property(Window window, Atom name, std::size_t limit, Property& property) const
{
    property.bytes.clear();
    for (long at = 0;;) {
        int format = 0;
        unsigned long items = 0, left = 0;
        unsigned char* data = nullptr;
        if (XGetWindowProperty(display_, window, name, at, static_cast<long>(most_chunk / 4), False, AnyPropertyType,
                               &property.type, &format, &items, &left, &data) != Success)
            return false;
        property.bytes.insert(property.bytes.end(), data, data + items * item_bytes(format));
        if (data) XFree(data);
        if (property.bytes.size() > limit) return false;
        if (left == 0) return true;
        at += static_cast<long>(items * static_cast<unsigned long>(format) / 32); // offsets count words of 4 bytes
    }
}

void ClipboardLink::write_atoms(Window window, Atom name, Atom type, const std::vector<Atom>& atoms) const
{
    XChangeProperty(display_, window, name, type, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(atoms.data()), static_cast<int>(atoms.size()));
}

void ClipboardLink::write_number(Window window, Atom name, Atom type, unsigned long number) const
{
    XChangeProperty(display_, window, name, type, 32, PropModeReplace, reinterpret_cast<const unsigned char*>(&number),
                    1);
}

void ClipboardLink::write_bytes(Window window, Atom name, Atom type, const uint8_t* bytes, std::size_t count) const
{
    XChangeProperty(display_, window, name, type, 8, PropModeReplace, bytes, static_cast<int>(count));
}

} // namespace kelu::platform
