// SPDX-License-Identifier: MIT
// The file browser: the one screen that chooses files to load and to save.
#pragma once

#include "screens/browser_slots.h"

namespace kelu {

/// Runs the screen until the user has chosen a file, which is then loaded or saved, or has cancelled. `task` is one of
/// BrowserTask, `file_kind` one of BrowserMode. The caller clears its slots before and builds its menu after. Pictures
/// leave the working directory where the user went; a choice of a font brings it back.
void file_browser(int task, int file_kind);
/// Handler of JOB_CHOOSE_FONT: the browser of fonts.
void choose_font_job(int index);

} // namespace kelu
