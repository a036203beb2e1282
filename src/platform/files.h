// SPDX-License-Identifier: MIT
// Files and folders: case-blind names, listing, and replacement that never harms the old file.
//
// Names are UTF-8 and keep their true case on disk. State that holds upper-case names finds its files again through
// `resolve_name` and `resolve_path`; all other calls take names as they are. Main thread: the working directory
// belongs to the process. Nothing here logs; each call says by its result whether it could,
// and `failure_reason` why not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelu::platform {

/// True when the name stands for anything that the user may see: a file, a folder, a device.
bool file_exists(const std::string& name);
/// True when the file exists and can be read and written.
bool file_writable(const std::string& name);
/// Size in bytes of a regular file, -1 when it is none.
long file_size(const std::string& name);
/// Removes a file if it exists; false when it is still there.
bool remove_file(const std::string& name);
/// Renames a file, replacing a target; false when it could not.
bool rename_file(const std::string& from, const std::string& to);
/// Gives a file a second name, which isn't taken yet; where the file system has none of the kind, a copy.
bool copy_file(const std::string& from, const std::string& to);
/// The working directory, without a separator at its end (but for "/").
std::string working_directory();
/// The path of a file of the working directory that stays valid when that changes.
std::string absolute_path(const std::string& name);
/// Makes a folder; false when it could not.
bool make_folder(const std::string& name);
/// Changes the working directory; the exact name before a case-blind one. False when there is none such.
bool change_directory(const std::string& path);
/// Changes to a folder whose name was kept in upper case. Where it is `known`, a true name, but for the case, that
/// folder is meant, whatever others there are. False when there is none such.
bool change_back(const std::string& kept, const std::string& known);
/// The entry of a folder that matches the name exactly, else case-blind (of several the first in byte order); the name
/// itself when there is neither.
std::string resolve_name(const std::string& folder, const std::string& name);
/// A path with each of its parts resolved as by `resolve_name`. Both "/" and "\\" part it.
std::string resolve_path(const std::string& path);
/// True when the names are equal but for the case of ASCII letters.
bool same_name(std::string_view a, std::string_view b);
/// Upper-case form of a name, ASCII letters only.
std::string upper_case(std::string text);

/// Entry of a folder.
struct Entry {
    std::string name; ///< true name on disk
    bool is_folder = false;
    long size = 0; ///< bytes of a regular file
};
/// The folder's visible regular files and folders, links followed, in case-blind alphabetical order, folders first.
/// Names that begin with a dot are hidden. What can't be read is left out, and `last_failure` tells of it.
std::vector<Entry> list_folder(const std::string& folder);

/// The names in a folder, read at once, for who would ask for many that may not be there.
class FolderNames {
public:
    explicit FolderNames(const std::string& folder = ".");
    /// As `file_exists` at the time the names were read. A folder that can't be listed is asked now.
    bool contains(const std::string& name) const;

private:
    std::string folder_;
    bool listed_;
    std::set<std::string, std::less<>> names_;
};

/// The first `count` bytes of a regular file, fewer when it is shorter; false when it can't be read.
bool read_start(const std::string& name, std::size_t count, std::vector<uint8_t>& bytes);

/// The whole file, when it is a regular file of at most `limit` bytes; false otherwise.
bool read_file(const std::string& name, std::size_t limit, std::vector<uint8_t>& bytes);

/// Bytes that are read piece by piece, wherever they lie.
class ByteSource {
public:
    ByteSource() = default;
    virtual ~ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    long size() const { return size_; }         ///< bytes
    long position() const { return position_; } ///< bytes before the next one to be read
    /// Fills the bytes; false when the source ends before that or can't be read. `last_failure` is 0 for the first.
    virtual bool read(std::span<uint8_t> bytes) = 0;
    /// Goes to a position, at most the end; false when that is impossible.
    virtual bool seek(long position) = 0;

protected:
    long size_ = 0, position_ = 0;
};

/// A regular file. The working directory may change between the calls.
class FileSource final : public ByteSource {
public:
    explicit FileSource(const std::string& name);
    ~FileSource() override;
    /// False: there is no such file, or it can't be read.
    bool opened() const { return handle_ >= 0; }
    bool read(std::span<uint8_t> bytes) override;
    bool seek(long position) override;

private:
    int handle_ = -1;
};

/// A working directory for the time of a block, and the way back.
class DirectoryVisit {
public:
    explicit DirectoryVisit(const std::string& path);
    ~DirectoryVisit();
    DirectoryVisit(const DirectoryVisit&) = delete;
    DirectoryVisit& operator=(const DirectoryVisit&) = delete;
    /// False: the folder could not be entered, and the working directory is as before.
    bool entered() const { return entered_; }

private:
    std::string before_;
    bool entered_;
};

/// A file that is written beside under a temporary name and takes the place of the old one at `commit`, after a
/// flush to disk. Without a commit the old file stays and the temporary one goes. A link stays a link, and the new
/// file has the old one's permissions; a file that the user can't write is not replaced. The working directory may
/// change between the calls.
class FileReplacement {
public:
    explicit FileReplacement(const std::string& name);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    /// Appends bytes; after a failure all further calls fail.
    bool write(std::span<const uint8_t> bytes);
    /// Flushes, renames, flushes the folder. False: something failed, and the old file stays.
    bool commit();
    /// The same without the flushes, for one of many files of a folder that a `FolderFlush` brings to disk together.
    bool commit_unflushed();

private:
    void write_waiting();
    bool put_in_place(bool flushed);
    std::string name_, temporary_; ///< absolute paths; the temporary one is empty once there is nothing to remove
    std::vector<uint8_t> waiting_; ///< bytes that haven't gone to the system
    int handle_ = -1;
    bool good_ = false; ///< nothing has failed
};

/// Brings all that has been written to a folder since it was made to disk, at once.
class FolderFlush {
public:
    explicit FolderFlush(const std::string& folder);
    ~FolderFlush();
    FolderFlush(const FolderFlush&) = delete;
    FolderFlush& operator=(const FolderFlush&) = delete;
    /// False: some of it didn't get there.
    bool flush();

private:
    int handle_;
};

/// Writes a whole file by `FileReplacement`.
bool replace_file(const std::string& name, std::span<const uint8_t> bytes);

} // namespace kelu::platform
