// SPDX-License-Identifier: MIT
// The screen that shifts hue, lightness and saturation of the current frame, with a live preview on the frame itself.
#pragma once

namespace kelu {

/// Runs the screen. OKAY tints the whole frame and keeps the sliders, CANCEL brings the frame back; no snapshot is
/// taken. The program's exit counts as CANCEL. The drawing menu comes back in the end.
void tint_menu();

} // namespace kelu
