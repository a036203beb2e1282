// SPDX-License-Identifier: MIT
// The colour scheme editor: ten swatches, and a preview in which they are tried out.
#pragma once

namespace kelu {

/// The ways that colours take between swatches, `scheme` and the colours of the screens.
enum SchemeStep : int {
    SWATCHES_TO_SCHEME, ///< swatches into `scheme`, and `scheme` into the text sets of the preview
    SCHEME_TO_LIVE,     ///< `scheme` into the live colours and text sets
    SCHEME_TO_SWATCHES  ///< `scheme` into the swatches
};
/// Takes one of the ways; the editor's slots must be built.
void apply_scheme(SchemeStep step);

/// Runs the editor. The caller has cleared the slots; the drawing menu is open at the end.
void scheme_menu();

} // namespace kelu
