// The presenter: waits as the frame limiter asks, then shows the composed picture.
#pragma once

namespace kelu {

/// Shows the back buffer. Called by run_frame alone.
void present_back_buffer();

} // namespace kelu
