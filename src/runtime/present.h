// SPDX-License-Identifier: MIT
// The presenter: shows the composed picture and sleeps as the frame limiter asks.
#pragma once

namespace kelu {

/// Shows the back buffer, composed anew when `fresh`, and sleeps. Called by run_frame alone.
void present_back_buffer(bool fresh);

} // namespace kelu
