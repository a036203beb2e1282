// SPDX-License-Identifier: MIT
// Inks that look at the neighbours: CLOSE, EMBOSS, HOLLOW, JUMBLE, SWEEP, UNZAG.
//
// They read the stroke source, so that a filter sees the picture as it was before the stroke; SWEEP alone averages the
// frame. A neighbour outside the frame is left out.
#include "draw/ink_block.h"

#include "runtime/random.h"

namespace kelu {

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
template struct InkLoops<Sweep>;
template struct InkLoops<Unzag>;

} // namespace kelu
