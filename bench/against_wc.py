#!/usr/bin/env python3
"""Times `fiscalon validate` on a whole batch against `wc -l` on the same record file, as whole processes.

The runs of all programs take turns, so that a machine that changes its speed changes it for all of them. Quote
the ratios, not the milliseconds.

    bench/against_wc.py build/release/tools/fiscalon/fiscalon [--payments N] [--screen 03|20] [--runs N]
                        [--pieces BYTES] [--plain build/release/bench/plain_batch]

A file system that keeps what was written at once in one piece of memory keeps the records in such pieces.
"""

import argparse
import os
import resource
import statistics
import subprocess
import tempfile
import threading
import time

TODAY = ["--today", "2026-06-15", "--locale", "en-CA"]


def run(command):
    """The wall and processor seconds of a command."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    start = time.perf_counter()
    subprocess.run(command, stdout=subprocess.DEVNULL, check=True)
    wall = time.perf_counter() - start
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return wall, after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime


def own_memory(command):
    """The largest resident memory of a command in KiB, without the pages of mapped files."""
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL)
    largest = 0

    def watch():
        nonlocal largest
        while process.poll() is None:
            try:
                with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
                    for line in status:
                        if line.startswith("RssAnon:"):
                            largest = max(largest, int(line.split()[1]))
            except OSError:
                return

    watcher = threading.Thread(target=watch)
    watcher.start()
    process.wait()
    watcher.join()
    return largest


def write_again(path, piece):
    """Makes a file anew, so many bytes at a time."""
    with open(path, "rb") as old, open(path + ".new", "wb", buffering=0) as new:
        while data := old.read(piece):
            new.write(data)
    os.replace(path + ".new", path)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--payments", type=int, default=1_000_000)
    parser.add_argument("--screen", default="03")
    parser.add_argument("--runs", type=int, default=11)
    parser.add_argument("--pieces", type=int, help="write the record file once more, so many bytes at a time")
    parser.add_argument("--plain")
    arguments = parser.parse_args()
    program = os.path.abspath(arguments.program)
    with tempfile.TemporaryDirectory() as folder:
        batch = os.path.join(folder, "batch")
        files = ["--payments", batch + ".csv", "--records", batch + ".pc4"]
        subprocess.run([program, *TODAY, "generate", "--payments", str(arguments.payments), "--screen",
                        arguments.screen, "--out", batch], stdout=subprocess.DEVNULL, check=True)
        if arguments.pieces:
            write_again(batch + ".pc4", arguments.pieces)
        commands = {
            "wc -l": ["wc", "-l", batch + ".pc4"],
            "validate --jobs 1": [program, *TODAY, "validate", *files, "--jobs", "1"],
            "validate --jobs 2": [program, *TODAY, "validate", *files, "--jobs", "2"],
        }
        times = {name: [] for name in commands}
        for _ in range(arguments.runs):
            for name, command in commands.items():
                times[name].append(run(command))
        print(f"{arguments.payments} payments of screen {arguments.screen}, "
              f"{os.path.getsize(batch + '.pc4') / 1e6:.0f} MB of records, {arguments.runs} runs, medians")
        base = times["wc -l"]
        for name, measured in times.items():
            wall = statistics.median(seconds for seconds, _ in measured)
            processor = statistics.median(seconds for _, seconds in measured)
            wall_ratio = statistics.median(one[0] / other[0] for one, other in zip(measured, base))
            processor_ratio = statistics.median(one[1] / other[1] for one, other in zip(measured, base))
            print(f"{name:20}{wall * 1e3:8.1f} ms wall{processor * 1e3:8.1f} ms processor"
                  f"   {wall_ratio:6.2f} and {processor_ratio:6.2f} times wc -l")
        one, two = (statistics.median(seconds for seconds, _ in times[f"validate --jobs {jobs}"]) for jobs in (1, 2))
        print(f"two jobs: {one / two:.2f} times as fast as one")
        print(f"memory beyond the mapped files: {own_memory(commands['validate --jobs 2']) / 1024:.1f} MiB")
        if arguments.plain:
            wall, processor = run([arguments.plain, batch + ".csv", batch + ".pc4"])
            print(f"plain loop          {wall * 1e3:8.1f} ms wall{processor * 1e3:8.1f} ms processor"
                  f"   {processor / statistics.median(seconds for _, seconds in times['validate --jobs 1']):6.1f}"
                  f" times validate --jobs 1")


if __name__ == "__main__":
    main()
