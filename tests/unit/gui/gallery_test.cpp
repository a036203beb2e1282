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
    /// The bar at the right of a list of 72 pixels.
    static void give_list_bar(int slot)
    {
        gui.scroll_max[slot] = 17;
        gui.scroll_steps[slot] = 17;
        gui.scroll_dx[slot] = 62;
        gui_set_scroll_look(slot);
        gui.scroll_on[slot] = 1;
    }
    /// A picture with a figure in it that shows where each part of it lies.
    static Bitmap painted(int w, int h)
    {
        return paint(w, h, [=](int x, int y) { return pack_rgb(x * 255 / w, y * 255 / h, (x / 8 + y / 8) % 2 * 90); });
    }
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

TEST_F(Gallery, ListsFieldsAndBars)
{
    build_slot(SlotRow{1, 88, 8, 72, KIND_SCHEME_LIST}.high(65).with(ListRows{
                   .first_text = TEXT_SCHEME_ROW_UP, .items = 3, .rows = 8, .pitch = 7, .font = 5, .width = 59}),
               0, 0);
    give_list_bar(1);
    show(1);
    // Fields.
    build_slot(field_row(1, 8, 80, 100, 14, 40), 0, 0);
    set_field_text(1, "MY |C24 TEXT");
    gui_logic.gui_key_focus = 1;
    show(1);
    build_slot(field_row(1, 8, 92, 41, 4, 4), 0, 0);
    set_field_text(1, "1");
    gui.field_error[1] = 1;
    show(1);
    build_slot(SlotRow{1, 52, 92, 100, KIND_SCHEME_FIELD, TEXT_NONE, ACT_FOCUS}.with(TextField{14, 40}), 0, 0);
    set_field_text(1, "TEXT INPUT");
    gui_logic.gui_key_focus = 1;
    show(1);
    // Sliders: both ends and the middle, the number left and right of the knob, an arrow that is held.
    static Shared<int> shown;
    for (int i = 0; i < 3; ++i) {
        gui_slider(1, 8, 110 + 12 * i, 141, 256);
        gui.scroll_value[1] = 255 * i / 2;
        show(1);
        shown = 350 * i / 2;
        gui_slider(1, 160, 110 + 12 * i, 150, 351);
        gui.scroll_value[1] = int(shown);
        gui.scroll_show[1] = &shown;
        if (i == 1) {
            gui_logic.gui_capture = 3;
            pointer.gui_hold_slot = 1;
            pointer.gui_hover_slot = 1;
        }
        show(1);
        gui_logic.gui_capture = 0;
    }
    build_slot(
        SlotRow{1, 8, 150, 304, KIND_COLOR_BOX}.high(58).with(ScrollBar{.steps = 5, .dy = 3, .horizontal = true}), 0,
        0);
    gui.scroll_value[1] = 2;
    show(1);
    EXPECT_TRUE(matches("gallery_lists"));
}

TEST_F(Gallery, Pictures)
{
    store.nail_sheet = painted(400, 400);
    store.frame_bitmap = painted(200, 150);
    store.onion_bitmap = Bitmap(200, 150, 0xffffff);
    screen_state.preview_bitmap = painted(117, 79);
    show(SlotRow{1, 4, 4, 119, KIND_PREVIEW}.high(81));
    frame_snapshot.pulse = 98;
    gui.list_items[0][0] = -1;
    const auto nail = [](int slot, int x, int frame, int tagged) {
        build_slot(SlotRow{slot, x, 4, 42, KIND_FRAME_NAIL}.high(42), 0, 0);
        gui.colour[slot] = frame;
        gui.params[slot][0] = tagged;
        show(slot);
    };
    nail(10, 130, 3, 0);
    nail(11, 174, 14, 1);
    nail(17, 218, 55, 0);
    nail(12, 262, -1, 0);
    gui.list_items[0][0] = 13;
    nail(13, 130 + 3 * 44, 99, 0);
    for (int anchor = 0; anchor < 9; anchor += 4) {
        build_slot(SlotRow{1, 4 + 30 * anchor / 4 * 3, 120, 83, KIND_SHEET_PREVIEW}.high(62), 0, 0);
        const int record[] = {anchor, 100, 200, 200, 150};
        for (std::size_t i = 0; i < 5; ++i)
            gui.items[1][i] = record[i];
        show(1);
    }
    EXPECT_TRUE(matches("gallery_pictures"));
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
