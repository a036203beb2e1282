// SPDX-License-Identifier: MIT
// Xlib's call for extensions: who makes an event of the bytes that came from the display. It stands in a header of
// Xlib's own parts only. Whoever is set there runs under Xlib's lock: it may look at the event, change it and keep it,
// no more.
#pragma once

#include <X11/Xlib.h>

extern "C" {
/// False: nobody is to see the event.
using EventMaker = Bool (*)(Display*, XEvent*, void* bytes);
/// Sets the maker of a type of event; returns the one before.
EventMaker XESetWireToEvent(Display*, int event, EventMaker);
}
