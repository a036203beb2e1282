// SPDX-License-Identifier: MIT
// The kinds of slots: what is drawn, one enumerator each. A kind that the renderer's table lacks draws nothing and
// still takes the pointer.
#pragma once

namespace kelu {

enum Kind : int {
    KIND_NONE = 2,           ///< a hit area
    KIND_PLAIN_LABEL = 18,   ///< label at the left
    KIND_PTR_LABEL = 19,     ///< the text behind `ptr`, without a panel, in the colour set `colour`
    KIND_ABOUT = 20,         ///< logo, version and credits
    KIND_TOOL_TEXT = 23,     ///< ten lines that describe a tool or ink
    KIND_CAPTION = 24,       ///< label without a panel, in the colour set `colour`
    KIND_COLOR_PICKING = 25, ///< a colour cell that waits for its new colour
    KIND_COLOR_CELL = 26,    ///< a colour; lit when it is the brush colour
    KIND_MASK_SWATCH = 27,   ///< the mask colour
    KIND_BRUSH_SWATCH = 28,  ///< the brush colour
    KIND_SPECTRUM = 29,      ///< the spectrum bar
    KIND_PANEL = 30,         ///< panel alone: ground, swatch or body of a slider
    KIND_TITLE = 31,         ///< title of a window
    KIND_BUTTON = 32,        ///< button at rest
    KIND_BUTTON_LIT = 33,    ///< the same, lit
    KIND_PUSH = 34,          ///< push button, lit under the pointer
    KIND_PUSH_DARK = 35,     ///< push button of the drawing menu
    KIND_TEXT_FIELD = 36,    ///< one line that the user edits
    KIND_FILE_LIST = 37,     ///< names of the file browser
    KIND_LIST = 38,          ///< rows of labels
    KIND_PREVIEW = 39,       ///< picture of the file browser
    KIND_QUICK_PAN = 40,     ///< the whole frame, with the view's size at the pointer
    KIND_FRAME_NAIL = 41,    ///< thumbnail and number of a frame
    KIND_SHEET_PREVIEW = 43, ///< where the old frame lies in the new one
    KIND_TIP = 44,           ///< a brush tip
    KIND_CUSTOM_TIP = 45,    ///< the custom tip, enlarged
    KIND_TIP_BUTTON = 46,    ///< a tip at button size
    KIND_VARIANCE_HUE = 47,  ///< a neighbour of a colour in hue
    KIND_VARIANCE_2 = 48,    ///< in light
    KIND_VARIANCE_3 = 49,    ///< in saturation
    KIND_VGA_PLANE = 50,     ///< plane of two colour channels, 0 to 63
    KIND_RGB_PLANE = 51,     ///< the same, 0 to 255
    KIND_HLS_PLANE = 52,     ///< light and saturation of a hue
    KIND_HSV_PLANE = 53,     ///< saturation and value of a hue
    KIND_HOTKEY = 55,        ///< a key with its modifiers
    KIND_FRAME_COUNT = 56,   ///< number of frames and their limit
    KIND_NUMBER = 57,        ///< a number of three digits
    KIND_GHOST_BUTTON = 58,  ///< push button with a pale label
    KIND_FONT_NAME = 60,     ///< file name of the text tool's font
    KIND_PROGRESS = 61,      ///< bar of 0 to 100 per cent
    KIND_RADIO_ON = 63,      ///< option that is chosen
    KIND_RADIO_OFF = 64,     ///< option that is not
    KIND_MENU_ENTRY = 65,    ///< label at the left, lit under the pointer
    KIND_HELP_PAGE = 70,     ///< a page of text
    KIND_ZOOM_PREVIEW = 71,  ///< the frame round the pointer at its true size
    KIND_ARROW_BUTTON = 72,  ///< button with an arrow
    KIND_SCHEME_PANEL = 80,  ///< the colour scheme being edited: its panel
    KIND_SCHEME_TITLE = 81,  ///< its title
    KIND_SCHEME_LIT = 82,    ///< its caption
    KIND_SCHEME_BUTTON = 84, ///< its button
    KIND_SCHEME_ALT = 85,    ///< its dark button
    KIND_SCHEME_FIELD = 86,  ///< its field
    KIND_SCHEME_LIST = 88,   ///< its list
    KIND_FAILURE_PANEL = 94, ///< the black panel of a failure
    KIND_WINDOW = 95,        ///< ground of a menu
    KIND_COLOR_BOX = 96,     ///< panel round colours
    KIND_HIT = 98,           ///< a hit area
    KIND_COUNT
};

} // namespace kelu
