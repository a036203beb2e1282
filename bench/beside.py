#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""beside.py [PROGRAM]: what the program's work costs beside others, as a table.

Runs the rows below in PROGRAM (build/bench/bench/kelu_bench), ours and the other's in turn in one run, and prints a
time of each: the processor's, but the clock's for rows that wait for the disk. Goals are ratios."""
import json
import os
import statistics
import subprocess
import sys
import tempfile

# What is measured; ours, the other's, the goal; "clock" for rows that wait.
ROWS = [
    ("PNG of flat art 4096 x 4096, load", "png_load_ours/4096/248", "png_load_libpng/4096/248", 1.0),
    ("the same with all rows by Paeth", "png_load_ours/4096/128", "png_load_libpng/4096/128", 1.0),
    ("PNG of flat art 4096 x 4096, save", "png_save_ours/4096", "png_save_libpng/4096/128", 1.0),
    ("JPEG, load", "jpeg_load_ours", "jpeg_load_libjpeg", 1.1),
    ("JPEG, save", "jpeg_save_ours", "jpeg_save_libjpeg", 1.1),
    ("flood fill 4096 x 4096, flat", "flood/flat", "flood_opencv/flat", 1.0),
    ("flood fill, a maze", "flood/serpentine", "flood_opencv/serpentine", 1.0),
    ("flood fill, noise", "flood/noise", "flood_opencv/noise", 1.0),
    ("4000 soft stamps, OPAQUE", "soft_line/opaque", "soft_line_pixman", 2.0),
    ("4000 soft stamps, GLASS", "soft_line/glass", "soft_line_pixman", 2.0),
    ("4000 soft stamps, SOFTEN", "soft_line/soften", "soft_line_pixman", 4.0),
    ("4000 soft stamps, PULL", "soft_line/pull", "soft_line_pixman", 5.0),
    ("a box of SOFTEN, beside GLASS", "filled_box/soften", "filled_box/glass", 11.5),
    ("a box of PULL", "filled_box/pull", "filled_box/glass", 16.5),
    ("a box of SPARK", "filled_box/spark", "filled_box/glass", 16.5),
    ("a box of ADD", "filled_box/add", "filled_box/glass", 3.5),
    ("a box of L.GRAD", "filled_box/linear_gradient", "filled_box/glass", 3.5),
    ("stretch preview of a cel of 4096 x 4096", "stretch_preview/4096", "resize_opencv/4096", 3.1),
    ("archive of 100 frames, load (clock)", "archive_load/real_time", "copy_and_sync/real_time", 1.5),
    ("frame key 4096 x 4096", "frame_key/4096/iterations:8/real_time", "plain_read/4096/iterations:8/real_time", 1.1),
]


def run(program):
    names = sorted({name for row in ROWS for name in row[1:3]})
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        subprocess.run(
            [program, "--benchmark_filter=^(" + "|".join(names) + ")$", "--benchmark_repetitions=5",
             "--benchmark_min_time=0.1", "--benchmark_enable_random_interleaving=true", f"--benchmark_out={out.name}",
             "--benchmark_out_format=json"], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return json.load(open(out.name, encoding="utf-8"))["benchmarks"]


def figure(benchmarks, name, kind):
    """The least of the processor's times; of the clock's, which hang on the disk, the middle."""
    scale = {"ns": 1e-6, "us": 1e-3, "ms": 1}
    times = [b[kind] * scale[b["time_unit"]] for b in benchmarks
             if b["run_name"] == name and b["run_type"] == "iteration"]
    return min(times) if kind == "cpu_time" else statistics.median(times)


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else "build/bench/bench/kelu_bench"
    benchmarks = run(os.path.abspath(program))
    print("| Work | Ours, ms | Beside, ms | Ratio | Goal |")
    print("|---|---|---|---|---|")
    for work, ours, other, goal in ROWS:
        kind = "real_time" if "(clock)" in work else "cpu_time"
        a, b = figure(benchmarks, ours, kind), figure(benchmarks, other, kind)
        print(f"| {work} | {a:.3g} | {b:.3g} | {a / b:.2f} | {goal} |")


if __name__ == "__main__":
    main()
