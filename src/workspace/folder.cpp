// Names of the workspace's files, and the way into its folder.
#include "workspace/folder.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/menus.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include <array>
#include <cstdio>

namespace kelu {
namespace {

constexpr int kept_copies = 1000; // unreadable files of one name that are kept

} // namespace

std::string frame_file(int frame, const std::string& set)
{
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), ".%03d", frame);
    return set + number.data();
}

std::string set_file(const char* ending, const std::string& set) { return set + "." + ending; }

WorkspaceVisit::WorkspaceVisit(std::string leave_to)
    : before_(platform::working_directory()), leave_to_(std::move(leave_to)),
      found_program_(platform::change_directory(run_state.program_dir)),
      entered_(platform::change_directory(workspace_folder))
{}

WorkspaceVisit::~WorkspaceVisit()
{
    if (!platform::change_back(leave_to_, before_)) platform::change_directory(before_);
}

void report_unwritten(const std::string& name, int message)
{
    log_line("[ ERROR ] : Couldn't write file! Name = %s", name);
    flash_failure(message, platform::failure_reason());
}

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
