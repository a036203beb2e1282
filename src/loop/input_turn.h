// SPDX-License-Identifier: MIT
// The turn of the next input event: what the words of pointer and keys say until the next frame.
#pragma once

#include "draw/point_list.h"
#include <span>

namespace kelu {

/// Takes the events since the last frame in their order: positions up to the next press or release of a button, and
/// that with the position that it had, so that a loop sees each of them once. A press over a menu waits until the logic
/// pass has seen it. Without events Allegro's own words are as they are. While input lasts the frames stay lively. Main
/// thread, once a frame.
void take_input_turn();

/// The frame pixels that the pointer passed in this turn, oldest first and the present one last. Main thread.
std::span<const Point> pointer_path();

/// For tests: whether a button's event still waits for the logic pass.
bool input_turn_waits();

} // namespace kelu
