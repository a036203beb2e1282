// SPDX-License-Identifier: MIT
// The table's slots: found, hidden, cleared; the way from pointer and buttons to hover, capture, events and rows;
// sliders.
#include "gui/build.h"
#include "gui/scroll_bar.h"
#include "gui_fixture.h"

namespace kelu::test {

class Logic : public GuiTest {
protected:
    /// Slot 4, a button at (20, 20) with both of its clicks.
    static void place_button()
    {
        place(4, KIND_BUTTON, 20, 20, 39, 9);
        gui.left_action[4] = ACT_CLICK;
        gui.right_action[4] = ACT_RIGHT_CLICK;
    }
    /// A slider of 141 pixels at (100, 50), slot 5.
    static int slider(int steps)
    {
        gui_slider(5, 100, 50, 141, steps);
        return 5;
    }
};

TEST_F(Logic, FreeSlotsAreSoughtFromBothEndsPastReservedOnes)
{
    gui.active[1] = 1;
    gui.reserved[2] = 1;
    gui.active[121] = 1;
    EXPECT_EQ(gui_find_free_slot(0), 3);
    EXPECT_EQ(gui_find_free_slot(1), 120);
    for (int slot = 0; slot < gui_slots; ++slot)
        gui.active[slot] = 1;
    gui.active[0] = 0;
    EXPECT_EQ(gui_find_free_slot(0), -1);
    gui.active[127] = 0;
    EXPECT_EQ(gui_find_free_slot(0), 127);
    EXPECT_EQ(gui_find_free_slot(1), -1);
}

TEST_F(Logic, ATimedMessageEndsAndAHeldOneStays)
{
    flash_status_message(63, 2);
    count_status_message();
    EXPECT_EQ(menus.status_message, 63);
    count_status_message();
    EXPECT_EQ(menus.status_message, 0);
    menus.status_message = 5;
    count_status_message();
    EXPECT_EQ(menus.status_message, 5);
    flash_status_message(-3, 120);
    EXPECT_EQ(menus.status_message, 5);
}

TEST_F(Logic, HoverTakesTheHighestSlotWithoutItsLastColumnAndRow)
{
    place(0, KIND_WINDOW, 10, 10, 100, 50);
    place(3, KIND_BUTTON, 20, 20, 39, 9);
    place(5, KIND_HIT, 20, 20, 39, 9);
    const auto hover_at = [](int x, int y) {
        point(x, y);
        passes(1);
        return int(pointer.gui_hover_slot);
    };
    EXPECT_EQ(hover_at(20, 20), 5);
    gui.hover_target[5] = 0;
    EXPECT_EQ(hover_at(20, 20), 3);
    EXPECT_EQ(hover_at(57, 27), 3);
    EXPECT_EQ(hover_at(58, 27), 0);
    EXPECT_EQ(hover_at(57, 28), 0);
    gui.hidden[3] = 1;
    EXPECT_EQ(hover_at(20, 20), 0);
    EXPECT_EQ(hover_at(9, 10), -1);
}

TEST_F(Logic, ThePressReachesTheFirstSlotFromAboveThatHasAnAction)
{
    place(2, KIND_BUTTON, 20, 20, 39, 9);
    place(7, KIND_HIT, 20, 20, 39, 9);
    place(9, KIND_HIT, 20, 20, 39, 9);
    gui.left_action[2] = ACT_CLICK;
    gui.left_action[7] = ACT_PRESS;
    click(30, 22);
    EXPECT_EQ(gui.event[7].take(), 1);
    EXPECT_EQ(gui.event[2], 0);
    gui.left_action[7] = ACT_NONE;
    click(30, 22);
    EXPECT_EQ(gui.event[2].take(), 2);
    run_state.gui_clicks_enabled = 0;
    click(30, 22);
    EXPECT_EQ(gui.event[2], 0);
}

TEST_F(Logic, NothingIsDispatchedWhileTheGuiSleeps)
{
    place_button();
    gui_logic.gui_logic_paused = 1;
    click(25, 25);
    EXPECT_EQ(gui_logic.gui_capture, 0);
    gui_logic.gui_logic_paused = 0;
    preferences.frame_limiter = 0; // the display paces the pass
    clock_state.present_ready = 0;
    click(25, 25);
    EXPECT_EQ(gui_logic.gui_capture, 0);
    clock_state.present_ready = 1;
    press(1);
    EXPECT_EQ(gui_logic.gui_capture, 1);
    EXPECT_EQ(clock_state.present_ready, 0);
}

TEST_F(Logic, TheRowUnderThePointerIsTheHighlightedOne)
{
    place(2, KIND_LIST, 100, 50, 72, 65);
    gui.list_rows[2] = 9;
    gui.row_height[2] = 7;
    gui.row_width[2] = 59;
    for (std::size_t i = 0; i < 3; ++i)
        gui.list_items[2][i] = 200;
    const auto row_at = [](int x, int y) {
        point(x, y);
        passes(1);
        return int(gui.hover_row[2]);
    };
    EXPECT_EQ(row_at(110, 50), 0);
    EXPECT_EQ(row_at(110, 57), 0); // the line that rows 0 and 1 share
    EXPECT_EQ(row_at(110, 58), 1);
    EXPECT_EQ(row_at(110, 70), 2);
    EXPECT_EQ(row_at(110, 80), -1); // no text there
    EXPECT_EQ(row_at(101, 58), -1);
    EXPECT_EQ(row_at(156, 58), 1);
    EXPECT_EQ(row_at(157, 58), -1); // the bar's area
    gui.row_text_y[2] = 1;
    EXPECT_EQ(row_at(110, 58), 1);
    EXPECT_EQ(row_at(110, 57), 0);
}

TEST_F(Logic, APressOnARowHoldsOtherSlotsOff)
{
    place(2, KIND_LIST, 100, 50, 72, 65);
    gui.list_rows[2] = 9;
    gui.row_height[2] = 7;
    gui.list_items[2][0] = gui.list_items[2][1] = 200;
    place(3, KIND_BUTTON, 20, 20, 39, 9);
    gui.left_action[3] = ACT_CLICK;
    point(110, 60);
    passes(1);
    press(1);
    EXPECT_EQ(gui_logic.gui_capture, 1);
    EXPECT_EQ(gui_logic.gui_press_row, 1);
    point(25, 25);
    passes(2);
    press(0);
    EXPECT_EQ(gui.event[3], 0);
}

TEST_F(Logic, ATooltipTakesItsTime)
{
    place(2, KIND_BUTTON, 20, 20, 39, 9);
    place(3, KIND_BUTTON, 60, 20, 39, 9);
    place(4, KIND_BUTTON, 100, 20, 39, 9);
    gui.tooltip[2] = gui.tooltip[3] = 1;
    point(25, 25);
    passes(50);
    EXPECT_EQ(gui_logic.tooltip_active, -1);
    passes(1);
    EXPECT_EQ(gui_logic.tooltip_active, 2);
    passes(100);
    EXPECT_EQ(gui_logic.tooltip_active, 2);
    point(65, 25);
    passes(1);
    EXPECT_EQ(gui_logic.tooltip_active, -1);
    passes(51);
    EXPECT_EQ(gui_logic.tooltip_active, 3);
    point(105, 25); // a slot without a tooltip hides it at once
    passes(1);
    EXPECT_EQ(gui_logic.tooltip_active, -1);
}

TEST_F(Logic, AHeldArrowStepsAtOnceThenAfter21PassesThenEvery7)
{
    const int s = slider(256);
    point(235, 54); // the second arrow
    passes(1);
    press(1);
    EXPECT_EQ(gui_logic.gui_capture, 3);
    EXPECT_EQ(gui.scroll_value[s], 1);
    passes(21);
    EXPECT_EQ(gui.scroll_value[s], 1);
    passes(1);
    EXPECT_EQ(gui.scroll_value[s], 2);
    passes(8);
    EXPECT_EQ(gui.scroll_value[s], 3);
    passes(8);
    EXPECT_EQ(gui.scroll_value[s], 4);
    press(0);
    EXPECT_EQ(gui_logic.gui_capture, 0);
    click(105, 54);
    EXPECT_EQ(gui.scroll_value[s], 3);
    gui.scroll_value[s] = 255;
    click(235, 54);
    EXPECT_EQ(gui.scroll_value[s], 255);
}

TEST_F(Logic, DraggingTheKnobReachesBothEnds)
{
    const int s = slider(101);
    gui.scroll_max[s] = 1001; // 1001 values over 101 steps
    point(150, 54);
    passes(1);
    press(1);
    EXPECT_EQ(gui_logic.slider_grab, s);
    point(310, 200); // anywhere, as long as the button is down
    passes(1);
    EXPECT_EQ(gui.scroll_value[s], 1000);
    EXPECT_EQ(knob_index(s), 100);
    point(0, 0);
    passes(1);
    EXPECT_EQ(gui.scroll_value[s], 0);
    point(gui.knob_pos[s][50] + 3, 54);
    passes(1);
    EXPECT_EQ(gui.scroll_value[s], static_cast<int>(1001.0 / 101 * 50));
    press(0);
    EXPECT_EQ(gui_logic.slider_grab, 0);
    point(310, 54);
    passes(1);
    EXPECT_EQ(gui.scroll_value[s], 495);
}

TEST_F(Logic, RangesThatDoNotStartAtZero)
{
    const int s = slider(12);
    gui.scroll_min[s] = 1;
    gui.scroll_max[s] = 13;
    gui.scroll_value[s] = 1;
    EXPECT_EQ(knob_index(s), 0);
    gui.scroll_value[s] = 12;
    EXPECT_EQ(knob_index(s), 11);
    click(105, 54);
    EXPECT_EQ(gui.scroll_value[s], 11);
    gui.scroll_value[s] = 1;
    click(105, 54);
    EXPECT_EQ(gui.scroll_value[s], 1);
}

} // namespace kelu::test
