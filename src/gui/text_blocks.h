// SPDX-License-Identifier: MIT
// The long texts behind ui_strings: descriptions of tools and inks, and the help pages.
#pragma once

#include "gui/choice_names.h"
#include "gui/strings.h"
#include <array>

namespace kelu {

/// Rows of the descriptions: tools at their id, inks at 30 + id.
constexpr int description_row_count = ink_description_row + static_cast<int>(std::size(ink_names));
constexpr int help_page_count = 52; ///< the first page and one a topic

/// Ten lines a row, of at most 20 characters; null where a row has fewer.
extern const std::array<const char*, description_row_count * description_lines> description_rows;

/// Pages as one line of words each; a word that begins with "|" and is no colour code ends the line.
extern const std::array<const char*, help_page_count> help_pages;

} // namespace kelu
