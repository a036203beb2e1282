// SPDX-License-Identifier: MIT
// Speech bubbles: panels beside an actor that open, type their text in, hold and close.
#pragma once

#include "runtime/bubble_table.h"
#include <string_view>

namespace kelu {

/// Lets actor `who` say a text for `life` ticks (45 Hz) once it is typed, -1 until it is closed. Returns the bubble's
/// row, or -1 with a line in the log when none is free or there is no such actor. Either thread; no allocation.
int bubble_say(int who, int life, std::string_view text);
/// Sends a bubble, or all for -1, to closing, where its actor is a speaker; returns their number.
int close_bubbles(int row);
/// Timer callback: moves every bubble through its states.
void bubble_tick();
/// True while a bubble speaks: somebody waits for the tick.
bool bubbles_speak();

} // namespace kelu
