// SPDX-License-Identifier: MIT
// The four loops of an ink, written once. Each family of inks includes this file and instantiates InkLoops for its
// classes; inks.h declares it for everybody else.
//
// The loops clip to the frame once, walk line pointers, and build the ink once, so that nothing but the ink's own work
// is left for each pixel.
#pragma once

#include "draw/ink.h"
#include "draw/inks.h"

namespace kelu {

/// A stretch of a line under the brush, for inks that work on many pixels at once: their `apply_run` does what `apply`
/// would do pixel by pixel.
struct DabRun {
    int x, y, count;           ///< frame pixels, all inside the frame
    int color;                 ///< as in Dab, as the rest
    const uint8_t* tip_values; ///< one a pixel; null: full strength
    int* frame;
    int* coverage;
    const int* source;

    /// The `most` pixels from `first` on, or as many as there are.
    DabRun part(int begin, int most) const
    {
        return {x + begin,
                y,
                std::min(count - begin, most),
                color,
                tip_values ? tip_values + begin : nullptr,
                frame + begin,
                coverage + begin,
                source + begin};
    }
    /// The i-th pixel by itself.
    Dab dab(int i) const
    {
        return {x + i, y, color, tip_values ? tip_values[i] : 0, frame + i, coverage + i, source + i};
    }
};

/// Line pointers of one row of the canvas, 0 to its height - 1.
class CanvasLine {
public:
    CanvasLine(const Canvas& canvas, int y)
        : y_(y), frame_(row(canvas.frame, y)), coverage_(row(canvas.coverage, y)),
          source_(y < canvas.source->h ? row(canvas.source, y) : frame_),
          source_w_(y < canvas.source->h ? canvas.source->w : 0)
    {}
    int frame(int x) const { return frame_[x]; }
    Dab dab(int x, int color, int tip_value) const
    {
        return {x, y_, color, tip_value, frame_ + x, coverage_ + x, (x < source_w_ ? source_ : frame_) + x};
    }
    /// The longest stretch from `first` to before `end` with the source in one place.
    DabRun run(int first, int end, int color, const uint8_t* tip_values) const
    {
        const bool in_source = first < source_w_;
        const int count = (in_source ? std::min(end, source_w_) : end) - first;
        return {first,
                y_,
                count,
                color,
                tip_values,
                frame_ + first,
                coverage_ + first,
                (in_source ? source_ : frame_) + first};
    }

private:
    int y_;
    int* frame_;
    int* coverage_;
    const int* source_;
    int source_w_;
};

template <class Ink>
concept WorksOnRuns = requires(const Ink& ink, const DabRun& run)
{
    ink.apply_run(run);
};

/// Puts the ink on the pixels from `first` to before `end`, which lie in the frame. `tip_values` belong to them.
template <class Ink>
void apply_line(const Ink& ink, const CanvasLine& line, int first, int end, int color, const uint8_t* tip_values)
{
    if constexpr (WorksOnRuns<Ink>) {
        // Two stretches where the source is narrower than the frame.
        while (first < end) {
            const DabRun run = line.run(first, end, color, tip_values);
            ink.apply_run(run);
            first += run.count;
            if (tip_values) tip_values += run.count;
        }
    } else {
        for (int x = first; x < end; ++x)
            ink.apply(line.dab(x, color, tip_values ? tip_values[x - first] : 0));
    }
}

template <class Ink>
void InkLoops<Ink>::pixel(int x, int y, int color, int tip_value)
{
    const Canvas canvas = Canvas::present();
    if (!canvas.has(x, y)) return;
    const Ink ink(canvas);
    ink.apply(CanvasLine(canvas, y).dab(x, color, tip_value));
}

template <class Ink>
void InkLoops<Ink>::stamp(int x, int y, int color, const TipCell& tip)
{
    const Canvas canvas = Canvas::present();
    const Ink ink(canvas);
    const int left = x - tip_center_x;
    const int top = y - tip_center_y;
    const int first_column = std::max(0, -left);
    const int end_column = std::min(tip_cell_w, canvas.frame->w - left);
    const int end_row = std::min(tip_cell_h, canvas.frame->h - top);
    for (int r = std::max(0, -top); r < end_row; ++r) {
        const CanvasLine line(canvas, top + r);
        if (first_column < end_column)
            apply_line(ink, line, left + first_column, left + end_column, color, tip.line(r) + first_column);
    }
}

template <class Ink>
void InkLoops<Ink>::span(int left, int right, int y, int color)
{
    const Canvas canvas = Canvas::present();
    if (y < 0 || y >= canvas.frame->h) return;
    const Ink ink(canvas);
    const CanvasLine line(canvas, y);
    apply_line(ink, line, std::max(left, 0), std::min(right, canvas.frame->w - 1) + 1, color, nullptr);
}

template <class Ink>
void InkLoops<Ink>::sprite(BITMAP* picture, int x, int y, SpriteRule rule)
{
    const Canvas canvas = Canvas::present();
    const Ink ink(canvas);
    const int mask = toolbox.mask_color;
    const int first_x = std::max(x, 0);
    const int end_x = std::min(x + picture->w, canvas.frame->w);
    const int end_y = std::min(y + picture->h, canvas.frame->h);
    for (int py = std::max(y, 0); py < end_y; ++py) {
        const CanvasLine line(canvas, py);
        const int* pixels = row(picture, py - y) - x;
        for (int px = first_x; px < end_x; ++px) {
            const bool shows = rule == SpriteRule::OVER ? pixels[px] != mask_magenta
                                                        : colors_close(line.frame(px), mask, below_tolerance);
            if (shows) ink.apply(line.dab(px, pixels[px], 0));
        }
    }
}

} // namespace kelu
