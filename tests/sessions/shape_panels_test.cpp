// SPDX-License-Identifier: MIT
// The tools with a panel, from the first click to OKAY or CANCEL.
#include "draw/polygon.h"
#include "draw/preview.h"
#include "draw/spiral.h"
#include "draw/supershape.h"
#include "draw/tool_input.h"
#include "runtime/shape_settings.h"
#include "support/point_print.h"
#include "support/screen_session.h"
#include "support/tool_session.h"
#include "tools/polygon_tool.h"
#include "tools/shape_panel.h"
#include "tools/spiral_tool.h"
#include "tools/supershape_tool.h"
#include "tools/text_tool.h"

namespace kelu {

using namespace test;

namespace {

class ShapePanels : public test::ToolSession {};

TEST_F(ShapePanels, AStripThatTheUserHidStaysHiddenBehindAPanel)
{
    for (const int tool : {TOOL_RPOLY, TOOL_SPIRAL, TOOL_TEXT}) {
        use(tool);
        session.click_at(300, 20, RIGHT_BUTTON);
        EXPECT_EQ(gui.hidden[0], 1);
        session.click_at(150, 90);
        EXPECT_NE(menus.menu_id, MENU_DRAW) << tool;
        session.click(tool == TOOL_TEXT ? int(TEXT_SLOT_CANCEL) : int(PANEL_CANCEL));
        EXPECT_EQ(menus.menu_id, MENU_DRAW) << tool;
        EXPECT_EQ(gui.hidden[0], 1) << tool;
        session.click_at(300, 20, RIGHT_BUTTON);
        EXPECT_EQ(gui.hidden[0], 0) << tool;
    }
}

TEST_F(ShapePanels, ADragOffASliderIsNoClickOnTheCanvas)
{
    use(TOOL_RPOLY);
    session.click_at(150, 90);
    const int slider = PANEL_OWN + 1;
    session.drag(gui.x[slider] + 60, gui.y[slider] + 5, 150, 95, 6);
    EXPECT_EQ(tool_input.show_bounds, 0);
}

TEST_F(ShapePanels, SupershapeStandsStillWhileTheViewPans)
{
    use(TOOL_SSHAPE);
    shape_settings.supershape_settings = {.degrees = 0, .n1 = 200, .n2 = 200, .n3 = 200, .arms = 4, .magnitude = 0};
    session.click_at(160, 100);
    EXPECT_EQ(shown_supershape.magnitude, 100) << "0 opens as 100";
    gui.scroll_value[PANEL_OWN + 5] = 50;
    view.pan_x = 20;
    session.frame(2);
    session.click(PANEL_OKAY);
    Points points;
    Bounds bounds;
    const SupershapeSettings circle{.degrees = 0, .n1 = 200, .n2 = 200, .n3 = 200, .arms = 4, .magnitude = 50};
    plot_supershape(140, 100, circle, points, bounds);
    for (Point& p : points)
        p.x += 20;
    EXPECT_EQ(painted(), outline(points));
    EXPECT_EQ(shape_settings.supershape_settings.magnitude, 50);
}

TEST_F(ShapePanels, SpiralFollowsItsPanelAndTheMouse)
{
    use(TOOL_SPIRAL);
    shape_settings.spiral_settings = {};
    session.click_at(160, 90);
    EXPECT_EQ(gui.scroll_value[PANEL_OWN + 1], 100) << "empty values open as the first ones";
    EXPECT_EQ(gui.scroll_value[PANEL_OWN + 2], 5);
    session.click(PANEL_OWN + 4);
    session.click_at(165, 95);
    session.move(185, 95);
    EXPECT_EQ(tool_input.point_list.front(), (Point{180, 90}));
    session.click_at(185, 95);
    session.click(PANEL_OKAY);
    Points points;
    Bounds bounds;
    plot_spiral(180, 90, 0, 100, 5, 0, true, points, bounds);
    EXPECT_EQ(painted(), outline(points));
    EXPECT_EQ(shape_settings.spiral_settings.flip, 1);
}

} // namespace
} // namespace kelu
