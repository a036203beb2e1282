// SPDX-License-Identifier: MIT
// The restore command: back to the frame as it was fetched.
#pragma once

namespace kelu {

/// Before a picture is loaded over the frame: notes the view, which a restore to another size brings back.
void note_view_before_load();

/// Puts the restoration copy back as the live frame, at its size, with its alpha. One undo step. When memory is short
/// the frame stays as it is.
void restore_frame();

} // namespace kelu
