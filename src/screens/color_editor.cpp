// SPDX-License-Identifier: MIT
// The shared slots, and how clicks on them and sliders reach the colour.
#include "screens/color_editor.h"

#include "colour/band.h"
#include "colour/spaces.h"
#include "gui/planes.h"
#include "gui/scheme.h"
#include "gui/scroll_bar.h"
#include "loop/freeze.h"
#include "runtime/color_settings.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/toolbox.h"
#include "screens/screen_pick.h"
#include <algorithm>
#include <utility>

namespace kelu {
namespace {

constexpr int favorites_per_row = 5;

/// What a colour space makes of the sliders.
struct SliderRange {
    std::array<int, color_sliders> names; ///< texts
    int steps, wheel;
};
constexpr SliderRange slider_ranges[COLORSPACE_COUNT] = {
    {{TEXT_LETTER_R, TEXT_LETTER_G, TEXT_LETTER_B}, 64, 3},
    {{TEXT_LETTER_R, TEXT_LETTER_G, TEXT_LETTER_B}, 256, 10},
    {{TEXT_LETTER_H, TEXT_LETTER_L, TEXT_LETTER_S}, 256, 10},
    {{TEXT_LETTER_H, TEXT_LETTER_S, TEXT_LETTER_V}, 256, 10},
};

constexpr std::array fixed_rows{
    SlotRow{EDITOR_BRUSH, 82, 12, 21, KIND_PANEL},
    SlotRow{EDITOR_MASK, 82, 2, 21, KIND_MASK_SWATCH},
    SlotRow{EDITOR_FOLD, 82, 22, 10, KIND_PUSH_DARK, TEXT_LETTER_F, ACT_CLICK, ACT_RIGHT_CLICK, TIP_FOLD},
    SlotRow{EDITOR_INVERT, 93, 22, 10, KIND_PUSH_DARK, TEXT_LETTER_I, ACT_CLICK, ACT_CLICK, TIP_INVERT},
    SlotRow{EDITOR_SPECTRUM, 104, 22, 54, KIND_SPECTRUM, TEXT_NONE, ACT_CLICK, ACT_RIGHT_CLICK, TIP_SPECTRUM_OR_NEW},
};

void show_swatches()
{
    gui.colour[EDITOR_BRUSH] = int(toolbox.brush_color);
    gui.colour[EDITOR_MASK] = int(toolbox.mask_color);
}

Shared<int>& favorite_of(int slot) { return toolbox.favorites[slot - EDITOR_FAVORITE_0]; }

/// Gives a slider the range of a colour space.
void set_range(int slot, const SliderRange& range)
{
    // The value is held first, so that the logic tick never meets one beyond its range.
    gui.scroll_value[slot] = std::min<int>(gui.scroll_value[slot], range.steps - 1);
    gui.scroll_max[slot] = range.steps;
    gui.scroll_steps[slot] = range.steps;
    gui.wheel_step[slot] = range.wheel;
    build_knob_table(slot);
}

void read_fold_and_invert()
{
    const int fold = gui.event[EDITOR_FOLD].take();
    const int step = fold > 0 ? 1 : fold == EVENT_RIGHT ? -1 : 0;
    spectrum.spectrum_fold = std::clamp(spectrum.spectrum_fold + step, 0, max_spectrum_fold);
    if (gui.event[EDITOR_INVERT].take() != 0) std::swap(spectrum.spectrum_start, spectrum.spectrum_end);
}

/// A place `at` of the `size` pixels of a map's side, as a value of its slider.
int map_value(int at, int size, int scale)
{
    const int place = static_cast<int>(256.0 / size * std::max(at, 0));
    return std::min(place, 255) / scale;
}

} // namespace

ColorEditor::ColorEditor(Shared<int>& target, int map_slot)
    : target_(target), map_slot_(map_slot), start_(sliders_from_color(color_settings.colorspace, target)), last_(start_)
{}

void ColorEditor::build(Origin at)
{
    build_slots(fixed_rows, at.x, at.y);
    gui.params[EDITOR_SPECTRUM][0] = menu_scheme.scheme_border;
    for (int slot = EDITOR_FAVORITE_0; slot <= EDITOR_FAVORITE_9; ++slot) {
        const int cell = slot - EDITOR_FAVORITE_0;
        build_slot(palette_cell_row(slot, 104 + 11 * (cell % favorites_per_row), 2 + 10 * (cell / favorites_per_row)),
                   at.x, at.y);
        gui.colour[slot] = int(favorite_of(slot));
    }
    for (int i = 0; i < color_sliders; ++i) {
        build_slot(SlotRow{EDITOR_NAME_0 + i, 159, 2 + 10 * i, 19, KIND_BUTTON}, at.x, at.y);
        const int slider = EDITOR_SLIDER_0 + i;
        build_slot(slider_row(slider, 179, 2 + 10 * i, 139, 256, 10, TIP_COLOR_SLIDER), at.x, at.y);
        gui.scroll_show[slider] = &gui.scroll_value[slider];
    }
    build_slot(SlotRow{map_slot_, 159, 32, 159, KIND_RGB_PLANE, TEXT_NONE, ACT_PRESS, ACT_NONE, TIP_COLOR_MAP}.high(59),
               at.x, at.y);
    for (int i = 0; i < color_sliders; ++i)
        gui.items[map_slot_][i] = EDITOR_SLIDER_0 + i;
    write_sliders(last_);
    wear_colorspace();
    show_swatches();
}

bool ColorEditor::run_pass(int action)
{
    show_swatches();
    if (!kelu::run_pass(
            {.hotkeys = IN_ANY_MENU, .quick_pan = true, .right_click = RightClick::LEAVES, .leave_key = action}))
        return false;
    read_spectrum();
    read_canvas();
    for (int slot = EDITOR_FAVORITE_0; slot <= EDITOR_FAVORITE_9; ++slot)
        read_palette_cell(slot, favorite_of(slot));
    read_fold_and_invert();
    read_map();
    follow_sliders();
    return true;
}

void ColorEditor::read_palette_cell(int slot, Shared<int>& entry)
{
    const int event = gui.event[slot].take();
    if (event > 0) set_color(gui.colour[slot]);
    if (event != EVENT_RIGHT) return;
    gui.kind[slot] = KIND_COLOR_PICKING;
    const int picked = pick_screen_color();
    if (picked >= 0) {
        entry = picked;
        gui.colour[slot] = picked;
    }
    gui.kind[slot] = KIND_COLOR_CELL;
}

void ColorEditor::set_color(int color)
{
    target_ = color;
    write_sliders(sliders_from_color(color_settings.colorspace, color));
}

void ColorEditor::set_colorspace(int colorspace)
{
    color_settings.colorspace = colorspace;
    wear_colorspace();
}

ColorEditor::Sliders ColorEditor::read_sliders()
{
    Sliders values{};
    for (int i = 0; i < color_sliders; ++i)
        values[i] = gui.scroll_value[EDITOR_SLIDER_0 + i];
    return values;
}

void ColorEditor::write_sliders(const Sliders& values)
{
    for (int i = 0; i < color_sliders; ++i)
        gui.scroll_value[EDITOR_SLIDER_0 + i] = values[i];
}

void ColorEditor::wear_colorspace()
{
    const SliderRange& range = slider_ranges[color_settings.colorspace];
    for (int i = 0; i < color_sliders; ++i) {
        gui.text_id[EDITOR_NAME_0 + i] = range.names[i];
        set_range(EDITOR_SLIDER_0 + i, range);
    }
    gui.kind[map_slot_] = KIND_VGA_PLANE + color_settings.colorspace;
}

void ColorEditor::read_spectrum()
{
    const int event = gui.event[EDITOR_SPECTRUM].take();
    if (event > 0) set_color(grab_screen_color());
    if (event == EVENT_RIGHT) pick_spectrum(EDITOR_SPECTRUM);
}

/// Any pixel of the screen outside the menu can be picked.
void ColorEditor::read_canvas()
{
    if (!buttons_.left_pressed()) return;
    wait_left_release();
    set_color(grab_screen_color());
}

void ColorEditor::read_map()
{
    if (gui.event[map_slot_].take() == 0) return;
    const PlaneAxes axes = plane_axes(gui.kind[map_slot_]);
    // The map lies inside its frame of one pixel.
    Sliders values = read_sliders();
    values[axes.across] = map_value(pointer.mouse_x - gui.x[map_slot_] - 1, gui.w[map_slot_] - 2, axes.scale);
    values[axes.down] = map_value(pointer.mouse_y - gui.y[map_slot_] - 1, gui.h[map_slot_] - 2, axes.scale);
    write_sliders(values);
    target_ = color_from_sliders(color_settings.colorspace, values[0], values[1], values[2]);
}

void ColorEditor::follow_sliders()
{
    last_ = read_sliders();
    if (last_ != start_) follows_ = true;
    if (follows_) target_ = color_from_sliders(color_settings.colorspace, last_[0], last_[1], last_[2]);
}

} // namespace kelu
