#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Plants small faults and tells which no test notices: see mutate.sh.

All faults are built into one copy of the program, each behind a switch, `kelu_fault(n)`, so that there is one build
instead of one a fault. One run of the tests tells which of them reach which switch; then each fault is switched on and
the tests that reach it are run, the quickest first, until one fails, crashes or doesn't end in time.

The faults are places of the syntax tree (libclang): see OPERATORS. They never overlap, and each operator has an equal
share as long as it has places. What stands in a constant expression can't be switched, and isn't counted.
"""
import argparse
import concurrent.futures
import itertools
import json
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
from collections import Counter
from pathlib import Path

from clang.cindex import CursorKind, Index

ROOT = Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutate"
BUILD = WORK / "build" / "dev"
SUITES = ("kelu_unit", "kelu_sessions")

SWITCH = """
#pragma once
extern unsigned char kelu_reached[];
extern int kelu_active;
inline bool kelu_fault(int n)
{
    kelu_reached[n] = 1;
    return n == kelu_active;
}
"""

# The process's own file: the switch that is on, and after each test what it has reached.
LISTENER = """
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
constexpr int faults = %d;
unsigned char kelu_reached[faults + 1];
int kelu_active = -1;
namespace {
__attribute__((constructor(101))) void choose()
{
    if (const char* n = std::getenv("KELU_FAULT")) kelu_active = std::atoi(n);
}
struct Reached : testing::EmptyTestEventListener {
    std::ofstream out{std::getenv("KELU_REACHED")};
    void OnTestEnd(const testing::TestInfo& test) override
    {
        out << test.test_suite_name() << '.' << test.name() << ' ' << test.result()->elapsed_time();
        for (int i = 0; i < faults; ++i)
            if (kelu_reached[i]) out << ' ' << i, kelu_reached[i] = 0;
        out << std::endl;
    }
};
}
"""

COMPARISONS = {"<": "<=", ">": ">=", "<=": "<", ">=": ">", "==": "!=", "!=": "=="}
ASSIGNMENTS = {"=", "+=", "-=", "|=", "&=", "^=", "*=", "<<=", ">>="}
BODIES = {CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.FUNCTION_TEMPLATE}
STATEMENTS = {CursorKind.COMPOUND_STMT, CursorKind.IF_STMT, CursorKind.FOR_STMT, CursorKind.CXX_FOR_RANGE_STMT,
              CursorKind.WHILE_STMT}
# The order of their arguments changes nothing, or can't be changed: an assignment to a copy would break the program.
SYMMETRIC = {"min", "max", "swap", "hypot", "log_line", "reset_fields", "operator=", "operator+=", "operator==", "same_size"}


class Source:
    """A file's bytes, and the text of a cursor in it."""

    def __init__(self, name):
        self.name = name
        self.bytes = (WORK / name).read_bytes()

    def span(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def text(self, cursor):
        start, end = self.span(cursor)
        return self.bytes[start:end].decode()

    def between(self, a, b):
        return self.bytes[a.extent.end.offset:b.extent.start.offset].decode().strip()


def whole(source, cursor, text):
    """One edit: the cursor's text gives way to the text given. `@` becomes the switch."""
    return [(*source.span(cursor), text)]


def binary(source, cursor):
    """The operands and the operator of a binary expression; None where a macro hides them."""
    parts = list(cursor.get_children())
    if cursor.kind not in (CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR) or len(parts) != 2:
        return None
    return source.text(parts[0]), source.between(*parts), source.text(parts[1])


def comparisons(source, cursor, _):
    match binary(source, cursor):
        case a, sign, b if sign in COMPARISONS:
            yield whole(source, cursor, f"(@ ? ({a} {COMPARISONS[sign]} {b}) : ({a} {sign} {b}))")


def logic(source, cursor, _):
    match binary(source, cursor):
        case a, ("&&" | "||") as sign, b:
            other = "||" if sign == "&&" else "&&"
            yield whole(source, cursor, f"(@ ? (({a}) {other} ({b})) : ({a} {sign} {b}))")


def numbers(source, cursor, _):
    if cursor.kind == CursorKind.INTEGER_LITERAL and re.fullmatch(r"\d+|0x[\da-f]+", source.text(cursor)):
        yield whole(source, cursor, f"({source.text(cursor)} + int(@))")


def negated_conditions(source, cursor, parent):
    if parent.kind in (CursorKind.IF_STMT, CursorKind.CONDITIONAL_OPERATOR) and cursor == next(parent.get_children()):
        if not cursor.kind.is_declaration() and cursor.kind != CursorKind.DECL_STMT:
            yield whole(source, cursor, f"(@ != bool({source.text(cursor)}))")


def dropped_calls(source, cursor, parent):
    if cursor.kind == CursorKind.CALL_EXPR and parent.kind in STATEMENTS and not source.text(cursor).startswith("log_"):
        yield whole(source, cursor, f"(@ ? void() : void({source.text(cursor)}))")


def dropped_assignments(source, cursor, parent):
    match binary(source, cursor):
        case _, sign, _ if sign in ASSIGNMENTS and parent.kind in STATEMENTS:
            yield whole(source, cursor, f"(@ ? void() : void({source.text(cursor)}))")


def swapped_arguments(source, cursor, _):
    if cursor.kind != CursorKind.CALL_EXPR or cursor.spelling in SYMMETRIC:
        return
    for a, b in itertools.pairwise(cursor.get_arguments()):
        texts = source.text(a), source.text(b)
        if texts[0] != texts[1] and a.type.get_canonical().spelling == b.type.get_canonical().spelling:
            yield [(*source.span(a), f"(@ ? {texts[1]} : {texts[0]})"), (*source.span(b), f"(@ ? {texts[0]} : {texts[1]})")]


OPERATORS = (comparisons, logic, numbers, negated_conditions, dropped_calls, dropped_assignments, swapped_arguments)


def is_constant(source, cursor):
    """Whether the compiler works it out: no switch fits in there."""
    if not cursor.kind.is_declaration() and cursor.kind != CursorKind.IF_STMT:
        return cursor.kind in (CursorKind.CASE_STMT,)
    words = source.text(cursor).split("{")[0]
    return bool(re.search(r"\b(constexpr|consteval|constinit|static_assert)\b", words))


def places_in(source, cursor, parent, inside):
    """(operator, edits) of every fault below the cursor; only function bodies have some."""
    if is_constant(source, cursor):
        return
    if inside and cursor.extent.end.offset > cursor.extent.start.offset:
        for operator in OPERATORS:
            for edits in operator(source, cursor, parent):
                if all(0 <= start < end for start, end, _ in edits):
                    yield operator.__name__, edits
    for child in cursor.get_children():
        if child.location.file and child.location.file.name == str(WORK / source.name):
            yield from places_in(source, child, cursor, inside or child.kind in BODIES)


def faults_of(name):
    """Every fault that the operators find in a file: (file, operator, edits)."""
    unit = json.loads((BUILD / "compile_commands.json").read_text())
    words = next(row for row in unit if row["file"] == str(WORK / name))["command"].split()
    flags = [word for word in words if re.match(r"-(I|D|std|isystem)|/usr/include", word)]
    parsed = Index.create().parse(str(WORK / name), flags)
    source = Source(name)
    found = []
    for top in parsed.cursor.get_children():
        if top.location.file and top.location.file.name == str(WORK / name):
            found += [(name, *place) for place in places_in(source, top, parsed.cursor, top.kind in BODIES)]
    return found


def chosen(faults, count, seed):
    """Up to `count` of them that don't overlap, as many of each operator as of the next."""
    draw = random.Random(seed)
    by_operator = {operator.__name__: [f for f in faults if f[1] == operator.__name__] for operator in OPERATORS}
    for rows in by_operator.values():
        draw.shuffle(rows)
    taken, spans = [], {}
    while len(taken) < count and any(by_operator.values()):
        for rows in by_operator.values():
            while rows and len(taken) < count:
                fault = rows.pop()
                start, end = fault[2][0][0], fault[2][-1][1]
                if all(end <= a or b <= start for a, b in spans.setdefault(fault[0], [])):
                    spans[fault[0]].append((start, end))
                    taken.append(fault)
                    break
    return taken


def plant(names, faults):
    """Writes the files anew, with the switches of the faults that aren't None."""
    edits = {name: [] for name in names}
    for n, fault in enumerate(faults):
        if fault:
            edits[fault[0]] += [(start, end, text.replace("@", f"kelu_fault({n})")) for start, end, text in fault[2]]
    for name, rows in edits.items():
        text = (ROOT / name).read_bytes()
        for start, end, new in sorted(rows, reverse=True):
            # A switch brings no new line: lines of errors are those of the source.
            text = text[:start] + new.encode() + text[end:]
        (WORK / name).write_bytes(b'#include "base/fault.h"\n#line 1\n' + text)


def line_of(fault):
    return (ROOT / fault[0]).read_bytes()[:fault[2][0][0]].count(b"\n") + 1


def build():
    """The lines that don't compile, as (file, line); empty when all is built."""
    made = subprocess.run(["cmake", "--build", ".", "--target", *SUITES, "--", "-k", "0"], cwd=BUILD, capture_output=True, text=True)
    if made.returncode == 0:
        return set()
    wrong = set(re.findall(r"(src/\S+?):(\d+):\d+: error:", made.stdout))
    if not wrong:
        sys.exit(made.stdout[-4000:])
    return {(name, int(line)) for name, line in wrong}


def build_with(names, faults):
    """Builds all faults that can be switched; the others become None in the list."""
    while True:
        plant(names, faults)
        wrong = build()
        if not wrong:
            return
        before = sum(fault is not None for fault in faults)
        lines = {(fault[0], line_of(fault)): n for n, fault in enumerate(faults) if fault}
        for name, line in wrong:
            # A statement may begin some lines above the error.
            for near in range(line, max(line - 12, 0), -1):
                if (name, near) in lines:
                    faults[lines[name, near]] = None
                    break
        if before == sum(fault is not None for fault in faults):
            sys.exit(f"The copy doesn't build: {sorted(wrong)[:5]}")


def copied():
    """The tree's copy, built without faults. Only what differs is copied, so that a second run builds little."""
    listed = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True, text=True).stdout
    for name in listed.splitlines():
        source, copy = ROOT / name, WORK / name
        if source.is_file() and (not copy.exists() or copy.read_bytes() != source.read_bytes()):
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, copy)
    for old in (path for folder in ("src", "tests") for path in (WORK / folder).rglob("*.[ch]*")):
        if not (ROOT / old.relative_to(WORK)).exists():
            old.unlink()
    subprocess.run(["cmake", "--preset", "dev", "-DCMAKE_CXX_FLAGS_DEBUG=-O1", "-DKELU_WARNINGS_AS_ERRORS=OFF", "-DKELU_E2E=OFF",
                    "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON"], cwd=WORK, check=True, capture_output=True)
    subprocess.run(["cmake", "--build", ".", "--target", "resources", "defaults"], cwd=BUILD, check=True, capture_output=True)


