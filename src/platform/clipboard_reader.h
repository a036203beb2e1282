// SPDX-License-Identifier: MIT
// The side of the clipboard that takes content from another program. Runs on the clipboard's thread.
#pragma once

#include "platform/clipboard.h"
#include "platform/clipboard_link.h"

namespace kelu::platform {

/// The selection's content in the first of the wanted types that its owner has; an item without a type when there is
/// none, or it doesn't arrive within the times of clipboard_link.h and `limit` bytes.
ClipboardItem read_clipboard(ClipboardLink& link, std::span<const char* const> wanted, std::size_t limit);

} // namespace kelu::platform
