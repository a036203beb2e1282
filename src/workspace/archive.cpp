// SPDX-License-Identifier: MIT
// Packing a workspace into one file, and taking it out again.
#include "workspace/archive.h"

#include "base/log.h"
#include "base/reader.h"
#include "base/run_state.h"
#include "gui/menus.h"
#include "gui/strings.h"
#include "gui/tooltips.h"
#include "imagefile/bmp.h"
#include "imagefile/tga.h"
#include "platform/file_calls.h"
#include "runtime/browser_state.h"
#include "runtime/failure_reports.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "workspace/archive_layout.h"
#include "workspace/archive_progress.h"
#include "workspace/change_set.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_store.h"
#include "workspace/state.h"
#include "workspace/timers_lock.h"
#include <algorithm>
#include <limits>
#include <vector>

namespace kelu {

namespace {

constexpr std::size_t buffer_size = std::size_t{1} << 18;
constexpr std::size_t longest_text = 255; // what a length byte can tell
constexpr std::size_t longest_directory = 255;

/// What keeps an archive from being loaded, for the user; null when nothing does.
using Reason = const char*;

/// Writes the next block of the archive beside the file that it is to become.
bool stage_next(platform::FileSource& archive, ChangeSet& changes, const std::string& name, std::span<uint8_t> buffer)
{
    const uint32_t length = next_block_length(archive);
    return extract_block(archive, changes.stage(name), buffer, length) == 0;
}

/// Stages all files of the archive, each of which must hold what its name says.
Reason stage_all(platform::FileSource& archive, const ArchiveHead& head, ChangeSet& changes, ArchiveProgress& progress)
{
    std::vector<uint8_t> buffer(buffer_size);
    for (int frame = 0; frame < head.frames; ++frame) {
        if (!stage_next(archive, changes, frame_file(frame), buffer)) return platform::failure_reason();
        if (!tga_readable(frame_file(frame, file_set::next), least_frame_side)) return "A frame in it is damaged!";
        progress.step();
    }
    for (const char* ending : archive_containers) {
        if (!stage_next(archive, changes, set_file(ending), buffer)) return platform::failure_reason();
        const std::string staged = set_file(ending, file_set::next);
        const bool is_state = std::string_view(ending) == "spa";
        if (is_state ? platform::file_size(staged) <= 0 : !read_bmp(staged)) return "A picture in it is damaged!";
    }
    return nullptr;
}

/// Frames of the old workspace don't survive: neither under the backup names of an older program nor beyond the new
/// ones.
void remove_old_frames(ChangeSet& changes, int new_count)
{
    for (int frame = 0; frame < max_frames; ++frame)
        changes.remove(frame_file(frame, file_set::backup));
    for (int frame = new_count; frame < max_frames; ++frame)
        changes.remove(frame_file(frame));
}

/// Puts the files of the archive in the place of the workspace's; null, or why nothing has changed.
Reason take_in(platform::FileSource& archive, const ArchiveHead& head, ShowProgress show_progress)
{
    ArchiveProgress progress(TEXT_LOADING_WORKSPACE, head.frames, show_progress);
    ChangeSet changes;
    platform::FolderFlush files("."); // before they are written, so that it learns of each that doesn't get to disk
    const Reason refused = stage_all(archive, head, changes, progress);
    progress.finish();
    if (refused) return refused;
    if (!files.flush()) return platform::failure_reason();
    remove_old_frames(changes, head.frames);
    return changes.commit() ? nullptr : platform::failure_reason();
}

bool write_head(platform::FileReplacement& archive)
{
    Bytes bytes;
    ByteWriter out(bytes);
    out.text(archive_magic);
    for (const std::string* text : {&store.workspace_title, &store.workspace_notes}) {
        const std::string_view kept = std::string_view(*text).substr(0, longest_text);
        out.byte(static_cast<int>(kept.size()));
        out.text(kept);
    }
    out.big32(static_cast<uint32_t>(int(store.frame_count)));
    return archive.write(bytes);
}

bool write_archive(platform::FileReplacement& archive, ArchiveProgress& progress)
{
    std::vector<uint8_t> buffer(buffer_size);
    if (!write_head(archive)) return false;
    for (int frame = 0; frame < store.frame_count; ++frame) {
        if (!copy_file_to_archive(frame_file(frame), archive, buffer)) return false;
        progress.step();
    }
    for (const char* ending : archive_containers)
        if (!copy_file_to_archive(set_file(ending), archive, buffer)) return false;
    progress.finish();
    return archive.commit();
}

/// Refuses an archive: with the system's reason where a call has failed, else with one of our own.
int refuse_archive(const std::string& path, const char* line, Reason reason)
{
    log_line(line);
    if (platform::last_failure() != 0)
        report_failure(ui_strings[TEXT_ARCHIVE_NOT_LOADED], path, platform::last_failure());
    else
        flash_failure(TIP_LOAD_FAILED, reason);
    return -1;
}

/// Every text in a file ends at a zero byte.
std::string up_to_zero(const std::string& text) { return text.substr(0, text.find('\0')); }

} // namespace

bool copy_file_to_archive(const std::string& file_name, platform::FileReplacement& archive, std::span<uint8_t> buffer)
{
    platform::FileSource file(file_name);
    bool good = file.opened() && file.size() <= std::numeric_limits<uint32_t>::max();
    if (good) {
        Bytes length;
        ByteWriter(length).big32(static_cast<uint32_t>(file.size()));
        good = archive.write(length);
    }
    while (good && file.position() < file.size()) {
        const auto left = static_cast<std::size_t>(file.size() - file.position());
        const auto chunk = buffer.first(std::min(left, buffer.size()));
        good = file.read(chunk) && archive.write(chunk);
    }
    if (!good) log_line("[ ERROR ] : Workspace component is missing or corrupt! Aborting save!");
    return good;
}

int extract_block(platform::FileSource& archive, const std::string& file_name, std::span<uint8_t> buffer,
                  uint32_t length)
{
    platform::FileReplacement file(file_name);
    bool good = true;
    for (std::size_t left = length; good && left > 0;) {
        const std::size_t chunk = std::min(left, buffer.size());
        good = archive.read(buffer.first(chunk)) && file.write(buffer.first(chunk));
        left -= chunk;
    }
    if (good && file.commit_unflushed()) return 0;
    log_line("[ ERROR ] : Workspace component is missing or corrupt! Aborting load!");
    return -1;
}

int save_workspace_archive(const std::string& file_name, ShowProgress show_progress)
{
    const TimersLock lock;
    const std::string directory = platform::working_directory();
    // So that the archive holds what the user sees; what can't be written has been reported.
    const bool up_to_date = write_workspace_state("current.spa", false);
    platform::change_directory(directory);
    if (!up_to_date) return 0;
    browser_state.browser_dir = platform::upper_case(directory).substr(0, longest_directory);
    bool written = false;
    {
        ArchiveProgress progress(TEXT_SAVING_WORKSPACE, store.frame_count, show_progress);
        platform::FileReplacement archive(file_name);
        const WorkspaceVisit visit(directory);
        if (!visit.found_program())
            log_line("[ ERROR ] : WORKSPACE directory unavailable. Writing workspace to current location");
        written = write_archive(archive, progress);
    }
    if (!written) {
        report_unwritten(file_name, TEXT_FILE_NOT_WRITTEN);
    }
    return 0;
}

int load_workspace_archive(const std::string& file_name, ShowProgress show_progress)
{
    const std::string path = platform::absolute_path(file_name);
    platform::forget_failure();
    if (!platform::file_exists(file_name))
        return refuse_archive(path, "[ ERROR ] : Workspace archive is missing or corrupt! Aborting load!",
                              "No such file!");
    ArchiveHead head;
    platform::FileSource archive(file_name);
    if (!archive.opened())
        return refuse_archive(path, "[ ERROR ] : Failure to read file at OS level! Aborting load!",
                              "Cannot open file!");
    if (!walk_archive(archive, head))
        return refuse_archive(path, "[ ERROR ] : Workspace packfile appears to be corrupt. Aborting load!",
                              "Not a whole archive!");
    const TimersLock lock;
    const WorkspaceVisit visit({});
    if (!visit.found_program() || !visit.entered())
        return refuse_archive(path, "[ ERROR ] : WORKSPACE directory unavailable. Aborting load!",
                              "No workspace folder!");
    if (const Reason refused = take_in(archive, head, show_progress))
        return refuse_archive(path, "[ ERROR ] : Workspace archive wasn't loaded, and the workspace stays as it was",
                              refused);
    drop_onion_skin();
    clear_frame_cache();
    store.workspace_title = up_to_zero(head.title);
    store.workspace_notes = up_to_zero(head.notes);
    read_workspace_state("current.spa");
    if (store.alpha_edit_mode) switch_alpha_mode();
    return 0;
}

} // namespace kelu