def add_switches(count):
    (WORK / "src" / "base" / "fault.h").write_text(SWITCH)
    main = (ROOT / "tests" / "test_main.cpp").read_text()
    add = "if (std::getenv(\"KELU_REACHED\")) testing::UnitTest::GetInstance()->listeners().Append(new Reached);\n    return RUN"
    (WORK / "tests" / "test_main.cpp").write_text(main.replace("int main", LISTENER % count + "int main").replace("return RUN", add))


def run(suite, tests, seconds, **words):
    """True when the tests pass in time. Each run has a temporary folder of its own."""
    memory = "/dev/shm" if os.path.isdir("/dev/shm") else None
    with tempfile.TemporaryDirectory(dir=memory) as folder:
        flags = Path(folder) / "flags"
        flags.write_text(f"--gtest_filter={tests}\n--gtest_fail_fast\n--gtest_brief=1\n")
        try:
            ran = subprocess.run([BUILD / "tests" / suite, f"--gtest_flagfile={flags}"], cwd=BUILD, timeout=seconds,
                                 capture_output=True, env={**os.environ, **words, "TMPDIR": folder})
        except subprocess.TimeoutExpired:
            return False
    if ran.returncode and "KELU_REACHED" in words:
        failed = re.findall(r".*\[  FAILED  \].*", ran.stdout.decode(errors="replace"))
        sys.exit("\n".join(["The tests fail without a fault:", *failed]))
    return ran.returncode == 0


