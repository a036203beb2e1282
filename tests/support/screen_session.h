// SPDX-License-Identifier: MIT
// What nearly every session on a screen looks at, and the small steps that they have in common.
#pragma once

#include "base/run_state.h"
#include "draw/ink_rows.h"
#include "gui/build.h"
#include "gui/kinds.h"
#include "gui/menus.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "gui/strings.h"
#include "gui/tooltips.h"
#include "loop/frame.h"
#include "loop/tool_loop.h"
#include "runtime/grid.h"
#include "runtime/hotkeys.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "screens/draw_menu.h"
#include "support/golden.h"
#include "support/session.h"
#include <gtest/gtest.h>

namespace kelu {

using test::RIGHT_BUTTON;
using test::Session;

namespace test {

/// Slots of the drawing menu.
enum {
    HOME_LABEL = 1,
    HOME_FRAME,
    HOME_UNDO,
    HOME_TOOL_0,
    HOME_INK_0 = 10,
    HOME_PIC = 16,
    HOME_CEL,
    HOME_USER,
    HOME_MASK,
    HOME_BRUSH,
    HOME_TIP,
    HOME_SPECTRUM,
    HOME_FAVORITE_0
};
/// Slots of the dialogs that ask.
enum { DIALOG_OKAY = 2, DIALOG_CANCEL = 3 };

inline int frame_pixel(int x, int y) { return row(store.frame_bitmap, y)[x]; }

/// A home loop, or the end of one, that shows frames and does nothing else.
inline void idle()
{
    while (run_pass({.is_home = true})) {}
}

/// The presented picture once the pointer rests at (x, y) and messages and tooltips have gone.
inline testing::AssertionResult looks_like(Session& session, const std::string& golden, int x = 5, int y = 60)
{
    session.move(x, y);
    session.frame(200);
    return matches_golden(session.picture(), golden);
}

/// Opens an entry of one of the drawing menu's columns.
inline void open_entry(Session& session, int column, int entry, int menu)
{
    session.click(column);
    session.click(entry);
    ASSERT_EQ(menus.menu_id, menu);
}

/// Types a text in the place of what a field holds.
inline void retype(Session& session, int field, const std::string& text)
{
    session.click(field);
    session.key(KEY_END);
    while (field_text_of(field)[0] != 0)
        session.key(KEY_BACKSPACE);
    session.type(text);
}

/// Runs the browser that is open to its end with a file.
inline void choose_file(Session& session, const std::string& name)
{
    session.type(name);
    session.key(KEY_ENTER);
    session.frame(4);
}

} // namespace test
} // namespace kelu
