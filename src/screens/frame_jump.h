// SPDX-License-Identifier: MIT
// Frame jump: the thumbnails round the current frame while a key is held.
#pragma once

namespace kelu {

/// Runs while the key is held, and goes to the frame that was last under the pointer. A tap goes nowhere. A click on a
/// thumbnail and the wheel move on to other frames.
void frame_jump();

} // namespace kelu
