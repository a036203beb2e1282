// SPDX-License-Identifier: MIT
// The build hands its folders to this unit alone, so that every other object is the same wherever it is built.
#include "support/paths.h"

namespace kelu::test {

std::string data_folder() { return KELU_TEST_DATA; }

std::string golden_folder() { return KELU_TEST_GOLDEN; }

std::string app_folder() { return KELU_TEST_APP; }

} // namespace kelu::test
