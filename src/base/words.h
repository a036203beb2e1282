// SPDX-License-Identifier: MIT
// Words that two threads touch.
//
// Timer callbacks and the main thread share plain words and no locks. The type of a word says so: a plain member
// belongs to one thread; `Shared` is written or read by both, in any order; `Published` is stored last and vouches
// for the row that it heads. There is no ++ and no +=: load and store are spelt out, so that a race shows.
#pragma once

#include <atomic>
#include <cstdint>

namespace kelu {

template <class T, std::memory_order Load, std::memory_order Store>
class Word {
public:
    constexpr Word(T value = {}) : word_(value) {}
    Word(const Word& other) : word_(T(other)) {} // so that a whole struct of state can be reset
    Word& operator=(const Word& other) { return *this = T(other); }
    Word& operator=(T value)
    {
        word_.store(value, Store);
        return *this;
    }
    operator T() const { return word_.load(Load); }
    /// Reads the word and zeroes it in one step: for the event words.
    T take() { return word_.exchange(T{}, std::memory_order_acq_rel); }

private:
    std::atomic<T> word_;
};

template <class T>
using Shared = Word<T, std::memory_order_relaxed, std::memory_order_relaxed>;
template <class T>
using Published = Word<T, std::memory_order_acquire, std::memory_order_release>;

/// A word of 16 bits that takes any int and keeps its low 16: the fields of the actors. `Held` is one of the above.
template <class Held>
class Field16 {
public:
    constexpr Field16(int value = 0) : held_(static_cast<int16_t>(value)) {}
    Field16& operator=(int value)
    {
        held_ = static_cast<int16_t>(value);
        return *this;
    }
    operator int() const { return held_; }

private:
    Held held_;
};
using Shared16 = Field16<Shared<int16_t>>;
using Published16 = Field16<Published<int16_t>>;

} // namespace kelu
