// SPDX-License-Identifier: MIT
// The colour screens by mouse: the colour menu in its four spaces, the favourites, and picks from the screen.
#include "colour/band.h"
#include "colour/spaces.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

/// Slots of the two menus.
enum {
    TAB_VGA = 2,
    TAB_HLS = 4,
    TAB_HSV = 5,
    NUKE = 4,
    NUMBER = 5,
    FAVORITE_0 = 8,
    FOLD = 18,
    INVERT = 19,
    NAME_0 = 20,
    SLIDER_0 = 23,
    SPECTRUM = 26,
    HUE_CELL_0 = 30,
    LIGHT_CELL_0 = 44,
    MAP = 72,
    PALETTE_PANEL = 27,
    PALETTE_0 = 28,
    PALETTE_MAP = 106
};

constexpr int violet = 0x6a3fb2;

/// The same colours at every run.
void start_at_home()
{
    toolbox.brush_color = violet;
    toolbox.mask_color = 0x204060;
    for (int i = 0; i < 10; ++i)
        toolbox.favorites[static_cast<std::size_t>(i)] = 0x190f05 * (i + 1);
    for (int i = 0; i < 256; ++i)
        toolbox.extended_favorites[static_cast<std::size_t>(i)] = pack_rgb({i / 255.0, 0.5, 1 - i / 255.0});
    draw_menu();
}

std::array<int, 3> sliders()
{
    return {gui.scroll_value[SLIDER_0], gui.scroll_value[SLIDER_0 + 1], gui.scroll_value[SLIDER_0 + 2]};
}

/// A patch of one colour on the frame round a pixel that the menus don't cover.
void paint_patch(int x, int y, int color) { rectfill(store.frame_bitmap, x - 3, y - 3, x + 3, y + 3, color); }

/// The menu that edits the brush colour.
class ColorMenu : public testing::Test {
protected:
    ColorMenu() { session.click(HOME_BRUSH, RIGHT_BUTTON); }
    Session session{start_at_home};
};

class FavoritesMenu : public testing::Test {
protected:
    FavoritesMenu() { session.click(HOME_FAVORITE_0, RIGHT_BUTTON); }
    Session session{start_at_home};
};

} // namespace

TEST_F(ColorMenu, ShowsAndEditsTheBrushColor)
{
    EXPECT_TRUE(looks_like(session, "color_menu", 10, 60));

    const int red_y = gui.y[SLIDER_0] + 4;
    session.drag(gui.knob_pos[SLIDER_0][0x6a] + 3, red_y, gui.knob_pos[SLIDER_0][200] + 3, red_y);
    EXPECT_EQ(toolbox.brush_color, (gui.scroll_value[SLIDER_0] << 16 | 0x3fb2));
    session.drag(gui.knob_pos[SLIDER_0][gui.scroll_value[SLIDER_0]] + 3, red_y, 317, 40);
    EXPECT_EQ(toolbox.brush_color, 0xff3fb2) << "a knob that is dragged off the menu picks nothing from the frame";
    EXPECT_EQ(toolbox.mask_color, 0x204060);

    session.click_at(10, 60, RIGHT_BUTTON);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(gui.hidden[0], 0) << "the click that leaves the menu doesn't hide the next one";
    EXPECT_EQ(toolbox.brush_color, 0xff3fb2);
}

TEST_F(ColorMenu, TabsChangeWhatTheSlidersMean)
{
    session.click(TAB_HLS);
    EXPECT_EQ(sliders(), (std::array{0x6a, 0x3f, 0xb2})) << "values stay as numbers";
    EXPECT_EQ(toolbox.brush_color, violet) << "and the colour stays as long as no slider moves";
    EXPECT_TRUE(looks_like(session, "color_menu_hls", 10, 60));
    session.click(FAVORITE_0 + 3);
    EXPECT_EQ(sliders(), sliders_from_color(COLORSPACE_HLS, toolbox.favorites[3]));
    session.click(TAB_HSV);
    const auto [h, s, v] = sliders();
    EXPECT_EQ(toolbox.brush_color, color_from_sliders(COLORSPACE_HSV, h, s, v));
    EXPECT_TRUE(looks_like(session, "color_menu_hsv", 10, 60));
    gui.scroll_value[SLIDER_0] = 255;
    session.click(TAB_VGA);
    EXPECT_EQ(gui.scroll_value[SLIDER_0], 63);
    EXPECT_EQ(red_of(toolbox.brush_color), 252);
    session.move(gui.x[SLIDER_0] + 60, gui.y[SLIDER_0] + 4);
    session.wheel(-1);
    EXPECT_EQ(gui.scroll_value[SLIDER_0], 60) << "the wheel goes in smaller steps";
}

TEST_F(ColorMenu, MapReadsThePlaceOfTheClick)
{
    const int left = gui.x[MAP] + 1;
    const int top = gui.y[MAP] + 1;
    session.click_at(left, top);
    EXPECT_EQ(toolbox.brush_color, 0x6a0000);
    session.click_at(left + 156, top + 56);
    EXPECT_EQ(toolbox.brush_color, (0x6a0000 | 256 * 156 / 157 << 8 | 256 * 56 / 57));
    session.click(TAB_HSV);
    session.click_at(left + 80, top + 20);
    EXPECT_EQ(sliders(), (std::array{256 * 80 / 157, 256 * 156 / 157, 256 * 20 / 57}));
    session.click(TAB_VGA);
    session.click_at(left + 156, top + 56);
    EXPECT_EQ(sliders(), (std::array{63, 63, 62}));
    EXPECT_EQ(toolbox.brush_color, 0xfcfcf8);
    EXPECT_TRUE(looks_like(session, "color_menu_vga", 10, 60));
}

