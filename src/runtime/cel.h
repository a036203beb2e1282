// SPDX-License-Identifier: MIT
// Where the cel came from and how it was last turned. Its pictures are in store.h.
#pragma once

namespace kelu {

/// Owner: draw/cel. Also written by the state file.
/// Writers: draw, tools.
struct Cel {
    int cel_origin_x = 0, cel_origin_y = 0; ///< frame pixel it was taken from or last anchored at; anchor of patterns
    int cel_rotation = 0;                   ///< last angle of a rotation in degrees, 0 to 360
    int cel_stamp = 0;                      ///< another number for every picture that the cel has been; note_new_cel
};
inline Cel cel;

/// The cel's picture is another one, or its pixels have changed: its file follows.
inline void note_new_cel()
{
    static int last = 0;
    cel.cel_stamp = ++last;
}

} // namespace kelu
