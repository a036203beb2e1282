// SPDX-License-Identifier: MIT
// What painters write for themselves, the rules that pictures don't show well, the styles of text, and windows in
// states that the sessions' screens don't show. Where the status bar stands and what it says.
#include "gui/render.h"

#include "gui/build.h"
#include "gui/help_layout.h"
#include "gui/key_labels.h"
#include "gui/painters.h"
#include "gui/planes.h"
#include "gui/scroll_bar.h"
#include "gui/status_bar.h"
#include "gui/text.h"
#include "gui/tooltips.h"
#include "gui_fixture.h"
#include "runtime/frame_flags.h"
#include "runtime/frame_snapshot.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "support/golden.h"
#include "support/pictures.h"
#include "support/screen_resources.h"
#include <string>
#include <vector>

namespace kelu::test {
namespace {

constexpr int desk = 0x5c6a78;

class Render : public GuiTest {
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        load_screen_resources();
        screen_state.back_buffer = Bitmap(logical_w, logical_h, desk);
        frame_snapshot = {};
        frame_snapshot.mouse_x = frame_snapshot.mouse_y = -1;
        plane_cache = {};
    }
    static int at(int x, int y) { return row(screen_state.back_buffer, y)[x]; }
};

/// With a menu at the bottom of the screen.
class StatusBar : public Render {
protected:
    void SetUp() override
    {
        Render::SetUp();
        frame_snapshot.mouse_x = frame_snapshot.mouse_y = 100;
        place(0, KIND_WINDOW, 0, 207, 319, 32);
    }
    /// The bar's first line, -1 when there is none.
    static int drawn_at()
    {
        clear_to_color(screen_state.back_buffer, desk);
        draw_status_bar();
        for (int y = 0; y < logical_h; ++y) {
            if (row(screen_state.back_buffer, y)[310] != desk) return y;
        }
        return -1;
    }
};

} // namespace

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
}

