// SPDX-License-Identifier: MIT
// Playback of the animation.
#pragma once

namespace kelu {

/// Runs the playback screen. Its frames show in the place of the frame, which comes back unchanged, and with its view
/// when frames of other sizes have shown. OKAY stops the animation; left by its key the screen lets it run on. Fewer
/// than two tagged frames: a message and nothing else.
void playback_menu();

} // namespace kelu
