#!/usr/bin/env python3
"""What the documents tell people to type works: the presets, targets, scripts, tests and files that a command names
are there, the program has its options, and what needs nothing but the program is run."""

import glob
import json
import os
import re
import shlex
import subprocess
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
DOCUMENTS = [TREE / "README.md", TREE / "CONTRIBUTING.md", *sorted((TREE / "docs").rglob("*.md"))]
PROGRAM = os.path.abspath(os.environ["FISCALON_PROGRAM"]) if "FISCALON_PROGRAM" in os.environ else ""
BUILD = os.environ.get("FISCALON_BUILD", "")
# A word that the reader replaces, such as <code>, NAME, {.} or "...", or that the shell does.
CHOSEN = re.compile(r"<\w+>|\b[A-Z]{4,}\b|\{\.?\}|\.\.\.|[@$]")
# What the program does without a display, a terminal or a person.
RUN_ALONE = ("generate", "play", "screens", "validate")


class Command:
    def __init__(self, document, line, is_block):
        self.document = document
        self.line = line
        # A command on a line of its own is whole; one within a sentence may be no more than a name.
        self.is_block = is_block
        try:
            self.words = shlex.split(line)
        except ValueError:
            self.words = []
        self.name = self.words[0] if self.words else ""
        is_program = self.name == "fiscalon" or re.fullmatch(r"build/\w+/tools/fiscalon/fiscalon", self.name)
        self.arguments = self.words[1:] if is_program else []

    def __str__(self):
        return f"{self.document}: {self.line}"


def all_commands():
    found = []
    for document in DOCUMENTS:
        text = re.sub(r"^```.*?^```$", "", document.read_text(encoding="utf-8"), flags=re.MULTILINE | re.DOTALL)
        place = document.relative_to(TREE)
        for line in re.findall(r"^ {4}(\S.*)$", text, re.MULTILINE):
            found += [Command(place, each, True) for each in parts(re.sub(r"\s{2,}.*|\s+#.*", "", line))]
        for code in re.findall(r"`([^`]+)`", text):
            found += [Command(place, each, False) for each in parts(re.sub(r"\s+", " ", code))]
    return found


def parts(line):
    return re.split(r"\s*(?:&&|;|\|)\s*", line)


COMMANDS = all_commands()
PRESETS = json.loads((TREE / "CMakePresets.json").read_text(encoding="utf-8"))


def is_there(word):
    """In the tree; or in a package of it, which has the examples of one system without the folder between."""
    folder, _, name = word.rpartition("/")
    return glob.glob(str(TREE / word)) or glob.glob(str(TREE / folder / "*" / name))


def preset_names(kind):
    return [each["name"] for each in PRESETS[kind] if not each.get("hidden")]


