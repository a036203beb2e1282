// SPDX-License-Identifier: MIT
// Nodes of the gradient inks: where they are in the option table, and what is derived from them.
#pragma once

#include "runtime/toolbox.h"

namespace kelu {

/// Columns of a gradient's options in `ink_table`. Nodes are frame pixels.
enum GradientOption : int {
    GRADIENT_START = 3, ///< H.GRAD: x, V.GRAD: y
    GRADIENT_END = 4,
    GRADIENT_START_X = 3, ///< L.GRAD, and the centre of R.GRAD
    GRADIENT_START_Y = 4,
    GRADIENT_END_X = 5, ///< L.GRAD, and a point of the rim of R.GRAD
    GRADIENT_END_Y = 6,
    GRADIENT_RIM = 7 ///< R.GRAD: radius + 1, derived
};

/// Entries of the row of L.GRAD in `ink_derived`.
enum LinearDerived : std::size_t { LINEAR_ANGLE, LINEAR_LENGTH, LINEAR_SIN, LINEAR_COS };

/// Recomputes the angle and length of L.GRAD and the radius of R.GRAD. To be called whenever nodes have changed.
void update_gradient_geometry();

} // namespace kelu
