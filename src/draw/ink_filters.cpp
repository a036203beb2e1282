// SPDX-License-Identifier: MIT
// Inks that look at the neighbours: CLOSE, EMBOSS, HOLLOW, JUMBLE, SOFTEN, SWEEP, UNZAG.
//
// They read the stroke source, so that a filter sees the picture as it was before the stroke; SWEEP alone averages the
// frame. A neighbour outside the frame is left out.
#include "draw/ink_fours.h"

#include "base/table.h"
#include "runtime/random.h"
#include <array>
#include <bit>
#include <cstdint>

namespace kelu {
namespace {

/// Calls `visit(pixel, index)` for the pixels of the 3 x 3 block round (x, y) that lie in the frame, row by row; the
/// index counts the whole block, 4 is the centre. `line_of(y)` gives the line to read.
template <class LineOf, class Visit>
void visit_block(const Canvas& canvas, int x, int y, LineOf line_of, Visit visit)
{
    const bool has_left = x > 0;
    const bool has_right = x + 1 < canvas.frame->w;
    for (int dy = -1; dy <= 1; ++dy) {
        if (y + dy < 0 || y + dy >= canvas.frame->h) continue;
        const int* pixel = line_of(y + dy) + x;
        const int index = 3 * (dy + 1);
        if (has_left) visit(pixel[-1], index);
        visit(pixel[0], index + 1);
        if (has_right) visit(pixel[1], index + 2);
    }
}

constexpr int block_center = 4;

/// The block of the stroke source. A source of another size than the frame is read pixel by pixel.
template <class Visit>
void visit_source(const Canvas& canvas, int x, int y, Visit visit)
{
    if (canvas.source->w == canvas.frame->w && canvas.source->h == canvas.frame->h) {
        visit_block(
            canvas, x, y, [&](int line) { return row(canvas.source, line); }, visit);
        return;
    }
    for (int i = 0; i < 9; ++i) {
        const int nx = x + i % 3 - 1;
        const int ny = y + i / 3 - 1;
        if (canvas.has(nx, ny)) visit(*canvas.source_at(nx, ny), i);
    }
}

/// The block of the frame as it is now.
template <class Visit>
void visit_frame(const Canvas& canvas, int x, int y, Visit visit)
{
    visit_block(
        canvas, x, y, [&](int line) { return row(canvas.frame, line); }, visit);
}

/// Four numbers that the processor works on at once: blue, green and red of a pixel, and its unused byte.
using Channels = float __attribute__((vector_size(16)));

Channels channels_of(int pixel)
{
    using Bytes = uint8_t __attribute__((vector_size(16)));
    using Halves = uint16_t __attribute__((vector_size(16)));
    using Words = int __attribute__((vector_size(16)));
    const Bytes bytes = std::bit_cast<Bytes>(Words{pixel, 0, 0, 0});
    const Halves halves = std::bit_cast<Halves>(__builtin_shufflevector(bytes, Bytes{}, 0, 16, 1, 17, 2, 18, 3, 19, //
                                                                        4, 20, 5, 21, 6, 22, 7, 23));
    const Halves words = __builtin_shufflevector(halves, Halves{}, 0, 8, 1, 9, 2, 10, 3, 11);
    return __builtin_convertvector(std::bit_cast<Words>(words), Channels);
}

/// Sums of the channels over the block of the stroke source, row by row, each pixel times its weight. A weight of 0
/// leaves a pixel out: it adds nothing.
Channels weighted_sum(const Canvas& canvas, int x, int y, const std::array<float, 9>& weights)
{
    Channels sum{};
    visit_source(canvas, x, y, [&](int pixel, int index) { sum += channels_of(pixel) * weights[index]; });
    return sum;
}

/// Each channel clamped to 0 to 255 and truncated.
int pack_clamped(const Channels& bgr)
{
    const auto clamped = [](float channel) { return static_cast<int>(std::clamp(channel, 0.0F, 255.0F)); };
    return pack_rgb(clamped(bgr[2]), clamped(bgr[1]), clamped(bgr[0]));
}

/// Channel 0 blue, 1 green or 2 red of four pixels.
Floats channel_four(Ints pixels, int channel) { return __builtin_convertvector(pixels >> (8 * channel) & 255, Floats); }

/// Three lines of a picture as weighted numbers, one plane a channel: those of a run, the one above and the one below,
/// with one pixel more on each side. Outside the picture they are 0.
class PixelPlanes {
public:
    static constexpr int most = 256; ///< pixels of a run

