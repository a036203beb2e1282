// SPDX-License-Identifier: MIT
// The two threads of a session, their turns, and the virtual clock.
#include "support/session.h"

#include "base/run_state.h"
#include "draw/touched.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "loop/frame.h"
#include "platform/host.h"
#include "platform/layout.h"
#include "program/startup.h"
#include "runtime/random.h"
#include "runtime/store.h"
#include "screens/draw_menu.h"
#include "support/paths.h"
#include <algorithm>
#include <array>
#include <atomic>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <mutex>
#include <optional>
#include <semaphore>
#include <sstream>
#include <thread>

namespace kelu::test {
namespace {

namespace fs = std::filesystem;

constexpr long frame_units = 11931; ///< 10 ms in units of 1/1193181 s
constexpr int frame_limit = 200000; ///< a session that runs longer hangs
constexpr int end_limit = 3000;     ///< frames in which a program that was asked to must end
constexpr int settle_frames = 6;    ///< for the pointer to count as standing still

/// One of the timers that the program has installed, counted as Allegro counts.
struct TimerSlot {
    void (*tick)() = nullptr;
    long period = 0, left = 0;
};

/// What the two threads of the running session share; one session at a time.
struct Run {
    std::thread program, ticker;
    std::binary_semaphore go{0}, ready{0}; // the program may run a frame; it has run one
    std::atomic<bool> done = false, stop_ticker = false;
    std::atomic<long> ticked = 0; // units that the real ticker has run
    std::mutex ticking;           // only with a real ticker: input and timer table change outside its passes
    std::array<TimerSlot, 16> timers{};
    Bitmap shown{320, 240};
    int exit_code = 0;
    int frames = 0;
};
std::optional<Run> run;

bool install_timer_row(const platform::Timer& timer)
{
    const std::lock_guard lock(run->ticking);
    for (TimerSlot& slot : run->timers) {
        if (slot.tick != timer.tick) continue;
        slot.left += timer.period - slot.period;
        slot.period = timer.period;
        return true;
    }
    for (TimerSlot& slot : run->timers) {
        if (slot.tick) continue;
        slot = {timer.tick, timer.period, timer.period};
        return true;
    }
    return false;
}

void remove_timer_row(void (*tick)())
{
    const std::lock_guard lock(run->ticking);
    for (TimerSlot& slot : run->timers) {
        if (slot.tick == tick) slot = {};
    }
}

/// Runs the callbacks that fall due in `units`, as Allegro's timer thread does.
void advance_clock(long units)
{
    while (units > 0) {
        long step = units;
        for (const TimerSlot& slot : run->timers) {
            if (slot.tick) step = std::min(step, std::max(1L, slot.left));
        }
        units -= step;
        for (TimerSlot& slot : run->timers)
            slot.left -= slot.tick ? step : 0;
        for (TimerSlot& slot : run->timers) {
            while (slot.tick && slot.left <= 0) {
                slot.left += slot.period;
                slot.tick();
            }
        }
    }
}

void tick_freely()
{
    while (!run->stop_ticker) {
        {
            const std::lock_guard lock(run->ticking);
            advance_clock(frame_units / 10);
        }
        run->ticked += frame_units / 10;
        std::this_thread::yield();
    }
}

/// Lets the real ticker run for a frame's time, so that however slow the machine is no frame goes without ticks.
void wait_for_ticks()
{
    const long due = run->ticked + frame_units;
    while (run->ticked < due)
        std::this_thread::yield();
}

bool start_machine()
{
    platform::fix_pixel_layout();
    return true;
}

/// The end of every frame of the program: hand the turn to the test and wait for it to come back.
void present(BITMAP* picture, bool)
{
    blit(picture, run->shown, 0, 0, 0, 0, picture->w, picture->h);
    run->ready.release();
    run->go.acquire();
}

/// A frame that isn't composed must be the one that stands: whoever changed something has told nobody.
void check_still_frame()
{
    if (run->ticker.joinable()) return; // the timers' thread may be about to tell
    const Bitmap stands = screen_state.back_buffer.copy();
    compose_frame(false);
    for (int y = 0; y < 240; ++y) {
        const int* const line = row(screen_state.back_buffer, y);
        const auto x = std::mismatch(line, line + 320, row(stands, y)).first - line;
        if (x == 320) continue;
        ADD_FAILURE() << "A change at " << x << ", " << y << " would not have shown; menu " << int(menus.menu_id);
        return;
    }
}

void leave_machine() {}

platform::Host session_host()
{
    platform::Host host = platform::headless_host;
    host.start = start_machine;
    host.present = present;
    host.install_timer = install_timer_row;
    host.remove_timer = remove_timer_row;
    host.stop = leave_machine;
    return host;
}
const platform::Host test_host = session_host();

/// Changes input words while no tick runs.
template <class Change>
void act(Change change)
{
    const std::lock_guard lock(run->ticking);
    change();
}

void clear_input()
{
    ::mouse_b = 0;
    ::mouse_z = 0;
    for (int scancode = 0; scancode < KEY_MAX; ++scancode)
        ::key[scancode] = 0;
    ::key_shifts = 0;
}

} // namespace

std::string make_program_folder()
{
    std::string pattern = (fs::temp_directory_path() / "kelu-session-XXXXXX").string();
    if (!mkdtemp(pattern.data())) std::abort();
    const fs::path folder = fs::canonical(pattern);
    fs::create_directory(folder / "WORKSPACE");
    std::ofstream(folder / "config.def") << '2';
    for (const char* part : {"resource", "fonts"}) {
        const fs::path from = fs::path(app_folder()) / part;
        if (fs::exists(from)) {
            fs::copy(from, folder / part, fs::copy_options::recursive);
        } else {
            fs::create_directory(folder / part);
        }
    }
    // The delivered settings are the user's affair; a session starts on the start values.
    fs::remove(folder / "resource" / "user.def");
    return folder.string();
}

void replace_frame(int w, int h, int color)
{
    store.frame_bitmap = Bitmap(w, h, color);
    store.alpha_bitmap = Bitmap(w, h, 0xffffff);
    store.coverage_bitmap = Bitmap(w, h);
    touch_frame();
}

void remove_program_folder(const std::string& folder)
{
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

Session::Session(void (*home_loop)(), std::string folder, Ticks ticks, const std::string& home)
    : folder_(std::move(folder))
{
    if (folder_.empty()) {
        folder_ = make_program_folder();
        owns_folder_ = true;
    }
    fs::current_path(folder_);
    setenv("HOME", home.empty() ? folder_.c_str() : home.c_str(), 1);
    unsetenv("XDG_CONFIG_HOME");
    clear_input();
    seed_random(1);
    run_state = {};
    run.emplace();
    platform::host = &test_host;
    still_frame_check = check_still_frame;
    program.home_loop = home_loop ? home_loop : draw_menu;
    run->program = std::thread([] {
        run->go.acquire();
        run->exit_code = run_program();
        run->done = true;
        run->ready.release();
    });
    if (ticks == Ticks::real_thread) run->ticker = std::thread(tick_freely);
    frames_until([] { return run_state.gui_active != 0; });
    frame(2);
}

Session::~Session()
{
    if (!finish()) {
        std::fprintf(stderr, "The program does not end; menu %d is open\n", int(menus.menu_id));
        std::_Exit(1);
    }
    run->stop_ticker = true;
    if (run->ticker.joinable()) run->ticker.join();
    run->program.join();
    run.reset();
    fs::current_path(fs::temp_directory_path());
    platform::host = &platform::headless_host;
    still_frame_check = nullptr;
    if (owns_folder_) remove_program_folder(folder_);
}

void Session::frame(int n)
{
    while (n-- > 0 && !run->done) {
        if (run->ticker.joinable()) {
            wait_for_ticks();
        } else {
            advance_clock(frame_units);
        }
        run->go.release();
        run->ready.acquire();
        if (++run->frames > frame_limit) {
            std::fprintf(stderr, "The session runs on and on; menu %d is open\n", int(menus.menu_id));
            std::_Exit(1);
        }
    }
}

void Session::move(int x, int y)
{
    act([=] {
        ::mouse_x = x * screen_state.screen_scale;
        ::mouse_y = y * screen_state.screen_scale;
    });
    frame(settle_frames);
}

void Session::press(int button)
{
    act([=] { ::mouse_b = ::mouse_b | button; });
    frame(4);
}

void Session::release(int button)
{
    act([=] { ::mouse_b = ::mouse_b & ~button; });
    frame(4);
}

void Session::click_at(int x, int y, int button)
{
    move(x, y);
    press(button);
    release(button);
}

void Session::click(int slot, int button)
{
    click_at(gui.x[slot] + (gui.w[slot] - 1) / 2, gui.y[slot] + (gui.h[slot] - 1) / 2, button);
}

void Session::drag(int x0, int y0, int x1, int y1, int steps, int button)
{
    move(x0, y0);
    press(button);
    for (int i = 1; i <= steps; ++i) {
        act([=] {
            ::mouse_x = (x0 + (x1 - x0) * i / steps) * screen_state.screen_scale;
            ::mouse_y = (y0 + (y1 - y0) * i / steps) * screen_state.screen_scale;
        });
        frame(2);
    }
    frame(settle_frames);
    release(button);
}

void Session::wheel(int steps)
{
    act([=] { ::mouse_z = ::mouse_z + steps; });
    frame(4);
}

void Session::hold_key(int scancode)
{
    act([=] { ::key[scancode] = -1; });
    frame(3);
}

void Session::release_key(int scancode)
{
    act([=] { ::key[scancode] = 0; });
    frame(4);
}

void Session::key(int scancode, const std::vector<int>& modifiers)
{
    act([&] {
        for (const int modifier : modifiers)
            ::key[modifier] = -1;
    });
    hold_key(scancode);
    act([&] {
        for (const int modifier : modifiers)
            ::key[modifier] = 0;
    });
    release_key(scancode);
}

void Session::type(const std::string& text)
{
    for (const char letter : text) {
        if (letter == ' ') {
            key(KEY_SPACE);
        } else if (std::isdigit(static_cast<unsigned char>(letter))) {
            key(KEY_0 + letter - '0');
        } else {
            key(KEY_A + std::toupper(static_cast<unsigned char>(letter)) - 'A');
        }
    }
}

BITMAP* Session::picture() const { return run->shown; }

std::string Session::log() const
{
    std::ostringstream text;
    text << std::ifstream(fs::path(folder_) / "FW_log.txt").rdbuf();
    return text.str();
}

bool Session::finish()
{
    act(clear_input);
    run_state.exit_requested = 1;
    run_state.end_now = 1;
    for (int i = 0; i < end_limit && !run->done; ++i)
        frame();
    return run->done;
}

bool Session::ended() const { return run->done; }

int Session::exit_code() const { return run->exit_code; }

} // namespace kelu::test
