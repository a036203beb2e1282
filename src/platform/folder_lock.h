// SPDX-License-Identifier: MIT
// One program a folder.
#pragma once

namespace kelu::platform {

/// Takes the working directory for this program, until it is released or the process ends, however that happens.
/// False: another process has it. A file system without locks lets every program in.
bool lock_folder();
/// Lets the folder go.
void unlock_folder();

} // namespace kelu::platform
