#!/usr/bin/env python3
"""Times a batch on a cluster of 1, 2, 4 and 8 workers of this machine, fits a model of a cluster to the runs of one and
two workers, holds it against those of four and eight, and says what it expects of more workers, each with a core of its
own. Then what a part reads of the files, and what it costs that they lie on a server.

    FISCALON_LIBRARY=build/release/bindings/c/libfiscalon-c.so.1 \\
        bench/cluster_speed.py build/release/tools/fiscalon/fiscalon [--payments N] [--runs N]

Runs take turns. Quote the ratios, not the seconds. Needs Dask (python3-distributed); the server, sshfs and
openssh-sftp-server.
"""

import argparse
import collections
import contextlib
import ctypes
import mmap
import os
import statistics
import subprocess
import sys
import tempfile
import time

from slow_folder import slow_folder

TREE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OPTIONS = ["--today", "2026-06-15", "--locale", "en-CA"]
CORES = len(os.sched_getaffinity(0))

Batch = collections.namedtuple("Batch", "name list records")
Run = collections.namedtuple("Run", "workers parts batch")


def seconds_of(command, folder):
    start = time.perf_counter()
    subprocess.run(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
    return time.perf_counter() - start


def make(program, folder, payments):
    name = os.path.join(folder, f"batch{payments}")
    subprocess.run([program, *OPTIONS, "generate", "--payments", str(payments), "--screen", "03", "--out", name],
                   stdout=subprocess.DEVNULL, check=True)
    return Batch(name, os.path.getsize(name + ".csv"), os.path.getsize(name + ".pc4"))


# The model: how long a batch takes is a sum of these, each times a cost that is fitted.
TERMS = {
    "start and end of the program": lambda run, cores: 1,
    "handing out a part": lambda run, cores: run.parts,
    "beginning a part": lambda run, cores: run.parts / cores,
    "reading the list, in each part": lambda run, cores: run.parts * run.batch.list / cores,
    "judging": lambda run, cores: run.batch.records / cores,
    "gathering the report": lambda run, cores: run.batch.records,
}


def terms(run, cores):
    cores = min(run.workers, cores)
    return [term(run, cores) for term in TERMS.values()]


def solved(matrix, right):
    """The solution of linear equations, by elimination."""
    rows = [[*row, value] for row, value in zip(matrix, right)]
    for i in range(len(rows)):
        pivot = max(range(i, len(rows)), key=lambda k: abs(rows[k][i]))
        rows[i], rows[pivot] = rows[pivot], rows[i]
        for k in range(len(rows)):
            if k != i:
                factor = rows[k][i] / rows[i][i]
                rows[k] = [a - factor * b for a, b in zip(rows[k], rows[i])]
    return [row[-1] / row[i] for i, row in enumerate(rows)]


def fitted(measured):
    """The costs that come nearest to the measured times, relatively; what would be less than nothing costs nothing."""
    used = list(range(len(TERMS)))
    while True:
        rows = [[terms(run, CORES)[i] / seconds for i in used] for run, seconds in measured.items()]
        costs = solved([[sum(row[i] * row[k] for row in rows) for k in range(len(used))] for i in range(len(used))],
                       [sum(row[i] for row in rows) for i in range(len(used))])
        least = min(range(len(used)), key=lambda i: costs[i] * max(terms(run, CORES)[used[i]] for run in measured))
        if costs[least] >= 0:
            return [costs[used.index(i)] if i in used else 0.0 for i in range(len(TERMS))]
        del used[least]


def expected(costs, run, cores):
    return sum(cost * term for cost, term in zip(costs, terms(run, cores)))


@contextlib.contextmanager
def cluster(folder):
    """Starts a scheduler, and gives a routine that starts one more worker and waits until it is there."""
    processes = []
    log, reached = os.path.join(folder, "cluster.log"), os.path.join(folder, "cluster.json")

    def start(module, *arguments):
        command = [sys.executable, "-m", module, "--scheduler-file", "cluster.json", "--no-dashboard", *arguments]
        with open(log, "ab") as told:
            processes.append(subprocess.Popen(command, cwd=folder, stdout=told, stderr=told))

    def add_worker():
        from distributed import Client
        began = time.perf_counter()
        start("distributed.cli.dask_worker", "--nthreads", "1", "--no-nanny", "--memory-limit", "0")
        with Client(scheduler_file=reached) as client:
            client.wait_for_workers(len(processes) - 1, timeout=60)
        return time.perf_counter() - began

    try:
        start("distributed.cli.dask_scheduler", "--port", "0", "--host", "127.0.0.1")
        while not os.path.exists(reached):
            if processes[0].poll() is not None:
                with open(log, encoding="utf-8", errors="replace") as told:
                    sys.exit(f"the scheduler has ended:\n{told.read()}")
            time.sleep(0.05)
        yield add_worker
    finally:
        for process in processes:
            process.kill()
            process.wait()


def measure_cluster(program, folder, batches, runs):
    """The least of each kind of run, that of a program alone for each batch, and how long a worker takes to start."""
    times = collections.defaultdict(list)
    alone = collections.defaultdict(list)
    starts = []
    with cluster(folder) as add_worker:
        workers = 0
        for target in (1, 2, 4, 8):
            while workers < target:
                starts.append(add_worker())
                workers += 1
            for _ in range(runs):
                for batch in batches:
                    files = [batch.name + ".csv", batch.name + ".pc4"]
                    command = [program, *OPTIONS, "validate", "--payments", files[0], "--records", files[1],
                               "--jobs", "1", "--report", "alone.csv"]
                    alone[batch].append(seconds_of(command, folder))
                    for parts in (target, 4 * target, 16 * target)[:3 if target <= 2 else 2]:
                        command = [sys.executable, os.path.join(TREE, "examples/cluster/judge_batch.py"),
                                   "--scheduler-file", "cluster.json", "--parts", str(parts), *files, "report.csv",
                                   "--", *OPTIONS]
                        times[Run(target, parts, batch)].append(seconds_of(command, folder))
    least = ({kind: min(each) for kind, each in seconds.items()} for seconds in (times, alone))
    return *least, min(starts)


def show_cluster(program, folder, payments, runs):
    batches = [make(program, folder, payments // 4), make(program, folder, payments)]
    large = batches[-1]
    times, alone, start = measure_cluster(program, folder, batches, runs)
    costs = fitted({run: seconds for run, seconds in times.items() if run.workers <= 2})
    base = alone[large]
    print(f"{payments} payments, {large.records / 1e6:.0f} MB of records, {large.list / 1e6:.0f} MB of list; "
          f"{CORES} cores, the least of {runs} runs of each")
    print(f"`validate --jobs 1 --report` alone: 1.00 ({base:.2f} s). A worker is ready after {start / base:.2f}\n")
    print("workers  parts  measured  model   measured/model")
    for run, seconds in times.items():
        if run.batch == large:
            model = expected(costs, run, CORES)
            print(f"{run.workers:7}{run.parts:7}{seconds / base:10.2f}{model / base:7.2f}{seconds / model:10.2f}"
                  + ("   fitted" if run.workers <= 2 else ""))
    off = {name: [abs(seconds / expected(costs, run, CORES) - 1) for run, seconds in times.items() if chosen(run)]
           for name, chosen in (("1 and 2 workers, which it was fitted to", lambda run: run.workers <= 2),
                                ("4 and 8 workers, which it has not seen", lambda run: run.workers > 2))}
    print()
    for name, each in off.items():
        print(f"off by {statistics.median(each):.0%}, at most {max(each):.0%}: {name}, {len(each)} kinds of runs, "
              "both batches")
    print("\nwhat one of each costs, by the model, as a share of the program alone:")
    one = Run(1, 1, large)
    for name, cost, term in zip(TERMS, costs, terms(one, CORES)):
        print(f"  {name:32}{cost * term / base:8.3f}")
    print("\nexpected with a core for each worker, a part for each, files in memory:")
    print("workers  this batch  of which the list   100 of it in one   of which the list")
    hundred = Batch("", large.list * 100, large.records * 100)
    listed = list(TERMS).index("reading the list, in each part")
    for workers in (1, 2, 4, 8, 16, 32, 100):
        cells = []
        for batch in (large, hundred):
            run = Run(workers, workers, batch)
            seconds = expected(costs, run, workers)
            cells += [seconds / base, costs[listed] * terms(run, workers)[listed] / seconds]
        print(f"{workers:7}{cells[0]:12.2f}{cells[1]:18.0%}{cells[2]:19.1f}{cells[3]:20.0%}")
    return large


def resident(name):
    """Which pages of a file are in memory."""
    libc = ctypes.CDLL(None, use_errno=True)
    with open(name, "rb") as file, mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_COPY) as mapped:
        pages = (ctypes.c_ubyte * (-(-len(mapped) // mmap.PAGESIZE)))()
        start = ctypes.c_char.from_buffer(mapped)
        if libc.mincore(ctypes.byref(start), ctypes.c_size_t(len(mapped)), pages) != 0:
            raise OSError(ctypes.get_errno(), "mincore")
        del start
    return [page & 1 for page in pages]


def forget(name):
    with open(name, "rb") as file:
        os.fsync(file.fileno())
        os.posix_fadvise(file.fileno(), 0, 0, os.POSIX_FADV_DONTNEED)


def part_of(program, batch, place, part, of):
    return [program, *OPTIONS, "validate", "--payments", f"{place}.csv", "--records", f"{place}.pc4",
            "--part", f"{part}/{of}", "--jobs", "1", "--report", batch.name + ".report"]


def show_reading(program, folder, batch):
    part, of = 5, 8
    for end in (".csv", ".pc4"):
        forget(batch.name + end)
    kept = sum(resident(batch.name + ".pc4"))
    seconds_of(part_of(program, batch, batch.name, part, of), folder)
    pages = resident(batch.name + ".pc4")
    first, last = len(pages) * (part - 1) // of, len(pages) * part // of
    own, outside = sum(pages[first:last]), sum(pages[:first]) + sum(pages[last:])
    size = batch.records / of
    print(f"\npart {part} of {of}, nothing of the files in memory before ({kept} pages): afterwards "
          f"{own * mmap.PAGESIZE / size:.2f} of the part, and of the rest of the records as much as "
          f"{outside * mmap.PAGESIZE / size:.2f} of it; of the list "
          f"{sum(resident(batch.name + '.csv')) * mmap.PAGESIZE / batch.list:.2f}")


def show_folder(program, folder, batch, runs):
    of = 8
    here = min(seconds_of(part_of(program, batch, batch.name, 5, of), folder) for _ in range(runs + 1))
    share = batch.records / of + batch.list
    print(f"\none part of {of}, read for the first time, against the same part in memory (1.00, {here * 1e3:.0f} ms):")
    print("round trip   first time   once more   bytes that came, to those of list and part")
    for round_trip in (0, 0.001, 0.01):
        first, again, came = [], [], []
        for _ in range(runs):
            with slow_folder(folder, round_trip) as (place, relay):
                if place is None:
                    print("no folder can be mounted here by sshfs")
                    return
                name = os.path.join(place, os.path.basename(batch.name))
                first.append(seconds_of(part_of(program, batch, name, 5, of), folder))
                came.append(relay.sent)
                again.append(seconds_of(part_of(program, batch, name, 5, of), folder))
        print(f"{round_trip * 1e3:7.0f} ms{min(first) / here:13.1f}{min(again) / here:12.2f}"
              f"{statistics.median(came) / share:10.2f}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--payments", type=int, default=1_000_000)
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--folder", help="where the files lie, on a disk")
    arguments = parser.parse_args()
    program = os.path.abspath(arguments.program)
    os.environ["FISCALON_LIBRARY"] = os.path.abspath(os.environ["FISCALON_LIBRARY"])
    os.environ["PYTHONPATH"] = os.path.join(TREE, "bindings/python")
    with tempfile.TemporaryDirectory(dir=arguments.folder) as folder:
        batch = show_cluster(program, folder, arguments.payments, arguments.runs)
        show_reading(program, folder, batch)
        show_folder(program, folder, batch, arguments.runs)


if __name__ == "__main__":
    main()
