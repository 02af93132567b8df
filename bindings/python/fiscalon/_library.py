"""The shared library: where it is found, how its functions are called, how what crosses over is written."""

import contextlib
import ctypes
import operator
import os
import sys
import threading
from ctypes import POINTER, Structure, byref, c_char_p, c_int, c_int32, c_size_t
from pathlib import Path
from typing import Any, Callable, Iterator, Optional

from ._errors import ErrorNumber, TextError, error_of, mismatch, refused

_NAME = "fiscalon-c.dll" if sys.platform == "win32" else "libfiscalon-c.so.1"

# All that is used here of the library was there from this version on.
_NEEDED = "1.0.0"


def _load() -> ctypes.CDLL:
    """By the environment, beside this package, as the system finds it."""
    named = os.environ.get("FISCALON_LIBRARY")
    beside = Path(__file__).resolve().parent / _NAME
    try:
        library = ctypes.CDLL(named or (str(beside) if beside.is_file() else _NAME))
    except OSError as problem:
        raise ImportError(f"{problem}; the library comes with the wheel, or with the Debian package libfiscalon-c1. "
                          "FISCALON_LIBRARY may name it") from None
    _of(library, "version").restype = c_char_p
    return library


def _of(library: ctypes.CDLL, name: str) -> Any:
    """A function of the library; of one that is older than the package it may not be there."""
    try:
        return getattr(library, f"fiscalon_{name}")
    except AttributeError:
        version = getattr(library, "fiscalon_version", None)
        found = f"of Fiscalon {decoded(version())}" if version else "no library of Fiscalon"
        raise ImportError(f"{library._name} is {found}, without fiscalon_{name}; this package needs that of {_NEEDED} "
                          "or newer, which comes with its wheel and with the Debian package libfiscalon-c1. Install "
                          "one, and have FISCALON_LIBRARY name no other") from None


def decoded(text: Optional[bytes]) -> str:
    return (text or b"").decode("utf-8")


library = _load()


class ErrorStruct(Structure):
    _fields_ = [("size", c_size_t), ("number", c_int32), ("source", c_char_p), ("description", c_char_p)]


_of(library, "last_error").argtypes = [POINTER(ErrorStruct)]


def _checked(status: int, _function: Any, _arguments: Any) -> int:
    if status:
        error = ErrorStruct(size=ctypes.sizeof(ErrorStruct))
        library.fiscalon_last_error(byref(error))
        # It may name a file, in the bytes of the system's paths.
        description = (error.description or b"").decode("utf-8", "surrogateescape")
        raise error_of(error.number, description, decoded(error.source))
    return status


@contextlib.contextmanager
def hearing(keep: Callable[[BaseException], object]) -> Iterator[None]:
    """Keeps what is raised at the very start of a routine that the library calls, ahead of all that could catch it: an
    interrupt of the user's, say. ctypes prints that, and the library gets no answer. Signals come to the main
    thread."""
    if threading.current_thread() is not threading.main_thread():
        yield
        return
    usual = sys.unraisablehook

    def heard(told: Any) -> None:
        if told.exc_value is not None and "ctypes callback" in (told.err_msg or ""):
            keep(told.exc_value)
        else:
            usual(told)

    sys.unraisablehook = heard
    try:
        yield
    finally:
        sys.unraisablehook = usual


def function(name: str, *arguments: Any) -> Any:
    """A function of the library, which raises where it fails."""
    found = _of(library, name)
    found.argtypes = arguments
    found.restype = c_int
    found.errcheck = _checked
    return found


def encoded(value: object) -> bytes:
    """A text in UTF-8."""
    if not isinstance(value, str):
        raise mismatch("a text", value)
    try:
        return value.encode("utf-8")
    except UnicodeEncodeError as problem:
        raise TextError(ErrorNumber.TEXT, f"a text that can't be written in UTF-8: {problem.reason}") from None


def text(value: object) -> bytes:
    """A text as the library takes it, which ends with a zero."""
    given = encoded(value)
    if b"\0" in given:
        raise TextError(ErrorNumber.TEXT, "a text with a zero in it")
    return given


def path(value: object) -> bytes:
    """A path among the payment's texts: what is no text may be a path of ``pathlib``."""
    if isinstance(value, os.PathLike):
        value = os.fspath(value)
    return text(value)


def system_path(value: object) -> bytes:
    """A path that the system reads: it may be made of any bytes but zeros."""
    if not isinstance(value, (str, os.PathLike)):
        raise mismatch("a path", value)
    encoded = os.fsencode(value)
    if b"\0" in encoded:
        raise TextError(ErrorNumber.TEXT, "a path with a zero in it")
    return encoded


def whole(value: object, bits: int = 32) -> int:
    """A whole number that the library takes in so many bits with a sign."""
    if isinstance(value, (str, bytes, float)):
        raise mismatch("a whole number", value)
    try:
        number = operator.index(value)  # type: ignore[arg-type]
    except TypeError:
        raise mismatch("a whole number", value) from None
    if not -(1 << (bits - 1)) <= number < 1 << (bits - 1):
        raise refused(ErrorNumber.OVERFLOW)
    return number


def boolean(value: object) -> int:
    """A Boolean of the host: a truth is -1 or 0, a number stays what it is."""
    return -int(value) if isinstance(value, bool) else whole(value)


def real(value: object) -> float:
    """A number with a fraction."""
    if isinstance(value, (str, bytes)):
        raise mismatch("a number", value)
    try:
        return float(value)  # type: ignore[arg-type]
    except OverflowError:
        raise refused(ErrorNumber.OVERFLOW) from None
    except TypeError:
        raise mismatch("a number", value) from None
