// SPDX-License-Identifier: MIT
// The walk over an archive's blocks.
#include "workspace/archive_layout.h"

#include "base/reader.h"
#include "runtime/view.h"
#include <algorithm>
#include <iterator>

namespace kelu {
namespace {

/// Reads an archive's numbers and texts. A read past the end makes all of them invalid.
class ArchiveReader {
public:
    explicit ArchiveReader(platform::ByteSource& file) : file_(file) {}

    std::string text(std::size_t length)
    {
        std::string letters(length, '\0');
        good_ = good_ && file_.read({reinterpret_cast<uint8_t*>(letters.data()), length});
        return letters;
    }
    std::size_t byte()
    {
        uint8_t value = 0;
        good_ = good_ && file_.read({&value, 1});
        return value;
    }
    uint32_t word()
    {
        const std::string bytes = text(4);
        return ByteReader({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()}).big32();
    }
    /// Goes over `length` bytes; false when the archive ends before that.
    bool skip(long length)
    {
        good_ = good_ && file_.seek(file_.position() + length);
        return good_;
    }
    bool good() const { return good_; }

private:
    platform::ByteSource& file_;
    bool good_ = true;
};

bool read_head(platform::ByteSource& file, ArchiveHead& head)
{
    ArchiveReader in(file);
    if (in.text(archive_magic.size()) != archive_magic) return false;
    head.title = in.text(in.byte());
    head.notes = in.text(in.byte());
    const uint32_t frames = in.word();
    head.frames = static_cast<int>(std::min<uint32_t>(frames, max_frames + 1));
    head.blocks_at = file.position();
    return in.good() && head.frames >= 1 && head.frames <= max_frames;
}

} // namespace

bool walk_archive(platform::ByteSource& file, ArchiveHead& head)
{
    if (!read_head(file, head)) return false;
    ArchiveReader in(file);
    const int blocks = head.frames + static_cast<int>(std::size(archive_containers));
    for (int block = 0; block < blocks; ++block) {
        const long length = in.word();
        if (!in.good() || !in.skip(length)) return false;
    }
    return file.position() == file.size() && file.seek(head.blocks_at);
}

uint32_t next_block_length(platform::ByteSource& archive) { return ArchiveReader(archive).word(); }

} // namespace kelu
