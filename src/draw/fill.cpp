// SPDX-License-Identifier: MIT
// The flood fill.
//
// A run is a maximal stretch of close pixels in a row. The first run of each row is in the row's head, all others
// in a queue. The runs are swept: the heads from the top down, stepping back whenever work moves upward, then the
// queue; again until no head waits. A bit a pixel says what is still to be filled, so that a row above or below a run
// is looked over 64 pixels at a time.
#include "draw/fill.h"

#include "draw/close_pixels.h"
#include "draw/ink_rows.h"
#include "draw/inks.h"
#include "draw/tool_options.h"
#include "draw/undo.h"
#include "runtime/store.h"
#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

namespace kelu {
namespace {

struct Run {
    int left = 0, right = 0, y = 0;
};

/// One bit a pixel: close to the seed and not filled yet. Bits are worked out 64 at a time, when they are first asked
/// for, so that an area costs what it covers and not what the picture covers.
class OpenPixels {
public:
    OpenPixels(BITMAP* source, int seed, int tolerance)
        : source_(source), close_(seed, tolerance), words_per_row_((static_cast<std::size_t>(source->w) + 63) / 64),
          words_(words_per_row_ * static_cast<std::size_t>(source->h)), known_(words_.size())
    {}

    /// The first open pixel of row y from x to `limit`, or `limit` + 1.
    int find(int x, int limit, int y)
    {
        while (x <= limit) {
            const uint64_t open = word(x / 64, y) & from_bit(x % 64);
            if (open != 0) return std::min(x / 64 * 64 + std::countr_zero(open), limit + 1);
            x = (x / 64 + 1) * 64;
        }
        return limit + 1;
    }

    /// Takes the stretch of open pixels through the open pixel (x, y): none of them is open afterwards.
    Run take_run(int x, int y)
    {
        uint64_t& here = word(x / 64, y);
        const uint64_t before = ~here & to_bit(x % 64), behind = ~here & from_bit(x % 64);
        if (before != 0 && behind != 0) { // it lies within a word
            const int left = 64 - std::countl_zero(before), right = std::countr_zero(behind) - 1;
            here &= ~(from_bit(left) & to_bit(right));
            return {x / 64 * 64 + left, x / 64 * 64 + right, y};
        }
        const Run run{left_end(x, y), right_end(x, y), y};
        close(run);
        return run;
    }

private:
    static uint64_t from_bit(int bit) { return ~uint64_t{0} << bit; }
    static uint64_t to_bit(int bit) { return ~uint64_t{0} >> (63 - bit); }

    void close(const Run& run)
    {
        const int first = run.left / 64;
        const int last = run.right / 64;
        for (int i = first; i <= last; ++i) {
            const uint64_t from = i == first ? from_bit(run.left % 64) : ~uint64_t{0};
            const uint64_t to = i == last ? to_bit(run.right % 64) : ~uint64_t{0};
            word(i, run.y) &= ~(from & to);
        }
    }

    int left_end(int x, int y)
    {
        for (;;) {
            const uint64_t shut = ~word(x / 64, y) & to_bit(x % 64);
            if (shut != 0) return x / 64 * 64 + 64 - std::countl_zero(shut);
            if (x < 64) return 0;
            x = x / 64 * 64 - 1;
        }
    }

    int right_end(int x, int y)
    {
        while (x < source_->w) {
            const uint64_t shut = ~word(x / 64, y) & from_bit(x % 64);
            if (shut != 0) return x / 64 * 64 + std::countr_zero(shut) - 1;
            x = (x / 64 + 1) * 64;
        }
        return source_->w - 1;
    }

    uint64_t& word(int i, int y)
    {
        const std::size_t at = words_per_row_ * static_cast<std::size_t>(y) + static_cast<std::size_t>(i);
        if (!known_[at]) {
            known_[at] = 1;
            words_[at] = close_.bits(row(source_, y) + i * 64, std::min(64, source_->w - i * 64));
        }
        return words_[at];
    }

