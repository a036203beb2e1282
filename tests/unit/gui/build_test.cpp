// SPDX-License-Identifier: MIT
// Screens from rows: places, texts. The field editor: typing, repeat, caret and view.
#include "gui/build.h"

#include "gui/field.h"
#include "gui/help_layout.h"
#include "gui/key_labels.h"
#include "gui/scheme.h"
#include "gui/text_blocks.h"
#include "gui_fixture.h"
#include "loop/actions.h"
#include "platform/input_events.h"
#include "runtime/fonts.h"
#include "runtime/hotkeys.h"
#include "screens/action_table.h"
#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <utility>

namespace kelu {
namespace {

constexpr int slot_name = 3;
constexpr SlotRow field_slots[] = {field_row(slot_name, 2, 12, 41, 4, 4)};
constexpr MenuLayout tall = {MENU_MACRO, WINDOW_MACRO, 0, 207, 122, 189, 7, field_slots};

using Build = test::FreshState;

/// A text without its colour codes.
std::string bare(std::string text)
{
    for (std::size_t code = text.find("|c"); code != std::string::npos; code = text.find("|c"))
        text.erase(code, 4);
    return text;
}

} // namespace

TEST_F(Build, AWindowOpensWhereItWasPutOrJustFits)
{
    EXPECT_EQ(fitted_origin(300, 10, 100, 20).x, 219);
    EXPECT_EQ(fitted_origin(0, 207, 319, 32).y, 207);
    EXPECT_EQ(fitted_origin(0, 10, 400, 300).x, 0);
    menus.window_pos[WINDOW_MACRO] = {10, 230}; // used as it stands
    EXPECT_EQ(build_screen(tall).y, 230);
    EXPECT_EQ(gui.y[slot_name], 242);
}

TEST_F(Build, ASlotHoldsItsCornersAndNothingBesideThem)
{
    build_slot({slot_name, 10, 20, 4, KIND_BUTTON}, 0, 0);
    const int bottom = 20 + gui.h[slot_name] - 1;
    const auto pressed = [](int x, int y) {
        pointer.mouse_press_x = static_cast<int16_t>(x);
        pointer.mouse_press_y = static_cast<int16_t>(y);
        return gui_slot_at_press();
    };
    for (const auto& [x, y] : {std::pair{10, 20}, {13, bottom}})
        EXPECT_EQ(pressed(x, y), slot_name) << x << ", " << y;
    for (const auto& [x, y] : {std::pair{9, 21}, {14, 21}, {11, 19}, {11, bottom + 1}})
        EXPECT_EQ(pressed(x, y), -1) << x << ", " << y;
    gui_caption(gui_slots - 1, 30, 40, 60, TEXT_OKAY);
    EXPECT_EQ(pressed(89, 48), gui_slots - 1);
    EXPECT_EQ(gui.kind[gui_slots - 1], KIND_BUTTON);
}

TEST_F(Build, DescriptionsFitTheirPanelAndMessagesTheStatusBar)
{
    for (const char* line : description_rows)
        EXPECT_LE(line ? std::strlen(line) : 0, 20U) << line;
    for (int row = 0; row < TIP_COUNT; ++row) {
        const std::string text = bare(tooltip_text(row));
        EXPECT_LE(text.size(), 53U) << text;
        EXPECT_FALSE(text.empty()) << row;
    }
}

TEST_F(Build, EveryTopicHasAPageThatKeepsTheRules)
{
    for (int topic = 0; topic < help_page_count - 1; ++topic) {
        const std::string page = help_pages[static_cast<std::size_t>(topic) + 1];
        EXPECT_EQ(page.rfind("|c43" + std::string(ui_strings[first_help_topic + topic]) + "|c40 | | ", 0), 0U) << page;
        EXPECT_NE(page.find(" | | HINT: "), std::string::npos) << page;
        EXPECT_GE(help_line_count(page), 8) << page;
        EXPECT_LE(help_line_count(page), 45) << page;
        EXPECT_EQ(page.rfind("|c"), page.rfind("|c40")) << "the last colour is the text's: " << page;
        HelpWalk walk(page);
        for (HelpWord word; walk.next(word);) {
            const std::string shown = bare(std::string(word.text));
            EXPECT_LE(word.column + static_cast<int>(shown.size()), help_columns) << shown;
            EXPECT_TRUE(std::ranges::all_of(shown, [](char c) { return c > ' ' && c <= '_' && c != '|' && c != '`'; }))
                << shown;
        }
    }
}

TEST_F(Build, PagesNameTheKeysThatTheProgramHas)
{
    constexpr std::pair<int, int> page_actions[] = {
        {1, ACTION_EXIT},          {1, ACTION_RAPID_EXIT},    {2, ACTION_ALPHA_TOGGLE},  {2, ACTION_ALPHA_PREVIEW},
        {5, ACTION_COLOR_MENU},    {5, ACTION_BRUSH_DROPPER}, {6, ACTION_TIP_SELECT},    {7, ACTION_TOOL_SELECT},
        {7, ACTION_BRUSH_OPTION},  {8, ACTION_CEL_GET},       {8, ACTION_CEL_CLIP},      {8, ACTION_CEL_PASTE},
        {8, ACTION_CEL_XFORM},     {9, ACTION_COPY},          {9, ACTION_PASTE},         {13, ACTION_MEASURE},
        {14, ACTION_MASK_DROPPER}, {15, ACTION_FAVORITES},    {20, ACTION_FRAME_JUMP},   {21, ACTION_NEXT},
        {21, ACTION_PREVIOUS},     {21, ACTION_FIRST},        {21, ACTION_LAST},         {21, ACTION_ANIMATE},
        {21, ACTION_PLAY},         {23, ACTION_PIC_GRID},     {24, ACTION_HIDE_MENU},    {26, ACTION_INK_SELECT},
        {26, ACTION_INK_OPTION},   {27, ACTION_INSPECT},      {30, ACTION_PIC_LOAD},     {31, ACTION_MACRO_MENU},
        {31, ACTION_MACRO_1},      {31, ACTION_MACRO_8},      {34, ACTION_ONION_TOGGLE}, {36, ACTION_REDO},
        {38, ACTION_PIC_RESTORE},  {39, ACTION_PIC_SAVE},     {49, ACTION_UNDO},
    };
    set_default_hotkeys();
    for (const auto& [page, action] : page_actions) {
        const std::string key = key_label(hotkeys.hotkey_table[static_cast<std::size_t>(action)].primary);
        const std::string text = help_pages[static_cast<std::size_t>(page)];
        const bool named = text.find("|c39" + key + "|c40") != std::string::npos;
        EXPECT_TRUE(named) << key << " on the page " << text;
    }
}

class FieldTest : public test::GuiTest {
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        font_table[FONT_WIDE].cell_w = 5;
        font_table[FONT_WIDE].advance.fill(6);
        build_slot(field_row(4, 20, 20, 40, 4, 8), 0, 0);
        gui_set_key_focus(4, true);
    }
    static std::string text(int slot = 4) { return field_text_of(slot).data(); }
    /// A key goes down for one pass and up again.
    static void type(int code, bool shift = false)
    {
        ::key[KEY_LSHIFT] = shift ? 1 : 0;
        ::key[code] = 1;
        passes(1);
        ::key[code] = 0;
        ::key[KEY_LSHIFT] = 0;
        passes(1);
    }
};

