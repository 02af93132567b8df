"""Whole batches: verdicts while they are made, in parts, on several cores."""

from __future__ import annotations

import atexit
import ctypes
import itertools
import os
import struct
import sys
import threading
import weakref
from ctypes import (CFUNCTYPE, POINTER, Structure, byref, c_char_p, c_int, c_int32, c_int64, c_size_t, c_uint32,
                    c_uint64, c_void_p)
from types import TracebackType
from typing import (Any, Callable, ClassVar, Deque, Iterable, Iterator, List, NamedTuple, Optional, Sequence, Tuple,
                    Type, Union, cast)

from . import _handles, _library
from ._handles import Handle
from ._errors import (BatchError, BatchProblem, ErrorNumber, FiscalonError, ForkedError, NotSetError, error_of,
                      mismatch, refused)

#: A file by its path, or what stands in it.
Source = Union[str, "os.PathLike[str]", bytes]


class Fault(NamedTuple):
    """One reason against a payment, and where it lies."""

    #: Of the record file, from 1.
    line: int
    #: The field's number; empty where no numbered field is meant.
    field: str
    #: The field's name.
    name: str
    #: What was found there, without the blanks behind it.
    value: str
    #: Which test it failed: a word that stays the same from version to version, such as "blank".
    code: str
    #: Its part of the reason.
    message: str


class _Told:
    """What a block's verdicts tell, taken apart when somebody asks: most payments of a batch are good, and of those
    nobody does."""

    __slots__ = ("rows", "_bytes")

    def __init__(self, rows: Sequence[int], texts: bytes) -> None:
        #: The line of each in the payments list.
        self.rows = rows
        self._bytes = texts

    def texts(self) -> List[str]:
        """Sequence number, screen and reason of each as the library gives them: a zero between, behind each verdict's a
        zero and a line end."""
        # Of the few blocks that were asked last alone: whoever keeps a verdict of each does not keep all their texts.
        asked = _Told._asked
        for block, texts in asked:
            if block is self:
                return texts
        texts = self._bytes.decode("utf-8").split("\0\n")
        if len(texts) != len(self.rows):
            raise error_of(ErrorNumber.UNFORESEEN, "the texts of the verdicts don't line up", "Fiscalon")
        _Told._asked = ((self, texts), *asked[:7])
        return texts

    _asked: "ClassVar[Tuple[Tuple[_Told, List[str]], ...]]" = ()


# A tuple is made without a step of the interpreter's, and a batch has a million: it holds its block, its place
# in it, and whether the payment is good, which is what all of them are asked.
class Verdict(Tuple[Any, ...]):
    """The verdict on one payment."""

    __slots__ = ()

    @property
    def row(self) -> int:
        """Its line in the payments list, from 1."""
        return int(self[0].rows[self[1]])

    @property
    def _texts(self) -> str:
        return str(self[0].texts()[self[1]])

    @property
    def seq(self) -> str:
        """The payment's sequence number."""
        return self._texts.split("\0", 1)[0]

    @property
    def screen(self) -> str:
        """The code of its screen."""
        return self._texts.split("\0", 2)[1]

    @property
    def reason(self) -> str:
        """All that was found, ", " between; empty where the payment is good."""
        return self._texts.split("\0", 2)[2]

    @property
    def valid(self) -> bool:
        """Whether the payment is good."""
        return bool(self[2])

    @property
    def line(self) -> int:
        """Its first line in the record file, from 1; 0 where faults were not asked for."""
        return 0

    @property
    def lines(self) -> str:
        """Its lines of the record file, where they were asked for."""
        return ""

    @property
    def faults(self) -> Sequence[Fault]:
        """The parts of the reason, where they were asked for."""
        return ()

    def _whole(self) -> Tuple[Any, ...]:
        return (self.row, self._texts, self.line, self.lines, self.faults)

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Verdict) and self._whole() == other._whole()

    def __ne__(self, other: object) -> bool:
        return not self == other

    # In the order of their rows, of whichever block they are.
    def __lt__(self, other: Tuple[Any, ...]) -> bool:
        if not isinstance(other, Verdict):
            return NotImplemented
        return self._whole() < other._whole()

    def __le__(self, other: Tuple[Any, ...]) -> bool:
        if not isinstance(other, Verdict):
            return NotImplemented
        return self._whole() <= other._whole()

    def __gt__(self, other: Tuple[Any, ...]) -> bool:
        if not isinstance(other, Verdict):
            return NotImplemented
        return self._whole() > other._whole()

    def __ge__(self, other: Tuple[Any, ...]) -> bool:
        if not isinstance(other, Verdict):
            return NotImplemented
        return self._whole() >= other._whole()

    def __hash__(self) -> int:
        return hash(self._whole())

    def __reduce__(self) -> Tuple[Any, ...]:
        return _WholeVerdict, (self._whole(),)

    def __repr__(self) -> str:
        return f"Verdict(row={self.row}, seq={self.seq!r}, screen={self.screen!r}, reason={self.reason!r})"


