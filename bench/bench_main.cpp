// SPDX-License-Identifier: MIT
// Entry of the benchmarks: Allegro without a display, then the measurements.
#include "platform/host.h"
#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    kelu::platform::headless_host.start();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
