// SPDX-License-Identifier: MIT
// A font in the file browser: its letter A in the place of a picture's preview.
#pragma once

#include "imagefile/vector_font.h"
#include <string>

namespace kelu {

/// Sets a font up for the browser and draws its sample letter into the preview.
void draw_font_sample(BITMAP* preview, VectorFont& font);

/// Loads a font of the working directory as `preview_font` and draws its sample letter into `preview_bitmap`, in the
/// middle of what the font browser shows of it. A file that can't be loaded leaves the preview as it was.
void update_font_preview(const std::string& name);

} // namespace kelu
