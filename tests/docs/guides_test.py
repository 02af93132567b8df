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
PAGES = [*TREE.glob("*.md"), *(TREE / "docs").rglob("*.md"), *(TREE / "tests").rglob("*.md"),
         *(TREE / "examples").rglob("*.md")]
SOURCE_FOLDERS = ("core", "screens", "validation", "frontends", "component", "bindings", "tools", "include",
                  "examples", "bench", "tests/support", "tests/scenarios")
# Where a guide names a file by its last part.
NAMED_FOLDERS = ("core", "screens", "validation", "frontends", "include", "examples", "tests")
# What builds make, what processes write, and what a reader's own front end would have.
NOT_KEPT = re.compile(r"^build/|\bNAME\b|^fiscalon_component\.h$|^Zelmor/PBP\.txt$|^NOTES\.md$|^TOOLS\.txt$")
# Behind the language may stand the file that a listing is; such listings are built by the examples' tests.
FENCE = re.compile(r"^```(\w*)( [^\n]*)?\n(.*?)^```$", re.MULTILINE | re.DOTALL)
# A path has a folder or an ending that the tree uses; <...> and * stand for names that the reader chooses.
PATH = re.compile(r"`([\w./-]+(?:/[\w./-]*|\.(?:h|cpp|md|py|txt|scenario)))`")
# What the reader's own form would have is written small.
NAME = re.compile(r"`([A-Z]\w+)`")


def sources():
    for folder in SOURCE_FOLDERS:
        for file in sorted((TREE / folder).rglob("*")):
            is_command = file.parent == TREE / "tools" and file.is_file()
            if file.suffix in (".h", ".cpp", ".py", ".cs") or file.name == "CMakeLists.txt" or is_command:
                yield file.read_text(encoding="utf-8")


def without_indent(text):
    return "\n".join(line.strip() for line in text.strip("\n").splitlines())


def blocks(guide, language):
    return [body for kind, file, body in FENCE.findall(guide.read_text(encoding="utf-8")) if kind == language
            and not file]


class Guides(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.sources = [without_indent(text) for text in sources()]
        build = [TREE / "CMakeLists.txt", *sorted((TREE / "cmake").glob("*.cmake"))]
        cls.all_sources = "\n".join(cls.sources + [file.read_text(encoding="utf-8") for file in build])

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
        scenarios = [body for guide in GUIDES for body in blocks(guide, "")
                     if re.search(r"^(show|scenario) ", body, re.MULTILINE)]
        self.assertTrue(scenarios)
        with tempfile.TemporaryDirectory() as folder:
            for number, scenario in enumerate(scenarios):
                file = Path(folder) / f"{number}.scenario"
                file.write_text(scenario, encoding="utf-8")
                played = subprocess.run([os.environ["FISCALON_PROGRAM"], "play", file], capture_output=True, text=True)
                self.assertEqual(played.returncode, 0, played.stdout + played.stderr)

    def test_hold_to_lines_of_120_characters(self):
        """But for tables, code and pictures, which no line can be broken in."""
        for page in PAGES:
            text = FENCE.sub("", page.read_text(encoding="utf-8"))
            for line in text.splitlines():
                self.assertTrue(len(line) <= 120 or re.match(r"\||<|    ", line), f"{page.relative_to(TREE)}: {line}")


class HostGuide(unittest.TestCase):
    """A page for what all languages share, and a page for each."""

    ENTRY = TREE / "docs/host-guide.md"
    PAGES = sorted((TREE / "docs").glob("host-guide-*.md"))

    @staticmethod
    def chapters(page):
        return re.findall(r"(?m)^## (.*)$", FENCE.sub("", page.read_text(encoding="utf-8")))

    def test_has_the_same_chapters_for_every_language(self):
        wanted = self.chapters(self.PAGES[0])
        self.assertGreater(len(wanted), 10)
        for page in self.PAGES:
            self.assertEqual(self.chapters(page), wanted, page.name)
        # What is the same for all stands in those of the entry, in the order of the pages.
        shared = [chapter for chapter in self.chapters(self.ENTRY) if chapter in wanted]
        self.assertEqual(shared, wanted[1:], "Bring it in is the languages' own")

    def test_leads_to_every_language(self):
        text = self.ENTRY.read_text(encoding="utf-8")
        for page in self.PAGES:
            self.assertIn(f"]({page.name})", text)

    def test_tells_every_error_that_hosts_meet(self):
        errors = (TREE / "core/platform/runtime_error.h").read_text(encoding="utf-8")
        numbers = re.findall(r"k\w+ = (\d+);", errors)
        self.assertGreater(len(numbers), 10)
        told = self.ENTRY.read_text(encoding="utf-8")
        for number in numbers:
            self.assertRegex(told, rf"\b{number}\b")


class AScreen(unittest.TestCase):
    """The list of what a screen touches, at the end of its guide, is true of each, and complete."""

    # A file that names most of the screens has a line for each.
    MOST = 2 / 3
    # These name screens as examples, or tell of what was measured; a further screen needs no line there.
    NO_LINE = {"docs/mutants.md", "docs/performance.md", "tests/screens/field_names_test.cpp",
               "tests/screens/launch_table_test.cpp"}

    def setUp(self):
        guide = (TREE / "docs/adding-a-screen.md").read_text(encoding="utf-8")
        self.touched = re.findall(r"(?m)^\d+\. .*`([^`]+)`$", guide)
        table = (TREE / "screens/launch_table.cpp").read_text(encoding="utf-8")
        self.codes = dict(re.findall(r'LaunchRow\{"(\d\d)", +"\w+", *"(\w+)"', table))
        self.headers = {name: file for file in (TREE / "screens").glob("*/*.h") if file.parent.name != "parts"
                        for name in re.findall(r"(?m)^class (\w+) (?:final )?: public Screen\b",
                                               file.read_text(encoding="utf-8"))}

    def places(self, code):
        header = self.headers[self.codes[code]]
        named = {"<folder>": header.parent.name, "<name>": header.stem, "<code>": code}
        return [TREE / re.sub("<folder>|<name>|<code>", lambda found: named[found[0]], each) for each in self.touched]

    def test_touches_ten_files_or_folders_at_most(self):
        self.assertTrue(0 < len(self.touched) <= 10)

    def test_has_all_that_is_told(self):
        for form in set(self.codes.values()):
            drawn = min(code for code, name in self.codes.items() if name == form)
            for place in self.places(drawn):
                self.assertTrue(place.exists(), f"{form} has no {place.relative_to(TREE)}")

    def test_has_no_line_in_another_file(self):
        listed = subprocess.run(["git", "-C", TREE, "ls-files"], capture_output=True, text=True)
        if listed.returncode != 0:
            self.skipTest("there is no list of the tree's files")
        naming = set()
        for name in filter(lambda each: (TREE / each).is_file(), listed.stdout.splitlines()):
            words = set(re.findall(r'"\d\d"|\d\d\.png|\w+', (TREE / name).read_text(encoding="latin-1")))
            named = [code for code, form in self.codes.items()
                     if words & {f'"{code}"', f"{code}.png", form, self.headers[form].stem}]
            if len(named) > self.MOST * len(self.codes):
                naming.add(name)
        self.assertEqual(naming - self.NO_LINE, {each for each in self.touched if "<" not in each})


if __name__ == "__main__":
    unittest.main()
