#!/usr/bin/env python3
"""Judges a batch on a Dask cluster, in parts.

    judge_batch.py --scheduler-file cluster.json --parts 8 PAYMENTS RECORDS REPORT [-- OPTION...]

All workers must see the files under the same names, and have the package fiscalon. Each part is judged in the process of
its worker, which puts its report beside REPORT; joined in order they are the report that `fiscalon validate` would write.
A process judges as of one day at a time, so workers have one thread each (`dask worker --nthreads 1`).
Behind `--` stand options of that: --today, --locale, --json-lines. All parts are judged as of one day, today unless
--today is among them. A part whose worker dies is given to another one.

Exit status: that of `fiscalon validate`: 0 all valid, 1 something is not valid, 2 no verdict counts, and no report.
"""

import argparse
import collections
import csv
import datetime
import json
import os
import shutil
import signal
import sys
import tempfile
import time

import fiscalon
from distributed import Client, as_completed

UNUSABLE = 2


class Unusable(Exception):
    """No verdict counts; the message says why."""


def judge(number, parts, payments, records, folder, options):
    """Runs on a worker. How often each reason was given in one part, "" for a valid payment; the part's report lies in
    the folder then, whole."""
    counts = collections.Counter()
    try:
        fiscalon.use_fixed_clock(datetime.date.fromisoformat(options.today))
        fiscalon.use_locale(options.locale)
        with open(os.path.join(folder, str(number)), "w", encoding="utf-8", newline="") as report:
            rows = csv.writer(report, lineterminator="\n")
            if number == 1 and not options.json_lines:
                rows.writerow(("seq", "screen", "valid", "reason"))
            for verdict in fiscalon.validate_batch(payments, records, part=(number, parts), jobs=1):
                seq, screen, reason = verdict.seq, verdict.screen, verdict.reason
                counts[reason] += 1
                if options.json_lines:
                    row = {"seq": seq, "screen": screen, "valid": not reason, "reason": reason}
                    report.write(json.dumps(row, ensure_ascii=False, separators=(",", ":")) + "\n")
                else:
                    rows.writerow((seq, screen, "no" if reason else "yes", reason))
    except fiscalon.BatchError as error:
        raise Unusable(f"part {number} of {parts}: " + "\n".join(map(str, error.problems))) from None
    except fiscalon.FiscalonError as error:
        raise Unusable(f"part {number} of {parts}: {error.description}") from None
    return counts


def judge_all(arguments, options, payments, records, folder):
    """How often each reason was given in the whole batch."""
    counts = collections.Counter()
    with Client(scheduler_file=arguments.scheduler_file, timeout=arguments.timeout) as client:
        runs = [client.submit(judge, number, arguments.parts, payments, records, folder, options, pure=False)
                for number in range(1, arguments.parts + 1)]
        try:
            for done, run in enumerate(as_completed(runs), 1):
                counts += run.result()
                print(f"{done} of {arguments.parts} parts", file=sys.stderr, flush=True)
        except BaseException:
            client.cancel(runs)
            raise
    return counts


def wait_for(scheduler_file, timeout):
    """A scheduler that has just been started writes its file when it can be reached."""
    end = time.monotonic() + timeout
    while not os.path.isfile(scheduler_file):
        if time.monotonic() >= end:
            raise Unusable(f"there is no scheduler file {scheduler_file}; dask-scheduler --scheduler-file makes it")
        time.sleep(0.02)


def place_of(report, inputs):
    """Where the report will lie: behind a link what it leads to. Refused where something else would be lost."""
    place = os.path.realpath(report)
    if not os.path.isdir(os.path.dirname(place)):
        raise Unusable(f"{report} can't be written: there is no folder {os.path.dirname(place)}")
    if not os.path.lexists(place):
        return place
    if not os.path.isfile(place):
        raise Unusable(f"{report} can't be written: it is no file")
    for name in inputs:
        if os.path.exists(name) and os.path.samefile(name, place):
            raise Unusable(f"{report} would take the place of {name}, which is read")
    if not os.access(place, os.W_OK):
        raise Unusable(f"{report} can't be written: Permission denied")
    return place


