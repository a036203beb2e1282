// SPDX-License-Identifier: MIT
// The screen that runs now, where windows are, and the line that the status bar flashes.
#pragma once

#include "base/table.h"
#include "base/words.h"
#include <array>
#include <string>
#include <string_view>

namespace kelu {

/// Values of `menu_id`. A screen's window opens from the row of `window_pos` that WindowRow names.
enum MenuId : int {
    MENU_DRAW = 0,
    MENU_PIC = 1,
    MENU_CEL = 2,
    MENU_USER = 3,
    MENU_FRAME = 4,
    MENU_BROWSER = 6,
    MENU_ABOUT = 7,
    MENU_COLOR = 8,
    MENU_RESIZE = 10,
    MENU_TIP = 11,
    MENU_TOOL = 11, ///< shares its id with the tip menu and its row with the ink menu
    MENU_INK = 13,
    MENU_SUPERSHAPE = 14,
    MENU_HOTKEYS = 15,
    MENU_OPTIONS = 16,
    MENU_TEXT = 17,
    MENU_SHEET = 19,
    MENU_DIALOG = 20, ///< dialogs and moments with no screen of their own
    MENU_WORKSPACE = 21,
    MENU_RPOLY = 22,
    MENU_SPIRAL = 23,
    MENU_JPEG_QUALITY = 24,
    MENU_FAVORITES = 26,
    MENU_SCHEME = 27,
    MENU_GRID = 28,
    MENU_MACRO = 29,
    MENU_ANIMATION = 30,
    MENU_PLAYBACK = 31,
    MENU_MOUSE = 32,
    MENU_TINT = 33,
    MENU_CEL_TRANSFORM = 34
};

/// Rows of `window_pos`.
enum WindowRow : int {
    WINDOW_NONE = -1, ///< opens at its own place every time
    WINDOW_DRAW = 0,
    WINDOW_COLUMN = 1, ///< the columns FRAME, PIC and CEL: written, never read back
    WINDOW_USER = 3,   ///< the column USER, likewise
    WINDOW_BROWSER = 6,
    WINDOW_ABOUT = 7,
    WINDOW_COLOR = 8,
    WINDOW_RESIZE = 10,
    WINDOW_TIP = 11,
    WINDOW_TOOL_AND_INK = 12,
    WINDOW_SUPERSHAPE = 14,
    WINDOW_HOTKEYS_AND_OPTIONS = 15,
    WINDOW_SHEET = 19,
    WINDOW_WORKSPACE = 21,
    WINDOW_RPOLY = 22,
    WINDOW_SPIRAL = 23,
    WINDOW_JPEG_QUALITY = 24,
    WINDOW_ZOOM_PREVIEW = 25,
    WINDOW_FAVORITES = 26,
    WINDOW_SCHEME = 27,
    WINDOW_GRID = 28,
    WINDOW_MACRO = 29,
    WINDOW_ANIMATION = 30,
    WINDOW_PLAYBACK = 31,
    WINDOW_MOUSE = 32,
    WINDOW_TINT = 33,
    WINDOW_CEL_TRANSFORM = 34,
    WINDOW_ROWS = 64
};

/// Stored place of a window, logical pixels; -1, -1: it opens at its default place.
struct WindowPos {
    int x = -1, y = -1;
};

/// A rectangle in logical pixels; x -1: none.
struct GhostRect {
    int x = -1, y = -1, w = -1, h = -1;
};

/// Owner: gui/. `menu_id` is written by every screen, `window_pos` also by the state file, `status_message` by the
/// screen that runs and, at the end of a timed one, by the logic tick.
/// Writers: loop, tools, screens.
struct Menus {
    Shared<int> menu_id = MENU_DRAW;            ///< the screen that runs
    Table<WindowPos, WINDOW_ROWS> window_pos{}; ///< main thread
    GhostRect ghost_rect{};                     ///< frozen picture of a menu, drawn dim behind a pop-up; freeze_menu
    Shared<int> status_message = 0;       ///< tooltip row that the status bar shows; 0 none, -1 the readout in any case
    int reasoned_message = 0;             ///< row of `status_message` that has a reason, 0 none; main thread
    std::string status_reason;            ///< that reason, upper case; main thread
    int status_bar_away = 0;              ///< 1: the help screen is open, and the bar would lie on its page
    Shared<int> status_message_ticks = 0; ///< logic ticks that a timed message still has, 0: it is held
};
inline Menus menus;

constexpr int message_ticks = 120; ///< logic ticks that a message shows that nobody need act upon

/// Shows row `id` of the tooltip table in the status bar for `ticks` logic ticks. A negative id is refused with a line
/// in the log.
void flash_status_message(int id, int ticks = message_ticks);
/// The same for a failure and its reason, which is behind the row's text, or in its place where both are too wide.
/// Main thread.
void flash_failure(int id, std::string_view reason);
/// The same for what has been done, with a name or a number behind it. Main thread.
void flash_done(int id, std::string_view what);
/// Counts a timed message down and takes it away at its end. Called by the logic tick.
void count_status_message();
/// No menu is frozen behind a pop-up any more.
void clear_ghost();

} // namespace kelu
