// SPDX-License-Identifier: MIT
// The start values of the colour sets.
#include "gui/text_colours.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>

namespace kelu {
namespace {

constexpr int stays = marker_stays;

struct SetRow {
    int set;
    ColourSet colours;
};

/// A set of the two tones that letters are made of.
constexpr SetRow letters(int set, int lit, int shaded)
{
    return {set, {lit, shaded, stays, stays, stays, stays, stays, stays}};
}

constexpr SetRow rows[] = {
    {1, {0xdadada, 0xbebeba, 0x9da19d, 0x818581, 0x656565, 0x484844, stays, stays}},
    {2, {0xc2faff, 0x85faff, 0x48fafa, 0x0cfafa, 0x00cece, 0x009195, 0x005559, 0x001c1c}},
    {3, {0xfa8d48, 0xfa690c, 0xce4c00, 0x953400, 0x592000, stays, stays, stays}},
    {4, {0x000081, 0x000082, 0x000083, 0x000084, 0x000085, 0x000086, stays, stays}},
    {SET_BLACK, {0x000000, 0x000000, 0x000000, 0x000000, 0x000000, 0x000000, stays, stays}},
    {6, {0x957959, 0x81694c, 0x6d5940, 0x5d4c34, 0x483c2c, 0x342c20, 0x241c14, 0x100c08}},
    {7, {0x597195, 0x4c6181, 0x40556d, 0x34445d, 0x2c3848, 0x202834, 0x141c24, 0x080c10}},
    {8, {0x7d7d95, 0x696d85, 0x595d71, 0x4c4c5d, 0x3c3c48, 0x2c2c34, 0x1c1c24, 0x0c0c10}},
    {9, {0x959159, 0x817d4c, 0x6d6d40, 0x5d5934, 0x48482c, 0x343420, 0x242414, 0x101008}},
    {10, {0x89a159, 0x798d4c, 0x697940, 0x556538, 0x44502c, 0x303820, 0x202414, 0x101008}},
    {11, {0xc285ff, 0xa548fa, 0x890cfa, 0x6900ce, 0x4c0095, 0x2c0059, 0x0c001c, 0xdadada}},
    {12, {0xdeffc2, 0xc2ff85, 0xa1fa48, 0x85fa0c, 0x65ce00, 0x489500, 0x285900, 0x0c1c00}},
    {14, {0xffc2c2, 0xff8585, 0xfa4848, 0xfa0c0c, 0xce0000, 0x950000, 0x590000, 0x1c0000}},
    {15, {0x5d919d, 0x507d89, 0x446d75, 0x385961, 0x2c484c, 0x203438, 0x203438, 0x142024}},
    {16, {0xffeec2, 0xffde85, 0xfad248, 0xfac20c, 0xce9d00, 0x956d00, 0x594000, 0x1c1400}},
    letters(SET_TOOLTIP, 0xbebeba, 0x9da19d),
    letters(23, 0xfa690c, 0xce4c00),
    letters(SET_MESSAGE, 0xfac20c, 0xce9d00),
    letters(28, 0x7d7d95, 0x696d85),
    letters(SET_FRAME, 0xa1fa48, 0x65ce00),
    letters(33, 0xfa8d48, 0xfa690c),
    letters(SET_FONT_NAME, 0xfa0c0c, 0xce0000),
    letters(35, 0x385961, 0x2c484c),
    letters(SET_WARNING, 0xfac20c, 0xce9d00),
    letters(SET_BUTTON, 0x000000, 0x000000),
    letters(SET_LIGHT_ALT, 0xfa0c0c, 0xfa0c0c),
    letters(SET_SELECTED, 0x005cbc, 0x005cbc),
    letters(SET_HIGHLIGHT, 0x404040, 0x404040),
    letters(SET_LIGHT, 0xdadada, 0xdadada),
    letters(SET_ONION, 0xf58f2a, 0xf58f2a),
    letters(SET_FOLDER, 0x7d0303, 0x7d0303),
    letters(SET_ALPHA, 0x00a4e5, 0x00a4e5),
};

} // namespace

void init_text_colours()
{
    for (ColourSet& set : text_colours)
        set.fill(marker_stays);
    for (const SetRow& row : rows)
        text_colours[row.set] = row.colours;
}

void set_letter_colour(int set, int colour)
{
    ColourSet& colours = text_colours[set];
    colours[0] = colour;
    colours[1] = colour;
}

} // namespace kelu
