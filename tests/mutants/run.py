#!/usr/bin/env python3
"""Changes sources a little, one spot at a time, and tells whether any test fails by it. README.md says how and why."""

import argparse
import collections
import hashlib
import json
import os
import pathlib
import random
import subprocess
import sys
from typing import NamedTuple

import spots
import told
from build import TREE, Build, Refusals, source_tree
from judge import Judge, Looks
from known import Known

FOLDERS = ("core/records", "core/values", "core/forms", "screens", "validation", "frontends/played")
# The programs whose tests are asked.
PROGRAMS = ("values_test", "records_test", "forms_test", "core_test", "parts_test", "screens_test", "validation_test",
            "played_test", "scripted_test", "play_scenarios_scripted", "play_in_language", "tools_test",
            "batch_commands_test")  # fmt: skip
SWITCH = "tests/mutants/switch.h"


def git(*words):
    """The names that it tells."""
    return subprocess.run(["git", *words], cwd=TREE, check=True, capture_output=True, text=True).stdout.split("\0")


class Mutant(NamedTuple):
    number: int
    source: str
    spot: spots.Spot
    # What tells it from the other ones of the source, whatever lines stand above it.
    key: str


def sources_in(names, since):
    """The sources below these files and folders; of those only what has changed since a commit, if one is given."""
    asked = [os.path.normpath(name) for name in names]
    files = [file for file in source_tree.files() if any(f"{file}/".startswith(f"{name}/") for name in asked)]
    if since:
        changed = set(git("diff", "-z", "--name-only", since)) | set(git("ls-files", "-z", "-o", "--exclude-standard"))
        files = [file for file in files if file in changed]
    return [file for file in files if file.endswith((".cpp", ".h"))]


def sampled(source, text, count, seed):
    """Some changes of a source, each with its key, and how many there are. The same seed draws the same ones."""
    every = spots.spots_of(text, source.endswith(".h"))
    keyed, seen = [], collections.Counter()
    for spot in every:
        seen[spot.label] += 1
        keyed.append((spot, spot.label if seen[spot.label] == 1 else f"{spot.label} #{seen[spot.label]}"))
    if count and count < len(keyed):
        drawn = sorted(random.Random(f"{seed} {source}").sample(range(len(keyed)), count))
        keyed = [keyed[at] for at in drawn]
    return keyed, len(every)


