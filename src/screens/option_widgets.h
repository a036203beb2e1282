// The widgets that set the options of each tool and ink.
#pragma once

#include "runtime/toolbox.h"
#include <span>

namespace kelu {

enum class WidgetForm {
    TOGGLE, ///< a button that flips the option between 0 and 1
    SLIDER, ///< a caption and a slider below it
    BUTTON  ///< a plain button with an event of its own
};

/// One widget of a row of options. Places count from the menu's corner.
struct OptionWidget {
    WidgetForm form;
    int option; ///< column of the option table
    int text;
    int x, y, w; ///< of the button, or of the slider
    int tooltip;
    int steps = 0;  ///< values of a slider
    int lowest = 0; ///< its first value
};

/// The widgets of a tool, 1 to 18, or of an ink, 0 to 24; empty when it has no options.
std::span<const OptionWidget> tool_widgets(int tool);
std::span<const OptionWidget> ink_widgets(int ink);

constexpr int first_option_slot = 13; ///< slots of the options area: a toggle takes one, a slider two
constexpr int option_slots = 4;

/// Builds the widgets of row `id` of an option table in the options area of the menu whose corner is (x, y).
/// `toggle_action` is the action of its toggles.
void build_option_widgets(std::span<const OptionWidget> widgets, OptionTable& table, int id, int toggle_action, int x,
                          int y);

} // namespace kelu