def join(folder, parts, report):
    """The parts' reports in order, in the place of the report when all is there."""
    whole = os.path.join(folder, "whole")
    with open(whole, "wb") as out:
        for number in range(1, parts + 1):
            with open(os.path.join(folder, str(number)), "rb") as part:
                shutil.copyfileobj(part, out)
        out.flush()
        os.fsync(out.fileno())
    if os.path.exists(report):
        shutil.copymode(report, whole)
    os.replace(whole, report)


def summary(counts):
    """What one run says: how many payments are valid, and the reasons, the most frequent first."""
    total = sum(counts.values())
    invalid = total - counts.pop("", 0)
    lines = [f"{total} payment{'' if total == 1 else 's'}: " + (f"{total - invalid} valid, {invalid} invalid" if invalid else "all valid")]
    ranked = sorted(counts.items(), key=lambda entry: (-entry[1], entry[0]))
    lines += [f"{count:12}{(count * 1000 // invalid + 5) // 10:6} %  {reason}" for reason, count in ranked[:20]]
    return "\n".join(lines), invalid


def at_least_one(text):
    number = int(text)
    if number < 1:
        raise argparse.ArgumentTypeError("there must be at least one part")
    return number


def parsed(words):
    """The arguments of this program, and those for `fiscalon`. What both would decide is this program's."""
    parser = argparse.ArgumentParser(description="Judges a batch on a Dask cluster, in parts.", allow_abbrev=False)
    parser.add_argument("--scheduler-file", required=True, help="where the scheduler wrote how it is reached")
    parser.add_argument("--parts", type=at_least_one, required=True)
    parser.add_argument("--timeout", type=float, default=30, help="seconds to wait for the scheduler (30)")
    parser.add_argument("payments")
    parser.add_argument("records")
    parser.add_argument("report")
    parser.epilog = "Behind -- may stand --today DATE, --locale NAME and --json-lines."
    cut = words.index("--") if "--" in words else len(words)
    arguments = parser.parse_args(words[:cut])
    behind = argparse.ArgumentParser(prog=f"{parser.prog} ... --", add_help=False, allow_abbrev=False)
    behind.add_argument("--today", default=datetime.date.today().isoformat())
    behind.add_argument("--locale", default="system")
    behind.add_argument("--json-lines", action="store_true")
    options = behind.parse_args(words[cut + 1:])
    return arguments, options


def run(words):
    arguments, options = parsed(words)
    inputs = [os.path.abspath(arguments.payments), os.path.abspath(arguments.records)]
    report = place_of(arguments.report, inputs)
    wait_for(arguments.scheduler_file, arguments.timeout)
    # The parts lie where the report will: the folder is shared, and a file can take its place in one step.
    with tempfile.TemporaryDirectory(dir=os.path.dirname(report), prefix=".parts-") as folder:
        counts = judge_all(arguments, options, *inputs, folder)
        join(folder, arguments.parts, report)
    text, invalid = summary(counts)
    print(text)
    return 1 if invalid else 0


def main():
    try:
        return run(sys.argv[1:])
    except Unusable as problem:
        print(f"judge_batch: {problem}", file=sys.stderr)
    except KeyboardInterrupt:
        # A shell's loop ends with a program that a signal has ended, not with one that gives a status.
        signal.signal(signal.SIGINT, signal.SIG_DFL)
        os.kill(os.getpid(), signal.SIGINT)
    except Exception as problem:  # whatever a cluster may fail with, it is no verdict
        print(f"judge_batch: {type(problem).__name__}: {problem}", file=sys.stderr)
    return UNUSABLE


if __name__ == "__main__":
    sys.exit(main())
