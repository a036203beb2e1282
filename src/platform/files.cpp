// Single files: tests, bounded reading, and replacement by writing beside and renaming.
#include "platform/files.h"

#include "base/memory.h"

#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kelu::platform {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

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
    const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return;
    fsync(handle);
    close(handle);
}

} // namespace

bool file_exists(const std::string& name) { return access(name.c_str(), F_OK) == 0; }

bool file_writable(const std::string& name) { return access(name.c_str(), R_OK | W_OK) == 0; }

long file_size(const std::string& name)
{
    struct stat status = {};
    return stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

bool remove_file(const std::string& name)
{
    unlink(name.c_str());
    return !file_exists(name);
}

bool rename_file(const std::string& from, const std::string& to) { return rename(from.c_str(), to.c_str()) == 0; }

bool read_file(const std::string& name, std::size_t limit, std::vector<uint8_t>& bytes)
{
    bytes.clear();
    // Without waiting, so that a pipe of the same name can't hang the program; it is no regular file and is refused.
    const int handle = open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0) return false;
    const File file(fdopen(handle, "rb"));
    struct stat status = {};
    if (!file || fstat(handle, &status) != 0 || !S_ISREG(status.st_mode)) return false;
    if (status.st_size < 0 || static_cast<std::size_t>(status.st_size) > limit) return false;
    bytes.reserve(static_cast<std::size_t>(status.st_size));
    prefer_large_pages(bytes.data(), bytes.capacity());
    bytes.resize(static_cast<std::size_t>(status.st_size));
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    return std::ferror(file.get()) == 0;
}

FileReplacement::FileReplacement(const std::string& name) : name_(real_target(name))
{
    struct stat old = {};
    const bool replaces = stat(name_.c_str(), &old) == 0;
    if (replaces && (!S_ISREG(old.st_mode) || access(name_.c_str(), W_OK) != 0)) return;
    const std::string beside = name_beside(name_);
    unlink(beside.c_str());
    const int handle = open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (handle < 0) return;
    temporary_ = beside;
    if (replaces) fchmod(handle, old.st_mode & 0777);
    file_ = fdopen(handle, "wb");
}

FileReplacement::~FileReplacement()
{
    if (file_) std::fclose(file_);
    if (!temporary_.empty()) unlink(temporary_.c_str());
}

bool FileReplacement::write(std::span<const uint8_t> bytes)
{
    return file_ && std::ferror(file_) == 0 && std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size();
}

bool FileReplacement::commit()
{
    if (!file_) return false;
    const bool written = std::ferror(file_) == 0 && std::fflush(file_) == 0 && fsync(fileno(file_)) == 0;
    const bool closed = std::fclose(std::exchange(file_, nullptr)) == 0;
    if (!written || !closed || rename(temporary_.c_str(), name_.c_str()) != 0) return false;
    temporary_.clear();
    flush_folder_of(name_);
    return true;
}

bool replace_file(const std::string& name, std::span<const uint8_t> bytes)
{
    FileReplacement replacement(name);
    return replacement.write(bytes) && replacement.commit();
}

} // namespace kelu::platform