class _WholeVerdict(Verdict):
    """One by itself, with what is told only where somebody asks for it."""

    __slots__ = ()

    @property
    def row(self) -> int:
        return int(self[0])

    @property
    def _texts(self) -> str:
        return str(self[1])

    @property
    def valid(self) -> bool:
        return self._texts.endswith("\0")

    @property
    def line(self) -> int:
        return int(self[2])

    @property
    def lines(self) -> str:
        return str(self[3])

    @property
    def faults(self) -> Sequence[Fault]:
        return cast("Sequence[Fault]", self[4])


class BatchCounts(NamedTuple):
    """What a batch came to, or has come to by now."""

    #: How many payments were judged.
    payments: int
    #: How many of them are bad.
    invalid: int
    #: How many bytes of records were judged.
    bytes: int
    #: Of how many; 0 where that is not known.
    total_bytes: int

    @property
    def valid(self) -> int:
        """How many of them are good."""
        return self.payments - self.invalid


class _TextStruct(Structure):
    _fields_ = [("data", c_void_p), ("size", c_size_t)]

    def text(self) -> str:
        return ctypes.string_at(self.data, self.size).decode("utf-8") if self.size else ""


class _FaultStruct(Structure):
    _fields_ = [("size", c_size_t), ("line", c_uint64), ("field", _TextStruct), ("name", _TextStruct),
                ("value", _TextStruct), ("code", _TextStruct), ("message", _TextStruct)]


class _VerdictStruct(Structure):
    _fields_ = [("size", c_size_t), ("row", c_uint64), ("line", c_uint64), ("valid", c_int32), ("unused", c_int32),
                ("seq", _TextStruct), ("screen", _TextStruct), ("reason", _TextStruct), ("lines", _TextStruct),
                ("faults", c_void_p), ("fault_count", c_size_t)]

    def texts(self) -> str:
        return "\0".join((self.seq.text(), self.screen.text(), self.reason.text()))


class _CountsStruct(Structure):
    _fields_ = [("size", c_size_t), ("payments", c_uint64), ("invalid", c_uint64), ("bytes", c_uint64),
                ("total_bytes", c_uint64)]

    def counts(self) -> BatchCounts:
        return BatchCounts(self.payments, self.invalid, self.bytes, self.total_bytes)


_ON_VERDICTS = CFUNCTYPE(c_int, c_void_p, c_void_p, c_size_t)
_ON_PROGRESS = CFUNCTYPE(c_int, c_void_p, POINTER(_CountsStruct))
_ON_PROBLEM = CFUNCTYPE(c_int, c_void_p, c_char_p, c_uint64, c_char_p)


class _BatchStruct(Structure):
    _fields_ = [("size", c_size_t), ("payments_path", c_char_p), ("records_path", c_char_p),
                ("payments_bytes", c_char_p), ("payments_size", c_size_t), ("records_bytes", c_char_p),
                ("records_size", c_size_t), ("part", c_uint64), ("parts", c_uint64), ("jobs", c_uint32),
                ("wants_valid", c_int32), ("wants_faults", c_int32), ("wants_lines", c_int32), ("context", c_void_p),
                ("on_verdicts", _ON_VERDICTS), ("on_progress", _ON_PROGRESS), ("on_problem", _ON_PROBLEM)]


_judge_payment = _library.function("judge_payment", c_void_p, c_char_p, c_char_p, c_int64, POINTER(c_char_p), c_size_t,
                                   c_int32, POINTER(_VerdictStruct))
_validate_batch = _library.function("validate_batch", POINTER(_BatchStruct), POINTER(_CountsStruct))

# A block of verdicts as it crosses over.
_Block = Iterable[Verdict]

# The library tells so many at a time: their places in a block are made once.
_PLACES = list(range(4096))


