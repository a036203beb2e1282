// SPDX-License-Identifier: MIT
// The colours of the menus: what the user's scheme says, and what the painters draw with.
#pragma once

#include "base/bitmap.h"
#include "runtime/pixels.h"
#include <array>

namespace kelu {

/// Rows of a scheme, in the order of its file and its editor.
enum SchemeRow : int {
    SCHEME_BACKGROUND,
    SCHEME_BORDER,
    SCHEME_SHADOW,
    SCHEME_HIGHLIGHT_FORE,
    SCHEME_HIGHLIGHT_BACK,
    SCHEME_TEXT_LIGHT,
    SCHEME_TEXT_BUTTON,
    SCHEME_TEXT_HIGHLIGHT,
    SCHEME_TEXT_LIGHT_ALT,
    SCHEME_TEXT_SELECTED,
    SCHEME_ROWS
};

using SchemeColours = std::array<int, SCHEME_ROWS>; ///< packed colours by SchemeRow

/// The scheme at first start, and what a right click in the editor restores.
inline constexpr SchemeColours scheme_default = {
    pack_rgb(158, 158, 158), pack_rgb(100, 100, 100), pack_rgb(58, 58, 58), pack_rgb(255, 0, 0),
    pack_rgb(219, 219, 219), pack_rgb(218, 218, 218), pack_rgb(0, 0, 0),    pack_rgb(64, 64, 64),
    pack_rgb(250, 12, 12),   pack_rgb(0, 92, 188)};
/// Marks what collides or fails, whatever the scheme.
inline constexpr int warning_red = pack_rgb(255, 0, 0);

/// `scheme` belongs to the settings file and the scheme editor; the live colours follow it by `apply_scheme`. Main
/// thread.
/// Writers: screens.
struct MenuScheme {
    SchemeColours scheme = scheme_default;                             ///< as kept, or as edited right now
    int scheme_background = scheme_default[SCHEME_BACKGROUND];         ///< fill of panels and buttons
    int scheme_border = scheme_default[SCHEME_BORDER];                 ///< frames, captions
    int scheme_shadow = scheme_default[SCHEME_SHADOW];                 ///< titles, shaded parts
    int scheme_highlight_fore = scheme_default[SCHEME_HIGHLIGHT_FORE]; ///< mark of the current choice
    int scheme_highlight_back = scheme_default[SCHEME_HIGHLIGHT_BACK]; ///< fill under the pointer
};
inline MenuScheme menu_scheme;

/// Takes `scheme` into the live colours and the text colour sets of the screens.
void apply_scheme();
/// Takes `scheme` into the text colour sets of the editor's preview.
void preview_scheme();
/// Recolours arrows, knobs and marks of the GUI sheet to four colours, from the grey master that is beside them,
/// and the colour set of the sliders' number tags.
void recolor_gui_sheet(int background, int border, int shadow, int fill);

} // namespace kelu
