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

} // namespace kelu
