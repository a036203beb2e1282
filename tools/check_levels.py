#!/usr/bin/env python3
"""Checks the order of the source against levels.txt: check_levels.py SRC

Prints each include that reaches up, each exception that nothing needs any more, each file without a level, and each
`extern` that stands outside a header. Ends with 1 where there is any.
"""
import re
import sys
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
# Words of other units come from their headers; only C linkage and explicit instantiations are written in a .cpp.
EXTERN = re.compile(r'^\s*extern\b(?!\s*("C"|template\b)).*', re.MULTILINE)


def read_table(path):
    """The levels by path, and the exceptions as pairs of file and header."""
    levels, exceptions = {}, set()
    for line in path.read_text().splitlines():
        words = line.split("#")[0].split()
        if not words:
            continue
        if words[0] == "UP":
            exceptions.add((words[1], words[2]))
        else:
            levels[words[1]] = int(words[0])
    return levels, exceptions


def level_of(name, levels):
    """The level of a file by the longest path that its name begins with; None: it has none."""
    found = [path for path in levels if name.startswith(path)]
    return levels[max(found, key=len)] if found else None


def includes(file, source):
    """The headers of ours that a file includes, by their names below the source folder."""
    return [name for name in INCLUDE.findall(file.read_text()) if (source / name).is_file()]


def check(source):
    levels, exceptions = read_table(source / "levels.txt")
    faults, used = [], set()
    for file in sorted(source.rglob("*.[ch]*")):
        name = file.relative_to(source).as_posix()
        own = level_of(name, levels)
        if own is None:
            faults.append(f"{name}: no level in levels.txt")
            continue
        is_header = file.suffix == ".h"
        for header in includes(file, source):
            level = level_of(header, levels)
            same_folder = Path(header).parent == Path(name).parent
            fits = level is not None and (level < own or (level == own and (same_folder or not is_header)))
            if fits:
                continue
            if (name, header) in exceptions:
                used.add((name, header))
            else:
                faults.append(f"{name} (level {own}) includes {header} (level {level})")
        if not is_header:
            faults += [f"{name}: {match.group().strip()}" for match in EXTERN.finditer(file.read_text())]
    faults += [f"levels.txt: {file} no longer needs {header}" for file, header in sorted(exceptions - used)]
    return faults


if __name__ == "__main__":
    found = check(Path(sys.argv[1]))
    print("\n".join(found) if found else "The source is in order.")
    sys.exit(1 if found else 0)
