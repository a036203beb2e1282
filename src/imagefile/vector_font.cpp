// SPDX-License-Identifier: MIT
// The library, and fonts from load to destruction: sizes and settings.
#include "imagefile/vector_font.h"

#include "imagefile/glyph_cache.h"
#include "platform/files.h"
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace kelu {
namespace {

FT_Library library = nullptr; ///< made by `font_system_init`

constexpr std::size_t largest_file = 128 << 20;
constexpr int largest_nominal_size = 4096; ///< pixels for an em: fonts whose lines are lower than this allows have none
constexpr int highest_strike = 512;        ///< pixels of a line of bitmaps
constexpr int last_style = 2;

/// Height of a line at the size that is set in the face.
int line_height(FT_Face face)
{
    if (!face->size) return 0;
    const FT_Size_Metrics& metrics = face->size->metrics;
    const long height = std::labs(metrics.ascender >> 6) + std::labs(metrics.descender >> 6);
    return static_cast<int>(std::min(height, 1L << 24));
}

/// Height of a line when an em has `nominal` pixels, -1 when the face refuses.
int line_height_at(FT_Face face, int nominal)
{
    return FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(nominal)) == 0 ? line_height(face) : -1;
}

/// Walks the nominal size by single steps until the line is as high as asked, or as near above it as steps come.
/// Returns the nominal size, which is set in the face; -1 when there is none.
int walk_to_height(FT_Face face, int height)
{
    int nominal = height;
    int reached = line_height_at(face, nominal);
    const int step = reached < height ? 1 : -1;
    while (reached >= 0 && reached != height) {
        nominal += step;
        if (nominal < 1 || nominal > largest_nominal_size) return -1;
        reached = line_height_at(face, nominal);
        if (step > 0 && reached > height) break;
        if (step < 0 && reached < height) {
            reached = line_height_at(face, ++nominal);
            break;
        }
    }
    return reached < 0 ? -1 : nominal;
}

/// Selects the first size of a font of bitmaps whose line's height passes. False, with no size changed for good, when
/// there is none.
template <class Passes>
bool select_strike(VectorFont& font, Passes passes)
{
    for (FT_Int strike = 0; strike < font.face->num_fixed_sizes; ++strike) {
        if (FT_Select_Size(font.face, strike) != 0 || !passes(line_height(font.face))) continue;
        font.size = line_height(font.face);
        return true;
    }
    return false;
}

int set_strike(VectorFont& font, int height)
{
    const int before = font.size;
    const auto of_height = [](int wanted) { return [wanted](int found) { return found == wanted; }; };
    if (select_strike(font, of_height(height))) return 0;
    select_strike(font, of_height(before));
    return -1;
}

int set_outline_size(VectorFont& font, int height)
{
    const int nominal = walk_to_height(font.face, height);
    if (nominal < 0) {
        if (font.nominal_size > 0) line_height_at(font.face, font.nominal_size);
        return -1;
    }
    font.nominal_size = nominal;
    font.size = height;
    return 0;
}

/// Unicode where the font has it; the others keep the map that FreeType has chosen, or take their first.
void choose_characters(FT_Face face)
{
    if (FT_Select_Charmap(face, FT_ENCODING_UNICODE) != 0 && !face->charmap && face->num_charmaps > 0)
        FT_Set_Charmap(face, face->charmaps[0]);
}

} // namespace

int font_system_init()
{
    if (library) return 0;
    return FT_Init_FreeType(&library);
}

bool font_system_ready() { return library != nullptr; }

void font_system_exit()
{
    open_fonts = {};
    if (library) FT_Done_FreeType(library);
    library = nullptr;
}

FontOwner font_load(const std::string& name)
{
    std::vector<uint8_t> bytes;
    return platform::read_file(name, largest_file, bytes) ? font_open(std::move(bytes)) : FontOwner();
}

FontOwner font_open(std::vector<uint8_t> file)
{
    FontOwner font(new VectorFont);
    font->file = std::move(file);
    if (!library) return {};
    if (FT_New_Memory_Face(library, font->file.data(), static_cast<FT_Long>(font->file.size()), 0, &font->face) != 0)
        return {};
    choose_characters(font->face);
    font->fixed_sizes = !FT_IS_SCALABLE(font->face);
    const auto sensible = [](int height) { return height >= 1 && height <= highest_strike; };
    if (font->fixed_sizes && !select_strike(*font, sensible)) return {};
    return font;
}

void font_destroy(VectorFont* font)
{
    if (!font) return;
    if (font->face && library) FT_Done_Face(font->face);
    delete font;
}

int font_set_size(VectorFont& font, int height)
{
    if (height < 1 || height > largest_nominal_size) return -1;
    if (height == font.size) return 0;
    const int result = font.fixed_sizes ? set_strike(font, height) : set_outline_size(font, height);
    if (result == 0) release_glyphs(font);
    return result;
}

void font_set_spacing(VectorFont& font, int pixels) { font.spacing = std::clamp(pixels, 0, max_font_spacing); }

void font_set_language(VectorFont& font, const char* language) { font.language = language ? language : ""; }

void font_set_style(VectorFont& font, int style) { font.style = std::clamp(style, 0, last_style); }

void font_set_up(VectorFont& font, int spacing, int height)
{
    font_set_language(font, "chinese-traditional");
    font_set_style(font, last_style);
    font_set_text_mode(text_mode_transparent);
    font_set_spacing(font, spacing);
    font_set_size(font, height);
}

int font_text_height(const VectorFont& font) { return line_height(font.face); }

} // namespace kelu
