// SPDX-License-Identifier: MIT
// Any bytes as a workspace's state and as the user's settings: whatever they hold, every word stays in its range.
#include "workspace/settings.h"
#include "workspace/state.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using namespace kelu;
    for (const auto rows : {state_tags(), settings_tags()}) {
        read_tags(rows, {data, size});
        for (const TagRow& row : rows)
            for (int minor = 0; minor < row.minors; ++minor)
                for (int i = 0; i < row.words(); ++i)
                    if (!row.range_of(i).holds(row.get(minor, i))) std::abort();
        if (size % 16 != 0) continue; // writing is slow under the sanitizers
        Bytes bytes;
        ByteWriter out(bytes);
        write_tags(rows, out);
    }
    return 0;
}