def reached_by(jobs):
    """For each fault the tests that reach it, the quickest first: [(milliseconds, suite, test)]."""
    tests = {}
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        logs = {suite: BUILD / f"{suite}.reached" for suite in SUITES}
        list(pool.map(lambda suite: run(suite, "*", 1800, KELU_REACHED=str(logs[suite])), SUITES))
    for suite, log in logs.items():
        for line in log.read_text().splitlines():
            test, milliseconds, *faults = line.split()
            for fault in faults:
                tests.setdefault(int(fault), []).append((int(milliseconds), suite, test))
    return {fault: sorted(rows) for fault, rows in tests.items()}


def batches(tests, longest):
    """The tests in runs of one suite each, so many that they take the seconds given; every next run may take twice as
    long, so that a fault that never ends is found by a short one."""
    totals = itertools.accumulate(row[0] for row in tests)
    tests = [row for row, total in zip(tests, totals) if total <= 1000 * longest]
    milliseconds = 1000
    while tests:
        size = sum(1 for total in itertools.accumulate(row[0] for row in tests) if total <= milliseconds) or 1
        for suite in SUITES:
            if rows := [row for row in tests[:size] if row[1] == suite]:
                yield suite, ":".join(row[2] for row in rows), 10 + 5 * sum(row[0] for row in rows) / 1000
        tests = tests[size:]
        milliseconds *= 2


