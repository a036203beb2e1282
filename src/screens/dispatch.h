// SPDX-License-Identifier: MIT
// Files on their way into and out of the frame: which routine of which format, and what becomes of the alpha channel.
#pragma once

#include <string>

namespace kelu {

/// What the file browser was opened for.
enum BrowserMode : int {
    BROWSE_PICTURE = 1, ///< the format is determined from the file
    BROWSE_FONT,
    BROWSE_WORKSPACE, ///< these three overrule the format that the name has
    BROWSE_FAVORITES,
    BROWSE_SCHEME,
    BROWSE_ANIMATION ///< GIF or PNG, out of the tagged frames or behind the last one
};

/// Loads a file of the working directory: a picture into the frame, a workspace, favourites or a scheme. A picture
/// without an alpha channel comes in opaque; the status bar then says how the old one comes back. False, with a word in
/// the status bar, when the file can't be loaded; frame and tables are then as before.
bool load_picture_file(const std::string& name, int browser_mode);

/// Saves to a file of the working directory, which replaces an old one only when it is whole. The extension alone
/// determines the format; a picture of any other name becomes a PNG without alpha. Before a JPEG the user is asked for
/// its quality, in place of the window that is open. The status bar says what was saved. False when nothing was: the
/// user has cancelled, or it failed, which is reported.
bool save_picture_file(const std::string& name, int browser_mode);

} // namespace kelu
