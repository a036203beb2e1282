// SPDX-License-Identifier: MIT
// Tagged files on disk.
#include "workspace/tag_files.h"

#include "base/log.h"
#include "gui/menus.h"
#include "gui/tooltips.h"
#include "platform/files.h"
#include "workspace/folder.h"

namespace kelu {
namespace {

constexpr std::size_t size_limit = 1U << 20; // bytes; the files of this program stay below 16 KB

/// True when some kept copy of the file holds the same bytes: a damaged file that nobody mends is kept once.
bool already_kept(const Bytes& bytes, const std::string& damaged_name)
{
    Bytes kept;
    return platform::read_file(damaged_name, size_limit, kept) && kept == bytes;
}

} // namespace

TagFile read_tag_file(const std::string& name, const std::string& damaged_name, std::span<const TagRow> rows, int text)
{
    if (!platform::file_exists(name)) return TagFile::MISSING;
    Bytes bytes;
    if (!platform::read_file(name, size_limit, bytes)) {
        report_unread(name, text);
        if (keep_unreadable(name, damaged_name).empty()) protect_file(name);
        return TagFile::MISSING;
    }
    const TagReport found = read_tags(rows, bytes);
    if (found.put_back != 0) flash_status_message(TIP_VALUES_PUT_BACK);
    if (!found.damaged || already_kept(bytes, damaged_name)) return TagFile::READ;
    const std::string copy = free_name(damaged_name);
    if (!copy.empty() && platform::replace_file(copy, bytes))
        log_line("[ WARNING ] : %s is damaged. A copy is kept as %s", name, copy);
    return TagFile::READ;
}

bool write_tag_file(const std::string& name, std::span<const TagRow> rows)
{
    Bytes bytes;
    ByteWriter out(bytes);
    write_tags(rows, out);
    return platform::replace_file(name, bytes);
}

} // namespace kelu
