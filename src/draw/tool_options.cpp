// Options brought into their range.
#include "draw/tool_options.h"

#include <algorithm>

namespace kelu {

int tool_option(int tool, int column, int highest)
{
    const int value = toolbox.tool_table[static_cast<std::size_t>(tool)][static_cast<std::size_t>(column)];
    return std::clamp(value, 0, highest);
}

bool tool_filled(int tool) { return tool_option(tool, OPTION_FILLED, 1) != 0; }

} // namespace kelu
