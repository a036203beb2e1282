// SPDX-License-Identifier: MIT
// The turns of a session's program and its test, and the virtual clock.
#include "support/session.h"

#include "base/run_state.h"
#include "draw/touched.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "loop/frame.h"
#include "platform/host.h"
#include "platform/layout.h"
#include "platform/timer_table.h"
#include "program/startup.h"
#include "runtime/random.h"
#include "runtime/store.h"
#include "screens/draw_menu.h"
#include "screens/options_table.h"
#include "support/fiber.h"
#include "support/paths.h"
#include "support/pictures.h"
#include <atomic>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string_view>
#include <thread>
#include <type_traits>

namespace kelu::test {
namespace {

namespace fs = std::filesystem;

constexpr platform::TimerUnits frame_units = platform::timer_units_per_second / 100;
constexpr int frame_limit = 200000; ///< a session that runs longer hangs
constexpr int end_limit = 3000;     ///< frames in which a program that was asked to must end

void run_to_end();

/// The running session; one at a time.
struct Run {
    Fiber program{run_to_end};
    std::jthread ticker;
    std::mutex ticking; // only with a real ticker: input and timer table change outside its passes
    platform::TimerTable timers;
    std::atomic<platform::TimerUnits> now = 0;
    Bitmap shown{320, 240};
    int exit_code = 0;
    int frames = 0;
    int frames_left = 0; ///< that the program runs before it gives the turn back
};
std::optional<Run> run;

void run_to_end() { run->exit_code = run_program(); }

/// Every tick counts: there is no timer that nobody waits for.
bool install_timer_row(const platform::Timer& timer)
{
    const std::lock_guard lock(run->ticking);
    return run->timers.install({.tick = timer.tick, .period = timer.period}, run->now);
}

void remove_timer_row(void (*tick)())
{
    const std::lock_guard lock(run->ticking);
    run->timers.remove(tick);
}

void tick_freely(const std::stop_token& stop)
{
    while (!stop.stop_requested()) {
        {
            const std::lock_guard lock(run->ticking);
            run->timers.run(run->now += frame_units / 10);
        }
        std::this_thread::yield();
    }
}

[[noreturn]] void hang(const char* how)
{
    std::fprintf(stderr, "%s; menu %d is open\n", how, int(menus.menu_id));
    std::abort();
}

/// The end of every frame of the program. Behind the last one that the test has asked for: hand the turn to the test
/// and wait for it to come back.
void present(BITMAP* picture, bool fresh)
{
    if (fresh) blit(picture, run->shown, 0, 0, 0, 0, picture->w, picture->h);
    if (--run->frames_left > 0) {
        run->timers.run(run->now += frame_units);
        return;
    }
    if (!run->program.runs()) hang("The test waits in a loop of the program");
    run->program.pause();
}

/// A frame that isn't composed must be the one that stands: whoever changed something has told nobody.
void check_still_frame()
{
    if (run->ticker.joinable()) return; // the timers' thread may be about to tell
    const Bitmap stands = screen_state.back_buffer.copy();
    compose_frame(false);
    const std::string change = difference(screen_state.back_buffer, stands);
    if (!change.empty()) ADD_FAILURE() << change << " would not have shown; menu " << int(menus.menu_id);
}

const platform::Host test_host = [] {
    platform::Host host = platform::headless_host;
    host.start = [] {
        platform::fix_pixel_layout();
        return true;
    };
    host.present = present;
    host.install_timer = install_timer_row;
    host.remove_timer = remove_timer_row;
    host.stop = [] {};
    return host;
}();

void clear_input()
{
    const std::lock_guard lock(run->ticking);
    ::mouse_b = 0;
    ::mouse_z = 0;
    for (int scancode = 0; scancode < KEY_MAX; ++scancode)
        ::key[scancode] = 0;
    ::key_shifts = 0;
}

} // namespace

void replace_frame(int w, int h, int color)
{
    store.frame_bitmap = Bitmap(w, h, color);
    store.alpha_bitmap = Bitmap(w, h, 0xffffff);
    store.coverage_bitmap = Bitmap(w, h);
    touch_frame();
}

Session::Session(void (*home_loop)(), void (*prepare)(), Ticks ticks) : ticks_(ticks)
{
    for (const char* part : {"resource", "fonts"})
        fs::copy(fs::path(app_folder()) / part, part, fs::copy_options::recursive);
    // The delivered settings are the user's affair; a session starts on the start values.
    fs::remove("resource/user.def");
    fs::create_directory("WORKSPACE");
    folder_.put("config.def", "2");
    setenv("HOME", folder().c_str(), 1);
    unsetenv("XDG_CONFIG_HOME");
    platform::host = &test_host;
    program.home_loop = home_loop ? home_loop : draw_menu;
    if (prepare) prepare();
    start();
}

void Session::start()
{
    fs::current_path(folder());
    run.emplace();
    clear_input();
    seed_random(1);
    run_state = {};
    options_state = {};
    still_frame_check = check_still_frame;
    platform::host->offer_clipboard({});
    if (ticks_ == Ticks::real_thread) run->ticker = std::jthread(tick_freely);
    frames_until([] { return run_state.gui_active != 0; });
    frame(2);
}

void Session::end()
{
    if (!finish()) hang("The program does not end");
    run->ticker = {};
    run.reset();
    still_frame_check = nullptr;
}

Session::~Session()
{
    end();
    platform::host = &platform::headless_host;
}

void Session::frame(int n)
{
    const int together = run->ticker.joinable() ? 1 : n;
    for (; n > 0 && !run->program.done(); n -= together) {
        if (run->ticker.joinable()) {
            // However slow the machine is, no frame goes without ticks.
            const platform::TimerUnits due = run->now + frame_units;
            while (run->now < due)
                std::this_thread::yield();
        } else {
            run->timers.run(run->now += frame_units);
        }
        run->frames_left = together;
        run->program.resume();
        run->frames += together;
        if (run->frames > frame_limit) hang("The session runs on and on");
    }
}

/// Changes a word of the input while no tick runs, and lets frames pass.
template <class Word>
void Session::set(Word& word, int value, int frames)
{
    {
        const std::lock_guard lock(run->ticking);
        word = static_cast<std::remove_volatile_t<Word>>(value);
    }
    frame(frames);
}

void Session::move(int x, int y, int frames)
{
    set(::mouse_x, x * screen_state.screen_scale, 0);
    set(::mouse_y, y * screen_state.screen_scale, frames);
}

void Session::press(int button) { set(::mouse_b, ::mouse_b | button, 4); }

void Session::release(int button) { set(::mouse_b, ::mouse_b & ~button, 4); }

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
    for (int i = 1; i <= steps; ++i)
        move(x0 + (x1 - x0) * i / steps, y0 + (y1 - y0) * i / steps, 2);
    frame(settle_frames);
    release(button);
}

