// The pages of the help screen.
#include "gui/text_blocks.h"

namespace kelu {

constinit const std::array<const char*, help_page_count> help_pages = {
    "|| <- SELECT A TOPIC TO VIEW DETAILS",
};

} // namespace kelu
