// SPDX-License-Identifier: MIT
// The two ways in which the program lives.
//
// In a folder of its own: art, settings and work lie beside the executable, and all of it can be moved or copied. Or
// installed: the executable in lib/kelu, what is delivered in share/kelu beside it, and a folder for each user below
// the home, which has the form of the first way without executable and art.
#pragma once

#include <string>

namespace kelu {

struct Folders {
    std::string user; ///< config.def, resource/user.def, WORKSPACE/ and fonts/ of the user
    std::string art;  ///< resource/, fonts/ and defaults/ of an installation; empty: `user` holds the art
};

/// The folders of an executable that lies in `executable_folder`, links resolved: an installation's when no art lies
/// beside it and share/kelu is where the installation puts it.
Folders find_folders(const std::string& executable_folder);

/// Makes an installed program's folder of the user whole: what is missing comes from the installation, what is there
/// is the user's and stays. Returns an empty text, or why it can't be done.
std::string complete_user_folder(const Folders& folders);

} // namespace kelu
