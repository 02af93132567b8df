"""The carriers of records: whole ones, and those cut into their fields."""

from __future__ import annotations

from ctypes import POINTER, byref, c_char_p, c_int32, c_int64, c_void_p
from typing import Any, ClassVar, Iterable, List, Sequence, Tuple, Type, TypeVar, Union, overload

from . import _library
from ._errors import ErrorNumber, FiscalonError, UnknownKeyError, UnknownPositionError, mismatch, refused
from ._handles import Handle, Text


class Member(Handle):
    """A member of a collection. It stays what it is when the collection lets it go. Members with the same texts are
    equal."""

    _texts: ClassVar[Tuple[str, ...]]

    def _values(self) -> Tuple[str, ...]:
        return tuple(getattr(self, name) for name in self._texts)

    def __eq__(self, other: object) -> bool:
        if type(other) is not type(self):
            return NotImplemented
        return bool(self._values() == other._values())  # type: ignore[attr-defined]

    # Texts may change.
    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        if self.closed:
            return f"<closed {type(self).__name__}>"
        return f"{type(self).__name__}({', '.join(f'{name}={getattr(self, name)!r}' for name in self._texts)})"


class Record(Member):
    """One record (``PC4``). For all kinds but rows of invoices the whole record stands in ``description``, and the
    other two texts are empty. Only ``Records.add`` makes one."""

    _name = "record"
    _texts = ("the_date", "amount", "description")

    the_date = Text("The date of an invoice, 8 characters; else empty.")
    amount = Text("The amount of an invoice in cents, 10 characters; else empty.")
    description = Text("The whole record, 160 characters mostly, or the number of an invoice, 27 characters.")

    def __init__(self) -> None:
        raise TypeError("only Records.add makes a Record")


class GovFormat(Member):
    """The fields of a T record (``clsPC4GovFormat``), each at its width."""

    _name = "gov_format"
    _texts = ("period_start_date", "period_end_date", "period_due_date", "filler1", "contact_name", "contact_title",
              "filler2")

    period_start_date = Text("8 characters.")
    period_end_date = Text("8 characters.")
    period_due_date = Text("8 characters.")
    filler1 = Text("8 characters.")
    contact_name = Text("30 characters.")
    contact_title = Text("20 characters.")
    filler2 = Text("10 characters.")


class FreeFormat(Member):
    """One slot of an F record (``clsPC4FreeFormat``)."""

    _name = "free_format"
    _texts = ("field_num", "field_value")

    field_num = Text("The number of the field, 2 characters.")
    field_value = Text("What stands in it, 18 characters.")


_M = TypeVar("_M", bound=Member)


