// SPDX-License-Identifier: MIT
// Looking for what has changed, by content where that is small and by stamp where it isn't.
#include "workspace/running_files.h"

#include "base/run_state.h"
#include "draw/cel.h"
#include "imagefile/bmp.h"
#include "platform/files.h"
#include "runtime/cel.h"
#include "runtime/store.h"
#include "workspace/custom_tip.h"
#include "workspace/folder.h"
#include "workspace/settings.h"
#include "workspace/state.h"
#include <algorithm>
#include <array>

namespace kelu {
namespace {

constexpr int stamp_unknown = -1;

/// What was found at the last look.
struct Found {
    Bytes state, settings, tip;
    int cel_stamp = stamp_unknown;
};
Found found;

struct Content {
    const char* name; ///< below the program's folder
    Bytes Found::*last;
    Bytes (*now)();
};
const std::array contents{
    Content{"WORKSPACE/current.spa", &Found::state, workspace_state_bytes},
    Content{"resource/user.def", &Found::settings, user_settings_bytes},
    Content{"WORKSPACE/current.tip", &Found::tip, custom_tip_bytes},
};

std::string leaf_of(const std::string& name) { return name.substr(name.rfind('/') + 1); }

std::string in_program(const std::string& name) { return run_state.program_dir + '/' + name; }

/// An operation that has borrowed the cel gives it back.
bool cel_changed() { return cel_work.borrowed == 0 && store.cel_source_bitmap && cel.cel_stamp != found.cel_stamp; }

} // namespace

std::vector<RunningFile> changed_running_files()
{
    std::vector<RunningFile> files;
    for (const Content& content : contents) {
        Bytes now = content.now();
        if (now == found.*content.last || file_protected(leaf_of(content.name))) continue;
        files.push_back({in_program(content.name), now, {}});
        found.*content.last = std::move(now);
    }
    if (cel_changed()) {
        files.push_back({in_program("WORKSPACE/current.cel"), {}, store.cel_source_bitmap.copy()});
        found.cel_stamp = cel.cel_stamp;
    }
    return files;
}

void remember_running_files()
{
    for (const Content& content : contents)
        found.*content.last = content.now();
    found.cel_stamp = cel.cel_stamp;
}

void forget_running_files() { found = {}; }

bool write_running_file(const RunningFile& file)
{
    return file.picture ? write_bmp(file.name, file.picture) : platform::replace_file(file.name, file.bytes);
}

} // namespace kelu
