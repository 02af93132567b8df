#!/usr/bin/env python3
"""Times what a host in Python judges a whole batch in against `fiscalon validate`, in turns.

    PYTHONPATH=bindings/python FISCALON_LIBRARY=build/release/bindings/c/libfiscalon-c.so.1 \\
        bench/python_batch.py build/release/tools/fiscalon/fiscalon [--payments N] [--screen 03|20] [--runs N]

Of Python it is the time within the interpreter, once the package is there: a host starts once, for many batches. The
program's is that of the whole process. Quote the ratios, not the milliseconds."""

import argparse
import datetime
import os
import resource
import statistics
import subprocess
import sys
import tempfile
import time

import fiscalon

TODAY = ["--today", "2026-06-15", "--locale", "en-CA"]


def measured(call, who):
    """The wall and processor seconds of a call."""
    before, start = resource.getrusage(who), time.perf_counter()
    call()
    wall, after = time.perf_counter() - start, resource.getrusage(who)
    return wall, after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--payments", type=int, default=1_000_000)
    parser.add_argument("--screen", default="03")
    parser.add_argument("--runs", type=int, default=11)
    arguments = parser.parse_args()
    program = os.path.abspath(arguments.program)
    fiscalon.use_fixed_clock(datetime.date(2026, 6, 15))
    fiscalon.use_locale("en-CA")
    with tempfile.TemporaryDirectory() as folder:
        payments, records = os.path.join(folder, "batch.csv"), os.path.join(folder, "batch.pc4")
        subprocess.run([program, *TODAY, "generate", "--payments", str(arguments.payments),
                        "--screen", arguments.screen, "--out", os.path.join(folder, "batch")],
                       stdout=subprocess.DEVNULL, check=True)

        def validate(jobs, *more):
            command = [program, *TODAY, "validate", "--payments", payments, "--records", records, "--jobs", str(jobs),
                       *more]
            run = lambda: subprocess.run(command, stdout=subprocess.DEVNULL, check=True)
            return lambda: measured(run, resource.RUSAGE_CHILDREN)

        def count(jobs):
            return lambda: measured(lambda: fiscalon.count_batch(payments, records, jobs=jobs), resource.RUSAGE_SELF)

        def iterate(jobs):
            def walk():
                for verdict in fiscalon.validate_batch(payments, records, jobs=jobs):
                    pass

            return lambda: measured(walk, resource.RUSAGE_SELF)

        def ask(jobs):
            def walk():
                for verdict in fiscalon.validate_batch(payments, records, jobs=jobs):
                    if not verdict.valid:
                        verdict.reason

            return lambda: measured(walk, resource.RUSAGE_SELF)

        rows = {}
        for jobs in (1, 2):
            base = f"validate --jobs {jobs}"
            rows[base] = (validate(jobs), base)
            rows[f"{base} --report"] = (validate(jobs, "--report", os.path.join(folder, "report.csv")), base)
            rows[f"count_batch, jobs={jobs}"] = (count(jobs), base)
            rows[f"validate_batch, jobs={jobs}"] = (iterate(jobs), base)
            rows[f"  each asked, jobs={jobs}"] = (ask(jobs), base)
        times = {name: [] for name in rows}
        for _ in range(arguments.runs):
            for name, (take, _) in rows.items():
                times[name].append(take())
    print(f"{arguments.payments} payments of screen {arguments.screen}, {arguments.runs} runs, medians, "
          f"Python {sys.version.split()[0]}")
    for name, (_, base) in rows.items():
        wall, processor = (statistics.median(each) for each in zip(*times[name]))
        ratios = [statistics.median(one[each] / other[each] for one, other in zip(times[name], times[base]))
                  for each in (0, 1)]
        print(f"{name:26}{wall * 1e3:8.1f} ms wall{processor * 1e3:8.1f} ms processor   "
              f"{ratios[0]:6.2f} and {ratios[1]:6.2f} times {base}")


if __name__ == "__main__":
    main()
