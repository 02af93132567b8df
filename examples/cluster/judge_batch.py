#!/usr/bin/env python3
"""Judges a batch on a Dask cluster, in parts.

    judge_batch.py --scheduler-file cluster.json --parts 8 PAYMENTS RECORDS REPORT [-- OPTION...]

All workers must see the files under the same names, as this program does, and have the package fiscalon. Each part is
judged in the process of its worker, which puts its report beside REPORT; joined in order they are the report that
`fiscalon validate` would write. A process judges as of one day at a time, so workers have one thread each (`dask worker
--nthreads 1`). Behind `--` stand options of that: --today, --locale, --json-lines. All parts are judged as of one day,
which is asked for once, here: today unless --today is among them.

A part whose worker dies is given to another one. No verdict counts where a worker sees another version of a file than
this program, where the clock is set back meanwhile, or where a folder no longer answers a worker or this program.

Exit status: that of `fiscalon validate`: 0 all valid, 1 something is not valid, 2 no verdict counts, and no report. 75
is 2 for a reason that passes: a folder or a worker did not answer.
"""

import argparse
import collections
import concurrent.futures
import contextlib
import csv
import datetime
import hashlib
import json
import logging
import os
import queue
import shutil
import signal
import socket
import stat
import sys
import tempfile
import threading
import time
import uuid

import fiscalon
from distributed import Client, Future, get_worker

UNUSABLE = 2
TEMPORARY = 75  # EX_TEMPFAIL of sysexits.h


class Unusable(Exception):
    """No verdict counts; the message says why."""


class Stalled(Unusable):
    """No verdict counts, for something did not answer that may answer again."""


def version_of(name):
    """What tells one version of a file from another: its size, when it was written, in nanoseconds, and a digest of its
    first and its last bytes. One of the whole file would take longer than to judge it."""
    ends = 4096
    if not stat.S_ISREG(os.stat(name).st_mode):
        raise Unusable(f"{name} is no file, and parts are cut out of files")
    with open(name, "rb") as file:
        status = os.fstat(file.fileno())
        digest = hashlib.sha256(file.read(ends))
        file.seek(max(status.st_size - ends, 0))
        digest.update(file.read(ends))
    return status.st_size, status.st_mtime_ns, digest.hexdigest()


def same_version(one, other):
    """Whether two machines see the same. Some network folders keep times in whole seconds, or in parts of them."""
    (size, written, ends), (other_size, other_written, other_ends) = one, other
    same_time = any(written // unit == other_written // unit and 0 in (written % unit, other_written % unit)
                    for unit in (10**digits for digits in range(10)))
    return same_time and (size, ends) == (other_size, other_ends)


