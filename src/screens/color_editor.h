// SPDX-License-Identifier: MIT
// What the colour menu and the favourites menu share: ten favourites, the spectrum, sliders and a map, all round one
// colour that is edited in place.
#pragma once

#include "base/words.h"
#include "gui/build.h"
#include "loop/tool_loop.h"
#include <array>

namespace kelu {

/// Slots that have the same number and place in both menus; those between belong to the menu itself.
enum ColorEditorSlot : int {
    EDITOR_BRUSH = 6,
    EDITOR_MASK = 7,
    EDITOR_FAVORITE_0 = 8,
    EDITOR_FAVORITE_9 = 17,
    EDITOR_FOLD = 18,
    EDITOR_INVERT = 19,
    EDITOR_NAME_0 = 20,
    EDITOR_SLIDER_0 = 23,
    EDITOR_SPECTRUM = 26,
    EDITOR_END = 27
};
constexpr int color_sliders = 3;

/// A cell of a palette, with a click of either button.
constexpr SlotRow palette_cell_row(int slot, int x, int y)
{
    return {slot, x, y, 10, KIND_COLOR_CELL, TEXT_NONE, ACT_CLICK, ACT_RIGHT_CLICK, TIP_NEW_SLOT_COLOR};
}

/// The edited colour. Once a slider has moved from where it was at the start, the colour follows the sliders, with
/// the rounding of the colour space that is chosen.
class ColorEditor {
public:
    /// Edits `target`; the map is in slot `map_slot`.
    ColorEditor(Shared<int>& target, int map_slot);
    ColorEditor(const ColorEditor&) = delete;
    ColorEditor& operator=(const ColorEditor&) = delete;

    /// Builds the shared slots in the open window at `at`; the sliders are as they were last.
    void build(Origin at);
    /// One pass of the menu's loop: a frame, hotkeys and the shared slots. False when the menu is to be left: after a
    /// right click on no slot, a press of the menu's own `action`, or when the program ends.
    bool run_pass(int action);
    /// Takes a click on a palette cell: left takes the cell's colour, right lets the user pick a new one for the cell
    /// and its `entry`.
    void read_palette_cell(int slot, Shared<int>& entry);
    /// The colour and the sliders.
    void set_color(int color);
    /// Lets the sliders stand for another `Colorspace`. Their values stay, held to the new range.
    void set_colorspace(int colorspace);
    int color() const { return target_; }

private:
    using Sliders = std::array<int, color_sliders>;
    static Sliders read_sliders();
    void write_sliders(const Sliders& values);
    void wear_colorspace();
    void read_spectrum();
    void read_canvas();
    void read_map();
    void follow_sliders();

    Shared<int>& target_;
    int map_slot_;
    Sliders start_;        // where they were at the start
    Sliders last_;         // and in the last pass, for a menu that is built again
    bool follows_ = false; // a slider has moved
    CanvasButtons buttons_;
};

} // namespace kelu
