// SPDX-License-Identifier: MIT
// The LZW decoder. Every string of the table is a run of the pixels already put out, so the table holds places.
#include "imagefile/lzw.h"

#include <algorithm>
#include <array>

namespace kelu {
namespace {

/// Reads codes across the borders of sub-blocks.
class CodeReader {
public:
    explicit CodeReader(ByteReader& in) : in_(in) {}

    /// The next code, or -1 at the end of the data.
    int next(int width)
    {
        for (; count_ < width; count_ += 8) {
            const int byte = next_byte();
            if (byte < 0) return -1;
            bits_ |= static_cast<uint32_t>(byte) << count_;
        }
        const int code = static_cast<int>(bits_ & ((1u << width) - 1));
        bits_ >>= width;
        count_ -= width;
        return code;
    }

private:
    int next_byte()
    {
        // After the empty block nothing more is taken for data.
        if (at_ == block_.size() && !closed_) {
            block_ = in_.take(in_.byte());
            at_ = 0;
            closed_ = block_.empty();
        }
        return closed_ ? -1 : block_[at_++];
    }

    ByteReader& in_;
    std::span<const uint8_t> block_;
    std::size_t at_ = 0;
    bool closed_ = false;
    uint32_t bits_ = 0;
    int count_ = 0;
};

/// A string as a run of the pixels put out; length 0 means that there is none.
struct Run {
    std::size_t start = 0, length = 0;

    Run longer() const { return {start, length + 1}; }
};

/// Appends a run of earlier pixels, up to the limit. It may reach into itself by one pixel, so it goes one by one.
void append_run(Bytes& pixels, Run run, std::size_t limit)
{
    const std::size_t at = pixels.size();
    pixels.resize(std::min(limit, at + run.length));
    for (std::size_t i = at, from = run.start; i < pixels.size(); ++i, ++from)
        pixels[i] = pixels[from];
}

} // namespace

void lzw_decode(ByteReader& in, int minimum_size, std::size_t limit, Bytes& pixels)
{
    constexpr int table_mask = (1 << lzw_max_width) - 1;
    const int clear_code = 1 << minimum_size;
    const int end_code = clear_code + 1;
    std::array<Run, table_mask + 1> table;
    CodeReader codes(in);
    limit += pixels.size();
    int width = minimum_size + 1;
    int top = end_code;
    Run previous;
    while (pixels.size() < limit) {
        const int code = codes.next(width);
        if (code < 0 || code == end_code) return;
        if (code == clear_code) {
            width = minimum_size + 1;
            top = end_code;
            previous = {};
            continue;
        }
        const std::size_t start = pixels.size();
        if (code < clear_code)
            pixels.push_back(static_cast<uint8_t>(code));
        else if (previous.length == 0)
            return; // a string right behind a clear code, where none can be known
        else
            append_run(pixels, code <= top ? table[code] : previous.longer(), limit);
        // The string before and the first pixel of this one are side by side: that is the new string.
        if (previous.length > 0 && top < table_mask) table[++top] = previous.longer();
        if (top == (1 << width) - 1 && width < lzw_max_width) ++width;
        previous = {start, pixels.size() - start};
    }
}

} // namespace kelu
