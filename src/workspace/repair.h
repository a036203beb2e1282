// SPDX-License-Identifier: MIT
// What a workspace misses, made anew: the containers of cel, thumbnails and custom tip, and frames that can't be read.
#pragma once

namespace kelu {

enum Container : int { CONTAINER_CEL, CONTAINER_NAILS, CONTAINER_TIP };

/// Makes a container anew in memory and on disk, and sets `workspace_damaged`, so that the drawing menu tells the
/// user. The working directory must be the store's.
void repair_container(int which);

/// Puts a blank frame in the place of one that is missing or can't be read, of the size that the live frame has
/// (320 x 240 when there is none), in memory and on disk, and sets `workspace_damaged`. A file that is there is kept
/// beside as "damaged.NNN". The working directory must be the store's.
void replace_damaged_frame(int frame);

/// Renumbers the frame files so that there is no gap, as when one was taken out by hand. Views, tags and delays go
/// along, and the number of the current frame; the thumbnails by `move_nails_of_gaps`, once they are loaded. But tables
/// of `table_frames` frames, as many as there are, have their numbers already. Returns the number of frames. The
/// working directory must be the store's.
int close_frame_gaps(int table_frames);
/// Lets the thumbnails follow the frames of the last `close_frame_gaps`.
void move_nails_of_gaps();

} // namespace kelu
