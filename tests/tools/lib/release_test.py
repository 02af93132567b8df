#!/usr/bin/env python3
"""A release is refused where it is not ready, is whole when it is made, and whoever receives it learns of every
change."""

import contextlib
import importlib.machinery
import importlib.util
import io
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[3]
sys.dont_write_bytecode = True
CHANGES = """# Changelog

## [Unreleased]

## [7.8.9] - 2026-03-04

- All is new.

## [7.8.8] - 2026-01-02

- Nothing was.
"""


def tree_in(folder):
    """A checkout that is ready to be released as 7.8.9, with what a release looks at and no more."""
    shutil.copytree(SOURCES / "tools", folder / "tools", ignore=shutil.ignore_patterns("__pycache__"))
    texts = {
        "CMakeLists.txt": "project(fiscalon VERSION 7.8.9 LANGUAGES CXX)\n",
        "CHANGELOG.md": CHANGES,
        "man/fiscalon.1": '.TH FISCALON 1 "" "fiscalon 7.8.9" "Fiscalon"\n',
        "examples/host/CMakeLists.txt": "find_package(fiscalon 7.8 REQUIRED)\n",
    }
    for name, text in texts.items():
        (folder / name).parent.mkdir(parents=True, exist_ok=True)
        (folder / name).write_text(text, encoding="utf-8")
    git(folder, "init", "--quiet")
    commit(folder)


def git(folder, *words):
    who = ["-c", "user.name=A Tester", "-c", "user.email=tester@example.org"]
    subprocess.run(["git", *who, *words], cwd=folder, check=True, capture_output=True)


def commit(folder):
    git(folder, "add", "--all")
    git(folder, "commit", "--quiet", "--message", "as it is")


def module_of(folder):
    """The command of that checkout, as a module."""
    for name in ("artefacts", "check_reproducible", "notices", "parts_list", "source_tree"):
        sys.modules.pop(name, None)
    path = str(folder / "tools/release")
    spec = importlib.util.spec_from_loader("release", importlib.machinery.SourceFileLoader("release", path))
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    sys.path.remove(str(folder / "tools/lib"))
    return module


