// SPDX-License-Identifier: MIT
// Distances, angles and bits.
#pragma once

namespace kelu {

/// Distance of two points, truncated.
int dist2(int x1, int y1, int x2, int y2);
/// Distance of two points in space, truncated.
int dist3(int x1, int y1, int z1, int x2, int y2, int z2);
/// Direction from the first point to the second in degrees, 0 to 360, measured from +x towards +y and turned back by
/// 90: straight down is 0. A run of 0 is taken as 0.000001.
float angle_between(int x1, int y1, int x2, int y2);
constexpr int is_odd(int n) { return n & 1; }
constexpr bool bit_test(int value, int n) { return (value >> n & 1) != 0; }
constexpr int bit_toggle(int value, int n) { return value ^ (1 << n); }

} // namespace kelu
