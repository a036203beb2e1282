// SPDX-License-Identifier: MIT
// The hotkey screen, its remap dialog, and the mouse button screen, by mouse and keys.
#include "support/screen_session.h"

#include "runtime/view.h"

namespace kelu {

using namespace test;

namespace {

enum { KEYS_ENTRY = 3, BUTTONS_ENTRY = 4 };
enum { CELL_0 = 6, KEYS_OKAY = 25, KEYS_DEFAULTS = 26, KEYS_CANCEL = 27 };
enum { MOUSE_OKAY = 13, MOUSE_CANCEL = 15, FUNCTION_1 = 16, FUNCTION_LIST = 2 };

int primary(int action) { return hotkeys.hotkey_table[static_cast<std::size_t>(action)].primary; }
int alternate(int action) { return hotkeys.hotkey_table[static_cast<std::size_t>(action)].alternate; }

void open_keys(Session& session) { open_entry(session, HOME_USER, KEYS_ENTRY, MENU_HOTKEYS); }

void open_buttons(Session& session) { open_entry(session, HOME_USER, BUTTONS_ENTRY, MENU_MOUSE); }

} // namespace

TEST(HotkeyMenu, RemapsAndClearsKeys)
{
    Session session;
    open_keys(session);
    session.click(CELL_0 + 1);
    session.key(KEY_PAUSE);
    session.key(KEY_K, {KEY_LCONTROL, KEY_LSHIFT});
    session.click(DIALOG_OKAY);
    EXPECT_EQ(alternate(ACTION_CEL_GET), KEY_K + key_control + key_shift);
    session.click(CELL_0 + 1);
    session.key(KEY_J);
    session.click(DIALOG_CANCEL);
    EXPECT_EQ(alternate(ACTION_CEL_GET), KEY_K + key_control + key_shift) << "a cancelled dialog changes nothing";
    session.click(CELL_0 + 2, RIGHT_BUTTON);
    EXPECT_EQ(primary(ACTION_CEL_CLIP), 0);
    session.click(KEYS_DEFAULTS);
    EXPECT_EQ(primary(ACTION_CEL_CLIP), KEY_TAB);
    EXPECT_EQ(alternate(ACTION_CEL_GET), 0);
    gui.scroll_value[FUNCTION_LIST] = gui.scroll_steps[FUNCTION_LIST] - 1;
    session.click(CELL_0 + 16);
    session.key(KEY_K, {KEY_LCONTROL, KEY_LSHIFT});
    session.click(DIALOG_OKAY);
    EXPECT_EQ(primary(ACTION_LIST_END - 1), KEY_K + key_control + key_shift) << "every action is in reach";
    session.click(KEYS_OKAY);
}

TEST(HotkeyMenu, DoublesAreRedAndAskedFor)
{
    Session session;
    open_keys(session);
    session.click(CELL_0 + 1);
    session.key(KEY_TAB);
    session.click(DIALOG_OKAY);
    session.move(5, 60);
    EXPECT_EQ(gui.colour[CELL_0 + 1], warning_red);
    EXPECT_EQ(gui.colour[CELL_0 + 2], warning_red) << "both of a pair";
    EXPECT_EQ(gui.colour[CELL_0], menu_scheme.scheme_background);
    session.click(KEYS_OKAY);
    session.click(DIALOG_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(alternate(ACTION_CEL_GET), KEY_TAB) << "doubles are allowed after the question";
}

TEST(HotkeyMenu, WaitsForAKeyWithItsModifiersSpeltOutAndPansNothing)
{
    constexpr int label_slot = 4, cancel_slot = 3;
    Session session;
    open_keys(session);
    session.click(CELL_0);
    session.key(KEY_K, {KEY_LCONTROL, KEY_ALT});
    EXPECT_STREQ(gui.ptr[label_slot], "CTRL+ALT+K");
    const int pan = view.pan_x;
    session.hold_key(KEY_RIGHT);
    session.frame(30);
    session.release_key(KEY_RIGHT);
    EXPECT_EQ(view.pan_x, pan);
    session.click(cancel_slot);
    session.click(KEYS_CANCEL);
    session.hold_key(KEY_RIGHT);
    session.frame(30);
    EXPECT_NE(view.pan_x, pan) << "behind the screens the key pans again";
}

TEST(HotkeyMenu, KeysOfTheAnimationComeBackAtTheNextStart)
{
    Session session;
    hotkeys.hotkey_table[ACTION_ANIMATION_SAVE].primary = KEY_K;
    hotkeys.hotkey_table[ACTION_ANIMATION_LOAD].alternate = KEY_L + key_shift;
    session.restart();
    EXPECT_EQ(alternate(ACTION_ANIMATION_LOAD), KEY_L + key_shift);
    session.key(KEY_K);
    EXPECT_EQ(menus.status_message, TIP_NO_TAGGED_FRAMES);
}

TEST(MouseMenu, MapsButtonsAndInsistsOnAcceptAndCancel)
{
    Session session;
    open_buttons(session);
    session.click(MOUSE_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW) << "the first map holds accept and cancel";
    open_buttons(session);
    session.click(FUNCTION_1 + 1);
    session.click_at(gui.x[FUNCTION_LIST] + 10, gui.y[FUNCTION_LIST] + 4);
    EXPECT_EQ(hotkeys.mouse_button_map[1], 0) << "the list's first row is unmapped";
    session.click(MOUSE_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DIALOG) << "nothing cancels any more";
    session.click(DIALOG_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_MOUSE);
    session.click(MOUSE_CANCEL);
    EXPECT_EQ(hotkeys.mouse_button_map[1], 1) << "back to the map from before";
}

} // namespace kelu
