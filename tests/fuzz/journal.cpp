// SPDX-License-Identifier: MIT
// Any records as a frame's journal: an input has their kinds and payloads, and gets lengths, checksums and packed tiles
// that fit.
#include "workspace/journal_file.h"

#include <algorithm>
#include <array>
#include <zlib.h>

#include "reader_target.h"

namespace {

constexpr uint32_t first_kind = 0x4b4a4831;
constexpr int tile_kind = 2;

/// One of four tiles as a journal has it.
const kelu::Bytes& packed_tile(int which)
{
    static const auto tiles = [] {
        std::array<kelu::Bytes, 4> made;
        std::vector<int> pixels(kelu::frame_tile_side * kelu::frame_tile_side);
        for (std::size_t i = 0; i < made.size(); ++i) {
            std::ranges::fill(pixels, static_cast<int>(0x55203fU * i));
            uLongf size = 1024;
            made[i].resize(size);
            compress(made[i].data(), &size, reinterpret_cast<const Bytef*>(pixels.data()), pixels.size() * sizeof(int));
            made[i].resize(size);
        }
        return made;
    }();
    return tiles[static_cast<std::size_t>(which & 3)];
}

kelu::Bytes payload_of(int kind, std::size_t length, kelu::ByteReader& in)
{
    kelu::Bytes payload;
    kelu::ByteWriter out(payload);
    if (kind == tile_kind) {
        out.byte(in.byte());
        out.big32(static_cast<uint32_t>(in.little16()));
        out.append(packed_tile(in.byte()));
    } else {
        out.append(in.take(std::min(length, in.left())));
    }
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
        const kelu::Bytes payload = payload_of(kind, static_cast<std::size_t>(head >> 2), in);
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
    static const kelu::Bitmap base(70, 10, 0x123456);
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
