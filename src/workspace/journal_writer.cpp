// SPDX-License-Identifier: MIT
// Batches of records on their way to the disk.
#include "workspace/journal_writer.h"

#include "platform/file_calls.h"
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <utility>

namespace kelu {
namespace {

constexpr std::size_t spill_size = std::size_t{1} << 20; // bytes that are kept in memory at most
constexpr const char* beside = ".new";

const platform::FileCalls& calls() { return *platform::file_calls; }

/// Makes a rename outlast a power cut, where the file system can.
void flush_folder(const std::string& of)
{
    const std::string folder = std::filesystem::path(of).parent_path().string();
    const int handle = calls().open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (handle < 0) return;
    calls().flush(handle);
    calls().close(handle);
}

} // namespace

JournalWriter::Version JournalWriter::version_of(const std::string& name)
{
    struct stat status = {};
    if (stat(name.c_str(), &status) != 0) return {};
    return {status.st_ino, status.st_size, int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec};
}

void JournalWriter::begin(int frame, std::string frame_name, std::string journal_name)
{
    give_up();
    frame_ = frame;
    frame_name_ = std::move(frame_name);
    journal_name_ = std::move(journal_name);
    size_ = 0;
    anew_ = has_file_ = false;
}

void JournalWriter::drop()
{
    give_up();
    calls().remove(journal_name_.c_str()); // there may be one of before that the frame was taken back from
    has_file_ = false;
    size_ = 0;
}

void JournalWriter::give_up()
{
    close_file();
    records_.bytes().clear();
}

void JournalWriter::close_file()
{
    if (handle_ >= 0) calls().close(std::exchange(handle_, -1));
}

bool JournalWriter::write(std::span<const uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = calls().write(handle_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written == 0) errno = ENOSPC;
        if (written <= 0) return false;
        size_ += static_cast<uint64_t>(written);
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

/// Begins a journal that goes on from the frame's file as it is.
bool JournalWriter::create_beside()
{
    base_ = version_of(frame_name_);
    const std::optional<FileMark> mark = mark_of_file(frame_name_);
    if (!mark) return false;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    JournalRecords head;
    head.head(
        {frame_, static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(now).count()), *mark});
    handle_ = calls().open((journal_name_ + beside).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    beside_ = true;
    size_ = 0;
    return handle_ >= 0 && write(head.bytes());
}

bool JournalWriter::open_file()
{
    if (handle_ >= 0) return true;
    // What has been committed since has all that the old journal held.
    const bool committed = has_file_ && version_of(frame_name_) != base_;
    if (anew_ || committed || !has_file_) return create_beside();
    beside_ = false;
    if (version_of(journal_name_) != last_) {
        errno = EIO; // another program has changed it or taken it away
        return false;
    }
    handle_ = calls().open(journal_name_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC, 0);
    return handle_ >= 0;
}

bool JournalWriter::spill()
{
    if (records_.bytes().size() < spill_size) return true;
    if (!open_file() || !write(records_.bytes())) return false;
    records_.bytes().clear();
    return true;
}

bool JournalWriter::finish()
{
    records_.seal();
    if (!open_file() || !write(records_.bytes()) || calls().flush(handle_) != 0) return false;
    records_.bytes().clear();
    if (calls().close(std::exchange(handle_, -1)) != 0) return false;
    if (beside_) {
        if (calls().rename((journal_name_ + beside).c_str(), journal_name_.c_str()) != 0) return false;
        flush_folder(journal_name_);
    }
    has_file_ = true;
    anew_ = false;
    last_ = version_of(journal_name_);
    return true;
}

} // namespace kelu
