// SPDX-License-Identifier: MIT
// Changes of several files of the workspace that happen all or not at all, whatever ends the program between them.
//
// The new files are made whole under names of their own ("next.007" for "current.007"). Then a record of what is to be
// done takes its name, "next.list": from this moment the change counts as done. The files then go to their places,
// and the record goes last. A start that finds a record goes on with it; without one what was made is taken away.
// The working directory must be the store's. Main thread.
#pragma once

#include <string>
#include <vector>

namespace kelu {

class ChangeSet {
public:
    /// Brings an earlier change to its end first, or takes away what is left of one that never came to be.
    ChangeSet();
    /// Without a `commit` nothing has changed: takes away what was made.
    ~ChangeSet();
    ChangeSet(const ChangeSet&) = delete;
    ChangeSet& operator=(const ChangeSet&) = delete;

    /// The name under which the caller is to write what shall become the file `name` of the workspace. One that the
    /// user may not write makes the change impossible.
    std::string stage(const std::string& name);
    /// Lets `name` become what `source`, a file of the store, is now. False: it can't be had.
    bool stage_copy(const std::string& source, const std::string& name);
    /// Lets the file `source` of the store, which goes, take the place of `name`.
    void move(const std::string& source, const std::string& name);
    /// Lets a file go, if there is one.
    void remove(const std::string& name);
    /// Does it all. False: nothing has changed. `platform::failure_reason` says why.
    bool commit();

private:
    /// What was painted on a frame goes with the file that it was painted on.
    void remove_journal(const std::string& name);
    std::string record_; ///< lines "take FROM TO" and "remove NAME"
    bool ready_ = false; ///< no earlier change is in the way
    int refused_ = 0;    ///< error number of a file that may not be replaced
    bool committed_ = false;
};

/// Brings a change to its end that has been decided, and takes away what was made for one that hasn't. False: the
/// files can't be moved to their places now, so that no frame may be read or written.
bool finish_changes();

/// True while a change that has been decided waits for the next try.
bool change_waits();

/// As `finish_changes`, but free when no change has stuck in this run of the program.
bool settle_changes();

} // namespace kelu
