// SPDX-License-Identifier: MIT
// The field editor: typing, repeat, caret and view, Tab.
#include "gui/field.h"

#include "gui/build.h"
#include "gui_fixture.h"
#include "platform/input_events.h"
#include "runtime/fonts.h"
#include <map>
#include <string>

namespace kelu::test {

class FieldTest : public GuiTest {
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
    passes(28);
    EXPECT_EQ(text(), "a");
    passes(1);
    EXPECT_EQ(text(), "aa");
    passes(4);
    EXPECT_EQ(text(), "aa");
    passes(1);
    EXPECT_EQ(text(), "aaa");
    passes(5);
    EXPECT_EQ(text(), "aaaa");
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
                             {"ab^-z", "zab", 1, 0}}) {
        set_field_text(4, "");
        for (const char* key = test.keys; *key; ++key)
            type(editing.contains(*key) ? editing.at(*key) : KEY_A + *key - 'a');
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

TEST_F(FieldTest, TabGoesRoundTheFieldsAndToTheirEnds)
{
    build_slot(field_row(9, 20, 60, 40, 4, 8), 0, 0);
    set_field_text(9, "HELLO");
    gui.field_caret[9] = 0;
    type(KEY_TAB);
    EXPECT_EQ(gui_logic.gui_key_focus, 9);
    EXPECT_EQ(gui.field_caret[9], 5);
    type(KEY_TAB);
    EXPECT_EQ(gui_logic.gui_key_focus, 4);
}

TEST_F(FieldTest, AClickPutsTheCaretBehindTheCharacter)
{
    for (const auto& [text, x, caret] : {std::tuple{"ABCD", 1, 1}, {"ABCD", 0, 0}, {"ABCD", 13, 3}, {"A", 25, 1}}) {
        set_field_text(4, text);
        click(20 + 5 + x, 24);
        EXPECT_EQ(gui.field_caret[4], caret) << text << ' ' << x;
    }
}

} // namespace kelu::test
