// SPDX-License-Identifier: MIT
// The program's one question to the user.
#pragma once

#include <span>

namespace kelu {

enum class DialogButtons {
    OKAY_AND_CANCEL,
    OKAY ///< nothing to choose
};

/// Shows a dialog with one or two lines (rows of the strings; second 0: none) and waits for an answer: 1 for OKAY, 0
/// for CANCEL or the program's end. It uses slots 0 to 5 and doesn't clear them; the caller does, and builds its
/// own window again.
int confirm_dialog(int first_text, int second_text, DialogButtons buttons = DialogButtons::OKAY_AND_CANCEL);

/// The same over the open window, which is hidden meanwhile and keeps its slots and its key focus.
int confirm_over_window(int first_text, int second_text, DialogButtons buttons = DialogButtons::OKAY_AND_CANCEL);

/// Asks over the open window, which keeps its slots and its key focus, and comes back behind the question. `answers`
/// are rows of the strings, 1 to 3; the index of the one that was clicked is returned, the last one's when the program
/// is to end.
int choose_over_window(int first_text, std::span<const int> answers, int second_text = 0);

/// Over the drawing menu: freezes it, asks, and builds it again. Returns the answer.
int ask(int first_text, int second_text, DialogButtons buttons = DialogButtons::OKAY_AND_CANCEL);

} // namespace kelu
