// SPDX-License-Identifier: MIT
// zlib streams that hold their bytes as they are: quick to make, and an input shows through them.
#pragma once

#include "base/reader.h"
#include <zlib.h>

/// Appends a whole stream of `bytes`.
inline void append_stored(kelu::Bytes& to, std::span<const uint8_t> bytes)
{
    constexpr std::size_t most = 0xffff; // in a block
    kelu::ByteWriter out(to);
    out.big16(0x7801);
    const auto check = adler32(adler32(0, nullptr, 0), bytes.data(), static_cast<uInt>(bytes.size()));
    do {
        const auto block = bytes.first(std::min(bytes.size(), most));
        bytes = bytes.subspan(block.size());
        out.byte(bytes.empty() ? 1 : 0);
        out.little16(static_cast<int>(block.size()));
        out.little16(static_cast<int>(~block.size() & 0xffff));
        out.append(block);
    } while (!bytes.empty());
    out.big32(static_cast<uint32_t>(check));
}
