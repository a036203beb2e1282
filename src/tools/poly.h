// SPDX-License-Identifier: MIT
// "POLY": an outline set corner by corner.
#pragma once

namespace kelu {

/// Takes a corner at each click of the left button, the press that is still down being the first; a right click closes
/// the outline and draws it. Returns 1, or 0 when the program is asked to exit meanwhile.
int poly_tool();

} // namespace kelu