    PixelPlanes(BITMAP* picture, int x, int y, int count, float weight)
    {
        const int first = std::max(x - 1, 0);
        const int end = std::min(x + count + 1, picture->w);
        for (int line = 0; line < 3; ++line) {
            Table<int, width> pixels{};
            const int from = y + line - 1;
            if (from >= 0 && from < picture->h)
                std::copy(row(picture, from) + first, row(picture, from) + end, pixels.begin() + (first - (x - 1)));
            for (int channel = 0; channel < 3; ++channel) {
                for (int i = 0; i < count + 6; ++i)
                    planes_[line][channel][i] = static_cast<float>(pixels[i] >> 8 * channel & 255) * weight;
            }
        }
    }
    /// Four numbers side by side: `line` 0 above to 2 below, `channel` 0 blue to 2 red, `i` counts from the pixel
    /// before the run.
    Floats at(int line, int channel, int i) const
    {
        Floats four;
        std::memcpy(&four, planes_[line][channel].data() + i, sizeof(four));
        return four;
    }

private:
    static constexpr int width = most + 8;
    Table<Table<Table<float, width>, 3>, 3> planes_; // only what the run needs is filled in
};

/// Weight of a neighbour: the strength, thinned by the tip.
float thinned(float strength, int tip_value)
{
    return tip_value == 0 ? strength : static_cast<float>(fixed_weight(tip_value)) / 200.0F * strength;
}

} // namespace

/// Closes gaps of one pixel in lines of the brush colour. Knows neither tip value nor coverage.
struct Close {
    explicit Close(const Canvas& on) : canvas(on), tolerance(ink_strength(INK_CLOSE)), brush_color(toolbox.brush_color)
    {}
    void apply(const Dab& dab) const
    {
        const auto bridges = [&](int dx, int dy) {
            return is_line(dab.x - dx, dab.y - dy) && is_line(dab.x + dx, dab.y + dy);
        };
        if (colors_close(*dab.source, brush_color, tolerance)) return;
        if (bridges(1, 0) || bridges(0, 1)) *dab.frame = brush_color;
    }

private:
    bool is_line(int x, int y) const
    {
        return canvas.has(x, y) && colors_close(*canvas.source_at(x, y), brush_color, tolerance);
    }
    const Canvas& canvas;
    int tolerance, brush_color;
};

/// Sharpens at low strengths, and embosses at high ones along the falling diagonal.
struct Emboss {
    explicit Emboss(const Canvas& on) : canvas(on), strength(static_cast<float>(ink_strength(INK_EMBOSS)) / 255.0F) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink || !claim(dab, fixed_weight(dab.tip_value))) return;
        const float w = thinned(strength, dab.tip_value);
        std::array<float, 9> weights = kernel;
        for (float& weight : weights)
            weight *= w;
        weights[block_center] = 1;
        *dab.frame = pack_clamped(weighted_sum(canvas, dab.x, dab.y, weights));
    }

private:
    static constexpr std::array<float, 9> kernel{-2, -1, 0, -1, 1, 1, 0, 1, 2};
    const Canvas& canvas;
    float strength;
};

