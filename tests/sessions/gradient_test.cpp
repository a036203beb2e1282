// SPDX-License-Identifier: MIT
// The nodes of the gradients by mouse and key.
#include "draw/gradient.h"
#include "draw/preview.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

int node(int ink, int column)
{
    return toolbox.ink_table[static_cast<std::size_t>(ink)][static_cast<std::size_t>(column)];
}

void set_nodes(int ink, Point start, Point end)
{
    auto& cells = toolbox.ink_table[static_cast<std::size_t>(ink)];
    cells[GRADIENT_START_X] = start.x;
    cells[GRADIENT_START_Y] = start.y;
    cells[GRADIENT_END_X] = end.x;
    cells[GRADIENT_END_Y] = end.y;
    toolbox.ink_slots[0] = ink;
}

} // namespace

TEST(GradientNodes, AreTakenCarriedAndPutDown)
{
    Session session;
    set_nodes(INK_L_GRAD, {50, 60}, {4000, -7});
    session.key(KEY_PGUP);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_END_X), store.frame_bitmap.width() - 1) << "comes into the frame";
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_END_Y), 0);
    session.click_at(59, 60); // 9 away: too far
    session.move(100, 100);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_START_X), 50);
    session.click_at(58, 60);
    session.move(120, 90);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_START_X), 120);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_START_Y), 90);
    session.click_at(120, 90);
    session.move(10, 200);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_START_X), 120);
    session.click_at(10, 150, RIGHT_BUTTON);
    EXPECT_EQ(preview.preview_kind, no_preview);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(toolbox.ink_derived[INK_L_GRAD][LINEAR_LENGTH], 218.0F); // from (120, 90) to (319, 0)
}

TEST(GradientNodes, OffscreenNodesAreOneJumpAway)
{
    Session session;
    replace_frame(2000, 1000, 0);
    set_nodes(INK_R_GRAD, {1500, 700}, {1600, 700});
    session.key(KEY_PGUP);
    ASSERT_NE(gui.active[0], 0) << "the window of the jumps";
    session.click(2);
    session.frame(3);
    EXPECT_EQ(view.pan_x, 1500 - 160);
    EXPECT_EQ(view.pan_y, 700 - 120);
    EXPECT_EQ(gui.active[0], 0) << "gone, and the menu still away";
    EXPECT_EQ(menus.menu_id, MENU_DIALOG);
}

} // namespace kelu
