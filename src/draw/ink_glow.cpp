// The ink GLOW: each pixel under the stroke sends out one disc of light, and the discs add up on the frame.
#include "draw/ink_loops.h"

#include <array>
#include <cstdlib>

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
            table[static_cast<std::size_t>(dx)][static_cast<std::size_t>(dy)] = d;
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
                const auto row = static_cast<std::size_t>(dy);
                const int d = glow_distance[static_cast<std::size_t>(std::abs(dx))][row];
                const int column = dx + r;
                rows[row][static_cast<std::size_t>(column)] =
                    d > r ? 0.0F : 1.0F - static_cast<float>(d) / static_cast<float>(r + 1);
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
        const float w =
            dab.tip_value == 0 ? strength : static_cast<float>(fixed_weight(dab.tip_value)) / 200.0F * strength;
        const int left = std::max(dab.x - radius, 0);
        const int right = std::min(dab.x + radius, canvas.frame->w - 1);
        const int bottom = std::min(dab.y + radius, canvas.frame->h - 1);
        for (int y = std::max(dab.y - radius, 0); y <= bottom; ++y) {
            const float* shares = disc.rows[static_cast<std::size_t>(std::abs(y - dab.y))].data();
            add_light(row(canvas.frame, y) + left, shares + (left - dab.x + radius), right - left + 1, w, dab.color);
        }
    }

private:
    const Canvas& canvas;
    int radius;
    float strength;
};

template struct InkLoops<Glow>;

} // namespace kelu
