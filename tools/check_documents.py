#!/usr/bin/env python3
"""Tries the commands that the documents name: check_documents.py ROOT BUILD

A command is an indented line or a text in backquotes that begins with a program of ours or with cmake, ctest or cpack.
Each kind has a way to be tried that takes seconds: presets must be there, tests must match the filter, tools run on
what lies here. A command that no way is known for is an error, and so is a way that no document needs any more.
Scripts that build everything are only read by the shell: the continuous integration is one of them.
"""
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

DOCUMENTS = ("README.md", "CONTRIBUTING.md", "docs/architecture.md", "docs/guide.md", "docs/reference.md")
BEGINNINGS = ("./", "tools/", "build/", "cmake ", "ctest ", "cpack ", "KELU_ACCEPT=")


def commands(text):
    """The commands of a document, those that '&&' joins one by one."""
    pieces = re.findall(r"^    (\S.*)$", text, re.M) + re.findall(r"`([^`]+)`", " ".join(text.split("\n")))
    for piece in pieces:
        piece = re.split(r"  +", piece)[0]  # what stands behind it explains it
        for command in piece.split(" && "):
            # A file or a folder alone is told of, not run, but for what the shell would run.
            if command.startswith(BEGINNINGS) and (" " in command or command.startswith("./")):
                yield command


def run(words, folder, **options):
    return subprocess.run(words, cwd=folder, capture_output=True, text=True, timeout=120, **options)


def has_presets(kind, root, names):
    listed = run(["cmake", f"--list-presets={kind}"], root).stdout
    return all(f'"{name}"' in listed for name in names)


class Trials:
    """One method a way; each returns whether the command holds what it promises."""

    def __init__(self, root, build):
        self.root, self.build = root, build
        self.scratch = tempfile.TemporaryDirectory()

    def script(self, words):
        return run(["bash", "-n", words[0]], self.root).returncode == 0

    def preset(self, words):
        kind = {"cmake": "build" if "--build" in words else "configure", "ctest": "test", "cpack": "package"}[words[0]]
        return has_presets(kind, self.root, [words[words.index("--preset") + 1]])

    def install(self, words):
        words = [str(self.build) if word == "build/release" else word for word in words]
        words = [self.scratch.name if word == "PREFIX" else word for word in words]
        return run(words, self.root).returncode == 0 and pathlib.Path(self.scratch.name, "bin/kelu").exists()

    def tests(self, words):
        program = self.build / "tests" / pathlib.Path(words[0]).name
        if not program.exists():
            return pathlib.Path(self.root, "tests", program.name.replace("kelu_", "")).is_dir()
        return "\n  " in run([program, *words[1:], "--gtest_list_tests"], self.root).stdout

    def levels(self, words):
        return run(words, self.root).returncode == 0

    def reference(self, words):
        out = pathlib.Path(self.scratch.name, "reference.md")
        tool = self.build / "tools" / pathlib.Path(words[0]).name
        return run([tool, out], self.root).returncode == 0 and out.read_text() == (self.root / words[1]).read_text()

    def pictures(self, words):
        done = run([words[0], self.build / "app", self.scratch.name, "about"], self.root)
        return done.returncode == 0 and pathlib.Path(self.scratch.name, "about.png").stat().st_size > 1000


WAYS = (
    (r"\./(run|test)\.sh$", Trials.script),
    (r"tools/(lint|package_test|check_clang)\.sh", Trials.script),
    (r"(cmake|ctest|cpack) .*--preset ", Trials.preset),
    (r"cmake --install build/release --prefix PREFIX$", Trials.install),
    (r"build/dev/tests/kelu_(unit|sessions) --gtest_filter=", Trials.tests),
    (r"tools/check_levels\.py src$", Trials.levels),
    (r"build/dev/tools/doc_tables docs/reference\.md$", Trials.reference),
    (r"tools/docs_pictures\.sh build/app OUT$", Trials.pictures),
)


def main(root, build):
    trials, wrong, used, tried = Trials(root, build), 0, set(), set()
    for document in DOCUMENTS:
        for command in commands((root / document).read_text()):
            plain = command.removeprefix("KELU_ACCEPT=1 ")
            way = next((way for way in WAYS if re.match(way[0], plain)), None)
            if not way:
                print(f"{document}: no way is known to try: {command}")
                wrong += 1
                continue
            used.add(way)
            if plain not in tried and not way[1](trials, shlex.split(plain)):
                print(f"{document}: this doesn't work: {command}")
                wrong += 1
            tried.add(plain)
    for way in WAYS:
        if way not in used:
            print(f"no document names a command like {way[0]} any more")
            wrong += 1
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()))
