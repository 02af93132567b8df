#!/usr/bin/env python3
"""The guides for those who work on the project say what the tree says: code that they quote stands in the sources,
files and names that they mention are there, and their scenarios can be played."""

import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
GUIDES = sorted((TREE / "docs").glob("*.md"))
SOURCE_FOLDERS = ("core", "screens", "validation", "frontends", "component", "tools", "include", "examples", "bench",
                  "tests/support", "tests/scenarios")
# Where a guide names a file by its last part.
NAMED_FOLDERS = ("core", "screens", "frontends", "include", "examples", "tests")
# What builds make, and what a reader's own front end would have.
NOT_KEPT = re.compile(r"^build/|\bNAME\b|^fiscalon_component\.h$")
# Behind the language may stand the file that a listing is; such listings are built by the examples' tests.
FENCE = re.compile(r"^```(\w*)( [^\n]*)?\n(.*?)^```$", re.MULTILINE | re.DOTALL)
# A path has a folder or an ending that the tree uses; <...> and * stand for names that the reader chooses.
PATH = re.compile(r"`([\w./-]+(?:/[\w./-]*|\.(?:h|cpp|md|py|txt|scenario)))`")
# What the reader's own form would have is written small.
NAME = re.compile(r"`([A-Z]\w+)`")


def sources():
    for folder in SOURCE_FOLDERS:
        for file in sorted((TREE / folder).rglob("*")):
            if file.suffix in (".h", ".cpp", ".py") or file.name == "CMakeLists.txt":
                yield file.read_text(encoding="utf-8")


def without_indent(text):
    return "\n".join(line.strip() for line in text.strip("\n").splitlines())


def blocks(guide, language):
    return [body for kind, file, body in FENCE.findall(guide.read_text(encoding="utf-8")) if kind == language and not file]


class Guides(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.sources = [without_indent(text) for text in sources()]
        cls.all_sources = "\n".join(cls.sources)

    def test_quote_code_that_stands_in_the_sources(self):
        quoted = 0
        for guide in GUIDES:
            for block in blocks(guide, "cpp"):
                quoted += 1
                self.assertTrue(any(without_indent(block) in text for text in self.sources),
                                f"{guide.name} quotes what no source says:\n{block}")
        self.assertGreater(quoted, 5)

    def test_name_files_that_exist(self):
        for guide in GUIDES:
            for path in PATH.findall(guide.read_text(encoding="utf-8")):
                if NOT_KEPT.search(path):
                    continue
                # A source may go by its folder and stem, a header by its name alone.
                there = [TREE / path, TREE / "include" / path, TREE / (path + ".h"), guide.parent / path]
                there += [found for folder in NAMED_FOLDERS for found in (TREE / folder).rglob(Path(path).name)]
                self.assertTrue(any(each.exists() for each in there), f"{guide.name} names {path}, which is not there")

    def test_name_things_that_the_sources_have(self):
        for guide in GUIDES:
            text = FENCE.sub("", guide.read_text(encoding="utf-8"))
            for name in set(NAME.findall(text)):
                self.assertTrue(name in self.all_sources, f"{guide.name} names `{name}`, which no source has")

    @unittest.skipUnless("FISCALON_PROGRAM" in os.environ, "there is no program to play scenarios with")
    def test_show_scenarios_that_play(self):
        scenarios = [body for guide in GUIDES for body in blocks(guide, "") if re.search(r"^(show|scenario) ", body, re.MULTILINE)]
        self.assertTrue(scenarios)
        with tempfile.TemporaryDirectory() as folder:
            for number, scenario in enumerate(scenarios):
                file = Path(folder) / f"{number}.scenario"
                file.write_text(scenario, encoding="utf-8")
                played = subprocess.run([os.environ["FISCALON_PROGRAM"], "play", file], capture_output=True, text=True)
                self.assertEqual(played.returncode, 0, played.stdout + played.stderr)


if __name__ == "__main__":
    unittest.main()