class Run:
    def __init__(self, options):
        self.options = options
        self.build = Build(options.folder)
        self.totals, self.mutants, self.texts = {}, [], {}
        # What became of each, by its number: "killed", "survived", "unreached", "same", "refused" or "early".
        self.verdicts, self.by = {}, {}

    def draw(self, sources):
        for source in sources:
            self.texts[source] = (TREE / source).read_text(encoding="utf-8")
            keyed, self.totals[source] = sampled(source, self.texts[source], self.options.sample, self.options.seed)
            for spot, key in keyed:
                self.mutants.append(Mutant(len(self.mutants) + 1, source, spot, key))

    def of(self, source):
        return [mutant for mutant in self.mutants if mutant.source == source]

    def write(self, dropped):
        """The tree with all switches but those that are dropped; tells where in it they are."""
        switched, ranges = {}, {}
        for source, text in self.texts.items():
            numbered = [
                (mutant.number, mutant.spot)
                for mutant in self.of(source)
                if mutant.number not in dropped and mutant.spot.constant_name not in self.build.kept
            ]
            if not numbered:
                continue
            body, found = spots.switched(text, numbered)
            lines = f'#include "{SWITCH}"\n'
            switched[source] = lines + body
            ranges[source] = [(start + len(lines), end + len(lines), number) for start, end, number in found]
        self.build.copy(switched)
        return switched, ranges

    def make(self):
        """Builds, and drops what does not compile, until it does."""
        dropped = set()
        constants = {mutant.spot.constant_name for mutant in self.mutants} - {""}
        for attempt in range(20):
            switched, ranges = self.write(dropped)
            if attempt == 0:
                self.build.configure()
            # The whole library tells most of what is wrong; who asks a few tests alone needs a part of it.
            first = ("fiscalon",) if len(self.options.programs) == len(PROGRAMS) else ()
            output = self.build.make(self.options.jobs, self.options.programs, first)
            if not output:
                break
            numbers, names, helpless = Refusals(self.build, ranges, switched).found_in(output, constants)
            names -= self.build.kept
            numbers -= dropped
            if not numbers and not names:
                reasons = "\n".join(helpless) or output
                sys.exit(f"mutants: this does not compile, for whatever reason:\n{reasons[-4000:]}")
            print(f"  {len(numbers)} changes and {len(names)} constants are the compiler's", flush=True)
            dropped |= numbers
            self.build.kept |= names
        else:
            sys.exit("mutants: without all that was refused it still does not compile")
        switches = {number for found in ranges.values() for _, _, number in found}
        for mutant in self.mutants:
            if mutant.number not in switches:
                self.verdicts[mutant.number] = "early"

    def judge(self, known):
        before = Verdicts(self.options.folder / "verdicts.json")
        judge = Judge(self.build)
        tests = self.build.tests(self.options.programs)
        print(f"  {len(tests)} tests", flush=True)
        keys = [mutant.source + mutant.key for mutant in self.mutants]
        changes = Verdicts.mark("".join([*self.texts.values(), *keys]))
        judge.look(tests, Looks(self.options.folder / "looks.json", changes))
        if judge.failing:
            print(f"  not asked, since they fail without a change: {', '.join(judge.failing)}", flush=True)
        if judge.long:
            print(f"  not asked, since they take too long: {', '.join(judge.long)}", flush=True)
        olds = {source: before.of(source, text) if self.options.keep else {} for source, text in self.texts.items()}
        for source, old in olds.items():
            for mutant in self.of(source):
                if mutant.number in self.verdicts:
                    continue
                if old.get(mutant.key) == "killed":
                    verdict = "killed"
                elif not judge.reaching[mutant.number]:
                    verdict = "early" if mutant.spot.early or mutant.spot.constant else "unreached"
                else:
                    verdict = "killed" if self.kills(judge, mutant, known) else "survived"
                self.verdicts[mutant.number] = verdict
            before.keep(source, self.texts[source], self.told_of(source))
            print(f"  {source} is judged, but for what must be built", flush=True)
        # Last, since what is built for them has no other changes to switch to.
        for source, old in olds.items():
            tried = 0
            for mutant in self.of(source):
                if self.verdicts[mutant.number] == "early" and tried < self.options.early:
                    tried += 1
                    self.verdicts[mutant.number] = old.get(mutant.key, "")
                    if self.verdicts[mutant.number] not in ("killed", "refused"):
                        self.verdicts[mutant.number] = self.build_alone(judge, tests, mutant)
            for mutant in self.of(source):
                if self.verdicts[mutant.number] in ("survived", "unreached") and known.reason(source, mutant.key):
                    self.verdicts[mutant.number] = "same"
            self.tell(source)
            before.keep(source, self.texts[source], self.told_of(source))

    def told_of(self, source):
        """Its verdicts, by the changes."""
        return {mutant.key: self.verdicts[mutant.number] for mutant in self.of(source)}

    def kills(self, judge, mutant, known):
        """Whether a test fails that comes by a change. At a first look those of its own folder and the scenarios are
        asked, if any do, and the others only of what these leave alive without a reason."""
        tests = judge.reaching[mutant.number]
        near = [test for test in tests if judge.is_own(test.program, mutant.source) or "scripted/" in test.name]
        if not self.options.near or not near:
            return judge.kills(tests, mutant.source, mutant.number)
        if judge.kills(near, mutant.source, mutant.number):
            return True
        others = [test for test in tests if test not in near]
        return not known.reason(mutant.source, mutant.key) and judge.kills(others, mutant.source, mutant.number)

    def build_alone(self, judge, tests, mutant):
        """What becomes of a change that the compiler must see: the source is compiled with it, for each program."""
        source, text, spot = mutant.source, self.texts[mutant.source], mutant.spot
        switched = (self.build.tree / source).read_bytes()
        reaching = {test for other in self.of(source) for test in judge.reaching[other.number]}
        unasked = {*judge.failing, *judge.long}
        sound = [test for test in tests if test.name not in unasked and (not reaching or test in reaching)]
        self.build.write(source, (text[:spot.start] + spot.changed + text[spot.end:]).encode())
        try:
            for program, asked in judge.by_program(sound, source):
                if self.build.make(self.options.jobs, [os.path.basename(program)]):
                    return "refused"
                if judge.kills(asked, source):
                    return "killed"
            return "survived"
        finally:
            self.build.write(source, switched)

    def count(self, source):
        return collections.Counter(self.verdicts[mutant.number] for mutant in self.of(source))

    def tell(self, source):
        print(told.line_of(source, self.count(source), self.totals[source]), flush=True)
        for mutant in self.of(source):
            if self.verdicts[mutant.number] in ("survived", "unreached"):
                print(f"        {self.verdicts[mutant.number]} {source}:{mutant.spot.line}: {mutant.key}", flush=True)


class Verdicts:
    """What an earlier run found, of sources that are as they were."""

    def __init__(self, path):
        self.path = path
        self.found = json.loads(path.read_text()) if path.exists() else {}

    @staticmethod
    def mark(text):
        return hashlib.sha256(text.encode()).hexdigest()

    def of(self, source, text):
        kept = self.found.get(source, {})
        return kept["verdicts"] if kept.get("of") == self.mark(text) else {}

    def keep(self, source, text, verdicts):
        self.found[source] = {"of": self.mark(text), "verdicts": verdicts}
        self.path.write_text(json.dumps(self.found, indent=1))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("sources", nargs="*", default=FOLDERS, help="files and folders (all that are held to it)")
    parser.add_argument("--since", metavar="COMMIT", help="only what has changed since then")
    parser.add_argument("--sample", type=int, default=20, help="changes of each source (20; 0: all)")
    parser.add_argument("--early", type=int, default=2, help="so many of those without a switch are built (2)")
    parser.add_argument("--seed", type=int, default=1, help="draws other ones")
    parser.add_argument("--programs", nargs="+", default=PROGRAMS, help="whose tests are asked (all that come by it)")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--table", type=pathlib.Path, help="writes what was found to this file, for people to read")
    parser.add_argument("--near", action="store_true", help="a first look: ask the tests of the source's folder first")
    parser.add_argument("--keep", action="store_true", help="take what was killed before as killed")
    parser.add_argument("--folder", type=pathlib.Path, default=TREE / "build" / "mutants")
    options = parser.parse_args()
    # Tests run in folders of their own.
    options.folder = options.folder.resolve()
    run = Run(options)
    run.draw(sources_in(options.sources, options.since))
    if not run.mutants:
        print("nothing to change")
        return 0
    print(f"{len(run.mutants)} changes in {len(run.texts)} sources, seed {options.seed}", flush=True)
    run.make()
    known = Known.read(TREE / "tests/mutants/equivalent.txt")
    run.judge(known)
    if options.table:
        options.table.write_text(told.table_of(run, FOLDERS, known), encoding="utf-8")
    return any(verdict in ("survived", "unreached") for verdict in run.verdicts.values())


if __name__ == "__main__":
    sys.exit(main())
