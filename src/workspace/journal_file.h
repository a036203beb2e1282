// SPDX-License-Identifier: MIT
// The journal of a frame: what has been painted since the frame's file was written, in records that are only appended.
//
// "journal.007" belongs to "current.007", and to no other file of that name: its head has the size and the checksum of
// the file that it goes on from. A record is its kind, the length of its payload and a checksum over both, each a
// big-endian word, and the payload: a size (both pictures begin anew in it, black and opaque), a tile of one of the
// pictures (its number and its pixels, deflated), or a seal. What follows the last seal doesn't count, nor what
// follows a record that is torn. Pixels alone are kept, so that neither the mode of editing nor undo shows here.
#pragma once

#include "base/reader.h"
#include "draw/tiles.h"
#include <cstdint>
#include <optional>
#include <string>

namespace kelu {

/// What the frame's file held when a journal was begun.
struct FileMark {
    uint64_t size = 0;  ///< bytes
    uint32_t check = 0; ///< CRC-32 of them
    friend bool operator==(const FileMark&, const FileMark&) = default;
};
/// The mark of a file, piece by piece, so that it costs no memory; empty when it can't be read. Any thread.
std::optional<FileMark> mark_of_file(const std::string& name);

struct JournalHead {
    int frame = 0;
    uint64_t serial = 0; ///< grows from journal to journal: the highest is that of the frame that was edited last
    FileMark base;
};

/// Which of the two pictures of a frame.
enum class Plane : uint8_t { COLOR, ALPHA };

/// Appends records to bytes that go to a file.
class JournalRecords {
public:
    void head(const JournalHead& head);
    void size(TileGrid grid);
    void tile(Plane plane, std::size_t tile, const TilePixels& pixels);
    void seal();
    Bytes& bytes() { return bytes_; }

private:
    void record(uint32_t kind, std::span<const uint8_t> payload);
    Bytes bytes_;
};

/// The head of a journal; empty when the bytes begin with none.
std::optional<JournalHead> read_journal_head(std::span<const uint8_t> journal);

/// Lays all that is sealed over a picture in merged form, that of the frame's file. Colours on an edited alpha picture
/// turn to the grey that a merge gives. Empty when nothing is sealed, or when it can't belong to a picture of this
/// size.
Bitmap replay_journal(std::span<const uint8_t> journal, const Bitmap& base);

} // namespace kelu
