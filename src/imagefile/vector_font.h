// SPDX-License-Identifier: MIT
// Vector fonts: text in TrueType and other outline fonts, drawn into a bitmap. A thin layer over FreeType.
//
// A font's file lies in memory while the font lives, so that nothing happens when it changes on disk. Sizes are those
// of a line in pixels, ascender and descender together, not the nominal size of the design. A character is a byte,
// read as Latin-1. Main thread.
#pragma once

#include "base/bitmap.h"
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kelu {

/// Most extra pixels between two letters.
constexpr int max_font_spacing = 4096;
/// Text mode in which nothing is drawn behind the letters.
constexpr int text_mode_transparent = -1;

/// A loaded font: face, size, spacing, glyph cache. Its members are in glyph_cache.h.
struct VectorFont;
/// Frees glyphs, face and record. Null is accepted.
void font_destroy(VectorFont* font);
struct FontDestroyer {
    void operator()(VectorFont* font) const { font_destroy(font); }
};
/// Owner of a font.
using FontOwner = std::unique_ptr<VectorFont, FontDestroyer>;

/// The fonts that are open between uses. Main thread.
/// Writers: workspace.
struct OpenFonts {
    FontOwner text_font;    ///< of the text tool; written by `load_vector_font`, empty before a workspace is there
    FontOwner preview_font; ///< of the file browser; written by `update_font_preview`
};
inline OpenFonts open_fonts;

/// Creates the library, once. 0 on success.
int font_system_init();
/// True between the two calls. Tools and tests that never make them have no fonts.
bool font_system_ready();
/// Frees the open fonts and the library. All other fonts must have gone.
void font_system_exit();

/// Loads a font of the working directory: outlines, or bitmaps of fixed sizes. Empty on any error: not a regular file,
/// larger than 128 MB, no font, no size of a sensible height. An outline font has no size yet and draws nothing.
FontOwner font_load(const std::string& name);
/// The same from the bytes of a file.
FontOwner font_open(std::vector<uint8_t> file);
/// Sets the height of a line, in pixels. 0; or -1 when it can't be set, and the old size stays. A font of fixed sizes
/// has just these.
int font_set_size(VectorFont& font, int height);
/// Extra pixels that are added to every advance, held to 0 to `max_font_spacing`.
void font_set_spacing(VectorFont& font, int pixels);
/// What lies behind the letters of all fonts: a packed colour, or `text_mode_transparent`. Returns the old value.
int font_set_text_mode(int background);
/// Keeps the name of the language that the font is used for; null clears it. Letters of all languages look alike.
void font_set_language(VectorFont& font, const char* language);
/// Keeps the style, held to 0 to 2. All styles look alike.
void font_set_style(VectorFont& font, int style);

/// What the program sets in every font that it loads: language, style, no ground behind letters, spacing and size.
void font_set_up(VectorFont& font, int spacing, int height);

/// Width of a text in pixels, the spacing behind its last letter included.
int font_text_length(VectorFont& font, const char* text);
/// Height of a line in pixels; 0 while the font has no size.
int font_text_height(const VectorFont& font);
/// Draws a text with soft edges, its line's top left corner at (x, y), clipped to the bitmap.
void font_draw_text(BITMAP* bitmap, VectorFont& font, const char* text, int x, int y, int color);
/// The same with hard edges: a pixel is the colour or as it was.
void font_draw_text_plain(BITMAP* bitmap, VectorFont& font, const char* text, int x, int y, int color);
/// Fills the bitmap with `background` and draws a text with soft edges, whatever the text mode.
void font_draw_sample(BITMAP* bitmap, VectorFont& font, const char* text, int x, int y, int color, int background);

} // namespace kelu
