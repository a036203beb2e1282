// SPDX-License-Identifier: MIT
// The failure panel: black, with red sides, over whatever menu is open.
#pragma once

namespace kelu {

/// Shows the panel with the second line that belongs to `code` (1: a font file that can't be read), and waits for a
/// press and release of the left mouse button. Afterwards the slots of the open menu are empty: the caller builds its
/// screen anew.
void show_failure(int code);

} // namespace kelu
