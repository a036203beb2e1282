// SPDX-License-Identifier: MIT
// Windows in states that the sessions' screens don't show, and every use of text, as pictures.
#include "gui/build.h"
#include "gui/render.h"
#include "gui/text.h"
#include "gui_fixture.h"
#include "runtime/frame_snapshot.h"
#include "runtime/pixels.h"
#include "support/golden.h"
#include "support/pictures.h"
#include "support/screen_resources.h"
#include <algorithm>
#include <cstdio>
#include <string>

namespace kelu::test {
namespace {

constexpr int desk = 0x5c6a78;

class Gallery : public GuiTest {
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        load_screen_resources();
        frame_snapshot = {};
        frame_snapshot.mouse_x = frame_snapshot.mouse_y = -1;
        clear_to_color(screen_state.back_buffer, desk);
    }

    /// Draws one slot alone and frees it.
    static void show(int slot)
    {
        gui_render();
        gui_reset_slot(slot);
    }
    static testing::AssertionResult matches(const char* name) { return matches_golden(screen_state.back_buffer, name); }
};

} // namespace

TEST_F(Gallery, WindowsAreSquareStripedTranslucentOrDashed)
{
    const auto window = [](int x, int stripes, int opacity, int state) {
        build_slot(SlotRow{0, x, 20, 60, KIND_WINDOW}.high(50), 0, 0);
        gui.stripes[0] = stripes;
        gui.opacity[0] = opacity;
        gui.frame_state[0] = state;
        show(0);
    };
    window(10, 0, 254, 0);
    window(80, 40, 254, 0);
    window(150, 0, 120, 0);
    window(220, 0, 254, 2);
    preferences.backless_mode = 1;
    window(285, 0, 254, 0); // no panel
    EXPECT_EQ(row(screen_state.back_buffer, 30)[290], desk);
    build_slot(SlotRow{1, 10, 90, 60, KIND_BUTTON, TEXT_OKAY}, 0, 0);
    gui.frame_state[1] = 2;
    show(1);
    EXPECT_TRUE(matches("gallery_windows"));
}

TEST_F(Gallery, CodesChangeTheColourForGoodAndTextIsCutAtTheRim)
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

TEST_F(Gallery, TheWholeOfBothFonts)
{
    std::string line;
    int y = 4;
    for (int font : {FONT_WIDE, FONT_NARROW}) {
        for (int code = 32; code < 127; code += 32) {
            line.clear();
            for (int c = code; c < std::min(code + 32, 127); ++c)
                line += static_cast<char>(c);
            set_plain_text(font, SET_LIGHT);
            draw_text(screen_state.back_buffer, 4, y, line.c_str());
            y += 9;
        }
        set_plain_text(font, SET_BUTTON);
        draw_text(screen_state.back_buffer, 4, y, "SIX JOLLY WIZARDS QUIT: BACK VEXING 0O 1Il 5S 8B");
        y += 9;
        draw_text(screen_state.back_buffer, 4, y, "The quick brown fox jumps over a lazy dog, again!");
        y += 9;
        draw_text(screen_state.back_buffer, 4, y, "\x1a \x1b \x1c \x1d \x1e");
        y += 12;
    }
    for (int set = 0; set < text_set_count; ++set) {
        if (set != 0 && text_colours[static_cast<std::size_t>(set)][0] == marker_stays) continue;
        char text[16];
        std::snprintf(text, sizeof text, "SET %02d", set);
        static int place;
        if (set == 0) place = 0;
        set_plain_text(FONT_WIDE, set);
        draw_text(screen_state.back_buffer, 4 + place % 7 * 45, y + place / 7 * 9, text);
        ++place;
    }
    y += 6 * 9;
    const TextStyle modes[] = {
        {FONT_WIDE, SET_MESSAGE},
        {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .shadow = 1, .shadow_colour = 9},
        {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .shadow = 2, .shadow_colour = 128},
        {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .shadow = 3, .shadow_colour = 9},
        {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .outline = 1},
        {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .mode = 1, .opacity = 96},
        {.slot = FONT_WIDE, .colour_set = SET_MESSAGE, .mode = -2, .opacity = 96},
    };
    int x = 4;
    for (const TextStyle& style : modes) {
        set_text(style);
        draw_text(screen_state.back_buffer, x, y, "SHADES");
        x += 45;
    }
    EXPECT_TRUE(matches("gallery_text"));
}

} // namespace kelu::test
