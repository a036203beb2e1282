// SPDX-License-Identifier: MIT
// Any bytes as a scheme of the interface and as a file of favourites: every colour stays one.
#include "workspace/colour_files.h"
#include "gui/scheme.h"
#include "runtime/toolbox.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using namespace kelu;
    read_scheme({data, size});
    read_favorites({data, size});
    const auto no_color = [](int word) { return (word & ~0xffffff) != 0; };
    if (std::ranges::any_of(menu_scheme.scheme, no_color) || std::ranges::any_of(toolbox.extended_favorites, no_color))
        std::abort();
    return 0;
}
