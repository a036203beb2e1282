// SPDX-License-Identifier: MIT
// What belongs to a frame in the tables of the program, by its number: view, thumbnail, tag and delay of the animation.
// It follows the frame's file when that gets another number. Main thread.
#pragma once

#include "base/bitmap.h"
#include "runtime/animation.h"
#include "runtime/view.h"

namespace kelu {

/// Copies the view that a frame was left with.
void copy_view(int from, int to);
/// A frame without a file: no pan, zoom 1.
void clear_view(int frame);
/// View, thumbnail and, while the frame is cached, tag, delay and picture go to another number.
void renumber_tables(int from, int to);

/// The tables as they are, for a change that may fail: they are written to their file before it is decided.
class KeptTables {
public:
    KeptTables();
    /// Everything as it was; the pictures of the animation are loaded anew when they are wanted.
    void put_back() const;

private:
    View view_;
    Animation animation_;
    Bitmap nails_;
    int frame_count_, current_frame_;
};

} // namespace kelu
