// SPDX-License-Identifier: MIT
// The user's folder of an installed program. It is the user's own from its first start on.
#include "program/folders.h"

#include "platform/file_calls.h"
#include "platform/files.h"
#include "platform/places.h"
#include <array>
#include <filesystem>
#include <vector>

namespace kelu {
namespace {

namespace fs = std::filesystem;

constexpr const char* share_from_lib = "../../share/kelu"; ///< an installation, seen from its executable's folder
constexpr std::array<uint8_t, 1> first_config = {'3'};     ///< a window of 960 x 720
constexpr std::size_t largest_settings = 1u << 20;

bool make_folders(const fs::path& user, std::error_code& error)
{
    // The home's own folders are as private as the home; ours is the user's alone.
    const bool fresh = fs::create_directories(user, error);
    if (error) return false;
    if (fresh) fs::permissions(user, fs::perms::owner_all, error);
    for (const char* name : {"resource", "fonts"}) {
        fs::create_directory(user / name, error);
        if (error) return false;
    }
    return true;
}

bool settle_file(const fs::path& file, const fs::path& from)
{
    if (platform::file_exists(file.string())) return true;
    std::vector<uint8_t> bytes;
    // Without delivered settings the program's own defaults are used.
    if (!platform::read_file(from.string(), largest_settings, bytes)) return true;
    return platform::replace_file(file.string(), bytes);
}

/// The first workspace. It takes its name once it is whole, so that a start that is cut short is made good by the next.
bool settle_workspace(const Folders& folders, std::error_code& error)
{
    const fs::path workspace = fs::path(folders.user) / "WORKSPACE";
    if (fs::exists(workspace, error) && !fs::is_empty(workspace, error)) return true;
    const fs::path fresh = fs::path(folders.user) / ".WORKSPACE.kelu-new";
    fs::remove_all(fresh, error);
    fs::create_directory(fresh, error);
    if (error) return false;
    for (const auto& entry : fs::directory_iterator(fs::path(folders.art) / "defaults/WORKSPACE", error)) {
        if (!settle_file(fresh / entry.path().filename(), entry.path())) return false;
    }
    fs::rename(fresh, workspace, error);
    return !error;
}

/// The delivered font among the user's own, so that the browser shows it. A link to an installation that has gone is
/// made anew; a font of that name that the user has put there stays.
void link_system_font(const Folders& folders)
{
    std::error_code error;
    const fs::path font = fs::path(folders.user) / "fonts/system.ttf";
    const fs::path delivered = fs::path(folders.art) / "fonts/system.ttf";
    if (fs::is_symlink(font, error) && !fs::exists(font, error)) fs::remove(font, error);
    if (!fs::exists(fs::symlink_status(font, error))) fs::create_symlink(delivered, font, error);
}

} // namespace

Folders find_folders(const std::string& executable_folder)
{
    const fs::path own = executable_folder;
    std::error_code error;
    const fs::path share = (own / share_from_lib).lexically_normal();
    if (fs::is_directory(own / "resource", error) || !fs::is_directory(share / "resource", error))
        return {.user = executable_folder, .art = {}};
    return {.user = platform::user_data_folder() + "/kelu", .art = share.string()};
}

std::string complete_user_folder(const Folders& folders)
{
    if (folders.art.empty()) return {};
    const fs::path user = folders.user, defaults = fs::path(folders.art) / "defaults";
    const std::string config = (user / "config.def").string();
    std::error_code error;
    platform::forget_failure();
    const bool whole =
        make_folders(user, error) && (platform::file_exists(config) || platform::replace_file(config, first_config)) &&
        settle_file(user / "resource/user.def", defaults / "resource/user.def") && settle_workspace(folders, error);
    if (whole) link_system_font(folders);
    if (whole) return {};
    return "The folder for your work can't be made or written:\n \n" + folders.user + "\n \n" +
           (error ? error.message() : platform::failure_reason());
}

} // namespace kelu
