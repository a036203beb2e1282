// Work goes to disk while it is done: every finished stroke within a second, everything else that belongs to the
// workspace or the user within five.
//
// A thread writes. It takes tiles out of the stroke source by itself (draw/unsaved), and what else there is in the
// order in which the main thread hands it over: tiles of a stroke in hand, whole pictures, small files, the begin of
// another frame's journal. Nothing of it is a commit: the frame's file stays as it was until the frame is left. The
// thread sleeps while nothing is painted. All functions here are the main thread's.
#pragma once

#include "base/bitmap.h"
#include <optional>

namespace kelu {

/// Starts the thread, for the frame that is current. Work that has been recovered goes to a new journal at once.
void start_running_work();
/// Writes what is left and ends the thread. `committed`: the frame's file has all of it, and the journal goes.
void stop_running_work(bool committed);

/// The live frame is that of its file now: its journal begins here, and the one before has done its work.
void begin_journal();
/// Before the pictures of frame and alpha change places: what the journal doesn't have yet is handed over.
void exchange_journal_plane();

/// To be called at every frame that is shown while the live frame stands in its place: keeps a stroke in hand, and
/// looks every few seconds for what else has changed. Tells of what could not be written.
void keep_running_work();

/// Waits until all that has been handed over is on the disk, or could not be written. Whoever writes files of the
/// workspace by himself calls it first.
void settle_running_work();

/// Work of an earlier run that was never committed.
struct RecoveredWork {
    int frame = 0;  ///< the one that was edited last
    Bitmap picture; ///< merged form
};
/// Looks for journals in the working directory, the store's. That of the frame edited last is given out; what others
/// hold goes to their frames' files. One that doesn't fit its frame is put aside.
std::optional<RecoveredWork> recover_work();

} // namespace kelu