class Commands(unittest.TestCase):
    def test_name_presets_that_exist(self):
        seen = 0
        for command in COMMANDS:
            if command.name not in ("cmake", "ctest") or "--preset" not in command.words:
                continue
            seen += 1
            kind = "build" if command.words[1] == "--build" else "test" if command.name == "ctest" else "configure"
            name = command.words[command.words.index("--preset") + 1]
            self.assertIn(name, preset_names(kind + "Presets"), command)
        self.assertGreater(seen, 5)

    def test_tell_of_every_preset(self):
        table = (TREE / "CONTRIBUTING.md").read_text(encoding="utf-8")
        for name in preset_names("configurePresets"):
            self.assertRegex(table, rf"(?m)^\| .*`{name}`", "CONTRIBUTING.md does not say what the preset is for")

    def test_name_folders_of_builds_that_exist(self):
        seen = 0
        for command in COMMANDS:
            for preset, inside in re.findall(r"build/(\w+)(?:/(\S+))?", command.line):
                if not inside and command.name != "cmake":
                    continue  # logs, and what tools put beside the builds
                seen += 1
                self.assertIn(preset, preset_names("configurePresets"), command)
                if inside:
                    folder, _, file = inside.rpartition("/")
                    program = re.sub(r"^lib(.*)\.so[.\d]*$|\.exe$", r"\1", file)
                    lists = (TREE / folder / "CMakeLists.txt").read_text(encoding="utf-8")
                    self.assertRegex(lists, rf"\b{program}\b", command)
        self.assertGreater(seen, 3)

    def test_name_targets_that_exist(self):
        lists = [file for file in TREE.glob("*/**/CMakeLists.txt") if file.relative_to(TREE).parts[0] != "build"]
        text = "\n".join(file.read_text(encoding="utf-8") for file in lists)
        targets = [(command, target) for command in COMMANDS for target in re.findall(r"--target (\w+)", command.line)]
        self.assertTrue(targets)
        for command, target in targets:
            self.assertRegex(text, rf"\({target}\b", command)

    @unittest.skipUnless(BUILD, "there is no build tree to look for tests in")
    def test_name_tests_that_exist(self):
        listed = subprocess.run(["ctest", "--test-dir", BUILD, "-N"], capture_output=True, text=True, check=True).stdout
        if "_NOT_BUILT" in listed:
            self.skipTest("not all tests are built")
        tests = re.findall(r"(?m)^ *Test +#\d+: (.*)$", listed)
        seen = 0
        for command in COMMANDS:
            if command.name == "ctest" and "-R" in command.words:
                seen += 1
                pattern = command.words[command.words.index("-R") + 1]
                self.assertTrue([each for each in tests if re.search(pattern, each)], command)
        self.assertGreater(seen, 0)

    def test_call_scripts_as_they_can_be_called(self):
        seen = 0
        for command in COMMANDS:
            script = TREE / command.name
            if "/" not in command.name or not script.is_file() or script.suffix not in ("", ".py"):
                continue
            self.assertTrue(os.access(script, os.X_OK), command)
            # What ./run is given is the program's.
            for option in [each for each in command.words[1:] if each.startswith("--") and command.name != "./run"]:
                seen += 1
                self.assertIn(option, script.read_text(encoding="utf-8"), command)
        self.assertGreater(seen, 2)

    def test_name_files_that_exist(self):
        for command in COMMANDS:
            for word in command.words:
                if re.match(r"\.?/?(bench|cmake|docs|examples|screens|tests|tools)/", word) and not CHOSEN.search(word):
                    self.assertTrue(is_there(word), f"{command}: {word}")

    @unittest.skipUnless(PROGRAM, "there is no program to ask")
    def test_use_options_that_the_program_has(self):
        overall = subprocess.run([PROGRAM, "--help"], capture_output=True, text=True, check=True).stdout
        helps = {}
        seen = 0
        for command in COMMANDS:
            if not command.arguments or command.arguments[0].startswith("-"):
                continue
            name = command.arguments[0]
            self.assertRegex(overall, rf"(?m)^  {re.escape(name)} ", command)
            if name not in helps:
                helps[name] = subprocess.run([PROGRAM, name, "--help"], capture_output=True, text=True).stdout
            for option in [each.split("=")[0] for each in command.arguments if each.startswith("--")]:
                seen += 1
                self.assertRegex(overall + helps[name], rf"{option}\b", command)
        self.assertGreater(seen, 10)

    @unittest.skipUnless(PROGRAM, "there is no program to run")
    def test_run_where_they_need_nothing_else(self):
        """In the order of each document, in a folder of its own. 1 is what a verdict on planted defects ends with."""
        ran = []
        for document in dict.fromkeys(command.document for command in COMMANDS):
            with tempfile.TemporaryDirectory() as folder:
                for command in COMMANDS:
                    runs = command.is_block and command.arguments[:1] and command.arguments[0] in RUN_ALONE
                    if command.document != document or not runs or CHOSEN.search(command.line):
                        continue
                    ran.append(command.arguments[0])
                    files = [sorted(glob.glob(str(TREE / each))) if "*" in each else [each]
                             for each in command.arguments]
                    ended = subprocess.run([PROGRAM, *sum(files, [])], cwd=folder, capture_output=True, text=True)
                    self.assertIn(ended.returncode, (0, 1) if ran[-1] == "validate" else (0,),
                                  f"{command}\n{ended.stderr}")
                    self.assertEqual(ended.stderr, "", command)
        self.assertLessEqual({"generate", "play", "validate"}, set(ran))


class MapOfTheTree(unittest.TestCase):
    """The table of folders in README.md."""

    def setUp(self):
        rows = re.findall(r"(?m)^\| (`.*?`) \|(.*)\|$", (TREE / "README.md").read_text(encoding="utf-8"))
        self.rows = {folder: says for cell, says in rows for folder in re.findall(r"`([\w.]+)/`", cell)}

    def test_has_every_folder(self):
        # Builds, what git keeps, and what editors leave are no folders of the tree.
        ignored = {line.strip("/") for line in (TREE / ".gitignore").read_text(encoding="utf-8").splitlines()}
        ignored |= {".git", "__pycache__"}
        folders = {each.name for each in TREE.iterdir() if each.is_dir()} - ignored
        self.assertEqual(folders & {"core", "frontends", "screens"}, {"core", "frontends", "screens"})
        self.assertEqual(folders - set(self.rows), set(), "README.md does not say what is in them")
        self.assertEqual(set(self.rows) - folders, set(), "README.md tells of folders that are not there")

    def test_has_every_front_end(self):
        for folder in (TREE / "frontends").iterdir():
            if folder.is_dir():
                self.assertIn(f"`{folder.name}/`", self.rows["frontends"])


class Decisions(unittest.TestCase):
    def test_are_linked_where_the_question_comes_up(self):
        folder = TREE / "docs/decisions"
        texts = [file for top in ("core", "frontends", "screens", "tools", "validation", "docs")
                 for file in (TREE / top).rglob("*")
                 if file.suffix in (".h", ".cpp", ".md") and file.parent != folder] + [TREE / "CONTRIBUTING.md"]
        said = "\n".join(file.read_text(encoding="utf-8") for file in texts)
        pages = sorted(folder.glob("*.md"))
        self.assertTrue(pages)
        for page in pages:
            self.assertIn(f"decisions/{page.name}", said, "no text leads there")


if __name__ == "__main__":
    unittest.main()
