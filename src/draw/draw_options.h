// SPDX-License-Identifier: MIT
// The options of tools and inks: one row an option, and the lists that the rows of tools and inks name.
//
// A row says where the option's value is, what values it takes, and which widget sets it. The menus, the option
// keys, the values of a fresh workspace, the document of reference and the readers in this folder go by it.
#pragma once

#include "gui/strings.h"
#include "gui/tooltips.h"
#include <algorithm>
#include <array>
#include <span>

namespace kelu {

enum class OptionWidget {
    TOGGLE, ///< a button that flips the option between 0 and 1
    SLIDER, ///< a caption and a slider below it
    BUTTON  ///< a plain button with an event of its own; no value
};

/// Place of a widget in the options area, from the menu's corner: of the button, or of the slider.
struct OptionPlace {
    int x, y, w;
};
constexpr OptionPlace slider_alone{77, 58, 115}, upper_slider{77, 45, 115}, lower_slider{77, 66, 115};
constexpr OptionPlace left_button{77, 34, 57}, right_button{135, 34, 57};
constexpr OptionPlace button_alone(int w) { return {134 - w / 2, 52, w}; }

/// What the option key of tools or inks does with an option.
struct OptionKey {
    enum Effect { NOTHING, FLIP, SLIDE, PLACE_GRADIENT };
    Effect effect = NOTHING;
    int message_off = TIP_NONE, message_on = TIP_NONE; ///< FLIP: what the status bar says of 0 and of 1
    int title = TEXT_NONE, steps = 0;                  ///< SLIDE: of a slider that begins at 0
};

/// One option of a tool or an ink.
struct DrawOption {
    OptionWidget widget;
    int column; ///< of the tables in `toolbox`
    int text;   ///< its name
    OptionPlace place;
    int tooltip;
    int lowest = 0, steps = 2; ///< values from `lowest` on; those of a file are clamped to them
    int slider_lowest = 0;     ///< first value that the slider of the menu offers
    int initial = 0;           ///< in a fresh workspace
    OptionKey key{};

