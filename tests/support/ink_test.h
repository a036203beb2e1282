// SPDX-License-Identifier: MIT
// One operation on a small frame, for tests of inks.
#pragma once

#include "draw/inks.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "runtime/cel.h"
#include "runtime/color_band.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "support/fresh_state.h"
#include <utility>

namespace kelu::test {

/// A frame with its coverage and its stroke source, as between the start and the end of an operation.
class InkTest : public FreshState {
protected:
    /// Makes the picture the frame and begins an operation on it.
    static void begin(Bitmap picture)
    {
        store.frame_bitmap = std::move(picture);
        begin();
    }
    /// Begins an operation on the frame as it stands.
    static void begin()
    {
        if (store.coverage_bitmap.width() != store.frame_bitmap.width() ||
            store.coverage_bitmap.height() != store.frame_bitmap.height())
            store.coverage_bitmap = Bitmap(store.frame_bitmap.width(), store.frame_bitmap.height());
        touch_frame();
        push_undo(false);
        clear_to_color(store.coverage_bitmap, 0);
    }

    static void set_option(int ink, int column, int value)
    {
        toolbox.ink_table[static_cast<std::size_t>(ink)][static_cast<std::size_t>(column)] = value;
    }
    static int frame(int x, int y) { return row(store.frame_bitmap, y)[x]; }
    static int coverage(int x, int y) { return row(store.coverage_bitmap, y)[x]; }
};

} // namespace kelu::test
