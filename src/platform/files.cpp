// SPDX-License-Identifier: MIT
// Single files: tests, bounded reading, and replacement by writing beside and renaming.
#include "platform/files.h"

#include "base/memory.h"
#include "platform/file_calls.h"
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kelu::platform {
namespace {

constexpr std::size_t write_size = 1U << 16; // bytes that go to the system at once

/// An open file, closed at the end of its block.
class Handle {
public:
    explicit Handle(int handle) : handle_(handle) {}
    ~Handle()
    {
        if (handle_ >= 0) file_calls->close(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    operator int() const { return handle_; }

private:
    int handle_;
};

/// Writes all of the bytes, however few the system takes at once.
bool write_all(int handle, std::span<const uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = file_calls->write(handle, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written == 0) errno = ENOSPC;
        if (written <= 0) return note_failure();
        bytes = bytes.subspan(written);
    }
    return true;
}

/// Reads until the bytes are full or the file ends; `bytes` becomes as long as what was there.
bool read_all(int handle, std::vector<uint8_t>& bytes)
{
    std::size_t at = 0;
    while (at < bytes.size()) {
        const ssize_t count = file_calls->read(handle, bytes.data() + at, bytes.size() - at);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return note_failure();
        if (count == 0) break;
        at += count;
    }
    bytes.resize(at);
    return true;
}

/// Opens a file for reading, without waiting, so that a pipe of the same name can't hang the program.
int open_to_read(const std::string& name)
{
    return file_calls->open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC, 0);
}

/// One try to read a whole file.
bool read_once(const std::string& name, std::size_t limit, std::vector<uint8_t>& bytes)
{
    bytes.clear();
    const Handle handle(open_to_read(name));
    struct stat status = {};
    if (handle < 0 || fstat(handle, &status) != 0) return note_failure();
    if (!S_ISREG(status.st_mode) || status.st_size < 0 || static_cast<std::size_t>(status.st_size) > limit) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EFBIG;
        return note_failure();
    }
    bytes.reserve(status.st_size);
    prefer_large_pages(bytes.data(), bytes.capacity());
    bytes.resize(status.st_size);
    return read_all(handle, bytes);
}

/// The absolute path of a file that may not exist yet, with a link at its end followed.
std::string real_target(const std::string& name)
{
    std::error_code error;
    if (std::filesystem::is_symlink(name, error)) {
        const std::filesystem::path target = std::filesystem::canonical(name, error);
        if (!error) return target.string();
    }
    return std::filesystem::absolute(name, error).string();
}

/// The name beside a file under which its successor is written: hidden, and the same each time, so that what a crash
/// left goes with the next try. Cut so that a long name keeps below the 255 bytes of the system.
std::string name_beside(const std::filesystem::path& target)
{
    const std::string leaf = target.filename().string().substr(0, 200);
    return (target.parent_path() / ("." + leaf + ".kelu-new")).string();
}

/// Makes a rename outlast a power cut. Some file systems can't flush folders: the rename has happened all the same.
void flush_folder_of(const std::string& name)
{
    const std::string folder = std::filesystem::path(name).parent_path().string();
    const Handle handle(file_calls->open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0));
    if (handle >= 0) file_calls->flush(handle);
}

} // namespace

bool file_exists(const std::string& name) { return access(name.c_str(), F_OK) == 0; }

std::string absolute_path(const std::string& name)
{
    return name.starts_with('/') ? name : working_directory() + "/" + name;
}

bool make_folder(const std::string& name) { return file_calls->make_folder(name.c_str(), 0777) == 0 || note_failure(); }

bool file_writable(const std::string& name) { return access(name.c_str(), R_OK | W_OK) == 0; }

