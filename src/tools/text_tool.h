// SPDX-License-Identifier: MIT
// The text tool: one line of text over the frame, with its window.
#pragma once

namespace kelu {

/// Slots of the text window, for its test.
enum TextSlot : int {
    TEXT_SLOT_FIELD = 4,
    TEXT_SLOT_SIZE = 5,
    TEXT_SLOT_GAP = 7,
    TEXT_SLOT_OKAY = 8,
    TEXT_SLOT_CANCEL = 9,
    TEXT_SLOT_FONT = 10
};

/// Most characters of a text, and the largest size and gap in pixels.
namespace text_limits {
constexpr int characters = 120, size = 350, gap = 32;
}

/// Runs after the tool's first click, whose place is node 0: the user types, chooses size, gap and font, and drags the
/// text, until OKAY, Enter or the right button puts it on the frame, or CANCEL or the program's end gives it up. The
/// drawing menu is open again afterwards.
void text_tool();

} // namespace kelu
