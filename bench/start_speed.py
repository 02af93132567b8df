#!/usr/bin/env python3
"""Times how long programs take to start, in turns: `fiscalon` for the least that it is asked for against `/bin/true`,
and the payment desk until its window is painted against a bare window of Qt, both on Qt's "offscreen" platform.

Quote the ratios. Processor time is what a program needs; on a machine with other work the rest is waiting.

    bench/start_speed.py build/release/tools/fiscalon/fiscalon [--desk build/release/bench] [--runs N]
"""

import argparse
import os
import statistics
import time

SCENARIO = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "examples", "due_date_amount.scenario")


def run(command, environment):
    """The wall and processor milliseconds of a command; where it prints the latter, those until then."""
    read, write = os.pipe()
    start = time.perf_counter()
    process = os.posix_spawn(command[0], command, environment, file_actions=[(os.POSIX_SPAWN_DUP2, write, 1)])
    os.close(write)
    printed = os.read(read, 1 << 16)
    until_printed = time.perf_counter() - start
    while os.read(read, 1 << 16):
        pass
    os.close(read)
    _, status, usage = os.wait4(process, 0)
    wall = time.perf_counter() - start
    if status != 0:
        raise SystemExit(f"{command} failed: {printed.decode()}")
    if os.path.basename(command[0]).endswith("_start"):
        return until_printed * 1e3, float(printed)
    return wall * 1e3, (usage.ru_utime + usage.ru_stime) * 1e3


def compare(commands, runs, environment):
    """Runs the commands in turns; the first is what the others are held against."""
    times = {name: [] for name in commands}
    for _ in range(runs):
        for name, command in commands.items():
            times[name].append(run(command, environment))
    first = None
    for name, measured in times.items():
        walls, processors = zip(*measured)
        taken = {"median": statistics.median(walls), "least": min(walls), "processor": statistics.median(processors)}
        first = first or taken
        print(f"{name:24}" + "; ".join(f"{what}{each:8.2f} ms, {each / first[what]:5.2f} times"
                                       for what, each in taken.items()))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--desk", help="the folder of desk_start and bare_qt_start")
    parser.add_argument("--runs", type=int, default=200)
    arguments = parser.parse_args()
    program = os.path.abspath(arguments.program)
    compare({
        "/bin/true": ["/bin/true"],
        "fiscalon --version": [program, "--version"],
        "fiscalon screens": [program, "screens"],
        "fiscalon play one file": [program, "play", SCENARIO],
    }, arguments.runs, os.environ)
    if arguments.desk:
        compare({name.replace("_", " "): [os.path.join(os.path.abspath(arguments.desk), name)]
                 for name in ("bare_qt_start", "desk_start")},
                max(arguments.runs // 10, 1),
                {**os.environ, "QT_QPA_PLATFORM": "offscreen", "QT_LOGGING_RULES": "*.warning=false"})


if __name__ == "__main__":
    main()
