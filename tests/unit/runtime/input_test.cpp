// SPDX-License-Identifier: MIT
// Buttons, the press filter, the hotkey test and jobs. The animation's tick: speeds, delays, both directions and both
// ends. Ticks that nobody waited for leave the same as ticks one by one.
#include "base/run_state.h"
#include "gui/logic.h"
#include "gui/slots.h"
#include "runtime/animation.h"
#include "runtime/clock.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/jobs.h"
#include "runtime/preferences.h"
#include "runtime/view.h"
#include "support/fresh_state.h"
#include <allegro.h>
#include <tuple>
#include <utility>
#include <vector>

namespace kelu {
namespace {

class Input : public test::FreshState {
protected:
    void SetUp() override
    {
        preferences.mouse_swap = 0;
        hotkeys = {};
        screen_state.screen_scale = 2;
        for (int scancode = 0; scancode < KEY_MAX; ++scancode)
            ::key[scancode] = 0;
        ::mouse_b = 0;
    }
    void TearDown() override { SetUp(); }

    static void point_at(int x, int y)
    {
        ::mouse_x = 2 * x;
        ::mouse_y = 2 * y;
        mouse_tick();
    }
};

} // namespace

TEST_F(Input, LeftPressKeepsItsPositionAndRightFollows)
{
    point_at(10, 20);
    ::mouse_b = 1;
    EXPECT_EQ(gui_button_state(), 1);
    point_at(50, 60);
    EXPECT_EQ(gui_button_state(), 1);
    EXPECT_EQ(pointer.mouse_press_x, 10);
    EXPECT_EQ(pointer.mouse_press_y, 20);
    ::mouse_b = 2;
    EXPECT_EQ(gui_button_state(), 2);
    point_at(70, 80);
    EXPECT_EQ(gui_button_state(), 2);
    EXPECT_EQ(pointer.mouse_press_x, 70);
    ::mouse_b = 0;
    pointer.gui_hold_slot = 5;
    EXPECT_EQ(gui_button_state(), 0);
    EXPECT_EQ(pointer.gui_hold_slot, -1);
}

TEST_F(Input, SwapActsOnTheGuiAlone)
{
    preferences.mouse_swap = 1;
    pointer.gui_hover_slot = 7;
    ::mouse_b = 2;
    EXPECT_EQ(gui_button_state(), 1);
    EXPECT_EQ(pointer.gui_hold_slot, 7);
    EXPECT_EQ(pointer.mouse_right, 1) << "the raw bytes know no swap";
    ::mouse_b = 1 | 8 | 16;
    EXPECT_EQ(gui_button_state(), 2);
    EXPECT_EQ(pointer.mouse_button_4, 1);
    EXPECT_EQ(pointer.mouse_button_5, 1);
}

TEST_F(Input, PressTakesTheStillPositionWithinTwoPixels)
{
    point_at(100, 50);
    for (int i = 0; i < 3; ++i)
        mouse_tick();
    EXPECT_NE(pointer.stable_mouse_x, 100) << "still for three passes only";
    mouse_tick();
    EXPECT_EQ(pointer.stable_mouse_x, 100);
    const auto press_at = [](int x, int y) {
        ::mouse_x = 2 * x;
        ::mouse_y = 2 * y;
        sample_press();
        return std::pair(pointer.press_x, pointer.press_y);
    };
    view.pan_x = 2; // frame pixels and those of the screen are not the same
    view.pan_y = 2;
    EXPECT_EQ(press_at(100, 50), std::pair(102, 52)) << "a still click stays where it is";
    EXPECT_EQ(press_at(102, 48), std::pair(102, 52));
    EXPECT_EQ(press_at(103, 48), std::pair(105, 50));
    view.zoom = 3;
    EXPECT_EQ(press_at(109, 50), std::pair(27, 14)) << "near the stable position in pixels of the frame";
    view.zoom = 1;
    view.pan_x = view.pan_y = 0;
    preferences.anti_jitter = 0;
    EXPECT_EQ(press_at(101, 50), std::pair(101, 50)) << "the option is off";
}

TEST_F(Input, HotkeysNeedTheirModifiersExactly)
{
    hotkeys.hotkey_table[ACTION_REDO].primary = KEY_U + key_shift;
    hotkeys.hotkey_table[ACTION_REDO].alternate = KEY_Y + key_control;
    ::key[KEY_U] = -1;
    ::key[KEY_RSHIFT] = -1;
    ::key_shifts = KB_CAPSLOCK_FLAG;
    EXPECT_TRUE(hotkey_test(ACTION_REDO));
    ::key[KEY_RSHIFT] = 0;
    ::key[KEY_U] = 0;
    ::key[KEY_Y] = -1;
    ::key[KEY_RCONTROL] = -1;
    EXPECT_TRUE(hotkey_test(ACTION_REDO)) << "the alternate key";
    ::key[KEY_ALTGR] = -1;
    EXPECT_FALSE(hotkey_test(ACTION_REDO)) << "one modifier too many";
    EXPECT_FALSE(hotkey_test(-1));
    EXPECT_FALSE(hotkey_test(hotkey_rows));
    hotkeys.hotkey_table[3].primary = 110;
    EXPECT_FALSE(hotkey_test(3)) << "no such key";
}

TEST(Jobs, RunInTableOrderOnceTheirDelayIsUp)
{
    static std::vector<int> ran;
    ran.clear();
    clear_jobs();
    set_job_handler(40, [](int index) {
        ran.push_back(job_queue[static_cast<std::size_t>(index)].arguments[0]);
        job_clear(index);
    });
    EXPECT_EQ(push_to_job(40, {1}, 2), 0);
    EXPECT_EQ(push_to_job(40, {2}), 1);
    EXPECT_EQ(push_to_job(63, {3, 0, 0, 0, 0, 0, 0, 9}), 2);
    run_jobs();
    EXPECT_EQ(ran, std::vector{2});
    count_job_delays();
    run_jobs();
    EXPECT_EQ(ran, std::vector{2}) << "one tick is left";
    count_job_delays();
    run_jobs();
    EXPECT_EQ(ran, (std::vector{2, 1}));
    EXPECT_EQ(job_find(40), -1);
    EXPECT_EQ(job_find(JOB_ANY), 2) << "a type that nobody serves stays";
    EXPECT_EQ(job_queue[2].arguments[7], 9);
    for (int i = 0; i < max_jobs - 1; ++i)
        push_to_job(63, {}, 9);
    EXPECT_EQ(push_to_job(40), -1) << "the queue is full";
    clear_jobs();
    EXPECT_EQ(job_find_free(), 0);
}

namespace {

/// The list of three frames, 1, 3 and 5, forward.
void begin(int speed, int delay_1, int delay_3, int delay_5)
{
    animation = {};
    for (std::size_t i = 0; i < animation.anim_list.size(); ++i)
        animation.anim_list[i] = i < 3 ? static_cast<int>(2 * i + 1) : -1;
    animation.anim_count = 3;
    animation.anim_speed = speed;
    animation.anim_delay[1] = delay_1;
    animation.anim_delay[3] = delay_3;
    animation.anim_delay[5] = delay_5;
    animation.anim_state = ANIM_FORWARD;
}

/// Ticks until the position changes.
int ticks_to_step()
{
    const int pos = animation.anim_pos;
    int ticks = 0;
    for (; animation.anim_pos == pos && ticks < 2000; ++ticks)
        animation_tick();
    return ticks;
}

TEST(AnimationTick, CountsByTheSpeed)
{
    for (const auto& [speed, delay, ticks] : {std::tuple{10, 0, 1},
                                              {10, 9, 1},
                                              {10, 10, 2},
                                              {5, 100, 21},
                                              {1, 100, 101},
                                              {0, 100, 101},
                                              {-1, 4, 5},
                                              {-10, 0, 10},
                                              {-10, 100, 1010}}) {
        begin(speed, delay, delay, delay);
        EXPECT_EQ(ticks_to_step(), ticks) << "speed " << speed << ", delay " << delay;
    }
}

TEST(AnimationTick, GoesRoundBothWaysByTheDelayBetween)
{
    begin(1, 4, 0, 8);
    const auto three_steps = [] { return std::vector{ticks_to_step(), ticks_to_step(), ticks_to_step()}; };
    EXPECT_EQ(three_steps(), (std::vector{5, 1, 9}));
    EXPECT_EQ(animation.anim_pos, 0) << "behind the last comes the first";
    animation.anim_state = ANIM_BACKWARD;
    EXPECT_EQ(three_steps(), (std::vector{9, 1, 5})) << "the delay behind the last lies between it and the first";
}

TEST(AnimationTick, SurvivesAListThatShrank)
{
    for (const int state : {ANIM_FORWARD, ANIM_BACKWARD}) {
        begin(1, 0, 0, 0);
        for (auto& entry : animation.anim_list)
            entry = -1;
        animation.anim_count = 0;
        animation.anim_state = state;
        animation.anim_pos = 99;
        animation_tick();
        EXPECT_EQ(animation.anim_pos, 0);
    }
    animation = {};
}

/// All that the counters hold, in one list.
std::vector<int> counters()
{
    const Clock& clock = clock_state;
    std::vector<int> all{clock.wait_counter, clock.hold_counter, clock.idle_counter, clock.phase_counter};
    for (const auto& phase : clock.phase)
        all.push_back(phase);
    for (const int word :
         {int(clock.world_phase_a), int(clock.world_phase_b), int(clock.marching_ants_phase), int(clock.slow_phase_a),
          int(clock.slow_phase_b), int(clock.fast_phase_a), int(clock.fast_phase_b), int(clock.fixed_phase_a),
          int(clock.fixed_phase_b), int(clock.tool_tick_flag), int(clock.tool_ticks), int(clock.caret_phase),
          int(gui_logic.pulse_value), int(gui_logic.pulse_step), int(gui_logic.pulse_wait)})
        all.push_back(word);
    return all;
}

TEST_F(Input, ClocksPassAsTheyTick)
{
    run_state.gui_active = 1;
    using Pair = std::pair<void (*)(), void (*)(int n)>;
    for (const auto& [tick, pass] : {Pair{clock_tick, pass_clock}, Pair{world_tick, pass_world},
                                     Pair{caret_tick, pass_caret}, Pair{gui_logic_tick, pass_logic}}) {
        for (const int warm_up : {0, 3, 499, 777}) {
            for (const int n : {1, 2, 7, 97, 98, 99, 499, 500, 501, 12345}) {
                clock_state = {};
                gui_logic = {};
                for (int i = 0; i < warm_up; ++i)
                    tick();
                const Clock clock_then = clock_state;
                const GuiLogic logic_then = gui_logic;
                for (int i = 0; i < n; ++i)
                    tick();
                const std::vector<int> ticked = counters();
                clock_state = clock_then;
                gui_logic = logic_then;
                pass(n);
                EXPECT_EQ(counters(), ticked) << warm_up << " and " << n;
            }
        }
    }
}

} // namespace
} // namespace kelu