def _structs_of(first: int, count: int, stride: int) -> Iterator[_VerdictStruct]:
    return (_VerdictStruct.from_address(first + number * stride) for number in range(count))


def _texts_of(first: int, count: int, stride: int) -> bytes:
    """The texts of all verdicts of a block, which lie one behind the other."""
    last = _VerdictStruct.from_address(first + (count - 1) * stride)
    start = _VerdictStruct.from_address(first).seq.data
    return ctypes.string_at(start, last.reason.data + last.reason.size - start)


def _rows_of(first: int, count: int, stride: int) -> Sequence[int]:
    """The rows of the verdicts of a block."""
    start = _VerdictStruct.from_address(first).row
    if _VerdictStruct.from_address(first + (count - 1) * stride).row == start + count - 1:
        return range(start, start + count)
    offset = _VerdictStruct.row.offset
    return [row for row, in struct.iter_unpack(f"={offset}xQ{stride - offset - 8}x",
                                               ctypes.string_at(first, count * stride))]


def _valid_of(first: int, count: int, stride: int) -> bytes:
    """A byte for each verdict of a block, not 0 where the payment is good."""
    field = _VerdictStruct.valid
    lowest = field.offset + (0 if sys.byteorder == "little" else field.size - 1)
    return memoryview((ctypes.c_char * (count * stride)).from_address(first))[lowest::stride].tobytes()


def _faults_of(verdict: _VerdictStruct) -> Iterator[Fault]:
    at = verdict.faults
    for _ in range(verdict.fault_count):
        one = _FaultStruct.from_address(at)
        yield Fault(one.line, one.field.text(), one.name.text(), one.value.text(), one.code.text(), one.message.text())
        at += one.size


def _block_of(first: int, count: int, whole: bool) -> _Block:
    """What stays of the verdicts that the library shows during a call."""
    stride = _VerdictStruct.from_address(first).size
    if not whole:
        told = _Told(_rows_of(first, count, stride), _texts_of(first, count, stride))
        places = _PLACES[:count] if count <= len(_PLACES) else range(count)
        return map(Verdict, zip(itertools.repeat(told), places, _valid_of(first, count, stride)))
    return [_WholeVerdict((one.row, one.texts(), one.line, one.lines.text(), tuple(_faults_of(one))))
            for one in _structs_of(first, count, stride)]


class _Run:
    """One batch that is judged, in the thread that calls it."""

    def __init__(self, payments: Source, records: Source, part: Optional[Tuple[int, int]], jobs: Optional[int]) -> None:
        self._raised: Optional[BaseException] = None
        self._told: Optional[Callable[[BatchCounts], object]] = None
        self._problems: List[BatchProblem] = []
        # What the library reads must stay.
        self._kept: List[Any] = [payments, records]
        self.struct = _BatchStruct(size=ctypes.sizeof(_BatchStruct))
        self._give("payments", payments)
        self._give("records", records)
        if part is not None:
            if not isinstance(part, tuple) or len(part) != 2:
                raise mismatch("a pair such as (1, 4)", part)
            number, of = _library.whole(part[0], bits=64), _library.whole(part[1], bits=64)
            if not 1 <= number <= of:
                raise refused(ErrorNumber.INVALID_PROCEDURE_CALL)
            self.struct.part, self.struct.parts = number, of
        if jobs is not None:
            if _library.whole(jobs) < 1:
                raise refused(ErrorNumber.INVALID_PROCEDURE_CALL)
            self.struct.jobs = jobs
        self._keep("on_problem", _ON_PROBLEM, self._problem)

    def _give(self, name: str, source: Source) -> None:
        if isinstance(source, bytes):
            setattr(self.struct, f"{name}_path", name.encode("ascii"))
            setattr(self.struct, f"{name}_bytes", source)
            setattr(self.struct, f"{name}_size", len(source))
        else:
            setattr(self.struct, f"{name}_path", _library.system_path(source))

    def _problem(self, file: Optional[bytes], line: int, reason: Optional[bytes]) -> None:
        self._problems.append(BatchProblem(os.fsdecode(file or b""), line, (reason or b"").decode("utf-8", "replace")))

    def _keep_raised(self, error: BaseException) -> None:
        self._raised = self._raised or error

    def _keep(self, name: str, kind: Any, routine: Callable[..., object]) -> None:
        """Has the library call a routine. What it raises ends the batch, and comes out of it."""

        def guarded(_context: Any, *arguments: Any) -> int:
            try:
                routine(*arguments)
                return 0
            except BaseException as error:
                self._keep_raised(error)
                return 1

        setattr(self.struct, name, kind(guarded))

    def tell_progress(self, routine: Callable[[BatchCounts], object]) -> None:
        if not callable(routine):
            raise mismatch("a routine or None", routine)
        self._told = routine
        self._keep("on_progress", _ON_PROGRESS, lambda so_far: routine(so_far.contents.counts()))

    def tell_verdicts(self, routine: Callable[[int, int], None], go_on: Callable[[], None]) -> None:
        """``go_on`` raises where nobody wants the rest: it is asked as the batch proceeds, for bad payments may be far
        between."""
        told = self._told

        def progress(so_far: Any) -> None:
            go_on()
            if told is not None:
                told(so_far.contents.counts())

        self._keep("on_verdicts", _ON_VERDICTS, routine)
        self._keep("on_progress", _ON_PROGRESS, progress)

    def judge(self) -> BatchCounts:
        counts = _CountsStruct(size=ctypes.sizeof(_CountsStruct))
        try:
            with _library.hearing(self._keep_raised):
                _validate_batch(byref(self.struct), byref(counts))
        except FiscalonError as error:
            if self._raised is not None:
                raise self._raised from None
            if isinstance(error, BatchError):
                error.problems = self._problems
            raise
        if self._raised is not None:
            raise self._raised
        return counts.counts()