    BITMAP* source_;
    ClosePixels close_;
    std::size_t words_per_row_;
    std::vector<uint64_t> words_;
    std::vector<uint8_t> known_;
};

class AreaWalk {
public:
    AreaWalk(BITMAP* source, int seed, int tolerance, SpanVisit run, FunctionRef<void()> show_progress)
        : height_(source->h), report_(run), show_progress_(show_progress), open_(source, seed, tolerance),
          heads_(static_cast<std::size_t>(source->h)), states_(static_cast<std::size_t>(source->h), HEAD_FREE)
    {}

    void walk(int x, int y)
    {
        check_row(y, x, x);
        for (int head = waiting_head(0); head < height_; head = waiting_head(0)) {
            sweep_heads(head);
            for (; next_in_queue_ < queue_.size(); ++next_in_queue_)
                look_around(Run{queue_[next_in_queue_]});
        }
    }

private:
    enum HeadState : uint8_t { HEAD_FREE, HEAD_WAITING, HEAD_DONE };

    /// The first head from row y on whose run has not been looked around; the height when there is none.
    int waiting_head(int y) const
    {
        return static_cast<int>(std::find(states_.begin() + y, states_.end(), HEAD_WAITING) - states_.begin());
    }

    void sweep_heads(int y)
    {
        while (y < height_) {
            states_[static_cast<std::size_t>(y)] = HEAD_DONE;
            const bool upward = look_around(heads_[static_cast<std::size_t>(y)]);
            // New work above goes on at once.
            y = waiting_head(upward ? y - 1 : y + 1);
        }
    }

    /// Fills what touches the run from below and above; true when there was something new above.
    bool look_around(const Run& run)
    {
        if (run.y + 1 < height_) check_row(run.y + 1, run.left, run.right);
        const bool upward = run.y > 0 && check_row(run.y - 1, run.left, run.right);
        show_progress_();
        return upward;
    }

    /// Fills every run of row y that touches the columns `left` to `right`; true when there was one.
    bool check_row(int y, int left, int right)
    {
        bool found = false;
        for (int x = open_.find(left, right, y); x <= right; x = open_.find(x, right, y)) {
            const Run run = open_.take_run(x, y);
            report_(run.left, run.right, y);
            keep(run);
            found = true;
            x = run.right + 2; // the pixel behind a run is none of the area
        }
        return found;
    }

    void keep(const Run& run)
    {
        HeadState& state = states_[static_cast<std::size_t>(run.y)];
        if (state == HEAD_FREE) {
            heads_[static_cast<std::size_t>(run.y)] = run;
            state = HEAD_WAITING;
        } else {
            queue_.push_back(run);
        }
    }

    int height_;
    SpanVisit report_;
    FunctionRef<void()> show_progress_;
    OpenPixels open_;
    std::vector<Run> heads_;
    std::vector<HeadState> states_; ///< of the heads
    std::vector<Run> queue_;
    std::size_t next_in_queue_ = 0;
};

} // namespace

void walk_area(BITMAP* source, int x, int y, int tolerance, SpanVisit run, FunctionRef<void()> show_progress)
{
    if (!in_bitmap(source, x, y)) return;
    AreaWalk(source, row(source, y)[x], tolerance, run, show_progress).walk(x, y);
}

void flood_fill(BITMAP* source, int x, int y, int color, int tolerance)
{
    constexpr int ticks_a_frame = 4; // a fill shows its way less often than other long operations
    BITMAP* const frame = store.frame_bitmap;
    if (!in_bitmap(frame, x, y)) return;
    const int ink = current_ink();
    if (ink == INK_OPAQUE && row(frame, y)[x] == color) return;
    walk_area(
        source, x, y, tolerance,
        [&](int left, int right, int line) { span_ink(left, right, line, ink, toolbox.brush_color); },
        [] { keep_picture_alive(ticks_a_frame); });
}

void render_fill(const Stroke& stroke)
{
    flood_fill(stroke_source(), stroke.x, stroke.y, toolbox.brush_color, tool_option(TOOL_FILL, options::tolerance));
}

} // namespace kelu
