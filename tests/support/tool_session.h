// SPDX-License-Identifier: MIT
// A session with one tool in hand, and what its tests look at.
#pragma once

#include "base/run_state.h"
#include "draw/ink_rows.h"
#include "draw/operation.h"
#include "draw/point_list.h"
#include "draw/undo.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "support/session.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace kelu::test {

using Pixels = std::set<std::pair<int, int>>;

constexpr int tool_color = 0x20c040; ///< brush colour of these sessions

/// A session on the drawing menu, with one tool, "OPAQUE" and a tip of one pixel.
class ToolSession : public testing::Test {
protected:
    Session session;

    ToolSession() { preferences.mouse_swap = 0; }

    void use(int tool, std::array<int, 3> options = {})
    {
        toolbox.tool_slots[0] = tool;
        toolbox.tool_slot = 0;
        toolbox.ink_slots[0] = INK_OPAQUE;
        toolbox.ink_slot = 0;
        toolbox.brush_tip = no_tip;
        toolbox.brush_color = tool_color;
        std::ranges::copy(options, toolbox.tool_table[static_cast<std::size_t>(tool)].begin());
    }

    /// The pixels that the frame has in the brush colour.
    static Pixels painted()
    {
        Pixels pixels;
        for (int y = 0; y < store.frame_bitmap.height(); ++y)
            for (int x = 0; x < store.frame_bitmap.width(); ++x)
                if (row(store.frame_bitmap, y)[x] == tool_color) pixels.emplace(x, y);
        return pixels;
    }

    static Pixels outline(const Points& points)
    {
        Pixels pixels;
        walk_outline(
            points, store.frame_bitmap.width(), store.frame_bitmap.height(),
            [&](int x, int y) { pixels.emplace(x, y); }, [] {});
        return pixels;
    }

    static int snapshots()
    {
        return static_cast<int>(std::ranges::count_if(undo.undo_age, [](int age) { return age >= 0; }));
    }

    /// Pixels of the overlay that a preview has drawn.
    static int previewed()
    {
        int count = 0;
        for (int y = 0; y < logical_h; ++y)
            count += static_cast<int>(std::count_if(row(screen_state.tool_overlay, y),
                                                    row(screen_state.tool_overlay, y) + logical_w,
                                                    [](int pixel) { return pixel != mask_magenta; }));
        return count;
    }
};

} // namespace kelu::test
