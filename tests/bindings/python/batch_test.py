"""Whole batches: the verdicts of the program's own report, in any parts, on any number of cores."""

import csv
import datetime
import gc
import os
import pickle
import signal
import threading
import tracemalloc

import pytest

import fiscalon


def record(seq, amount, end="20260531", payroll="000000000000500000"):
    head = f"PC4{seq}T{'':32}Jane Doe".ljust(160)
    body = f"PC4{seq}F01{amount:018}02{end:<18}03{payroll}04000000000000000012".ljust(160)
    return f'"{head}"\r\n"{body}"\r\n'


def batch_of(count, bad=lambda number: number % 7 == 3):
    """Payments of screen "03", of which some have an amount that is not to be paid; as bytes, with the reports'
    rows."""
    rows, records, report = ["seq,screen,biller,amount"], [], []
    for number in range(count):
        seq = f"{number % 10000:04}"
        rows.append(f"{seq},03,,{number + (1 if bad(number) else 0)}")
        records.append(record(seq, number))
        report.append((number + 2, seq, "03",
                       "Field 01 Amount of Payment is not equal to amount to be paid" if bad(number) else ""))
    return "\n".join(rows).encode() + b"\n", "".join(records).encode("cp1252"), report


@pytest.fixture
def batch(fiscalon_fresh, tmp_path):
    payments, records, report = batch_of(3000)
    (tmp_path / "batch.csv").write_bytes(payments)
    (tmp_path / "batch.pc4").write_bytes(records)
    return tmp_path / "batch.csv", tmp_path / "batch.pc4", report


def told(verdicts):
    return [(each.row, each.seq, each.screen, each.reason) for each in verdicts]


@pytest.mark.parametrize("jobs", [None, 1, 2, 3])
def test_verdicts_are_those_of_the_payments_in_their_order(batch, jobs):
    payments, records, report = batch
    verdicts = fiscalon.validate_batch(payments, records, jobs=jobs)
    assert told(verdicts) == report
    bad = sum(reason != "" for *_, reason in report)
    size = records.stat().st_size
    assert verdicts.counts == fiscalon.BatchCounts(len(report), bad, size, size)
    assert verdicts.counts.valid == len(report) - bad
    assert fiscalon.count_batch(payments, records, jobs=jobs) == verdicts.counts


def test_bytes_and_texts_of_paths_will_do(batch):
    payments, records, report = batch
    assert told(fiscalon.validate_batch(str(payments), str(records))) == report
    assert told(fiscalon.validate_batch(payments.read_bytes(), records.read_bytes())) == report
    assert told(fiscalon.validate_batch(payments.read_bytes(), records)) == report


def test_parts_in_their_order_are_the_batch(batch):
    payments, records, report = batch
    for parts in (1, 2, 5):
        joined = []
        for number in range(1, parts + 1):
            joined += told(fiscalon.validate_batch(payments, records, part=(number, parts)))
        assert joined == report


def test_bad_payments_alone(batch):
    payments, records, report = batch
    verdicts = list(fiscalon.validate_batch(payments, records, valid=False))
    assert told(verdicts) == [row for row in report if row[3]]
    assert not any(each.valid or each.faults or each.line for each in verdicts)


def test_faults_and_lines_where_they_are_wanted(batch):
    payments, records, report = batch
    verdicts = list(fiscalon.validate_batch(payments, records, faults=True, lines=True))
    assert told(verdicts) == report
    number = 3
    assert verdicts[number].line == 2 * number + 1
    assert verdicts[number].lines == record("0003", 3)
    assert verdicts[number].faults == (fiscalon.Fault(
        2 * number + 2, "01", "Amount of Payment", "000000000000000003", "not-the-amount", report[number][3]),)
    assert (verdicts[0].faults, verdicts[0].line, verdicts[0].lines) == ((), 0, record("0000", 0))


