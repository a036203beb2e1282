// SPDX-License-Identifier: MIT
// The cel operations as commands of columns and keys.
#pragma once

namespace kelu {

void get_cel();
void clip_cel();
void paste_cel();
void paste_cel_below();
/// Asks, then turns the cel into one colour.
void convert_cel();
/// Runs an operation on a floating cel: the drawing menu is frozen behind, and stays hidden when it was.
void run_cel_by_key(void (*operation)());
/// Paste and below by key.
void paste_cel_by_key();
void paste_cel_below_by_key();

} // namespace kelu
