// SPDX-License-Identifier: MIT
// Where the program itself lies.
#pragma once

#include <string>

namespace kelu::platform {

/// The folder of the executable, links resolved, without a separator at its end; the working directory when the
/// system doesn't tell.
std::string program_folder();

} // namespace kelu::platform
