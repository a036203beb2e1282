// SPDX-License-Identifier: MIT
// The executable's folder, from the kernel's link to it.
#include "platform/program_folder.h"

#include "platform/files.h"
#include <array>
#include <unistd.h>

namespace kelu::platform {

std::string program_folder()
{
    std::array<char, 4096> path{};
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) return working_directory();
    const std::string name(path.data(), length);
    return name.substr(0, name.rfind('/'));
}

} // namespace kelu::platform
