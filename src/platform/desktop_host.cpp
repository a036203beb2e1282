// SPDX-License-Identifier: MIT
// The machine with a display: Allegro on X11.
//
// Beside the main thread Allegro runs one of its own, for events (keys, mouse, the close button); our callbacks on it
// only write shared words. The timers have a thread of ours: Allegro's looks each few milliseconds what is due, whether
// anybody waits for it or not.
#include "base/run_state.h"
#include "platform/desktop_rest.h"
#include "platform/desktop_window.h"
#include "platform/ending.h"
#include "platform/host.h"
#include "platform/input_events.h"
#include "platform/keyboard_map.h"
#include "platform/layout.h"
#include "platform/timer_thread.h"
#include "platform/window_messages.h"
#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/prctl.h>
#include <thread>

namespace kelu::platform {
namespace {

/// Allegro's event thread, which holds its own lock meanwhile.
void close_button_callback()
{
    run_state.close_button_pressed = 1;
    request_end();
    rouse_rest();
}

/// Threads that are started from here on may sleep this much longer than they ask for; 0: the system's default. The
/// kernel then wakes them less often.
void allow_oversleep(std::chrono::nanoseconds slack) { prctl(PR_SET_TIMERSLACK, slack.count(), 0, 0, 0); }

bool start()
{
    using namespace std::chrono_literals;
    name_window_class();
    allow_oversleep(100ms); // the event thread only repaints and watches between frames: `rest` delivers input
    if (allegro_init() != 0) return false;
    // Our text stands for the whole configuration: no allegro.cfg of this or another program has a say, and none is
    // written at the end.
    const std::string map = keyboard_map_text();
    set_config_data(map.c_str(), static_cast<int>(map.size()));
    end_on_signals();
    watch_connection();
    allow_oversleep(0ms);
    if (install_keyboard() != 0 || install_mouse() < 0) return false;
    set_keyboard_rate(0, 0); // a key that repeats would start Allegro's timers; ours are read from its state
    start_timer_thread();
    std::setlocale(LC_NUMERIC, "C"); // install_keyboard has set the user's, whose numbers may have commas
    three_finger_flag = 0;           // no end by Ctrl+Alt+End past our own shutdown
    fix_pixel_layout();
    queue_input_events(note_input_queued);
    set_close_button_callback(close_button_callback);
    return true;
}

void set_title(const char* title)
{
    describe_window(title);
    listen_to_messages();
}

void rest_briefly(int milliseconds)
{
    rest_until_input(std::max(milliseconds, 0));
    end_when_overdue();
}

/// The display says nothing of its own rate: a common one stands for it.
void wait_vertical_blank()
{
    using std::chrono::steady_clock;
    constexpr std::chrono::nanoseconds period{1000000000 / 70};
    const auto since_last = steady_clock::now().time_since_epoch() % period;
    std::this_thread::sleep_for(period - since_last);
    deliver_input();
    end_when_overdue();
}

void move_pointer(int x, int y)
{
    ::position_mouse(x, y);
    append_pointer_event({x, y, ::mouse_b});
}

void show_message(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    if (!system_driver || display_lost()) return;
    close_desktop_window(); // a full-screen window of ours would hide the box and hold the keyboard
    release_signals();      // and a signal ends the wait for the user
    allegro_message("%s", text);
}

void stop()
{
    stop_timer_thread();
    // Allegro's threads may wait for ever for a display that has gone, and Allegro for its threads.
    if (display_lost()) std::_Exit(EXIT_FAILURE);
    close_desktop_window();
    stop_input_events();
    allegro_exit();
}

} // namespace

const Host desktop_host = {.start = start,
                           .enter_mode = enter_desktop_mode,
                           .set_title = set_title,
                           .set_icons = set_desktop_icons,
                           .present = present_on_desktop,
                           .rest = rest_briefly,
                           .rouse = rouse_rest,
                           .wait_vertical_blank = wait_vertical_blank,
                           .install_timer = install_timer_row,
                           .remove_timer = remove_timer_row,
                           .wake_timers = wake_timers,
                           .timers_sleep = timers_sleep,
                           .position_mouse = move_pointer,
                           .offer_clipboard = clipboard_offer,
                           .take_clipboard = clipboard_take,
                           .show_message = show_message,
                           .stop = stop};

} // namespace kelu::platform
