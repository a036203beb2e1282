// SPDX-License-Identifier: MIT
// The custom brush tip: 16 x 14 pixels of the tip sheet, kept in a file of its own.
#pragma once

#include "base/reader.h"
#include <string>

namespace kelu {

constexpr int custom_tip_x = 0, custom_tip_y = 45;  ///< top left pixel in the tip sheet
constexpr int custom_tip_w = 16, custom_tip_h = 14; ///< pixels

/// Fills the custom tip with black.
void clear_custom_tip();
/// The bytes of its file as memory has it now.
Bytes custom_tip_bytes();
/// Writes the custom tip to the working directory, which must be the store's. False when that failed.
bool save_custom_tip();
/// Writes it to another file of the working directory.
bool write_custom_tip(const std::string& name);
/// Reads the custom tip of the working directory into the sheet. False, and the sheet as before, when it can't be read.
bool load_custom_tip();

} // namespace kelu
