// SPDX-License-Identifier: MIT
// What painters write for themselves, and the rules that pictures don't show well.
#include "gui/render.h"

#include "gui/build.h"
#include "gui/help_layout.h"
#include "gui/key_labels.h"
#include "gui/painters.h"
#include "gui/planes.h"
#include "gui/scroll_bar.h"
#include "gui_fixture.h"
#include "loop/frame.h"
#include "runtime/frame_flags.h"
#include "runtime/frame_snapshot.h"
#include <string>
#include <vector>

namespace kelu::test {
namespace {

constexpr int desk = 0x102030;

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
    static int at(int x, int y) { return row(screen_state.back_buffer, y)[x]; }
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
    gui.kind[1] = KIND_HSV_PLANE;
    gui_render();
    EXPECT_EQ(plane_cache.renders, 3);
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
    for (const auto& [key, label] : {std::pair<int, const char*>{KEY_Z, "Z"},
                                     {KEY_TILDE | 4096, "SHIFT+TILDE"},
                                     {KEY_C | 1024, "CTRL+C"},
                                     {KEY_C | 2048, "ALT+C"},
                                     {KEY_C | 1024 | 2048, "C/A+C"},
                                     {KEY_C | 1024 | 4096, "C/S+C"},
                                     {KEY_C | 2048 | 4096, "A/S+C"},
                                     {KEY_F12 | 1024 | 2048 | 4096, "CAS+F12"},
                                     {key_awaiting | 4096, "SHIFT+AWAITING INPUT"},
                                     {0, "UNDEFINED"},
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

} // namespace kelu::test
