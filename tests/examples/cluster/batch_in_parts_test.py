#!/usr/bin/env python3
"""A batch that is judged in parts by other programs gives the report of one run: on a Dask cluster, one of whose workers
is killed in the middle, and by the guide's command for GNU parallel."""

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
    try:
        os.mkdir("{folder}/first")
    except FileExistsError:
        return judge(*arguments, **options)
    with open("{folder}/worker", "w") as told:
        told.write(str(os.getpid()))
    open("{folder}/let-go").read()


fiscalon.validate_batch = stalling
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
        whole = self.run_program("validate", "--payments", "batch.csv", "--records", "batch.pc4", "--report", "whole.csv")
        self.first_line = whole.stdout.splitlines()[0]
        self.whole = self.read("whole.csv")
        self.environment = os.environ | {"PATH": os.path.dirname(PROGRAM) + ":" + os.environ["PATH"], "HOME": self.place.name,
                                         "DASK_DISTRIBUTED__WORKER__MEMORY__TERMINATE": "False"}

    def run_program(self, *arguments):
        return subprocess.run([PROGRAM, *OPTIONS, *arguments], cwd=self.folder, capture_output=True, text=True, check=False)

    def read(self, name):
        return (self.folder / name).read_bytes()

    def start(self, module, *arguments):
        log = open(self.folder / "cluster.log", "ab")
        self.addCleanup(log.close)
        process = subprocess.Popen([sys.executable, "-m", module, "--scheduler-file", "cluster.json", "--no-dashboard",
                                    *arguments], cwd=self.folder, env=self.environment, stdout=log, stderr=log)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def test_a_cluster_that_loses_a_worker_gives_the_report_of_one_run(self):
        os.mkfifo(self.folder / "let-go")
        os.mkfifo(self.folder / "worker")
        stalling = self.folder / "stalling.py"
        stalling.write_text(STALLING_ONCE.format(folder=self.folder), encoding="utf-8")
        self.start("distributed.cli.dask_scheduler", "--port", "0", "--host", "127.0.0.1")
        workers = [self.start("distributed.cli.dask_worker", "--nthreads", "1", "--no-nanny", "--memory-limit", "0", "--preload", stalling)
                   for _ in range(2)]
        judging = subprocess.Popen([sys.executable, EXAMPLE, "--scheduler-file", "cluster.json", "--parts", "5",
                                    "batch.csv", "batch.pc4", "report.csv", "--", *OPTIONS], cwd=self.folder,
                                   env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(judging.kill)
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

    def test_the_command_for_gnu_parallel_gives_the_report_of_one_run(self):
        command = command_of_guide("seq 8 | parallel").replace("--jobs 1", " ".join(["--jobs 1", *OPTIONS]))
        ended = subprocess.run(["bash", "-c", command], cwd=self.folder, env=self.environment, capture_output=True, text=True,
                               check=False)
        self.assertEqual(ended.returncode, 0, ended.stderr)
        self.assertEqual(self.read("report.csv"), self.whole)
        # Bad payments are no failure of a part.
        statuses = [line.split("\t")[6] for line in (self.folder / "parts.log").read_text().splitlines()[1:]]
        self.assertEqual(len(statuses), 8)
        self.assertLessEqual(set(statuses), {"0", "1"})


class JudgeBatch(unittest.TestCase):
    """What the example refuses, and what it says then. One worker in this process stands for the cluster."""

    @classmethod
    def setUpClass(cls):
        logging.getLogger("distributed.worker").setLevel(logging.ERROR)
        cls.place = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.place.cleanup)
        cls.cluster = distributed.LocalCluster(n_workers=1, threads_per_worker=1, processes=False, dashboard_address=None,
                                               host="127.0.0.1", protocol="tcp")
        cls.addClassCleanup(cls.cluster.close)
        with distributed.Client(cls.cluster) as client:
            client.write_scheduler_file(os.path.join(cls.place.name, "cluster.json"))
        loader = importlib.util.spec_from_file_location("judge_batch", EXAMPLE)
        cls.example = importlib.util.module_from_spec(loader)
        loader.loader.exec_module(cls.example)

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(dir=self.place.name))
        subprocess.run([PROGRAM, *OPTIONS, "generate", "--payments", "20", "--screen", "03", "--bad", "0.2", "--out", "batch"],
                       cwd=self.folder, check=True, capture_output=True)
        whole = subprocess.run([PROGRAM, *OPTIONS, "validate", "--payments", "batch.csv", "--records", "batch.pc4",
                                "--report", "whole.csv"], cwd=self.folder, check=False, capture_output=True, text=True)
        self.assertEqual(whole.returncode, 1)
        self.said = whole.stdout

    def judge(self, *behind, payments="batch.csv", report="report.csv", parts="3", scheduler=None):
        words = ["--timeout", "5" if scheduler is None else "0", "--scheduler-file", scheduler or os.path.join(self.place.name, "cluster.json"), "--parts", parts,
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

    def refuses(self, complaint, *behind, **judged):
        status, out, err = self.judge(*behind, **judged)
        self.assertEqual((status, out), (2, ""), err)
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

    def test_refuses_options_that_it_decides_itself(self):
        for option in ("--report", "--faults", "--part", "--max-bad", "--jobs"):
            self.refuses(option, "--", option, "1")


if __name__ == "__main__":
    unittest.main()
