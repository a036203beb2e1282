// SPDX-License-Identifier: MIT
// What the fuzz targets share: Allegro without a display, the look at what a reader has made, and a watch on the memory
// that it takes.
#pragma once

#include "base/reader.h"
#include "base/sizes.h"
#include "platform/files.h"
#include "platform/host.h"
#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" {
int LLVMFuzzerInitialize(int*, char***) { return kelu::platform::headless_host.start() ? 0 : 1; }

/// Memory comes and goes quickly. ASAN_OPTIONS=malloc_context_size=30 shows where some that is named in a report is
/// from.
const char* __asan_default_options()
{
    return "quarantine_size_mb=4:allocator_release_to_os_interval_ms=-1:malloc_context_size=0";
}

/// Of the sanitizers' runtime; missing in a build without them.
__attribute__((weak)) int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, std::size_t),
                                                                    void (*)(const volatile void*));
}

/// Looks at the ends of every row, so that the sanitizers see what a reader has made too small.
inline void look_at(const kelu::Bitmap& picture)
{
    static volatile int sum = 0;
    for (int y = 0; y < picture.height(); ++y)
        sum = sum ^ kelu::row(picture, y)[0] ^ kelu::row(picture, y)[picture.width() - 1];
}

/// Ends the process when a block of more memory is asked for than a file of so many bytes can need.
class MemoryWatch {
public:
    /// `most_a_byte`: bytes of memory that one of the file stands for at most, beside the `room` that any file has: for
    /// the pixels that no byte describes, and a cache line and a pointer for each row of a bitmap.
    MemoryWatch(std::size_t file_bytes, std::size_t most_a_byte,
                std::size_t room = 4 * kelu::pixels_for_nothing + 72 * kelu::max_bitmap_side + (1 << 20))
    {
        static bool watching = false;
        if (!watching && __sanitizer_install_malloc_and_free_hooks)
            __sanitizer_install_malloc_and_free_hooks(look, [](const volatile void*) {});
        watching = true;
        allowed = room + file_bytes * most_a_byte;
    }
    ~MemoryWatch() { allowed = 0; }
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;

private:
    static void look(const volatile void*, std::size_t size)
    {
        if (allowed == 0 || size <= allowed) return;
        std::fprintf(stderr, "%zu bytes of memory, where %zu would do\n", size, allowed);
        std::abort();
    }
    static inline std::size_t allowed = 0; // bytes of one block; 0: any
};

/// The input as a file that is read piece by piece.
class InputSource final : public kelu::platform::ByteSource {
public:
    explicit InputSource(std::span<const uint8_t> bytes) : bytes_(bytes) { size_ = std::ssize(bytes); }
    bool read(std::span<uint8_t> to) override
    {
        const auto from = bytes_.subspan(static_cast<std::size_t>(position_));
        const std::size_t count = std::min(from.size(), to.size());
        if (count > 0) std::memcpy(to.data(), from.data(), count);
        position_ += static_cast<long>(count);
        return count == to.size();
    }
    bool seek(long position) override
    {
        const bool inside = position >= 0 && position <= size_;
        if (inside) position_ = position;
        return inside;
    }

private:
    std::span<const uint8_t> bytes_;
};
