// SPDX-License-Identifier: MIT
// A variable of the program's state, as a tagged file sees it: a row of words.
#pragma once

#include "base/words.h"
#include <array>
#include <cstddef>
#include <cstdint>

namespace kelu {

/// Names one word, or an array of them in memory, and reads and writes them as ints. Bytes are flags: a word that is
/// not 0 is stored as 1. Constexpr, so that tables of fields are data.
class Field {
public:
    constexpr Field() = default;
    constexpr Field(int& word) : Field(&word, Width::PLAIN, 1, sizeof word) {}
    constexpr Field(Shared<int>& word) : Field(&word, Width::SHARED, 1, sizeof word) {}
    constexpr Field(uint8_t& flag) : Field(&flag, Width::FLAG, 1, sizeof flag) {}
    constexpr Field(Shared<uint8_t>& flag) : Field(&flag, Width::SHARED_FLAG, 1, sizeof flag) {}
    /// All words of an array, of any depth.
    template <class T, std::size_t N>
    constexpr Field(std::array<T, N>& words) : Field(Field(words[0]).repeated(N))
    {}
    /// The word named, in the first of `count` records that are `stride` bytes apart.
    template <class T>
    constexpr Field(T& word, int count, std::size_t stride) : Field(Field(word))
    {
        count_ = count;
        stride_ = stride;
    }
    /// Words that are anywhere, in the order of a list that lives as long as the field.
    template <std::size_t N>
    constexpr Field(int* const (&words)[N]) : Field(const_cast<int**>(words), Width::LISTED, N, sizeof words[0])
    {}
    /// A field that always reads as `word` and keeps nothing.
    static constexpr Field constant(int word)
    {
        Field field;
        field.count_ = 1;
        field.constant_ = word;
        return field;
    }

    constexpr int count() const { return count_; }
    /// Word i, 0 to count() - 1.
    int get(int i) const;
    void set(int i, int word) const;

private:
    enum class Width : uint8_t { CONSTANT, PLAIN, SHARED, FLAG, SHARED_FLAG, LISTED };

    constexpr Field(void* base, Width width, int count, std::size_t stride)
        : base_(base), width_(width), count_(count), stride_(stride)
    {}
    /// The same words n times over, one block behind the other: an array in memory.
    constexpr Field repeated(std::size_t n) const { return {base_, width_, count_ * static_cast<int>(n), stride_}; }
    void* at(int i) const { return static_cast<std::byte*>(base_) + i * stride_; }

    void* base_ = nullptr;
    Width width_ = Width::CONSTANT;
    int count_ = 0;
    std::size_t stride_ = 0; // bytes from word to word
    int constant_ = 0;
};

} // namespace kelu
