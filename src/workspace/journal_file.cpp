// SPDX-License-Identifier: MIT
// Records of the journal: making them, and laying them over a picture.
#include "workspace/journal_file.h"

#include "base/sizes.h"
#include "platform/file_calls.h"
#include "runtime/pixels.h"
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <zlib.h>

namespace kelu {
namespace {

enum RecordKind : uint32_t { RECORD_HEAD = 0x4b4a4831, RECORD_SIZE, RECORD_TILE, RECORD_SEAL };

constexpr std::size_t tile_bytes = sizeof(TilePixels::pixels);
constexpr int quick = 1; // level of deflate: painted pixels shrink well at any
constexpr unsigned color_bits = 0xffffff;
constexpr int opaque_black = static_cast<int>(0xff000000U);

uint32_t checksum(uint32_t kind, std::span<const uint8_t> payload)
{
    Bytes head;
    ByteWriter out(head);
    out.big32(kind);
    out.big32(static_cast<uint32_t>(payload.size()));
    const uLong begun = crc32(0, head.data(), static_cast<uInt>(head.size()));
    if (payload.empty()) return static_cast<uint32_t>(begun); // a null pointer would mean something else
    return static_cast<uint32_t>(crc32(begun, payload.data(), static_cast<uInt>(payload.size())));
}

struct Record {
    uint32_t kind = 0;
    std::span<const uint8_t> payload;
};

/// The next whole record; empty at the end, and at one that is torn.
std::optional<Record> next_record(ByteReader& in)
{
    Record record{in.big32(), {}};
    const uint32_t length = in.big32(), check = in.big32();
    record.payload = in.take(length);
    if (in.ended() || checksum(record.kind, record.payload) != check) return std::nullopt;
    return record;
}

/// Where the last seal ends.
std::size_t sealed_length(std::span<const uint8_t> journal)
{
    ByteReader in(journal);
    std::size_t sealed = 0;
    while (const std::optional<Record> record = next_record(in))
        if (record->kind == RECORD_SEAL) sealed = in.position();
    return sealed;
}

/// One tile over a merged picture; false when it can't be one of its own.
bool lay_tile(std::span<const uint8_t> payload, BITMAP* picture)
{
    ByteReader in(payload);
    const auto plane = static_cast<Plane>(in.byte());
    const std::size_t tile = in.big32();
    const auto packed = in.take(in.left());
    const TileGrid grid{picture->w, picture->h};
    TilePixels pixels;
    uLongf length = tile_bytes;
    if (in.ended() || tile >= grid.count() ||
        uncompress(reinterpret_cast<Bytef*>(pixels.pixels.data()), &length, packed.data(),
                   static_cast<uLong>(packed.size())) != Z_OK ||
        length != tile_bytes)
        return false;
    const TileBox box = grid.box(tile);
    for (int y = 0; y < box.h; ++y) {
        int* line = row(picture, box.y + y) + box.x;
        for (int x = 0; x < box.w; ++x) {
            const int pixel = pixels.line(y)[x];
            const auto level = static_cast<unsigned>(red_of(pixel) + green_of(pixel) + blue_of(pixel)) / 3;
            const auto old = static_cast<unsigned>(line[x]);
            line[x] = static_cast<int>(plane == Plane::COLOR
                                           ? (old & ~color_bits) | (static_cast<unsigned>(pixel) & color_bits)
                                           : (old & color_bits) | level << 24);
        }
    }
    return true;
}

/// A picture to begin anew with. The smallest record of a tile has more than 16 bytes for its 4096 pixels.
Bitmap new_picture(std::span<const uint8_t> payload, std::size_t journal_size)
{
    ByteReader in(payload);
    const auto w = static_cast<int>(in.big32()), h = static_cast<int>(in.big32());
    const bool valid = bitmap_size_valid(w, h) && may_hold(journal_size, product(w, h), 256);
    return valid ? Bitmap(w, h, opaque_black) : Bitmap();
}

} // namespace

std::optional<FileMark> mark_of_file(const std::string& name)
{
    const platform::FileCalls& calls = *platform::file_calls;
    const int handle = calls.open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC, 0);
    if (handle < 0) return std::nullopt;
    FileMark mark;
    std::vector<uint8_t> piece(std::size_t{1} << 18);
    for (;;) {
        const ssize_t count = calls.read(handle, piece.data(), piece.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) {
            calls.close(handle);
            return count == 0 ? std::optional(mark) : std::nullopt;
        }
        mark.size += static_cast<uint64_t>(count);
        mark.check = static_cast<uint32_t>(crc32(mark.check, piece.data(), static_cast<uInt>(count)));
    }
}

void JournalRecords::record(uint32_t kind, std::span<const uint8_t> payload)
{
    ByteWriter out(bytes_);
    out.big32(kind);
    out.big32(static_cast<uint32_t>(payload.size()));
    out.big32(checksum(kind, payload));
    out.append(payload);
}

void JournalRecords::head(const JournalHead& head)
{
    Bytes payload;
    ByteWriter out(payload);
    out.big32(static_cast<uint32_t>(head.frame));
    for (const uint64_t word : {head.serial, head.base.size}) {
        out.big32(static_cast<uint32_t>(word >> 32));
        out.big32(static_cast<uint32_t>(word));
    }
    out.big32(head.base.check);
    record(RECORD_HEAD, payload);
}

void JournalRecords::size(TileGrid grid)
{
    Bytes payload;
    ByteWriter out(payload);
    out.big32(static_cast<uint32_t>(grid.w));
    out.big32(static_cast<uint32_t>(grid.h));
    record(RECORD_SIZE, payload);
}

void JournalRecords::tile(Plane plane, std::size_t tile, const TilePixels& pixels)
{
    Bytes payload;
    ByteWriter out(payload);
    out.byte(static_cast<int>(plane));
    out.big32(static_cast<uint32_t>(tile));
    const std::size_t before = payload.size();
    uLongf length = compressBound(tile_bytes);
    payload.resize(before + length);
    compress2(payload.data() + before, &length, reinterpret_cast<const Bytef*>(pixels.pixels.data()), tile_bytes,
              quick);
    payload.resize(before + length);
    record(RECORD_TILE, payload);
}

void JournalRecords::seal() { record(RECORD_SEAL, {}); }

std::optional<JournalHead> read_journal_head(std::span<const uint8_t> journal)
{
    ByteReader in(journal);
    const std::optional<Record> record = next_record(in);
    if (!record || record->kind != RECORD_HEAD) return std::nullopt;
    ByteReader payload(record->payload);
    JournalHead head;
    head.frame = static_cast<int>(payload.big32());
    for (uint64_t* word : {&head.serial, &head.base.size}) {
        *word = uint64_t{payload.big32()} << 32;
        *word |= payload.big32();
    }
    head.base.check = payload.big32();
    return payload.ended() ? std::nullopt : std::optional(head);
}

Bitmap replay_journal(std::span<const uint8_t> journal, const Bitmap& base)
{
    const std::size_t sealed = sealed_length(journal);
    if (sealed == 0 || !base) return {};
    Bitmap picture = base.copy();
    ByteReader in(journal.first(sealed));
    while (picture && in.left() > 0) {
        const std::optional<Record> record = next_record(in);
        if (!record) return {};
        if (record->kind == RECORD_SIZE) picture = new_picture(record->payload, sealed);
        if (record->kind == RECORD_TILE && picture && !lay_tile(record->payload, picture)) return {};
    }
    return picture;
}

} // namespace kelu
