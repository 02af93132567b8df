#!/usr/bin/env python3
"""A batch that is judged in parts by other programs gives the report of one run: on a Dask cluster, one of whose workers
is killed in the middle, and by the guide's command for GNU parallel."""

import os
import signal
import subprocess
import sys
import tempfile
import textwrap
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[3]
EXAMPLE = TREE / "examples/cluster/judge_batch.py"
GUIDE = TREE / "docs/batch-guide.md"
PROGRAM = os.environ["FISCALON_PROGRAM"]
OPTIONS = ["--today", "2026-06-15", "--locale", "en-CA"]

# Stands in for the program on the workers: the first run tells which worker it is on, and waits to be let go.
STALLING_ONCE = """\
#!/bin/sh
cd "$(dirname "$0")"
if mkdir first 2>/dev/null; then
  echo $PPID >worker
  read -r line <let-go
fi
exec '{program}' "$@"
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
        stalling = self.folder / "stalling"
        stalling.write_text(STALLING_ONCE.format(program=PROGRAM), encoding="utf-8")
        stalling.chmod(0o755)
        self.start("distributed.cli.dask_scheduler", "--port", "0", "--host", "127.0.0.1")
        workers = [self.start("distributed.cli.dask_worker", "--nthreads", "1", "--no-nanny", "--memory-limit", "0")
                   for _ in range(2)]
        judging = subprocess.Popen([sys.executable, EXAMPLE, "--scheduler-file", "cluster.json", "--parts", "5", "--program",
                                    stalling, "batch.csv", "batch.pc4", "report.csv", "--", *OPTIONS], cwd=self.folder,
                                   env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(judging.kill)
        # Reading waits until a worker is in the middle of a part.
        worker = int((self.folder / "worker").read_text(encoding="ascii"))
        self.assertIn(worker, [each.pid for each in workers])
        os.kill(worker, signal.SIGKILL)
        out, err = judging.communicate(timeout=60)
        # What the dead worker had begun is of no use to anyone; it ends, since nothing else may be left running.
        (self.folder / "let-go").write_text("go\n", encoding="ascii")
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


if __name__ == "__main__":
    unittest.main()
