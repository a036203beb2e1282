// SPDX-License-Identifier: MIT
// The store's folder and the names of the files in it.
//
// WORKSPACE lies below the program's folder; one that is missing is made. Whoever works on the store enters it for the
// time of a block and uses bare names.
#pragma once

#include "platform/files.h"
#include <string>

namespace kelu {

constexpr const char* workspace_folder = "WORKSPACE";

/// The sets of files: the workspace, the files that wait to become its own in one step, a second workspace that takes
/// over when the first has no state, and files that could not be read. A program of before put frames aside as backup.
namespace file_set {
constexpr const char* current = "current";
constexpr const char* next = "next";
constexpr const char* backup = "backup";
constexpr const char* alternate = "alternate";
constexpr const char* damaged = "damaged";
constexpr const char* journal = "journal"; ///< what has been painted since the file of the frame was written
} // namespace file_set

/// Name of a frame's file, "current.007" for frame 7; or of the same frame in another set.
std::string frame_file(int frame, const std::string& set = file_set::current);
/// The frames whose files are among the names.
int count_frame_files(const platform::FolderNames& names);
/// Name of a file of a set by its ending: "spa", "cel", "tip" or "nal".
std::string set_file(const char* ending, const std::string& set = file_set::current);

/// Absolute name of a file in the store's folder.
std::string store_path(const std::string& name);

/// The store's folder as the working directory for the time of a block. At its end the process goes to the folder that
/// the caller named, or back to where it was when there is no such folder.
class WorkspaceVisit {
public:
    explicit WorkspaceVisit(std::string leave_to);
    ~WorkspaceVisit();
    WorkspaceVisit(const WorkspaceVisit&) = delete;
    WorkspaceVisit& operator=(const WorkspaceVisit&) = delete;
    /// False: the program's folder is gone, and the working directory is as before.
    bool found_program() const { return found_program_; }
    /// False: the store's folder could not be entered, nor made.
    bool entered() const { return entered_; }

private:
    std::string before_, leave_to_;
    bool found_program_, entered_;
};

/// Report a file of the working directory that could not be written or read, with the reason of the last call that has
/// failed; a line in the log too. `text` is the row of the strings that says what it is.
void report_unwritten(const std::string& name, int text);
void report_unread(const std::string& name, int text);

/// The name, or the first of "name.1", "name.2" ... that is free; empty when a thousand are taken.
std::string free_name(const std::string& name);

/// Notes a file of the store that the system wouldn't read and that lies where it is.
void protect_file(const std::string& name);
/// Before a file is written: true when none that is protected lies there, or when it could be put aside now. A false
/// one is noted for `last_failure`.
bool make_way(const std::string& name);
/// True while a file is protected.
bool file_protected(const std::string& name);
/// The files of the store are others now: none is protected.
void forget_protected_files();

/// Puts a file that could not be read aside under a free name made from `set_name`, so that nothing overwrites it.
/// Returns that name; empty when the file could not be moved.
std::string keep_unreadable(const std::string& name, const std::string& set_name);

} // namespace kelu
