// SPDX-License-Identifier: MIT
// The machine without a display: Allegro's bitmaps and files, no timers, no waiting.
#include "platform/host.h"

#include "platform/layout.h"
#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

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

std::vector<ClipboardItem> clipboard_items;

bool offer_clipboard(std::vector<ClipboardItem> items)
{
    clipboard_items = std::move(items);
    return true;
}

ClipboardItem take_clipboard(std::span<const char* const> wanted, std::size_t limit)
{
    for (const std::string_view type : wanted) {
        const auto item = std::ranges::find(clipboard_items, type, &ClipboardItem::type);
        if (item != clipboard_items.end()) return item->bytes.size() <= limit ? *item : ClipboardItem{};
    }
    return {};
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
                            .offer_clipboard = offer_clipboard,
                            .take_clipboard = take_clipboard,
                            .show_message = show_message,
                            .stop = stop};

} // namespace kelu::platform
