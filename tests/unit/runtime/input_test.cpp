// SPDX-License-Identifier: MIT
// Buttons, the press filter, the hotkey test and the counters of the timers.
#include "base/run_state.h"
#include "runtime/clock.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/jobs.h"
#include "runtime/preferences.h"
#include "runtime/view.h"
#include "support/fresh_state.h"
#include <allegro.h>

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
    hotkeys.hotkey_table[ACTION_UNDO].primary = KEY_U;
    hotkeys.hotkey_table[ACTION_REDO].primary = KEY_U + key_shift;
    hotkeys.hotkey_table[ACTION_REDO].alternate = KEY_Y + key_control;
    ::key[KEY_U] = -1;
    EXPECT_TRUE(hotkey_test(ACTION_UNDO));
    EXPECT_FALSE(hotkey_test(ACTION_REDO));
    ::key[KEY_RSHIFT] = -1;
    ::key_shifts = KB_CAPSLOCK_FLAG;
    EXPECT_FALSE(hotkey_test(ACTION_UNDO));
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

} // namespace kelu
