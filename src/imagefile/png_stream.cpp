// SPDX-License-Identifier: MIT
// zlib, called with blocks that the processor's second cache holds.
#include "imagefile/png_stream.h"

#include "imagefile/png_rows.h"
#include <algorithm>
#include <array>
#include <cstring>

namespace kelu {
namespace {

constexpr std::size_t block_size = std::size_t{1} << 18;
constexpr std::size_t slack = 8; ///< bytes behind the rows that readers of whole words may touch
constexpr int best_compression = 9;

void feed(z_stream& stream, std::span<const uint8_t> bytes)
{
    stream.next_in = const_cast<Bytef*>(bytes.data()); // zlib only reads there
    stream.avail_in = static_cast<uInt>(bytes.size());
}

/// Why there are too few rows. A stream that is cut has used up its bytes; one that is damaged has stopped before.
const char* reason(int result)
{
    if (result == Z_MEM_ERROR) return "Cannot allocate memory!";
    return result == Z_BUF_ERROR || result == Z_STREAM_END ? "Not enough data!" : "Cannot decompress data!";
}

} // namespace

PngRowReader::PngRowReader(std::span<const std::span<const uint8_t>> parts, std::size_t total)
    : parts_(parts), left_(total), ready_(inflateInit(&stream_) == Z_OK)
{}

PngRowReader::~PngRowReader()
{
    if (ready_) inflateEnd(&stream_);
}

/// One call of zlib; its result.
int PngRowReader::unpack()
{
    while (stream_.avail_in == 0 && !parts_.empty()) {
        feed(stream_, parts_.front());
        parts_ = parts_.subspan(1);
    }
    const int result = ended_ ? Z_BUF_ERROR : inflate(&stream_, Z_NO_FLUSH);
    ended_ |= result == Z_STREAM_END;
    return result;
}

/// Moves the last row and what is unpacked behind it to the front, and unpacks until `size` bytes are there.
bool PngRowReader::refill(std::size_t size)
{
    const std::size_t kept = filled_ - before_;
    const std::size_t rest = filled_ - at_ + left_; // a small picture needs no whole block
    const std::size_t needed = at_ - before_ + std::max(size, std::min(block_size, rest)) + slack;
    if (kept > 0) std::memmove(block_.data(), block_.data() + before_, kept);
    if (block_.size() < needed) block_.resize(needed);
    at_ -= before_;
    before_ = 0;
    filled_ = kept;
    stream_.next_out = block_.data() + filled_;
    stream_.avail_out = static_cast<uInt>(std::min(needed - slack - filled_, left_));
    while (filled_ - at_ < size) {
        const uInt space = stream_.avail_out;
        const int result = unpack();
        filled_ += space - stream_.avail_out;
        left_ -= space - stream_.avail_out;
        if (result != Z_OK && filled_ - at_ < size) return png_fail(reason(result));
    }
    return true;
}

PngRow PngRowReader::next(std::size_t size)
{
    if (!ready_) {
        png_fail("Cannot allocate memory!");
        return {};
    }
    if (filled_ - at_ < size && !refill(size)) return {};
    const PngRow row{block_.data() + at_, block_.data() + before_};
    before_ = at_;
    at_ += size;
    return row;
}

bool PngRowReader::finish()
{
    uint8_t beyond = 0;
    stream_.next_out = &beyond;
    stream_.avail_out = 1;
    while (!ended_ && stream_.avail_out == 1 && unpack() == Z_OK) {}
    return (ended_ && stream_.avail_out == 1) || png_fail("Cannot decompress data!");
}

PngRowWriter::PngRowWriter() : result_(deflateInit(&stream_, best_compression)) {}

PngRowWriter::~PngRowWriter() { deflateEnd(&stream_); }

void PngRowWriter::pack(int flush)
{
    std::array<uint8_t, 1u << 16> out;
    do {
        stream_.next_out = out.data();
        stream_.avail_out = static_cast<uInt>(out.size());
        result_ = deflate(&stream_, flush);
        packed_.insert(packed_.end(), out.begin(), out.end() - static_cast<std::ptrdiff_t>(stream_.avail_out));
    } while (stream_.avail_out == 0);
    if (result_ == Z_BUF_ERROR) result_ = Z_OK; // there was nothing left to do
}

void PngRowWriter::add(std::span<const uint8_t> row)
{
    if (result_ != Z_OK) return;
    feed(stream_, row);
    pack(Z_NO_FLUSH);
}

Bytes PngRowWriter::finish()
{
    if (result_ == Z_OK) pack(Z_FINISH);
    if (result_ == Z_STREAM_END) return std::move(packed_);
    png_fail(result_ == Z_MEM_ERROR ? "Cannot allocate memory!" : "Error during compression!");
    return {};
}

} // namespace kelu
