// SPDX-License-Identifier: MIT
// The nodes of the gradients by mouse and key.
#include "draw/gradient.h"
#include "draw/preview.h"
#include "support/screen_session.h"
#include "tools/gradient_placing.h"

namespace kelu {

using namespace test;

namespace {

int node(int ink, int column)
{
    return toolbox.ink_table[static_cast<std::size_t>(ink)][static_cast<std::size_t>(column)];
}

bool placing_nodes(Session& session)
{
    return session.frames_until([] { return preview.preview_kind > preview_of_ink; });
}

} // namespace

TEST(GradientNodes, AreTakenCarriedAndPutDown)
{
    Session session([] {
        auto& cells = toolbox.ink_table[INK_L_GRAD];
        cells[GRADIENT_START_X] = 50;
        cells[GRADIENT_START_Y] = 60;
        cells[GRADIENT_END_X] = 4000; // comes into the frame
        cells[GRADIENT_END_Y] = -7;
        reposition_gradient(INK_L_GRAD);
        idle();
    });
    ASSERT_TRUE(placing_nodes(session));
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_END_X), store.frame_bitmap.width() - 1);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_END_Y), 0);
    session.click_at(59, 60); // 9 away: too far
    session.move(100, 100);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_START_X), 50);
    session.click_at(58, 60);
    session.move(120, 90);
    session.frame(2);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_START_X), 120);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_START_Y), 90);
    session.click_at(120, 90);
    session.move(10, 200);
    session.frame(2);
    EXPECT_EQ(node(INK_L_GRAD, GRADIENT_START_X), 120);
    session.click_at(10, 200, RIGHT_BUTTON);
    session.frame(3);
    EXPECT_EQ(preview.preview_kind, no_preview);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(toolbox.ink_derived[INK_L_GRAD][LINEAR_LENGTH], 218.0F); // from (120, 90) to (319, 0)
}

TEST(GradientNodes, OffscreenNodesAreOneJumpAway)
{
    Session session([] {
        replace_frame(2000, 1000, 0);
        store.coverage_bitmap = Bitmap(2000, 1000);
        auto& cells = toolbox.ink_table[INK_R_GRAD];
        cells[GRADIENT_START_X] = 1500;
        cells[GRADIENT_START_Y] = 700;
        cells[GRADIENT_END_X] = 1600;
        cells[GRADIENT_END_Y] = 700;
        reposition_gradient(INK_R_GRAD);
        idle();
    });
    ASSERT_TRUE(placing_nodes(session));
    ASSERT_TRUE(session.frames_until([] { return gui.active[0] != 0; })) << "the window of the jumps";
    session.click(2);
    session.frame(3);
    EXPECT_EQ(view.pan_x, 1500 - 160);
    EXPECT_EQ(view.pan_y, 700 - 120);
    EXPECT_EQ(gui.active[0], 0) << "gone, and the menu still away";
    EXPECT_EQ(menus.menu_id, MENU_DIALOG);
}

} // namespace kelu
