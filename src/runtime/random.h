// SPDX-License-Identifier: MIT
// Two Mersenne Twisters (MT19937, Matsumoto and Nishimura 1998): one for the program, one for actors and scripts.
// Seeded before main; no lock, since a draw out of turn only changes which number comes out.
#pragma once

#include <cstdint>

namespace kelu {

/// A number from 0 to n - 1, by rejection under the smallest all-ones mask; 0 for n below 2.
int rnd(int n);
/// The same on the generator of actors and scripts.
int rnd_script(int n);
/// A colour whose channels are each rnd(255), drawn in the order blue, green, red.
int random_color();
/// Makes both generators repeatable: for tests.
void seed_random(uint32_t seed);

} // namespace kelu
