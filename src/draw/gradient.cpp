// SPDX-License-Identifier: MIT
// The derived values of the gradients' nodes.
#include "draw/gradient.h"

#include "base/maths.h"
#include "draw/ink_rows.h"
#include <cmath>

namespace kelu {
namespace {

constexpr double radians_of_degree = 0.017453277777777776;

/// Two nodes of one ink.
struct Nodes {
    int start_x, start_y, end_x, end_y;
};

Nodes nodes_of(InkId ink)
{
    const auto& cells = toolbox.ink_table[ink];
    return {cells[GRADIENT_START_X], cells[GRADIENT_START_Y], cells[GRADIENT_END_X], cells[GRADIENT_END_Y]};
}

} // namespace

void update_gradient_geometry()
{
    const Nodes line = nodes_of(INK_L_GRAD);
    const float direction = angle_between(line.start_x, line.start_y, line.end_x, line.end_y);
    const float angle = static_cast<float>(-direction * radians_of_degree);
    auto& derived = toolbox.ink_derived[INK_L_GRAD];
    derived[LINEAR_ANGLE] = angle;
    derived[LINEAR_LENGTH] = static_cast<float>(dist2(line.start_x, line.start_y, line.end_x, line.end_y));
    derived[LINEAR_SIN] = static_cast<float>(std::sin(static_cast<double>(angle)));
    derived[LINEAR_COS] = static_cast<float>(std::cos(static_cast<double>(angle)));

    const Nodes disc = nodes_of(INK_R_GRAD);
    toolbox.ink_table[INK_R_GRAD][GRADIENT_RIM] = dist2(disc.start_x, disc.start_y, disc.end_x, disc.end_y) + 1;
}

} // namespace kelu
