// SPDX-License-Identifier: MIT
// The machine without a display: Allegro's bitmaps and files, no timers, no waiting.
#include "platform/host.h"

#include "platform/layout.h"
#include <cerrno>

namespace kelu::platform {
namespace {

bool start()
{
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) return false;
    fix_pixel_layout();
    return true;
}

int enter_mode(const VideoMode& mode) { return mode.scale; }
void set_title(const char*) {}
void set_icons(std::span<BITMAP* const>) {}
void present(BITMAP*, bool) {}
void rest_briefly(int) {}
void rouse() {}
void wait_vertical_blank() {}
bool install_timer_row(const Timer&) { return true; }
void remove_timer(void (*)()) {}
void wake_timers() {}
bool timers_sleep() { return false; }
void move_pointer(int x, int y)
{
    ::mouse_x = x;
    ::mouse_y = y;
}
void show_message(const char*) {}
void stop() { allegro_exit(); }

} // namespace

const Host headless_host = {.start = start,
                            .enter_mode = enter_mode,
                            .set_title = set_title,
                            .set_icons = set_icons,
                            .present = present,
                            .rest = rest_briefly,
                            .rouse = rouse,
                            .wait_vertical_blank = wait_vertical_blank,
                            .install_timer = install_timer_row,
                            .remove_timer = remove_timer,
                            .wake_timers = wake_timers,
                            .timers_sleep = timers_sleep,
                            .position_mouse = move_pointer,
                            .show_message = show_message,
                            .stop = stop};

} // namespace kelu::platform
