// SPDX-License-Identifier: MIT
// Options of the tools, as the geometries read them.
#pragma once

#include "draw/draw_options.h"
#include "runtime/toolbox.h"

namespace kelu {

/// Value of an option of a tool, clamped to the option's range: the tables come from files.
int tool_option(int tool, const DrawOption& option);
/// True when the shape is to be drawn filled.
bool tool_filled(int tool);

/// Puts the value of a fresh workspace into each option of a row of the option tables.
void set_initial_options(OptionTable& table, const DrawChoice& choice);

} // namespace kelu
