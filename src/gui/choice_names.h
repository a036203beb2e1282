// SPDX-License-Identifier: MIT
// The names that the rows of other tables need: of tools and inks on their buttons, in the order of their ids, where
// six letters fit, and of the rows of the options.
#pragma once

#include "runtime/toolbox.h"
#include <array>

namespace kelu {

inline constexpr const char* tool_names[] = {
    "",     "BOX",    "CIRCLE", "DRAW",   "DRIZ.",  "EDGE",   "FILL",   "LINE",  "MOVE", "OVAL",
    "POLY", "R.POLY", "SEP.",   "FSHAPE", "SSHAPE", "SPIRAL", "SPLINE", "SPRAY", "TEXT",
};
static_assert(std::size(tool_names) == TOOL_COUNT, "the name of a tool is missing");

inline constexpr const char* ink_names[] = {
    "ADD",    "BRIGHT", "CLOSE",  "DARK",   "EMBOSS", "GLASS",  "GLOW",   "GRAIN",  "GRAY",
    "H.GRAD", "HOLLOW", "JUMBLE", "L.GRAD", "OPAQUE", "PULL",   "R.GRAD", "SCRAPE", "SPARK",
    "SOFTEN", "SUB",    "SWEEP",  "TILE",   "UNZAG",  "V.GRAD", "XOR",
};

inline constexpr const char* option_names[] = {
    "- M O U S E   P O I N T E R -",
    "MOUSE - BUTTONS",
    "MOUSE - CURSOR SCALING",
    "MOUSE - ANTI-JITTER",
    "MOUSE - BRUSH TIP",
    "",
    "- C R O S S H A I R S -",
    "CROSSHAIRS - COLOR",
    "CROSSHAIRS - SCALING",
    "CROSSHAIRS - OPACITY",
    "",
    "- C E L   H A N D L I N G -",
    "CEL - MASKING",
    "CEL - TOLERANCE",
    "",
    "- O P T I M I Z A T I O N -",
    "POWER SAVING MODE",
    "256 COLOR REDUCTION",
    "UNDO DEPTH",
    "",
    "- S T A T U S   B A R -",
    "STATUS BAR - DISPLAY",
    "STATUS BAR - FONT",
    "STATUS BAR - OPACITY",
    "",
    "- Z O O M   P R E V I E W -",
    "ZOOM PREVIEW - MODE",
    "ZOOM PREVIEW - SIZE",
    "",
    "- F I L E   P R E V I E W -",
    "FILE PREVIEW - MODE",
    "FILE PREVIEW - SIZE LIMIT",
    "",
    "- O N I O N   S K I N -",
    "ONION SKIN - MODE",
    "ONION SKIN - OPACITY",
    "",
    "- M I S C E L L A N E O U S -",
    "TOOLTIPS",
    "BACKLESS MODE",
    "SHOW TOOL DISTANCE",
    "QUICK PAN - OPACITY",
};

} // namespace kelu
