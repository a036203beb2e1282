// SPDX-License-Identifier: MIT
// Xlib hands over items of 32 bits as longs.
#include "platform/x_properties.h"

#include <vector>
#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace kelu::platform {
namespace {

constexpr long most_bytes = 1L << 20;

std::string read_property(Window window, Atom property, Atom type, Bool remove)
{
    Atom real_type = None;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(_xwin.display, window, property, 0, most_bytes / 4, remove, type, &real_type, &format,
                           &items, &left, &data) != Success ||
        !data)
        return {};
    const std::size_t item = format == 32 ? sizeof(long) : static_cast<std::size_t>(format) / 8;
    std::string bytes;
    if (real_type == type && left == 0) bytes.assign(reinterpret_cast<const char*>(data), items * item);
    XFree(data);
    return bytes;
}

/// The numbers of a property of 32-bit items.
std::vector<unsigned long> read_words(Window window, Atom property, Atom type)
{
    const std::string bytes = read_property(window, property, type, False);
    std::vector<unsigned long> words(bytes.size() / sizeof(unsigned long));
    bytes.copy(reinterpret_cast<char*>(words.data()), words.size() * sizeof(unsigned long));
    return words;
}

} // namespace

Atom atom(const char* name) { return XInternAtom(_xwin.display, name, False); }

std::string take_property(Window window, Atom property, Atom type)
{
    return read_property(window, property, type, True);
}

bool lists_atom(Window window, Atom property, Atom wanted)
{
    for (const unsigned long word : read_words(window, property, XA_ATOM)) {
        if (word == wanted) return true;
    }
    return false;
}

Window named_window(Window window, Atom property)
{
    const std::vector<unsigned long> words = read_words(window, property, XA_WINDOW);
    return words.empty() ? None : words[0];
}

} // namespace kelu::platform
