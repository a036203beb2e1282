// SPDX-License-Identifier: MIT
// Rendering of glyphs. FreeType bounds what it computes; what it allocates is bounded here, before it does.
#include "imagefile/glyph_cache.h"
#include "base/sizes.h"

#include <algorithm>
#include FT_GLYPH_H
#include FT_BITMAP_H

namespace kelu {
namespace {

/// Larger than any letter of a line of 350 pixels, flourishes included.
constexpr FT_Pos max_glyph_side = 4096;
constexpr FT_Pos max_glyph_pixels = 1 << 20;
constexpr FT_Pos farthest_bearing = 1 << 15;
constexpr int max_advance = 1 << 15;
/// Where symbol fonts keep their 256 characters.
constexpr FT_ULong symbol_page = 0xf000;

struct GlyphDestroyer {
    void operator()(FT_Glyph glyph) const { FT_Done_Glyph(glyph); }
};
using GlyphOwner = std::unique_ptr<FT_GlyphRec, GlyphDestroyer>;

/// A bitmap that FreeType makes, for the time of a block.
class ConvertedBitmap {
public:
    ConvertedBitmap(FT_Library library, const FT_Bitmap& source) : library_(library)
    {
        FT_Bitmap_Init(&bitmap_);
        if (FT_Bitmap_Convert(library_, &source, &bitmap_, 1) != 0) bitmap_.rows = bitmap_.width = 0;
    }
    ~ConvertedBitmap() { FT_Bitmap_Done(library_, &bitmap_); }
    ConvertedBitmap(const ConvertedBitmap&) = delete;
    ConvertedBitmap& operator=(const ConvertedBitmap&) = delete;
    const FT_Bitmap* operator->() const { return &bitmap_; }
    const uint8_t* line(unsigned y) const { return bitmap_.buffer + static_cast<long>(y) * bitmap_.pitch; }

private:
    FT_Library library_;
    FT_Bitmap bitmap_{};
};

bool size_sensible(FT_Pos w, FT_Pos h)
{
    return w >= 0 && h >= 0 && w <= max_glyph_side && h <= max_glyph_side && w * h <= max_glyph_pixels;
}

bool place_sensible(FT_Pos x, FT_Pos y)
{
    return x >= -farthest_bearing && x <= farthest_bearing && y >= -farthest_bearing && y <= farthest_bearing;
}

bool box_sensible(FT_Glyph glyph)
{
    FT_BBox box;
    FT_Glyph_Get_CBox(glyph, FT_GLYPH_BBOX_PIXELS, &box);
    return place_sensible(box.xMin, box.yMin) && place_sensible(box.xMax, box.yMax) &&
           size_sensible(box.xMax - box.xMin, box.yMax - box.yMin);
}

/// Strength of a pixel. A font's own bitmaps may be of two tones, which are all or nothing.
uint8_t strength(uint8_t grey, unsigned greys)
{
    if (greys <= 2) return grey ? 255 : 0;
    return static_cast<uint8_t>(std::min(255U, grey * (256U / greys)));
}

/// Takes over what FreeType has rendered, a byte a pixel.
GlyphForm form_of(FT_Library library, const FT_BitmapGlyphRec& rendered)
{
    GlyphForm form;
    if (!size_sensible(rendered.bitmap.width, rendered.bitmap.rows) || !place_sensible(rendered.left, rendered.top))
        return form;
    form.exists = true;
    if (!rendered.bitmap.buffer) return form; // a blank; a damaged font gives it a size all the same
    const ConvertedBitmap bytes(library, rendered.bitmap);
    form.w = static_cast<int>(bytes->width);
    form.h = static_cast<int>(bytes->rows);
    form.left = rendered.left;
    form.top = rendered.top;
    form.pixels.resize(product(form.w, form.h));
    uint8_t* out = form.pixels.data();
    for (unsigned y = 0; y < bytes->rows; ++y) {
        const uint8_t* line = bytes.line(y);
        for (unsigned x = 0; x < bytes->width; ++x)
            *out++ = strength(line[x], bytes->num_grays);
    }
    return form;
}

GlyphForm render(FT_Library library, FT_Glyph glyph, FT_Render_Mode mode)
{
    FT_Glyph copy = nullptr;
    if (FT_Glyph_Copy(glyph, &copy) != 0) return {};
    GlyphOwner owner(copy);
    if (copy->format != FT_GLYPH_FORMAT_BITMAP) {
        if (!box_sensible(copy) || FT_Glyph_To_Bitmap(&copy, mode, nullptr, 1) != 0) return {};
        static_cast<void>(owner.release()); // FreeType has put the bitmap in the place of the outline
        owner.reset(copy);
    }
    return form_of(library, *reinterpret_cast<FT_BitmapGlyph>(copy));
}

FT_UInt glyph_index(FT_Face face, uint8_t character)
{
    const FT_UInt index = FT_Get_Char_Index(face, character);
    return index ? index : FT_Get_Char_Index(face, symbol_page + character);
}

Glyph make_glyph(FT_Face face, uint8_t character)
{
    Glyph made;
    made.rendered = true;
    FT_Glyph glyph = nullptr;
    if (FT_Load_Glyph(face, glyph_index(face, character), FT_LOAD_DEFAULT) != 0) return made;
    if (FT_Get_Glyph(face->glyph, &glyph) != 0) return made;
    const GlyphOwner owner(glyph);
    made.advance = static_cast<int>(std::clamp<FT_Pos>((glyph->advance.x + 0x8000) >> 16, 0, max_advance));
    FT_Library library = face->glyph->library;
    made.plain = render(library, glyph, FT_RENDER_MODE_MONO);
    made.antialiased = render(library, glyph, FT_RENDER_MODE_NORMAL);
    return made;
}

} // namespace

const Glyph& cached_glyph(VectorFont& font, uint8_t character)
{
    Glyph& glyph = font.glyphs[character];
    if (!glyph.rendered) glyph = make_glyph(font.face, character);
    return glyph;
}

void release_glyphs(VectorFont& font) { font.glyphs.fill({}); }

} // namespace kelu
