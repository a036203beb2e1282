// The names of the ink classes. Each is defined in the file of its family, which also makes its loops.
#pragma once

namespace kelu {

// ink_blends.cpp: a colour and the pixel under the brush
struct Opaque;
struct Add;
struct Sub;
struct Bright;
struct Dark;
struct Glass;
struct Grain;
struct Xor;

// ink_shifts.cpp: the pixel's own colour, shifted
struct Gray;
struct Pull;
struct Spark;

// ink_filters.cpp, ink_glow.cpp: the pixel and its neighbours
struct Close;
struct Emboss;
struct Hollow;
struct Jumble;
struct Soften;
struct Sweep;
struct Unzag;
struct Glow;

// ink_gradients.cpp: the spectrum
struct HGrad;
struct VGrad;
struct LGrad;
struct RGrad;

// ink_patterns.cpp: the cel
struct Tile;
struct Scrape;

} // namespace kelu
