// SPDX-License-Identifier: MIT
// Options brought into their range, and their first values.
#include "draw/tool_options.h"

namespace kelu {

int tool_option(int tool, const DrawOption& option)
{
    const auto& row = toolbox.tool_table[tool];
    return option.clamped(row[option.column]);
}

bool tool_filled(int tool) { return tool_option(tool, options::filled) != 0; }

void set_initial_options(OptionTable& table, const DrawChoice& choice)
{
    auto& row = table[choice.id];
    for (const DrawOption& option : choice.options)
        if (option.widget != OptionWidget::BUTTON) row[option.column] = option.initial;
}

} // namespace kelu
