// SPDX-License-Identifier: MIT
// The video mode of config.def and the bitmaps of the screen.
#include "base/log.h"
#include "base/run_state.h"
#include "program/startup.h"
#include "runtime/clock.h"
#include "runtime/failure.h"
#include "runtime/input.h"

#include "imagefile/picture_files.h"
#include "imagefile/vector_font.h"
#include "platform/files.h"
#include "platform/places.h"
#include <algorithm>
#include <ctime>
#include <vector>

namespace kelu {
namespace {

constexpr const char* config_name = "config.def";
constexpr int smallest_window = 2; ///< digit of the smallest window; 1 is full screen
constexpr int largest_window = 9;
constexpr int font_library_exit = 1; ///< exit code when there is no font library

/// The digit of config.def: 1 full screen, 2 to 9 a window at that scale. -1 when there is no file.
int read_config()
{
    std::vector<uint8_t> start;
    if (!platform::read_start(config_name, 1, start)) return -1;
    const int byte = start.empty() ? 0 : start[0];
    if (byte >= '1' && byte <= '0' + largest_window) return byte - '0';
    log_line("[ WARNING ] : Unknown video mode. Assuming windowed.");
    return smallest_window;
}

void set_screen_size(int scale)
{
    screen_state.screen_scale = scale;
    screen_state.screen_w = logical_w * scale;
    screen_state.screen_h = logical_h * scale;
}

bool request_mode(int digit)
{
    const platform::VideoMode mode{digit == 1, std::max(digit, smallest_window)};
    log_line("[ INIT ] : Requesting %dx%d %s resolution", logical_w * mode.scale, logical_h * mode.scale,
             mode.fullscreen ? "fullscreen" : "windowed");
    const int scale = platform::host->enter_mode(mode);
    if (scale == 0) return false;
    set_screen_size(scale);
    if (mode.fullscreen) log_line("[ INIT ] : Full screen shows %dx%d", screen_state.screen_w, screen_state.screen_h);
    return true;
}

void enter_video_mode()
{
    int digit = read_config();
    if (digit < 0) {
        log_line("[ FATAL ] : Cannot locate CONFIG.DEF. Rerun configuration program, or reinstall the game!");
        fatal_stop(fatal_text::config_missing);
    }
    while (!request_mode(digit)) {
        if (digit <= smallest_window) {
            log_line("[ INIT ] : Resolution DENIED!");
            fatal_stop(fatal_text::mode_refused);
        }
        --digit;
    }
    log_line("[ INIT ] : Resolution accepted");
}

void note_start_day()
{
    const std::time_t now = std::time(nullptr);
    std::tm today{};
    localtime_r(&now, &today);
    run_state.start_month = today.tm_mon;
    run_state.start_day = today.tm_mday;
}

} // namespace

void initialize_display()
{
    set_screen_size(smallest_window);
    note_start_day();
    enter_video_mode();
    register_picture_formats();
    if (font_system_init() != 0) fatal_stop(fatal_text::font_library, font_library_exit);
    screen_state.back_buffer = Bitmap(logical_w, logical_h);
    FW_initialize_variables();
    log_line("[ INIT ] : Internal assets initialized");
    platform::scan_drives();
    log_line("[ INIT ] : System control hooks installed");
    platform::host->present(screen_state.back_buffer, true);
}

} // namespace kelu
