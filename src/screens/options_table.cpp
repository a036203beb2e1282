// SPDX-License-Identifier: MIT
// The rows of the options screen.
#include "screens/options_table.h"

#include "runtime/preferences.h"
#include "runtime/view.h"

namespace kelu {
namespace {

constexpr OptionRow blank{};
constexpr OptionRow heading{.form = OptionForm::HEADING};

constexpr OptionRow choice(Shared<int>& word, int by_default, OptionValue first, OptionValue second)
{
    return {.form = OptionForm::CHOICE,
            .word = &word,
            .by_default = by_default,
            .values = {first, second, OptionValue{}},
            .choices = 2};
}

constexpr OptionRow choice(Shared<int>& word, int by_default, OptionValue first, OptionValue second, OptionValue third)
{
    OptionRow row = choice(word, by_default, first, second);
    row.values[2] = third;
    row.choices = 3;
    return row;
}

constexpr OptionRow on_off(Shared<int>& word, int by_default)
{
    return choice(word, by_default, {TEXT_ON, 1}, {TEXT_OFF, 0});
}

constexpr OptionRow slider(Shared<int>& word, int by_default, int steps, int wheel, int lowest = 0)
{
    return {.form = OptionForm::SLIDER,
            .word = &word,
            .by_default = by_default,
            .steps = steps,
            .lowest = lowest,
            .wheel = wheel};
}

constexpr int level_steps = 256;
constexpr int most_preview_mb = 64;
constexpr Preferences& set = preferences;

constexpr std::array rows{
    heading, // mouse pointer
    choice(set.mouse_swap, 0, {TEXT_NORMAL, 0}, {TEXT_REVERSE, 1}),
    choice(set.cursor_scaling_off, 1, {TEXT_ON, 0}, {TEXT_OFF, 1}),
    on_off(set.anti_jitter, 1),
    choice(set.cursor_tip, 1, {TEXT_NONE_OF_ALL, 0}, {TEXT_INLINE, 1}, {TEXT_OUTLINE, 2}),
    blank,
    heading, // crosshairs
    choice(set.crosshair_color, 1, {TEXT_WHITE, 0}, {TEXT_GRAY, 1}, {TEXT_BLACK, 2}),
    on_off(set.crosshair_scaling, 0),
    slider(set.crosshair_opacity, 60, level_steps, 5),
    blank,
    heading, // cel handling
    on_off(set.cel_masking, 1),
    slider(set.cel_tolerance, 3, level_steps, 5),
    blank,
    heading, // optimization
    choice(set.frame_limiter, 1, {TEXT_OFF, 0}, {TEXT_LOW, 1}, {TEXT_HIGH, 2}),
    choice(set.color_reduction, 2, {TEXT_FAST, 0}, {TEXT_GOOD, 1}, {TEXT_BEST, 2}),
    slider(set.undo_depth, 6, 12, 1, 1),
    blank,
    heading, // status bar
    on_off(set.status_bar_on, 1),
    choice(set.status_font, 1, {TEXT_NARROW, 0}, {TEXT_WIDE, 1}),
    slider(set.status_opacity, 160, level_steps, 10),
    blank,
    heading, // zoom preview
    on_off(set.zoom_preview_on, 1),
    choice(set.zoom_preview_size, 1, {TEXT_SMALL, 1}, {TEXT_MEDIUM, 2}, {TEXT_LARGE, 3}),
    blank,
    heading, // file preview
    choice(set.file_preview_mode, 1, {TEXT_ALL, 1}, {TEXT_LIMIT, 2}, {TEXT_NONE_OF_ALL, 0}),
    slider(set.file_preview_limit_mb, 2, most_preview_mb + 1, 2),
    blank,
    heading, // onion skin
    on_off(options_state.onion_staged, 0),
    slider(view.onion_opacity, 94, level_steps, 5),
    blank,
    heading, // miscellaneous
    on_off(set.tooltips_on, 1),
    on_off(set.backless_mode, 0),
    on_off(set.show_tool_distance, 1),
    slider(set.quickpan_opacity, 225, level_steps, 10),
};
static_assert(rows.size() == option_rows_count, "a row of the options and its name go together");

} // namespace

std::span<const OptionRow, option_rows_count> options_table() { return rows; }

} // namespace kelu
