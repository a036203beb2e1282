// SPDX-License-Identifier: MIT
// Work goes to disk while it is done: every finished stroke within a second, everything else that belongs to the
// workspace or the user within five.
//
// A thread writes. It takes tiles out of the stroke source by itself (draw/unsaved), and what else there is in the
// order in which the main thread hands it over: tiles of a stroke being drawn, whole pictures, small files, the begin
// of another frame's journal. Nothing of it is a commit: the frame's file stays as it was until the frame is left. The
// thread sleeps while nothing is painted. All functions here are the main thread's.
#pragma once

#include "base/bitmap.h"
#include <optional>
#include <string>

namespace kelu {

/// A frame that was left, on the way to its file.
struct LeftFrame {
    int frame = 0;
    Bitmap color, alpha; ///< by role
};

/// Starts the thread, for the frame that is current. Work that has been recovered goes to a new journal at once.
void start_running_work();
/// Writes what is left and ends the thread. `committed`: the frame's file has all of it, and the journal goes.
void stop_running_work(bool committed);

/// The live frame is that of its file now: its journal begins here, and the one before has done its work.
void begin_journal();
/// True while the thread runs; without it a frame that is left is written at once.
bool running_work_started();
/// The live frame makes way for another one, and its file is written in the background. Until then the journal
/// covers it.
void hand_over_left_frame(LeftFrame left);
/// Lets the thread write the sheet of thumbnails.
void hand_over_nails();
/// Waits for the file of a frame, named as in the store, where it is on its way.
void wait_for_frame_file(const std::string& name);
/// The picture of a frame whose file couldn't be written, in merged form; empty when there is none such. It belongs to
/// the caller then.
Bitmap take_back_left_frame(int frame);

/// Before the pictures of frame and alpha change places: what the journal doesn't have yet is handed over.
void exchange_journal_plane();

/// To be called at every frame that is shown while the live frame is in its place: keeps a stroke that is being drawn,
/// and looks every few seconds for what else has changed. Reports what could not be written.
void keep_running_work();

/// Waits until all that has been handed over is on the disk, or could not be written. Whoever writes files of the
/// workspace without it calls it first. False: a frame that was left is in no file yet.
bool settle_running_work();

/// Work of an earlier run that was never committed.
struct RecoveredWork {
    int frame = 0;  ///< the one that was edited last
    Bitmap picture; ///< merged form
};
/// Looks for journals in the working directory, the store's. That of the frame edited last is given out; what others
/// hold goes to their frames' files. One that doesn't fit its frame is put aside.
std::optional<RecoveredWork> recover_work();

} // namespace kelu
