// SPDX-License-Identifier: MIT
// The zlib streams of PNG pictures, a block at a time, so that the rows of a picture never stand in memory all at once.
#pragma once

#include "base/reader.h"
#include <zlib.h>

namespace kelu {

/// A row of a picture, with its filter byte, and the row before it.
struct PngRow {
    uint8_t* bytes = nullptr; ///< null: there is none, and `png_error` says why
    const uint8_t* before = nullptr;
};

/// Unpacks rows one after the other. The stream lies in parts, which must outlive this.
class PngRowReader {
public:
    /// `total`: the bytes of all rows.
    PngRowReader(std::span<const std::span<const uint8_t>> parts, std::size_t total);
    ~PngRowReader();
    PngRowReader(const PngRowReader&) = delete;
    PngRowReader& operator=(const PngRowReader&) = delete;

    /// The next row, of `size` bytes, which may be changed, and the one that the last call gave. Both are valid until
    /// the next call; three bytes more may be read behind them.
    PngRow next(std::size_t size);
    /// False when the stream has more than the rows that were asked for, or doesn't end well.
    bool finish();

private:
    bool refill(std::size_t size);
    int unpack();

    std::span<const std::span<const uint8_t>> parts_;
    std::size_t left_; ///< bytes of rows that are still to be unpacked
    z_stream stream_{};
    bool ready_ = false, ended_ = false;
    Bytes block_;
    std::size_t before_ = 0, at_ = 0, filled_ = 0; ///< places in `block_`: the last row, the next one, the end
};

/// Packs rows one after the other at zlib's highest level.
class PngRowWriter {
public:
    PngRowWriter();
    ~PngRowWriter();
    PngRowWriter(const PngRowWriter&) = delete;
    PngRowWriter& operator=(const PngRowWriter&) = delete;

    void add(std::span<const uint8_t> row);
    /// The whole stream; empty, with `png_error` set, when that failed.
    Bytes finish();

private:
    void pack(int flush);

    z_stream stream_{};
    int result_;
    Bytes packed_;
};

} // namespace kelu
