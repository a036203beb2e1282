// SPDX-License-Identifier: MIT
// The program's own fonts, palette, sheets and tips, for tests that draw without starting the program.
#pragma once

namespace kelu::test {

/// Loads what the build has drawn, puts the start scheme on and makes the bitmaps of the screen.
void load_screen_resources();

} // namespace kelu::test
