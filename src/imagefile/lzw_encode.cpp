// SPDX-License-Identifier: MIT
// The LZW encoder: a dictionary of strings, found by hash at the same cost however full it is.
#include "imagefile/lzw.h"

#include <array>

namespace kelu {
namespace {

/// The last string that is added.
constexpr int top_limit = 4094;

/// Codes leave as bytes, bytes as blocks led by their length.
class CodeWriter {
public:
    explicit CodeWriter(Bytes& out) : out_(out) {}

    void put(int code, int width)
    {
        bits_ |= static_cast<uint32_t>(code) << count_;
        for (count_ += width; count_ >= 8; count_ -= 8, bits_ >>= 8)
            put_byte(static_cast<uint8_t>(bits_));
    }
    void finish()
    {
        if (count_ > 0) put_byte(static_cast<uint8_t>(bits_));
        if (used_ > 0) put_block();
    }

private:
    void put_byte(uint8_t byte)
    {
        block_[used_++] = byte;
        if (used_ == block_.size()) put_block();
    }
    void put_block()
    {
        out_.push_back(static_cast<uint8_t>(used_));
        out_.insert(out_.end(), block_.begin(), block_.begin() + static_cast<std::ptrdiff_t>(used_));
        used_ = 0;
    }

    Bytes& out_;
    uint32_t bits_ = 0;
    int count_ = 0; ///< bits waiting, fewer than 8 between codes
    std::array<uint8_t, 255> block_{};
    std::size_t used_ = 0;
};

/// The strings so far. A string is the pair of its prefix, a code, and its suffix, a pixel or the end code, so no pair
/// is there twice and any way of finding it gives the same code.
class Dictionary {
public:
    explicit Dictionary(int end_code) : end_code_(end_code) { clear(); }

    /// Forgets all strings.
    void clear()
    {
        cells_.fill(free_cell);
        top_ = end_code_;
    }

    /// The code of the pair, or -1. Remembers where `add` would put it.
    int find(int prefix, int suffix)
    {
        wanted_ = static_cast<uint32_t>(prefix << 9 | suffix);
        for (at_ = wanted_ * 2654435769u >> (32 - cell_bits); cells_[at_] != free_cell;
             at_ = (at_ + 1) % cells_.size()) {
            if (cells_[at_] >> code_bits == wanted_) return static_cast<int>(cells_[at_] & ((1u << code_bits) - 1));
        }
        return -1;
    }
    /// Adds the pair that was just not found as the next code; a full table stays as it is.
    void add()
    {
        if (top_ < top_limit) cells_[at_] = uint64_t{wanted_} << code_bits | static_cast<uint32_t>(++top_);
    }
    /// The highest code in use.
    int top() const { return top_; }
    bool full() const { return top_ == top_limit; }

private:
    static constexpr int cell_bits = 14; // four cells a string: chains are short
    static constexpr int code_bits = lzw_max_width;
    static constexpr uint64_t free_cell = ~uint64_t{0};

    std::array<uint64_t, std::size_t{1} << cell_bits> cells_; ///< pair and code, or free_cell
    uint32_t wanted_ = 0;
    std::size_t at_ = 0;
    int end_code_, top_ = 0;
};

} // namespace

void lzw_encode(std::span<const uint8_t> pixels, Bytes& out, LzwForm form)
{
    const int clear_code = 1 << form.minimum_size;
    const int end_code = clear_code + 1;
    CodeWriter codes(out);
    Dictionary strings(end_code);
    int width = form.minimum_size + 1;
    codes.put(clear_code, width);
    int previous = pixels[0];
    const auto extend = [&](int suffix) {
        const int found = strings.find(previous, suffix);
        if (found >= 0) {
            previous = found;
            return;
        }
        strings.add();
        if (1 << width < strings.top() && width < lzw_max_width) ++width;
        codes.put(previous, width);
        previous = suffix;
        if (!form.clears_when_full || !strings.full()) return;
        codes.put(clear_code, width);
        strings.clear();
        width = form.minimum_size + 1;
    };
    for (const uint8_t pixel : pixels.subspan(1))
        extend(pixel);
    // Neither the end code nor what follows it extends any string, so both the last string and the end code leave.
    extend(end_code);
    extend(0);
    codes.finish();
}

} // namespace kelu
