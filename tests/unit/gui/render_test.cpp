// What painters write for themselves, and the rules that pictures don't show well.
#include "gui/render.h"

#include "gui/build.h"
#include "gui/help_layout.h"
#include "gui/key_labels.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/planes.h"
#include "gui/scroll_bar.h"
#include "gui_fixture.h"
#include "runtime/frame.h"
#include "runtime/frame_snapshot.h"
#include "runtime/random.h"
#include "support/pixel_text.h"
#include <string>
#include <vector>

namespace kelu::test {
namespace {

constexpr int desk = 0x102030;
constexpr int fill = 0xaabbcc;
constexpr int border = 0x778899;

class Render : public GuiTest {
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        screen_state.back_buffer = Bitmap(logical_w, logical_h, desk);
        frame_snapshot = {};
        plane_cache = {};
        frame_flags = {};
    }
    void TearDown() override { gui_canvas = nullptr; }
    static int at(int x, int y) { return row(screen_state.back_buffer, y)[x]; }
    /// A corner of the back buffer as text.
    static std::vector<std::string> corner(int w, int h)
    {
        const Bitmap part(w, h);
        blit(screen_state.back_buffer, part, 0, 0, 0, 0, w, h);
        return to_text(part, {{'.', desk}, {'#', fill}, {'o', border}});
    }
};

} // namespace

TEST_F(Render, PanelsHaveClippedCornersAndBoxesSquareOnes)
{
    gui_canvas = screen_state.back_buffer;
    place(1, KIND_PANEL, 1, 1, 7, 6);
    draw_panel(1, fill, border, 254);
    EXPECT_EQ(corner(9, 8), (std::vector<std::string>{
                                ".........",
                                "...ooo...",
                                "..o###o..",
                                ".o#####o.",
                                ".o#####o.",
                                "..o###o..",
                                "...ooo...",
                                ".........",
                            }));
    clear_to_color(screen_state.back_buffer, desk);
    draw_box(1, fill, border, 254); // its border takes the column x + w and the row y + h
    EXPECT_EQ(corner(9, 8), (std::vector<std::string>{
                                ".........",
                                ".oooooooo",
                                ".o######o",
                                ".o######o",
                                ".o######o",
                                ".o######o",
                                ".o######o",
                                ".oooooooo",
                            }));
}

TEST_F(Render, ARandomBorderIsAnotherGreyInEachFrame)
{
    seed_random(1);
    place(1, KIND_COLOR_PICKING, 1, 1, 10, 9);
    std::vector<int> seen;
    for (int i = 0; i < 4; ++i) {
        gui_render();
        const int grey = at(5, 1);
        EXPECT_EQ(red_of(grey), blue_of(grey));
        EXPECT_GE(red_of(grey), 32);
        EXPECT_LT(red_of(grey), 224);
        seen.push_back(grey);
    }
    EXPECT_FALSE(seen[0] == seen[1] && seen[1] == seen[2] && seen[2] == seen[3]);
}

TEST_F(Render, HigherSlotsLieOnTopAndHiddenOnesDoNot)
{
    place(1, KIND_PANEL, 10, 10, 40, 40);
    gui.colour[1] = fill;
    place(124, KIND_PANEL, 20, 20, 40, 40);
    gui.colour[124] = border;
    place(125, KIND_HIT, 0, 0, 200, 200); // a hit area shows nothing
    gui_render();
    EXPECT_EQ(at(15, 15), fill);
    EXPECT_EQ(at(30, 30), border);
    gui.hidden[124] = 1;
    gui_render();
    EXPECT_EQ(at(30, 30), fill);
    EXPECT_EQ(at(100, 100), desk);
}

TEST_F(Render, AFrozenMenuIsAPictureOfTheTable)
{
    place(0, KIND_WINDOW, 30, 40, 50, 20);
    gui.colour[0] = fill;
    const Bitmap frozen(logical_w, logical_h);
    freeze_menu(frozen);
    EXPECT_EQ(row(frozen, 45)[35], fill);
    EXPECT_EQ(row(frozen, 100)[100], mask_magenta);
    EXPECT_EQ(at(35, 45), desk);
    EXPECT_EQ(menus.ghost_rect.x, 30);
    EXPECT_EQ(menus.ghost_rect.w, 53);
    EXPECT_EQ(menus.ghost_rect.h, 21);
    clear_ghost();
    EXPECT_EQ(menus.ghost_rect.x, -1);
}

TEST_F(Render, SwatchesFollowTheToolbox)
{
    place(1, KIND_MASK_SWATCH, 10, 10, 21, 9);
    place(2, KIND_BRUSH_SWATCH, 40, 10, 21, 9);
    place(3, KIND_COLOR_CELL, 70, 10, 10, 9);
    toolbox.mask_color = 0x123456;
    toolbox.brush_color = 0x654321;
    gui.colour[3] = 0x654321;
    gui_render();
    EXPECT_EQ(gui.colour[1], 0x123456);
    EXPECT_EQ(at(12, 12), 0x123456);
    EXPECT_EQ(at(45, 14), 0x654321);
    EXPECT_EQ(at(75, 10), menu_scheme.scheme_highlight_fore);
    toolbox.brush_color = 0;
    gui_render();
    EXPECT_EQ(at(75, 10), menu_scheme.scheme_border);
}

