// SPDX-License-Identifier: MIT
// SOFTEN: a pixel is mixed with its neighbours, four pixels at a time where the block lies in the frame.
#include "draw/ink_block.h"

#include "base/table.h"
#include <cstring>

namespace kelu {
namespace {

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

} // namespace

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
        by_fours(*this, run, FixedScale{}, [&](const DabFour& four) {
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
        by_fours(*this, run, FixedScale{}, [&](const DabFour& four) {
            const Ints values = four.tips(), weights = fixed_weights(values);
            const Ints claimed = four.claim(weights);
            if (none_of(claimed)) return;
            const Floats full{strength, strength, strength, strength};
            const Floats w = choose(values == 0, full, to_floats(weights) / 200.0F * strength); // as `thinned`
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

template struct InkLoops<Soften>;

} // namespace kelu
