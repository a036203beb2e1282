// SPDX-License-Identifier: MIT
// Any bytes as what is dropped on the window: each name that comes out is a path from the root.
#include "platform/dropped_files.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    for (const std::string& file : kelu::platform::files_of_uri_list({reinterpret_cast<const char*>(data), size}))
        if (!file.starts_with('/') || file.find('\0') != std::string::npos) std::abort();
    return 0;
}