TEST_F(FieldTest, KeysGiveTheirCharacters)
{
    type(KEY_A);
    type(KEY_B, true);
    type(KEY_1, true);
    type(KEY_0);
    type(KEY_QUOTE, true);
    type(KEY_SPACE);
    ::key_shifts = KB_CAPSLOCK_FLAG;
    type(KEY_C);
    type(KEY_D, true); // capitals, not lower case
    EXPECT_EQ(text(), "aB!0\" CD");
    type(KEY_E);
    EXPECT_EQ(text(), "aB!0\" CD"); // the field is full
    EXPECT_EQ(gui.field_caret[4], 8);
}

TEST_F(FieldTest, QueuedPressesComeInTheirOrderHoweverShort)
{
    build_slot(field_row(4, 20, 20, 40, 4, 62), 0, 0);
    platform::append_key_event(KEY_Q, true); // before the field has the keys
    platform::append_key_event(KEY_Q, false);
    platform::queue_input_events();
    gui_logic.gui_key_focus = -1;
    passes(1);
    gui_set_key_focus(4, true);
    std::string typed;
    int last = 0;
    for (int i = 0; i < 60; ++i) {
        const int letter = 25 - i % 26; // backwards: a look at the keyboard by scancode would turn them round
        typed += static_cast<char>('a' + letter);
        platform::append_key_event(KEY_A + letter, true);
        platform::append_key_event(KEY_A + letter, true); // the keyboard's own repeat is no press
        platform::append_key_event(last, false);          // each overlaps the one before
        last = KEY_A + letter;
        if (i % 3 == 2) passes(1);
    }
    platform::append_key_event(KEY_LSHIFT, true);
    platform::append_key_event(KEY_SLASH, true);
    platform::append_key_event(KEY_LSHIFT, false);
    platform::append_key_event(KEY_SLASH, false);
    passes(1);
    platform::stop_input_events();
    EXPECT_EQ(text(), typed + "?");
}

