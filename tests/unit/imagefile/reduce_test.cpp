// Reduction to 256 colours: exact palettes, and the network against a plain transcription of its rules.
#include "imagefile/reduce.h"

#include "imagefile/neural.h"
#include "runtime/pixels.h"
#include "support/pictures.h"
#include <cstring>
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

/// The network without any care for speed: one loop a rule, rows of components.
class PlainNetwork {
public:
    PlainNetwork(const std::vector<int>& samples, int factor)
    {
        for (int i = 0; i < 256; ++i) {
            for (int c = 0; c < 3; ++c)
                net_[i][c] = i * 16;
            freq_[i] = 256;
            bias_[i] = 0;
        }
        const int length = static_cast<int>(samples.size());
        const int count = length / (3 * factor), delta = std::max(1, count / 100);
        const int step = 3 * (length % 499 ? 499 : length % 491 ? 491 : length % 487 ? 487 : 503);
        int alpha = 1024, radius = 2048, rad = 32, at = 0;
        power(rad, alpha);
        for (int i = 1; i <= count; ++i) {
            const int color[3] = {samples[static_cast<std::size_t>(at)] * 16,
                                  samples[static_cast<std::size_t>(at + 1)] * 16,
                                  samples[static_cast<std::size_t>(at + 2)] * 16};
            const int j = contest(color);
            move(j, color, alpha, 1024);
            const int lo = std::max(-1, j - rad), hi = std::min(256, j + rad);
            for (int d = 1; rad != 0 && (j + d < hi || j - d > lo); ++d) {
                if (j + d < hi) move(j + d, color, power_[d], 262144);
                if (j - d > lo) move(j - d, color, power_[d], 262144);
            }
            for (at += step; at >= length;)
                at -= length;
            if (i % delta == 0) {
                alpha -= alpha / (30 + (factor - 1) / 3);
                radius -= radius / 30;
                rad = radius / 64 <= 1 ? 0 : radius / 64;
                power(rad, alpha);
            }
        }
    }
    int level(int i, int c) const { return std::min(255, (net_[i][c] + 8) / 16) / 4; }

private:
    void power(int rad, int alpha)
    {
        for (int i = 0; i < rad; ++i)
            power_[i] = alpha * (((rad * rad - i * i) * 256) / (rad * rad));
    }
    void move(int i, const int* color, int weight, int scale)
    {
        for (int c = 0; c < 3; ++c)
            net_[i][c] -= weight * (net_[i][c] - color[c]) / scale;
    }
    int contest(const int* color)
    {
        int nearest = -1, winner = -1, least = 0, least_biased = 0;
        for (int i = 0; i < 256; ++i) {
            int dist = 0;
            for (int c = 0; c < 3; ++c)
                dist += std::abs(net_[i][c] - color[c]);
            if (nearest < 0 || dist < least) {
                nearest = i;
                least = dist;
            }
            const int biased = dist - (bias_[i] >> 12);
            if (winner < 0 || biased < least_biased) {
                winner = i;
                least_biased = biased;
            }
            const int betafreq = freq_[i] >> 10;
            freq_[i] -= betafreq;
            bias_[i] += betafreq * 1024;
        }
        freq_[nearest] += 64;
        bias_[nearest] -= 65536;
        return winner;
    }

    int net_[256][3], freq_[256], bias_[256], power_[32] = {};
};

TEST(neural, every_integer_is_that_of_the_plain_rules)
{
    // 499 columns: the first step would stay in its column and isn't taken. 7 x 3: fewer samples than cycles.
    for (const auto& [w, h, factor] :
         {std::tuple{61, 47, 1}, {61, 47, 10}, {499, 9, 1}, {7, 3, 1}, {7, 3, 10}, {1, 1, 1}}) {
        const Bitmap picture = colorful(w, h);
        std::vector<int> samples;
        for (int y = 0; y < h; ++y) {
            for (int x = 0; x < w; ++x) {
                for (const int shift : {0, 8, 16})
                    samples.push_back(row(picture, y)[x] >> shift & 255);
            }
        }
        const PlainNetwork plain(samples, factor);
        PALETTE palette;
        quantize_neural(picture, factor, palette);
        for (int i = 0; i < 256; ++i) {
            ASSERT_EQ(palette[i].b, plain.level(i, 0)) << w << " x " << h << " at " << i;
            ASSERT_EQ(palette[i].g, plain.level(i, 1)) << w << " x " << h << " at " << i;
            ASSERT_EQ(palette[i].r, plain.level(i, 2)) << w << " x " << h << " at " << i;
        }
    }
}

TEST(reduce, exact_colours_keep_the_order_of_first_appearance)
{
    PALETTE palette;
    std::fill(std::begin(palette), std::end(palette), RGB{1, 2, 3, 0});
    const int colors[] = {0xfc8040, 0x000000, 0x04080c};
    const Bitmap picture = paint(6, 2, [&](int x, int y) {
        return colors[std::min(2, x / 2)] | static_cast<int>(static_cast<uint32_t>(x + y) << 24); // alpha plays no part
    });
    EXPECT_EQ(quantize_exact(picture, palette), 3);
    EXPECT_EQ(palette[0].r, 63);
    EXPECT_EQ(palette[0].g, 32);
    EXPECT_EQ(palette[0].b, 16);
    EXPECT_EQ(palette[1].r + palette[1].g + palette[1].b, 0);
    EXPECT_EQ(palette[2].b, 3);
    EXPECT_EQ(palette[255].g, 0);

    const auto ladder = [](int count) { return paint(count, 1, [](int x, int) { return x * 0x000101; }); };
    EXPECT_EQ(quantize_exact(ladder(256), palette), 256);
    const Bitmap many = paint(257, 1, [](int x, int) { return x * 3; });
    const unsigned char before = palette[200].g;
    EXPECT_EQ(quantize_exact(many, palette), -1);
    EXPECT_EQ(palette[200].g, before);
}

TEST(reduce, the_option_picks_the_way)
{
    const Bitmap two = paint(40, 40, [](int x, int) { return x < 20 ? 0xffffff : 0x204060; });
    const Bitmap many = colorful(40, 40);
    PALETTE fast, good, best, other;
    reduce_colors(two, REDUCE_BEST, best);
    EXPECT_EQ(best[0].r, 63);
    EXPECT_EQ(best[1].g, 0x40 >> 2);
    reduce_colors(two, REDUCE_GOOD, good); // the network, however few the colours
    quantize_neural(two, 10, other);
    EXPECT_EQ(std::memcmp(good, other, sizeof good), 0);
    reduce_colors(many, REDUCE_BEST, best);
    quantize_neural(many, 1, other);
    EXPECT_EQ(std::memcmp(best, other, sizeof best), 0);
    reduce_colors(two, REDUCE_FAST, fast);
    const signed char reserved[256] = {};
    std::fill(std::begin(other), std::end(other), RGB{});
    generate_optimized_palette(two, other, reserved);
    EXPECT_EQ(std::memcmp(fast, other, sizeof fast), 0);
}

} // namespace
} // namespace kelu
