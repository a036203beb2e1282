#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds the documents to what is there: check_documents.py ROOT APP [TOOLS]

Commands in the documents are run where that takes a moment, with APP, a built folder of the program, in the place of
build/app, and TOOLS, the folder of its tools. Of the others it is checked that script, preset, target, test and file
exist. Then links, paths, names of the code, the table of presets, the keys and the man page. Prints what is wrong; the
result is 1 if anything is.
"""
import fnmatch
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

DOCUMENTS = ("README.md", "CONTRIBUTING.md", "CHANGELOG.md", "assets/README.md", "bench/README.md",
             "docs/architecture.md", "docs/guide.md", "docs/reference.md")
# Files that are ours only once the program runs, or of other places.
ELSEWHERE = re.compile(r"^(/|~|\$|PREFIX|build/|\.)|NNN")
# Keys as the reference has them, and as the README has them.
KEY_NAMES = {"ESC": "Escape", "TILDE": "grave", "BCKSP": "Backspace", "INS": "Insert", "PGUP": "Page Up",
             "PGDN": "Page Down", "DEL": "Delete", "HOME": "Home", "END": "End", "SPC": "Space", "<U>": "arrows",
             "<D>": "arrows", "<L>": "arrows", "<R>": "arrows", "TAB": "Tab"}


class Check:
    def __init__(self, root, app, tools):
        self.root, self.app, self.tools = root, app, tools
        self.wrong, self.seen = 0, 0
        presets = json.loads((root / "CMakePresets.json").read_text())
        self.presets = {kind: {row["name"] for row in presets[f"{kind}Presets"] if not row.get("hidden")}
                        for kind in ("configure", "build", "test", "package")}
        sources = [path for folder in ("src", "tools", "tests", "bench") for path in (root / folder).rglob("*")
                   if path.suffix in (".h", ".cpp")]
        self.code = "\n".join(path.read_text() for path in sources)
        scripts = "\n".join(path.read_text() for path in (root / "tools").glob("*.sh"))
        self.words = set(re.findall(r"\w+", self.code + scripts))
        targets = "\n".join(path.read_text() for folder in ("tools", "tests", "bench")
                            for path in (root / folder).rglob("CMakeLists.txt")) + (root / "CMakeLists.txt").read_text()
        self.targets = set(re.findall(r"add_executable\((\w+)", targets)) | {"kelu_unit", "kelu_sessions"}
        self.tests = ["".join((suite, ".", name)) for suite, name in
                      re.findall(r"^TEST(?:_[FP])?\((\w+),\s*(\w+)\)", self.code, re.M)]

    def fail(self, where, what):
        print(f"{where}: {what}")
        self.wrong += 1

    def expect(self, good, where, what):
        self.seen += 1
        if not good:
            self.fail(where, what)

    def run(self, where, words, folder=None):
        """A command that ends at once and changes nothing of ours."""
        result = subprocess.run(words, cwd=folder or self.root, capture_output=True, text=True, timeout=60, check=False)
        self.expect(result.returncode == 0, where, f"{words} ends with {result.returncode}: {result.stderr[-200:]}")
        return result.stdout

    # --- commands

    def command(self, where, words):
        words = [word for word in words if not re.fullmatch(r"[A-Z_]+=\S*|sudo", word)]
        name = words[0]
        if name in ("cmake", "ctest", "cpack"):
            self.cmake(where, words)
        elif name == "kelu":
            self.kelu(where, words)
        elif name.startswith("build/"):
            self.built(where, words)
        else:
            self.script(where, words)

    def cmake(self, where, words):
        kinds = {"ctest": "test", "cpack": "package", "cmake": "build" if "--build" in words else "configure"}
        if "--preset" in words:
            preset = words[words.index("--preset") + 1]
            self.expect(preset in self.presets[kinds[words[0]]], where, f"no preset {preset} for {words[0]}")
        elif "--install" in words:
            self.expect((self.root / "tests/e2e/installed.sh").read_text().count("cmake --install"), where,
                        "no test installs the program")
        else:
            self.fail(where, f"nobody tries {words}")
        if "--target" in words:
            target = words[words.index("--target") + 1]
            self.expect(target in self.targets, where, f"no target {target}")

    def kelu(self, where, words):
        for option in (word.rstrip(",") for word in words if word.startswith("--")):
            self.expect(self.run(where, [self.app / "kelu", option]).lower().find("kelu") >= 0, where, f"{option} is mute")
        if any(word.startswith("FILE") for word in words):
            self.expect("FILE" in self.run(where, [self.app / "kelu", "--help"]), where, "the help knows no FILE")

    def built(self, where, words):
        _, preset, *_, name = pathlib.PurePath(words[0]).parts
        self.expect(preset in self.presets["configure"], where, f"no preset {preset}")
        self.expect(name in self.targets, where, f"no program {name} is built")
        for word in words[1:]:
            if word.startswith("--gtest_filter="):
                wanted = word.split("=")[1]
                self.expect(fnmatch.filter(self.tests, wanted), where, f"no test is called {wanted}")
        if name == "doc_tables" and self.tools:
            with tempfile.TemporaryDirectory() as folder:
                self.run(where, [self.tools / name, pathlib.Path(folder) / "out.md"])

    def script(self, where, words):
        path = self.root / words[0]
        if not path.is_file():
            self.fail(where, f"{words[0]} isn't there")
            return
        self.expect(os.access(path, os.X_OK), where, f"{words[0]} can't be started")
        if path.name in ("check_levels.py", "check_licences.py"):
            self.run(where, [path, *(word for word in words[1:] if word != "--mend")])
        elif path.suffix in (".sh", ""):
            self.run(where, ["bash", "-n", path])
            self.expect(words[1:] == [] or "$" in path.read_text(), where, f"{words[0]} takes no arguments")
        for word in words[1:]:
            if "/" in word and not word.startswith("build/"):
                self.expect((self.root / word).exists(), where, f"{word} isn't there")
        if path.name == "fuzz.sh" and len(words) > 1:
            fuzz = self.root / "tests" / "fuzz"
            rows = re.findall(r'^    {"([a-z]+)"', (fuzz / "pictures.cpp").read_text(), re.M)
            self.expect(words[1] in rows or (fuzz / f"{words[1]}.cpp").exists(), where, f"no fuzz target {words[1]}")

    def commands(self, name, text):
        starts = ("cmake ", "ctest ", "cpack ", "kelu ", "sudo ", "build/", "tools/", "bench/", "./", "KELU_ACCEPT=")
        lines = [line.strip() for line in re.findall(r"^    (\S.*)$", text, re.M)]
        spans = re.findall(r"`([^`\n]+ [^`\n]+|\./\w+\.sh)`", text)
        for line in lines + spans:
            if not line.startswith(starts) or re.match(r"(bench|tools)/ {2,}", line):
                continue
            line = re.split(r" {2,}(?!-)", line)[0].split(" #")[0]
            for part in line.split(" && "):
                self.command(name, shlex.split(part))

    # --- what the text names

    def names(self, name, text):
        folder = (self.root / name).parent
        for link in re.findall(r"\]\(([^)#]+)\)", text):
            self.expect(link.startswith("http") or (folder / link).exists(), name, f"no such file: {link}")
        for span in re.findall(r"`([^`\n]+)`", text):
            word = span.split(":")[0]
            if re.fullmatch(r"(src|tests|tools|docs|assets|bench|packaging)/[\w./-]+", word):
                self.expect((self.root / word).exists(), name, f"no such file: {word}")
            elif re.fullmatch(r"[a-z]+(_[a-z]+)+|[A-Z][a-z]+([A-Z][a-z]+)+|[A-Z]+(_[A-Z]+)+", word):
                known = word in self.words | self.targets or list(self.root.glob(f"*/{word}.cpp"))
                self.expect(known, name, f"nothing is called {word}")
            elif "/" not in word and re.fullmatch(r"\w+\.(sh|py|cpp|h)", word) and not ELSEWHERE.search(word):
                self.expect(list(self.root.glob(word)) or list(self.root.glob(f"[!b]*/**/{word}")) or
                            list(self.root.glob(f"bench/{word}")), name, f"no such file: {word}")

    def preset_table(self, text):
        rows = re.search(r"\| Preset \| For \|\n\|.*\n((?:\|.*\n)+)", text)
        named = {preset for row in re.findall(r"^\| ([^|]+) \|", rows[1], re.M) for preset in row.split(", ")}
        self.expect(named == self.presets["configure"], "README.md",
                    f"presets that the table and the file don't share: {named ^ self.presets['configure']}")

    def folders(self, readme):
        for folder in re.findall(r"^    (\w+/) {2,}", readme.split("## For developers")[1], re.M):
            self.expect((self.root / folder).is_dir(), "README.md", f"no folder {folder}")

    def keys(self, readme, reference):
        table = readme.split("## Keys")[1].split("## ")[0]
        named = set(re.findall(r"[^\s,|]+", table))
        for cell in re.findall(r"^\| [^|]+ \| ([^|]*) \| [^|]* \|$", reference.split("## Keys")[1].split("## ")[0], re.M):
            for key in re.findall(r"`([^`]+)`", cell):
                word = key.replace(" (P)", "").split("+")[-1] or "+"
                word = KEY_NAMES.get(word, word)
                held = key.rpartition("+")[0].capitalize() if not key.startswith("+") else ""
                wanted = f"{held}+{word}" if held else word
                known = wanted in table if " " in wanted else wanted in named
                known = known or (word.isdigit() and re.search(r"1 to 8", table) and 1 <= int(word) <= 8)
                self.expect(known, "README.md", f"the key {wanted} isn't told")

    def man_page(self):
        page = (self.root / "packaging/kelu.1.in").read_text().replace("\\-", "-")
        told = set(re.findall(r"(--\w+)", self.run("kelu.1", [self.app / "kelu", "--help"])))
        self.expect(told == set(re.findall(r"(--\w+)", page)), "kelu.1", f"options other than {sorted(told)}")


def main(arguments):
    root, app = (pathlib.Path(word).resolve() for word in arguments[:2])
    check = Check(root, app, pathlib.Path(arguments[2]).resolve() if len(arguments) > 2 else None)
    texts = {name: (root / name).read_text() for name in DOCUMENTS}
    for name, text in texts.items():
        check.commands(name, text)
        check.names(name, text)
    check.preset_table(texts["README.md"])
    check.folders(texts["README.md"])
    check.keys(texts["README.md"], texts["docs/reference.md"])
    check.man_page()
    if check.seen < 200:
        check.fail("the documents", f"only {check.seen} things were checked")
    return 1 if check.wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
