// Inks that shift the colour of the one pixel under the brush: GRAY, PULL and SPARK.
//
// PULL and SPARK work in HLS in double precision. Their full strength writes the shifted colour; under a soft tip the
// colour takes its whole step and the tip's weight acts through the blend.
#include "colour/spaces.h"
#include "draw/ink_loops.h"

#include <cmath>
#include <cstdlib>

namespace kelu {
namespace {

int grey_of(int color)
{
    const int grey = (green_of(color) + red_of(color) + blue_of(color)) / 3;
    return pack_rgb(grey, grey, grey);
}

/// Writes a shifted colour: as it is at full strength, else blended over the stroke source.
void put_shifted(const Dab& dab, int shifted, int weight)
{
    if (dab.tip_value == 0) {
        *dab.frame = shifted;
    } else {
        *dab.frame = *dab.source;
        lay_on(*dab.frame, shifted, weight);
    }
}

} // namespace

/// Blends towards the pixel's own grey: of the stroke source at full strength, under a soft tip of the pixel as it
/// now is.
struct Gray {
    explicit Gray(const Canvas&) : s(ink_strength(INK_GRAY)) {}
    void apply(const Dab& dab) const
    {
        blend_over_source(dab, s, grey_of(dab.tip_value == 0 ? *dab.source : *dab.frame));
    }
    int s;
};

/// Moves the hue towards that of the brush colour, by the shorter way round.
struct Pull {
    explicit Pull(const Canvas&)
        : s(ink_strength(INK_PULL)), target_hue(rgb_to_hls(toolbox.brush_color).h), full_step(s / 255.0),
          soft_step(static_cast<float>(s) / 255.0F)
    {}

    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink) return;
        const int weight = strength_weight(s, dab.tip_value);
        if (!claim(dab, weight)) return;
        Hls hls = rgb_to_hls(*dab.source);
        hls.h = pulled(hls.h, dab.tip_value == 0 ? full_step : soft_step);
        put_shifted(dab, pack_rgb(hls_to_rgb(hls)), weight);
    }

private:
    /// A hue moved by the share `t` of its distance to the target; from 128 on the way leads over the wrap-around.
    double pulled(double hue, double t) const
    {
        const int d = std::abs(static_cast<int>(target_hue - hue));
        if (d < 128) {
            hue = target_hue > hue ? hue + t * d : hue - t * d;
        } else {
            const double step = t * (255 - d);
            hue = target_hue - hue > 0 ? hue - step : hue + step;
        }
        if (hue < 0) hue += 255;
        if (hue > 255) hue -= 255;
        return hue;
    }

    int s;
    double target_hue, full_step;
    float soft_step; ///< s / 255 in single precision, which the partial tip values take
};

/// Raises the saturation.
struct Spark {
    explicit Spark(const Canvas&) : s(ink_strength(INK_SPARK)) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink) return;
        const float gain = dab.tip_value == 0
                               ? static_cast<float>(s)
                               : static_cast<float>(fixed_weight(dab.tip_value)) / 200.0F * static_cast<float>(s);
        const int weight = static_cast<int>(gain);
        if (!claim(dab, weight)) return;
        Hls hls = rgb_to_hls(*dab.source);
        hls.s = std::min(hls.s + gain, 255.0);
        put_shifted(dab, pack_rgb(hls_to_rgb(hls)), weight);
    }
    int s;
};

template struct InkLoops<Gray>;
template struct InkLoops<Pull>;
template struct InkLoops<Spark>;

} // namespace kelu