def test_a_verdict_is_a_value(batch):
    payments, records, report = batch
    first, second = (list(fiscalon.validate_batch(payments, records, jobs=jobs)) for jobs in (None, 1))
    assert first == second and not first[0] != second[0] and len(set(first + second)) == len(report)
    assert first[0] != first[1] and first[0] != report[0]
    whole = list(fiscalon.validate_batch(payments, records, faults=True, lines=True))
    for each in (first[3], whole[3]):
        again = pickle.loads(pickle.dumps(each))
        assert again == each and repr(again) == repr(each) and again.faults == each.faults


def test_verdicts_stand_in_the_order_of_their_rows(fiscalon_fresh):
    payments, records, _ = batch_of(9000)
    verdicts = list(fiscalon.validate_batch(payments, records))
    assert [each.row for each in sorted(reversed(verdicts))] == list(range(2, 9002))
    first, last = min(verdicts), max(verdicts)
    assert (first.row, last.row) == (2, 9001)
    assert first < last and first <= last and last > first and last >= first and not first < first
    with pytest.raises(TypeError):
        first < (0,)


def test_verdicts_of_two_batches_may_be_asked_in_turns(batch):
    payments, records, report = batch
    pairs = zip(fiscalon.validate_batch(payments, records), fiscalon.validate_batch(payments, records, valid=False))
    bad = [row for row in report if row[3]]
    assert [told(pair) for pair in pairs] == [list(pair) for pair in zip(report, bad)]


def test_memory_does_not_grow_with_the_batch(fiscalon_fresh):
    payments, records, _ = batch_of(60000)

    def most(keep):
        kept = []
        tracemalloc.start()
        for verdict in fiscalon.validate_batch(payments, records, jobs=2):
            if verdict.row % keep == 0:
                kept.append(verdict)
        peak = tracemalloc.get_traced_memory()[1]
        tracemalloc.stop()
        return peak

    # A handful of blocks, each with as many bytes as its texts have; then some of each block, which keep those bytes.
    assert most(60000) < 3e6
    assert most(1000) < 5e6


def test_verdicts_come_while_the_batch_runs(fiscalon_fresh):
    payments, records, report = batch_of(60000, bad=lambda number: False)
    verdicts = fiscalon.validate_batch(payments, records, jobs=1)
    first = next(verdicts)
    # What is not taken is not judged ahead without end.
    with pytest.raises(fiscalon.NotSetError):
        verdicts.counts
    assert (first.row, first.valid) == (2, True)
    assert sum(1 for _ in verdicts) == 59999
    assert verdicts.counts.payments == 60000


def threads_of_batches():
    return [each for each in threading.enumerate() if each.name == "fiscalon batch"]


def test_a_batch_ends_when_nobody_wants_the_rest(fiscalon_fresh):
    payments, records, _ = batch_of(60000, bad=lambda number: False)
    for verdict in fiscalon.validate_batch(payments, records):
        break
    del verdict
    gc.collect()
    assert threads_of_batches() == []
    with fiscalon.validate_batch(payments, records) as verdicts:
        assert next(verdicts).row == 2
    assert threads_of_batches() == []
    with pytest.raises(fiscalon.NotSetError):
        verdicts.counts


def test_a_batch_ends_where_bad_payments_are_far_between(fiscalon_fresh):
    payments, records, _ = batch_of(60000, bad=lambda number: number == 0)
    progress = []
    with fiscalon.validate_batch(payments, records, jobs=1, valid=False, on_progress=progress.append) as verdicts:
        assert next(verdicts).row == 2
    # The first that it hears of may be that nobody wants the rest.
    assert all(counts.payments < 60000 for counts in progress)
    with pytest.raises(fiscalon.NotSetError):
        verdicts.counts


def test_an_interrupt_between_routines_ends_the_batch(fiscalon_fresh):
    """Python hears of a signal at the very start of the routine that the library calls next."""
    payments, records, _ = batch_of(60000)

    def ring(_signal, _frame):
        raise KeyboardInterrupt

    usual = signal.signal(signal.SIGALRM, ring)
    try:
        for _ in range(20):
            with pytest.raises(KeyboardInterrupt):
                signal.setitimer(signal.ITIMER_REAL, 0.001)
                while True:
                    fiscalon.count_batch(payments, records, jobs=1, on_progress=lambda counts: None)
    finally:
        signal.setitimer(signal.ITIMER_REAL, 0)
        signal.signal(signal.SIGALRM, usual)


