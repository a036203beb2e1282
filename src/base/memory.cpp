// SPDX-License-Identifier: MIT
// Advice to the system about the memory of large bitmaps.
#include "base/memory.h"

#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

namespace kelu::platform {

void prefer_large_pages(void* memory, std::size_t bytes)
{
    constexpr std::size_t least = std::size_t{8} << 20;
    if (!memory || bytes < least) return;
    // The advice is about whole pages; where the system doesn't take it, pages stay as they are.
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t ahead = (page - address % page) % page;
    madvise(static_cast<char*>(memory) + ahead, (bytes - ahead) / page * page, MADV_HUGEPAGE);
}

} // namespace kelu::platform
