// SPDX-License-Identifier: MIT
// Inks that paint the spectrum along a distance from nodes on the frame: H.GRAD, V.GRAD, L.GRAD and R.GRAD. Neither
// the colour argument nor the brush colour plays a part.
#include "colour/band.h"
#include "draw/gradient.h"
#include "draw/ink_fours.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace kelu {
namespace {

/// Farthest place of a node from the frame's corner: positions then stay exact in an int and a float.
constexpr int farthest_node = 65535;

int node(InkId ink, int column) { return ink_option(ink, column, -farthest_node, farthest_node); }
bool repeats(InkId ink) { return ink_option(ink, options::repeat) != 0; }

float ratio(int a, int b) { return static_cast<float>(a) / static_cast<float>(b); }

/// The band that a gradient paints.
struct Band {
    int start, end;
    float bands;

    /// The band of the spectrum, from start to end.
    static Band of(InkId ink)
    {
        return {spectrum.spectrum_start, spectrum.spectrum_end, static_cast<float>(ink_option(ink, options::banding))};
    }
    Band turned() const { return {end, start, bands}; }
};

/// What all gradients have in common: the fixed scale, and the colour at the position that `position_of` works out
/// for the pixels that pass. A partial stamp mixes over the stroke source, at most 199 of 255.
template <class PositionOf>
void paint(const Dab& dab, const Band& band, PositionOf position_of)
{
    if (dab.tip_value >= tip_no_ink) return;
    const int weight = fixed_weight(dab.tip_value);
    if (!claim(dab, weight)) return;
    const int color = spectrum_color(band.start, band.end, band.bands, position_of());
    *dab.frame = dab.tip_value == 0 ? color : mix_colors(*dab.source, color, weight);
}

/// The gradients along one axis.
class AxisGradient {
public:
    explicit AxisGradient(InkId ink) : band_(Band::of(ink)), repeat_(repeats(ink))
    {
        const int start = node(ink, GRADIENT_START);
        const int end = node(ink, GRADIENT_END);
        if (start >= end) band_ = band_.turned();
        low_ = std::min(start, end);
        length_ = std::max(start, end) - low_;
    }
    void paint_at(const Dab& dab, int position) const
    {
        paint(dab, band_, [&] { return along(position - low_); });
    }

private:
    /// Position in the band of a pixel, by its distance from the lower node. Repeated, the saw-tooth goes on evenly on
    /// both sides.
    float along(int distance) const
    {
        const int span = length_ + 1;
        if (!repeat_) return ratio(distance, span);
        if (distance >= 0) return ratio(distance % span, span);
        return ratio(length_ - std::abs(distance + 1) % span, span);
    }
    Band band_;
    bool repeat_;
    int low_ = 0, length_ = 0;
};

} // namespace

/// Along x.
struct HGrad {
    explicit HGrad(const Canvas&) : axis(INK_H_GRAD) {}
    void apply(const Dab& dab) const { axis.paint_at(dab, dab.x); }
    AxisGradient axis;
};

/// Along y.
struct VGrad {
    explicit VGrad(const Canvas&) : axis(INK_V_GRAD) {}
    void apply(const Dab& dab) const { axis.paint_at(dab, dab.y); }
    AxisGradient axis;
};

/// The colours of L.GRAD by whole steps from its node, as far as they have been asked for. Main thread.
class StepColors {
public:
    /// What the colours follow from.
    struct Key {
        int start = 0, end = 0, fold = 0;
        float bands = 0, length = 0;
        bool repeat = false;
        bool operator==(const Key&) const = default;
    };
    /// Drops the colours of another key.
    void choose(const Key& key)
    {
        if (key == key_) return;
        key_ = key;
        entries_.fill({});
    }
    /// The colour at a step; `color_of(step)` works it out.
    template <class ColorOf>
    int at(int step, ColorOf color_of)
    {
        Entry& entry = entries_[static_cast<unsigned>(step) % entries_.size()];
        if (entry.step != step) [[unlikely]]
            entry = {step, color_of(step)};
        return entry.color;
    }

private:
    struct Entry {
        int step = std::numeric_limits<int>::min();
        int color = 0;
    };
    Key key_;
    std::array<Entry, 8192> entries_;
};

