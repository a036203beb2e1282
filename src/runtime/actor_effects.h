// SPDX-License-Identifier: MIT
// Fields of an actor that only its renderer reads: particles, plasma, splash, glow and waves. The behaviours move
// them on the timer thread; a reset of the row resets them with it.
#pragma once

#include "base/words.h"
#include <array>
#include <cstdint>

namespace kelu {

constexpr int max_particles = 128; ///< particles of one actor
constexpr int plasma_side = 32;    ///< width and height of a plasma field
constexpr int max_walkers = 4;     ///< places of a plasma field that are lit at random
constexpr int plasma_empty = 0xff; ///< a place of the field that no longer ages

/// One particle, relative to its actor.
struct Particle {
    std::array<Shared16, 3> offset{};    ///< pixels from the actor
    std::array<Shared16, 3> direction{}; ///< pixels a run
    Shared16 age = 0;                    ///< runs since the last restart
};

struct Particles {
    Shared16 total = 0;     ///< particles in use; above 128 the behaviour refuses
    Shared16 age_limit = 0; ///< runs until a particle starts again
    Shared16 spread = 0;    ///< a restarted particle lies at most this many pixels from its actor, on each axis
    std::array<Particle, max_particles> particles{};
};

/// A field of ages, drawn as glowing gas: each row is a stream that starts at its last place.
struct Plasma {
    std::array<Shared16, 3> limits{};            ///< runs between two agings, two walks and two shifts
    std::array<Shared16, max_walkers> walkers{}; ///< rows that are lit, 0 to 31
    std::array<std::array<Shared<uint8_t>, plasma_side>, plasma_side> field{}; ///< by row; 0 youngest, 255 empty
};

struct Splash {
    std::array<Shared16, 3> limits{}; ///< runs of each phase
};

struct Glow {
    Shared16 level = 0; ///< 0 brightest to 13 none
    Shared16 cel = 0;   ///< cel counter, 0 to 31
};

/// A wave over an actor's picture, along one axis.
struct Wave {
    Shared16 a = 0, b = 0; ///< the renderer's two measures: length and height
    Shared16 phase = 0;    ///< 0 to 255
};

/// The bloom of the whole picture. Written by its behaviour, read by a renderer.
/// Writers: framework.
struct Bloom {
    Shared<int> value_a = 0, value_b = 0; ///< what blooms
    Shared<int> level_a = 0, level_b = 0; ///< how much, running down to 0
};
inline Bloom bloom;

} // namespace kelu
