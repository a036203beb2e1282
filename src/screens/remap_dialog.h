// SPDX-License-Identifier: MIT
// The dialog that takes a new key.
#pragma once

namespace kelu {

constexpr int no_key_seen = -1; ///< result of a dialog that saw no key, or was cancelled

/// Waits for a key and OKAY. Returns its code with the modifiers that were held, or `no_key_seen`. No hotkey acts in
/// here. The caller clears the slots.
int remap_key_dialog();

} // namespace kelu
