// SPDX-License-Identifier: MIT
// Any records as a frame's journal: an input has their kinds and payloads, and gets lengths, checksums and packed tiles
// that fit.
#include "workspace/journal_file.h"

#include "stored_stream.h"

#include "reader_target.h"

namespace {

constexpr uint32_t first_kind = 0x4b4a4831;
constexpr int tile_kind = 2;

kelu::Bytes tile_payload(kelu::ByteReader& in)
{
    kelu::Bytes payload, pixels;
    kelu::ByteWriter out(payload);
    out.byte(in.byte());
    out.big32(static_cast<uint32_t>(in.little16()));
    const auto start = in.take(16);
    pixels.assign(start.begin(), start.end());
    pixels.resize(sizeof(kelu::TilePixels::pixels));
    append_stored(payload, pixels);
    return payload;
}

/// The input as records, each with its kind and length in the first byte.
kelu::Bytes journal_of(std::span<const uint8_t> bytes)
{
    kelu::Bytes journal;
    kelu::ByteReader in(bytes);
    kelu::ByteWriter out(journal);
    while (in.left() > 0) {
        const int head = in.byte(), kind = head & 3;
        const auto raw =
            kind == tile_kind ? std::span<const uint8_t>() : in.take(std::min<std::size_t>(head >> 2, in.left()));
        const kelu::Bytes payload = kind == tile_kind ? tile_payload(in) : kelu::Bytes(raw.begin(), raw.end());
        kelu::Bytes start;
        kelu::ByteWriter words(start);
        words.big32(first_kind + static_cast<uint32_t>(kind));
        words.big32(static_cast<uint32_t>(payload.size()));
        uLong check = crc32(0, start.data(), static_cast<uInt>(start.size()));
        if (!payload.empty()) check = crc32(check, payload.data(), static_cast<uInt>(payload.size()));
        words.big32(static_cast<uint32_t>(check));
        out.append(start);
        out.append(payload);
    }
    return journal;
}

void replay(std::span<const uint8_t> journal)
{
    static const kelu::Bitmap base(130, 70, 0x123456);
    const MemoryWatch watch(journal.size(), 4 * 256);
    kelu::read_journal_head(journal);
    look_at(kelu::replay_journal(journal, base));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    replay({data, size});
    replay(journal_of({data, size}));
    return 0;
}
