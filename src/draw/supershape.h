// SPDX-License-Identifier: MIT
// "SSHAPE": the superformula (Johan Gielis, A generic geometric transformation that unifies a wide range of natural
// and abstract shapes, 2003).
#pragma once

#include "draw/point_list.h"
#include "runtime/shape_settings.h"

namespace kelu {

constexpr int supershape_points = 640; ///< samples of the outline; a list holds the first one again at its end

/// The point of the superformula at direction `phi` (radians), as a distance of about 1 from the centre: with
/// t = m phi / 4, r = (|cos t|^n2 + |sin t|^n3)^(1 / n1), (cos phi, sin phi) / r; (0, 0) where r is 0.
void supershape_point(double m, double n1, double n2, double n3, double phi, double* x, double* y);

/// Puts the outline about (cx, cy) into `points`, closed by its first point, and its box into `bounds`.
void plot_supershape(int cx, int cy, const SupershapeSettings& settings, Points& points, Bounds& bounds);

/// What the open panel says. Owner: the tool; its preview plots it.
/// Writers: tools.
inline SupershapeSettings shown_supershape;
/// Plots the panel's shape about node 0 into the point list, in view coordinates: frame pixels less `origin`.
void plot_shown_supershape(Point origin);

} // namespace kelu
