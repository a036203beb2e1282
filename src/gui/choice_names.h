// The names of tools and inks on their buttons, in the order of their ids; at most six letters fit.
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

} // namespace kelu
