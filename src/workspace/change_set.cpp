// SPDX-License-Identifier: MIT
// Changes of several files: staged, decided by one rename, applied, finished at the next start.
#include "workspace/change_set.h"

#include "base/log.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "workspace/folder.h"
#include "workspace/running_work.h"
#include <cerrno>
#include <cstdint>
#include <sstream>

namespace kelu {
namespace {

constexpr const char* record_name = "next.list";
constexpr std::size_t record_limit = 1U << 16; // bytes; a change of 100 frames stays below 8 KB
constexpr int tries = 2;                       // of a move to its place before the change waits

bool stuck = false; ///< a change that has been decided waits for the next try

/// Where the new form of a file waits: the ending says which file it is.
std::string staged_name(const std::string& name) { return file_set::next + name.substr(name.find('.')); }

/// Moves a file to its place; one that isn't there has been moved before.
bool take(const std::string& from, const std::string& to)
{
    for (int i = 0; i < tries; ++i)
        if (!platform::file_exists(from) || platform::rename_file(from, to)) return true;
    return false;
}

bool remove(const std::string& name)
{
    for (int i = 0; i < tries; ++i)
        if (platform::remove_file(name)) return true;
    return false;
}

/// Each line can be done twice without harm, so that an end at any point is made good by doing all of them again.
bool apply(const std::string& record)
{
    std::istringstream lines(record);
    std::string verb, from, to;
    while (lines >> verb >> from) {
        if (verb == "take" && !(lines >> to)) return false;
        if ((from + to).find('/') != std::string::npos) continue; // whoever wrote this: no file of the store
        if (verb == "take" && !take(from, to)) return false;
        if (verb == "remove" && !remove(from)) return false;
    }
    return remove(record_name);
}

void take_away_staged()
{
    constexpr const char* hidden = ".next.list.kelu-new"; // what is left of a record that was being written
    platform::remove_file(hidden);
    for (const platform::Entry& entry : platform::list_folder("."))
        if (entry.name.starts_with(std::string(file_set::next) + ".")) platform::remove_file(entry.name);
}

} // namespace

bool finish_changes()
{
    std::vector<uint8_t> bytes;
    if (platform::file_exists(record_name)) {
        const bool done = platform::read_file(record_name, record_limit, bytes) && apply({bytes.begin(), bytes.end()});
        stuck = !done;
        log_line(done ? "[ INFO ] : A change of the workspace was brought to its end"
                      : "[ ERROR ] : A change of the workspace waits to be brought to its end");
        if (!done) return false;
    }
    stuck = false;
    take_away_staged();
    return true;
}

bool change_waits() { return stuck; }

bool settle_changes() { return !stuck || finish_changes(); }

ChangeSet::ChangeSet()
{
    ready_ = settle_running_work() && finish_changes(); // a frame whose file is missing can't be renumbered
}

ChangeSet::~ChangeSet()
{
    if (ready_ && !committed_) take_away_staged();
}

std::string ChangeSet::stage(const std::string& name)
{
    move(staged_name(name), name);
    return staged_name(name);
}

bool ChangeSet::stage_copy(const std::string& source, const std::string& name)
{
    return ready_ && platform::copy_file(source, stage(name));
}

void ChangeSet::move(const std::string& source, const std::string& name)
{
    // What is decided must be possible: nothing may lie there that can't be replaced.
    if (platform::file_exists(name) && platform::file_size(name) < 0) refused_ = EISDIR;
    if (platform::file_exists(name) && !platform::file_writable(name)) refused_ = errno;
    record_ += "take " + source + ' ' + name + '\n';
    remove_journal(name);
}

void ChangeSet::remove(const std::string& name)
{
    if (platform::file_exists(name)) record_ += "remove " + name + '\n';
    remove_journal(name);
}

void ChangeSet::remove_journal(const std::string& name)
{
    const std::string journal = std::string(file_set::journal) + name.substr(name.find('.'));
    if (name.starts_with(file_set::current) && platform::file_exists(journal)) record_ += "remove " + journal + '\n';
}

bool ChangeSet::commit()
{
    const std::vector<uint8_t> bytes(record_.begin(), record_.end());
    if (refused_ != 0) {
        errno = refused_;
        return platform::note_failure();
    }
    if (!ready_ || !platform::replace_file(record_name, bytes)) return false;
    committed_ = true;
    stuck = !apply(record_);
    return true;
}

} // namespace kelu
