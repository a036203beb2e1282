// SPDX-License-Identifier: MIT
// The values with which the panels of the shape tools open: those that were last accepted.
#pragma once

namespace kelu {

/// Regular polygon.
struct RpolySettings {
    int angle = 0;  ///< degrees, 0 to 359
    int radius = 0; ///< frame pixels, 0 to 500; below 1 counts as 1
    int sides = 0;  ///< 3 to 32; anything else counts as 3
};

struct SpiralSettings {
    int angle = 0;  ///< degrees, 0 to 359
    int scale = 0;  ///< 1 to 500
    int wraps = 0;  ///< turns, 1 to 64
    int spread = 0; ///< 0 to 255
    int flip = 0;   ///< 1: winds the other way
    friend bool operator==(const SpiralSettings&, const SpiralSettings&) = default;
};

/// Gielis' superformula.
struct SupershapeSettings {
    int degrees = 0;    ///< 0 to 359
    int n1 = 0;         ///< hundredths, 0 to 3000
    int n2 = 0, n3 = 0; ///< hundredths, -3000 to 3000
    int arms = 0;       ///< 1 to 20
    int magnitude = 0;  ///< 0 to 500; 0 opens as 100
};

/// Owner: the shape tools. Also written by the state file.
/// Writers: tools.
struct ShapeSettings {
    RpolySettings rpoly_settings;
    SpiralSettings spiral_settings;
    SupershapeSettings supershape_settings;
};
inline ShapeSettings shape_settings;

} // namespace kelu
