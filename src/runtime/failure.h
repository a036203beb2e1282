// SPDX-License-Identifier: MIT
// Failures that end the program: a message box the user closes, and the way out.
#pragma once

namespace kelu {

/// Texts of the boxes. Start-up, the resource coder and the font loader raise them.
namespace fatal_text {
constexpr const char* permissions =
    "This program REQUIRES read and write permissions where it's located. \n \nYou can try the following actions: \n "
    "\n- Move the program to a different location. \n- Run the program as Administrator.";
constexpr const char* config_missing =
    "The file CONFIG.DEF is missing. Rerun the configuration program, or reinstall the game.";
constexpr const char* mode_refused =
    "Your system didn't like the specified resolution! Run CONFIGURE.EXE and pick a different one.";
constexpr const char* font_library = "Error while initializing alfont";
constexpr const char* system_font = "System font file is missing. Please reinstall the application.";
constexpr const char* resource_missing = "A critical resource file is missing. Please reinstall the program.";
constexpr const char* conversion = "A resource file conversion failed. Please reinstall the game and try again.";
constexpr const char* decompressing = "A critical resource file is missing. Please reinstall the game.";
constexpr const char* compressing = "A critical resource file is missing. Please reinstall the application.";
constexpr const char* out_of_memory =
    "The program ran out of memory! Reboot, or close some active programs and try again.";
} // namespace fatal_text

/// Shows the box, leaves Allegro in order and ends the process with `exit_code`. The log line comes before the call.
[[noreturn]] void fatal_stop(const char* text, int exit_code = -1);

} // namespace kelu
