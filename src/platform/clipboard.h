// SPDX-License-Identifier: MIT
// The system's clipboard: blocks of bytes by media type, such as "image/png".
//
// On X11 the content stays with the program that offers it, which has to answer at any time. So the clipboard has a
// thread and a connection of its own, made at the first use. The functions are for the main thread; they wait for an
// answer, but never longer than the times in clipboard_link.h: another program can't hang this one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kelu::platform {

/// One form of the clipboard's content.
struct ClipboardItem {
    std::string type; ///< media type
    std::vector<uint8_t> bytes;
};

/// Puts content on the clipboard, in several forms, the best first. False without a display, or when another program
/// has taken the clipboard at the same moment.
bool clipboard_offer(std::vector<ClipboardItem> items);

/// The content of the clipboard, whoever offers it, in the first of the wanted types that there is. An item without a
/// type: there is none, or it is larger than `limit` bytes, or the other program has not delivered in time.
ClipboardItem clipboard_take(std::span<const char* const> wanted, std::size_t limit);

/// Hands what is still offered to the desktop's clipboard manager, if one runs, and ends the thread. Before the end of
/// the program.
void clipboard_close();

} // namespace kelu::platform