    constexpr int highest() const { return lowest + steps - 1; }
    constexpr int slider_steps() const { return highest() - slider_lowest + 1; }
    constexpr int clamped(int value) const { return std::clamp(value, lowest, highest()); }
    constexpr DrawOption starts_at(int value) const
    {
        DrawOption copy = *this;
        copy.initial = value;
        return copy;
    }
    constexpr DrawOption at(OptionPlace elsewhere) const
    {
        DrawOption copy = *this;
        copy.place = elsewhere;
        return copy;
    }
    constexpr DrawOption with_key(OptionKey effect) const
    {
        DrawOption copy = *this;
        copy.key = effect;
        return copy;
    }
};

/// What the menus show of a tool or an ink.
struct DrawChoice {
    int id;
    int name;        ///< its text
    int description; ///< its row of the descriptions
    std::span<const DrawOption> options;
};

constexpr DrawOption toggle_option(int column, int text, OptionPlace place, int tooltip)
{
    return {.widget = OptionWidget::TOGGLE, .column = column, .text = text, .place = place, .tooltip = tooltip};
}
constexpr DrawOption slider_option(int column, int text, OptionPlace place, int steps, int tooltip)
{
    return {.widget = OptionWidget::SLIDER,
            .column = column,
            .text = text,
            .place = place,
            .tooltip = tooltip,
            .steps = steps};
}
constexpr OptionKey slides(int title, int steps)
{
    return {.effect = OptionKey::SLIDE, .title = title, .steps = steps};
}
constexpr OptionKey flips(int message_off, int message_on)
{
    return {.effect = OptionKey::FLIP, .message_off = message_off, .message_on = message_on};
}

namespace options {

// Options of tools.
inline constexpr DrawOption filled = toggle_option(0, TEXT_FILLED, button_alone(55), TIP_FILL);
inline constexpr DrawOption filled_by_key = filled.with_key(flips(TIP_NOW_HOLLOW, TIP_NOW_FILLED));
inline constexpr DrawOption tolerance = slider_option(0, TEXT_TOLERANCE, slider_alone, 256, TIP_TOLERANCE)
                                            .starts_at(5) // takes a colour with its faint neighbours
                                            .with_key(slides(TEXT_BRUSH_TO_TOLERANCE, 256));
inline constexpr DrawOption dab_radius =
    slider_option(0, TEXT_RADIUS, upper_slider, 33, TIP_RADIUS).starts_at(8).with_key(slides(TEXT_BRUSH_TO_RADIUS, 33));
inline constexpr DrawOption taper = slider_option(1, TEXT_TAPER_DIST, lower_slider, 33, TIP_TAPER).starts_at(32);
inline constexpr DrawOption leave_brush_color =
    toggle_option(0, TEXT_USE_BRUSH_COLOR, button_alone(97), TIP_NONE); ///< 0 leaves the mask colour behind
inline constexpr DrawOption closed = toggle_option(1, TEXT_CLOSED, right_button, TIP_CLOSE_FORM);
inline constexpr DrawOption curve = slider_option(2, TEXT_CURVE, lower_slider, 101, TIP_CURVATURE).starts_at(33);
inline constexpr DrawOption density = slider_option(0, TEXT_DENSITY, upper_slider, 256, TIP_DENSITY)
                                          .starts_at(32)
                                          .with_key(slides(TEXT_BRUSH_TO_DENSITY, 33)); // the lower end, finely
inline constexpr DrawOption spray_radius = slider_option(1, TEXT_RADIUS, lower_slider, 32, TIP_RADIUS).starts_at(16);
inline constexpr DrawOption antialias = toggle_option(0, TEXT_ANTIALIAS, button_alone(65), TIP_ANTIALIAS)
                                            .starts_at(1)
                                            .with_key(flips(TIP_NOW_ROUGH, TIP_NOW_ANTIALIASED));

// Options of inks.
inline constexpr DrawOption strength =
    slider_option(0, TEXT_STRENGTH, slider_alone, 256, TIP_STRENGTH).with_key(slides(TEXT_INK_TO_STRENGTH, 256));
inline constexpr DrawOption ink_tolerance = tolerance.with_key(slides(TEXT_INK_TO_TOLERANCE, 256));
inline constexpr DrawOption glow_radius = slider_option(1, TEXT_RADIUS, lower_slider, 32, TIP_RADIUS).starts_at(8);
inline constexpr DrawOption frequency =
    slider_option(1, TEXT_FREQUENCY, lower_slider, 101, TIP_FREQUENCY).starts_at(50);
inline constexpr DrawOption distance = [] {
    DrawOption row = slider_option(0, TEXT_STRENGTH, slider_alone, 6, TIP_STRENGTH).starts_at(3);
    row.slider_lowest = 1; // 0, which the key offers, leaves all as it is
    return row.with_key(slides(TEXT_INK_TO_STRENGTH, 6));
}();
inline constexpr DrawOption percent = slider_option(0, TEXT_STRENGTH, slider_alone, 101, TIP_STRENGTH)
                                          .starts_at(100)
                                          .with_key(slides(TEXT_INK_TO_STRENGTH, 101));
inline constexpr DrawOption repeat = toggle_option(0, TEXT_REPEAT, left_button, TIP_REPEAT);
inline constexpr DrawOption position{.widget = OptionWidget::BUTTON,
                                     .column = 0,
                                     .text = TEXT_POSITION,
                                     .place = right_button,
                                     .tooltip = TIP_GRADIENT_POSITION,
                                     .key = {.effect = OptionKey::PLACE_GRADIENT}};
inline constexpr DrawOption banding = slider_option(2, TEXT_BANDING, lower_slider, 256, TIP_BANDING);

} // namespace options

/// The lists: what several tools or inks share is here once.
namespace option_lists {

inline constexpr std::array shape{options::filled_by_key};
inline constexpr std::array panel_polygon{options::filled}; ///< its panel is open while it is drawn: no key
inline constexpr std::array tolerance{options::tolerance};
inline constexpr std::array dabs{options::dab_radius, options::taper};
inline constexpr std::array move{options::leave_brush_color};
inline constexpr std::array spline{options::filled.at(left_button), options::closed, options::curve};
inline constexpr std::array spray{options::density, options::spray_radius};
inline constexpr std::array text{options::antialias};

template <int Initial>
inline constexpr std::array strength{options::strength.starts_at(Initial)};
inline constexpr std::array ink_tolerance{options::ink_tolerance};
inline constexpr std::array glow{options::strength.starts_at(32).at(upper_slider), options::glow_radius};
inline constexpr std::array grain{options::strength.starts_at(128).at(upper_slider), options::frequency};
inline constexpr std::array jumble{options::distance};
inline constexpr std::array unzag{options::percent};
inline constexpr std::array gradient{options::repeat, options::position, options::banding};
inline constexpr std::span<const DrawOption> none;

} // namespace option_lists

/// True when the rows are in the order of their ids, from 0 on.
template <class Row, std::size_t N>
constexpr bool in_order(const std::array<Row, N>& rows)
{
    for (std::size_t i = 0; i < N; ++i)
        if (rows[i].id != static_cast<int>(i)) return false;
    return true;
}

/// The option that the option key works on; null when there is none.
constexpr const DrawOption* option_of_key(std::span<const DrawOption> options)
{
    for (const DrawOption& option : options)
        if (option.key.effect != OptionKey::NOTHING) return &option;
    return nullptr;
}

} // namespace kelu
