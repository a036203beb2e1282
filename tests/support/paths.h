// SPDX-License-Identifier: MIT
// Folders that tests read: fixtures, golden pictures, and the program's folder that the build has made.
#pragma once

#include <string>

namespace kelu::test {

std::string data_folder();
std::string golden_folder();
std::string app_folder();

} // namespace kelu::test
