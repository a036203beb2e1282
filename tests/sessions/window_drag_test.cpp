// SPDX-License-Identifier: MIT
// A window that is moved by its label, in the whole program.
#include "gui/build.h"
#include "support/screen_session.h"

namespace kelu::test {
namespace {

constexpr SlotRow window_slots[] = {
    title_row(2, 2, 87, TEXT_GRID_SETTINGS),
    slider_row(2, 2, 12, 87, 100),
};
constexpr MenuLayout window = {MENU_GRID, WINDOW_GRID, 70, 80, 90, 100, 3, window_slots};

void window_loop()
{
    build_screen(window);
    while (run_pass(passes::plain)) {}
    close_screen();
}

} // namespace

TEST(WindowDrag, TheWindowFollowsThePointerUntilTheNextClick)
{
    Session session(window_loop);
    session.frame(5);
    const int knob = gui.knob_pos[2][0];
    session.click_at(80, 86);
    session.frame(5);
    EXPECT_EQ(gui.frame_state[0], 2);
    EXPECT_EQ(run_state.gui_clicks_enabled, 0);
    session.move(100, 96);
    EXPECT_EQ(gui.x[0], 90);
    EXPECT_EQ(gui.y[0], 90);
    EXPECT_EQ(gui.x[1], 92);
    EXPECT_EQ(gui.y[2], 102);
    session.frame(2);
    EXPECT_EQ(gui.knob_pos[2][0], knob + 20);
    session.move(319, 239); // it stays on the screen
    EXPECT_EQ(gui.x[0], 319 - 90);
    EXPECT_EQ(gui.y[0], 239 - 100);
    EXPECT_EQ(menus.window_pos[WINDOW_GRID].x, -1);
    session.press();
    session.frame(5);
    EXPECT_EQ(gui.frame_state[0], 2); // until the button is up again
    session.release();
    session.frame(5);
    EXPECT_EQ(gui.frame_state[0], 0);
    EXPECT_EQ(run_state.gui_clicks_enabled, 1);
    EXPECT_EQ(menus.window_pos[WINDOW_GRID].x, 229);
    EXPECT_EQ(menus.window_pos[WINDOW_GRID].y, 139);
    session.move(10, 10);
    session.frame(5);
    EXPECT_EQ(gui.x[0], 229);
}

} // namespace kelu::test
