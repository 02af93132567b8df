#!/usr/bin/env python3
"""A batch that is judged in parts by other programs gives the report of one run: on a Dask cluster, one of whose
workers is killed in the middle, and by the guide's command for GNU parallel."""

import contextlib
import importlib.util
import io
import json
import logging
import os
import signal
import subprocess
import sys
import tempfile
import textwrap
import threading
import time
import types
import unittest
import unittest.mock
from pathlib import Path

import distributed

TREE = Path(__file__).resolve().parents[3]
EXAMPLE = TREE / "examples/cluster/judge_batch.py"
GUIDE = TREE / "docs/batch-guide.md"
PROGRAM = os.environ["FISCALON_PROGRAM"]
OPTIONS = ["--today", "2026-06-15", "--locale", "en-CA"]

# What the workers load: the first part tells which worker it is on, and stays there.
STALLING_ONCE = """\
import os

import fiscalon
from fiscalon._batch import validate_batch as judge


def stalling(*arguments, **options):
    with open("{folder}/judged", "a") as told:
        told.write(f"{{options['part'][0]}}\\n")
    try:
        os.mkdir("{folder}/first")
    except FileExistsError:
        return judge(*arguments, **options)
    with open("{folder}/worker", "w") as told:
        told.write(str(os.getpid()))
    open("{folder}/let-go").read()
    return judge(*arguments, **options)


fiscalon.validate_batch = stalling
"""


# What a worker loads that begins a part and never goes on with it.
STALLING = """\
import fiscalon


def stalling(*arguments, **options):
    with open("{folder}/begun", "w") as told:
        told.write("begun")
    open("{folder}/let-go").read()


fiscalon.validate_batch = stalling
"""


# What a worker loads that begins no other part after its first.
PAUSING = """\
import distributed
import fiscalon
from fiscalon._batch import validate_batch as judge


def pausing(*arguments, **options):
    worker = distributed.get_worker()
    worker.loop.add_callback(setattr, worker, "status", distributed.Status.paused)
    return judge(*arguments, **options)


fiscalon.validate_batch = pausing
"""


def command_of_guide(first_words):
    """The indented block of the guide that begins so."""
    blocks = GUIDE.read_text(encoding="utf-8").split("\n\n")
    found = [block for block in blocks if block.startswith("    " + first_words)]
    assert len(found) == 1, found
    return textwrap.dedent(found[0])


