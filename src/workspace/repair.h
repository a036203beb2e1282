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

/// Renumbers the frame files so that there is no gap: an operation that a crash cut short leaves one. Returns the
/// number of frames. The working directory must be the store's.
int close_frame_gaps();

} // namespace kelu
