// SPDX-License-Identifier: MIT
// Where the file screens are.
#pragma once

#include <string>

namespace kelu {

/// Owner: the file browser. Also written by the frame store and the archive (the folder they came from) and the state
/// file. The folder and the file are upper case, and the platform layer finds the true ones; homes are true names.
/// Writers: workspace, screens.
struct BrowserState {
    std::string browser_dir;    ///< folder in view, at most 255 bytes
    std::string browser_file;   ///< selected file, at most 127 bytes
    std::string home_image_dir; ///< folder in which picture browsers open; empty: none
    std::string home_font_dir;  ///< folder in which the font browser opens; empty: none
    std::string last_picture;   ///< name under which a picture was loaded or saved last, true case; not kept on disk
    int jpg_quality = 90;       ///< of saved JPEG files, 0 to 100
};
inline BrowserState browser_state;

} // namespace kelu
