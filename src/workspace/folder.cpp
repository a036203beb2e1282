// SPDX-License-Identifier: MIT
// Names of the workspace's files, and the way into its folder.
#include "workspace/folder.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/strings.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/failure_reports.h"
#include "runtime/view.h"
#include <array>
#include <cstdio>
#include <set>

namespace kelu {
namespace {

constexpr int kept_copies = 1000; // unreadable files of one name that are kept

/// Files of the store that could not be read and not be put aside. Owner: this file. Main thread.
std::set<std::string> protected_files;

bool enter_store(bool may_make)
{
    if (platform::change_directory(workspace_folder)) return true;
    if (!may_make || platform::file_exists(workspace_folder) || !platform::make_folder(workspace_folder)) return false;
    log_line("[ INFO ] : The folder of the workspace was missing and has been made");
    return platform::change_directory(workspace_folder);
}

void report(const std::string& name, int text)
{
    report_failure(ui_strings[text], platform::absolute_path(name), platform::last_failure());
}

} // namespace

std::string frame_file(int frame, const std::string& set)
{
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), ".%03d", frame);
    return set + number.data();
}

std::string set_file(const char* ending, const std::string& set) { return set + "." + ending; }

int count_frame_files(const platform::FolderNames& names)
{
    int count = 0;
    for (int frame = 0; frame < max_frames; ++frame)
        count += names.contains(frame_file(frame));
    return count;
}

std::string store_path(const std::string& name) { return run_state.program_dir + '/' + workspace_folder + '/' + name; }

WorkspaceVisit::WorkspaceVisit(std::string leave_to)
    : before_(platform::working_directory()), leave_to_(std::move(leave_to)),
      found_program_(platform::change_directory(run_state.program_dir)), entered_(enter_store(found_program_))
{}

WorkspaceVisit::~WorkspaceVisit()
{
    if (!platform::change_back(leave_to_, before_)) platform::change_directory(before_);
}

void report_unwritten(const std::string& name, int text)
{
    log_line("[ ERROR ] : Couldn't write file! Name = %s", name);
    report(name, text);
}

void report_unread(const std::string& name, int text)
{
    log_line("[ ERROR ] : Couldn't read file! Name = %s", name);
    report(name, text);
}

void protect_file(const std::string& name) { protected_files.insert(name); }

bool file_protected(const std::string& name) { return protected_files.contains(name); }

bool make_way(const std::string& name)
{
    if (!file_protected(name)) return true;
    const std::string aside = file_set::damaged + name.substr(name.find('.'));
    if (platform::file_exists(name) && keep_unreadable(name, aside).empty()) return false;
    protected_files.erase(name);
    return true;
}

void forget_protected_files() { protected_files.clear(); }

std::string free_name(const std::string& name)
{
    std::string candidate = name;
    for (int copy = 1; platform::file_exists(candidate); ++copy) {
        if (copy == kept_copies) return {};
        candidate = name + "." + std::to_string(copy);
    }
    return candidate;
}

std::string keep_unreadable(const std::string& name, const std::string& set_name)
{
    std::string kept = free_name(set_name);
    if (kept.empty() || !platform::rename_file(name, kept)) return {};
    log_line("[ WARNING ] : Unreadable file %s kept as %s", name, kept);
    return kept;
}

} // namespace kelu
