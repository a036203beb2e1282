#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that each source file says in its first lines under which licence it stands: check_licences.py ROOT

With --mend it writes the line where it is missing. Prints what is wrong; the result is 1 if anything is.
"""
import pathlib
import sys

LINE = "SPDX-License-Identifier: MIT"
COMMENTS = {".cpp": "//", ".h": "//", ".py": "#", ".sh": "#", ".cmake": "#", "CMakeLists.txt": "#"}
TOP = ("CMakeLists.txt", "run.sh", "test.sh", ".ci/run")
FOLDERS = ("src", "tools", "tests", "bench", "packaging")
HEAD_LINES = 3  # a script's first line is its interpreter's


def sources(root):
    yield from (root / name for name in TOP)
    for folder in FOLDERS:
        yield from sorted(path for path in (root / folder).rglob("*") if path.is_file())


def comment_of(path):
    return "#" if path.name == "run" else COMMENTS.get(path.name) or COMMENTS.get(path.suffix)


def mend(path, comment):
    lines = path.read_text().splitlines(keepends=True)
    lines.insert(1 if lines and lines[0].startswith("#!") else 0, f"{comment} {LINE}\n")
    path.write_text("".join(lines))


def main(arguments):
    mending = "--mend" in arguments
    root = pathlib.Path([word for word in arguments if word != "--mend"][0])
    wrong, seen = 0, 0
    for path in sources(root):
        comment = comment_of(path)
        if not comment:
            continue
        seen += 1
        head = path.read_text().splitlines()[:HEAD_LINES]
        if f"{comment} {LINE}" in head:
            continue
        if mending:
            mend(path, comment)
        else:
            print(f"{path.relative_to(root)}: no line '{comment} {LINE}' at its head")
            wrong += 1
    if seen < 100:
        print(f"only {seen} source files in {root}")
        return 1
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