class _Stopped(Exception):
    """Nobody wants the rest of a batch."""


class _Pipe:
    """Between the thread that judges and the one that takes the verdicts: a few blocks, no more."""

    _MOST = 8

    def __init__(self) -> None:
        self._blocks: Deque[_Block] = Deque()
        self._changed = threading.Condition()
        self._stopped = False
        self.counts: Optional[BatchCounts] = None
        self.error: Optional[BaseException] = None

    def go_on(self) -> None:
        if self._stopped:
            raise _Stopped

    def put(self, block: _Block) -> None:
        with self._changed:
            while len(self._blocks) >= self._MOST and not self._stopped:
                self._changed.wait()
            self.go_on()
            self._blocks.append(block)
            self._changed.notify_all()

    def end(self, counts: Optional[BatchCounts], error: Optional[BaseException]) -> None:
        with self._changed:
            self.counts, self.error = counts, error
            self._changed.notify_all()

    def get(self) -> Optional[_Block]:
        """The next block; nothing where all is told."""
        with self._changed:
            while not self._blocks and self.counts is None and self.error is None:
                self._changed.wait()
            if not self._blocks:
                return None
            block = self._blocks.popleft()
            self._changed.notify_all()
            return block

    def stop(self) -> None:
        with self._changed:
            self._stopped = True
            self._blocks.clear()
            self._changed.notify_all()


def _judge_into(run: _Run, pipe: _Pipe) -> None:
    try:
        pipe.end(run.judge(), None)
    except BaseException as error:
        pipe.end(None, error)


class _Blocks(Iterator[_Block]):
    """Has a batch judged by a thread of its own, and hands out the blocks. Ends the batch when nobody holds it."""

    def __init__(self, run: _Run, whole: bool) -> None:
        pipe = self.pipe = _Pipe()
        run.tell_verdicts(lambda first, count: pipe.put(_block_of(first, count, whole)), pipe.go_on)
        self._process = os.getpid()
        self._closed = False
        # The interpreter does not wait for such a thread; what it needs would be taken away beneath it.
        self._thread = threading.Thread(target=_judge_into, args=(run, pipe), name="fiscalon batch", daemon=True)
        _running.add(self)
        self._thread.start()

    def __next__(self) -> _Block:
        if os.getpid() != self._process:
            raise ForkedError(ErrorNumber.FORKED, "the batch is judged in the parent of this process")
        block = self.pipe.get()
        if block is not None:
            return block
        if self.pipe.error is not None and not self._closed:
            raise self.pipe.error
        raise StopIteration

    def close(self) -> None:
        # A fork may have left the locks as they are for ever.
        if os.getpid() != self._process:
            return
        self._closed = True
        self.pipe.stop()
        if threading.current_thread() is not self._thread:
            self._thread.join()

    def __del__(self) -> None:
        if hasattr(self, "_thread"):
            self.close()


