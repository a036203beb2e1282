// SPDX-License-Identifier: MIT
// What stands on the screens can be read: every pair of text and ground that the places of the program show, on frames
// of any lightness, with grounds behind the windows and without.
#include "runtime/shows.h"
#include "support/contrast.h"
#include "support/paths.h"
#include "support/places.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace kelu {

using namespace test;

namespace {

constexpr double least_contrast = 3;

/// Pairs that are as they are: the scheme's red on its own grounds, which a user may change.
constexpr TextPair given_pairs[] = {
    {0xfa0c0c, 0x3a3a3a}, // titles
    {0xfa0c0c, 0xdbdbdb}, // what is lit
};

/// What the fading stroke of another frame's number and the like leave behind is no text.
constexpr int least_pixels = 5;

void open_over(Session& session, const Place& place, int frame_color, bool backless)
{
    prepare(session);
    replace_frame(320, 240, frame_color);
    preferences.backless_mode = backless ? 1 : 0;
    preferences.show_tool_distance = 1;
    something_shows();
    session.frame(2);
    place.open(session);
    session.move(5, 60);
    session.frame(30);
}

bool is_given(const TextPair& pair) { return std::ranges::find(given_pairs, pair) != std::end(given_pairs); }

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

TEST(Contrast, TellsLightFromDark)
{
    EXPECT_NEAR(contrast({0, 0xffffff}), 21, 0.01);
    EXPECT_NEAR(contrast({0x808080, 0x808080}), 1, 0.01);
    EXPECT_NEAR(contrast({0x777777, 0xffffff}), 4.48, 0.01);
}

/// tests/golden/contrast.txt is the table of a dark frame; KELU_ACCEPT=1 writes it anew.
TEST(Contrast, EveryTextStandsOutFromItsGround)
{
    std::map<TextPair, std::string> seen;
    for (const auto& [frame_color, backless] : {std::pair{0x404040, false}, {0x404040, true}, {0xffffff, true}}) {
        for (const Place& place : places) {
            Session session;
            open_over(session, place, frame_color, backless);
            for (const auto& [pair, count] : text_pairs()) {
                if (count < least_pixels) continue;
                const bool good = contrast(pair) >= least_contrast || is_given(pair);
                EXPECT_TRUE(good) << place.name << (backless ? ", backless: " : ": ") << table_of({{pair, ""}});
                if (frame_color == 0x404040) seen.try_emplace(pair, place.name);
            }
        }
    }
    const std::string file = golden_folder() + "/contrast.txt";
    if (std::getenv("KELU_ACCEPT")) {
        std::ofstream(file) << table_of(seen);
        return;
    }
    std::ifstream kept(file);
    EXPECT_EQ(table_of(seen), std::string(std::istreambuf_iterator<char>(kept), {}));
}

} // namespace kelu
