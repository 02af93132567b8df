"""What all classes over a handle of the library share: making and closing, and properties of each type."""

from __future__ import annotations

import os
import threading
from ctypes import POINTER, byref, c_char_p, c_double, c_int32, c_void_p
from types import TracebackType
from typing import Any, Callable, ClassVar, Dict, Optional, Type, TypeVar, Union, overload

from . import _library
from ._errors import ClosedError, ErrorNumber, mismatch

_Self = TypeVar("_Self", bound="Handle")

# A text that the library gives stays until the next call with its object, whichever thread makes that.
_reading = threading.RLock()


def _renew_lock() -> None:
    global _reading
    _reading = threading.RLock()


if hasattr(os, "register_at_fork"):
    os.register_at_fork(after_in_child=_renew_lock)


class Handle:
    """An object of the library. It goes when nothing in Python holds it any more, or when it is closed."""

    _name: ClassVar[str]

    def __init__(self) -> None:
        self._handle: Optional[c_void_p] = None
        handle = c_void_p()
        _library.function(f"{self._name}_create", POINTER(c_void_p))(byref(handle))
        self._handle = handle

    @classmethod
    def _of(cls: Type[_Self], handle: c_void_p) -> _Self:
        """The object of a handle that the library has given."""
        made = cls.__new__(cls)
        made._handle = handle
        return made

    @property
    def _open(self) -> c_void_p:
        if self._handle is None:
            raise ClosedError(ErrorNumber.OBJECT_NOT_SET, f"this {type(self).__name__} was closed")
        return self._handle

    @property
    def closed(self) -> bool:
        """Whether it was closed; any further use is error 91."""
        return self._handle is None

    def close(self) -> None:
        """Lets go of it at once. What the library still needs of it stays until it is done."""
        with _reading:
            handle, self._handle = self._handle, None
            if handle is not None:
                _library.function(f"{self._name}_destroy", POINTER(c_void_p))(byref(handle))

    def __enter__(self: _Self) -> _Self:
        self._open
        return self

    def __exit__(self, kind: Optional[Type[BaseException]], error: Optional[BaseException],
                 trace: Optional[TracebackType]) -> None:
        self.close()

    def __del__(self) -> None:
        if getattr(self, "_handle", None) is not None:
            self.close()

    def __copy__(self) -> Any:
        raise mismatch("something that can be copied", self)

    def __deepcopy__(self, _: Any) -> Any:
        return self.__copy__()

    def __reduce__(self) -> Any:
        raise mismatch("something that can be pickled", self)


class _Property:
    """A property of a handle. The functions that get and set it bear its name."""

    _place: ClassVar[Any]

    def __init__(self, doc: str) -> None:
        self.__doc__ = doc

    def __set_name__(self, owner: Type[Handle], name: str) -> None:
        self._name = name
        self._find(owner._name, name)

    def _find(self, owner: str, name: str) -> None:
        self._getter = _library.function(f"{owner}_get_{name}", c_void_p, POINTER(self._place))

    def _value(self, instance: Handle) -> Any:
        place = self._place()
        with _reading:
            self._getter(instance._open, byref(place))
            return place.value

    def __delete__(self, instance: Handle) -> None:
        raise AttributeError(f"{self._name} can't be taken away")


class Text(_Property):
    """A text."""

    _place = c_char_p

    def _find(self, owner: str, name: str) -> None:
        super()._find(owner, name)
        self._setter = _library.function(f"{owner}_set_{name}", c_void_p, c_char_p)

    @overload
    def __get__(self, instance: None, owner: Type[Handle]) -> Text: ...
    @overload
    def __get__(self, instance: Handle, owner: Type[Handle]) -> str: ...

    def __get__(self, instance: Optional[Handle], owner: Type[Handle]) -> Union[Text, str]:
        return self if instance is None else _library.decoded(self._value(instance))

    def __set__(self, instance: Handle, value: str) -> None:
        self._set(instance, _library.text(value))

    def _set(self, instance: Handle, encoded: bytes) -> None:
        with _reading:
            self._setter(instance._open, encoded)


