// SPDX-License-Identifier: MIT
// Any bytes as an archive, loaded over a small workspace: afterwards there is a frame to paint on.
#include "workspace/archive.h"
#include "../support/temporary_folder.h"
#include "base/run_state.h"
#include "platform/host.h"
#include "program/startup.h"
#include "runtime/store.h"
#include "workspace/blank_workspace.h"
#include <cstdlib>
#include <filesystem>

namespace {

/// The folder of the run; removed at its end.
kelu::TemporaryFolder& folder()
{
    static kelu::TemporaryFolder made;
    return made;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    using namespace kelu;
    platform::headless_host.start();
    run_state.program_dir = folder().path().string();
    std::filesystem::create_directory("WORKSPACE");
    FW_initialize_variables();
    store.nail_sheet = Bitmap(400, 400);
    store.tip_sheet = Bitmap(206, 62);
    store.cel_bitmap = Bitmap(2, 2);
    store.cel_source_bitmap = Bitmap(2, 2);
    make_blank_workspace();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace kelu;
    folder().put("a.wsp", {reinterpret_cast<const char*>(data), size});
    load_workspace_archive("a.wsp", [] {});
    if (!store.frame_bitmap || !store.alpha_bitmap || store.current_frame >= store.frame_count) std::abort();
    return 0;
}
