#!/usr/bin/env python3
"""Times `fiscalon show` on the records of a batch, as text and as JSON, against `cat` and `jq -c .` on the same output.

Everything is written into a pipe that is read to its end. The runs of all programs take turns, so that a machine that
changes its speed changes it for all of them. Quote the ratios and the records per second of processor time.

    bench/show_speed.py build/release/tools/fiscalon/fiscalon [--payments N] [--runs N] [--jq-runs N]
"""

import argparse
import os
import resource
import shutil
import statistics
import subprocess
import tempfile
import time

TODAY = ["--today", "2026-06-15", "--locale", "en-CA"]


def run(command):
    """The wall and processor seconds of a command, and the seconds to the first byte of its output."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.PIPE, bufsize=0)
    piece = bytearray(1 << 20)
    process.stdout.readinto(piece)
    first = time.perf_counter() - start
    while process.stdout.readinto(piece):
        pass
    # Something wrong in a record is status 1.
    if process.wait() > 1:
        raise SystemExit(f"{command} failed")
    wall = time.perf_counter() - start
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return wall, after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime, first


def largest_memory(command):
    """The largest resident memory of a command in MiB, asked for as long as it prints."""
    process = subprocess.Popen(command, stdout=subprocess.PIPE, bufsize=0)
    piece = bytearray(1 << 20)
    largest = 0
    while process.stdout.readinto(piece):
        with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
            for line in status:
                if line.startswith("VmHWM:"):
                    largest = int(line.split()[1])
    process.wait()
    return largest / 1024


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--payments", type=int, default=100_000)
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--jq-runs", type=int, default=1)
    arguments = parser.parse_args()
    program = os.path.abspath(arguments.program)
    with tempfile.TemporaryDirectory() as folder:
        batch = os.path.join(folder, "batch")
        subprocess.run([program, *TODAY, "generate", "--payments", str(arguments.payments), "--screen", "03", "--out",
                        batch], stdout=subprocess.DEVNULL, check=True)
        records = batch + ".pc4"
        with open(records, "rb") as lines:
            count = sum(1 for _ in lines)
        show = [program, *TODAY, "show", records]
        text, lines = batch + ".txt", batch + ".jsonl"
        for path, options in ((text, []), (lines, ["--json-lines"])):
            with open(path, "wb") as output:
                subprocess.run([*show, *options], stdout=output, check=True)
        commands = {
            "show": show,
            "cat of the same text": ["cat", text],
            "show --json-lines": [*show, "--json-lines"],
            "show --json": [*show, "--json"],
            "show --json-lines --screen 03": [*show, "--json-lines", "--screen", "03"],
            "cat of the same lines": ["cat", lines],
        }
        if shutil.which("jq") and arguments.jq_runs > 0:
            commands["jq -c . on the same lines"] = ["jq", "-c", ".", lines]
        times = {name: [] for name in commands}
        for i in range(arguments.runs):
            for name, command in commands.items():
                if not name.startswith("jq") or i < arguments.jq_runs:
                    times[name].append(run(command))
        print(f"{count} records, {os.path.getsize(records) / 1e6:.0f} MB, "
              f"as text {os.path.getsize(text) / 1e6:.0f} MB, as JSON lines "
              f"{os.path.getsize(lines) / 1e6:.0f} MB, {arguments.runs} runs, medians")
        for name, measured in times.items():
            wall, processor, first = (statistics.median(column) for column in zip(*measured))
            print(f"{name:30}{wall:8.2f} s wall{processor:8.2f} s processor"
                  f"{count / processor / 1e6:8.2f} million a second{first * 1e3:8.1f} ms to the first byte")
        for name, options in (("text", []), ("JSON lines", ["--json-lines"]), ("JSON", ["--json"])):
            print(f"memory for {name}: {largest_memory([*show, *options]):.1f} MiB")


if __name__ == "__main__":
    main()