class Release(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name) / "tree"
        self.out = Path(folder.name) / "out"
        tree_in(self.tree)
        self.release = module_of(self.tree)
        # What this machine has, and what takes a moment.
        self.release.KINDS = ["source"]

    def ran(self, *words):
        """What a run ends with, prints and says."""
        printed, said = io.StringIO(), io.StringIO()
        with contextlib.redirect_stdout(printed), contextlib.redirect_stderr(said):
            status = self.release.main([*words, "--out", str(self.out)])
        return status, printed.getvalue(), said.getvalue()

    def refusal(self, version="7.8.9"):
        status, printed, said = self.ran(version, "--checked")
        self.assertEqual((status, printed), (2, ""), said)
        self.assertFalse(self.out.exists())
        return said

    def verified(self):
        """What the receiver's command says, in a folder that has nothing of the sources."""
        command = [sys.executable, self.out / "verify-release", self.out]
        ran = subprocess.run(command, capture_output=True, text=True, cwd=self.out.parent,
                             env={"PATH": os.environ["PATH"]})
        self.assertEqual(ran.stderr, "")
        return ran.returncode, [line for line in ran.stdout.splitlines() if not line.startswith("OK ")]

    def test_tells_its_steps_and_makes_nothing_in_a_dry_run(self):
        status, printed, said = self.ran("7.8.9", "--dry-run")
        self.assertEqual((status, said), (0, ""))
        self.assertEqual([line.split()[0] for line in printed.splitlines()],
                         ["tools/check", "make:", "put", "tools/verify-release"])
        self.assertEqual(list(self.tree.parent.iterdir()), [self.tree])

    def test_refuses_what_is_no_version(self):
        for version in ("1.0", "v7.8.9", "7.8.9-rc1", "seven"):
            self.assertIn("is no version", self.refusal(version))

    def test_refuses_a_version_that_the_tree_does_not_have(self):
        said = self.refusal("7.8.8")
        self.assertIn("CMakeLists.txt has version 7.8.9, not 7.8.8", said)
        self.assertIn("man/fiscalon.1 tells of 7.8.9, not of 7.8.8", said)

    def test_refuses_a_text_that_was_forgotten(self):
        (self.tree / "examples/host/CMakeLists.txt").write_text("find_package(fiscalon 7.7 REQUIRED)\n")
        commit(self.tree)
        self.assertIn("examples/host/CMakeLists.txt tells of 7.7, not of 7.8", self.refusal())

    def test_refuses_a_changelog_that_is_not_closed(self):
        for changes, reason in (
            (CHANGES.replace("## [Unreleased]\n", "## [Unreleased]\n\n- Something.\n"),
             "changes that are not released"),
            (CHANGES.replace("## [7.8.9] - 2026-03-04", "## [7.8.9]"), "has no date at [7.8.9]"),
            (CHANGES.replace("- All is new.\n", ""), "says nothing of [7.8.9]"),
            (CHANGES.replace("[7.8.9]", "[7.9.0]"), "has no section [7.8.9]"),
        ):
            (self.tree / "CHANGELOG.md").write_text(changes)
            commit(self.tree)
            self.assertIn(reason, self.refusal())

    def test_refuses_what_is_not_committed(self):
        (self.tree / "left.txt").write_text("")
        self.assertIn("the tree is not what is committed: left.txt", self.refusal())

    def test_refuses_a_version_that_is_out(self):
        git(self.tree, "tag", "v7.8.9")
        (self.tree / "more.txt").write_text("")
        commit(self.tree)
        self.assertIn("v7.8.9 is the tag of another commit", self.refusal())

    def test_makes_nothing_of_a_commit_that_the_check_has_not_seen(self):
        check = self.tree / "tools/check"
        check.write_text("#!/bin/sh\ncd \"$(dirname \"$0\")/..\" && touch more.txt && git add more.txt &&\n"
                         "git -c user.name=A -c user.email=a@example.org commit --quiet --message more\n")
        commit(self.tree)
        self.assertEqual(self.ran("7.8.9"), (2, "", "release: since the check, another commit is checked out now\n"))
        self.assertEqual(list(self.tree.parent.iterdir()), [self.tree])

        check.write_text("#!/bin/sh\ntouch \"$(dirname \"$0\")/../left.txt\"\n")
        commit(self.tree)
        self.assertEqual(self.ran("7.8.9"),
                         (2, "", "release: since the check, the tree is not what is committed: left.txt\n"))
        self.assertEqual(list(self.tree.parent.iterdir()), [self.tree])

    def test_names_the_tools_that_are_missing(self):
        self.release.artefacts.NEEDS["source"] = {"no-such-tool": "no-such-package"}
        self.assertIn("no-such-tool is missing: install the Debian package no-such-package", self.refusal())

    def test_names_the_modules_that_are_missing(self):
        self.release.artefacts.NEEDS["source"] = {f"{sys.executable} -m no_such_module": "no-such-package",
                                                  f"{sys.executable} -m json": "libpython3-stdlib",
                                                  "no-such-python -m json": "no-such-python"}  # fmt: skip
        self.assertEqual(self.refusal().splitlines(), [
            f"release: {sys.executable} -m no_such_module is missing: install the Debian package no-such-package",
            "release: no-such-python -m json is missing: install the Debian package no-such-python"])  # fmt: skip

    def test_needs_the_modules_that_the_build_makes_a_wheel_with(self):
        build = (SOURCES / "bindings/python/CMakeLists.txt").read_text(encoding="utf-8")
        python, modules = re.search(r'set\(python (\S+)\)\n.*\$\{python\} -c "import (.*?)"', build).groups()
        needed = {tool for tool in self.release.artefacts.NEEDS["debian"] if " -m " in tool}
        self.assertEqual(needed, {f"{python} -m {module}" for module in modules.split(", ")})

    def test_leaves_a_release_and_a_part_of_one_alone(self):
        self.out.mkdir()
        part = self.release.part_of(self.out)
        part.mkdir()
        (part / "kept").write_text("")
        status, _, said = self.ran("7.8.9", "--checked")
        self.assertEqual(status, 2)
        self.assertIn("is there already", said)
        self.assertIn("left of a release that did not come to its end", said)
        self.assertTrue((part / "kept").exists())

    def test_keeps_what_was_made_where_a_step_fails(self):
        def fails(*_):
            raise OSError("no room")

        self.release.artefacts.MAKERS["source"] = fails
        status, _, said = self.ran("7.8.9", "--checked")
        self.assertEqual(status, 1)
        self.assertIn("no room", said)
        self.assertIn(f"what was made by then is in {self.release.part_of(self.out)}", said)
        self.assertFalse(self.out.exists())

    def test_is_whole_and_can_be_verified(self):
        status, printed, said = self.ran("7.8.9", "--checked")
        self.assertEqual((status, said), (0, ""))
        self.assertIn(f"The release is in {self.out}", printed)
        names = ["NOTES.md", "SHA256SUMS", "TOOLS.txt", "fiscalon-7.8.9.tar.gz", "fiscalon-7.8.9.tar.gz.spdx.json",
                 "verify-release"]
        self.assertEqual(sorted(file.name for file in self.out.iterdir()), names)
        self.assertEqual((self.out / "NOTES.md").read_text(), "# Fiscalon 7.8.9, 2026-03-04\n\n- All is new.\n")
        parts = json.loads((self.out / "fiscalon-7.8.9.tar.gz.spdx.json").read_text())
        self.assertEqual(parts["creationInfo"]["created"], "2026-03-04T00:00:00Z")
        self.assertEqual([(each["name"], each["versionInfo"]) for each in parts["packages"]],
                         [("fiscalon-7.8.9.tar.gz", "7.8.9")])
        self.assertEqual(self.verified(), (0, ["all of the release is there, and as it was made"]))

    def test_shows_whoever_receives_it_what_is_wrong(self):
        self.ran("7.8.9", "--checked")
        archive, parts = self.out / "fiscalon-7.8.9.tar.gz", self.out / "fiscalon-7.8.9.tar.gz.spdx.json"
        whole, listed, sums = archive.read_bytes(), parts.read_bytes(), (self.out / "SHA256SUMS").read_text()

        bytes_ = bytearray(whole)
        bytes_[len(bytes_) // 2] ^= 1
        archive.write_bytes(bytes_)
        self.assertEqual(self.verified(),
                         (1, ["FAIL  fiscalon-7.8.9.tar.gz: is not what was released: its checksum is another",
                              "1 wrong"]))
        archive.unlink()
        self.assertEqual(self.verified(), (1, ["FAIL  fiscalon-7.8.9.tar.gz: is missing", "1 wrong"]))
        archive.mkdir()
        self.assertEqual(self.verified(), (1, ["FAIL  fiscalon-7.8.9.tar.gz: is no file", "1 wrong"]))
        archive.rmdir()
        archive.write_bytes(whole)

        (self.out / "more.exe").write_text("")
        self.assertEqual(self.verified(),
                         (1, ["FAIL  more.exe: is none of the release: SHA256SUMS does not name it", "1 wrong"]))
        (self.out / "more.exe").unlink()

        parts.unlink()
        self.assertIn("FAIL  fiscalon-7.8.9.tar.gz: it has no list of parts", self.verified()[1])
        parts.write_bytes(listed)

        (self.out / "SHA256SUMS").write_text(sums + "and more\n")
        self.assertEqual(self.verified(), (1, ["FAIL  SHA256SUMS: line 6 of SHA256SUMS is no checksum", "1 wrong"]))
        (self.out / "SHA256SUMS").unlink()
        self.assertEqual(self.verified(),
                         (1, ["FAIL  SHA256SUMS: is missing: this is no release, or not all of one", "1 wrong"]))


class TheSameBytes(unittest.TestCase):
    def compared(self, *words):
        command = [sys.executable, SOURCES / "tools/lib/check_reproducible.py", "--compare", *words]
        ran = subprocess.run(command, capture_output=True, text=True)
        self.assertEqual(ran.stderr, "")
        return ran.returncode, ran.stdout.splitlines()

    def test_are_told_from_others_in_each_archive_and_hold_no_folder_of_a_build(self):
        with tempfile.TemporaryDirectory() as folder:
            one, other = Path(folder) / "one", Path(folder) / "other"
            for each in (one, other):
                each.mkdir()
                for name in ("fiscalon.whl", "fiscalon.zip"):
                    with zipfile.ZipFile(each / name, "w") as archive:
                        archive.writestr(zipfile.ZipInfo("a.py"), f"made in {each}\n")
                        archive.writestr(zipfile.ZipInfo("b.py"), "the same\n")
            self.assertEqual(self.compared(one, one),
                             (0, ["2 artefacts are the same bytes twice, and name no folder of a build"]))
            self.assertEqual(self.compared(one, other, "--traces", str(one)),
                             (1, ["fiscalon.whl: a.py differs", f"fiscalon.whl: a.py names {one}",
                                  "fiscalon.zip: a.py differs", f"fiscalon.zip: a.py names {one}"]))
            (other / "fiscalon.zip").unlink()
            self.assertIn("fiscalon.zip: made once only", self.compared(one, other)[1])


if __name__ == "__main__":
    unittest.main()
