// SPDX-License-Identifier: MIT
// Bars and sliders: geometry, wheel, arrows, knob, binding.
#include "gui/scroll_bar.h"

#include "gui/build.h"
#include "gui_fixture.h"

namespace kelu::test {

class ScrollBarTest : public GuiTest {
protected:
    /// A slider of 141 pixels at (100, 50), slot 5.
    static int slider(int steps)
    {
        gui_slider(5, 100, 50, 141, steps);
        return 5;
    }
    /// The bar of a list at (20, 40), slot 6: 10 steps.
    static int list_bar()
    {
        build_slot(SlotRow{6, 0, 0, 72, KIND_LIST}.high(65).with(ScrollBar{.steps = 10, .wheel = 2, .dx = 62}), 20, 40);
        return 6;
    }
    static int knob(int slot, int step) { return gui.knob_pos[slot][static_cast<std::size_t>(step)]; }
};

TEST_F(ScrollBarTest, AHeldArrowStepsAtOnceThenAfter21PassesThenEvery7)
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

TEST_F(ScrollBarTest, DraggingTheKnobReachesBothEnds)
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
    point(knob(s, 50) + 3, 54);
    passes(1);
    EXPECT_EQ(gui.scroll_value[s], static_cast<int>(1001.0 / 101 * 50));
    press(0);
    EXPECT_EQ(gui_logic.slider_grab, 0);
    point(310, 54);
    passes(1);
    EXPECT_EQ(gui.scroll_value[s], 495);
}

TEST_F(ScrollBarTest, RangesThatDoNotStartAtZero)
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
