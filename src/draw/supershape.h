// "SSHAPE": the superformula (Johan Gielis, A generic geometric transformation that unifies a wide range of natural
// and abstract shapes, 2003), set by a panel of sliders.
#pragma once

#include "draw/point_list.h"

namespace kelu {

/// The panel's values. Stored with the workspace; written when a shape is accepted.
struct SupershapeSettings {
    int degrees = 0;        ///< 0 to 359
    int n1 = 30;            ///< hundredths, 0 to 3000
    int n2 = 170, n3 = 170; ///< hundredths, -3000 to 3000
    int arms = 5;           ///< 1 to 20
    int magnitude = 100;    ///< frame pixels for a distance of 1, 0 to 500
};
inline SupershapeSettings supershape_settings;

constexpr int supershape_points = 640; ///< samples of the outline; a list holds the first one again at its end

/// The point of the superformula at direction `phi` (radians), as a distance of about 1 from the centre: with
/// t = m phi / 4, r = (|cos t|^n2 + |sin t|^n3)^(1 / n1), (cos phi, sin phi) / r; (0, 0) where r is 0.
void supershape_point(double m, double n1, double n2, double n3, double phi, double* x, double* y);

/// Puts the outline about (cx, cy) into `points`, closed by its first point, and its box into `bounds`. `segment` is
/// called for each stretch that a preview shows: those that don't begin on an axis through the centre, and the last
/// one, which closes the outline.
void plot_supershape(int cx, int cy, const SupershapeSettings& settings, Points& points, Bounds& bounds,
                     FunctionRef<void(Point from, Point to)> segment);

/// The tool: the panel over the canvas, node 0 the centre.
void supershape_tool();

} // namespace kelu