class BatchInParts(unittest.TestCase):
    def setUp(self):
        self.place = tempfile.TemporaryDirectory()
        self.addCleanup(self.place.cleanup)
        self.folder = Path(self.place.name)
        # More payments than there are sequence numbers.
        self.run_program("generate", "--payments", "12000", "--screen", "03", "--bad", "0.01", "--out", "batch")
        whole = self.run_program("validate", "--payments", "batch.csv", "--records", "batch.pc4", "--report",
                                 "whole.csv")
        self.first_line = whole.stdout.splitlines()[0]
        self.whole = self.read("whole.csv")
        self.environment = os.environ | {"PATH": os.path.dirname(PROGRAM) + ":" + os.environ["PATH"],
                                         "HOME": self.place.name,
                                         "DASK_DISTRIBUTED__WORKER__MEMORY__TERMINATE": "False"}

    def run_program(self, *arguments):
        return subprocess.run([PROGRAM, *OPTIONS, *arguments], cwd=self.folder, capture_output=True, text=True,
                              check=False)

    def read(self, name):
        return (self.folder / name).read_bytes()

    def start(self, module, *arguments, folder=None):
        log = open(self.folder / "cluster.log", "ab")
        self.addCleanup(log.close)
        process = subprocess.Popen([sys.executable, "-m", module, "--scheduler-file", self.folder / "cluster.json",
                                    "--no-dashboard", *arguments], cwd=folder or self.folder, env=self.environment,
                                    stdout=log, stderr=log)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def start_scheduler(self):
        return self.start("distributed.cli.dask_scheduler", "--port", "0", "--host", "127.0.0.1")

    def start_worker(self, *arguments, folder=None):
        return self.start("distributed.cli.dask_worker", "--nthreads", "1", "--no-nanny", "--memory-limit", "0",
                          *arguments, folder=folder)

    def start_preloaded_workers(self, text, count=1):
        """They are there then, and have loaded that before."""
        preload = self.folder / "preload.py"
        preload.write_text(text.format(folder=self.folder), encoding="utf-8")
        workers = [self.start_worker("--preload", preload) for _ in range(count)]
        self.wait_until(lambda client: len(client.processing()) == count)
        return workers

    def wait_until(self, holds):
        """What holds is asked of a client of the cluster."""
        end = time.monotonic() + 60
        with distributed.Client(scheduler_file=self.folder / "cluster.json") as client:
            while not holds(client):
                self.assertLess(time.monotonic(), end)

    def start_judging(self, parts, *files):
        judging = subprocess.Popen([sys.executable, EXAMPLE, "--scheduler-file", "cluster.json", "--parts", parts,
                                    *files, "report.csv", "--", *OPTIONS], cwd=self.folder,
                                   env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(judging.kill)
        return judging

    def test_a_cluster_that_loses_a_worker_gives_the_report_of_one_run(self):
        os.mkfifo(self.folder / "let-go")
        os.mkfifo(self.folder / "worker")
        self.start_scheduler()
        workers = self.start_preloaded_workers(STALLING_ONCE, 2)
        judging = self.start_judging("5", "batch.csv", "batch.pc4")
        # Reading waits until a worker is in the middle of a part.
        worker = int((self.folder / "worker").read_text(encoding="ascii"))
        self.assertIn(worker, [each.pid for each in workers])
        os.kill(worker, signal.SIGKILL)
        out, err = judging.communicate(timeout=60)
        self.assertEqual(judging.returncode, 1, err)
        self.assertTrue(out.startswith(self.first_line + "\n"), out)
        self.assertIn("5 of 5 parts\n", err)
        self.assertEqual(self.read("report.csv"), self.whole)
        self.assertEqual([each.name for each in self.folder.glob(".parts-*")], [])

    def test_a_part_that_is_done_is_not_judged_again_where_its_worker_goes(self):
        os.mkfifo(self.folder / "let-go")
        os.mkfifo(self.folder / "worker")
        self.start_scheduler()
        workers = self.start_preloaded_workers(STALLING_ONCE, 2)
        judging = self.start_judging("2", "batch.csv", "batch.pc4")
        stalling = int((self.folder / "worker").read_text(encoding="ascii"))
        self.assertEqual(judging.stderr.readline(), "1 of 2 parts\n")
        for worker in workers:
            if worker.pid != stalling:
                worker.kill()
        self.wait_until(lambda client: len(client.processing()) == 1)
        (self.folder / "let-go").write_text("", encoding="ascii")
        _, err = judging.communicate(timeout=60)
        self.assertEqual((judging.returncode, err), (1, "2 of 2 parts\n"))
        self.assertEqual(self.read("report.csv"), self.whole)
        self.assertEqual(sorted(self.read("judged").decode().split()), ["1", "2"])

    def stall_in_a_part(self, *options):
        """The scheduler, the script, and a worker that has begun a part of its batch and never goes on with it."""
        for name in ("let-go", "begun"):
            os.mkfifo(self.folder / name)
        scheduler = self.start_scheduler()
        worker, = self.start_preloaded_workers(STALLING)
        judging = self.start_judging("2", "batch.csv", "batch.pc4", *options)
        self.assertEqual((self.folder / "begun").read_text(encoding="ascii"), "begun")
        return scheduler, judging, worker

    def ends_without_a_report(self, judging, status):
        """What it says then."""
        _, err = judging.communicate(timeout=60)
        self.assertEqual(judging.returncode, status, err)
        self.assertEqual([each.name for each in self.folder.glob("*report*")], [])
        self.assertEqual([each.name for each in self.folder.glob(".parts-*")], [])
        return err

    def test_an_interrupt_does_not_wait_for_a_worker_that_stalls(self):
        _, judging, _ = self.stall_in_a_part()
        judging.send_signal(signal.SIGINT)
        self.ends_without_a_report(judging, -signal.SIGINT)

    def test_a_request_to_end_leaves_nothing_behind(self):
        _, judging, _ = self.stall_in_a_part()
        judging.send_signal(signal.SIGTERM)
        self.ends_without_a_report(judging, 128 + signal.SIGTERM)

    def test_tells_that_no_worker_comes(self):
        self.start_scheduler()
        judging = self.start_judging("2", "batch.csv", "batch.pc4", "--stall", "2")
        self.assertEqual(self.ends_without_a_report(judging, 75),
                         "judge_batch: no worker has come for 2 seconds; start workers, and run the batch again\n")

    def test_tells_that_no_worker_is_left_for_a_part_that_none_has_begun(self):
        self.start_scheduler()
        worker, = self.start_preloaded_workers(PAUSING)
        judging = self.start_judging("2", "batch.csv", "batch.pc4", "--stall", "2")
        self.assertEqual(judging.stderr.readline(), "1 of 2 parts\n")
        worker.kill()
        self.assertEqual(self.ends_without_a_report(judging, 75),
                         "judge_batch: no worker has come for 2 seconds; start workers, and run the batch again\n")

    def test_tells_which_part_the_last_worker_has_died_in(self):
        _, judging, worker = self.stall_in_a_part("--stall", "2")
        self.wait_until(lambda client: any(topic.startswith("judge_batch-") for topic in client.get_events()))
        worker.kill()
        self.assertRegex(self.ends_without_a_report(judging, 75),
                         r"^judge_batch: part [12] of 2: \S+ \(tcp://127\.0\.0\.1:\d+\) has died, and no worker is "
                         r"left; start workers, and run the batch again\n$")

    def test_tells_that_the_scheduler_has_ended(self):
        scheduler, judging, _ = self.stall_in_a_part()
        scheduler.kill()
        self.assertEqual(self.ends_without_a_report(judging, 75),
                         "judge_batch: the scheduler no longer answers; start it and its workers again, then run the "
                         "batch again\n")

    def test_no_verdict_counts_where_a_worker_sees_another_version(self):
        # The same names, and each process has files of its own there.
        there = self.folder / "there"
        there.mkdir()
        for name in ("batch.csv", "batch.pc4"):
            (there / name).write_bytes(self.read(name))
        self.start_scheduler()
        self.start_worker(folder=there)
        judging = self.start_judging("2", "/proc/self/cwd/batch.csv", "/proc/self/cwd/batch.pc4")
        out, err = judging.communicate(timeout=60)
        self.assertEqual((judging.returncode, out), (2, ""), err)
        self.assertRegex(err, r"judge_batch: part [12] of 2: \S+ \(tcp://127\.0\.0\.1:\d+\) sees another version of "
                              r"/proc/self/cwd/batch\.csv: \d+ bytes of ")
        self.assertFalse((self.folder / "report.csv").exists())

    def run_on_gnu_parallel(self, **environment):
        command = command_of_guide("today=").replace("$(date +%F)", "2026-06-15")
        command = command.replace("--jobs 1", "--jobs 1 --locale en-CA")
        return subprocess.run(["bash", "-c", command], cwd=self.folder, env=self.environment | environment,
                              capture_output=True, text=True, check=False)

    def test_the_command_for_gnu_parallel_gives_the_report_of_one_run(self):
        ended = self.run_on_gnu_parallel()
        self.assertEqual(ended.returncode, 0, ended.stderr)
        self.assertEqual(self.read("report.csv"), self.whole)
        # Bad payments are no failure of a part.
        statuses = [line.split("\t")[6] for line in (self.folder / "parts.log").read_text().splitlines()[1:]]
        self.assertEqual(len(statuses), 8)
        self.assertLessEqual(set(statuses), {"0", "1"})

    def test_the_command_for_gnu_parallel_gives_no_report_of_two_versions(self):
        # Who judges the third part has other files where this machine has these.
        other = self.folder / "other"
        other.mkdir()
        stat = self.folder / "stat"
        stat.write_text('#!/bin/sh\ncase "$PARALLEL_SEQ" in 3) cd other;; esac\nexec /usr/bin/stat "$@"\n',
                        encoding="ascii")
        stat.chmod(0o755)
        for name in ("batch.csv", "batch.pc4"):
            (other / name).write_bytes(self.read(name))
        ended = self.run_on_gnu_parallel(PATH=f"{self.folder}:{self.environment['PATH']}")
        self.assertEqual(ended.returncode, 1, ended.stderr)
        self.assertIn("< batch.csv,", ended.stdout)
        self.assertFalse((self.folder / "report.csv").exists())


class JudgeBatch(unittest.TestCase):
    """What the example refuses, and what it says then. One worker in this process stands for the cluster."""

    @classmethod
    def setUpClass(cls):
        logging.getLogger("distributed.worker").setLevel(logging.ERROR)
        cls.place = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.place.cleanup)
        cls.cluster = distributed.LocalCluster(n_workers=1, threads_per_worker=1, processes=False,
                                               dashboard_address=None, host="127.0.0.1", protocol="tcp")
        cls.addClassCleanup(cls.cluster.close)
        with distributed.Client(cls.cluster) as client:
            client.write_scheduler_file(os.path.join(cls.place.name, "cluster.json"))
        loader = importlib.util.spec_from_file_location("judge_batch", EXAMPLE)
        cls.example = importlib.util.module_from_spec(loader)
        loader.loader.exec_module(cls.example)

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(dir=self.place.name))
        subprocess.run([PROGRAM, *OPTIONS, "generate", "--payments", "20", "--screen", "03", "--bad", "0.2",
                        "--out", "batch"], cwd=self.folder, check=True, capture_output=True)
        whole = subprocess.run([PROGRAM, *OPTIONS, "validate", "--payments", "batch.csv", "--records", "batch.pc4",
                                "--report", "whole.csv"], cwd=self.folder, check=False, capture_output=True, text=True)
        self.assertEqual(whole.returncode, 1)
        self.said = whole.stdout

    def judge(self, *behind, payments="batch.csv", report="report.csv", parts="3", scheduler=None, stall="60"):
        words = ["--stall", stall, "--timeout", "5" if scheduler is None else "0", "--scheduler-file",
                 scheduler or os.path.join(self.place.name, "cluster.json"), "--parts", parts,
                 str(self.folder / payments), str(self.folder / "batch.pc4"), str(self.folder / report), *behind]
        out, err = io.StringIO(), io.StringIO()
        with contextlib.redirect_stdout(out), contextlib.redirect_stderr(err), \
                unittest.mock.patch("sys.argv", ["judge_batch.py", *words]):
            try:
                status = self.example.main()
            except SystemExit as ended:
                status = ended.code
        return status, out.getvalue(), err.getvalue()

    def read(self, name):
        return (self.folder / name).read_bytes()

    def refuses(self, complaint, *behind, expected=2, **judged):
        status, out, err = self.judge(*behind, **judged)
        self.assertEqual((status, out), (expected, ""), err)
        self.assertIn(complaint, err)
        self.assertNotIn("Traceback", err)
        self.assertEqual(list(self.folder.glob(".parts-*")), [])

    def test_joins_the_report_of_one_run(self):
        status, out, err = self.judge("--", *OPTIONS)
        self.assertEqual(status, 1, err)
        self.assertEqual(out, self.said)
        self.assertEqual(self.read("report.csv"), self.read("whole.csv"))

    def test_takes_options_with_their_values_joined(self):
        status, _, err = self.judge("--", "--today=2026-06-15", "--locale=en-CA")
        self.assertEqual(status, 1, err)
        self.assertEqual(self.read("report.csv"), self.read("whole.csv"))

    def test_joins_reports_in_json(self):
        status, out, err = self.judge("--", "--json-lines", *OPTIONS)
        self.assertEqual(status, 1, err)
        self.assertEqual(out, self.said)
        rows = [json.loads(line) for line in self.read("report.csv").splitlines()]
        verdicts = self.read("whole.csv").decode().splitlines()[1:]
        self.assertEqual([row["seq"] for row in rows], [verdict.split(",")[0] for verdict in verdicts])
        self.assertEqual([row["reason"] for row in rows], [verdict.split(",", 3)[3] for verdict in verdicts])

    def test_refuses_a_report_in_the_place_of_an_input(self):
        before = self.read("batch.csv")
        self.refuses("would take the place of", report="batch.csv")
        (self.folder / "link").symlink_to("batch.csv")
        self.refuses("would take the place of", report="link")
        os.link(self.folder / "batch.csv", self.folder / "other-name")
        self.refuses("would take the place of", report="other-name")
        self.assertEqual(self.read("batch.csv"), before)

    def test_refuses_a_report_that_can_be_no_file(self):
        self.refuses("there is no folder", report="missing/report.csv")
        self.refuses("it is no file", report=".")
        os.mkfifo(self.folder / "pipe")
        self.refuses("it is no file", report="pipe")

    def test_replaces_what_a_link_leads_to(self):
        (self.folder / "older.csv").write_text("older\n", encoding="ascii")
        (self.folder / "link").symlink_to("older.csv")
        self.assertEqual(self.judge("--", *OPTIONS, report="link")[0], 1)
        self.assertTrue((self.folder / "link").is_symlink())
        self.assertEqual(self.read("older.csv"), self.read("whole.csv"))

    def test_refuses_less_than_one_part(self):
        for parts in ("0", "-1", "half"):
            self.refuses("--parts", parts=parts)
        self.assertFalse((self.folder / "report.csv").exists())

    def test_tells_what_is_missing_and_gives_no_verdict(self):
        (self.folder / "report.csv").write_text("older\n", encoding="ascii")
        self.refuses("batch2.csv", payments="batch2.csv")
        self.refuses("there is no scheduler file", scheduler=str(self.folder / "missing.json"))
        self.assertEqual(self.read("report.csv"), b"older\n")

    def blocked(self):
        """A routine that gives no answer before the test is over."""
        over = threading.Event()
        self.addCleanup(over.set)
        return lambda *_, **__: over.wait()

    def test_gives_up_a_batch_whose_worker_makes_no_progress(self):
        with unittest.mock.patch("fiscalon.validate_batch", self.blocked()):
            status, out, err = self.judge(stall="2", parts="1")
        self.assertEqual((status, out), (75, ""), err)
        self.assertRegex(err, r"^judge_batch: part 1 of 1: \S+ \(\S+\) has made no progress for 2 seconds; ")
        for place in ("batch.csv", "batch.pc4", ".parts-"):
            self.assertIn(str(self.folder / place), err)
        self.assertEqual(sorted(self.folder.glob("*report*")) + sorted(self.folder.glob(".parts-*")), [])

    def test_waits_for_a_worker_that_makes_progress(self):
        stall = 4
        judge = self.example.fiscalon.validate_batch
        over = threading.Event()

        def slow(*arguments, on_progress, **options):
            end = time.monotonic() + 1.5 * stall
            while time.monotonic() < end:
                on_progress(None)
                over.wait(stall / 20)
            return judge(*arguments, on_progress=on_progress, **options)

        with unittest.mock.patch("fiscalon.validate_batch", slow):
            status, _, err = self.judge("--", *OPTIONS, stall=str(stall), parts="1")
        self.assertEqual(status, 1, err)
        self.assertEqual(self.read("report.csv"), self.read("whole.csv"))

    def test_gives_up_a_batch_whose_folder_does_not_answer_here(self):
        for step in ("place_of", "version_of"):
            with unittest.mock.patch.object(self.example, step, self.blocked()):
                self.refuses("has not answered this machine for 1 seconds", expected=75, stall="1")
        with unittest.mock.patch.object(self.example.os, "fsync", self.blocked()):
            self.refuses("has not answered this machine for 5 seconds", expected=75, stall="5")
        self.assertFalse((self.folder / "report.csv").exists())

    def test_names_the_parts_that_it_can_not_take_away(self):
        with unittest.mock.patch.object(self.example.shutil, "rmtree", self.blocked()):
            status, _, err = self.judge("--", *OPTIONS)
        self.assertEqual(status, 1, err)
        left, = self.folder.glob(".parts-*")
        self.assertTrue(err.endswith(f"judge_batch: {left} is left behind\n"), err)

    def test_refuses_a_part_that_was_judged_from_another_version(self):
        parts_of = self.example.Parts
        for name in ("batch.csv", "batch.pc4"):
            def parts_of_another(*arguments, name=name):
                (self.folder / name).write_bytes(self.read(name))
                return parts_of(*arguments)

            with unittest.mock.patch.object(self.example, "Parts", parts_of_another):
                self.refuses(f"sees another version of {self.folder / name}: ", "--", *OPTIONS)
        self.assertFalse((self.folder / "report.csv").exists())

    def test_refuses_a_part_whose_file_changes_meanwhile(self):
        judge = self.example.fiscalon.validate_batch

        def changing(*arguments, **options):
            verdicts = list(judge(*arguments, **options))
            (self.folder / "batch.pc4").write_bytes(self.read("batch.pc4"))
            return verdicts

        with unittest.mock.patch("fiscalon.validate_batch", changing):
            self.refuses("a file changed while it was read", "--", *OPTIONS, parts="1")

    def test_knows_one_version_from_another(self):
        ours = (100, 1_781_524_800_123_456_789, "abc")
        same = [ours, (100, 1_781_524_800_123_456_700, "abc"), (100, 1_781_524_800_000_000_000, "abc")]
        for there in same:
            self.assertTrue(self.example.same_version(there, ours) and self.example.same_version(ours, there), there)
        others = [(101, *ours[1:]), (*ours[:2], "abd"), (100, 1_781_524_801_000_000_000, "abc"),
                  (100, 1_781_524_800_123_456_788, "abc"), (100, 1_781_524_800_123_455_700, "abc")]
        for there in others:
            self.assertFalse(self.example.same_version(there, ours) or self.example.same_version(ours, there), there)

    def test_tells_ends_apart_and_does_not_read_what_lies_between(self):
        file = self.folder / "large"
        size = 1 << 40  # of holes, for the most part
        for end in (0, size - 1):
            with open(file, "wb") as out:
                out.truncate(size)
            os.utime(file, ns=(0, 0))
            holes = self.example.version_of(file)
            with open(file, "r+b") as out:
                out.seek(end)
                out.write(b"1")
            os.utime(file, ns=(0, 0))
            other = self.example.version_of(file)
            self.assertEqual(holes[:2], other[:2])
            self.assertFalse(self.example.same_version(holes, other))

    def test_no_verdict_counts_where_the_clock_is_set_back(self):
        for by, named, expected in ((86400, [], 2), (5, [], 2), (86400, ["--today", "2026-06-15"], 1), (-86400, [], 1)):
            start = time.mktime((2026, 6, 15, 12, 0, 0, 0, 0, -1))
            shown = [start - by, start]
            clock = types.SimpleNamespace(time=lambda: shown.pop() if shown else None, monotonic=time.monotonic)
            with unittest.mock.patch.object(self.example, "time", clock):
                status, _, err = self.judge("--", "--locale", "en-CA", *named)
            self.assertEqual(status, expected, err)
            said = f"set back by {by} seconds while the batch was judged as of 2026-06-15; "
            self.assertEqual(said in err, expected == 2, err)
            self.assertEqual((self.folder / "report.csv").exists(), expected != 2)
            (self.folder / "report.csv").unlink(missing_ok=True)

    def test_puts_a_part_in_the_folder_when_it_is_whole(self):
        judge = self.example.fiscalon.validate_batch
        seen = []

        def looking(*arguments, **options):
            yield from judge(*arguments, **options)
            seen.extend(file.name for file in self.folder.glob(".parts-*/*"))

        with unittest.mock.patch("fiscalon.validate_batch", looking):
            status, _, err = self.judge("--", *OPTIONS, parts="1")
        self.assertEqual(status, 1, err)
        self.assertEqual(len(seen), 1)
        self.assertNotIn("1", seen)
        self.assertEqual(self.read("report.csv"), self.read("whole.csv"))

    def test_refuses_what_is_no_file(self):
        os.mkfifo(self.folder / "pipe")
        self.refuses("parts are cut out of files", payments="pipe")

    def test_refuses_a_day_that_is_none(self):
        for named in ("", "today", "2026-06-31"):
            self.refuses(f"{named!r} is no date", "--", f"--today={named}")

    def test_refuses_options_that_it_decides_itself(self):
        for option in ("--report", "--faults", "--part", "--max-bad", "--jobs"):
            self.refuses(option, "--", option, "1")


if __name__ == "__main__":
    unittest.main()
