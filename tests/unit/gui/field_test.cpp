// The field editor: typing, repeat, caret and view, Tab.
#include "gui/field.h"

#include "gui/build.h"
#include "gui_fixture.h"
#include "runtime/fonts.h"
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
    static void type_letters(int count)
    {
        for (int i = 0; i < count; ++i)
            type(KEY_A + i);
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

TEST_F(FieldTest, TheViewFollowsTheCaret)
{
    type_letters(6); // 4 characters show
    EXPECT_EQ(gui.field_scroll[4], 2);
    type(KEY_HOME);
    EXPECT_EQ(gui.field_caret[4], 0);
    EXPECT_EQ(gui.field_scroll[4], 0);
    type(KEY_LEFT);
    EXPECT_EQ(gui.field_caret[4], 0);
    type(KEY_END);
    EXPECT_EQ(gui.field_caret[4], 6);
    EXPECT_EQ(gui.field_scroll[4], 2);
    for (int i = 0; i < 5; ++i)
        type(KEY_LEFT);
    EXPECT_EQ(gui.field_caret[4], 1);
    EXPECT_EQ(gui.field_scroll[4], 1);
    type(KEY_RIGHT);
    EXPECT_EQ(gui.field_caret[4], 2);
    set_field_text(4, "AB");
    type(KEY_END);
    EXPECT_EQ(gui.field_scroll[4], 0);
    type(KEY_RIGHT);
    EXPECT_EQ(gui.field_caret[4], 2); // nothing stands there
}

TEST_F(FieldTest, BothDeletesTakeOneCharacter)
{
    type_letters(4);
    type(KEY_LEFT);
    type(KEY_BACKSPACE);
    EXPECT_EQ(text(), "abd");
    EXPECT_EQ(gui.field_caret[4], 2);
    type(KEY_DEL);
    EXPECT_EQ(text(), "ab");
    type(KEY_DEL);
    EXPECT_EQ(text(), "ab");
    type(KEY_HOME);
    type(KEY_BACKSPACE);
    EXPECT_EQ(text(), "ab");
    type(KEY_Z);
    EXPECT_EQ(text(), "zab");
}

TEST_F(FieldTest, EditsOutsideTheFieldAreRefused)
{
    set_field_text(4, "ABC");
    EXPECT_FALSE(gui_insert_field(4, 'X', -1));
    EXPECT_FALSE(gui_insert_field(4, 'X', 8));
    EXPECT_FALSE(gui_insert_field(128, 'X', 0));
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

TEST_F(FieldTest, EnterRaisesTheEventAndKeepsTheFocus)
{
    type(KEY_ENTER_PAD);
    EXPECT_EQ(gui.event[4].take(), 1);
    EXPECT_EQ(gui_logic.gui_key_focus, 4);
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
    set_field_text(4, "ABCD");
    click(20 + 5 + 1, 24);
    EXPECT_EQ(gui.field_caret[4], 1);
    click(20 + 5, 24);
    EXPECT_EQ(gui.field_caret[4], 0);
    click(20 + 5 + 13, 24);
    EXPECT_EQ(gui.field_caret[4], 3);
    set_field_text(4, "A");
    click(20 + 5 + 25, 24);
    EXPECT_EQ(gui.field_caret[4], 1);
}

TEST_F(FieldTest, AFontWithoutWidthCostsOnlyTheCaret)
{
    gui_logic.gui_key_focus = -1;
    set_field_text(4, "ABCD");
    gui.field_font[4] = 9;
    gui_set_key_focus(4, true);
    EXPECT_EQ(gui_logic.gui_key_focus, 4);
}

} // namespace kelu::test