class Verdicts(Iterator[Verdict]):
    """The verdicts of a batch, in its order, while they are made. An iterator and a context manager; dropped or closed
    early it ends the batch. ``counts`` tells of the whole batch when it is over."""

    def __init__(self, run: _Run, whole: bool) -> None:
        self._blocks = _Blocks(run, whole)
        # Walks without a step of the interpreter's per verdict.
        self._walk: Iterator[Verdict] = itertools.chain.from_iterable(self._blocks)

    def __iter__(self) -> Iterator[Verdict]:
        return self._walk

    def __next__(self) -> Verdict:
        return next(self._walk)

    @property
    def counts(self) -> BatchCounts:
        """What the batch came to. Only of one that was judged to its end: error 91 before."""
        counts = self._blocks.pipe.counts
        if counts is None:
            raise NotSetError(ErrorNumber.OBJECT_NOT_SET, "the batch was not judged to its end")
        return counts

    def close(self) -> None:
        """Ends the batch where it is."""
        self._blocks.close()

    def __enter__(self) -> Verdicts:
        return self

    def __exit__(self, kind: Optional[Type[BaseException]], error: Optional[BaseException],
                 trace: Optional[TracebackType]) -> None:
        self.close()


_running: "weakref.WeakSet[_Blocks]" = weakref.WeakSet()


@atexit.register
def _end_all() -> None:
    for blocks in list(_running):
        blocks.close()


def validate_batch(payments: Source, records: Source, *, part: Optional[Tuple[int, int]] = None,
                   jobs: Optional[int] = None, valid: bool = True, faults: bool = False, lines: bool = False,
                   on_progress: Optional[Callable[[BatchCounts], object]] = None) -> Verdicts:
    """Judges a batch, and gives the verdicts while they are made::

        with fiscalon.validate_batch("batch.csv", "batch.pc4") as verdicts:
            for verdict in verdicts:
                if not verdict.valid:
                    print(verdict.seq, verdict.reason)
        print(verdicts.counts.invalid)

    ``payments`` and ``records`` are the two files, by path or as bytes; neither is copied. ``part=(2, 8)`` judges the
    second of eight parts: the verdicts of all parts in their order are those of the batch. ``jobs`` threads judge, as
    many as there are cores where it is left out. With ``valid=False`` only the bad payments are told, and with
    ``faults=True`` where each fault lies, with ``lines=True`` the payments' lines of the record file. ``on_progress``
    is called every few thousand payments, in a thread of the batch.

    ``BatchError`` where the files can't be read or don't line up: then no verdict counts, those that were given
    neither. It names the problems."""
    run = _Run(payments, records, part, jobs)
    run.struct.wants_valid = int(bool(valid))
    run.struct.wants_faults = int(bool(faults))
    run.struct.wants_lines = int(bool(lines))
    if on_progress is not None:
        run.tell_progress(on_progress)
    return Verdicts(run, bool(faults or lines))


def count_batch(payments: Source, records: Source, *, part: Optional[Tuple[int, int]] = None,
                jobs: Optional[int] = None,
                on_progress: Optional[Callable[[BatchCounts], object]] = None) -> BatchCounts:
    """Judges a batch and tells how many of its payments are good, with the arguments of ``validate_batch``."""
    run = _Run(payments, records, part, jobs)
    if on_progress is not None:
        run.tell_progress(on_progress)
    return run.judge()


class Judge(Handle):
    """Judges payments one by one from the host's own memory, with the verdicts of ``Check`` and without its logs, all
    as of the day on which it was made."""

    _name = "judge"

    def judge(self, screen_code: str, cents: int, records: Iterable[str], *, biller_code: str = "",
              faults: bool = False) -> Verdict:
        """The verdict on a payment with these records, of which ``cents`` are to be paid. Row and sequence number say
        nothing; the lines of faults are the records, from 1."""
        if isinstance(records, (str, bytes)):
            raise mismatch("texts, one for each record", records)
        texts = [_library.text(each) for each in records]
        amount = _library.whole(cents, bits=64)
        struct = _VerdictStruct(size=ctypes.sizeof(_VerdictStruct))
        screen, biller = _library.text(screen_code), _library.text(biller_code)
        with _handles._reading:
            _judge_payment(self._open, screen, biller, amount, (c_char_p * len(texts))(*texts), len(texts),
                           int(bool(faults)), byref(struct))
            return _WholeVerdict((struct.row, struct.texts(), struct.line, struct.lines.text(),
                                  tuple(_faults_of(struct))))