class PathText(Text):
    """A path: it is given as a text or by ``pathlib``, and read as a text."""

    def __set__(self, instance: Handle, value: Union[str, "os.PathLike[str]"]) -> None:
        self._set(instance, _library.path(value))


class Number(_Property):
    """A whole number, or a Boolean of the host, which is a number too."""

    _place = c_int32

    def __init__(self, doc: str, taken: Callable[[object], int] = _library.whole) -> None:
        super().__init__(doc)
        self._taken = taken

    def _find(self, owner: str, name: str) -> None:
        super()._find(owner, name)
        self._setter = _library.function(f"{owner}_set_{name}", c_void_p, c_int32)

    @overload
    def __get__(self, instance: None, owner: Type[Handle]) -> Number: ...
    @overload
    def __get__(self, instance: Handle, owner: Type[Handle]) -> int: ...

    def __get__(self, instance: Optional[Handle], owner: Type[Handle]) -> Union[Number, int]:
        return self if instance is None else int(self._value(instance))

    def __set__(self, instance: Handle, value: int) -> None:
        self._setter(instance._open, self._taken(value))


class Truth(_Property):
    """A truth that is only read."""

    _place = c_int32

    @overload
    def __get__(self, instance: None, owner: Type[Handle]) -> Truth: ...
    @overload
    def __get__(self, instance: Handle, owner: Type[Handle]) -> bool: ...

    def __get__(self, instance: Optional[Handle], owner: Type[Handle]) -> Union[Truth, bool]:
        return self if instance is None else bool(self._value(instance))

    def __set__(self, instance: Handle, value: object) -> None:
        raise AttributeError(f"{self._name} is only read")


_Object = TypeVar("_Object", bound=Handle)


def get_object(instance: Handle, getter: Any, kind: Type[_Object]) -> Optional[_Object]:
    """What a property holds that is an object, or nothing."""
    handle = c_void_p()
    getter(instance._open, byref(handle))
    return kind._of(handle) if handle else None


def given_object(value: object, kind: Type[Handle]) -> Optional[c_void_p]:
    """The handle of an object that a property is to hold, or nothing."""
    if value is None:
        return None
    if not isinstance(value, kind):
        raise mismatch(f"{kind.__name__} or None", value)
    return value._open


# What was written of such settings, for forms in a process of their own.
written: Dict[str, Any] = {}


class OfTheProcess:
    """A setting that is written through an object and counts for the whole process. It can't be read."""

    def __init__(self, doc: str, place: Any, taken: Callable[[object], Any]) -> None:
        self.__doc__ = doc
        self._place = place
        self._taken = taken

    def __set_name__(self, owner: Type[Handle], name: str) -> None:
        self._name = name
        self._setter = _library.function(f"set_{name}", self._place)

    @overload
    def __get__(self, instance: None, owner: Type[Handle]) -> OfTheProcess: ...
    @overload
    def __get__(self, instance: Handle, owner: Type[Handle]) -> Any: ...

    def __get__(self, instance: Optional[Handle], owner: Type[Handle]) -> Any:
        if instance is None:
            return self
        raise AttributeError(f"{self._name} is only written")

    def __set__(self, instance: Handle, value: Any) -> None:
        instance._open
        taken = self._taken(value)
        self._setter(taken)
        written[self._name] = taken


def play_by_play_enabled() -> OfTheProcess:
    return OfTheProcess("Whether the play-by-play log is kept: any number but 0, or True. Error 6 for a number that 16 "
                        "bits do not hold.", c_int32, _library.boolean)


def main_path() -> OfTheProcess:
    return OfTheProcess("The folder of the logs.", c_char_p, _library.path)


def session_number() -> OfTheProcess:
    return OfTheProcess("The host's session number; its last three digits stand in the error log. Error 6 for one that "
                        "32 bits do not hold.", c_double, _library.real)
