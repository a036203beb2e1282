// SPDX-License-Identifier: MIT
// Loading an archive of 100 frames, beside copying as many files and bringing them to disk. Real time: what counts is
// the disk, which TMPDIR chooses.
#include "base/run_state.h"
#include "draw/inks.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "imagefile/tga.h"
#include "platform/files.h"
#include "platform/host.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "workspace/archive.h"
#include "workspace/folder.h"
#include "workspace/frame_store.h"
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace kelu {
namespace {

namespace fs = std::filesystem;

constexpr int frames = 100;

/// A workspace of 100 frames of 320 x 240, and its archive.
class Folder {
public:
    Folder()
    {
        platform::headless_host.start();
        std::string pattern = (fs::temp_directory_path() / "kelu-bench-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        path = fs::canonical(pattern);
        fs::create_directory(path / "WORKSPACE");
        run_state.program_dir = path.string();
        platform::change_directory(run_state.program_dir);
        store.nail_sheet = Bitmap(400, 400);
        store.tip_sheet = Bitmap(206, 62);
        store.cel_bitmap = Bitmap(16, 16);
        store.cel_source_bitmap = Bitmap(16, 16);
        set_initial_ink_options();
        Bitmap picture(320, 240);
        uint32_t seed = 1;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                seed = seed * 1664525 + 1013904223;
                row(picture, y)[x] = static_cast<int>(0xff000000U | seed >> 8);
            }
        }
        for (int frame = 0; frame < frames; ++frame)
            write_tga((path / "WORKSPACE" / frame_file(frame)).string(), picture);
        store.frame_count = frames;
        fetch_frame(0, 0, 0);
        save_workspace_archive("packed.wsp", [] {});
    }
    ~Folder()
    {
        platform::change_directory("/");
        fs::remove_all(path);
        undo = {};
        touched = {};
        store = {};
        toolbox = {};
    }
    fs::path path;
};

void archive_load(benchmark::State& state)
{
    const Folder folder;
    for (auto _ : state)
        if (load_workspace_archive("packed.wsp", [] {}) != 0) state.SkipWithError("not loaded");
}
BENCHMARK(archive_load)->Unit(benchmark::kMillisecond)->UseRealTime();

/// As `cp -r` and `sync -f` do it.
void copy_and_sync(benchmark::State& state)
{
    const Folder folder;
    for (auto _ : state) {
        fs::remove_all(folder.path / "copy");
        fs::copy(folder.path / "WORKSPACE", folder.path / "copy");
        const int handle = open(folder.path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        syncfs(handle);
        close(handle);
    }
}
BENCHMARK(copy_and_sync)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace kelu
