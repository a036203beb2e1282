// SPDX-License-Identifier: MIT
// The ink GLOW: each pixel under the stroke sends out one disc of light, and the discs add up on the frame.
#include "draw/ink_fours.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace kelu {
namespace {

constexpr int most_radius = options::glow_radius.highest();
constexpr int most_width = 2 * most_radius + 1;

/// Truncated distance of (dx, dy) from (0, 0), for both up to 31.
constexpr auto glow_distance = [] {
    std::array<std::array<int, most_radius + 1>, most_radius + 1> table{};
    for (int dx = 0; dx <= most_radius; ++dx) {
        for (int dy = 0; dy <= most_radius; ++dy) {
            int d = 0;
            while ((d + 1) * (d + 1) <= dx * dx + dy * dy)
                ++d;
            table[dx][dy] = d;
        }
    }
    return table;
}();

/// Share of the light at each place of a disc: 1 in the middle, falling by the distance, 0 outside the disc.
struct GlowDisc {
    int radius = -1; ///< the radius that the rows are made for; -1 none yet
    std::array<std::array<float, most_width>, most_radius + 1> rows{}; ///< by |dy|, then by dx + radius

    void make(int r)
    {
        if (r == radius) return;
        radius = r;
        for (int dy = 0; dy <= r; ++dy) {
            for (int dx = -r; dx <= r; ++dx) {
                const int d = glow_distance[std::abs(dx)][dy];
                const int column = dx + r;
                rows[dy][column] = d > r ? 0.0F : 1.0F - static_cast<float>(d) / static_cast<float>(r + 1);
            }
        }
    }
};

/// The disc of the radius used last. Main thread.
GlowDisc disc;

/// Adds light to `count` pixels. Where the share is 0, and on pure white, the sum comes out as the pixel itself, so
/// that the loop needs no test and runs over vectors.
void add_light(int* pixels, const float* shares, int count, float w, int color)
{
    const float r = static_cast<float>(red_of(color));
    const float g = static_cast<float>(green_of(color));
    const float b = static_cast<float>(blue_of(color));
    for (int i = 0; i < count; ++i) {
        const float f = shares[i] * w;
        const int p = pixels[i];
        pixels[i] = pack_rgb(static_cast<int>(std::min(f * r + static_cast<float>(red_of(p)), 255.0F)),
                             static_cast<int>(std::min(f * g + static_cast<float>(green_of(p)), 255.0F)),
                             static_cast<int>(std::min(f * b + static_cast<float>(blue_of(p)), 255.0F)));
    }
}

/// The light that one pixel of a stroke sends out, as whole numbers that are added to the bytes of the frame.
///
/// A share of light f added to a channel p gives floor(f + p). Where no sum is rounded up to the next whole number on
/// its way, that is p + floor(f) for every p: then the order of additions can't show, and the light of many pixels may
/// be added at once.
struct Light {
    bool whole = false; ///< no sum is rounded up
    /// Blue, green, red and 0 at each place of the disc: by |dy|, then by dx + radius.
    std::array<std::array<uint32_t, most_width + 1>, most_radius + 1> rows{};
    /// Sums of a row's blue, green and red over its first n places.
    std::array<std::array<std::array<int, 3>, most_width + 1>, most_radius + 1> sums{};
};

constexpr int blue_shift = 0, green_shift = 8, red_shift = 16;
constexpr std::array<int, 3> shifts{blue_shift, green_shift, red_shift};

Light make_light(int radius, float w, int color)
{
    // Twice the widest step between floats below 512: a fraction below 1 by more is rounded up in no sum.
    constexpr float near_next = 1.0F - 1.0F / 8192;
    Light light{.whole = true};
    for (int dy = 0; dy <= radius; ++dy) {
        for (int column = 0; column <= 2 * radius; ++column) {
            const float f = disc.rows[dy][column] * w;
            for (std::size_t c = 0; c < shifts.size(); ++c) {
                const float share = f * static_cast<float>(color >> shifts[c] & 255);
                const int whole = static_cast<int>(share);
                light.whole = light.whole && share - static_cast<float>(whole) < near_next;
                light.rows[dy][column] |= static_cast<uint32_t>(whole) << shifts[c];
                light.sums[dy][column + 1][c] = light.sums[dy][column][c] + whole;
            }
        }
    }
    return light;
}

/// The lights of a radius, strength and colour, by tip value; made when first needed. Main thread.
struct Lights {
    int radius = -1, color = 0;
    float strength = 0;
    std::array<std::unique_ptr<const Light>, tip_no_ink> by_tip_value;
};
Lights lights;

const Light& light_of(int radius, float strength, int color, int tip_value, float w)
{
    if (radius != lights.radius || strength != lights.strength || color != lights.color) {
        lights = {};
        lights.radius = radius;
        lights.strength = strength;
        lights.color = color;
    }
    std::unique_ptr<const Light>& light = lights.by_tip_value[tip_value];
    if (!light) light = std::make_unique<const Light>(make_light(radius, w, color));
    return *light;
}

/// Adds bytes to the bytes of pixels, up to 255; the top bytes come out as 0.
void add_bytes(int* pixels, const uint32_t* added, int count)
{
    constexpr int at_once = 4;
    int i = 0;
    for (; i + at_once <= count; i += at_once) {
        Ints light;
        std::memcpy(&light, added + i, sizeof(light));
        store_four(pixels + i, add_four(load_four(pixels + i) & 0xffffff, light));
    }
    for (; i < count; ++i)
        pixels[i] = add_four(all_four(pixels[i] & 0xffffff), all_four(static_cast<int>(added[i])))[0];
}

/// Pixels side by side whose light is added at once; more are taken in turns.
constexpr int most_at_once = 512;

/// The light of `count` pixels side by side on a line of the frame, |dy| away: at each place that of its nearest
/// 2 x radius + 1 senders, which is the difference of two sums.
void gather_light(const Light& light, int radius, int dy, int count, uint32_t* gathered)
{
    const auto& sums = light.sums[dy];
    const auto at = [&](int i) {
        const auto& upper = sums[std::min(i, 2 * radius) + 1];
        const auto& lower = sums[std::max(i - count + 1, 0)];
        uint32_t pixel = 0;
        for (std::size_t c = 0; c < shifts.size(); ++c)
            pixel |= static_cast<uint32_t>(std::min(upper[c] - lower[c], 255)) << shifts[c];
        return pixel;
    };
    const int places = count + 2 * radius;
    const int full = count > 2 * radius ? 2 * radius : places; // from here on and before `count`: a whole row's light
    for (int i = 0; i < full; ++i)
        gathered[i] = at(i);
    if (full == places) return;
    std::fill(gathered + full, gathered + count, at(full));
    for (int i = count; i < places; ++i)
        gathered[i] = at(i);
}

} // namespace

