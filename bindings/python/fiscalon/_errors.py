"""The errors that the library raises, as exceptions: each has the number, the source and the description that hosts in
all languages get, and is one of Python's own kinds too where Python has one."""

from typing import Dict, List, NamedTuple, Optional, Type


class FiscalonError(Exception):
    """Anything that the library refuses or fails in."""

    def __init__(self, number: int, description: str, source: str = "Fiscalon") -> None:
        super().__init__(number, description, source)
        #: What went wrong, as a number; ``fiscalon.ErrorNumber`` names them.
        self.number = number
        #: In words, for people.
        self.description = description
        #: Which routine raised it, such as "Fiscalon.ShowLevyraScreen".
        self.source = source

    def __str__(self) -> str:
        return f"{self.description} (error {self.number} of {self.source})"


class InvalidCallError(FiscalonError, ValueError):
    """5: a value that makes no sense, such as a text that does not fit its columns."""


class UnknownKeyError(InvalidCallError, KeyError):
    """5: a key that no member of a collection has, or a name that no control has."""


class NumberOverflowError(FiscalonError, OverflowError):
    """6: a number beyond its range."""


class OutOfMemoryError(FiscalonError, MemoryError):
    """7: nothing is leaked, and the same call may be made again."""


class UnknownPositionError(FiscalonError, IndexError):
    """9: a position that no member has."""


class TypeMismatchError(FiscalonError, TypeError):
    """13: a value of another type, or a text that is no number."""


class RecordFileError(FiscalonError):
    """53, 61, 70, 75, 76: the record file, or a log, can't be written."""


class NotSetError(FiscalonError):
    """91: something is missing, such as a front end."""


class ClosedError(NotSetError, ValueError):
    """91: an object that was closed."""


class AlreadyShownError(FiscalonError):
    """400: the form is being shown already."""


class DuplicateKeyError(FiscalonError, ValueError):
    """457: a key that another member has."""


class InvalidScreenError(FiscalonError, ValueError):
    """0x80040001: a code that no screen has."""


class TextError(FiscalonError, ValueError):
    """1003: a text with a lone surrogate, a zero, or a character that Windows-1252 lacks."""


class ThreadError(FiscalonError, RuntimeError):
    """1005: a call from another thread than the one that may make it."""


class BusyError(FiscalonError, RuntimeError):
    """1006: not while a screen is open or a batch is being judged."""


class ForkedError(FiscalonError, RuntimeError):
    """1007: not in a child of the process that began it."""


class FrontEndError(FiscalonError):
    """1008: no such front end, or not installed, or nothing to show forms on; the words say which, and what to do."""


class FormClosedError(FiscalonError, RuntimeError):
    """1010: an act on a form that is no longer up."""


class BatchProblem(NamedTuple):
    """One thing that keeps a batch from being judged."""

    #: The file's name as it was given.
    file: str
    #: From 1; 0 where the problem is the file's own.
    line: int
    reason: str

    def __str__(self) -> str:
        return f"{self.file}:{self.line}: {self.reason}" if self.line else f"{self.file}: {self.reason}"


class BatchError(FiscalonError, ValueError):
    """1011: the files of a batch can't be read or don't line up; no verdict counts. ``problems`` names the first twenty."""

    def __init__(self, number: int, description: str, source: str = "Fiscalon",
                 problems: Optional[List[BatchProblem]] = None) -> None:
        super().__init__(number, description, source)
        self.problems: List[BatchProblem] = problems or []


class ErrorNumber:
    """The numbers by name."""

    INVALID_PROCEDURE_CALL = 5
    OVERFLOW = 6
    OUT_OF_MEMORY = 7
    SUBSCRIPT_OUT_OF_RANGE = 9
    TYPE_MISMATCH = 13
    FILE_NOT_FOUND = 53
    DISK_FULL = 61
    PERMISSION_DENIED = 70
    PATH_FILE_ACCESS = 75
    PATH_NOT_FOUND = 76
    OBJECT_NOT_SET = 91
    ALREADY_SHOWN = 400
    DUPLICATE_KEY = 457
    INVALID_SCREEN_TYPE = -2147221503
    NULL_POINTER = 1001
    NO_HANDLE = 1002
    TEXT = 1003
    STRUCT_SIZE = 1004
    THREAD = 1005
    BUSY = 1006
    FORKED = 1007
    FRONT_END = 1008
    CALLBACK = 1009
    FORM_CLOSED = 1010
    BATCH = 1011
    UNFORESEEN = 1012
    #: Of this package: a form in a process of its own.
    PROGRAM = 1100


_CLASSES: Dict[int, Type[FiscalonError]] = {
    ErrorNumber.INVALID_PROCEDURE_CALL: InvalidCallError,
    ErrorNumber.OVERFLOW: NumberOverflowError,
    ErrorNumber.OUT_OF_MEMORY: OutOfMemoryError,
    ErrorNumber.SUBSCRIPT_OUT_OF_RANGE: UnknownPositionError,
    ErrorNumber.TYPE_MISMATCH: TypeMismatchError,
    ErrorNumber.FILE_NOT_FOUND: RecordFileError,
    ErrorNumber.DISK_FULL: RecordFileError,
    ErrorNumber.PERMISSION_DENIED: RecordFileError,
    ErrorNumber.PATH_FILE_ACCESS: RecordFileError,
    ErrorNumber.PATH_NOT_FOUND: RecordFileError,
    ErrorNumber.OBJECT_NOT_SET: NotSetError,
    ErrorNumber.ALREADY_SHOWN: AlreadyShownError,
    ErrorNumber.DUPLICATE_KEY: DuplicateKeyError,
    ErrorNumber.INVALID_SCREEN_TYPE: InvalidScreenError,
    ErrorNumber.TEXT: TextError,
    ErrorNumber.THREAD: ThreadError,
    ErrorNumber.BUSY: BusyError,
    ErrorNumber.FORKED: ForkedError,
    ErrorNumber.FRONT_END: FrontEndError,
    ErrorNumber.FORM_CLOSED: FormClosedError,
    ErrorNumber.BATCH: BatchError,
}

# In the words of the library.
_DESCRIPTIONS = {
    ErrorNumber.INVALID_PROCEDURE_CALL: "Invalid procedure call or argument",
    ErrorNumber.OVERFLOW: "Overflow",
    ErrorNumber.SUBSCRIPT_OUT_OF_RANGE: "Subscript out of range",
    ErrorNumber.TYPE_MISMATCH: "Type mismatch",
}


def error_of(number: int, description: str, source: str = "Fiscalon") -> FiscalonError:
    """The exception for an error of the library."""
    return _CLASSES.get(number, FiscalonError)(number, description, source)


def mismatch(wanted: str, value: object) -> TypeMismatchError:
    """The exception for a value of a type that was not wanted."""
    return TypeMismatchError(ErrorNumber.TYPE_MISMATCH,
                             f"{_DESCRIPTIONS[ErrorNumber.TYPE_MISMATCH]}: {wanted} is wanted, not {type(value).__name__}")


def refused(number: int) -> FiscalonError:
    """The exception for what this side refuses as the library would, in its words."""
    return error_of(number, _DESCRIPTIONS[number])
