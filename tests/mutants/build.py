"""A copy of the sources with switches in them, what is compiled of it, and what the compiler is against."""

import json
import os
import pathlib
import re
import subprocess
import sys
from typing import NamedTuple

TREE = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(TREE / "tools/lib"))
import source_tree  # noqa: E402


class Test(NamedTuple):
    name: str
    command: tuple
    folder: str
    environment: tuple = ()

    @property
    def program(self):
        return self.command[0]


class Build:
    """A copy of the sources, switched, and what is compiled of it."""

    def __init__(self, folder):
        self.tree, self.folder, self.log = folder / "tree", folder / "build", folder / "build.log"
        self.tree.mkdir(parents=True, exist_ok=True)
        # Constants that the compiler must keep, by name.
        self.kept = set()

    def copy(self, switched):
        """The sources as they are, but for those that are switched. What has not changed is not written."""
        listed = set(source_tree.files())
        for name in listed:
            self.write(name, switched[name].encode() if name in switched else (TREE / name).read_bytes())
            (self.tree / name).chmod((TREE / name).stat().st_mode)
        for path in sorted(self.tree.rglob("*")):
            if path.is_file() and str(path.relative_to(self.tree)) not in listed:
                path.unlink()

    def write(self, name, content):
        path = self.tree / name
        if not path.exists() or path.read_bytes() != content:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)

    def configure(self):
        options = ["-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DFISCALON_JOINED=ON",
                   "-DCMAKE_CXX_FLAGS=-w -Wno-narrowing -fmax-errors=0", "-DFISCALON_WARNINGS_AS_ERRORS=OFF",
                   "-DFISCALON_QT=OFF", "-DFISCALON_C=OFF", "-DFISCALON_INSTALL=OFF"]  # fmt: skip
        command = ["cmake", "-G", "Ninja", "-S", self.tree, "-B", self.folder, *options]
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        if done.returncode:
            sys.exit(f"mutants: {done.stdout}{done.stderr}")

    def make(self, jobs, programs, first=()):
        """What the compiler says against it; nothing if all is built."""
        for targets in filter(None, (first, programs)):
            command = ["ninja", "-C", self.folder, "-k", "0", f"-j{jobs}", *targets]
            done = subprocess.run(command, capture_output=True, text=True, errors="replace", check=False)
            self.log.write_text(done.stdout + done.stderr)
            if done.returncode:
                return done.stdout + done.stderr
        return ""

    def tests(self, programs):
        """All tests of the programs, as ctest would run them."""
        told = subprocess.run(
            ["ctest", "--test-dir", self.folder, "--show-only=json-v1"], check=True, capture_output=True, text=True
        ).stdout
        found = []
        for test in json.loads(told)["tests"]:
            command = test.get("command")
            if not command or os.path.basename(command[0]) not in programs:
                continue
            properties = {each["name"]: each["value"] for each in test.get("properties", [])}
            # The corpus file by file; all of it at once is the same again.
            if "--files" in command:
                continue
            environment = tuple(properties.get("ENVIRONMENT", ()))
            found.append(Test(test["name"], tuple(command), properties["WORKING_DIRECTORY"], environment))
        return found


PLACE = re.compile(r"^(?P<file>[^\s:]+):(?P<line>\d+):(?P<column>\d+): (?P<rest>.*)$", re.MULTILINE)


class Refusals:
    """Which changes the compiler is against."""

    def __init__(self, build, ranges, texts):
        self.tree, self.folder, self.ranges = build.tree, build.folder, ranges
        self.starts = {name: line_starts(text) for name, text in texts.items()}

    def numbers_at(self, file, line, column):
        name = os.path.relpath(os.path.join(self.folder, file), self.tree)
        if name not in self.ranges:
            return set()
        starts = self.starts[name]
        offset = starts[line - 1] + column - 1
        around = [each for each in self.ranges[name] if each[0] <= offset < each[1]]
        if around:
            return {min(around, key=lambda each: each[1] - each[0])[2]}
        past = starts[line] if line < len(starts) else offset + 1
        return {number for begin, end, number in self.ranges[name] if begin < past and end > starts[line - 1]}

    def found_in(self, output, constants):
        """(numbers, names of constants) that must go back to what they were."""
        numbers, names, helpless = set(), set(), []
        for block in re.split(r"\n(?=[^\n]*: error: )", output):
            if ": error: " not in block:
                continue
            quoted = set(re.findall(r"[‘'](?:[^’']*::)?(\w+)[’']", block)) & constants
            here = set()
            places = [(match["file"], int(match["line"]), int(match["column"])) for match in PLACE.finditer(block)]
            for place in places:
                here = self.numbers_at(*place)
                if here:
                    break
            if quoted:
                names |= quoted
            elif here:
                numbers |= here
            else:
                helpless.append(block)
        return numbers, names, helpless


def line_starts(text):
    return [0] + [match.end() for match in re.finditer("\n", text)]
