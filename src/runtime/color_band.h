// SPDX-License-Identifier: MIT
// The spectrum: the band of colours that gradient inks run along.
#pragma once

namespace kelu {

/// Owner: the colour menu. Also written by the spectrum pick, the wipe of a workspace and the state file.
/// Writers: workspace, screens.
struct Spectrum {
    int spectrum_start = 0;      ///< packed colour of the band's start
    int spectrum_end = 0xffffff; ///< packed colour of its end
    int spectrum_fold = 2;       ///< times the band is folded, 0 to 3
};
inline Spectrum spectrum;

} // namespace kelu