def test_two_batches_at_a_time(batch):
    payments, records, report = batch
    pairs = list(zip(fiscalon.validate_batch(payments, records), fiscalon.validate_batch(payments, records)))
    assert len(pairs) == len(report) and all(one == other for one, other in pairs)
    assert pairs[0][0] != pairs[1][0] and len({one for one, _ in pairs}) == len(report)


def test_a_batch_may_be_judged_in_any_thread_and_beside_objects(batch):
    payments, records, report = batch
    seen = []
    thread = threading.Thread(target=lambda: seen.extend(told(fiscalon.validate_batch(payments, records))))
    thread.start()
    assert len(fiscalon.Records.of(["one"])) == 1
    thread.join()
    assert seen == report


@pytest.mark.parametrize("change, line, words", [
    (lambda payments, records: (payments, records + b"PC4"), 6001, "no record: a record begins with PC4"),
    (lambda payments, records: (payments, b""), 2, "payment '0000' has no records"),
    (lambda payments, records: (b"", records), 1, "the first line is not seq,screen,biller,amount"),
    (lambda payments, records: (payments + b"0001,03,,x\n", records), 3002, "whole number of cents"),
])
def test_files_that_do_not_line_up_are_an_error_that_says_where(batch, change, line, words):
    payments, records = change(batch[0].read_bytes(), batch[1].read_bytes())
    with pytest.raises(fiscalon.BatchError) as caught:
        list(fiscalon.validate_batch(payments, records))
    assert caught.value.number == 1011
    problems = caught.value.problems
    assert any(problem.line == line and words in problem.reason for problem in problems), problems
    with pytest.raises(fiscalon.BatchError) as again:
        fiscalon.count_batch(payments, records)
    assert again.value.problems == caught.value.problems


def test_a_file_that_is_not_there_is_named(batch):
    with pytest.raises(fiscalon.BatchError) as caught:
        fiscalon.count_batch(batch[0], "nothing\udcff.pc4")
    assert [problem.file for problem in caught.value.problems] == ["nothing\udcff.pc4"]
    assert caught.value.description.startswith("nothing\udcff.pc4: ")


@pytest.mark.parametrize("number, arguments", [
    (13, {"payments": None}), (13, {"records": 1}), (1003, {"payments": "a\0b"}), (13, {"part": 1}),
    (13, {"part": (1, 2, 3)}), (13, {"part": ("1", 2)}), (5, {"part": (0, 2)}), (5, {"part": (3, 2)}),
    (6, {"part": (1, 1 << 70)}), (5, {"part": (-1, -1)}), (13, {"jobs": "2"}), (5, {"jobs": 0}), (5, {"jobs": -1}),
    (13, {"jobs": 1.5}), (6, {"jobs": 1 << 40}), (13, {"on_progress": 1})])
def test_bad_arguments_are_refused(batch, number, arguments):
    given = {"payments": batch[0], "records": batch[1], **arguments}
    for judging in (fiscalon.validate_batch, fiscalon.count_batch):
        with pytest.raises(fiscalon.FiscalonError) as caught:
            judging(**given)
        assert caught.value.number == number


def test_progress_is_told_and_may_end_the_batch(fiscalon_fresh):
    payments, records, _ = batch_of(20000, bad=lambda number: False)
    seen = []
    counts = fiscalon.count_batch(payments, records, on_progress=seen.append)
    assert seen and all(one.payments <= other.payments for one, other in zip(seen, seen[1:]))
    assert seen[-1].payments <= counts.payments == 20000

    def raising(_counts):
        raise LookupError("enough")

    with pytest.raises(LookupError, match="enough"):
        fiscalon.count_batch(payments, records, on_progress=raising)
    with pytest.raises(LookupError, match="enough"):
        list(fiscalon.validate_batch(payments, records, on_progress=raising))


