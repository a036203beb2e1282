// SPDX-License-Identifier: MIT
// Playing of samples.
#include "framework/sound.h"

#include "base/log.h"
#include "runtime/clock.h"
#include "runtime/jobs.h"
#include "runtime/random.h"
#include <algorithm>
#include <cmath>

namespace kelu {
namespace {

constexpr int middle_pan = 128;
constexpr int lowest_random_frequency = 800;
constexpr int random_frequencies = 400;

} // namespace

void sfx_play(int slot, int frequency, int volume)
{
    if (slot < 0 || slot >= max_samples) {
        log_line("[ ERROR ] Sample slot is out of range in sfx_play()! Slot = %d", slot);
        return;
    }
    const Sample& sample = sound.samples[slot];
    if (sample.sample_state == sample_invalid || !sample.handle) {
        log_line("Requested invalid sample in cache. Slot = %d", slot);
        return;
    }
    if (clock_state.sample_played[slot] != 0) return;
    const int master = sound.master_volume;
    const float taken = static_cast<float>(master) * sample.sample_attenuation;
    int loudness = master - static_cast<int>(std::lround(taken));
    if (loudness < 1) return;
    loudness = std::min(loudness, 255);
    if (volume != -1) loudness = std::clamp(loudness * volume / 100, 0, 255);
    const int pitch = frequency == -1 ? lowest_random_frequency + rnd(random_frequencies) : frequency;
    sound.play(sample.handle, loudness, middle_pan, pitch, 0);
    clock_state.sample_played[slot] = 1;
}

void queue_sfx(int slot, int frequency, int delay)
{
    constexpr int full_volume = -1;
    if (push_to_job(JOB_PLAY_SAMPLE, {slot, frequency, full_volume}, delay) < 0)
        log_line("[ ERROR ] : Couldn't locate free event while queueing sound effect!");
}

} // namespace kelu