/// Erases to the mask colour where the whole block is of one colour, so that solid areas keep their rim.
struct Hollow {
    explicit Hollow(const Canvas& on) : canvas(on), tolerance(ink_strength(INK_HOLLOW)), mask_color(toolbox.mask_color)
    {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink) return;
        bool solid = true;
        visit_source(canvas, dab.x, dab.y,
                     [&](int pixel, int) { solid = solid && colors_close(pixel, *dab.source, tolerance); });
        if (!solid) return;
        lay_on(*dab.frame, mask_color, dab.tip_value == 0 ? 255 : fixed_weight(dab.tip_value));
    }

private:
    const Canvas& canvas;
    int tolerance, mask_color;
};

/// Takes a random pixel near by. The reach is one pixel less to the right and down. Knows neither tip value nor
/// coverage.
struct Jumble {
    explicit Jumble(const Canvas& on) : canvas(on), reach(ink_option(INK_JUMBLE, options::distance)) {}
    void apply(const Dab& dab) const
    {
        const int nx = dab.x - reach + rnd(2 * reach);
        const int ny = dab.y - reach + rnd(2 * reach);
        if (canvas.has(nx, ny)) *dab.frame = *canvas.source_at(nx, ny);
    }

private:
    const Canvas& canvas;
    int reach;
};

/// Mixes in the mean of the eight neighbours. The factor of an eighth stays where neighbours are missing, so that the
/// frame's edges darken.
struct Soften {
    explicit Soften(const Canvas& on) : canvas(on), strength(static_cast<float>(ink_strength(INK_SOFTEN)) / 255.0F) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink || !claim(dab, fixed_weight(dab.tip_value))) return;
        const float w = thinned(strength, dab.tip_value);
        const Channels sum = weighted_sum(canvas, dab.x, dab.y, {w, w, w, w, 0, w, w, w, w});
        *dab.frame = pack_clamped(channels_of(*dab.source) * (1.0F - w) + sum * 0.125F);
    }
    void apply_run(const DabRun& run) const
    {
        if (canvas.source->w != canvas.frame->w || canvas.source->h != canvas.frame->h) {
            for (int i = 0; i < run.count; ++i)
                apply(run.dab(i));
        } else if (run.tip_values) {
            soften_stamp(run);
        } else {
            for (int first = 0; first < run.count; first += PixelPlanes::most)
                soften_span(run.part(first, PixelPlanes::most));
        }
    }

private:
    /// One channel of four pixels from the weighted sum of their neighbours and themselves.
    static Ints mixed(Floats sum, Floats center, Floats w)
    {
        const Floats mix = center * (1.0F - w) + sum * 0.125F;
        return __builtin_convertvector(mix < 255 ? mix : Floats{255, 255, 255, 255}, Ints);
    }

    void soften_span(const DabRun& run) const
    {
        const PixelPlanes planes(canvas.source, run.x, run.y, run.count, strength);
        const Floats w{strength, strength, strength, strength};
        by_fours(*this, run, [&](const DabFour& four) {
            const Ints claimed = four.claim(all_four(fixed_weight(0)));
            if (none_of(claimed)) return;
            const Ints centers = load_four(four.source);
            Ints pixels{};
            for (int channel = 0; channel < 3; ++channel) {
                const auto at = [&](int line, int dx) { return planes.at(line, channel, four.first + dx); };
                const Floats sum =
                    at(0, 0) + at(0, 1) + at(0, 2) + at(1, 0) + at(1, 2) + at(2, 0) + at(2, 1) + at(2, 2);
                pixels |= mixed(sum, channel_four(centers, channel), w) << (8 * channel);
            }
            four.write(claimed, pixels);
        });
    }

    /// Of a stamp, most pixels have been claimed by the one before it.
    void soften_stamp(const DabRun& run) const
    {
        const bool inside =
            run.y > 0 && run.y + 1 < canvas.frame->h && run.x > 0 && run.x + run.count < canvas.frame->w;
        if (!inside) {
            for (int i = 0; i < run.count; ++i)
                apply(run.dab(i));
            return;
        }
        const std::array<const int*, 3> lines{row(canvas.source, run.y - 1) + run.x - 1,
                                              row(canvas.source, run.y) + run.x - 1,
                                              row(canvas.source, run.y + 1) + run.x - 1};
        by_fours(*this, run, [&](const DabFour& four) {
            const Ints claimed = four.claim(fixed_weights(four.tips()));
            if (none_of(claimed)) return;
            const auto thin = [&](int i) { return thinned(strength, std::min(four.tip(i), tip_no_ink)); };
            const Floats w{thin(0), thin(1), thin(2), thin(3)};
            const Ints centers = load_four(four.source);
            Ints pixels{};
            for (int channel = 0; channel < 3; ++channel) {
                const auto at = [&](std::size_t line, int dx) {
                    return channel_four(load_four(lines[line] + four.first + dx), channel) * w;
                };
                const Floats sum =
                    at(0, 0) + at(0, 1) + at(0, 2) + at(1, 0) + at(1, 2) + at(2, 0) + at(2, 1) + at(2, 2);
                pixels |= mixed(sum, channel_four(centers, channel), w) << (8 * channel);
            }
            four.write(claimed, pixels);
        });
    }

    const Canvas& canvas;
    float strength;
};

