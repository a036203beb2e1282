// SPDX-License-Identifier: MIT
// The build of the options area, by the rows of the options.
#include "screens/option_widgets.h"

#include "gui/build.h"

namespace kelu {
namespace {

constexpr int caption_above = 10; ///< pixels from a slider's caption to the slider

void build_slider(const DrawOption& option, Shared<int>& cell, int slot, int x, int y)
{
    const auto [left, top, width] = option.place;
    build_slot(caption_row(slot, left, top - caption_above, width, option.text), x, y);
    const ScrollBar bar{.steps = option.slider_steps(), .wheel = 10, .min = option.slider_lowest, .horizontal = true};
    const int body = build_slot(
        SlotRow{slot + 1, left, top, width, KIND_PANEL, TEXT_NONE, ACT_NONE, ACT_NONE, option.tooltip}.with(bar), x, y);
    bind_slider(body, cell);
}

void build_button(const DrawOption& option, const Shared<int>& cell, int slot, int id, int toggle_action, int x, int y)
{
    const bool toggles = option.widget == OptionWidget::TOGGLE;
    const int kind = toggles && cell != 0 ? KIND_BUTTON_LIT : KIND_BUTTON;
    build_slot({slot, option.place.x, option.place.y, option.place.w, kind, option.text,
                toggles ? toggle_action : ACT_CLICK, ACT_NONE, option.tooltip},
               x, y);
    gui.list_items[slot][0] = id;
    gui.list_items[slot][1] = option.column;
}

} // namespace

void build_option_widgets(const DrawChoice& choice, OptionTable& table, int toggle_action, int x, int y)
{
    for (int slot = first_option_slot; slot < first_option_slot + option_slots; ++slot)
        gui_reset_slot(slot);
    int slot = first_option_slot;
    for (const DrawOption& option : choice.options) {
        Shared<int>& cell = table[choice.id][option.column];
        if (option.widget == OptionWidget::SLIDER) {
            build_slider(option, cell, slot, x, y);
            slot += 2;
        } else {
            build_button(option, cell, slot, choice.id, toggle_action, x, y);
            ++slot;
        }
    }
}

} // namespace kelu
