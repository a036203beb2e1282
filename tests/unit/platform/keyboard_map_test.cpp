// SPDX-License-Identifier: MIT
// The positional map as Allegro's configuration reads it.
#include "platform/keyboard_map.h"
#include <allegro.h>
#include <gtest/gtest.h>
#include <map>

namespace kelu::platform {
namespace {

TEST(KeyboardMap, NoTwoKeysShareAScancode)
{
    const std::string text = keyboard_map_text();
    push_config_state();
    set_config_data(text.c_str(), static_cast<int>(text.size()));
    std::map<int, int> key_of; // scancode to key code
    for (int code = 8; code < 256; ++code) {
        const int scancode = get_config_int("xkeymap", ("keycode" + std::to_string(code)).c_str(), 0);
        if (scancode == 0) continue;
        EXPECT_TRUE(key_of.emplace(scancode, code).second) << "scancode " << scancode;
    }
    pop_config_state();
    // Rows of a PC keyboard by their ends, and the key that the driver and the program name differently.
    EXPECT_EQ(key_of[KEY_TAB], 23);
    EXPECT_EQ(key_of[KEY_P], 33);
    EXPECT_EQ(key_of[KEY_L], 46);
    EXPECT_EQ(key_of[KEY_SEMICOLON], 47);
    EXPECT_EQ(key_of[KEY_SLASH], 61);
    EXPECT_EQ(key_of[KEY_F10], 76);
    EXPECT_EQ(key_of[KEY_DEL_PAD], 91);
    EXPECT_EQ(key_of[KEY_DEL], 119);
    EXPECT_EQ(key_of.size(), 100U);
}

} // namespace
} // namespace kelu::platform