TEST_F(ColorMenu, VarianceStepsAwayFromTheColor)
{
    const Hls base = rgb_to_hls(violet);
    session.click(HUE_CELL_0 + 7);
    EXPECT_EQ(toolbox.brush_color, pack_rgb(hls_to_rgb({base.h + 4, base.l, base.s}))) << "first step to the right";
    const Hls next = rgb_to_hls(toolbox.brush_color);
    session.click(LIGHT_CELL_0 + 6);
    EXPECT_EQ(toolbox.brush_color, pack_rgb(hls_to_rgb({next.h, next.l + 10, next.s}))) << "lighter to the left";
    for (int i = 0; i < 3; ++i)
        session.click(LIGHT_CELL_0 + 13);
    EXPECT_EQ(toolbox.brush_color, 0) << "held at black";
}

TEST_F(ColorMenu, SpectrumFoldsInvertsAndIsPickedFrom)
{
    spectrum = {.spectrum_start = 0x102030, .spectrum_end = 0xf0e0d0, .spectrum_fold = 2};
    paint_patch(40, 40, 0x11aa22);
    paint_patch(80, 40, 0x3344ee);
    for (int i = 0; i < 3; ++i)
        session.click(FOLD);
    EXPECT_EQ(spectrum.spectrum_fold, 3);
    for (int i = 0; i < 5; ++i)
        session.click(FOLD, RIGHT_BUTTON);
    EXPECT_EQ(spectrum.spectrum_fold, 0);
    session.click(INVERT);
    EXPECT_EQ(spectrum.spectrum_start, 0xf0e0d0);
    session.click(INVERT, RIGHT_BUTTON);
    EXPECT_EQ(spectrum.spectrum_start, 0x102030);

    session.click_at(gui.x[SPECTRUM] + 1 + 13, gui.y[SPECTRUM] + 4);
    EXPECT_EQ(toolbox.brush_color, spectrum_color(0x102030, 0xf0e0d0, 0, 0.25F));

    session.click(SPECTRUM, RIGHT_BUTTON);
    EXPECT_EQ(menus.status_message, TIP_SPECTRUM_START);
    session.click_at(40, 40);
    EXPECT_EQ(menus.status_message, TIP_SPECTRUM_END);
    EXPECT_EQ(spectrum.spectrum_start, 0x102030) << "both ends change together";
    session.click_at(80, 40);
    EXPECT_EQ(menus.status_message, TIP_NONE);
    EXPECT_EQ(spectrum.spectrum_start, 0x11aa22);
    EXPECT_EQ(spectrum.spectrum_end, 0x3344ee);
    session.click(SPECTRUM, RIGHT_BUTTON);
    session.click_at(80, 40);
    session.click_at(80, 40, RIGHT_BUTTON);
    EXPECT_EQ(spectrum.spectrum_start, 0x11aa22) << "a right click gives it up";
    EXPECT_EQ(menus.menu_id, MENU_COLOR) << "and leaves the pick alone";
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

TEST_F(FavoritesMenu, ScrollsNumbersAndFillsItsPalette)
{
    paint_patch(40, 40, 0x11aa22);
    session.move(gui.x[PALETTE_0 + 14] + 4, gui.y[PALETTE_0 + 14] + 4);
    session.frame(200);
    EXPECT_TRUE(matches_golden(session.picture(), "favorites_menu"));
    session.move(10, 60);
    EXPECT_EQ(gui.list_items[NUMBER][0], 1000);

    session.click_at(gui.arrow_box[PALETTE_PANEL][2] + 3, gui.arrow_box[PALETTE_PANEL][3] + 3);
    EXPECT_EQ(gui.scroll_value[PALETTE_PANEL], 1);
    EXPECT_EQ(gui.colour[PALETTE_0], toolbox.extended_favorites[13]);
    session.click(PALETTE_0 + 5);
    EXPECT_EQ(toolbox.brush_color, toolbox.extended_favorites[18]);
    session.click(PALETTE_0 + 5, RIGHT_BUTTON);
    session.click_at(40, 40);
    EXPECT_EQ(toolbox.extended_favorites[18], 0x11aa22);
    session.click_at(gui.x[PALETTE_MAP] + 1, gui.y[PALETTE_MAP] + 1);
    EXPECT_EQ(toolbox.brush_color & 0xffff, 0);

    session.click_at(10, 60, RIGHT_BUTTON);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    session.key(KEY_P);
    EXPECT_EQ(menus.menu_id, MENU_FAVORITES);
    EXPECT_EQ(gui.scroll_value[PALETTE_PANEL], 1) << "the palette opens where it was left";
}

TEST_F(FavoritesMenu, NukeAsksBeforeItClears)
{
    session.click(NUKE);
    session.click(DIALOG_CANCEL);
    EXPECT_EQ(menus.menu_id, MENU_FAVORITES);
    EXPECT_NE(toolbox.extended_favorites[200], menu_scheme.scheme_background);
    EXPECT_EQ(sliders(), (std::array{0x6a, 0x3f, 0xb2})) << "the sliders come back as they stood";
    session.click(NUKE);
    session.click(DIALOG_OKAY);
    for (const auto& entry : toolbox.extended_favorites)
        EXPECT_EQ(entry, menu_scheme.scheme_background);
    EXPECT_EQ(toolbox.brush_color, violet);
    EXPECT_EQ(menus.ghost_rect.x, -1);
}

} // namespace kelu
