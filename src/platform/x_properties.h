// SPDX-License-Identifier: MIT
// Properties of windows on Allegro's connection to the display. All under Allegro's lock.
#pragma once

#include <allegro.h>
#include <string>
#include <xalleg.h>

namespace kelu::platform {

Atom atom(const char* name);
/// The whole of a property of this type, of 1 MiB at most, which goes from the window; empty when there is none.
std::string take_property(Window window, Atom property, Atom type);
/// True when the property is a list of atoms that has this one.
bool lists_atom(Window window, Atom property, Atom wanted);
/// The window that a property of a window names; None when there is no such property.
Window named_window(Window window, Atom property);

} // namespace kelu::platform
