// SPDX-License-Identifier: MIT
// A short list that pops up over a screen, for one choice.
#pragma once

#include "gui/strings.h"

namespace kelu {

constexpr int no_choice = -1;

/// What the list holds and how wide it is: 9 rows show, of 7 pixels each.
struct ListPopup {
    int first_text, items;    ///< rows of ui_strings
    int positions;            ///< of the scroll bar
    int w;                    ///< width with the bar, which takes the last 10 pixels
    int top_text = TEXT_NONE; ///< text of the first row in place of `first_text`, when it is set
};

/// Freezes the open screen, clears its slots and shows the list near (x, y), held on the screen. Returns the row that
/// was pressed, from 0, or `no_choice` after a right press. The caller builds its screen again.
int choose_from_list(const ListPopup& list, int x, int y);

} // namespace kelu
