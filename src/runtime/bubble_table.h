// SPDX-License-Identifier: MIT
// The table of speech bubbles. It is beside the actors, since the end of an actor ends its bubbles.
#pragma once

#include "base/words.h"
#include <array>
#include <cstdint>

namespace kelu {

constexpr int max_bubbles = 32;         ///< rows of the table; row 0 isn't used
constexpr int bubble_text_size = 1500;  ///< bytes of a text, its end mark with it
constexpr int bubble_break_count = 255; ///< line ends of a text, the end mark with it
constexpr int bubble_mark_count = 10;
constexpr int bubble_text_end = 0xff; ///< is behind the last character

enum BubbleState : int { BUBBLE_OPENING, BUBBLE_TYPING, BUBBLE_HOLDING, BUBBLE_CLOSING };

/// One bubble. `bubble_say` fills a row and writes `bubble_actor` last; the bubble tick moves it; the painter reads.
struct Bubble {
    Shared<int> bubble_state = BUBBLE_OPENING;
    Shared<int> bubble_life = 0;                                    ///< ticks to hold (45 Hz), -1: until it is closed
    std::array<Shared<uint8_t>, bubble_text_size> bubble_text{};    ///< characters without colour codes
    std::array<Shared<uint8_t>, bubble_text_size> bubble_colours{}; ///< colour set of each character
    std::array<Shared16, bubble_text_size> bubble_fades{};          ///< opacity of each character, 31 to 255
    std::array<Shared16, bubble_break_count> bubble_breaks{};       ///< words at which a line ends, -1 behind the last
    std::array<Shared<uint8_t>, bubble_mark_count> bubble_marks{};  ///< marks that a text laid out by hand sets
    Shared16 bubble_typed = 0;                                      ///< characters in play
    Shared16 bubble_type_rate = 0;                                  ///< characters added at a time
    Shared<int> bubble_fade_step = 0;                               ///< opacity that a character gains at each tick
    Shared<int> bubble_reveal = 0;    ///< above this opacity of the last character the next one starts
    Shared<int> bubble_width = 0;     ///< pixels
    Shared<int> bubble_height = 0;    ///< pixels
    Shared<int> bubble_open = 0;      ///< height opened so far, pixels
    Shared<int> bubble_colour = 0;    ///< palette index of the panel
    Published<int> bubble_actor = -1; ///< the actor whose bubble it is; -1: free
};
inline std::array<Bubble, max_bubbles> bubbles;

inline Bubble& bubble_at(int row) { return bubbles[row]; }
/// Frees a row, 1 to 31; any other number does nothing.
void release_bubble(int row);

} // namespace kelu