void Session::wheel(int steps) { set(::mouse_z, ::mouse_z + steps, 4); }

void Session::hold_key(int scancode) { set(::key[scancode], -1, 3); }

void Session::release_key(int scancode) { set(::key[scancode], 0, 4); }

void Session::key(int scancode, const std::vector<int>& modifiers)
{
    for (const int modifier : modifiers)
        set(::key[modifier], -1, 0);
    hold_key(scancode);
    for (const int modifier : modifiers)
        set(::key[modifier], 0, 0);
    release_key(scancode);
}

void Session::type(const std::string& text)
{
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789", signs = " ./";
    constexpr int codes_of_signs[] = {KEY_SPACE, KEY_STOP, KEY_SLASH};
    for (const char sign : text) {
        const auto letter = letters.find(static_cast<char>(std::tolower(static_cast<unsigned char>(sign))));
        key(letter == letters.npos ? codes_of_signs[signs.find(sign)] : KEY_A + static_cast<int>(letter));
    }
}

BITMAP* Session::picture() const { return run->shown; }

bool Session::finish()
{
    clear_input();
    run_state.exit_requested = 1;
    run_state.end_now = 1;
    frame(end_limit);
    return run->program.done();
}

bool Session::ended() const { return run->program.done(); }

int Session::exit_code() const { return run->exit_code; }

} // namespace kelu::test
