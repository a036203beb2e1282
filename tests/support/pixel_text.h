// SPDX-License-Identifier: MIT
// Small pixel grids as text, for tests: one letter a pixel, one string a line.
#pragma once

#include "base/bitmap.h"
#include <map>
#include <string>
#include <vector>

namespace kelu::test {

using Legend = std::map<char, int>;

/// Builds a bitmap from lines of letters, each letter the colour that the legend gives.
Bitmap from_text(const std::vector<std::string>& lines, const Legend& legend);
/// The bitmap as lines of letters; '?' where the legend has no letter for a pixel. None for no bitmap.
std::vector<std::string> to_text(BITMAP* bitmap, const Legend& legend);

} // namespace kelu::test