TEST_F(FieldTest, AHeldKeyRepeatsAfter28PassesAndThenEvery5)
{
    gui.field_max[4] = 100;
    ::key[KEY_A] = 1;
    for (const auto& [more, typed] : {std::pair{28, "a"}, {1, "aa"}, {4, "aa"}, {1, "aaa"}, {5, "aaaa"}}) {
        passes(more);
        EXPECT_EQ(text(), typed);
    }
}

TEST_F(FieldTest, KeysEditTheTextAndMoveCaretAndView)
{
    const std::map<char, int> editing{{'<', KEY_LEFT}, {'>', KEY_RIGHT},     {'^', KEY_HOME},
                                      {'$', KEY_END},  {'-', KEY_BACKSPACE}, {'+', KEY_DEL}};
    struct Case {
        const char *keys, *text;
        int caret, scroll; ///< four characters show
    };
    for (const Case& test : {Case{"abcdef", "abcdef", 6, 2},
                             {"abcdef^", "abcdef", 0, 0},
                             {"abcdef^<", "abcdef", 0, 0},
                             {"abcdef^$", "abcdef", 6, 2},
                             {"abcdef<<<<<", "abcdef", 1, 1},
                             {"abcdef<<<<<>", "abcdef", 2, 1},
                             {"ab$>", "ab", 2, 0}, // nothing stands there
                             {"abcd<-", "abd", 2, 0},
                             {"abcd<-++", "ab", 2, 0},
                             {"ab^-z", "zab", 1, 0},
                             {"ab!c", "c", 1, 0}, // a proposal gives way to what is typed
                             {"ab!-", "", 0, 0},
                             {"ab!^c", "cab", 1, 0},
                             {"ab!$c", "abc", 3, 0}}) {
        set_field_text(4, "");
        for (const char* key = test.keys; *key; ++key)
            *key == '!' ? gui_propose_text(4) : type(editing.contains(*key) ? editing.at(*key) : KEY_A + *key - 'a');
        EXPECT_EQ(text(), test.text) << test.keys;
        EXPECT_EQ(gui.field_caret[4], test.caret) << test.keys;
        EXPECT_EQ(gui.field_scroll[4], test.scroll) << test.keys;
    }
}

TEST_F(FieldTest, EditsOutsideTheFieldAreRefused)
{
    set_field_text(4, "ABC");
    for (const auto& [slot, place] : {std::pair{4, -1}, {4, 8}, {128, 0}})
        EXPECT_FALSE(gui_insert_field(slot, 'X', place)) << slot << ' ' << place;
    gui_delete_field(4, 0);
    gui_delete_field(4, 9);
    gui_delete_field_forward(4, 8);
    gui_delete_field(-1, 1);
    EXPECT_EQ(text(), "ABC");
    gui.field_max[4] = 255; // the last byte is never written
    set_field_text(4, std::string(255, 'A').c_str());
    EXPECT_FALSE(gui_insert_field(4, 'X', 0));
    gui_delete_field_forward(4, 0);
    EXPECT_TRUE(gui_insert_field(4, 'X', 254));
    EXPECT_EQ(text().size(), 255U);
}

TEST_F(FieldTest, AClickPutsTheCaretBehindTheCharacter)
{
    for (const auto& [text, x, caret] : {std::tuple{"ABCD", 1, 1}, {"ABCD", 0, 0}, {"ABCD", 13, 3}, {"A", 25, 1}}) {
        set_field_text(4, text);
        click(20 + 5 + x, 24);
        EXPECT_EQ(gui.field_caret[4], caret) << text << ' ' << x;
    }
}

} // namespace kelu
