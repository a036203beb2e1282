// SPDX-License-Identifier: MIT
// The tint screen: its live preview, and what OKAY and CANCEL leave.
#include "colour/tint.h"
#include "loop/actions.h"
#include "runtime/color_settings.h"
#include "screens/tint_menu.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

constexpr int slot_ignore = 2, slot_hue = 6, slot_lightness = 7, slot_okay = 9, slot_cancel = 10;

/// A frame larger than the screen, all red but for one pixel, and the screen opened on it.
void tint_red_frame()
{
    replace_frame(600, 400, 0xff0000);
    store.coverage_bitmap = Bitmap(600, 400);
    row(store.frame_bitmap, 5)[5] = 0x123456;
    view.pan_x = view.pan_y = 0;
    toolbox.mask_color = 0x123456;
    tint_menu();
    while (run_pass({.is_home = true})) {}
}

bool opened(Session& session)
{
    return session.frames_until([] { return menus.menu_id == MENU_TINT; });
}

} // namespace

TEST(Tint, PreviewsOnTheScreenAndOkayTintsTheWhole)
{
    Session session(tint_red_frame);
    ASSERT_TRUE(opened(session));
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

TEST(Tint, OkayWithoutAShiftLeavesNothingOfEarlierPreviews)
{
    Session session(tint_red_frame);
    ASSERT_TRUE(opened(session));
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