def noticed(fault, tests, longest):
    """True when one of the tests fails with the fault switched on."""
    runs = batches(tests, longest)
    return any(not run(suite, names, seconds, KELU_FAULT=str(fault)) for suite, names, seconds in runs)


def tried(fault, n, tests, longest):
    """Whether the fault is noticed; one that isn't gets its line."""
    if noticed(n, tests, longest):
        return True
    name, operator, edits = fault
    text = (ROOT / name).read_bytes()[edits[0][0]:edits[-1][1]].decode()
    print(f"{name}:{line_of(fault)}: {operator}, {len(tests)} tests reach it: {' '.join(text.split())}", flush=True)
    return False


def main():
    words = argparse.ArgumentParser(description=__doc__)
    words.add_argument("--count", type=int, default=300, help="faults to plant (300)")
    words.add_argument("--seed", type=int, default=1, help="of their choice (1)")
    words.add_argument("--jobs", type=int, default=os.cpu_count(), help="runs side by side (one a core)")
    words.add_argument("--seconds", type=int, default=120, help="of tests at most for each fault (120)")
    words.add_argument("paths", nargs="+", metavar="PATH", help="a source file, or a folder of them")
    words = words.parse_args()
    names = [str(file.resolve().relative_to(ROOT)) for path in map(Path, words.paths)
             for file in (sorted(path.rglob("*.cpp")) if path.is_dir() else [path])]
    copied()
    add_switches(words.count)
    with concurrent.futures.ProcessPoolExecutor(words.jobs) as pool:
        faults = chosen(sorted(itertools.chain(*pool.map(faults_of, names))), words.count, words.seed)
    build_with(names, faults)
    tests = reached_by(words.jobs)
    planted = [n for n, fault in enumerate(faults) if fault]
    with concurrent.futures.ThreadPoolExecutor(words.jobs) as pool:
        caught = dict(zip(planted, pool.map(lambda n: tried(faults[n], n, tests.get(n, []), words.seconds), planted)))
    for title, key in (("operator", lambda n: faults[n][1]), ("folder", lambda n: str(Path(faults[n][0]).parent))):
        all_rows, good = Counter(map(key, planted)), Counter(key(n) for n in planted if caught[n])
        for row in sorted(all_rows):
            print(f"{title} {row}: {good[row]} of {all_rows[row]} caught")
    total = sum(caught.values())
    print(f"{len(planted)} faults planted, {total} caught: {100 * total // max(len(planted), 1)} of 100")


if __name__ == "__main__":
    main()