TEST_F(Render, AnEmptyThumbnailIsABlackPanel)
{
    place(17, KIND_FRAME_NAIL, 10, 10, 42, 42);
    gui.colour[17] = -1;
    gui_render();
    EXPECT_EQ(at(30, 30), 0);
    EXPECT_EQ(at(45, 15), 0); // no number
    EXPECT_EQ(at(30, 10), menu_scheme.scheme_shadow);
}

TEST_F(Render, AColourPlaneIsMadeOnlyWhenItsInputsChange)
{
    place(1, KIND_RGB_PLANE, 10, 10, 159, 59);
    for (std::size_t i = 0; i < 3; ++i)
        gui.items[1][i] = 20 + static_cast<int>(i);
    gui.scroll_value[20] = 77;
    gui.scroll_value[21] = 100;
    gui_render();
    gui_render();
    EXPECT_EQ(plane_cache.renders, 1);
    EXPECT_EQ(at(13, 11), pack_rgb(77, static_cast<int>(256.0 / 157 * 2), 0));
    EXPECT_EQ(at(11 + 156, 13), pack_rgb(77, static_cast<int>(256.0 / 157 * 156), static_cast<int>(256.0 / 57 * 2)));
    // The cross of five pixels, at a channel of 100 across and 0 down, is left out of what the dropper reads.
    const int cross_x = 10 + 1 + static_cast<int>(157 / 256.0 * 100);
    EXPECT_EQ(at(cross_x, 11), 0xffffff);
    frame_flags.clean_render = 1;
    gui_render();
    EXPECT_NE(at(cross_x, 11), 0xffffff);
    EXPECT_EQ(plane_cache.renders, 1);
    gui.scroll_value[20] = 78;
    gui_render();
    EXPECT_EQ(plane_cache.renders, 2);
    gui.kind[1] = KIND_HSV_PLANE;
    gui_render();
    EXPECT_EQ(plane_cache.renders, 3);
}

TEST_F(Render, TheRendererBuildsKnobsThatAreNotBuilt)
{
    gui_slider(5, 100, 50, 141, 256);
    gui.x[5] = 60; // as a window's move leaves it
    forget_knob_tables(5, 1);
    gui_render();
    EXPECT_EQ(gui.knob_pos[5][0], 70);
    EXPECT_EQ(gui.arrow_box[5][0], 62);
    EXPECT_EQ(gui.knob_pos[5][knob_cross], 50);
}

TEST_F(Render, HelpPagesBreakAtBarsAndAtColumn33)
{
    HelpWalk walk("|| <- SELECT |NEXT |c21ONE TWO|c40 AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA BB |");
    std::vector<std::string> places;
    HelpWord word;
    while (walk.next(word))
        places.push_back(std::string(word.text) + "@" + std::to_string(word.column) + "," + std::to_string(word.line));
    EXPECT_EQ(places, (std::vector<std::string>{"<-@0,1", "SELECT@3,1", "NEXT@0,2", "|c21ONE@5,2", "TWO|c40@9,2",
                                                "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA@0,3", "BB@0,4"}));
    EXPECT_EQ(walk.lines(), 6);
    EXPECT_EQ(help_line_count(""), 1);
}

TEST_F(Render, OnlyAPageOf32LinesHasABar)
{
    const auto measured = [](const std::string& page) {
        gui.items[3][0] = -1;
        give_page_bar(3, page.c_str());
        return int(gui.scroll_on[3]);
    };
    std::string page = "A";
    for (int line = 2; line <= 31; ++line)
        page += " | A";
    EXPECT_EQ(measured(page), 0);
    EXPECT_EQ(gui.items[3][0], 31);
    EXPECT_EQ(measured(page + " | A"), 1);
    EXPECT_EQ(gui.scroll_max[3], 2);
    EXPECT_EQ(gui.scroll_steps[3], 2);
}

TEST_F(Render, KeysAreNamedWithTheirModifiers)
{
    EXPECT_EQ(key_label(KEY_Z), "Z");
    EXPECT_EQ(key_label(KEY_TILDE | 4096), "SHIFT+TILDE");
    EXPECT_EQ(key_label(KEY_C | 1024), "CTRL+C");
    EXPECT_EQ(key_label(KEY_C | 2048), "ALT+C");
    EXPECT_EQ(key_label(KEY_C | 1024 | 2048), "C/A+C");
    EXPECT_EQ(key_label(KEY_C | 1024 | 4096), "C/S+C");
    EXPECT_EQ(key_label(KEY_C | 2048 | 4096), "A/S+C");
    EXPECT_EQ(key_label(KEY_F12 | 1024 | 2048 | 4096), "CAS+F12");
    EXPECT_EQ(key_label(key_awaiting | 4096), "SHIFT+AWAITING INPUT");
    EXPECT_EQ(key_label(0), "UNDEFINED");
    EXPECT_EQ(key_label(500), "");
}

TEST_F(Render, AllKindsBearNonsense)
{
    // Slots of every kind and number with values that no build gives: nothing is read or written out of bounds.
    for (int kind = -1; kind < KIND_COUNT + 2; ++kind) {
        for (const int size : {0, 1, 3, 400}) {
            gui_reset_slot(1);
            place(1, kind, size - 5, 238, size, size);
            gui.colour[1] = kind;
            gui.text_id[1] = 100000;
            gui.list_rows[1] = 90;
            gui.field_visible[1] = 300;
            gui.field_scroll[1] = 300;
            gui.scroll_value[1] = -7;
            gui.scroll_on[1] = 1;
            gui_render();
        }
    }
    EXPECT_EQ(at(300, 10), desk);
}

} // namespace kelu::test
