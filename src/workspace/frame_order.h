// SPDX-License-Identifier: MIT
// Adding frames to a workspace and taking them out.
#pragma once

#include "base/bitmap.h"

namespace kelu {

enum InsertedFrame : int { INSERT_CLONES = 0, INSERT_BLANKS = 1 };

/// Opens `count` new frames behind frame `start`: copies of the current frame, or black frames of 320 x 240. The
/// current frame keeps its number. A full workspace is reported to the user, a range outside the table to the log. The
/// process ends up in the program's folder. The caller writes the state.
void insert_frames(int start, int count, int blank);

/// Opens a new frame behind the last one, with a picture in merged form; the current frame stays. False, with a word to
/// the user, when the workspace is full or the frame could not be written. The caller writes the state.
bool append_frame(const Bitmap& merged);

/// Takes `count` frames out, from `start` on, and makes the frame that follows, or the last one, current. The only
/// frame stays, which is reported to the user; a range outside the workspace to the log. The process ends up in the
/// program's folder.
void delete_frames(int start, int count);

} // namespace kelu
