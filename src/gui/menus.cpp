// SPDX-License-Identifier: MIT
// Timed status messages and the ghost of a menu.
#include "gui/menus.h"

#include "base/log.h"
#include "platform/files.h"

namespace kelu {
namespace {

constexpr int failure_ticks = 240; // twice as long as other messages: there is more to read

} // namespace

void flash_status_message(int id, int ticks)
{
    if (id < 0) {
        log_line("[ ERROR ] : Message OOB in call to flash_status_message. Message = %d", id);
        return;
    }
    // The tick that would count an old message down sees the new count before the new message.
    menus.status_message_ticks = ticks;
    menus.status_message = id;
}

void flash_failure(int id, std::string_view reason)
{
    menus.status_reason = platform::upper_case(std::string(reason));
    menus.reasoned_message = id;
    flash_status_message(id, failure_ticks);
}

void flash_done(int id, std::string_view what) { flash_failure(id, what); }

void count_status_message()
{
    const int ticks = menus.status_message_ticks;
    if (ticks <= 0) return;
    menus.status_message_ticks = ticks - 1;
    if (ticks == 1) menus.status_message = 0;
}

void clear_ghost() { menus.ghost_rect = {}; }

} // namespace kelu
