// SPDX-License-Identifier: MIT
// What stands on the screens can be read: every pair of text and ground that the places of the program show, on frames
// of any lightness, with grounds behind the windows and without.
//
// Which pixels belong to texts is found by composing the frame once more with other colours in all sets of the text
// engine; what stands around such a pixel most often is its ground.
#include "gui/text_colours.h"
#include "loop/frame.h"
#include "runtime/pixels.h"
#include "runtime/shows.h"
#include "support/places.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <map>

namespace kelu {

using namespace test;

namespace {

/// Two packed colours.
struct TextPair {
    int text = 0, ground = 0;
    auto operator<=>(const TextPair&) const = default; // NOLINT(modernize-use-nullptr): the linter means the 0 within
};

constexpr double least_contrast = 3;

/// Pairs that are as they are: the scheme's red on its own grounds, which a user may change.
constexpr TextPair given_pairs[] = {
    {0xfa0c0c, 0x3a3a3a}, // titles
    {0xfa0c0c, 0xdbdbdb}, // what is lit
};

/// What the fading stroke of another frame's number and the like leave behind is no text.
constexpr int least_pixels = 5;

double luminance(int colour)
{
    const auto linear = [](int channel) {
        const double level = channel / 255.0;
        return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(red_of(colour)) + 0.7152 * linear(green_of(colour)) + 0.0722 * linear(blue_of(colour));
}

/// How far two colours differ in lightness: 1 for none, 21 for black and white (the ratio of relative luminances).
double contrast(const TextPair& pair)
{
    const auto [dark, light] = std::minmax({luminance(pair.text), luminance(pair.ground)});
    return (light + 0.05) / (dark + 0.05);
}

Bitmap composed()
{
    compose_frame(false);
    return screen_state.back_buffer.copy();
}

Bitmap composed_in_other_colours()
{
    const auto kept = text_colours;
    for (ColourSet& set : text_colours)
        for (int& colour : set)
            if (colour != marker_stays) colour ^= 0x010101;
    Bitmap picture = composed();
    text_colours = kept;
    return picture;
}

/// The frame as it stands, and which of its pixels are texts; the others may flicker.
struct Screen {
    Bitmap shown = composed(), other = composed_in_other_colours(), again = composed();
    int colour(int x, int y) const { return row(shown, y)[x] & 0xffffff; }
    bool is_text(int x, int y) const
    {
        return row(shown, y)[x] == row(again, y)[x] && row(shown, y)[x] != row(other, y)[x];
    }
    /// The colour that stands around a pixel most often, of those that belong to no text; -1 none.
    int ground(int x, int y) const
    {
        std::map<int, int> around;
        for (int v = y - 1; v <= y + 1; ++v)
            for (int u = x - 1; u <= x + 1; ++u)
                if (in_bitmap(shown, u, v) && !is_text(u, v)) ++around[colour(u, v)];
        const auto most = std::ranges::max_element(around, {}, [](const auto& entry) { return entry.second; });
        return most == around.end() ? -1 : most->first;
    }
};

/// All pairs of the frame that is composed now, with the number of pixels.
std::map<TextPair, int> text_pairs()
{
    const Screen screen;
    std::map<TextPair, int> pairs;
    for (int y = 0; y < logical_h; ++y) {
        for (int x = 0; x < logical_w; ++x) {
            const int ground = screen.is_text(x, y) ? screen.ground(x, y) : -1;
            if (ground >= 0) ++pairs[{screen.colour(x, y), ground}];
        }
    }
    return pairs;
}

void open_over(Session& session, const Place& place, int frame_color)
{
    prepare(session);
    replace_frame(320, 240, frame_color);
    session.frame(2);
    place.open(session);
    session.move(5, 60);
    session.frame(4);
}

void leave(Session& session, const Place& place)
{
    place.leave(session);
    session.frame(4);
    ASSERT_EQ(menus.menu_id, MENU_DRAW) << place.name;
}

/// The table of all pairs: text, ground, contrast.
std::string table_of(const std::map<TextPair, std::string>& pairs)
{
    std::string table;
    for (const auto& [pair, place] : pairs) {
        std::array<char, 100> line{};
        std::snprintf(line.data(), line.size(), "%06x on %06x %5.1f  %s\n", static_cast<unsigned>(pair.text),
                      static_cast<unsigned>(pair.ground), contrast(pair), place.c_str());
        table += line.data();
    }
    return table;
}

} // namespace

/// tests/golden/contrast.txt is the table of a dark frame; KELU_ACCEPT=1 writes it anew.
TEST(Contrast, EveryTextStandsOutFromItsGround)
{
    std::map<TextPair, std::string> seen;
    for (const auto& [frame_color, backless] : {std::pair{0x404040, 0}, {0x404040, 1}, {0xffffff, 1}}) {
        Session session;
        still_frame_check = nullptr; // takes half of the time, and all other sessions have it
        for (const Place& place : places) {
            preferences.backless_mode = backless;
            open_over(session, place, frame_color);
            for (const auto& [pair, count] : text_pairs()) {
                if (count < least_pixels) continue;
                const bool given = std::ranges::find(given_pairs, pair) != std::end(given_pairs);
                EXPECT_TRUE(given || contrast(pair) >= least_contrast)
                    << place.name << (backless ? ", backless: " : ": ") << table_of({{pair, ""}});
                if (frame_color == 0x404040) seen.try_emplace(pair, place.name);
            }
            ASSERT_NO_FATAL_FAILURE(leave(session, place));
        }
    }
    EXPECT_TRUE(text_matches_golden(table_of(seen), "contrast"));
}

} // namespace kelu