/// Along the line of the nodes. With both on one spot there is no line, and the start colour fills everything.
struct LGrad {
    explicit LGrad(const Canvas&)
        : band(Band::of(INK_L_GRAD)), repeat(repeats(INK_L_GRAD)), start_x(node(INK_L_GRAD, GRADIENT_START_X)),
          start_y(node(INK_L_GRAD, GRADIENT_START_Y)),
          length(std::clamp(toolbox.ink_derived[INK_L_GRAD][LINEAR_LENGTH], 0.0F, 4.0F * farthest_node)),
          sine(toolbox.ink_derived[INK_L_GRAD][LINEAR_SIN]), cosine(toolbox.ink_derived[INK_L_GRAD][LINEAR_COS])
    {}
    void apply(const Dab& dab) const
    {
        paint(dab, band, [&] { return position(dab.x, dab.y); });
    }
    void apply_run(const DabRun& run) const
    {
        // What a state file holds may be no sine: there is no whole step then.
        if (!(std::abs(sine) <= 1 && std::abs(cosine) <= 1)) {
            for (int i = 0; i < run.count; ++i)
                apply(run.dab(i));
            return;
        }
        static StepColors colors;
        colors.choose({band.start, band.end, spectrum.spectrum_fold, band.bands, length, repeat});
        const float down = static_cast<float>(run.y - start_y) * cosine;
        const auto color_of = [this](int step) {
            const float position = length > 0 ? along(static_cast<float>(step)) : 0;
            return spectrum_color(band.start, band.end, band.bands, position);
        };
        by_fours(*this, run, FixedScale{}, [&](const DabFour& four) {
            const Ints claimed = four.claim(fixed_weights(four.tips()));
            if (none_of(claimed)) return;
            const Ints right = all_four(run.x + four.first - start_x) + Ints{0, 1, 2, 3};
            const Ints steps = rounded(__builtin_convertvector(right, Floats) * sine + down);
            const auto painted = [&](int i) {
                const int color = colors.at(steps[i], color_of);
                return four.tip(i) == 0 ? color : mix_colors(four.source[i], color, fixed_weight(four.tip(i)));
            };
            four.write(claimed, Ints{painted(0), painted(1), painted(2), painted(3)});
        });
    }

private:
    /// As std::round, for numbers below 2^22.
    static Ints rounded(Floats f)
    {
        const Ints whole = __builtin_convertvector(f, Ints);
        const Floats rest = f - __builtin_convertvector(whole, Floats);
        return whole - std::bit_cast<Ints>(rest >= 0.5F) +
               std::bit_cast<Ints>(rest <= -0.5F); // a mask that is set is -1
    }
    float position(int x, int y) const
    {
        if (!(length > 0)) return 0;
        return along(std::round(static_cast<float>(x - start_x) * sine + static_cast<float>(y - start_y) * cosine));
    }
    /// Position in the band of a whole number of steps from the first node.
    float along(float f) const
    {
        const int period = static_cast<int>(length + 1);
        if (!repeat) return f / length;
        if (f >= length + 1) return static_cast<float>(static_cast<int>(f) % period) / length;
        return (length - static_cast<float>(std::abs(static_cast<int>(f - length)) % period)) / length;
    }
    Band band;
    bool repeat;
    int start_x, start_y;
    float length, sine, cosine;
};

/// By the distance from the centre.
struct RGrad {
    explicit RGrad(const Canvas&)
        : band(Band::of(INK_R_GRAD)), repeat(repeats(INK_R_GRAD)), center_x(node(INK_R_GRAD, GRADIENT_START_X)),
          center_y(node(INK_R_GRAD, GRADIENT_START_Y)), rim(ink_option(INK_R_GRAD, GRADIENT_RIM, 1, 4 * farthest_node))
    {}
    void apply(const Dab& dab) const
    {
        paint(dab, band, [&] {
            const double dx = dab.x - center_x;
            const double dy = dab.y - center_y;
            const int d = static_cast<int>(std::sqrt(dx * dx + dy * dy));
            return ratio(repeat ? d % rim : d, rim);
        });
    }

private:
    Band band;
    bool repeat;
    int center_x, center_y, rim;
};

template struct InkLoops<HGrad>;
template struct InkLoops<VGrad>;
template struct InkLoops<LGrad>;
template struct InkLoops<RGrad>;

} // namespace kelu
