// SPDX-License-Identifier: MIT
// The frame as it will look with its alpha channel, on the checker pattern.
#pragma once

namespace kelu {

/// Runs while the key is held. Frame and alpha stay as they are.
void preview_alpha();

} // namespace kelu
