// SPDX-License-Identifier: MIT
// Quick pan: the whole frame on the screen, from which the view's new place is picked.
#pragma once

namespace kelu {

/// Runs while the key of quick pan is held; where the pointer is when it comes up, there the view goes. A frame that
/// fits the screen is put in its middle at zoom 1, with a message.
void quick_pan();

} // namespace kelu
