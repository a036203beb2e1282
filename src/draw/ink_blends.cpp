// Inks that blend a colour with the one pixel under the brush: OPAQUE, ADD, SUB, BRIGHT, DARK, GLASS, GRAIN, XOR.
//
// Channel arithmetic is single precision, and every conversion to an integer truncates.
#include "draw/ink_loops.h"

#include "base/run_state.h"
#include "runtime/random.h"

namespace kelu {

/// The plain colour. At full strength it knows no coverage, so that it paints over a soft stamp of the same stroke; a
/// soft rim blends over the pixel as it is now and builds up.
struct Opaque {
    explicit Opaque(const Canvas&) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value == 0) {
            *dab.frame = dab.color;
        } else if (dab.tip_value < tip_no_ink && claim(dab, fixed_weight(dab.tip_value))) {
            lay_on(*dab.frame, dab.color, fixed_weight(dab.tip_value));
        }
    }
};

namespace {

/// The frame of ADD and SUB: `channel(source, scaled color)` of each channel, where the colour is scaled by the
/// strength and by the tip.
template <class Channel>
void sum_channels(const Dab& dab, float strength, Channel channel)
{
    if (dab.tip_value >= tip_no_ink) return;
    const int weight = fixed_weight(dab.tip_value);
    if (!claim(dab, weight)) return;
    const float f = dab.tip_value == 0 ? strength : static_cast<float>(weight) / 200.0F * strength;
    const int source = *dab.source;
    *dab.frame = pack_rgb(channel(red_of(source), f * static_cast<float>(red_of(dab.color))),
                          channel(green_of(source), f * static_cast<float>(green_of(dab.color))),
                          channel(blue_of(source), f * static_cast<float>(blue_of(dab.color))));
}

} // namespace

/// Adds the colour.
struct Add {
    explicit Add(const Canvas&) : strength(static_cast<float>(ink_strength(INK_ADD)) / 255.0F) {}
    void apply(const Dab& dab) const
    {
        sum_channels(dab, strength, [](int source, float color) {
            return static_cast<int>(std::min(color + static_cast<float>(source), 255.0F));
        });
    }
    float strength;
};

/// Subtracts the colour.
struct Sub {
    explicit Sub(const Canvas&) : strength(static_cast<float>(ink_strength(INK_SUB)) / 255.0F) {}
    void apply(const Dab& dab) const
    {
        sum_channels(dab, strength, [](int source, float color) {
            return static_cast<int>(std::max(static_cast<float>(source) - color, 0.0F));
        });
    }
    float strength;
};

/// Blends towards white.
struct Bright {
    explicit Bright(const Canvas&) : s(ink_strength(INK_BRIGHT)) {}
    void apply(const Dab& dab) const { blend_over_source(dab, s, fixed_colours.white); }
    int s;
};

/// Blends towards black.
struct Dark {
    explicit Dark(const Canvas&) : s(ink_strength(INK_DARK)) {}
    void apply(const Dab& dab) const { blend_over_source(dab, s, fixed_colours.black); }
    int s;
};

/// Blends towards the colour.
struct Glass {
    explicit Glass(const Canvas&) : s(ink_strength(INK_GLASS)) {}
    void apply(const Dab& dab) const { blend_over_source(dab, s, dab.color); }
    int s;
};

/// GLASS with a random weight, on a random choice of pixels. At full strength the first roll to pass stands for the
/// whole stroke; under a soft tip a later, higher roll replaces it.
struct Grain {
    explicit Grain(const Canvas&) : s(ink_strength(INK_GRAIN)), frequency(ink_option(INK_GRAIN, options::frequency)) {}
    void apply(const Dab& dab) const
    {
        // The roll comes before every other test, so that a cell without ink takes one from the stream as well.
        if (rnd(100) > frequency || dab.tip_value >= tip_no_ink) return;
        if (dab.tip_value == 0) {
            if (!claim(dab, s)) return;
            *dab.frame = *dab.source;
            lay_on(*dab.frame, dab.color, rnd(s));
        } else {
            blend_over_source(dab, rnd(s), dab.color);
        }
    }
    int s, frequency;
};

/// Exclusive or of the channels. The mix runs on 255 less the tip value, the coverage on 200 less it.
struct Xor {
    explicit Xor(const Canvas&) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink || !claim(dab, fixed_weight(dab.tip_value))) return;
        const int effect = (*dab.source ^ dab.color) & 0xffffff;
        *dab.frame = dab.tip_value == 0 ? effect : mix_colors(*dab.source, effect, 255 - dab.tip_value);
    }
};

template struct InkLoops<Opaque>;
template struct InkLoops<Add>;
template struct InkLoops<Sub>;
template struct InkLoops<Bright>;
template struct InkLoops<Dark>;
template struct InkLoops<Glass>;
template struct InkLoops<Grain>;
template struct InkLoops<Xor>;

} // namespace kelu