/// Replaces a pixel that matches none of its neighbours by their mean on the frame. Knows neither tip value nor
/// coverage.
struct Sweep {
    explicit Sweep(const Canvas& on) : canvas(on), tolerance(ink_strength(INK_SWEEP)) {}
    void apply(const Dab& dab) const
    {
        bool matches = false;
        visit_source(canvas, dab.x, dab.y, [&](int pixel, int index) {
            matches = matches || (index != block_center && colors_close(pixel, *dab.source, tolerance));
        });
        if (!matches) put_mean(dab);
    }

private:
    void put_mean(const Dab& dab) const
    {
        int r = 0;
        int g = 0;
        int b = 0;
        int count = 0;
        visit_frame(canvas, dab.x, dab.y, [&](int pixel, int index) {
            if (index == block_center) return;
            r += red_of(pixel);
            g += green_of(pixel);
            b += blue_of(pixel);
            ++count;
        });
        if (count > 0) *dab.frame = pack_rgb(r / count, g / count, b / count);
    }
    const Canvas& canvas;
    int tolerance;
};

/// Smooths stair-steps: a pixel whose three neighbours in one quadrant agree and differ from it is pulled towards
/// them. The tip value only limits, and there is no coverage.
struct Unzag {
    explicit Unzag(const Canvas& on) : canvas(on), strength(ink_strength(INK_UNZAG)) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink) return;
        for (const Quadrant& q : quadrants) {
            if (!canvas.has(dab.x + q.dx, dab.y + q.dy)) continue;
            const int beside = *canvas.source_at(dab.x + q.dx, dab.y);
            if (colors_close(beside, *dab.source, contrast)) continue;
            if (!colors_close(beside, *canvas.source_at(dab.x + q.dx, dab.y + q.dy), agreement)) continue;
            if (!colors_close(beside, *canvas.source_at(dab.x, dab.y + q.dy), agreement)) continue;
            *dab.frame = mix_colors(*dab.source, beside, strength);
            return;
        }
    }

private:
    /// Direction of a diagonal neighbour.
    struct Quadrant {
        int dx, dy;
    };
    static constexpr std::array<Quadrant, 4> quadrants{{{-1, -1}, {1, -1}, {-1, 1}, {1, 1}}};
    static constexpr int agreement = 6; ///< the three neighbours differ by less
    static constexpr int contrast = 20; ///< and from the pixel by this or more
    const Canvas& canvas;
    int strength;
};

template struct InkLoops<Close>;
template struct InkLoops<Emboss>;
template struct InkLoops<Hollow>;
template struct InkLoops<Jumble>;
template struct InkLoops<Soften>;
template struct InkLoops<Sweep>;
template struct InkLoops<Unzag>;

} // namespace kelu
