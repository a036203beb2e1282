// SPDX-License-Identifier: MIT
// The one unit that changes with the version.
#include "base/version.h"

namespace kelu {

const char* version() { return KELU_VERSION; }

const char* build_date() { return KELU_BUILD_DATE; }

} // namespace kelu
