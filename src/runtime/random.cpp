// SPDX-License-Identifier: MIT
// MT19937 with its array seeding, after Matsumoto and Nishimura.
#include "runtime/random.h"

#include "base/words.h"
#include "runtime/pixels.h"
#include <array>
#include <cstdio>
#include <ctime>

namespace kelu {
namespace {

constexpr int state_words = 624;
constexpr int middle_word = 397;

/// One generator. Draws walk the words; the state is reloaded when they are used up.
class Twister {
public:
    Twister()
    {
        std::array<uint32_t, state_words> key{};
        if (read_device(key)) {
            seed_by_array(key);
        } else {
            seed(fold(std::clock()) ^ (fold(std::time(nullptr)) + seedings_));
        }
        ++seedings_;
        reload();
    }

    void seed(uint32_t value)
    {
        state_[0] = value;
        for (uint32_t i = 1; i < state_words; ++i)
            state_[i] = 1812433253U * (state_[i - 1] ^ (state_[i - 1] >> 30)) + i;
        left_ = 0;
    }

    uint32_t draw()
    {
        // The count is read once: a draw on the other thread may repeat a word, but never leaves the state.
        int left = left_;
        if (left == 0) {
            reload();
            left = state_words;
        }
        left_ = left - 1;
        uint32_t word = state_[state_words - left];
        word ^= word >> 11;
        word ^= word << 7 & 0x9d2c5680U;
        word ^= word << 15 & 0xefc60000U;
        return word ^ word >> 18;
    }

    int below(int n)
    {
        const uint32_t most = n < 1 ? 0 : static_cast<uint32_t>(n) - 1;
        uint32_t mask = most;
        for (int shift = 1; shift < 32; shift *= 2)
            mask |= mask >> shift;
        uint32_t word = draw() & mask;
        while (word > most)
            word = draw() & mask;
        return static_cast<int>(word);
    }

private:
    static bool read_device(std::array<uint32_t, state_words>& key)
    {
        FILE* device = std::fopen("/dev/urandom", "rb");
        if (!device) return false;
        const std::size_t words = std::fread(key.data(), sizeof(uint32_t), key.size(), device);
        std::fclose(device);
        return words == key.size();
    }

    template <class T>
    static uint32_t fold(T value)
    {
        uint32_t hash = 0;
        for (std::size_t i = 0; i < sizeof value; ++i)
            hash = hash * 257 + static_cast<uint8_t>(static_cast<uint64_t>(value) >> 8 * i);
        return hash;
    }

    void seed_by_array(const std::array<uint32_t, state_words>& key)
    {
        seed(19650218U);
        uint32_t i = 1;
        uint32_t j = 0;
        const auto step = [&i, this] {
            if (++i < state_words) return;
            state_[0] = state_[state_words - 1];
            i = 1;
        };
        for (int k = 0; k < state_words; ++k) {
            state_[i] = (state_[i] ^ (state_[i - 1] ^ (state_[i - 1] >> 30)) * 1664525U) + key[j] + j;
            step();
            j = (j + 1) % state_words;
        }
        for (int k = 0; k < state_words - 1; ++k) {
            state_[i] = (state_[i] ^ (state_[i - 1] ^ (state_[i - 1] >> 30)) * 1566083941U) - i;
            step();
        }
        state_[0] = 0x80000000U;
    }

    void reload()
    {
        for (std::size_t i = 0; i < state_words; ++i) {
            const uint32_t mixed = (state_[i] & 0x80000000U) | (state_[(i + 1) % state_words] & 0x7fffffffU);
            state_[i] = state_[(i + middle_word) % state_words] ^ mixed >> 1 ^ ((mixed & 1) != 0 ? 0x9908b0dfU : 0);
        }
        left_ = state_words;
    }

    static inline uint32_t seedings_ = 0;
    std::array<uint32_t, state_words> state_{};
    Shared<int> left_ = 0; // words not yet drawn
};

Twister rnd_state;
Twister rnd_script_state;

} // namespace

int rnd(int n) { return rnd_state.below(n); }

int rnd_script(int n) { return rnd_script_state.below(n); }

int random_color()
{
    const int blue = rnd(255);
    const int green = rnd(255);
    const int red = rnd(255);
    return pack_rgb(red, green, blue);
}

void seed_random(uint32_t seed)
{
    rnd_state.seed(seed);
    rnd_script_state.seed(seed);
}

} // namespace kelu
