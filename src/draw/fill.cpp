// The flood fill.
//
// A run is a maximal stretch of close pixels in a row. The first run of each row stands in the row's head, all others
// in a queue. The runs are swept: the heads from the top down, stepping back whenever work moves upward, then the
// queue; again until no head waits. A bit a pixel says what is filled, so that a row above or below a run is looked
// over in a time that depends on the run's own length alone.
#include "draw/fill.h"

#include "draw/inks.h"
#include "draw/tools.h"
#include "draw/undo.h"
#include "runtime/pixels.h"
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

/// One bit a pixel of a bitmap: the filled ones.
class FilledPixels {
public:
    FilledPixels(int w, int h)
        : words_per_row_((static_cast<std::size_t>(w) + 63) / 64), words_(words_per_row_ * static_cast<std::size_t>(h))
    {}

    void set(const Run& run)
    {
        uint64_t* const line = row_of(run.y);
        const int first = run.left / 64;
        const int last = run.right / 64;
        const uint64_t from = ~uint64_t{0} << (run.left % 64);
        const uint64_t to = ~uint64_t{0} >> (63 - run.right % 64);
        if (first == last) {
            line[first] |= from & to;
            return;
        }
        line[first] |= from;
        std::fill(line + first + 1, line + last, ~uint64_t{0});
        line[last] |= to;
    }

    /// The first pixel from x on that isn't filled; x itself may be it. Looks no further than `limit`.
    int skip(int x, int y, int limit)
    {
        const uint64_t* const line = row_of(y);
        while (x <= limit) {
            const uint64_t clear = ~line[x / 64] >> (x % 64);
            if (clear != 0) return x + std::countr_zero(clear);
            x = (x / 64 + 1) * 64;
        }
        return x;
    }

private:
    uint64_t* row_of(int y) { return words_.data() + words_per_row_ * static_cast<std::size_t>(y); }

    std::size_t words_per_row_;
    std::vector<uint64_t> words_;
};

class AreaWalk {
public:
    AreaWalk(BITMAP* source, int seed, int tolerance, SpanVisit run, FunctionRef<void()> breathe)
        : source_(source), seed_(seed), tolerance_(tolerance), report_(run), breathe_(breathe),
          filled_(source->w, source->h), heads_(static_cast<std::size_t>(source->h)),
          states_(static_cast<std::size_t>(source->h), HEAD_FREE)
    {}

    void walk(int x, int y)
    {
        fill_run(x, y);
        for (int head = waiting_head(0); head < source_->h; head = waiting_head(0)) {
            sweep_heads(head);
            for (; next_in_queue_ < queue_.size(); ++next_in_queue_)
                look_around(Run{queue_[next_in_queue_]});
        }
    }

private:
    enum HeadState : uint8_t { HEAD_FREE, HEAD_WAITING, HEAD_DONE };

    bool close(int x, const int* line) const { return colors_close(line[x], seed_, tolerance_); }

    /// The first head from row y on whose run has not been looked around; the height when there is none.
    int waiting_head(int y) const
    {
        return static_cast<int>(std::find(states_.begin() + y, states_.end(), HEAD_WAITING) - states_.begin());
    }

    void sweep_heads(int y)
    {
        while (y < source_->h) {
            states_[static_cast<std::size_t>(y)] = HEAD_DONE;
            const bool upward = look_around(heads_[static_cast<std::size_t>(y)]);
            // New work above goes on at once.
            y = waiting_head(upward && y > 0 ? y - 1 : y + 1);
        }
    }

    /// Fills what touches the run from below and above; true when there was something new above.
    bool look_around(const Run& run)
    {
        if (run.y + 1 < source_->h) check_row(run.y + 1, run.left, run.right);
        const bool upward = run.y > 0 && check_row(run.y - 1, run.left, run.right);
        breathe_();
        return upward;
    }

    bool check_row(int y, int left, int right)
    {
        const int* const line = row(source_, y);
        bool found = false;
        for (int x = left; x <= right;) {
            const int open = filled_.skip(x, y, right);
            if (open > right) break;
            if (close(open, line)) {
                x = fill_run(open, y) + 1;
                found = true;
            } else {
                x = open + 1;
            }
        }
        return found;
    }

    /// Fills the run through (x, y), if that pixel is close to the seed; returns the first x beyond it.
    int fill_run(int x, int y)
    {
        const int* const line = row(source_, y);
        if (!close(x, line)) return x + 1;
        Run run{x, x, y};
        while (run.left > 0 && close(run.left - 1, line))
            --run.left;
        while (run.right + 1 < source_->w && close(run.right + 1, line))
            ++run.right;
        filled_.set(run);
        report_(run.left, run.right, y);
        keep(run);
        return run.right + 1;
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

    BITMAP* source_;
    int seed_, tolerance_;
    SpanVisit report_;
    FunctionRef<void()> breathe_;
    FilledPixels filled_;
    std::vector<Run> heads_;
    std::vector<HeadState> states_; ///< of the heads
    std::vector<Run> queue_;
    std::size_t next_in_queue_ = 0;
};

} // namespace

void walk_area(BITMAP* source, int x, int y, int tolerance, SpanVisit run, FunctionRef<void()> breathe)
{
    if (!in_bitmap(source, x, y)) return;
    AreaWalk(source, row(source, y)[x], tolerance, run, breathe).walk(x, y);
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
    flood_fill(stroke_source(), stroke.x, stroke.y, toolbox.brush_color, tool_option(TOOL_FILL, OPTION_TOLERANCE, 255));
}

} // namespace kelu
