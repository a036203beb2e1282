// SPDX-License-Identifier: MIT
// A clean table of slots, and a pointer, buttons and wheel that tests move by hand.
#pragma once

#include "base/run_state.h"
#include "gui/field.h"
#include "gui/kinds.h"
#include "gui/logic.h"
#include "gui/menus.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "runtime/clock.h"
#include "runtime/input.h"
#include "runtime/preferences.h"
#include "support/fresh_state.h"
#include <allegro.h>

namespace kelu::test {

class GuiTest : public FreshState {
protected:
    void SetUp() override
    {
        preferences.mouse_swap = 0;
        field_keys = {};
        logic_hooks = {};
        run_state.gui_active = 1;
        run_state.gui_clicks_enabled = 1;
        ::mouse_b = 0;
        point(0, 0);
        ::mouse_z = 0;
        ::key_shifts = 0;
        for (int code = 0; code < KEY_MAX; ++code)
            ::key[code] = 0;
    }

    static int place(int slot, int kind, int x, int y, int w, int h)
    {
        gui.kind[slot] = kind;
        gui.x[slot] = x;
        gui.y[slot] = y;
        gui.w[slot] = w;
        gui.h[slot] = h;
        gui.active[slot] = 1;
        return slot;
    }
    static void point(int x, int y)
    {
        ::mouse_x = x * screen_state.screen_scale;
        ::mouse_y = y * screen_state.screen_scale;
        poll_mouse_buttons();
    }
    static void passes(int n)
    {
        while (n-- > 0)
            gui_logic_tick();
    }
    /// A press and release of buttons (bit 0 left, bit 1 right) at one place.
    static void click(int x, int y, int buttons = 1)
    {
        point(x, y);
        press(buttons);
        press(0);
    }
    static void press(int buttons)
    {
        ::mouse_b = buttons;
        passes(1);
    }
};

} // namespace kelu::test
