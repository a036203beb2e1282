// SPDX-License-Identifier: MIT
// Where a writer of pictures gets its pixels from, one row at a time, so that a large frame needs no second copy.
#pragma once

#include <functional>

namespace kelu {

/// Fills `pixels` with the packed pixels of row y, counted from the top of the picture.
using RowSource = std::function<void(int y, int* pixels)>;

} // namespace kelu
