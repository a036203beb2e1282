// SPDX-License-Identifier: MIT
// Keys by their place on the keyboard, whatever the user's layout says.
#pragma once

#include <string>

namespace kelu::platform {

/// Allegro's configuration text that gives each key of a PC keyboard the scancode of its place on a US layout.
std::string keyboard_map_text();

} // namespace kelu::platform
