// SPDX-License-Identifier: MIT
// Starting of fades and waves.
#pragma once

namespace kelu {

constexpr int max_opacity = 254; ///< an actor's picture at its fullest

/// Fades an actor: `mode` 0 out from full by `step` a run, any other in from 1. `interval` in ticks of 1/140 s.
/// Returns the slot; a bad actor: 0, with a line in the log.
int fade_actor(int who, int mode, int step, int interval);

/// A wave and how it runs.
struct WaveShape {
    int a, b;     ///< the renderer's two measures
    int amount;   ///< phase gained a run
    int interval; ///< ticks of 1/140 s
};
/// Starts a wave across an actor's picture at a random phase, in `slot`, or in a free one for -1. No such slot or
/// actor: a line in the log, and no change.
void set_actor_h_wave(int who, int slot, const WaveShape& shape);
/// The same down the picture.
void set_actor_v_wave(int who, int slot, const WaveShape& shape);

} // namespace kelu
