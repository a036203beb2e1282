// SPDX-License-Identifier: MIT
// The favourites menu: a palette of 256 colours beside the editor of the brush colour.
#pragma once

namespace kelu {

/// Runs the menu over the drawing menu and leaves that built. Changes the brush colour and the palette.
void favorites_menu();

} // namespace kelu