def in_words(version):
    size, written, ends = version
    moment = datetime.datetime.fromtimestamp(written // 10**9, datetime.timezone.utc)
    return f"{size} bytes of {moment:%Y-%m-%d %H:%M:%S}.{written % 10**9:09} UTC, ends {ends[:8]}"


def judge(number, parts, payments, records, folder, options, topic):
    """Runs on a worker. How often each reason was given in one part, "" for a valid payment, where that was, and which
    versions of the files it has seen; the part's report lies in the folder then, whole."""
    counts = collections.Counter()
    worker = get_worker()
    place = f"{socket.gethostname()} ({worker.address})"
    told = 0

    def tell(_counts=None):
        """Tells that the part goes on, as often as somebody wants to hear it."""
        nonlocal told
        if time.monotonic() >= told:
            worker.log_event(topic, (number, worker.address, place))
            told = time.monotonic() + options.tell_every

    tell()
    try:
        seen = [version_of(name) for name in (payments, records)]
        fiscalon.use_fixed_clock(datetime.date.fromisoformat(options.today))
        fiscalon.use_locale(options.locale)
        # A worker that was given up may be at the same part: no one writes into what another one has written.
        own = os.path.join(folder, f"{number}-{uuid.uuid4()}")
        with open(own, "w", encoding="utf-8", newline="") as report:
            rows = csv.writer(report, lineterminator="\n")
            if number == 1 and not options.json_lines:
                rows.writerow(("seq", "screen", "valid", "reason"))
            for verdict in fiscalon.validate_batch(payments, records, part=(number, parts), jobs=1, on_progress=tell):
                seq, screen, reason = verdict.seq, verdict.screen, verdict.reason
                counts[reason] += 1
                if options.json_lines:
                    row = {"seq": seq, "screen": screen, "valid": not reason, "reason": reason}
                    report.write(json.dumps(row, ensure_ascii=False, separators=(",", ":")) + "\n")
                else:
                    rows.writerow((seq, screen, "no" if reason else "yes", reason))
        if seen != [version_of(name) for name in (payments, records)]:
            raise Unusable("a file changed while it was read")
        os.replace(own, os.path.join(folder, str(number)))
    except fiscalon.BatchError as error:
        raise Unusable(f"part {number} of {parts} on {place}: " + "\n".join(map(str, error.problems))) from None
    except fiscalon.FiscalonError as error:
        raise Unusable(f"part {number} of {parts} on {place}: {error.description}") from None
    except (OSError, Unusable) as error:
        raise Unusable(f"part {number} of {parts} on {place}: {error}") from None
    return counts, place, seen


def answered(patience, place, routine, *arguments):
    """What a routine gives that waits for a folder or another machine. It has a thread that is left behind where no
    answer comes: while a network folder is silent, whoever waits for it can't be interrupted, nor ended."""
    outcome = queue.SimpleQueue()

    def ask():
        try:
            outcome.put((routine(*arguments), None))
        except BaseException as error:
            outcome.put((None, error))

    threading.Thread(target=ask, daemon=True).start()
    try:
        result, error = outcome.get(timeout=patience)
    except queue.Empty:
        raise Stalled(f"{place} has not answered this machine for {patience:g} seconds; see whether it can be reached, "
                      "then run the batch again, or wait longer with --stall") from None
    if error is not None:
        raise error
    return result


class Parts:
    """The parts that are being judged, and when each was last heard of."""

    def __init__(self, client, arguments, options, files, folder):
        self.client, self.arguments, self.files, self.folder = client, arguments, files, folder
        self.news = queue.SimpleQueue()
        self.heard = {}
        self.latest = time.monotonic()
        topic = f"judge_batch-{uuid.uuid4()}"
        client.subscribe_topic(topic, lambda event: self.news.put(event[1]))
        self.runs = {client.submit(judge, number, arguments.parts, *files, folder, options, topic, pure=False): number
                     for number in range(1, arguments.parts + 1)}
        for run in self.runs:
            run.add_done_callback(self.news.put)

    def at_work(self):
        """What each worker has to do."""
        return answered(self.arguments.stall, "the scheduler", self.client.processing)

    def cancel(self):
        with contextlib.suppress(Exception):
            answered(5, "the scheduler", self.client.cancel, list(self.runs))

    def outcomes(self):
        """What `judge` gives for each part, with its number, as they are done."""
        while self.runs:
            with contextlib.suppress(queue.Empty):
                told = self.news.get(timeout=self.arguments.stall / 10)
                self.latest = time.monotonic()
                if isinstance(told, Future):
                    number = self.runs.pop(told)
                    self.heard.pop(number, None)
                    try:
                        result = answered(self.arguments.stall, "a worker", told.result)
                    except concurrent.futures.CancelledError:
                        raise Stalled("the scheduler no longer answers; start it and its workers again, then run the "
                                      "batch again") from None
                    # Or it would be judged again where its worker goes.
                    told.release()
                    yield number, result
                else:
                    number, worker, place = told
                    self.heard[number] = self.latest, worker, place
            self.refuse_stall()

    def refuse_stall(self):
        now = time.monotonic()
        for run, number in self.runs.items():
            when, worker, place = self.heard.get(number, (None, None, None))
            if when is None or now - when < self.arguments.stall:
                continue
            at_work = self.at_work()
            if not at_work:
                raise Stalled(f"part {number} of {self.arguments.parts}: {place} has died, and no worker is left; "
                              "start workers, and run the batch again")
            if run.key not in at_work.get(worker, ()):
                # Its worker has died: it waits for another one, or is done and about to be told.
                del self.heard[number]
                continue
            raise Stalled(f"part {number} of {self.arguments.parts}: {place} has made no progress for "
                          f"{self.arguments.stall:g} seconds; see whether {' and '.join(self.files)} can be read and "
                          f"{self.folder} be written there, then run the batch again, or wait longer with --stall")
        # The last one may have gone between two parts.
        if now - self.latest >= self.arguments.stall and not self.at_work():
            raise Stalled(f"no worker has come for {self.arguments.stall:g} seconds; start workers, and run the batch "
                          "again")


def judge_all(arguments, options, files, folder):
    """How often each reason was given in the whole batch."""
    counts = collections.Counter()
    here = [answered(arguments.stall, name, version_of, name) for name in files]
    with Client(scheduler_file=arguments.scheduler_file, timeout=arguments.timeout) as client:
        parts = Parts(client, arguments, options, files, folder)
        try:
            for done, (number, (of_part, place, seen)) in enumerate(parts.outcomes(), 1):
                for name, there, ours in zip(files, seen, here):
                    if not same_version(there, ours):
                        raise Unusable(f"part {number} of {arguments.parts}: {place} sees another version of {name}: "
                                       f"{in_words(there)} there, {in_words(ours)} here; give both the same one, or "
                                       "wait until the folder is in step, and run the batch again")
                counts += of_part
                print(f"{done} of {arguments.parts} parts", file=sys.stderr, flush=True)
        except BaseException:
            parts.cancel()
            raise
    return counts


class Day:
    """The day as of which all parts are judged, and the clock that it was taken from."""

    def __init__(self, named):
        self.named = named
        self.shown, self.began = time.time(), time.monotonic()
        self.text = named or datetime.date.fromtimestamp(self.shown).isoformat()

    def refuse_setting_back(self):
        """A clock that is set back while the batch is judged was wrong before, perhaps by a day."""
        passed = time.monotonic() - self.began
        lost = passed - (time.time() - self.shown)
        if not self.named and lost > 1 + passed / 1000:
            raise Unusable(f"the clock of this machine was set back by {lost:.0f} seconds while the batch was judged "
                           f"as of {self.text}; run it again, or name the day: -- --today DATE")


def wait_for(scheduler_file, timeout, stall):
    """A scheduler that has just been started writes its file when it can be reached."""
    end = time.monotonic() + timeout
    while not answered(stall, scheduler_file, os.path.isfile, scheduler_file):
        if not time.monotonic() < end:
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


@contextlib.contextmanager
def parts_folder(report, stall):
    """Where the parts' reports lie: where the report will. That folder is shared, and a file can take its place in one
    step."""
    place = os.path.dirname(report)
    folder = answered(stall, place, lambda: tempfile.mkdtemp(dir=place, prefix=".parts-"))
    try:
        yield folder
    finally:
        try:
            answered(5, folder, lambda: shutil.rmtree(folder, ignore_errors=True))
        except Stalled:
            print(f"judge_batch: {folder} is left behind", file=sys.stderr)


def join(folder, parts, report):
    """Puts the parts' reports in order, step by step, and in the place of the report when all is there."""
    whole = os.path.join(folder, "whole")
    with open(whole, "wb") as out:
        for number in range(1, parts + 1):
            with open(os.path.join(folder, str(number)), "rb") as part:
                shutil.copyfileobj(part, out)
            yield number
        out.flush()
        os.fsync(out.fileno())
    if os.path.exists(report):
        shutil.copymode(report, whole)
    os.replace(whole, report)


def summary(counts):
    """What one run says: how many payments are valid, and the reasons, the most frequent first."""
    total = sum(counts.values())
    invalid = total - counts.pop("", 0)
    verdict = f"{total - invalid} valid, {invalid} invalid" if invalid else "all valid"
    lines = [f"{total} payment{'' if total == 1 else 's'}: {verdict}"]
    ranked = sorted(counts.items(), key=lambda entry: (-entry[1], entry[0]))
    lines += [f"{count:12}{(count * 1000 // invalid + 5) // 10:6} %  {reason}" for reason, count in ranked[:20]]
    return "\n".join(lines), invalid


def at_least_one(text):
    number = int(text)
    if number < 1:
        raise argparse.ArgumentTypeError("there must be at least one part")
    return number


def some_seconds(text):
    seconds = float(text)
    if not 0 < seconds < threading.TIMEOUT_MAX:
        raise argparse.ArgumentTypeError(f"{text} is no time to wait")
    return seconds


def day(text):
    try:
        return datetime.date.fromisoformat(text).isoformat()
    except ValueError:
        raise argparse.ArgumentTypeError(f"{text!r} is no date YYYY-MM-DD") from None


def parsed(words):
    """The arguments of this program, and those for `fiscalon`. What both would decide is this program's."""
    parser = argparse.ArgumentParser(description="Judges a batch on a Dask cluster, in parts.", allow_abbrev=False)
    parser.add_argument("--scheduler-file", required=True, help="where the scheduler wrote how it is reached")
    parser.add_argument("--parts", type=at_least_one, required=True)
    parser.add_argument("--timeout", type=float, default=30, help="seconds to wait for the scheduler (30)")
    parser.add_argument("--stall", type=some_seconds, default=60,
                        help="seconds without progress of a worker or a folder after which a batch is given up (60)")
    parser.add_argument("payments")
    parser.add_argument("records")
    parser.add_argument("report")
    parser.epilog = "Behind -- may stand --today DATE, --locale NAME and --json-lines."
    cut = words.index("--") if "--" in words else len(words)
    arguments = parser.parse_args(words[:cut])
    behind = argparse.ArgumentParser(prog=f"{parser.prog} ... --", add_help=False, allow_abbrev=False)
    behind.add_argument("--today", type=day)
    behind.add_argument("--locale", default="system")
    behind.add_argument("--json-lines", action="store_true")
    options = behind.parse_args(words[cut + 1:])
    return arguments, options


def run(words):
    arguments, options = parsed(words)
    stall = arguments.stall
    day = Day(options.today)
    options.today = day.text
    options.tell_every = min(stall / 4, 1)
    inputs = [os.path.abspath(arguments.payments), os.path.abspath(arguments.records)]
    report = answered(stall, f"{arguments.report} or what is read", place_of, arguments.report, inputs)
    wait_for(arguments.scheduler_file, arguments.timeout, stall)
    with parts_folder(report, stall) as folder:
        counts = judge_all(arguments, options, inputs, folder)
        day.refuse_setting_back()
        steps = join(folder, arguments.parts, report)
        while answered(stall, folder, next, steps, None) is not None:
            pass
    text, invalid = summary(counts)
    print(text)
    return 1 if invalid else 0


def end_by(number, _frame):
    """What was begun is taken away before the program ends."""
    sys.exit(128 + number)


def main():
    # What fails in the cluster is told here, in one line.
    logging.disable()
    signal.signal(signal.SIGTERM, end_by)
    try:
        return run(sys.argv[1:])
    except Stalled as problem:
        print(f"judge_batch: {problem}", file=sys.stderr)
        return TEMPORARY
    except (Unusable, OSError) as problem:
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
