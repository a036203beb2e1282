// SPDX-License-Identifier: MIT
// The readers of the text pictures.
#include "text_art.h"

#include "runtime/pixels.h"
#include "runtime/sheets.h"
#include "text_lines.h"
#include <set>
#include <sstream>

namespace kelu::tools {
namespace {

constexpr std::size_t tip_count = 36;

int hex_color(const Lines& lines, const std::string& text)
{
    if (text.size() != 6 || text.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
        lines.fail("'" + text + "' is no colour RRGGBB");
    return static_cast<int>(std::stoul(text, nullptr, 16));
}

/// The line "WORD a b", as its two numbers.
std::pair<int, int> need_pair(Lines& lines, const std::string& word)
{
    std::istringstream line(lines.need());
    std::string first;
    int a = 0, b = 0;
    if (!(line >> first >> a >> b) || first != word) lines.fail("expected '" + word + "' and two numbers");
    return {a, b};
}

/// A row of a picture of exactly `w` letters, each of `letters`.
std::string need_row(Lines& lines, std::size_t w, const std::string& letters)
{
    std::string row = lines.need();
    if (row.size() != w)
        lines.fail("the row has " + std::to_string(row.size()) + " letters instead of " + std::to_string(w));
    if (const auto bad = row.find_first_not_of(letters); bad != std::string::npos)
        lines.fail(std::string("the letter '") + row[bad] + "' is not declared");
    return row;
}

} // namespace

Palette read_palette(const std::string& file)
{
    Lines lines(file);
    Palette palette{};
    std::set<int> seen;
    for (std::size_t i = 0; i < palette.size();) {
        std::istringstream line(lines.need());
        std::size_t index = 0;
        if (!(line >> index) || index != i) lines.fail("expected the colours from index " + std::to_string(i) + " on");
        for (std::string text; line >> text; ++i) {
            if (i == palette.size()) lines.fail("more than 256 colours");
            palette[i] = hex_color(lines, text);
            if (!seen.insert(palette[i] & 0xfcfcfc).second) lines.fail(text + " is there already, at 6 bits a channel");
            if ((palette[i] & 0xfcfcfc) == (mask_magenta & 0xfcfcfc)) lines.fail("magenta is the mask");
        }
    }
    return palette;
}

TextPicture read_picture(const std::string& file)
{
    Lines lines(file);
    TextPicture picture;
    std::tie(picture.w, picture.h) = need_pair(lines, "size");
    if (!bitmap_size_valid(picture.w, picture.h)) lines.fail("no such size");

    std::string letters;
    std::string text = lines.need();
    for (; text.starts_with("colour ") || text.starts_with("clear "); text = lines.need()) {
        std::istringstream line(text);
        std::string word, letter, color;
        line >> word >> letter >> color;
        if (letter.size() != 1) lines.fail("a colour has one letter");
        if (!picture.colors.emplace(letter[0], word == "clear" ? clear_pixel : hex_color(lines, color)).second)
            lines.fail("the letter is declared already");
        letters += letter;
    }
    picture.rows.push_back(text);
    if (text.size() != static_cast<std::size_t>(picture.w) || text.find_first_not_of(letters) != std::string::npos)
        lines.fail("expected a colour or the first row");
    while (picture.rows.size() < static_cast<std::size_t>(picture.h))
        picture.rows.push_back(need_row(lines, static_cast<std::size_t>(picture.w), letters));
    if (lines.next()) lines.fail("more rows than the size says");
    return picture;
}

TextFont read_font(const std::string& file)
{
    Lines lines(file);
    TextFont font;
    std::tie(font.cell_w, font.cell_h) = need_pair(lines, "cell");
    std::tie(font.shadow_dx, font.shadow_dy) = need_pair(lines, "shadow");
    std::set<int> seen;
    while (const auto text = lines.next()) {
        std::istringstream line(*text);
        std::string word, name, advance_word, drop_word;
        TextGlyph glyph;
        if (!(line >> word >> name >> advance_word >> glyph.advance >> drop_word >> glyph.drop) || word != "glyph")
            lines.fail("expected 'glyph NAME advance N drop N'");
        glyph.code = glyph_code(lines, name);
        if (!seen.insert(glyph.code).second) lines.fail("the glyph is there already");
        if (glyph.advance < 1 || glyph.advance > 16 || glyph.drop < 0 || glyph.drop > 8)
            lines.fail("advance 1 to 16, drop 0 to 8");
        for (int y = 0; y < font.cell_h; ++y) {
            std::string row = lines.need();
            if (row.size() > static_cast<std::size_t>(font.cell_w) || row.find_first_not_of("#+.") != std::string::npos)
                lines.fail("a glyph's row has at most the cell's width, of '#', '+' and '.'");
            glyph.rows.push_back(std::move(row));
        }
        font.glyphs.push_back(std::move(glyph));
    }
    return font;
}

std::vector<TextTip> read_tips(const std::string& file)
{
    Lines lines(file);
    std::vector<TextTip> tips;
    while (tips.size() < tip_count) {
        std::istringstream line(lines.need());
        std::string word;
        std::size_t number = 0;
        if (!(line >> word >> number) || word != "tip" || number != tips.size())
            lines.fail("expected 'tip " + std::to_string(tips.size()) + "'");
        TextTip tip;
        for (int y = 0; y < tip_cell_h; ++y)
            tip.push_back(need_row(lines, tip_cell_w, "#987654321."));
        tips.push_back(std::move(tip));
    }
    return tips;
}

} // namespace kelu::tools