/// Reads and writes the frame as it is now. The coverage is a flag of the pixel that sends the light.
struct Glow {
    explicit Glow(const Canvas& on)
        : canvas(on), radius(ink_option(INK_GLOW, options::glow_radius)),
          strength(static_cast<float>(ink_strength(INK_GLOW)) / 255.0F)
    {
        disc.make(radius);
    }

    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink || *dab.coverage != 0) return;
        *dab.coverage = 1;
        const float w = weight(dab.tip_value);
        const Reach reach = reach_of(dab.x, 1, dab.y);
        for (int y = reach.top; y <= reach.bottom; ++y) {
            const float* shares = disc.rows[std::abs(y - dab.y)].data();
            add_light(row(canvas.frame, y) + reach.left, shares + reach.skipped, reach.count, w, dab.color);
        }
    }

    void apply_run(const DabRun& run) const
    {
        if (run.tip_values) {
            for (int i = 0; i < run.count; ++i)
                send(run, i, 1, run.tip_values[i]);
            return;
        }
        for (int i = 0; i < run.count;) {
            const int most = std::min(run.count, i + most_at_once);
            const int end = static_cast<int>(
                std::find_if(run.coverage + i, run.coverage + most, [](int covered) { return covered != 0; }) -
                run.coverage);
            if (end > i) send(run, i, end - i, 0);
            i = std::max(end, i + 1);
        }
    }

private:
    /// The part of the frame that the light of some pixels side by side reaches.
    struct Reach {
        int left, count; ///< columns
        int skipped;     ///< columns of the light that lie left of the frame
        int top, bottom;
    };
    Reach reach_of(int x, int senders, int y) const
    {
        const int left = std::max(x - radius, 0);
        const int right = std::min(x + senders - 1 + radius, canvas.frame->w - 1);
        return {left, right - left + 1, left - x + radius, std::max(y - radius, 0),
                std::min(y + radius, canvas.frame->h - 1)};
    }

    float weight(int tip_value) const
    {
        return tip_value == 0 ? strength : static_cast<float>(fixed_weight(tip_value)) / 200.0F * strength;
    }

    /// The light of `count` pixels of a run from the i-th on, of one tip value and none of them covered if `count` is
    /// above 1.
    void send(const DabRun& run, int i, int count, int tip_value) const
    {
        if (tip_value >= tip_no_ink || run.coverage[i] != 0) return;
        const Light& light = light_of(radius, strength, run.color, tip_value, weight(tip_value));
        if (!light.whole) {
            for (int k = i; k < i + count; ++k)
                apply(run.dab(k));
            return;
        }
        std::fill_n(run.coverage + i, count, 1);
        const Reach reach = reach_of(run.x + i, count, run.y);
        std::array<uint32_t, most_at_once + most_width> gathered;
        for (int y = reach.top; y <= reach.bottom; ++y) {
            const int dy = std::abs(y - run.y);
            const uint32_t* added = light.rows[dy].data();
            if (count > 1) {
                gather_light(light, radius, dy, count, gathered.data());
                added = gathered.data();
            }
            add_bytes(row(canvas.frame, y) + reach.left, added + reach.skipped, reach.count);
        }
    }

    const Canvas& canvas;
    int radius;
    float strength;
};

template struct InkLoops<Glow>;

} // namespace kelu
