// SPDX-License-Identifier: MIT
// The map from X key codes to scancodes.
//
// Allegro's X driver names a key by the symbol on it, so that scancodes move with the user's layout. The program names
// keys by position: its hotkeys lie under the same fingers everywhere, and its text fields have a table of their own.
#include "platform/keyboard_map.h"

#include <allegro.h>
#include <array>

namespace kelu::platform {
namespace {

/// Keys whose X key codes follow each other.
struct KeyRun {
    int first_code;                   ///< X key code of the first key: the kernel's number + 8
    std::array<unsigned char, 16> at; ///< scancodes, 0 after the last
};

constexpr KeyRun key_runs[] = {
    {9,
     {KEY_ESC, KEY_1, KEY_2, KEY_3, KEY_4, KEY_5, KEY_6, KEY_7, KEY_8, KEY_9, KEY_0, KEY_MINUS, KEY_EQUALS,
      KEY_BACKSPACE, KEY_TAB}},
    {24,
     {KEY_Q, KEY_W, KEY_E, KEY_R, KEY_T, KEY_Y, KEY_U, KEY_I, KEY_O, KEY_P, KEY_OPENBRACE, KEY_CLOSEBRACE, KEY_ENTER,
      KEY_LCONTROL}},
    // The key right of L is KEY_SEMICOLON in the program's tables; the X driver would call it KEY_COLON.
    {38,
     {KEY_A, KEY_S, KEY_D, KEY_F, KEY_G, KEY_H, KEY_J, KEY_K, KEY_L, KEY_SEMICOLON, KEY_QUOTE, KEY_TILDE, KEY_LSHIFT,
      KEY_BACKSLASH}},
    {52,
     {KEY_Z, KEY_X, KEY_C, KEY_V, KEY_B, KEY_N, KEY_M, KEY_COMMA, KEY_STOP, KEY_SLASH, KEY_RSHIFT, KEY_ASTERISK,
      KEY_ALT, KEY_SPACE, KEY_CAPSLOCK}},
    {67, {KEY_F1, KEY_F2, KEY_F3, KEY_F4, KEY_F5, KEY_F6, KEY_F7, KEY_F8, KEY_F9, KEY_F10, KEY_NUMLOCK, KEY_SCRLOCK}},
    {79,
     {KEY_7_PAD, KEY_8_PAD, KEY_9_PAD, KEY_MINUS_PAD, KEY_4_PAD, KEY_5_PAD, KEY_6_PAD, KEY_PLUS_PAD, KEY_1_PAD,
      KEY_2_PAD, KEY_3_PAD, KEY_0_PAD, KEY_DEL_PAD}},
    {94, {KEY_BACKSLASH2, KEY_F11, KEY_F12}}, // the first is the key between left shift and Z, where there is one
    {104, {KEY_ENTER_PAD, KEY_RCONTROL, KEY_SLASH_PAD}},
    {108, {KEY_ALTGR}},
    {110, {KEY_HOME, KEY_UP, KEY_PGUP, KEY_LEFT, KEY_RIGHT, KEY_END, KEY_DOWN, KEY_PGDN, KEY_INSERT, KEY_DEL}},
};

} // namespace

std::string keyboard_map_text()
{
    std::string text = "[xkeymap]\n";
    for (const KeyRun& run : key_runs) {
        int code = run.first_code;
        for (const unsigned char scancode : run.at) {
            if (scancode == 0) break;
            text += "keycode" + std::to_string(code++) + " = " + std::to_string(scancode) + "\n";
        }
    }
    return text;
}

} // namespace kelu::platform
