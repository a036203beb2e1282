// SPDX-License-Identifier: MIT
// The restore command: back to the frame as it was fetched.
#pragma once

namespace kelu {

/// Puts the restoration copy back as the live frame, at its size, with its alpha. One undo step. When memory is short
/// the frame stays as it is.
void restore_frame();

} // namespace kelu
