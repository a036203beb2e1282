// SPDX-License-Identifier: MIT
// Advice to the system about memory.
#pragma once

#include <cstddef>

namespace kelu::platform {

/// Asks for large pages behind fresh memory of some megabytes that will be written at once: the first touch of a page
/// traps into the system, and a large canvas has a hundred thousand small ones. Does nothing for smaller blocks.
void prefer_large_pages(void* memory, std::size_t bytes);

} // namespace kelu::platform
