// SPDX-License-Identifier: MIT
// The colour menu by mouse, and picks from the screen.
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

enum { FAVORITE_0 = 8, SLIDER_0 = 23 };
constexpr int violet = 0x6a3fb2;

/// Brush and mask of the same colours at every run.
void start_at_home()
{
    toolbox.brush_color = violet;
    toolbox.mask_color = 0x204060;
    draw_menu();
}

/// A patch of one colour on the frame round a pixel that the menus don't cover.
void paint_patch(int x, int y, int color) { rectfill(store.frame_bitmap, x - 3, y - 3, x + 3, y + 3, color); }

/// The menu that edits the brush colour.
class ColorMenu : public testing::Test {
protected:
    ColorMenu() { session.click(HOME_BRUSH, RIGHT_BUTTON); }
    Session session{start_at_home};
};

} // namespace

TEST_F(ColorMenu, EditsTheBrushColor)
{
    const int red_y = gui.y[SLIDER_0] + 4;
    session.drag(gui.knob_pos[SLIDER_0][0x6a] + 3, red_y, gui.knob_pos[SLIDER_0][200] + 3, red_y);
    EXPECT_EQ(toolbox.brush_color, (gui.scroll_value[SLIDER_0] << 16 | 0x3fb2));
    session.drag(gui.knob_pos[SLIDER_0][gui.scroll_value[SLIDER_0]] + 3, red_y, 317, 40);
    EXPECT_EQ(toolbox.brush_color, 0xff3fb2) << "a knob that is dragged off the menu picks nothing from the frame";
    EXPECT_EQ(toolbox.mask_color, 0x204060);
}

TEST_F(ColorMenu, PicksFromTheFrameAndIntoAFavorite)
{
    paint_patch(40, 40, 0x11aa22);
    session.click_at(10, 60, RIGHT_BUTTON);
    session.click(HOME_MASK, RIGHT_BUTTON);
    ASSERT_EQ(menus.menu_id, MENU_COLOR);
    session.click_at(40, 40);
    EXPECT_EQ(toolbox.mask_color, 0x11aa22);
    EXPECT_EQ(toolbox.brush_color, violet);
    EXPECT_EQ(row(store.frame_bitmap, 40)[40], 0x11aa22) << "nothing is drawn";

    session.click(FAVORITE_0, RIGHT_BUTTON);
    EXPECT_EQ(gui.kind[FAVORITE_0], KIND_COLOR_PICKING);
    const int before = toolbox.favorites[0];
    session.click_at(40, 40, RIGHT_BUTTON);
    EXPECT_EQ(toolbox.favorites[0], before);
    EXPECT_EQ(gui.kind[FAVORITE_0], KIND_COLOR_CELL);
    session.click(FAVORITE_0, RIGHT_BUTTON);
    session.click(FAVORITE_0 + 9);
    EXPECT_EQ(toolbox.favorites[0], toolbox.favorites[9]) << "other cells can be picked from";
    EXPECT_EQ(toolbox.mask_color, 0x11aa22) << "and aren't clicked by that";
}

} // namespace kelu
