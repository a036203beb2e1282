// The colours that the whole interface wears.
#pragma once

#include <array>

namespace kelu {

/// Rows of a scheme: five of the interface, five of its texts.
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

/// The colours a scheme starts from, by row.
inline constexpr std::array<int, SCHEME_ROWS> scheme_default{0x9e9e9e, 0x646464, 0x3a3a3a, 0xff0000, 0xdbdbdb,
                                                             0xdadada, 0x000000, 0x404040, 0xfa0c0c, 0x005cbc};

/// Owner: the scheme editor. Also written by the settings file.
struct Scheme {
    std::array<int, SCHEME_ROWS> scheme = scheme_default; ///< packed colours by row, kept in the settings file
    /// The applied colours, which panels read: copies of the first five rows, made when a scheme is applied.
    int scheme_background = scheme_default[SCHEME_BACKGROUND];         ///< panels and buttons
    int scheme_border = scheme_default[SCHEME_BORDER];                 ///< frames, captions
    int scheme_shadow = scheme_default[SCHEME_SHADOW];                 ///< titles, shaded parts
    int scheme_highlight_fore = scheme_default[SCHEME_HIGHLIGHT_FORE]; ///< mark of the current choice
    int scheme_highlight_back = scheme_default[SCHEME_HIGHLIGHT_BACK]; ///< ground under the pointer
};
inline Scheme scheme;

} // namespace kelu
