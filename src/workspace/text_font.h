// SPDX-License-Identifier: MIT
// The font of the text tool: loaded by name, and set up again with a workspace.
#pragma once

#include <string>

namespace kelu {

/// Loads a font of the working directory for the text tool, with size and gap of the text settings; the name may be
/// written in either case. Returns 1; or -1, with the old font as it was: without a word when there is no such file,
/// else with a line in the log and the failure panel, which the user dismisses.
int load_vector_font(const std::string& name);

/// Sets the font up from the text settings; the program's own while no font was chosen yet. Where its folder or its
/// file is gone or damaged, the program's own font takes its place in the settings. Without that the program ends with
/// a message. The working directory is as before at the end. Nothing happens while the font system doesn't run.
void restore_text_font();

} // namespace kelu
