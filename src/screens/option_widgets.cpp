// One list of widgets for tools that share their options, and the build of the options area.
#include "screens/option_widgets.h"

#include "gui/build.h"
#include <array>

namespace kelu {
namespace {

constexpr int slider_x = 77, slider_w = 115;
constexpr int caption_above = 10; ///< pixels from a slider's caption to the slider

constexpr OptionWidget slider(int option, int text, int y, int steps, int tooltip, int lowest = 0)
{
    return {WidgetForm::SLIDER, option, text, slider_x, y, slider_w, tooltip, steps, lowest};
}
constexpr OptionWidget toggle(int option, int text, int x, int y, int w, int tooltip)
{
    return {WidgetForm::TOGGLE, option, text, x, y, w, tooltip};
}

constexpr std::array filled{toggle(0, TEXT_FILLED, 107, 52, 55, TIP_FILL)};
constexpr std::array driz{slider(0, TEXT_RADIUS, 45, 33, TIP_RADIUS), slider(1, TEXT_TAPER_DIST, 66, 33, TIP_TAPER)};
constexpr std::array tolerance{slider(0, TEXT_TOLERANCE, 58, 256, TIP_TOLERANCE)};
constexpr std::array move{toggle(0, TEXT_USE_BRUSH_COLOR, 86, 52, 97, TIP_NONE)};
constexpr std::array spline{toggle(0, TEXT_FILLED, 77, 34, 57, TIP_FILL),
                            toggle(1, TEXT_CLOSED, 135, 34, 57, TIP_CLOSE_FORM),
                            slider(2, TEXT_CURVE, 66, 101, TIP_CURVATURE)};
constexpr std::array spray{slider(0, TEXT_DENSITY, 45, 256, TIP_DENSITY), slider(1, TEXT_RADIUS, 66, 32, TIP_RADIUS)};
constexpr std::array text{toggle(0, TEXT_ANTIALIAS, 102, 52, 65, TIP_ANTIALIAS)};

constexpr std::array strength{slider(0, TEXT_STRENGTH, 58, 256, TIP_STRENGTH)};
constexpr std::array glow{slider(0, TEXT_STRENGTH, 45, 256, TIP_STRENGTH), slider(1, TEXT_RADIUS, 66, 32, TIP_RADIUS)};
constexpr std::array grain{slider(0, TEXT_STRENGTH, 45, 256, TIP_STRENGTH),
                           slider(1, TEXT_FREQUENCY, 66, 101, TIP_FREQUENCY)};
constexpr std::array jumble{slider(0, TEXT_STRENGTH, 58, 5, TIP_STRENGTH, 1)};
constexpr std::array unzag{slider(0, TEXT_STRENGTH, 58, 101, TIP_STRENGTH)};
constexpr std::array gradient{toggle(0, TEXT_REPEAT, 77, 34, 57, TIP_REPEAT),
                              OptionWidget{WidgetForm::BUTTON, 0, TEXT_POSITION, 135, 34, 57, TIP_GRADIENT_POSITION},
                              slider(2, TEXT_BANDING, 66, 256, TIP_BANDING)};

using Widgets = std::span<const OptionWidget>;

constexpr std::array<Widgets, TOOL_COUNT> by_tool = [] {
    std::array<Widgets, TOOL_COUNT> rows{};
    for (const int id : {TOOL_BOX, TOOL_CIRCLE, TOOL_OVAL, TOOL_POLY, TOOL_RPOLY, TOOL_FSHAPE, TOOL_SSHAPE})
        rows[static_cast<std::size_t>(id)] = filled;
    for (const int id : {TOOL_EDGE, TOOL_FILL, TOOL_SEP})
        rows[static_cast<std::size_t>(id)] = tolerance;
    rows[TOOL_DRIZ] = driz;
    rows[TOOL_MOVE] = move;
    rows[TOOL_SPLINE] = spline;
    rows[TOOL_SPRAY] = spray;
    rows[TOOL_TEXT] = text;
    return rows;
}();

constexpr std::array<Widgets, INK_COUNT> by_ink = [] {
    std::array<Widgets, INK_COUNT> rows{};
    rows.fill(strength);
    rows[INK_GLOW] = glow;
    rows[INK_GRAIN] = grain;
    rows[INK_HOLLOW] = tolerance;
    rows[INK_JUMBLE] = jumble;
    rows[INK_UNZAG] = unzag;
    for (const int id : {INK_H_GRAD, INK_V_GRAD, INK_L_GRAD, INK_R_GRAD})
        rows[static_cast<std::size_t>(id)] = gradient;
    for (const int id : {INK_OPAQUE, INK_TILE, INK_XOR})
        rows[static_cast<std::size_t>(id)] = {};
    return rows;
}();

template <std::size_t N>
Widgets widgets_of(const std::array<Widgets, N>& table, int id)
{
    return id >= 0 && id < static_cast<int>(N) ? table[static_cast<std::size_t>(id)] : Widgets{};
}

void build_slider(const OptionWidget& widget, Shared<int>& cell, int slot, int x, int y)
{
    build_slot(caption_row(slot, widget.x, widget.y - caption_above, widget.w, widget.text), x, y);
    const ScrollBar bar{.steps = widget.steps, .wheel = 10, .min = widget.lowest, .horizontal = true};
    const int body = build_slot(
        SlotRow{slot + 1, widget.x, widget.y, widget.w, KIND_PANEL, TEXT_NONE, ACT_NONE, ACT_NONE, widget.tooltip}.with(
            bar),
        x, y);
    bind_slider(body, cell);
}

void build_button(const OptionWidget& widget, const Shared<int>& cell, int slot, int id, int toggle_action, int x,
                  int y)
{
    const bool toggles = widget.form == WidgetForm::TOGGLE;
    const int kind = toggles && cell != 0 ? KIND_BUTTON_LIT : KIND_BUTTON;
    build_slot({slot, widget.x, widget.y, widget.w, kind, widget.text, toggles ? toggle_action : ACT_CLICK, ACT_NONE,
                widget.tooltip},
               x, y);
    gui.list_items[slot][0] = id;
    gui.list_items[slot][1] = widget.option;
}

} // namespace

std::span<const OptionWidget> tool_widgets(int tool) { return widgets_of(by_tool, tool); }

std::span<const OptionWidget> ink_widgets(int ink) { return widgets_of(by_ink, ink); }

void build_option_widgets(std::span<const OptionWidget> widgets, OptionTable& table, int id, int toggle_action, int x,
                          int y)
{
    for (int slot = first_option_slot; slot < first_option_slot + option_slots; ++slot)
        gui_reset_slot(slot);
    int slot = first_option_slot;
    for (const OptionWidget& widget : widgets) {
        Shared<int>& cell = table[static_cast<std::size_t>(id)][static_cast<std::size_t>(widget.option)];
        if (widget.form == WidgetForm::SLIDER) {
            build_slider(widget, cell, slot, x, y);
            slot += 2;
        } else {
            build_button(widget, cell, slot, id, toggle_action, x, y);
            ++slot;
        }
    }
}

} // namespace kelu
