// SPDX-License-Identifier: MIT
// Short sounds: a table of samples, and two ways to play one. The editor loads no sample.
#pragma once

#include "base/words.h"
#include <allegro.h>
#include <array>

namespace kelu {

constexpr int max_samples = 100;
constexpr int sample_invalid = -1; ///< state of a row without a sample

/// One sample. Owner: whoever loads sounds at start.
struct Sample {
    SAMPLE* handle = nullptr;
    Shared<int> sample_state = sample_invalid; ///< -1: there is no such sample
    Shared<float> sample_attenuation = 0.0F;   ///< share of the volume that is taken away, 0 to 1
};

/// The sounds, and how one is made heard.
struct Sound {
    std::array<Sample, max_samples> samples{};
    Shared<int> master_volume = 128; ///< 0 to 255
    /// Allegro's player: sample, volume 0 to 255, pan 0 to 255, frequency in 1/1000 of the sample's own, loop.
    int (*play)(const SAMPLE* sample, int volume, int pan, int frequency, int loop) = play_sample;
};
inline Sound sound;

/// Plays a sample once, and no more than once in 1/5 s. `frequency` in 1/1000 of the sample's own, -1: a random one
/// from 800 to 1199; `volume` in percent, -1: full. A bad slot or an empty one: a line in the log. Main thread.
void sfx_play(int slot, int frequency, int volume);
/// The same by way of the job queue, from either thread, after `delay` world ticks (45 Hz). A full queue: a line in
/// the log.
void queue_sfx(int slot, int frequency, int delay);

} // namespace kelu
