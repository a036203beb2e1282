// SPDX-License-Identifier: MIT
// Folders and names: the working directory, case-blind lookup, listing.
#include "platform/files.h"

#include "platform/file_calls.h"
#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace kelu::platform {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool before_case_blind(std::string_view a, std::string_view b)
{
    return std::ranges::lexicographical_compare(a, b, {}, upper, upper);
}

/// Folders first, then by name; names that differ only in case are in byte order, so that the order is the same
/// wherever the folder lies.
bool listed_before(const Entry& a, const Entry& b)
{
    if (a.is_folder != b.is_folder) return a.is_folder;
    if (before_case_blind(a.name, b.name)) return true;
    return !before_case_blind(b.name, a.name) && a.name < b.name;
}

/// The next entry; null behind the last one, and when the system can't go on, which is noted.
const dirent* next_entry(DIR* folder)
{
    errno = 0;
    const dirent* entry = readdir(folder);
    if (!entry && errno != 0) note_failure();
    return entry;
}

} // namespace

bool same_name(std::string_view a, std::string_view b) { return std::ranges::equal(a, b, {}, upper, upper); }

std::string upper_case(std::string text)
{
    std::ranges::transform(text, text.begin(), upper);
    return text;
}

std::string working_directory()
{
    std::error_code error;
    return std::filesystem::current_path(error).string();
}

std::string resolve_name(const std::string& folder, const std::string& name)
{
    if (name.empty() || file_exists(folder + "/" + name)) return name;
    const Folder open(opendir(folder.c_str()));
    std::string found;
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        const std::string_view candidate = entry->d_name;
        if (same_name(candidate, name) && (found.empty() || candidate < found)) found = candidate;
    }
    return found.empty() ? name : found;
}

std::string resolve_path(const std::string& path)
{
    if (file_exists(path)) return path;
    std::string resolved;
    for (std::size_t at = 0; at <= path.size();) {
        const std::size_t end = std::min(path.find_first_of("/\\", at), path.size());
        const std::string folder = resolved.empty() ? (at == 0 ? "." : "/") : resolved;
        if (at > 0) resolved += '/';
        resolved += resolve_name(folder, path.substr(at, end - at));
        at = end + 1;
    }
    return resolved;
}

bool change_directory(const std::string& path) { return chdir(resolve_path(path).c_str()) == 0; }

bool change_back(const std::string& kept, const std::string& known)
{
    return change_directory(same_name(kept, known) ? known : kept);
}

std::vector<Entry> list_folder(const std::string& folder)
{
    std::vector<Entry> entries;
    const Folder open(opendir(folder.c_str()));
    if (!open) note_failure();
    while (const dirent* entry = open ? next_entry(open.get()) : nullptr) {
        if (entry->d_name[0] == '.') continue;
        // Links show what they point to; a dangling one can't be opened and is left out.
        struct stat status = {};
        if (fstatat(dirfd(open.get()), entry->d_name, &status, 0) != 0) continue;
        if (!S_ISDIR(status.st_mode) && !S_ISREG(status.st_mode)) continue;
        entries.push_back({entry->d_name, S_ISDIR(status.st_mode), S_ISREG(status.st_mode) ? status.st_size : 0});
    }
    std::ranges::sort(entries, listed_before);
    return entries;
}

FolderNames::FolderNames(const std::string& folder) : folder_(folder), listed_(false)
{
    const Folder open(opendir(folder.c_str()));
    listed_ = static_cast<bool>(open);
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        const bool may_dangle = entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN;
        if (!may_dangle || file_exists(folder + "/" + entry->d_name)) names_.emplace(entry->d_name);
    }
}

bool FolderNames::contains(const std::string& name) const
{
    return listed_ ? names_.contains(name) : file_exists(folder_ + "/" + name);
}

DirectoryVisit::DirectoryVisit(const std::string& path) : before_(working_directory()), entered_(change_directory(path))
{}

DirectoryVisit::~DirectoryVisit()
{
    if (entered_) change_directory(before_);
}

} // namespace kelu::platform
