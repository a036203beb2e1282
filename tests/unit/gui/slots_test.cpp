// Life of a slot: reset, search, hiding, clearing.
#include "gui/slots.h"

#include "gui/kinds.h"
#include "gui/menus.h"
#include "runtime/input.h"
#include <gtest/gtest.h>

namespace kelu {

class Slots : public testing::Test {
protected:
    void SetUp() override
    {
        for (int slot = 0; slot < gui_slots; ++slot)
            gui_reset_slot(slot);
        gui_logic = {};
        pointer = {};
        menus = {};
    }
    static void place(int slot, int x, int y, int w, int h)
    {
        gui.x[slot] = x;
        gui.y[slot] = y;
        gui.w[slot] = w;
        gui.h[slot] = h;
        gui.active[slot] = 1;
    }
};

TEST_F(Slots, ResetGivesEveryFieldItsStartValue)
{
    gui.active[7] = 1;
    gui.hover_target[7] = 0;
    gui.opacity[7] = 3;
    gui.row_height[7] = 6;
    gui.hover_row[7] = 4;
    gui.items[7][49] = 12;
    gui.list_items[7][71] = 5;
    gui.knob_pos[7][knob_cross] = 30;
    gui.field_text[7][0] = 'A';
    gui.field_font[7] = 5;
    gui.scroll_bind[7] = &gui_logic.pulse_value;
    gui_logic.slider_grab = 7;
    EXPECT_EQ(gui_reset_slot(7), 7);
    EXPECT_EQ(gui.active[7], 0);
    EXPECT_EQ(gui.hover_target[7], 1);
    EXPECT_EQ(gui.opacity[7], 254);
    EXPECT_EQ(gui.row_height[7], 14);
    EXPECT_EQ(gui.hover_row[7], -1);
    EXPECT_EQ(gui.items[7][49], -1);
    EXPECT_EQ(gui.list_items[7][71], 0);
    EXPECT_EQ(gui.knob_pos[7][knob_cross], 0);
    EXPECT_EQ(gui.field_text[7][0], 0);
    EXPECT_EQ(gui.field_font[7], 4);
    EXPECT_EQ(gui.scroll_bind[7], nullptr);
    EXPECT_EQ(gui_logic.slider_grab, 0);
}

TEST_F(Slots, FreeSlotsAreSoughtFromBothEndsPastReservedOnes)
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

TEST_F(Slots, ClearingTakesTheWholeWindowAndNothingElse)
{
    for (int slot = 0; slot < 8; ++slot)
        place(slot, 0, 0, 10, 10);
    gui_clear_window();
    EXPECT_EQ(gui.active[0], 1); // a count of 0 clears nothing
    gui.slot_count[0] = 5;
    gui_clear_window();
    EXPECT_EQ(gui.active[0], 0);
    EXPECT_EQ(gui.active[4], 0);
    EXPECT_EQ(gui.active[5], 1);
}

TEST_F(Slots, PressFindsTheHighestSlotThatShowsWithItsLastPixels)
{
    place(0, 10, 10, 100, 50);
    place(1, 20, 20, 10, 9);
    place(2, 20, 20, 10, 9);
    gui.hidden[2] = 1;
    pointer.mouse_press_x = 29;
    pointer.mouse_press_y = 28;
    EXPECT_EQ(gui_slot_at_press(), 1);
    pointer.mouse_press_x = 30;
    EXPECT_EQ(gui_slot_at_press(), 0);
    pointer.mouse_press_x = 110;
    EXPECT_EQ(gui_slot_at_press(), -1);
}

TEST_F(Slots, HidingFollowsTheCountOfTheMenu)
{
    gui.slot_count[3] = 2;
    gui.hidden[4] = 1;
    menu_toggle_hidden(3);
    EXPECT_EQ(gui.hidden[3], 1);
    EXPECT_EQ(gui.hidden[4], 0);
    EXPECT_EQ(gui.hidden[5], 0);
    menu_hide(3);
    EXPECT_EQ(gui.hidden[4], 1);
    menu_show(3);
    EXPECT_EQ(gui.hidden[3], 0);
}

TEST_F(Slots, ATimedMessageEndsAndAHeldOneStays)
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

} // namespace kelu