long file_size(const std::string& name)
{
    struct stat status = {};
    return stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

bool remove_file(const std::string& name)
{
    return file_calls->remove(name.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR || note_failure();
}

bool rename_file(const std::string& from, const std::string& to)
{
    return file_calls->rename(from.c_str(), to.c_str()) == 0 || note_failure();
}

bool copy_file(const std::string& from, const std::string& to)
{
    if (file_calls->link(from.c_str(), to.c_str()) == 0) return true;
    if (errno == ENOENT || errno == EIO || errno == ENOSPC) return note_failure();
    std::vector<uint8_t> bytes; // a file system without second names
    return read_file(from, std::numeric_limits<uint32_t>::max(), bytes) && replace_file(to, bytes);
}

bool read_start(const std::string& name, std::size_t count, std::vector<uint8_t>& bytes)
{
    const Handle handle(open_to_read(name));
    struct stat status = {};
    if (handle < 0 || fstat(handle, &status) != 0) return note_failure();
    if (!S_ISREG(status.st_mode)) {
        errno = EISDIR;
        return note_failure();
    }
    bytes.resize(count);
    return read_all(handle, bytes);
}

bool read_file(const std::string& name, std::size_t limit, std::vector<uint8_t>& bytes)
{
    if (read_once(name, limit, bytes)) return true;
    // One that is there, allowed and of a size that will do has met a passing error: a second try shows it.
    const int error = last_failure();
    for (const int lasting : {ENOENT, ENOTDIR, EACCES, EISDIR, EFBIG, ENAMETOOLONG, ELOOP, ENXIO})
        if (error == lasting) return false;
    return read_once(name, limit, bytes);
}

FileSource::FileSource(const std::string& name) : handle_(open_to_read(name))
{
    struct stat status = {};
    if (handle_ < 0 || fstat(handle_, &status) != 0) {
        note_failure();
    } else if (!S_ISREG(status.st_mode)) {
        errno = EISDIR;
        note_failure();
        file_calls->close(std::exchange(handle_, -1));
    }
    size_ = status.st_size;
}

FileSource::~FileSource()
{
    if (handle_ >= 0) file_calls->close(handle_);
}

bool FileSource::read(std::span<uint8_t> bytes)
{
    while (handle_ >= 0 && !bytes.empty()) {
        const ssize_t count = file_calls->read(handle_, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return note_failure();
        if (count == 0) break;
        position_ += count;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return bytes.empty();
}

bool FileSource::seek(long position)
{
    if (position < 0 || position > size_ || lseek(handle_, position, SEEK_SET) < 0) return false;
    position_ = position;
    return true;
}

FileReplacement::FileReplacement(const std::string& name) : name_(real_target(name))
{
    struct stat old = {};
    const bool replaces = stat(name_.c_str(), &old) == 0;
    if (replaces && (!S_ISREG(old.st_mode) || access(name_.c_str(), W_OK) != 0)) {
        if (!S_ISREG(old.st_mode)) errno = EISDIR;
        note_failure();
        return;
    }
    const std::string beside = name_beside(name_);
    file_calls->remove(beside.c_str());
    handle_ = file_calls->open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    good_ = handle_ >= 0 || note_failure();
    if (!good_) return;
    temporary_ = beside;
    if (replaces) fchmod(handle_, old.st_mode & 0777);
}

FileReplacement::~FileReplacement()
{
    if (handle_ >= 0) file_calls->close(handle_);
    if (!temporary_.empty()) file_calls->remove(temporary_.c_str());
}

bool FileReplacement::write(std::span<const uint8_t> bytes)
{
    if (good_ && waiting_.size() + bytes.size() > write_size) write_waiting();
    if (good_ && bytes.size() >= write_size)
        good_ = write_all(handle_, bytes);
    else if (good_)
        waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
    return good_;
}

void FileReplacement::write_waiting()
{
    good_ = good_ && write_all(handle_, waiting_);
    waiting_.clear();
}

bool FileReplacement::put_in_place(bool flushed)
{
    write_waiting();
    if (handle_ < 0) return false;
    if (flushed && good_ && file_calls->flush(handle_) != 0) good_ = note_failure();
    if (file_calls->close(std::exchange(handle_, -1)) != 0) good_ = good_ && note_failure();
    if (!good_ || !rename_file(temporary_, name_)) return false;
    temporary_.clear();
    if (flushed) flush_folder_of(name_);
    return true;
}

bool FileReplacement::commit() { return put_in_place(true); }

bool FileReplacement::commit_unflushed() { return put_in_place(false); }

FolderFlush::FolderFlush(const std::string& folder)
    : handle_(file_calls->open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0))
{
    if (handle_ < 0) note_failure();
}

FolderFlush::~FolderFlush()
{
    if (handle_ >= 0) file_calls->close(handle_);
}

bool FolderFlush::flush() { return handle_ >= 0 && (file_calls->flush_all(handle_) == 0 || note_failure()); }

bool replace_file(const std::string& name, std::span<const uint8_t> bytes)
{
    FileReplacement replacement(name);
    return replacement.write(bytes) && replacement.commit();
}

} // namespace kelu::platform
