// SPDX-License-Identifier: MIT
// The table's slots: found and hidden; the way from pointer and buttons to hover, capture, events and rows;
// sliders.
#include "gui/build.h"
#include "gui/scroll_bar.h"
#include "gui_fixture.h"
#include "runtime/toolbox.h"
#include <tuple>
#include <utility>

namespace kelu::test {

class Logic : public GuiTest {
protected:
    /// Slot 4, a button at (20, 20).
    static void place_button()
    {
        place(4, KIND_BUTTON, 20, 20, 39, 9);
        gui.left_action[4] = ACT_CLICK;
    }
};

constexpr int slider = 5; ///< its slot

TEST_F(Logic, FreeSlotsAreSoughtFromBothEndsPastReservedOnes)
{
    gui.active[1] = gui.active[121] = 1;
    gui.reserved[2] = 1;
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

TEST_F(Logic, PressAndHoverReachTheFirstSlotFromAboveThatTakesThem)
{
    place(0, KIND_WINDOW, 10, 10, 100, 50);
    place(3, KIND_BUTTON, 20, 20, 39, 9);
    place(5, KIND_HIT, 20, 20, 39, 9);
    place(9, KIND_HIT, 20, 20, 39, 9);
    gui.left_action[3] = ACT_CLICK;
    gui.left_action[5] = ACT_PRESS;
    click(30, 22);
    EXPECT_EQ(gui.event[5].take(), 1);
    EXPECT_EQ(gui.event[3], 0);
    gui.left_action[5] = ACT_NONE;
    click(30, 22);
    EXPECT_EQ(gui.event[3].take(), 3) << "a click tells its slot";
    run_state.gui_clicks_enabled = 0;
    click(30, 22);
    EXPECT_EQ(gui.event[3], 0);

    const auto hover_at = [](int x, int y) {
        point(x, y);
        passes(1);
        return int(pointer.gui_hover_slot);
    };
    EXPECT_EQ(hover_at(20, 20), 9);
    gui.hover_target[9] = gui.hover_target[5] = 0;
    EXPECT_EQ(hover_at(20, 20), 3);
    EXPECT_EQ(hover_at(57, 27), 3);
    EXPECT_EQ(hover_at(58, 27), 0) << "not in the last column";
    EXPECT_EQ(hover_at(57, 28), 0) << "nor in the last row";
    gui.hidden[3] = 1;
    EXPECT_EQ(hover_at(20, 20), 0);
    EXPECT_EQ(hover_at(9, 10), -1);
}

TEST_F(Logic, NothingIsDispatchedBeforeTheDisplayIsReady)
{
    place_button();
    preferences.frame_limiter = 0; // the display paces the pass
    clock_state.present_ready = 0;
    click(25, 25);
    EXPECT_EQ(gui_logic.gui_capture, 0);
    clock_state.present_ready = 1;
    press(1);
    EXPECT_EQ(gui_logic.gui_capture, 1);
    EXPECT_EQ(clock_state.present_ready, 0);
}

TEST_F(Logic, OptionsBeyondTheirTableStayAsTheyAre)
{
    for (const auto& [tool, option] : {std::pair{-1, 0}, {option_rows, 0}, {1, -1}, {1, option_columns}, {1, 0}}) {
        place_button();
        gui.left_action[4] = ACT_TOOL_OPTION;
        gui.list_items[4][0] = tool;
        gui.list_items[4][1] = option;
        click(25, 25);
        EXPECT_EQ(gui.kind[4] == KIND_BUTTON_LIT, tool == 1 && option == 0) << tool << ", " << option;
    }
}

TEST_F(Logic, TheRowUnderThePointerIsTheHighlightedOne)
{
    place(2, KIND_LIST, 100, 50, 72, 65);
    gui.list_rows[2] = 9;
    gui.row_height[2] = 7;
    gui.row_width[2] = 59;
    for (std::size_t i = 0; i < 3; ++i)
        gui.list_items[2][i] = 200;
    // The line that rows 0 and 1 share is the first one's; behind three rows there is no text; at 157 the bar begins.
    for (const auto& [text_y, x, y, row] : {std::tuple{0, 110, 50, 0},
                                            {0, 110, 57, 0},
                                            {0, 110, 70, 2},
                                            {0, 110, 80, -1},
                                            {0, 101, 58, -1},
                                            {0, 156, 58, 1},
                                            {0, 157, 58, -1},
                                            {1, 110, 57, 0},
                                            {1, 110, 58, 1}}) {
        gui.row_text_y[2] = text_y;
        point(x, y);
        passes(1);
        EXPECT_EQ(gui.hover_row[2], row) << x << ", " << y;
    }
    press(1); // of row 1, by which other slots are held off
    EXPECT_EQ(gui_logic.gui_press_row, 1);
    place_button();
    point(25, 25);
    passes(2);
    press(0);
    EXPECT_EQ(gui.event[4], 0);
}

TEST_F(Logic, ATooltipTakesItsTime)
{
    for (const int slot : {2, 3, 4})
        place(slot, KIND_BUTTON, 40 * slot, 20, 39, 9);
    gui.tooltip[2] = gui.tooltip[3] = 1; // the other has none, and hides it at once
    for (const auto& [over, more, shown] :
         {std::tuple{2, 50, -1}, {2, 1, 2}, {2, 100, 2}, {3, 1, -1}, {3, 51, 3}, {4, 1, -1}}) {
        point(40 * over + 5, 25);
        passes(more);
        EXPECT_EQ(gui_logic.tooltip_active, shown) << over << " for " << more;
    }
}

TEST_F(Logic, AHeldArrowStepsAtOnceThenAfter21PassesThenEvery7)
{
    gui_slider(slider, 100, 50, 141, 256);
    point(235, 54); // the second arrow
    passes(1);
    press(1);
    for (const auto& [more, value] : {std::pair{0, 1}, {21, 1}, {1, 2}, {8, 3}, {8, 4}}) {
        passes(more);
        EXPECT_EQ(gui.scroll_value[slider], value);
    }
    press(0);
    EXPECT_EQ(gui_logic.gui_capture, 0);
    gui.scroll_value[slider] = 253;
    const int left = gui.arrow_box[slider][2], right = left + gui.arrow_w[slider];
    for (const auto& [x, value] : {std::pair{left, 253}, {left + 1, 254}, {right, 254}, {right - 1, 255}, {235, 255}}) {
        click(x, 54);
        EXPECT_EQ(gui.scroll_value[slider], value) << x;
    }
}

TEST_F(Logic, DraggingTheKnobReachesBothEnds)
{
    gui_slider(slider, 100, 50, 141, 101);
    gui.scroll_max[slider] = 1001; // 1001 values over 101 steps
    point(150, 54);
    passes(1);
    press(1);
    EXPECT_EQ(gui_logic.slider_grab, slider);
    point(310, 200); // anywhere, as long as the button is down
    passes(1);
    EXPECT_EQ(gui.scroll_value[slider], 1000);
    EXPECT_EQ(knob_index(slider), 100);
    point(0, 0);
    passes(1);
    EXPECT_EQ(gui.scroll_value[slider], 0);
    point(gui.knob_pos[slider][50] + 3, 54);
    passes(1);
    EXPECT_EQ(gui.scroll_value[slider], 495);
    point(310, 54);
    press(0);
    EXPECT_EQ(gui.scroll_value[slider], 495) << "let go";
}

} // namespace kelu::test
