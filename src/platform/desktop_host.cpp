// The machine with a display: Allegro on X11.
//
// Beside the main thread Allegro runs two of its own: one for events (keys, mouse, the close button) and one for the
// timers. Both are its affair; our callbacks on them only write shared words.
#include "base/run_state.h"
#include "platform/desktop_rest.h"
#include "platform/desktop_window.h"
#include "platform/ending.h"
#include "platform/host.h"
#include "platform/input_events.h"
#include "platform/keyboard_map.h"
#include "platform/layout.h"
#include "platform/window_messages.h"
#include <algorithm>
#include <array>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/prctl.h>

namespace kelu::platform {
namespace {

/// The installed callbacks, so that all of them end before Allegro does. Main thread only.
std::array<void (*)(), 16> installed_ticks{};

/// Allegro's event thread, which holds its own lock meanwhile.
void close_button_callback()
{
    run_state.close_button_pressed = 1;
    request_end();
}

/// Threads that are started from here on may sleep this much longer than they ask for; 0: the system's default. The
/// kernel then wakes them less often. Allegro's threads sleep in steps of a millisecond and make up for what they miss.
void allow_oversleep(std::chrono::nanoseconds slack) { prctl(PR_SET_TIMERSLACK, slack.count(), 0, 0, 0); }

bool start()
{
    using namespace std::chrono_literals;
    name_window_class();
    allow_oversleep(30ms); // the event thread only repaints and watches between frames: `rest` delivers input
    if (allegro_init() != 0) return false;
    // Our text stands for the whole configuration: no allegro.cfg of this or another program has a say, and none is
    // written at the end.
    const std::string map = keyboard_map_text();
    set_config_data(map.c_str(), static_cast<int>(map.size()));
    end_on_signals();
    watch_connection();
    allow_oversleep(4ms); // the timer thread, whose fastest callback that a user can notice runs every 8 ms
    const bool timers_run = install_timer() == 0;
    allow_oversleep(0ms);
    if (!timers_run || install_keyboard() != 0 || install_mouse() < 0) return false;
    std::setlocale(LC_NUMERIC, "C"); // install_keyboard has set the user's, whose numbers may have commas
    three_finger_flag = 0;           // no end by Ctrl+Alt+End past our own shutdown
    fix_pixel_layout();
    queue_input_events();
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

void wait_vertical_blank()
{
    // Not Allegro's own wait: that asks the display for an answer under the lock of the event thread, and once the
    // display has gone it never comes.
    constexpr int longest_wait = 30; // milliseconds; the blank is simulated 70 times a second
    const int before = retrace_count;
    for (int waited = 0; retrace_count == before && waited < longest_wait && !display_lost(); ++waited)
        ::rest(1);
    deliver_input();
    end_when_overdue();
}

bool install_timer_row(void (*tick)(), int period)
{
    const auto known = std::ranges::find(installed_ticks, tick);
    const auto place = known != installed_ticks.end() ? known : std::ranges::find(installed_ticks, nullptr);
    if (place == installed_ticks.end() || install_int_ex(tick, period) != 0) return false;
    *place = tick;
    return true;
}

void remove_timer(void (*tick)())
{
    remove_int(tick);
    std::ranges::replace(installed_ticks, tick, nullptr);
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
    for (void (*tick)() : installed_ticks) {
        if (tick) remove_timer(tick);
    }
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
                           .wait_vertical_blank = wait_vertical_blank,
                           .install_timer = install_timer_row,
                           .remove_timer = remove_timer,
                           .position_mouse = move_pointer,
                           .show_message = show_message,
                           .stop = stop};

} // namespace kelu::platform
