// SPDX-License-Identifier: MIT
// Any bytes as a library of outlines: no record has more pairs than its row.
#include "workspace/resources.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using namespace kelu;
    read_object_library({data, size});
    for (int row = 0; row < object_library_rows; ++row) {
        copy_object_record(row % max_actors, row);
        const int count = actor_outlines.pair_count[static_cast<std::size_t>(row % max_actors)];
        if (count < 0 || count > object_row_pairs) std::abort();
    }
    return 0;
}
