"""Runs tests with one change on, in as few processes as may be."""

import collections
import json
import os
import resource
import subprocess

# Tests that take at most this long, in seconds, are asked first, and by themselves: together they take little more.
QUICK = 0.02
# A test that takes longer than this is asked when the others have found nothing.
SLOW = 0.3
# And one that takes longer than this never: a change that nobody could see would be asked of it for minutes.
LONGEST = 20
# The sum of all names that one command can have.
LONGEST_ARGUMENT = 100_000


def processor_time():
    """What all that has run so far took, in seconds, however busy the machine is."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


class Judge:
    """Runs tests, by their programs, with one change on."""

    def __init__(self, build):
        self.build = build
        self.times, self.reaching = {}, collections.defaultdict(list)
        # Those that are not asked: they fail without a change, or take too long.
        self.failing, self.long = [], []

    def run(self, command, folder, environment, limit, **more):
        # A run in the background ignores interrupts, and the tests of them would wait for ever.
        bounds = ["env", "--default-signal=INT", "prlimit", f"--cpu={int(limit) + 1}", "--core=0", f"--fsize={1 << 30}"]
        variables = dict(os.environ, **dict(each.split("=", 1) for each in environment), **more)
        # The long tests would be asked again for each change.
        variables.pop("FISCALON_LONG", None)
        try:
            return subprocess.run(
                [*bounds, *command], cwd=folder, env=variables, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL, timeout=20 * limit + 20, check=False,
            ).returncode  # fmt: skip
        except subprocess.TimeoutExpired:
            return -1

    def look(self, tests, kept):
        """Runs every test by itself and without a change, and learns which changes it comes by."""
        reached = self.build.folder / "reached"
        for test in tests:
            found = kept.of(test)
            if found is None:
                reached.unlink(missing_ok=True)
                began = processor_time()
                variables = {"FISCALON_MUTANTS_REACHED": str(reached)}
                status = self.run(test.command, test.folder, test.environment, 120, **variables)
                numbers = sorted({int(word) for word in reached.read_text().split()}) if reached.exists() else []
                found = {"time": processor_time() - began, "status": status, "reached": numbers}
                kept.keep(test, found)
            self.times[test] = found["time"]
            if found["status"]:
                self.failing.append(test.name)
                continue
            if found["time"] > LONGEST:
                self.long.append(test.name)
                continue
            for number in found["reached"]:
                self.reaching[number].append(test)
        kept.write()

    def kills(self, tests, source, number=0):
        """Whether any of these tests fails with this change."""
        for group in self.groups(tests, source):
            limit = 2 + 4 * sum(self.times[test] for test in group)
            for command in commands_of(group):
                if self.run(command, group[0].folder, group[0].environment, limit, FISCALON_MUTANT=str(number)):
                    return True
        return False

    def is_own(self, program, source):
        """Whether a program tests the source's own folder."""
        return f"tests/{source}".startswith(os.path.relpath(os.path.dirname(program), self.build.folder) + "/")

    def by_program(self, tests, source):
        """The tests by their programs, that of the source's own folder first, then the quicker ones."""
        grouped = collections.defaultdict(list)
        for test in tests:
            grouped[test.program].append(test)
        return sorted(
            grouped.items(), key=lambda each: (not self.is_own(each[0], source), sum(map(self.times.get, each[1])))
        )

    def groups(self, tests, source):
        """Tests of a program together: quick ones first, and first those of the source's own folder."""
        grouped = collections.defaultdict(list)
        for test in tests:
            pace = (self.times[test] > QUICK) + (self.times[test] > SLOW)
            grouped[(pace, test.program, test.folder, test.environment)].append(test)

        def order(group):
            pace, program, _, _ = group
            return pace, not self.is_own(program, source), sum(self.times[test] for test in grouped[group])

        for group in sorted(grouped, key=order):
            if group[0] == 2:
                yield from ([test] for test in sorted(grouped[group], key=self.times.get))
            else:
                yield grouped[group]


def commands_of(group):
    """One command for tests of one program, as long as commands may be."""
    first = group[0].command
    names = [next((word[15:] for word in test.command if word.startswith("--gtest_filter=")), "") for test in group]
    if all(names):
        for part in in_parts(names):
            yield [first[0], f"--gtest_filter={':'.join(part)}", "--gtest_fail_fast", "--gtest_brief=1",
                   "--gtest_also_run_disabled_tests"]  # fmt: skip
    elif os.path.basename(first[0]).startswith("play_scenarios"):
        for part in in_parts([word for test in group for word in test.command[1:]], 3000):
            yield [first[0], *part]
    else:
        for test in group:
            yield list(test.command)


def in_parts(words, longest=LONGEST_ARGUMENT):
    part, length = [], 0
    for word in words:
        if part and length + len(word) > longest:
            yield part
            part, length = [], 0
        part.append(word)
        length += len(word) + 1
    if part:
        yield part


class Looks:
    """What an earlier run learnt of tests that are as they were, for the same changes."""

    def __init__(self, path, changes):
        self.path = path
        self.found = json.loads(path.read_text()) if path.exists() else {}
        if self.found.get("changes") != changes:
            self.found = {"changes": changes, "tests": {}}

    @staticmethod
    def stamp(test):
        """When its program, or a file that it names, last changed."""
        paths = [os.path.join(test.folder, word) for word in test.command]
        return max(os.stat(path).st_mtime_ns for path in paths if os.path.isfile(path))

    def of(self, test):
        found = self.found["tests"].get(test.name)
        return found if found and found["stamp"] == self.stamp(test) else None

    def keep(self, test, found):
        self.found["tests"][test.name] = dict(found, stamp=self.stamp(test))

    def write(self):
        self.path.write_text(json.dumps(self.found))
