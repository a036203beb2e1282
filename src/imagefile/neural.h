// SPDX-License-Identifier: MIT
// The neural quantiser: 256 colours for a picture, learnt by a self-organising map.
//
// Anthony Dekker, "Kohonen neural networks for optimal colour quantization", Network: Computation in Neural Systems
// 5 (1994). All in integers, so that a picture has one palette on every machine.
#pragma once

#include <allegro.h>
#include <array>
#include <cstdint>
#include <span>

namespace kelu {

constexpr int network_size = 256;

/// The map while it learns: 256 neurons in a row, each a colour. A component is held times 16.
/// One set serves all pictures; `init_network` starts it anew.
struct NeuralNetwork {
    using Row = std::array<int, network_size>;
    Row b, g, r;                     ///< the neurons' components
    Row freq;                        ///< how often each wins, of 65536
    Row bias;                        ///< favours neurons that seldom win
    std::span<const uint8_t> pixels; ///< blue, green, red of each pixel
    int sample_factor = 1;           ///< one pixel in so many is looked at
};
inline NeuralNetwork network;

/// Sets all neurons on the grey diagonal. `pixels`: blue, green, red, in bytes, at least one pixel; they have to stay
/// till the end of `learn`. `sample_factor`: 1 (best) to 30.
void init_network(std::span<const uint8_t> pixels, int sample_factor);
/// Shows the network its samples.
void learn();
/// Turns the components back into 0 to 255.
void unbias_network();
/// Entry i becomes the colour of row i at 6 bits a channel.
void write_palette(RGB* palette);

} // namespace kelu
