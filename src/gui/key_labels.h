// SPDX-License-Identifier: MIT
// Names of keys as the screens show them.
#pragma once

#include <string>

namespace kelu {

constexpr int key_awaiting = 99; ///< row of the names that stands for a key not pressed yet

/// The name of a scancode, 0 to 112; "" for a number that has none.
const char* key_name(int scancode);
/// A key code with its modifiers, as "CTRL+Z" or "C/S+Z", cut at 20 characters.
std::string key_label(int code);
/// The same with each modifier spelt out, as the dialog that waits for a key shows it: "CTRL+ALT+SHIFT+" as held.
std::string spelt_key_label(int code);

} // namespace kelu
