// SPDX-License-Identifier: MIT
// The options of the program as a table: one row serves the build of its widgets, DEFAULTS and CANCEL.
#pragma once

#include "base/words.h"
#include "gui/choice_names.h"
#include "gui/strings.h"
#include <array>
#include <cstdint>
#include <span>

namespace kelu {

/// State of the options screen. Written by its radios on the timer thread.
struct OptionsState {
    Shared<int> onion_staged = 0; ///< 1: the onion skin will be on when the screen closes
};
inline OptionsState options_state;

enum class OptionForm : uint8_t {
    BLANK,   ///< nothing
    HEADING, ///< a caption over the whole row
    CHOICE,  ///< two or three radios
    SLIDER
};

/// A radio: its label, and the value that it stands for.
struct OptionValue {
    int text = TEXT_NONE;
    int value = 0;
};

/// One row. Its name is the text `first_option_name` + its number.
struct OptionRow {
    OptionForm form = OptionForm::BLANK;
    Shared<int>* word = nullptr;         ///< the preference that the row sets
    int by_default = 0;                  ///< what DEFAULTS writes
    std::array<OptionValue, 3> values{}; ///< of a choice, from left to right
    int choices = 0;                     ///< 2 or 3
    int steps = 0, lowest = 0;           ///< of a slider: values `lowest` to `lowest` + `steps` - 1
    int wheel = 1;                       ///< what a click of the wheel adds to a slider
};

constexpr int option_rows_count = static_cast<int>(std::size(option_names));

/// All rows, from the top of the list to its end.
std::span<const OptionRow, option_rows_count> options_table();

} // namespace kelu
