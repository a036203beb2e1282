// SPDX-License-Identifier: MIT
// A second complete set of files in the store, which becomes the workspace when the first has no state file. Nothing
// in the program writes it: it is put there from outside. The working directory must be the store's.
#pragma once

namespace kelu {

/// Renames all files of the alternate set to those of the workspace.
void swap_to_alternate_workspace();
/// Removes what is left of the alternate set. One with a state is whole, and stays.
void remove_alternate_files();

} // namespace kelu
