// SPDX-License-Identifier: MIT
// Kinds of slots in states that the sessions' screens don't show, and every use of text, as pictures.
#include "gui/build.h"
#include "gui/planes.h"
#include "gui/previews.h"
#include "gui/render.h"
#include "gui/scroll_bar.h"
#include "gui/status_bar.h"
#include "gui/text.h"
#include "gui_fixture.h"
#include "runtime/frame_snapshot.h"
#include "runtime/pixels.h"
#include "runtime/random.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "support/golden.h"
#include "support/pictures.h"
#include "support/screen_resources.h"
#include <algorithm>
#include <cstdio>
#include <cstring>
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
        frame_snapshot.caret = 1;
        clear_to_color(screen_state.back_buffer, desk);
        toolbox.brush_color = 0x3c78d2;
        toolbox.mask_color = 0x208030;
        seed_random(1);
    }

    /// Draws one slot alone, with the pointer on it or nowhere, and frees it.
    static void show(int slot, bool hovered = false)
    {
        frame_snapshot.mouse_x = hovered ? gui.x[slot] + 3 : -1;
        frame_snapshot.mouse_y = hovered ? gui.y[slot] + 3 : -1;
        gui_render();
        gui_reset_slot(slot);
    }
    static void show(const SlotRow& row, bool hovered = false) { show(build_slot(row, 0, 0), hovered); }
    static testing::AssertionResult matches(const char* name) { return matches_golden(screen_state.back_buffer, name); }
};

} // namespace

TEST_F(Gallery, LabelledPanels)
{
    const struct {
        int kind, text;
    } kinds[] = {
        {KIND_TITLE, TEXT_HOME},           {KIND_BUTTON, TEXT_OKAY},         {KIND_BUTTON_LIT, TEXT_OKAY},
        {KIND_PUSH, TEXT_CANCEL},          {KIND_PUSH_DARK, TEXT_FRAME},     {KIND_GHOST_BUTTON, TEXT_PLAY},
        {KIND_RADIO_ON, TEXT_NARROW},      {KIND_RADIO_OFF, TEXT_WIDE},      {KIND_MENU_ENTRY, TEXT_MACRO_1},
        {KIND_PLAIN_LABEL, TEXT_MOUSE},    {KIND_SCHEME_TITLE, TEXT_INVERT}, {KIND_SCHEME_LIT, TEXT_OPTIONS},
        {KIND_SCHEME_BUTTON, TEXT_ACTION}, {KIND_SCHEME_ALT, TEXT_ACTION},   {KIND_PANEL, TEXT_NONE},
        {KIND_COLOR_BOX, TEXT_NONE},       {KIND_SCHEME_PANEL, TEXT_NONE},
    };
    int y = 4;
    for (const auto& [kind, text] : kinds) {
        show(SlotRow{1, 8, y, 61, kind, text});
        show(SlotRow{1, 72, y, 61, kind, text}, true);
        y += 12;
    }
    show(caption_row(1, 8, y, 61, TEXT_WIDTH));
    store.frame_count = 7;
    show(SlotRow{1, 140, 64, 120, KIND_FRAME_COUNT});
    show(SlotRow{1, 140, 88, 120, KIND_CAPTION, TEXT_DELETE_FRAME}.inked(SET_BUTTON));
    build_slot(SlotRow{1, 140, 98, 120, KIND_PTR_LABEL}.inked(SET_HIGHLIGHT), 0, 0);
    gui.ptr[1] = "AWAITING INPUT";
    show(1);
    for (int i = 0; i < 2; ++i) {
        build_slot(SlotRow{1, 140 + 24 * i, 110, 19, KIND_ARROW_BUTTON}.high(15), 0, 0);
        gui.list_items[1][0] = 2 * i;
        show(1, i == 1);
    }
    for (int i = 0; i < 3; ++i) {
        build_slot(SlotRow{1, 140, 130 + 11 * i, 104, KIND_PROGRESS}, 0, 0);
        gui.list_items[1][0] = 50 * i;
        show(1);
    }
    EXPECT_TRUE(matches("gallery_labels"));
}

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

TEST_F(Gallery, PlanesAndTips)
{
    const int channels[3] = {20, 40, 50};
    for (int i = 0; i < 3; ++i)
        gui.scroll_value[20 + i] = channels[i];
    for (int kind = KIND_VGA_PLANE; kind <= KIND_HSV_PLANE; ++kind) {
        const int i = kind - KIND_VGA_PLANE;
        if (i == 2) { // hue, light and saturation, or hue, saturation and value, of 0 to 255
            gui.scroll_value[20] = 150;
            gui.scroll_value[21] = 130;
            gui.scroll_value[22] = 220;
        }
        build_slot(SlotRow{1, 0 + 160 * (i % 2), 60 + 62 * (i / 2), 159, kind}.high(59), 0, 0);
        for (std::size_t k = 0; k < 3; ++k)
            gui.items[1][k] = 20 + static_cast<int>(k);
        show(1);
    }
    toolbox.brush_tip = 7;
    show(SlotRow{1, 34, 212, 21, KIND_TIP_BUTTON});
    build_slot(SlotRow{1, 60, 212, 21, KIND_TIP_BUTTON}, 0, 0);
    gui.list_items[1][0] = 1;
    gui.list_items[1][1] = 10000; // none
    show(1);
    rectfill(store.tip_sheet, 0, 45, 15, 58, 0xdbdbdb);
    circlefill(store.tip_sheet, 7, 51, 5, 0x404040);
    build_slot(SlotRow{1, 264, 182, 52, KIND_CUSTOM_TIP}.high(49), 0, 0);
    gui.params[1][0] = menu_scheme.scheme_border;
    show(1);
    EXPECT_TRUE(matches("gallery_colours"));
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
