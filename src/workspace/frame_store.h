// SPDX-License-Identifier: MIT
// The frames of a workspace: one in memory, all others on disk as `current.NNN`.
//
// The files 0 to frame_count - 1 exist without gaps, and their numbering is the order of the frames. The file of the
// current frame is stale until the frame is committed: at a swap, and at the end of the program. Main thread.
#pragma once

#include "base/bitmap.h"
#include "imagefile/formats.h"
#include <string>

namespace kelu {

constexpr int default_frame_w = 320; ///< size of a blank frame in pixels, whatever the others have
constexpr int default_frame_h = 240;
constexpr int least_frame_side = 2; ///< pixels

/// Where `load_frame_file` puts what it reads.
enum LoadPurpose : int {
    LOAD_ONION = -2,  ///< a stored frame into the onion skin
    LOAD_STORED = -1, ///< a stored frame into the live bitmaps
    LOAD_PICTURE = 0  ///< a picture file of another program into the live bitmaps
};

/// Commits `old_slot` and makes `new_slot` the current frame. With equal slots nothing is committed and the edits of
/// the live frame are gone. A mode that isn't 0 loads `new_slot` as the onion skin and changes nothing else. A frame
/// that is damaged is replaced by a blank one. Returns false when nothing was fetched: the slot is out of range, the
/// system wouldn't read the new frame, or the old one could not be written; the old one then stays in memory. While
/// running work is kept the old one is written in the background, and what can't be written is tried again.
bool fetch_frame(int old_slot, int new_slot, int mode);

/// Reads a file of the working directory in one of the ways of LoadPurpose. The undo queues, coverage and backdrop
/// follow a new frame. The restoration copy follows a stored one; for a picture file, of the given `format`, it and the
/// frame's own file take what the user had painted till then, so that a restore brings it back. Returns false, and
/// leaves the live bitmaps as they were, when the file is missing or can't be read, or what was painted not be kept.
bool load_frame_file(const std::string& name, int how, int format = FORMAT_NONE);

/// Makes a picture in merged form the live frame, as `load_frame_file` does for a file that it has read.
bool adopt_picture(Bitmap merged, bool becomes_restoration);

/// Writes the live frame in merged form to `current.NNN` of the working directory. A failure is reported to the user
/// and returns false; the old file is then as it was.
bool write_frame(int frame);

/// Writes the live frame in merged form to a file of the working directory. Reports no failure.
bool write_live_frame(const std::string& name);
/// To be called once the live frame's file has it: its journal begins anew.
void note_commit();

/// The picture of a frame's file of the working directory in merged form; empty when it can't be read.
Bitmap read_stored_frame(const std::string& name);

/// After a `read_stored_frame` that came out empty: true when the file is there and the system wouldn't read it, which
/// is reported to the user and is no damage. False: what it holds is no frame, or there is none.
bool frame_out_of_reach(int frame);

/// Notes the view as the one that a frame was left with, and takes it from there.
void keep_view(int frame);
void take_view(int frame);

/// Makes a picture in merged form, that of the file, the current frame; a blank one where it is empty.
void show_stored_frame(int frame, Bitmap merged);

/// How many of the names current.000 to current.099 exist in the store's folder.
int count_workspace_frames();

/// Loads the frame before the current one, the last one for frame 0, as the onion skin unless one is loaded, and shows
/// it. Returns false when there are fewer than two frames.
bool show_onion_skin();
/// Goes in or out of alpha editing. An onion skin that shows stays on, with the neighbouring frame in its new role;
/// undo queues and coverage stay as they are.
void switch_alpha_mode();
/// Switches the onion skin off and destroys its picture.
void drop_onion_skin();

} // namespace kelu
