// SPDX-License-Identifier: MIT
// Work that goes to disk while it is done: what a stroke costs the main thread with the journal running, what reaches
// the disk, and the pause at a frame key beside plain reading of the frame that comes.
#include "base/run_state.h"
#include "draw/inks.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "imagefile/tga.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "platform/host.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "workspace/folder.h"
#include "workspace/frame_store.h"
#include "workspace/running_work.h"
#include <atomic>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>

namespace kelu {
namespace {

std::atomic<long> written_bytes = 0;

/// The system's calls, and a count of what is written.
platform::FileCalls counting_calls()
{
    platform::FileCalls calls = platform::system_file_calls;
    calls.write = [](int handle, const void* bytes, std::size_t count) {
        const ssize_t written = platform::system_file_calls.write(handle, bytes, count);
        if (written > 0) written_bytes += written;
        return written;
    };
    return calls;
}
const platform::FileCalls counting = counting_calls();

/// A folder with two frames, of which the first is current, and running work started.
class Folder {
public:
    explicit Folder(int side)
    {
        platform::headless_host.start();
        std::string pattern = (std::filesystem::temp_directory_path() / "kelu-bench-XXXXXX").string();
        if (!mkdtemp(pattern.data())) std::abort();
        path_ = std::filesystem::canonical(pattern);
        std::filesystem::create_directory(path_ / "WORKSPACE");
        std::filesystem::create_directory(path_ / "resource");
        run_state.program_dir = path_.string();
        platform::change_directory(run_state.program_dir);
        store.nail_sheet = Bitmap(400, 400);
        store.tip_sheet = Bitmap(206, 62);
        store.cel_bitmap = Bitmap(16, 16);
        store.cel_source_bitmap = Bitmap(16, 16);
        set_initial_ink_options();
        const Bitmap picture(side, side, static_cast<int>(0xff808080U));
        for (int frame = 0; frame < 2; ++frame)
            write_tga((path_ / "WORKSPACE" / frame_file(frame)).string(), picture);
        store.frame_count = 2;
        store.current_frame = 0;
        fetch_frame(0, 0, 0);
        start_running_work();
        platform::file_calls = &counting;
        written_bytes = 0;
    }
    ~Folder()
    {
        stop_running_work(false);
        platform::file_calls = &platform::system_file_calls;
        platform::change_directory("/");
        std::filesystem::remove_all(path_);
        undo = {};
        touched = {};
        store = {};
        toolbox = {};
    }
    std::string frame(int number) const { return (path_ / "WORKSPACE" / frame_file(number)).string(); }

private:
    std::filesystem::path path_;
};

/// A stroke of some 60 pixels with a tip, as people make them two to four times a second.
void stroke(int number)
{
    const UndoableOperation step;
    const int w = store.frame_bitmap.width(), h = store.frame_bitmap.height();
    for (int i = 0; i < 60; ++i)
        span_ink((number * 97 + i) % w, (number * 97 + i) % w + 6, (number * 53 + i / 2) % h, INK_OPAQUE,
                 number * 7919);
}

/// Time of the main thread for a stroke, its end and the look after it.
void kept_stroke(benchmark::State& state)
{
    const Folder folder(static_cast<int>(state.range(0)));
    int number = 0;
    for (auto _ : state) {
        stroke(number++);
        keep_running_work();
    }
    settle_running_work();
}
BENCHMARK(kept_stroke)->Arg(320)->Arg(4096)->Unit(benchmark::kMicrosecond)->Iterations(500);

/// The end of an operation that has changed every pixel.
void kept_fill(benchmark::State& state)
{
    const Folder folder(static_cast<int>(state.range(0)));
    int color = 0;
    for (auto _ : state) {
        state.PauseTiming();
        push_undo(false);
        clear_to_color(store.frame_bitmap, ++color);
        touch_frame();
        state.ResumeTiming();
        settle_frame();
        keep_running_work();
    }
    settle_running_work();
}
BENCHMARK(kept_fill)->Arg(320)->Arg(4096)->Unit(benchmark::kMillisecond)->Iterations(10);

/// Ordinary painting: 221 strokes, as many as were counted in a minute, four of which share a batch.
void minute_of_painting(benchmark::State& state)
{
    const Folder folder(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        for (int number = 0; number < 221; ++number) {
            stroke(number);
            keep_running_work();
            if (number % 4 == 3) settle_running_work();
        }
        settle_running_work();
    }
    state.counters["bytes"] = static_cast<double>(written_bytes);
}
BENCHMARK(minute_of_painting)->Arg(320)->Arg(4096)->Unit(benchmark::kMillisecond)->Iterations(1);

/// From the frame key to the new picture; the old one has been painted on.
void frame_key(benchmark::State& state)
{
    const Folder folder(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        stroke(static_cast<int>(state.iterations()));
        settle_running_work();
        state.ResumeTiming();
        fetch_frame(store.current_frame, 1 - store.current_frame, 0);
    }
    settle_running_work();
}
BENCHMARK(frame_key)->Arg(320)->Arg(4096)->Unit(benchmark::kMillisecond)->Iterations(8)->UseRealTime();

/// What the frame key is beside: reading the file alone.
void plain_read(benchmark::State& state)
{
    const Folder folder(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(read_tga(folder.frame(1)));
}
BENCHMARK(plain_read)->Arg(320)->Arg(4096)->Unit(benchmark::kMillisecond)->Iterations(8)->UseRealTime();

} // namespace
} // namespace kelu
