// SPDX-License-Identifier: MIT
// What the text tool writes, and in which font.
#pragma once

#include <string>

namespace kelu {

/// Owner: the text tool. Also written by the file browser (the font's name) and the state file.
/// Writers: workspace, tools, screens.
struct TextSettings {
    std::string text_string; ///< at most 255 bytes
    int text_size = 32;      ///< pixels, up to 350; below 1 counts as not set
    int text_gap = 0;        ///< extra pixels between letters, 0 to 32
    std::string font_dir;    ///< folder of the font, upper case
    std::string font_file;   ///< name of the font's file
};
inline TextSettings text_settings;

} // namespace kelu
