// SPDX-License-Identifier: MIT
// Reading of compiled scripts. Main thread; the slot is inactive.
#include "framework/script.h"

#include "base/log.h"
#include "platform/files.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr std::size_t max_file_size = std::size_t{16} << 20;

/// The body of a script in a compiled file, without its head of three bytes; false when there is no such script.
bool find_body(std::span<const uint8_t> file, int id, std::span<const uint8_t>& body)
{
    for (std::size_t i = 0; i + 2 < file.size(); ++i) {
        if (file[i] != SCRIPT_RECORD || file[i + 1] * 100 + file[i + 2] != id) continue;
        body = file.subspan(i + 3);
        body = body.first(std::find(body.begin(), body.end(), SCRIPT_RECORD) - body.begin());
        return true;
    }
    return false;
}

bool slot_refused(int slot, const char* function)
{
    if (script_slot_exists(slot)) return false;
    log_line("[ ERROR ] : Slot OOB in call to %s! Slot = %d", function, slot);
    return true;
}

} // namespace

void reset_script(int slot)
{
    if (slot_refused(slot, "reset_script")) return;
    static constinit const ScriptSlot blank;
    ScriptSlot& script = script_at(slot);
    script.script_active = 0; // first, so that no pass runs a program that is half blank
    script = blank;
}

int load_script_from(int slot, int id, std::span<const uint8_t> file)
{
    if (slot_refused(slot, "load_script")) return -1;
    reset_script(slot);
    std::span<const uint8_t> body;
    if (!find_body(file, id, body)) return -1;
    auto& program = script_at(slot).script_program;
    const std::size_t length = std::min(body.size(), program.size() - 1);
    std::copy_n(body.begin(), length, program.begin());
    program[length] = SCRIPT_END;
    return id;
}

int load_script(int slot, int id)
{
    std::vector<uint8_t> file;
    const platform::DirectoryVisit resource("resource");
    if (!resource.entered() || !platform::read_file("mojo.def", max_file_size, file)) file.clear();
    return load_script_from(slot, id, file);
}

} // namespace kelu
