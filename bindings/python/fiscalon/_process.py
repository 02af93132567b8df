"""What is set once for the process, and what tells of the library as a whole."""

from __future__ import annotations

import ctypes
import datetime
import os
from ctypes import POINTER, byref, c_char_p, c_int32, c_size_t
from typing import Any, Dict, Optional, Union

from . import _handles, _library
from ._errors import mismatch
from ._handles import written

_use_front_end = _library.function("use_front_end", c_char_p)
_hindrance = _library.function("front_end_hindrance", c_char_p, POINTER(c_char_p))
_use_folder = _library.function("use_front_end_folder", c_char_p)
_use_clock = _library.function("use_fixed_clock", *[c_int32] * 6)
_use_locale = _library.function("use_locale", c_char_p)
_use_language = _library.function("use_language", c_char_p)
_reset = _library.function("reset")
_to_utf8 = _library.function("to_utf8", c_char_p, c_size_t, c_char_p, c_size_t, POINTER(c_size_t))
_from_utf8 = _library.function("from_utf8", c_char_p, c_size_t, c_char_p, c_size_t, POINTER(c_size_t))

# What was fixed, for forms in a process of their own.
fixed: Dict[str, str] = {}


def version() -> str:
    """The library's version."""
    return _library.decoded(_library.library.fiscalon_version())


def use_front_end(name: Optional[str]) -> None:
    """Installs what shows forms, boxes and help; None takes it away. "qt": windows. "win32": windows by the system's
    own controls. "terminal": forms on the terminal of standard input and output. "scripted": nobody is asked (see
    ``use_scripted_user``). ``FrontEndError`` says what is missing and which package brings it. The thread that calls
    this is the one that shows screens."""
    _use_front_end(None if name is None else _library.text(name))


def front_end_hindrance(name: str) -> str:
    """Why a front end can't be installed here and now, in one line; empty where it can."""
    reason = c_char_p()
    with _handles._reading:
        _hindrance(_library.text(name), byref(reason))
        return _library.decoded(reason.value)


def use_front_end_folder(folder: Union[str, "os.PathLike[str]", None]) -> None:
    """The folder of the front ends that are loaded on demand; None for the usual one."""
    _use_folder(None if folder is None else _library.system_path(folder))


def use_fixed_clock(now: Union[datetime.datetime, datetime.date]) -> None:
    """Has it be that moment until ``reset``: for tests that must come out the same on any day."""
    if not isinstance(now, datetime.date):
        raise mismatch("a date or a moment", now)
    moment = now if isinstance(now, datetime.datetime) else datetime.datetime(now.year, now.month, now.day)
    _use_clock(moment.year, moment.month, moment.day, moment.hour, moment.minute, moment.second)
    fixed["today"] = moment.date().isoformat()


def use_locale(name: str) -> None:
    """Has the user be one of "en-CA", "en-US" or "fr-CA" until ``reset``, whatever the system says; "system" goes by
    the system again. Error 5 for another name."""
    _use_locale(_library.text(name))
    fixed["locale"] = name


def use_language(name: str) -> None:
    """Has forms and boxes be shown in "en" or "fr" until ``reset``; a form that is up keeps its own. Only what the user
    reads changes: properties, records, logs and errors stay as they are. Error 5 for another name."""
    _use_language(_library.text(name))
    fixed["language"] = name


def reset() -> None:
    """Puts the library back to how it is when it has just been loaded: no front end, no form made, no logs, the
    system's clock and locale. Objects keep their properties and can be used on."""
    _reset()
    fixed.clear()
    written.clear()


def _converted(routine: Any, given: bytes, most: int) -> bytes:
    place, needed = ctypes.create_string_buffer(len(given) * most + 1), c_size_t()
    routine(given, len(given), place, len(place), byref(needed))
    return place.raw[:needed.value]


def from_windows_1252(data: bytes) -> str:
    """The text of bytes of a record file or a log. Each byte is a character."""
    if not isinstance(data, bytes):
        raise mismatch("bytes", data)
    return _converted(_to_utf8, data, 3).decode("utf-8")


def to_windows_1252(text: str) -> bytes:
    """The bytes of a text in a record file or a log. ``TextError`` for a character without a place there."""
    return _converted(_from_utf8, _library.encoded(text), 1)
