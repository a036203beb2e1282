#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plants small faults one at a time, builds what changed and runs the tests: see mutate.sh.

A fault is one edit of one line: a comparison, a number by one, a dropped call, two swapped arguments, a negated
condition, && for ||. One that doesn't compile, or compiles to the same program, isn't counted. A fault is caught when a
test fails, crashes or doesn't end in time. Prints a line for each survivor, and the share that was caught.
"""
import argparse
import hashlib
import random
import re
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutate"
BUILD = WORK / "build" / "dev"
TEST_SECONDS = 180

CALL = re.compile(r"^(\s+)(?!return\b|else\b|delete\b|throw\b)[\w.:>\[\]-]+\([^;]*\);\s*$")
ARGUMENTS = re.compile(r"\b(\w+)\(([\w.]+), ([\w.]+)([,)])")


def replaced(line, match, text):
    return line[:match.start()] + text + line[match.end():]


def comparisons(line):
    swaps = {" < ": " <= ", " > ": " >= ", " <= ": " < ", " >= ": " > ", " == ": " != ", " != ": " == "}
    for match in re.finditer(r" (<|>|<=|>=|==|!=) ", line):
        if "template" not in line and "operator" not in line:
            yield replaced(line, match, swaps[match.group()])


def numbers(line):
    for match in re.finditer(r"(?<![\w.\"'])(\d{1,4})(?![\w.\"'])", line):
        if not re.match(r"\s*(case|#|static_assert)", line):
            yield replaced(line, match, str(int(match.group()) + 1))


def dropped_calls(line):
    if CALL.match(line):
        yield re.match(r"\s*", line).group() + ";"


def swapped_arguments(line):
    for match in ARGUMENTS.finditer(line):
        name, a, b, end = match.groups()
        if a != b and name not in ("if", "for", "while", "switch"):
            yield replaced(line, match, f"{name}({b}, {a}{end}")


def negated_conditions(line):
    match = re.match(r"(\s*(?:\} else )?(?:if|while) \()(.*)(\)( \{| [^()]*;)?)$", line)
    if match and match.group(2).count("(") == match.group(2).count(")") and ";" not in match.group(2):
        yield f"{match.group(1)}!({match.group(2)}){match.group(3)}"


def logic(line):
    for match in re.finditer(r" (&&|\|\|) ", line):
        yield replaced(line, match, " || " if "&&" in match.group() else " && ")


OPERATORS = [comparisons, numbers, dropped_calls, swapped_arguments, negated_conditions, logic]


def faults_of(name):
    """(file, line number, operator, new line) of every fault that the operators find in a file."""
    for number, line in enumerate((ROOT / name).read_text().splitlines()):
        code = line.split("//")[0].rstrip()
        if not code.startswith(" ") or '"' in code and "(" not in code:
            continue
        for operator in OPERATORS:
            for changed in operator(code):
                yield name, number, operator.__name__, changed


def run(command, seconds):
    """The exit code; 1 for a run that doesn't end."""
    try:
        return subprocess.run(command, cwd=BUILD, timeout=seconds, capture_output=True).returncode
    except subprocess.TimeoutExpired:
        return 1


def build():
    return run(["cmake", "--build", ".", "--target", "kelu_unit", "kelu_sessions"], 900) == 0


def fingerprint():
    return [hashlib.sha256((BUILD / "tests" / name).read_bytes()).digest() for name in ("kelu_unit", "kelu_sessions")]


def suites_of(folder):
    """A filter of the test suites in the folder of the same name: they are run first."""
    names = set()
    for file in (ROOT / "tests" / "unit" / folder).glob("*.cpp"):
        names.update(re.findall(r"^(?:TEST|TEST_F|TEST_P)\((\w+),", file.read_text(), re.MULTILINE))
    return ":".join(f"{name}.*:*/{name}.*" for name in sorted(names)) or "*"


def noticed(name):
    """True when a test fails. The tests nearest to the file come first."""
    folder = name.split("/")[1]
    near = suites_of(folder)
    shares = ["tests/kelu_unit", f"--gtest_filter={near}"], ["tests/kelu_sessions"], ["tests/kelu_unit", f"--gtest_filter=-{near}"]
    return any(run([*share, "--gtest_fail_fast", "--gtest_brief=1"], TEST_SECONDS) != 0 for share in shares)


def prepare():
    """The copy, built. Only what differs is copied, so that a second run builds little."""
    listed = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True, text=True).stdout
    for name in listed.splitlines():
        source, copy = ROOT / name, WORK / name
        if not copy.exists() or copy.read_bytes() != source.read_bytes():
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(source, copy)
    subprocess.run(["cmake", "--preset", "dev", "-DCMAKE_CXX_FLAGS_DEBUG=-O0"], cwd=WORK, check=True, capture_output=True)
    if not build():
        sys.exit("The copy doesn't build.")


def main():
    words = argparse.ArgumentParser(description=__doc__)
    words.add_argument("--count", type=int, default=50, help="faults to plant (50)")
    words.add_argument("--seed", type=int, default=1, help="of their choice (1)")
    words.add_argument("files", nargs="+")
    words = words.parse_args()
    faults = sorted(fault for name in words.files for fault in faults_of(name))
    random.Random(words.seed).shuffle(faults)
    prepare()
    plain = fingerprint()
    planted, survivors = 0, []
    for name, number, operator, changed in faults:
        if planted == words.count:
            break
        file = WORK / name
        text = file.read_text()
        lines = text.splitlines()
        before, lines[number] = lines[number], changed
        file.write_text("\n".join(lines) + "\n")
        if build() and fingerprint() != plain:
            planted += 1
            if not noticed(name):
                survivors.append(name)
                print(f"{name}:{number + 1}: {operator}\n    was {before.strip()}\n    now {changed.strip()}", flush=True)
        file.write_text(text)
    caught = planted - len(survivors)
    print(f"{planted} faults planted, {caught} caught, {len(survivors)} not: {100 * caught // max(planted, 1)} of 100")


if __name__ == "__main__":
    main()
