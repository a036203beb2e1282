// The program's one question to the user.
#pragma once

namespace kelu {

/// The first slot of a dialog.
enum class DialogSlots {
    LOW, ///< slots 0 to 5, in place of the open menu
    HIGH ///< slots 120 to 125, so that the menu below keeps its slots
};

enum class DialogButtons {
    OKAY_AND_CANCEL,
    OKAY ///< nothing to choose
};

/// Shows a dialog with one or two lines (rows of the strings; second 0: none) and waits for an answer: 1 for OKAY, 0
/// for CANCEL. Doesn't clear its slots; the caller does, and builds its own window again.
int confirm_dialog(int first_text, int second_text, DialogSlots slots, DialogButtons buttons);

/// Over the drawing menu: freezes it, asks, and builds it again. Returns the answer.
int ask(int first_text, int second_text, DialogButtons buttons = DialogButtons::OKAY_AND_CANCEL);

} // namespace kelu
