// SPDX-License-Identifier: MIT
// Texts against their grounds, as the open screen shows them.
#pragma once

#include <map>

namespace kelu::test {

/// Two packed colours.
struct TextPair {
    int text = 0, ground = 0;
    bool operator==(const TextPair& other) const = default;
    bool operator<(const TextPair& other) const
    {
        return text != other.text ? text < other.text : ground < other.ground;
    }
};

/// How far two colours differ in lightness: 1 for none, 21 for black and white (the ratio of relative luminances).
double contrast(const TextPair& pair);

/// All pairs of the frame that is composed now, with the number of pixels. Composes it several times, between two
/// frames of a session.
std::map<TextPair, int> text_pairs();

} // namespace kelu::test
