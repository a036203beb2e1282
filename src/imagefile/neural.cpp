// SPDX-License-Identifier: MIT
// The network's operations. The search for the winner, nearly all of the time, runs over plain arrays with one number
// a neuron, so that the compiler can take several neurons at a time.
#include "imagefile/neural.h"

#include <algorithm>
#include <climits>

namespace kelu {
namespace {

constexpr int net_bias_shift = 4; // colours are held times 16
constexpr int cycles = 100;
constexpr int int_bias_shift = 16;
constexpr int beta_shift = 10;
constexpr int gamma_shift = 10;
constexpr int beta = 1 << int_bias_shift >> beta_shift;
constexpr int beta_gamma = 1 << int_bias_shift << gamma_shift >> beta_shift;
constexpr int initial_radius = 32;
constexpr int radius_bias_shift = 6;
constexpr int radius_decrease = 30;
constexpr int initial_alpha = 1 << 10;
constexpr int rad_bias = 1 << 8;
constexpr int alpha_rad_bias = 1 << 18;
constexpr std::size_t primes[] = {499, 491, 487, 503};

/// A sample or the place of a neuron, times 16.
struct Color {
    int b, g, r;
};

int distance(const NeuralNetwork& net, std::size_t i, const Color& color)
{
    return std::abs(net.b[i] - color.b) + std::abs(net.g[i] - color.g) + std::abs(net.r[i] - color.r);
}

/// The index of the smallest, the first of equals. Value and index make one number, so that one minimum finds both;
/// distances stay within 22 bits.
int smallest(const NeuralNetwork::Row& values)
{
    int best = INT_MAX;
    for (int i = 0; i < network_size; ++i)
        best = std::min(best, values[i] * network_size + i);
    return best & (network_size - 1);
}

/// Lets all neurons compete for a colour: the nearest becomes more frequent, the nearest after the bias wins.
int contest(const Color& color)
{
    NeuralNetwork& net = network;
    NeuralNetwork::Row plain, biased;
    for (std::size_t i = 0; i < network_size; ++i) {
        plain[i] = distance(net, i, color);
        biased[i] = plain[i] - (net.bias[i] >> (int_bias_shift - net_bias_shift));
        const int beta_freq = net.freq[i] >> beta_shift;
        net.freq[i] -= beta_freq;
        net.bias[i] += beta_freq << gamma_shift;
    }
    const int best = smallest(plain);
    net.freq[best] += beta;
    net.bias[best] -= beta_gamma;
    return smallest(biased);
}

/// Moves a neuron towards a colour by weight / scale of the way, rounded towards zero.
void alter(int neuron, const Color& color, int weight, int scale)
{
    network.b[neuron] -= weight * (network.b[neuron] - color.b) / scale;
    network.g[neuron] -= weight * (network.g[neuron] - color.g) / scale;
    network.r[neuron] -= weight * (network.r[neuron] - color.r) / scale;
}

using RadPower = std::array<int, initial_radius>;

/// How much a neighbour at each distance below `rad` moves.
void set_radpower(RadPower& radpower, int rad, int alpha)
{
    for (int i = 0; i < rad; ++i)
        radpower[i] = alpha * ((rad * rad - i * i) * rad_bias / (rad * rad));
}

void alter_neighbours(int rad, int winner, const Color& color, const RadPower& radpower)
{
    const int low = std::max(winner - rad, -1);
    const int high = std::min(winner + rad, network_size);
    for (int d = 1; winner + d < high || winner - d > low; ++d) {
        const int weight = radpower[d];
        if (winner + d < high) alter(winner + d, color, weight, alpha_rad_bias);
        if (winner - d > low) alter(winner - d, color, weight, alpha_rad_bias);
    }
}

/// The stride in bytes that leads through all pixels in an order that looks like none.
std::size_t sample_step(std::size_t length)
{
    for (const std::size_t prime : primes) {
        if (length % prime != 0) return 3 * prime;
    }
    return 3 * primes[3];
}

Color sample_at(std::size_t at)
{
    const uint8_t* pixel = &network.pixels[at];
    return {pixel[0] << net_bias_shift, pixel[1] << net_bias_shift, pixel[2] << net_bias_shift};
}

} // namespace

void init_network(std::span<const uint8_t> pixels, int sample_factor)
{
    for (std::size_t i = 0; i < network_size; ++i)
        network.b[i] = network.g[i] = network.r[i] = static_cast<int>(i) << net_bias_shift;
    network.freq.fill((1 << int_bias_shift) / network_size);
    network.bias.fill(0);
    network.pixels = pixels;
    network.sample_factor = sample_factor;
}

void learn()
{
    const std::size_t length = network.pixels.size();
    const int alpha_decrease = 30 + (network.sample_factor - 1) / 3;
    const std::size_t samples = length / (3UL * network.sample_factor);
    const std::size_t delta = std::max<std::size_t>(1, samples / cycles);
    const std::size_t step = sample_step(length);
    int alpha = initial_alpha;
    int radius = initial_radius << radius_bias_shift;
    int rad = initial_radius;
    RadPower radpower{};
    set_radpower(radpower, rad, alpha);
    std::size_t at = 0;
    for (std::size_t i = 1; i <= samples; ++i) {
        const Color color = sample_at(at);
        const int winner = contest(color);
        alter(winner, color, alpha, initial_alpha);
        if (rad != 0) alter_neighbours(rad, winner, color, radpower);
        at = (at + step) % length;
        if (i % delta != 0) continue;
        alpha -= alpha / alpha_decrease;
        radius -= radius / radius_decrease;
        rad = radius >> radius_bias_shift;
        if (rad <= 1) rad = 0;
        set_radpower(radpower, rad, alpha);
    }
}

void unbias_network()
{
    for (NeuralNetwork::Row* component : {&network.b, &network.g, &network.r}) {
        for (int& n : *component)
            n = std::min((n + 8) >> net_bias_shift, 255);
    }
}

void write_palette(RGB* palette)
{
    const auto level = [](int n) { return static_cast<unsigned char>(n >> 2); };
    for (std::size_t i = 0; i < network_size; ++i)
        palette[i] = {level(network.r[i]), level(network.g[i]), level(network.b[i]), 0};
}

} // namespace kelu
