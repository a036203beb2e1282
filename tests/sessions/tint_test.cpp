// SPDX-License-Identifier: MIT
// The tint screen: its live preview, and what OKAY and CANCEL leave.
#include "colour/tint.h"
#include "loop/actions.h"
#include "runtime/color_settings.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

constexpr int slot_ignore = 2, slot_hue = 6, slot_lightness = 7, slot_okay = 9;

/// A frame larger than the screen, all red but for one pixel, and the screen opened on it.
class Tint : public testing::Test {
protected:
    Tint()
    {
        replace_frame(600, 400, 0xff0000);
        row(store.frame_bitmap, 5)[5] = 0x123456;
        toolbox.mask_color = 0x123456;
        open_entry(session, HOME_PIC, 5, MENU_TINT);
    }
    Session session;
};

} // namespace

TEST_F(Tint, PreviewsOnTheScreenAndOkayTintsTheWhole)
{
    gui.scroll_value[slot_hue] = 85;
    gui.kind[slot_ignore] = KIND_BUTTON_LIT;
    session.frame(2);
    EXPECT_EQ(frame_pixel(100, 100), 0x00ff00);
    EXPECT_EQ(frame_pixel(5, 5), 0x123456) << "the mask colour is left out";
    EXPECT_EQ(frame_pixel(500, 300), 0xff0000) << "not on the screen";
    EXPECT_GT(action_state.frame_locked, 0) << "no key commits what is only shown";
    gui.scroll_value[slot_hue] = -85; // shifts don't add up
    session.frame(2);
    EXPECT_EQ(frame_pixel(100, 100), 0x0000ff);
    session.click(slot_okay);
    session.frame(2);
    EXPECT_EQ(frame_pixel(500, 300), 0x0000ff);
    EXPECT_EQ(color_settings.tint_values, (std::array{-85, 0, 0}));
    EXPECT_EQ(color_settings.tint_ignore_mask, 1);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
}

TEST_F(Tint, OkayWithoutAShiftLeavesNothingOfEarlierPreviews)
{
    gui.scroll_value[slot_lightness] = 60;
    session.frame(2);
    view.pan_x = 200;
    session.frame(2);
    EXPECT_NE(frame_pixel(10, 10), 0xff0000);
    gui.scroll_value[slot_lightness] = 0;
    session.frame(2);
    session.click(slot_okay);
    session.frame(2);
    EXPECT_EQ(frame_pixel(10, 10), 0xff0000);
    EXPECT_EQ(frame_pixel(500, 100), 0xff0000);
}

} // namespace kelu
