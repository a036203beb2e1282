// SPDX-License-Identifier: MIT
// Both kinds are three letters and then the colours, each a big-endian word.
#include "workspace/colour_files.h"

#include "gui/scheme.h"
#include "platform/files.h"
#include "runtime/toolbox.h"
#include "workspace/field.h"
#include "workspace/tags.h"
#include <string_view>

namespace kelu {
namespace {

struct ColourFile {
    std::string_view magic;
    Field colors;
};
constexpr ColourFile scheme_file{"SCH", menu_scheme.scheme};
constexpr ColourFile favorites_file{"COL", toolbox.extended_favorites};

bool save(const ColourFile& kind, const std::string& name)
{
    Bytes bytes;
    ByteWriter out(bytes);
    out.text(kind.magic);
    for (int i = 0; i < kind.colors.count(); ++i)
        out.big32(static_cast<uint32_t>(kind.colors.get(i)));
    return platform::replace_file(name, bytes);
}

int read(const ColourFile& kind, std::span<const uint8_t> bytes)
{
    ByteReader in(bytes);
    if (!in.match(kind.magic) || in.left() < 4U * static_cast<std::size_t>(kind.colors.count())) return -1;
    for (int i = 0; i < kind.colors.count(); ++i)
        kind.colors.set(i, color_range.mended(static_cast<int>(in.big32())));
    return 1;
}

int load(const ColourFile& kind, const std::string& name)
{
    constexpr std::size_t size_limit = 1U << 16; // bytes; what follows the colours is passed over
    Bytes bytes;
    return platform::read_file(name, size_limit, bytes) ? read(kind, bytes) : -1;
}

} // namespace

bool save_scheme_file(const std::string& name) { return save(scheme_file, name); }
bool save_favorites_file(const std::string& name) { return save(favorites_file, name); }
int read_scheme(std::span<const uint8_t> bytes) { return read(scheme_file, bytes); }
int read_favorites(std::span<const uint8_t> bytes) { return read(favorites_file, bytes); }
int load_scheme_file(const std::string& name) { return load(scheme_file, name); }
int load_favorites_file(const std::string& name) { return load(favorites_file, name); }

} // namespace kelu
