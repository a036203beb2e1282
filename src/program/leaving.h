// SPDX-License-Identifier: MIT
// The end of the program as its user sees it: the work is written, and where it can't be he is asked.
#pragma once

namespace kelu {

/// What became of the work.
enum class Leaving {
    WRITTEN,   ///< the program ends
    UNWRITTEN, ///< the program ends, and stderr says what of the work is lost
    STAYS      ///< the user goes back to the picture
};

/// Writes workspace and settings. While something can't be written the user may try again, leave without, or stay; a
/// program that ends by a signal or without a display doesn't ask. Main thread, over the drawing menu.
Leaving leave_program();

/// The same without a question, for an end from inside a menu.
Leaving write_last_work();

} // namespace kelu