def test_what_is_judged_by_can_not_be_changed_meanwhile(fiscalon_fresh):
    payments, records, _ = batch_of(60000, bad=lambda number: False)
    with fiscalon.validate_batch(payments, records) as verdicts:
        next(verdicts)
        for call in (lambda: fiscalon.use_locale("en-US"), lambda: fiscalon.use_fixed_clock(datetime.date(2026, 1, 1)),
                     fiscalon.reset):
            with pytest.raises(fiscalon.BusyError) as caught:
                call()
            assert caught.value.number == 1006


def test_a_forked_process_does_not_wait_for_its_parents_batch(fiscalon_fresh):
    payments, records, _ = batch_of(60000, bad=lambda number: False)
    with fiscalon.validate_batch(payments, records) as verdicts:
        first = next(verdicts)
        reading, writing = os.pipe()
        child = os.fork()
        if child == 0:
            said = b"nothing"
            try:
                for _ in verdicts:
                    pass
            except fiscalon.ForkedError:
                said = b"forked"
            except BaseException as error:
                said = repr(error).encode()
            finally:
                os.write(writing, said)
                os._exit(0)
        os.waitpid(child, 0)
        assert os.read(reading, 1000) == b"forked"
        assert first.row + sum(1 for _ in verdicts) == 60001


def test_texts_of_every_kind_come_through(fiscalon_fresh):
    rows = 'seq,screen,biller,amount\n00é1,"0\t,3",,1\n'.encode()
    body = record("00é1", 1).encode("cp1252")
    verdict, = fiscalon.validate_batch(rows, body)
    assert (verdict.seq, verdict.screen, verdict.reason) == ("00é1", "0\t,3", "Invalid or not supported Screen Type")
    assert repr(verdict) == ("Verdict(row=2, seq='00é1', screen='0\\t,3', "
                             "reason='Invalid or not supported Screen Type')")


def test_a_judge_judges_payments_of_the_hosts_own(fiscalon_fresh):
    records = [line[1:-1] for line in record("0001", 12345).split("\r\n")[:-1]]
    with fiscalon.Judge() as judge:
        assert judge.judge("03", 12345, records).valid
        verdict = judge.judge("03", 99999, iter(records), faults=True)
        assert verdict.reason == "Field 01 Amount of Payment is not equal to amount to be paid"
        assert [(fault.line, fault.code) for fault in verdict.faults] == [(2, "not-the-amount")]
        for number, arguments in ((13, ("03", "1", records)), (13, ("03", 1, "text")), (13, (3, 1, records)),
                                  (13, ("03", 1, [1])), (1003, ("03", 1, ["\0"])), (6, ("03", 1 << 64, records)),
                                  (1003, ("\ud800", 1, []))):
            with pytest.raises(fiscalon.FiscalonError) as caught:
                judge.judge(*arguments)
            assert caught.value.number == number
    with pytest.raises(fiscalon.ClosedError):
        judge.judge("03", 1, [])


@pytest.mark.skipif("FISCALON_PROGRAM" not in os.environ, reason="there is no program to compare with")
def test_verdicts_are_those_of_the_programs_report(fiscalon_fresh, tmp_path):
    import subprocess
    program = os.environ["FISCALON_PROGRAM"]
    for screen in ("03", "20"):
        made = tmp_path / screen
        subprocess.run([program, "generate", "--payments", "4000", "--screen", screen, "--bad", "0.2", "--out", made,
                        "--today", "2026-06-15"], check=True, capture_output=True)
        subprocess.run([program, "validate", "--payments", f"{made}.csv", "--records", f"{made}.pc4", "--report",
                        f"{made}.report", "--today", "2026-06-15", "--locale", "en-CA"], check=False,
                        capture_output=True)
        with open(f"{made}.report", encoding="utf-8", newline="") as report:
            wanted = [(seq, code, reason) for seq, code, _, reason in csv.reader(report)][1:]
        verdicts = fiscalon.validate_batch(f"{made}.csv", f"{made}.pc4")
        assert [(each.seq, each.screen, each.reason) for each in verdicts] == wanted
        assert sum(reason != "" for *_, reason in wanted) > 500
