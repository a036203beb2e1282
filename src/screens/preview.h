// SPDX-License-Identifier: MIT
// The small picture of the selected file in the browser.
#pragma once

#include "base/bitmap.h"
#include <string>

namespace kelu {

/// What is in the place of a preview.
enum PreviewMessage : int { PREVIEW_UNAVAILABLE, PREVIEW_DAMAGED, PREVIEW_DISABLED, PREVIEW_TOO_LARGE };

/// The picture of a file, top bytes 0, determined by extension, else by signature. Empty for all that isn't a picture.
/// The frame and its alpha stay as they are.
Bitmap load_preview_bitmap(const std::string& name);

/// Fits a picture to a preview, each side by its own factor.
void fit_preview(BITMAP* picture, BITMAP* preview);

/// Fills `preview_bitmap` with a message.
void show_preview_message(int which);

/// Fills `preview_bitmap` with the picture of a file of the working directory, or with a message when there is none or
/// the options don't want it. `forced`: the user has asked for it, whatever its size.
void update_preview(const std::string& name, bool forced);

} // namespace kelu
