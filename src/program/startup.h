// SPDX-License-Identifier: MIT
// The life of the program: the fixed sequence that brings a bare process to the drawing menu, and the one that ends it.
#pragma once

#include "platform/host.h"
#include "program/leaving.h"

namespace kelu {

/// The loop that runs between start-up and shutdown, draw_menu; session tests put one screen in its place.
struct Program {
    void (*home_loop)() = nullptr;
};
inline Program program;

/// Runs the program in the working directory, which is its own folder. Returns the exit code.
int run_program();

/// Every table to its start value: a list of resets. The one place that writes the defaults.
void FW_initialize_variables();

/// Opens the video mode that config.def asks for, falling to the next smaller window when one is refused, and makes
/// the bitmaps of the screen. Ends the program with a message when no mode is to be had.
void initialize_display();

/// Installs the timers in the order of their table.
void install_interrupts();
/// Removes them, so that nothing ticks while Allegro goes.
void remove_interrupts();

/// Closes what start-up opened, once the work has been written as far as it could be. Returns the exit code: not 0 when
/// something was not written.
int shutdown_program(Leaving leaving);

} // namespace kelu
