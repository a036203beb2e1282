// SPDX-License-Identifier: MIT
// Bounded reading and growing writing of bytes in memory, for everything that comes from or goes to a file.
//
// A read past the end gives zeros, moves to the end and raises `ended`, so a parser may read a whole head and ask
// once. Nothing here allocates while reading.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kelu {

using Bytes = std::vector<uint8_t>;

/// Reads numbers and runs of bytes from memory, in either byte order.
class ByteReader {
public:
    explicit ByteReader(std::span<const uint8_t> bytes) : bytes_(bytes) {}

    int byte() { return at_ < bytes_.size() ? bytes_[at_++] : past_the_end(); }
    int little16() { return static_cast<int>(number<2, false>()); }
    int big16() { return static_cast<int>(number<2, true>()); }
    uint32_t little32() { return number<4, false>(); }
    uint32_t big32() { return number<4, true>(); }

    /// The next `count` bytes; fewer, and `ended`, when so many are not left.
    std::span<const uint8_t> take(std::size_t count)
    {
        if (count > left()) ended_ = true;
        const auto run = bytes_.subspan(at_, std::min(count, left()));
        at_ += run.size();
        return run;
    }
    /// True, and steps over it, when the text comes next.
    bool match(std::string_view text)
    {
        if (!starts_with(text)) return false;
        at_ += text.size();
        return true;
    }
    /// True when the text comes next; stays where it is.
    bool starts_with(std::string_view text) const
    {
        return text.size() <= left() &&
               std::equal(text.begin(), text.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(at_),
                          [](char letter, uint8_t byte) { return static_cast<uint8_t>(letter) == byte; });
    }
    /// Steps over `count` bytes; false, and `ended`, when so many are not left.
    bool skip(std::size_t count) { return take(count).size() == count; }
    /// Moves to a place counted from the start; false, and `ended`, when it lies past the end.
    bool seek(std::size_t place)
    {
        at_ = 0;
        return skip(place);
    }

    std::size_t position() const { return at_; }
    std::size_t left() const { return bytes_.size() - at_; }
    /// True once a read, a skip or a seek has asked for more than there was.
    bool ended() const { return ended_; }

private:
    int past_the_end()
    {
        ended_ = true;
        return 0;
    }
    template <int count, bool big>
    uint32_t number()
    {
        uint32_t value = 0;
        const auto run = take(count);
        if (run.size() < count) return 0;
        for (std::size_t i = 0; i < count; ++i)
            value |= uint32_t{run[i]} << 8 * (big ? count - 1 - i : i);
        return value;
    }

    std::span<const uint8_t> bytes_;
    std::size_t at_ = 0;
    bool ended_ = false;
};

/// Appends numbers and runs of bytes to a block, in either byte order.
class ByteWriter {
public:
    explicit ByteWriter(Bytes& bytes) : bytes_(bytes) {}

    void byte(int value) { bytes_.push_back(static_cast<uint8_t>(value)); }
    void little16(int value) { number<2, false>(static_cast<uint32_t>(value)); }
    void big16(int value) { number<2, true>(static_cast<uint32_t>(value)); }
    void little32(uint32_t value) { number<4, false>(value); }
    void big32(uint32_t value) { number<4, true>(value); }
    void text(std::string_view letters) { bytes_.insert(bytes_.end(), letters.begin(), letters.end()); }
    void append(std::span<const uint8_t> run) { bytes_.insert(bytes_.end(), run.begin(), run.end()); }
    void fill(std::size_t count, uint8_t value = 0) { bytes_.insert(bytes_.end(), count, value); }

private:
    template <int count, bool big>
    void number(uint32_t value)
    {
        for (int i = 0; i < count; ++i)
            byte(static_cast<int>(value >> 8 * (big ? count - 1 - i : i) & 255));
    }

    Bytes& bytes_;
};

} // namespace kelu
