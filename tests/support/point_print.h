// SPDX-License-Identifier: MIT
// How a failed test shows a point.
#pragma once

#include "draw/point_list.h"
#include <ostream>

namespace kelu {

inline void PrintTo(const Point& p, std::ostream* out) { *out << '(' << p.x << ", " << p.y << ')'; }

} // namespace kelu