TEST_F(Render, HelpPagesBreakAtBarsAndAtColumn33)
{
    HelpWalk walk("|| <- SELECT |NEXT |c21ONE TWO|c40 AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA BB|cX9 Ac12 |c33 C |");
    std::vector<std::string> places;
    HelpWord word;
    while (walk.next(word))
        places.push_back(std::string(word.text) + "@" + std::to_string(word.column) + "," + std::to_string(word.line));
    EXPECT_EQ(places, (std::vector<std::string>{"<-@0,1", "SELECT@3,1", "NEXT@0,2", "|c21ONE@5,2", "TWO|c40@9,2",
                                                "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA@0,3", "BB|cX9@0,4", "Ac12@7,4",
                                                "|c33@12,4", "C@12,4"}));
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
    for (const auto& [key, label] : {std::pair<int, const char*>{KEY_C | 2048, "ALT+C"},
                                     {KEY_C | 1024 | 2048, "C/A+C"},
                                     {KEY_C | 1024 | 4096, "C/S+C"},
                                     {KEY_C | 2048 | 4096, "A/S+C"},
                                     {KEY_F12 | 1024 | 2048 | 4096, "CAS+F12"},
                                     {key_awaiting | 4096, "SHIFT+AWAITING INPUT"},
                                     {KEY_MAX, ""},
                                     {500, ""}})
        EXPECT_EQ(key_label(key), label);
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

TEST_F(Render, CodesChangeTheColourForGoodAndTextIsCutAtTheRim)
{
    set_plain_text(FONT_WIDE, SET_LIGHT);
    EXPECT_EQ(text_width("|c21A"), text_width("A"));
    EXPECT_EQ(text_pen.text_colour_set, SET_LIGHT) << "whoever measures leaves the pen alone";
    EXPECT_EQ(draw_text(nullptr, text_measure, 0, "|c24AA|c21A"), text_width("AAA"));
    EXPECT_EQ(text_pen.text_colour_set, 21);
    draw_text(nullptr, text_measure, 0, "|cxx");
    EXPECT_EQ(text_pen.text_colour_set, 0);
    EXPECT_GT(text_width("A|c"), text_width("A")) << "cut short it is no code";

    const Bitmap whole(60, 20, desk), part(40, 8, desk), expected(40, 8);
    set_outlined_text(FONT_WIDE, SET_MESSAGE);
    draw_text(whole, 5, 5, "CUT OFF");
    draw_text(part, 5 - 8, 5 - 7, "CUT OFF");
    blit(whole, expected, 8, 7, 0, 0, 40, 8);
    EXPECT_EQ(difference(part, expected), "");
    draw_text(part, 321, 241, "AAA");
    BITMAP* pictures[] = {expected};
    EXPECT_FALSE(load_font(9, pictures)) << "no picture of a font";
    EXPECT_FALSE(load_font(16, pictures)) << "no such font";
    set_plain_text(9, SET_MESSAGE);
    draw_text(part, 0, 0, "A");
    EXPECT_EQ(difference(part, expected), "");
}

TEST_F(Render, TextStylesAndStripesLookAsTheyDid)
{
    int x = 4;
    for (const TextStyle& style : {TextStyle{FONT_WIDE, SET_MESSAGE},
                                   {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .shadow = 1, .shadow_colour = 9},
                                   {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .shadow = 2, .shadow_colour = 128},
                                   {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .shadow = 3, .shadow_colour = 9},
                                   {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .outline = 1},
                                   {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .mode = 1, .opacity = 96},
                                   {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .mode = -2, .opacity = 96}}) {
        set_text(style);
        draw_text(screen_state.back_buffer, x, 4, "SHADES");
        x += 45;
    }
    build_slot(SlotRow{0, 60, 205, 90, KIND_WINDOW}.high(20), 0, 0);
    gui.stripes[0] = 40;
    gui.opacity[0] = 120;
    for (int direction = 0; direction < 3; ++direction) {
        build_slot(SlotRow{1 + direction, 200 + 20 * direction, 205, 15, KIND_ARROW_BUTTON}.high(15), 0, 0);
        gui.list_items[1 + direction][0] = direction;
    }
    gui_render();
    EXPECT_TRUE(matches_golden(screen_state.back_buffer, "gallery"));
}

TEST_F(StatusBar, ItGetsOutOfTheWayAndHides)
{
    struct Row {
        int menu_y, mouse_y, hidden, on, message, bar_y;
    };
    // Just above a menu that fills the bottom, at the bottom below a higher one, and just below a menu at the top. With
    // a hidden menu, or when it is off, it shows where a tool asks, or in any case.
    for (const Row& row : {Row{207, 100, 0, 1, 0, 0},
                           {207, 6, 0, 1, 0, 200},
                           {100, 6, 0, 1, 0, 233},
                           {3, 6, 0, 1, 0, 233},
                           {3, 233, 0, 1, 0, 3 + 32 + 1},
                           {207, 100, 1, 1, 0, -1},
                           {207, 100, 1, 1, TIP_GRAB_FIRST, 0},
                           {207, 100, 1, 1, -1, 0},
                           {207, 100, 0, 0, -1, 0},
                           {207, 100, 0, 0, 0, -1}}) {
        gui.y[0] = row.menu_y;
        frame_snapshot.mouse_y = row.mouse_y;
        gui.hidden[0] = row.hidden;
        preferences.status_bar_on = row.on;
        frame_snapshot.status_message = row.message;
        EXPECT_EQ(drawn_at(), row.bar_y) << row.menu_y << ' ' << row.mouse_y << ' ' << row.message;
    }
    run_state.exit_requested = 1;
    preferences.status_opacity = 255; // held below solid
    EXPECT_EQ(drawn_at(), 0) << "the end waits for the user, whatever the option says";
    EXPECT_EQ(row(screen_state.back_buffer, 0)[245], blend_pixel(desk, 0, 254));
    frame_snapshot.mouse_y = 233;
    gui_reset_slot(0);
    EXPECT_EQ(drawn_at(), 0);
}

TEST_F(StatusBar, MessagesBeforeTooltipsBeforeTheReadout)
{
    const Bitmap lines(logical_w, 90, desk);
    store.current_frame = 7;
    frame_snapshot.frame_mouse_x = -12;
    frame_snapshot.frame_mouse_y = 345;
    gui.tooltip[0] = TIP_BRUSH_TIP;
    struct Row {
        int tooltips, tooltip_slot, message, onion, wide;
        uint8_t alpha;
    };
    constexpr Row rows[] = {{0, 0, 0, 0, 1, 0},
                            {1, 0, 0, 0, 1, 0},
                            {1, 0, -1, 0, 1, 0},
                            {1, 0, TIP_NOW_FILLED, 0, 1, 0},
                            {1, -1, 0, 1, 1, 0},
                            {1, -1, 0, 1, 0, 0},
                            {1, -1, 0, 1, 0, 1},
                            {1, -1, 0, 1, 1, 1},
                            {1, -1, TIP_CEL_XFORM, 1, 1, 1}};
    for (int y = 0; const Row& row : rows) {
        preferences.tooltips_on = row.tooltips;
        frame_snapshot.tooltip_slot = row.tooltip_slot;
        frame_snapshot.status_message = row.message;
        view.onion_on = row.onion;
        store.alpha_edit_mode = row.alpha;
        preferences.status_font = row.wide;
        drawn_at();
        blit(screen_state.back_buffer, lines, 0, 0, 0, y, logical_w, status_bar_h);
        y += 9;
    }
    EXPECT_TRUE(matches_golden(lines, "status_bar"));
}

} // namespace kelu::test