class Collection(Handle, Sequence[_M]):
    """Members in order, some with a key.

    As a sequence of Python it counts from 0 (``records[0]``, ``del records[-1]``, slices); by ``item`` and ``remove``
    it counts from 1, as in all other languages. Either takes a key too. Errors: 9 for an unknown position, which is an
    ``IndexError``; 5 for an unknown key, which is a ``KeyError``; 457 for a key that is taken."""

    _member: ClassVar[Type[Any]]

    def __init_subclass__(cls) -> None:
        super().__init_subclass__()
        name, texts = cls._name, len(cls._member._texts)
        place = POINTER(c_void_p)
        cls._functions = {
            "add": _library.function(f"{name}_add", c_void_p, *[c_char_p] * (texts + 1), place),
            "count": _library.function(f"{name}_count", c_void_p, POINTER(c_int32)),
            "item_at": _library.function(f"{name}_item_at", c_void_p, c_int64, place),
            "item_of": _library.function(f"{name}_item_of", c_void_p, c_char_p, place),
            "remove_at": _library.function(f"{name}_remove_at", c_void_p, c_int64),
            "remove_of": _library.function(f"{name}_remove_of", c_void_p, c_char_p),
            "clear": _library.function(f"{name}_clear", c_void_p),
            "is_same": _library.function(f"{name}_is_same", c_void_p, c_void_p, POINTER(c_int32)),
        }

    _functions: ClassVar[Any]

    def _add(self, *texts: str) -> _M:
        added = c_void_p()
        self._functions["add"](self._open, *[_library.text(each) for each in texts], byref(added))
        return self._member._of(added)  # type: ignore[no-any-return]

    def _call(self, routine: str, place: Union[int, str], *more: Any) -> None:
        """Calls what goes by a position or a key."""
        if isinstance(place, str):
            try:
                self._functions[f"{routine}_of"](self._open, _library.text(place), *more)
            except FiscalonError as error:
                if error.number != ErrorNumber.INVALID_PROCEDURE_CALL:
                    raise
                raise UnknownKeyError(error.number, error.description, error.source) from None
            return
        # A truth is a number to Python, but no position to anyone.
        if isinstance(place, bool):
            raise mismatch("a position or a key", place)
        try:
            position = _library.whole(place, bits=64)
        except OverflowError:
            raise refused(ErrorNumber.SUBSCRIPT_OUT_OF_RANGE) from None
        self._functions[f"{routine}_at"](self._open, position, *more)

    def item(self, position_or_key: Union[int, str]) -> _M:
        """The member at a position, from 1, or under a key."""
        item = c_void_p()
        self._call("item", position_or_key, byref(item))
        return self._member._of(item)  # type: ignore[no-any-return]

    def remove(self, position_or_key: Union[int, str]) -> None:
        """Takes out the member at a position, from 1, or under a key; those behind it move up."""
        self._call("remove", position_or_key)

    def clear(self) -> None:
        """Takes out all members."""
        self._functions["clear"](self._open)

    def __len__(self) -> int:
        count = c_int32()
        self._functions["count"](self._open, byref(count))
        return count.value

    def _position(self, index: object) -> int:
        """The position, from 1, of an index of Python's."""
        if isinstance(index, bool):
            raise mismatch("an index or a key", index)
        try:
            number = _library.whole(index, bits=64)
        except OverflowError:
            raise refused(ErrorNumber.SUBSCRIPT_OUT_OF_RANGE) from None
        position = number + 1 if number >= 0 else len(self) + number + 1
        if position < 1:
            raise refused(ErrorNumber.SUBSCRIPT_OUT_OF_RANGE)
        return position

    @overload
    def __getitem__(self, index: Union[int, str]) -> _M: ...
    @overload
    def __getitem__(self, index: slice) -> List[_M]: ...

    def __getitem__(self, index: Union[int, str, slice]) -> Union[_M, List[_M]]:
        if isinstance(index, slice):
            return [self.item(each + 1) for each in range(*index.indices(len(self)))]
        return self.item(index if isinstance(index, str) else self._position(index))

    def __delitem__(self, index: Union[int, str]) -> None:
        self.remove(index if isinstance(index, str) else self._position(index))

    def is_same(self, other: Collection[_M]) -> bool:
        """Whether two objects stand for one collection, such as a form's own."""
        if type(other) is not type(self):
            raise mismatch(type(self).__name__, other)
        same = c_int32()
        self._functions["is_same"](self._open, other._open, byref(same))
        return bool(same.value)

    def __repr__(self) -> str:
        return f"<closed {type(self).__name__}>" if self.closed else f"<{type(self).__name__} of {len(self)}>"


class Records(Collection[Record]):
    """The records of one payment, in order (``PC4s``)."""

    _name = "records"
    _member: ClassVar[Type[Record]] = Record

    def add(self, the_date: str = "", amount: str = "", description: str = "", key: str = "") -> Record:
        """Appends a record and returns it; with an empty key it has none."""
        return self._add(the_date, amount, description, key)

    @classmethod
    def of(cls, descriptions: Iterable[str]) -> Records:
        """A collection of whole records."""
        made = cls()
        for description in descriptions:
            made.add(description=description)
        return made


class GovFormats(Collection[GovFormat]):
    """T records that are cut into their fields (``clsPC4GovFormats``)."""

    _name = "gov_formats"
    _member: ClassVar[Type[GovFormat]] = GovFormat

    def add(self, period_start_date: str = "", period_end_date: str = "", period_due_date: str = "", filler1: str = "",
            contact_name: str = "", contact_title: str = "", filler2: str = "", key: str = "") -> GovFormat:
        """Appends a member and returns it; with an empty key it has none."""
        return self._add(period_start_date, period_end_date, period_due_date, filler1, contact_name, contact_title,
                         filler2, key)


class FreeFormats(Collection[FreeFormat]):
    """The slots of a payment's F records (``clsPC4FreeFormats``)."""

    _name = "free_formats"
    _member: ClassVar[Type[FreeFormat]] = FreeFormat

    def add(self, field_num: str = "", field_value: str = "", key: str = "") -> FreeFormat:
        """Appends a member and returns it; with an empty key it has none."""
        return self._add(field_num, field_value, key)
