// SPDX-License-Identifier: MIT
// The pages of the help screen, made from assets/help.txt. A page is one text: the word "|" ends a line, and the title
// and key words are in colours of their own.
#include "gui/text_blocks.h"

namespace kelu {

constexpr std::array<const char*, help_page_count> help_pages = {
    "|| <- SELECT A TOPIC TO VIEW DETAILS",
#include "help_pages.inc"
};

static_assert(help_pages.back() != nullptr, "a page is missing");

} // namespace kelu
