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
    #: Why, in a sentence.
    reason: str

    def __str__(self) -> str:
        return f"{self.file}:{self.line}: {self.reason}" if self.line else f"{self.file}: {self.reason}"


class BatchError(FiscalonError, ValueError):
    """1011: the files of a batch can't be read or don't line up; no verdict counts. ``problems`` names the first
    twenty."""

    def __init__(self, number: int, description: str, source: str = "Fiscalon",
                 problems: Optional[List[BatchProblem]] = None) -> None:
        super().__init__(number, description, source)
        #: What keeps the batch from being judged.
        self.problems: List[BatchProblem] = problems or []


class ErrorNumber:
    """The numbers by name."""

    INVALID_PROCEDURE_CALL = 5  #: An unknown key, or a text that does not fit its columns.
    OVERFLOW = 6  #: A number beyond its range.
    OUT_OF_MEMORY = 7  #: Nothing is leaked; the same call may be made again.
    SUBSCRIPT_OUT_OF_RANGE = 9  #: An unknown position.
    TYPE_MISMATCH = 13  #: A value of another kind.
    FILE_NOT_FOUND = 53  #: An older record file is not there any more.
    DISK_FULL = 61  #: The disk is full.
    PERMISSION_DENIED = 70  #: An older record file can't be deleted.
    PATH_FILE_ACCESS = 75  #: A file can't be opened.
    PATH_NOT_FOUND = 76  #: A folder is missing.
    OBJECT_NOT_SET = 91  #: No front end is installed, or an object was closed.
    ALREADY_SHOWN = 400  #: The form is being shown already.
    DUPLICATE_KEY = 457  #: A key that is taken.
    INVALID_SCREEN_TYPE = -2147221503  #: A code that no screen has.
    NULL_POINTER = 1001  #: A pointer that is missing; no call of this package leaves one out.
    NO_HANDLE = 1002  #: An object that is gone.
    TEXT = 1003  #: A text that Windows-1252 has no place for.
    STRUCT_SIZE = 1004  #: A library of another version.
    THREAD = 1005  #: Not from this thread.
    BUSY = 1006  #: Not while a screen is open or a batch is being judged.
    FORKED = 1007  #: Not in a child of the process that began it.
    FRONT_END = 1008  #: No such front end, or not installed, or nothing to show forms on.
    CALLBACK = 1009  #: A routine of the host's failed.
    FORM_CLOSED = 1010  #: An act on a form that is no longer up.
    BATCH = 1011  #: Files of a batch can't be read or don't line up; no verdict counts.
    UNFORESEEN = 1012  #: A defect.
    PROGRAM = 1100  #: Of this package: a form in a process of its own.


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
                             f"{_DESCRIPTIONS[ErrorNumber.TYPE_MISMATCH]}: {wanted} is wanted, "
                             f"not {type(value).__name__}")


def refused(number: int) -> FiscalonError:
    """The exception for what this side refuses as the library would, in its words."""
    return error_of(number, _DESCRIPTIONS[number])
