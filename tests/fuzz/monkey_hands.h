// SPDX-License-Identifier: MIT
// The eyes and hands of a user without a plan: the input that chooses, and pointer, buttons, wheel and keys.
#pragma once

#include "monkey_cage.h"
#include "monkey_checks.h"
#include "platform/input_events.h"
#include "support/places.h"
#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <random>

namespace kelu::test::monkey {

inline constexpr std::array words{"A.PNG", "B.GIF", "C.JPG", "D.BMP", "E.WSP", "F", "7", "255", "40", "9999", "WORD"};
inline constexpr std::array common_keys{KEY_ENTER, KEY_ESC, KEY_LEFT,      KEY_RIGHT, KEY_UP,  KEY_DOWN,  KEY_HOME,
                                        KEY_END,   KEY_0,   KEY_BACKSPACE, KEY_DEL,   KEY_TAB, KEY_SPACE, KEY_STOP};

inline const bool talks = std::getenv("KELU_MONKEY_LOG") != nullptr;
inline const long most_events = std::getenv("KELU_MONKEY_EVENTS") ? std::atol(std::getenv("KELU_MONKEY_EVENTS")) : 3000;

inline std::basic_string<uint8_t> input; // what is left of it
inline std::minstd_rand random_numbers;
inline std::string folder;
inline std::optional<Session> session;
inline int buttons = 0;         // held, as in mouse_b
inline bool disk_fails = false; // now and then

inline int below(int n)
{
    if (input.empty()) return static_cast<int>(random_numbers() % static_cast<unsigned>(n));
    const int byte = input.back();
    input.pop_back();
    return n <= 256 ? byte % n : byte * n / 256;
}

template <class List>
const auto& one_of(const List& list)
{
    return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
}

inline void note(const char* what, int a = 0, int b = 0)
{
    ++event_count;
    if (talks) std::cerr << event_count << ' ' << what << ' ' << a << ' ' << b << " menu " << menus.menu_id << '\n';
}

/// Lets frames pass. The browser may not stand among the program's own files, since a picture saved over one of them
/// is damage that the user has asked for.
inline void frames(int n)
{
    session->frame(n);
    if (disk_is_full) settle_running_work(); // so that what fails does so in the same frame each time
    frame_time += n;
    const bool browses = menus.menu_id == MENU_BROWSER && run_state.timers_locked == 0;
    if (browses && std::filesystem::current_path() == folder + "/WORKSPACE") std::filesystem::current_path(folder);
}

inline void point(int x, int y)
{
    note("point", x, y);
    ::mouse_x = std::clamp(x, 0, logical_w - 1) * screen_state.screen_scale;
    ::mouse_y = std::clamp(y, 0, logical_h - 1) * screen_state.screen_scale;
    platform::append_pointer_event({::mouse_x, ::mouse_y, buttons});
}
inline void point_anywhere() { point(below(logical_w), below(logical_h)); }
inline void point_near()
{
    point(::mouse_x / screen_state.screen_scale - 6 + below(13), ::mouse_y / screen_state.screen_scale - 6 + below(13));
}

inline void hold(int bits)
{
    note("buttons", bits);
    ::mouse_b = buttons = bits;
    platform::append_pointer_event({::mouse_x, ::mouse_y, buttons});
}

inline void key(int code, bool down)
{
    note(down ? "key" : "key up", code);
    ::key[code] = down ? -1 : 0;
    platform::append_key_event(code, down);
}

/// As when the window loses the focus.
inline void let_go()
{
    for (int code = 1; code < KEY_MAX; ++code)
        if (::key[code] != 0) key(code, false);
    if (buttons != 0) hold(0);
    frames(3);
}

inline void tap_key(int code, int with = 0)
{
    constexpr int held[][2] = {{key_control, KEY_LCONTROL}, {key_alt, KEY_ALT}, {key_shift, KEY_LSHIFT}};
    for (const bool down : {true, false}) {
        for (const auto& [bit, modifier] : held)
            if ((with & bit) != 0) key(modifier, down);
        key(code, down);
        frames(1 + below(2));
    }
}

inline void click()
{
    const int bit = one_of(std::array{1, 1, 1, 1, 1, 2, 2, 4, 8, 16});
    for (int times = below(6) == 0 ? 2 : 1; times > 0; --times) {
        frames(below(3));
        hold(buttons | bit);
        frames(below(4));
        hold(buttons & ~bit);
    }
}

inline void click_slot()
{
    std::vector<int> slots;
    for (int slot = 0; slot < gui_slots; ++slot)
        if (slot_live(slot) && gui.w[slot] > 0 && gui.h[slot] > 0) slots.push_back(slot);
    if (slots.empty()) return;
    const int slot = one_of(slots);
    point(gui.x[slot] + below(gui.w[slot]), gui.y[slot] + below(gui.h[slot]));
    click();
}

inline void drag()
{
    if (below(2) == 0) point_anywhere();
    hold(buttons | 1);
    for (int steps = 1 + below(8); steps > 0; --steps) {
        below(4) == 0 ? point_anywhere() : point_near();
        frames(below(2));
    }
    if (below(5) != 0) hold(0);
}

inline void turn_wheel()
{
    note("wheel");
    ::mouse_z = ::mouse_z + below(7) - 3;
}

/// Sizes of frames stay small: where they are typed nobody types.
inline void press_key()
{
    if (menus.menu_id != MENU_RESIZE)
        tap_key(below(2) == 0 ? one_of(common_keys) : 1 + below(last_key_code),
                below(5) == 0 ? key_control << below(3) : 0);
}

inline void type_word()
{
    if (gui_logic.gui_key_focus < 0 || menus.menu_id == MENU_RESIZE) return;
    for (const char letter : std::string_view(one_of(words)))
        tap_key(letter == '.' ? KEY_STOP : letter <= '9' ? KEY_0 + letter - '0' : KEY_A + letter - 'A');
    if (below(3) != 0) tap_key(KEY_ENTER);
}

} // namespace kelu::test::monkey
