// SPDX-License-Identifier: MIT
// Drives for a system without drives.
#include "platform/places.h"

#include "base/log.h"
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <pwd.h>
#include <set>
#include <sstream>
#include <unistd.h>

namespace kelu::platform {
namespace {

constexpr int root_drive = 'C' - 'A';
constexpr int home_drive = 'H' - 'A';

/// Below these folders the system mounts what the user plugs in.
constexpr std::array<std::string_view, 3> mount_folders = {"/media/", "/run/media/", "/mnt/"};

/// The mount table writes blanks, tabs, newlines and backslashes as "\" and three octal digits.
std::string decode_mount(const std::string& text)
{
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 3 < text.size()) {
            decoded += static_cast<char>(std::strtol(text.substr(i + 1, 3).c_str(), nullptr, 8));
            i += 3;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

/// Volumes that the user can enter, in alphabetical order, so that letters are the same at the next start.
std::set<std::string> mounted_volumes()
{
    std::set<std::string> volumes;
    std::ifstream table("/proc/self/mounts");
    for (std::string line; std::getline(table, line);) {
        std::istringstream fields(line);
        std::string device, folder;
        fields >> device >> folder;
        folder = decode_mount(folder);
        const bool usual = std::ranges::any_of(mount_folders, [&](auto start) { return folder.starts_with(start); });
        if (usual && access(folder.c_str(), R_OK | X_OK) == 0) volumes.insert(folder);
    }
    return volumes;
}

bool holds(const std::string& root, const std::string& folder)
{
    if (!folder.starts_with(root)) return false;
    return folder.size() == root.size() || root.ends_with('/') || folder[root.size()] == '/';
}

/// A value of the list of the user's folders: in quotes, `$HOME` at its start, and a backslash before what is special.
std::string decode_user_folder(const std::string& quoted)
{
    constexpr std::string_view home = "$HOME";
    std::string value;
    for (std::size_t i = 1; i < quoted.size() && quoted[i] != '"'; ++i) {
        if (quoted[i] == '\\' && i + 1 < quoted.size()) ++i;
        value += quoted[i];
    }
    return value.starts_with(home) ? home_folder() + value.substr(home.size()) : value;
}

/// What the list says of a folder, a path from the root; empty when it says nothing.
std::string listed_folder(const std::string& name)
{
    const char* config = std::getenv("XDG_CONFIG_HOME");
    std::ifstream list((config && config[0] == '/' ? config : home_folder() + "/.config") + "/user-dirs.dirs");
    std::string folder;
    for (std::string line; std::getline(list, line);) {
        line.erase(0, line.find_first_not_of(" \t"));
        if (line.starts_with(name + "=\"")) folder = decode_user_folder(line.substr(name.size() + 1));
    }
    return folder.starts_with('/') ? folder : std::string();
}

} // namespace

std::string home_folder()
{
    if (const char* home = std::getenv("HOME"); home && home[0] == '/') return home;
    const passwd* user = getpwuid(getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

std::string user_data_folder()
{
    // A relative path is no path here, by the convention of desktops.
    if (const char* folder = std::getenv("XDG_DATA_HOME"); folder && folder[0] == '/') return folder;
    return home_folder() + "/.local/share";
}

std::string picture_folder()
{
    std::string home = home_folder();
    for (const std::string& folder : {listed_folder("XDG_PICTURES_DIR"), home + "/Pictures"}) {
        if (!folder.empty() && access((folder + "/").c_str(), R_OK | X_OK) == 0) return folder;
    }
    return home;
}

void scan_drives()
{
    places = {};
    places.drive_root[root_drive] = "/";
    places.drive_root[home_drive] = home_folder();
    std::size_t letter = root_drive;
    for (const std::string& volume : mounted_volumes()) {
        while (letter < places.drive_root.size() && !places.drive_root[letter].empty())
            ++letter;
        if (letter == places.drive_root.size()) break;
        places.drive_root[letter] = volume;
    }
    for (int drive = 0; drive < drive_count; ++drive) {
        const std::string name(1, static_cast<char>('A' + drive));
        if (drive_exists(drive)) log_line("[ INIT ] : Found Drive - %s", name);
    }
}

bool drive_exists(int drive) { return drive >= 0 && drive < drive_count && !places.drive_root[drive].empty(); }

int drive_of(const std::string& folder)
{
    int best = -1;
    std::size_t length = 0;
    for (int drive = 0; drive < drive_count; ++drive) {
        const std::string& root = places.drive_root[drive];
        if (root.size() <= length || !holds(root, folder)) continue;
        best = drive;
        length = root.size();
    }
    return best;
}

std::string system_font_folder() { return "/usr/share/fonts"; }

} // namespace kelu::platform
