// SPDX-License-Identifier: MIT
// What the loops of the cel operations share.
#pragma once

#include "draw/cel.h"
#include "draw/point_list.h"
#include "gui/build.h"
#include <array>
#include <optional>

namespace kelu {

/// Waits for a click on the canvas under a status message: its frame position, not on the grid; empty when the right
/// button cancelled it or the program ends.
std::optional<Point> ask_point(int message);

/// A floating cel from its first preview to its end: the overlay is in use, and the place is reset in the end.
class FloatingCel {
public:
    FloatingCel(int mode, Point at);
    ~FloatingCel();
    FloatingCel(const FloatingCel&) = delete;
    FloatingCel& operator=(const FloatingCel&) = delete;
};

/// Moves the floating cel with the snapped pointer until a click. The left button drops it, false; the right one drops
/// and anchors it, true.
bool cel_drag();

/// Puts the floating cel into the frame as one operation, in the way of `mode`.
void anchor_cel(int mode, bool undoable);

/// A view position of a frame position, and the pointer in view coordinates.
Point in_view(Point frame);
Point mouse_in_view();

/// Moves the view so that a frame position is in its middle, as far as the pan may go.
void center_view_on(Point frame);

/// The window that offers a way back when what is being placed has left the view. The drawing menu's slots give way to
/// it and come back, hidden if they were, unless the operation has put the menu away before.
class OffscreenWindow {
public:
    OffscreenWindow(int title, int first, int second) : texts_{title, first, second} {}
    ~OffscreenWindow() { close(); }
    OffscreenWindow(const OffscreenWindow&) = delete;
    OffscreenWindow& operator=(const OffscreenWindow&) = delete;

    /// Opens the window or closes it again. To be called once a pass.
    void show(bool needed);
    /// True when the first or the second button has been clicked since the last call.
    bool first_clicked() const;
    bool second_clicked() const;

private:
    void open();
    void close();
    std::array<int, 3> texts_;
    bool is_open_ = false;
    bool menu_stood_ = false, menu_was_hidden_ = false;
    int menu_before_ = MENU_DRAW;
};

} // namespace kelu
