// SPDX-License-Identifier: MIT
// Any bytes as an archive: the walk over its blocks, and what is in them. The input gets lengths that fit.
#include "imagefile/bmp.h"
#include "imagefile/tga.h"
#include "workspace/archive_layout.h"
#include "workspace/state.h"

#include "reader_target.h"

namespace {

using namespace kelu;

/// The input from its third byte on as an archive of up to four frames, each block as long as its length says or as
/// there are bytes.
Bytes with_true_lengths(std::span<const uint8_t> bytes)
{
    Bytes archive;
    ByteReader in(bytes);
    ByteWriter out(archive);
    const int frames = 1 + (in.byte() & 3), texts = in.byte();
    out.text(archive_magic);
    for (const int length : {texts & 15, texts >> 4}) {
        out.byte(length);
        const auto text = in.take(static_cast<std::size_t>(length));
        out.append(text);
        out.fill(static_cast<std::size_t>(length) - text.size());
    }
    out.big32(static_cast<uint32_t>(frames));
    for (int i = 0; i < frames + static_cast<int>(std::size(archive_containers)); ++i) {
        const auto block = in.take(std::min<std::size_t>(in.big32() & 0xffff, in.left()));
        out.big32(static_cast<uint32_t>(block.size()));
        out.append(block);
    }
    return archive;
}

/// False when it is no whole archive.
bool read(std::span<const uint8_t> bytes)
{
    const MemoryWatch watch(bytes.size(), 4 * 128);
    InputSource archive(bytes);
    ArchiveHead head;
    if (!walk_archive(archive, head)) return false;
    for (int i = 0; i < head.frames + static_cast<int>(std::size(archive_containers)); ++i) {
        Bytes block(next_block_length(archive));
        if (!archive.read(block)) std::abort();
        InputSource file(block);
        if (i < head.frames)
            look_at(read_plain_tga(file));
        else if (i + 1 < head.frames + static_cast<int>(std::size(archive_containers)))
            look_at(decode_bmp(block));
        else
            read_tags(state_tags(), block);
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    read({data, size});
    if (!read(with_true_lengths({data, size}))) std::abort();
    return 0;
}
