// SPDX-License-Identifier: MIT
// How this folder asks the screens to tell the user something that needs an answer.
#pragma once

namespace kelu {

/// Shows a dialog of one or two lines (rows of the strings, 0: no second line) with a single button, and returns when
/// it has been answered. The dialogs of the screens set it; without it nothing shows.
inline void (*show_notice)(int first_text, int second_text) = nullptr;

/// Failures that have a panel.
constexpr int failure_font = 1; ///< a font's file can't be read

/// Shows the failure panel and returns when it has been dismissed. It leaves the table of slots without the open menu.
/// Set by the screens; without it nothing shows.
inline void (*show_failure_panel)(int code) = nullptr;

} // namespace kelu
