// SPDX-License-Identifier: MIT
// Distances and angles.
#include "base/maths.h"

#include <cmath>

namespace kelu {

int dist2(int x1, int y1, int x2, int y2) { return dist3(x1, y1, 0, x2, y2, 0); }

int dist3(int x1, int y1, int z1, int x2, int y2, int z2)
{
    const auto square = [](int a, int b) { return (double(a) - b) * (double(a) - b); };
    return static_cast<int>(std::sqrt(square(x1, x2) + square(y1, y2) + square(z1, z2)));
}

float angle_between(int x1, int y1, int x2, int y2)
{
    constexpr float degrees = 57.29577950560105F;
    const float run = x2 == x1 ? 0.000001F : static_cast<float>(x2 - x1);
    const float rise = static_cast<float>(y2 - y1);
    float angle = std::atan(rise / run) * degrees;
    if (run < 0) {
        angle += 180;
    } else if (rise < 0) {
        angle += 360;
    }
    angle -= 90;
    return angle < 0 ? angle + 360 : angle;
}

} // namespace kelu
