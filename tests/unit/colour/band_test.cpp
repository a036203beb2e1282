// SPDX-License-Identifier: MIT
// Folds, bands and ends of the spectrum.
#include "colour/band.h"

#include "runtime/pixels.h"
#include "support/fresh_state.h"

namespace kelu {
namespace {

class SpectrumTest : public test::FreshState {
protected:
    static int grey(float bands, float position) { return red_of(spectrum_color(0x000000, 0xffffff, bands, position)); }
};

TEST_F(SpectrumTest, SmoothBandRunsBetweenItsColoursAndStopsShortOfTheEnd)
{
    spectrum.spectrum_fold = 0;
    EXPECT_EQ(spectrum_color(0x102030, 0x30a000, 0, 0.5F), 0x206018);
    EXPECT_EQ(grey(0, 0.25F), 63); // 63.75
    EXPECT_EQ(grey(1, 0.25F), 63);
    EXPECT_EQ(grey(0, 1), 252); // 0.99 of 255
    EXPECT_EQ(grey(0, 7), 252);
    EXPECT_EQ(grey(0, -3), 0);
    EXPECT_EQ(spectrum_color(0xffffff, 0, 0, 1), 0x020202); // 255 - 252.45
}

TEST_F(SpectrumTest, EachFoldDoublesThePeaks)
{
    for (int fold = 0; fold <= 3; ++fold) {
        spectrum.spectrum_fold = fold;
        int peaks = 0; // counted between the positions at which a fold reaches 1, where the band dips to 0.99
        bool rising = true;
        for (int i = 1; i < 1000; ++i) {
            const int now = grey(0, (static_cast<float>(i) + 0.5F) / 1000);
            const int before = grey(0, (static_cast<float>(i) - 0.5F) / 1000);
            if (rising && now < before) ++peaks;
            if (now != before) rising = now > before;
        }
        EXPECT_EQ(peaks, fold == 0 ? 0 : 1 << (fold - 1)) << fold;
    }
    spectrum.spectrum_fold = 1;
    EXPECT_EQ(grey(0, 0.5F), 252);
    EXPECT_EQ(grey(0, 1), 0);
    EXPECT_EQ(grey(0, 0.75F), grey(0, 0.25F));
}

TEST_F(SpectrumTest, BandsGoInStepsFromTheStart)
{
    spectrum.spectrum_fold = 0;
    EXPECT_EQ(grey(2, 0.1F), 0);
    EXPECT_EQ(grey(2, 0.49F), 0);
    EXPECT_EQ(grey(2, 0.495F), 127); // the edge is taken 0.01 of a band early
    EXPECT_EQ(grey(2, 1), 127);
    EXPECT_EQ(grey(4, 0.3F), 63);
    EXPECT_EQ(grey(4, 0.99F), 191);
}

} // namespace
} // namespace kelu
