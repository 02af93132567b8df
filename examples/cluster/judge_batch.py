#!/usr/bin/env python3
"""Judges a batch on a Dask cluster, in parts.

    judge_batch.py --scheduler-file cluster.json --parts 8 PAYMENTS RECORDS REPORT [-- OPTION...]

All workers must see the files under the same names. Each part is a run of `fiscalon validate --part I/N`, which puts its
report beside REPORT; joined in order they are the report that one run would write. The options behind `--` go to
`fiscalon`, such as --locale en-CA. All parts are judged as of one day, today unless --today is among them. A part whose
worker dies is given to another one.

Exit status: that of `fiscalon validate`: 0 all valid, 1 something is not valid, 2 no verdict counts, and no report.
"""

import argparse
import collections
import csv
import datetime
import os
import shutil
import subprocess
import sys
import tempfile

from distributed import Client, KilledWorker, as_completed


class Unusable(Exception):
    """A part could not be judged; the message is what the program said."""


def judge(number, parts, program, payments, records, folder, options):
    """Runs on a worker. The counts of one part; its report lies in the folder then, whole."""
    report = os.path.join(folder, f"{number}.csv")
    run = subprocess.run([program, "validate", "--payments", payments, "--records", records, "--part", f"{number}/{parts}",
                          "--jobs", "1", "--report", report, *options], capture_output=True, text=True, check=False)
    if run.returncode not in (0, 1):
        raise Unusable(f"part {number} of {parts}: {run.stderr.strip() or run.returncode}")
    with open(report, encoding="utf-8", newline="") as rows:
        verdicts = csv.reader(rows)
        if number == 1:
            next(verdicts)
        return collections.Counter(reason for _, _, _, reason in verdicts)


def join(folder, parts, report):
    """The parts' reports in order, in the place of the report when all is there."""
    whole = os.path.join(folder, "whole.csv")
    with open(whole, "wb") as out:
        for number in range(1, parts + 1):
            with open(os.path.join(folder, f"{number}.csv"), "rb") as part:
                shutil.copyfileobj(part, out)
        out.flush()
        os.fsync(out.fileno())
    os.replace(whole, report)


def summary(counts):
    """What one run says: how many payments are valid, and the reasons, the most frequent first."""
    total = sum(counts.values())
    invalid = total - counts.pop("", 0)
    lines = [f"{total} payments: " + (f"{total - invalid} valid, {invalid} invalid" if invalid else "all valid")]
    ranked = sorted(counts.items(), key=lambda entry: (-entry[1], entry[0]))
    lines += [f"{count:12}  {reason}" for reason, count in ranked[:20]]
    return "\n".join(lines), invalid


def main():
    parser = argparse.ArgumentParser(description="Judges a batch on a Dask cluster, in parts.")
    parser.add_argument("--scheduler-file", required=True)
    parser.add_argument("--parts", type=int, required=True)
    parser.add_argument("--program", default="fiscalon")
    parser.add_argument("payments")
    parser.add_argument("records")
    parser.add_argument("report")
    parser.add_argument("options", nargs="*")
    arguments = parser.parse_args()
    report = os.path.abspath(arguments.report)
    options = arguments.options
    if "--today" not in options:
        options = ["--today", datetime.date.today().isoformat(), *options]
    counts = collections.Counter()
    # The parts lie where the report will: the folder is shared, and a file can take its place in one step.
    with tempfile.TemporaryDirectory(dir=os.path.dirname(report), prefix=".parts-") as folder:
        with Client(scheduler_file=arguments.scheduler_file) as client:
            runs = [client.submit(judge, number, arguments.parts, arguments.program, os.path.abspath(arguments.payments),
                                  os.path.abspath(arguments.records), folder, options, pure=False)
                    for number in range(1, arguments.parts + 1)]
            try:
                for done, run in enumerate(as_completed(runs), 1):
                    counts += run.result()
                    print(f"{done} of {arguments.parts} parts", file=sys.stderr, flush=True)
            except (Unusable, KilledWorker) as problem:
                client.cancel(runs)
                print(f"judge_batch: {problem}", file=sys.stderr)
                return 2
        join(folder, arguments.parts, report)
    text, invalid = summary(counts)
    print(text)
    return 1 if invalid else 0


if __name__ == "__main__":
    sys.exit(main())
