// Playback of the animation.
#pragma once

namespace kelu {

/// Runs the playback screen. Its frames show in the place of the frame, which comes back unchanged. OKAY stops the
/// animation; left by its key the screen lets it run on. Fewer than two tagged frames: a message and nothing else.
void playback_menu();

} // namespace kelu
