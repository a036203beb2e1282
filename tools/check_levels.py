#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the order of the source against levels.txt: check_levels.py SRC

levels.txt lists the folders bottom up, one level a folder. Prints, and then ends with 1,
- each include that reaches up, and each folder without a level;
- each `extern` that stands outside a header;
- each function that a header declares below the folder of its body;
- each write to a state from a folder that its comment doesn't name.

A state is an `inline` variable in a header: of a struct type, or a table of one. Its header's own folder may write it; others are named in a
line `/// Writers: folder, folder.` above the struct or the variable. Start-up and reset, in program/, may write all.
"""
import re
import sys
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
# Words of other units come from their headers; only C linkage and explicit instantiations are written in a .cpp.
EXTERN = re.compile(r'^\s*extern\b(?!\s*("C"|template\b)).*', re.MULTILINE)
DECLARATION = re.compile(r'^[A-Za-z_][\w:<>,&*\s]*?[\s&*](\w+)\([^;{}]*\)\s*;', re.MULTILINE)
BODY = re.compile(r'^[A-Za-z_][\w:<>,&*\s]*?[\s&*](\w+)\([^;{}]*\)\s*(?:\n?\{)', re.MULTILINE)
STATE = re.compile(r'^inline (?!constexpr\b)(?:(?:std::array|Table)<(\w+),.*>|(\w+)(?:<.*>)?) (\w+)(?:\{.*\})?;', re.MULTILINE)
WRITERS = re.compile(r'///.*?\bWriters: ([a-z, ]+)')
COMMENT = re.compile(r'//[^\n]*')
ANONYMOUS = re.compile(r'^namespace \{$.*?^\} // namespace$', re.MULTILINE | re.DOTALL)


def folder_of(name):
    return name.split("/")[0]


def read_sources(source):
    """The text of each file of ours, by its name below the source folder."""
    return {file.relative_to(source).as_posix(): file.read_text()
            for file in sorted(source.rglob("*")) if file.suffix in (".h", ".cpp")}


def order_faults(files, level):
    """Includes that reach up, folders without a level, and `extern` outside headers."""
    faults = []
    for name, text in files.items():
        own = level.get(folder_of(name))
        if own is None:
            faults.append(f"{name}: its folder has no line in levels.txt")
            continue
        for header in INCLUDE.findall(text):
            if header in files and level.get(folder_of(header), len(level)) > own:
                faults.append(f"{name} includes {header}, which stands above it")
        if name.endswith(".cpp"):
            faults += [f"{name}: {match.group().strip()}" for match in EXTERN.finditer(text)]
    return faults


def body_faults(files, level):
    """Functions whose header stands in a lower folder than their body."""
    declared = {}
    for name, text in files.items():
        if name.endswith(".h"):
            for function in DECLARATION.findall(COMMENT.sub("", text)):
                declared.setdefault(function, set()).add(folder_of(name))
    faults = []
    for name, text in files.items():
        if not name.endswith(".cpp"):
            continue
        for function in BODY.findall(COMMENT.sub("", ANONYMOUS.sub("", text))):
            folders = declared.get(function, set())
            if folders and all(level[folder] < level[folder_of(name)] for folder in folders):
                faults.append(f"{name}: {function} is declared below, in {', '.join(sorted(folders))}")
    return faults


def comment_above(lines, index):
    """The lines of a comment that end above a line."""
    first = index
    while first > 0 and lines[first - 1].lstrip().startswith("//"):
        first -= 1
    return "\n".join(lines[first:index])


def read_states(files):
    """The folders that may write each state, by its name; None stands for all."""
    states = {}
    for name, text in files.items():
        if not name.endswith(".h"):
            continue
        lines = text.splitlines()
        for match in STATE.finditer(text):
            kind, variable = match.group(1) or match.group(2), match.group(3)
            index = text.count("\n", 0, match.start())
            comment = comment_above(lines, index)
            for struct, line in enumerate(lines):
                if re.match(rf"(struct|class) {kind}\b", line):
                    comment += comment_above(lines, struct)
            named = WRITERS.search(comment)
            words = named.group(1).replace(",", " ").split() if named else []
            states[variable] = {folder_of(name), "program", *words}
    return states


def writer_faults(files, states):
    """Writes to a state from a folder that its comment doesn't name."""
    names = "|".join(map(re.escape, states))
    write = re.compile(rf"(?<![\w.>:])({names})((?:\.\w+|\[[^\]\n]*\])*)"
                       rf"(?:\s*(?:=(?!=)|\+=|-=|\|=|&=|\^=|\+\+|--)|\.take\(\))")
    faults = []
    for name, text in files.items():
        if not name.endswith(".cpp"):
            continue
        code = COMMENT.sub("", text)
        local = set(re.findall(rf"[\w>]\s*[&*]?\s({names})\b(?=\s*[;,={{)]|\[)", code))
        for match in write.finditer(code):
            if match.group(1) in local:
                continue
            allowed = states[match.group(1)]
            if folder_of(name) not in allowed:
                faults.append(f"{name} writes {match.group(1)}{match.group(2)}, whose comment doesn't name {folder_of(name)}")
    return sorted(set(faults))


def check(source):
    lines = (source / "levels.txt").read_text().splitlines()
    folders = [line.strip() for line in lines if line.strip() and not line.startswith("#")]
    level = {folder: number for number, folder in enumerate(folders)}
    files = read_sources(source)
    faults = order_faults(files, level)
    return faults or body_faults(files, level) + writer_faults(files, read_states(files))


if __name__ == "__main__":
    found = check(Path(sys.argv[1]))
    print("\n".join(found) if found else "The source is in order.")
    sys.exit(1 if found else 0)
