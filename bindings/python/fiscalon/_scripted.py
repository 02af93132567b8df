"""The scripted user: routines of the host's that play the user of a form, without a display."""

from __future__ import annotations

import contextlib
import ctypes
from ctypes import CFUNCTYPE, POINTER, Structure, byref, c_char_p, c_int, c_int32, c_int64, c_size_t, c_void_p
from enum import IntEnum
from typing import Any, Callable, Iterator, List, NamedTuple, Optional, Union

from . import _library
from ._errors import ErrorNumber, FiscalonError, FormClosedError, InvalidCallError, UnknownKeyError, mismatch, refused


class BoxStyle(IntEnum):
    """What kind of a message a box brings."""

    PLAIN = 0  #: No mark.
    CRITICAL = 1  #: An error.
    QUESTION = 2  #: A question.
    EXCLAMATION = 3  #: A warning.
    INFORMATION = 4  #: News.


class Buttons(IntEnum):
    """Which buttons a box has."""

    OK = 0  #: OK.
    OK_CANCEL = 1  #: OK and Cancel.
    YES_NO = 2  #: Yes and No.


class Answer(IntEnum):
    """Which button of a box was pressed."""

    OK = 0  #: OK.
    CANCEL = 1  #: Cancel.
    YES = 2  #: Yes.
    NO = 3  #: No.


_OFFERED = {Buttons.OK: (Answer.OK,), Buttons.OK_CANCEL: (Answer.OK, Answer.CANCEL),
            Buttons.YES_NO: (Answer.YES, Answer.NO)}


class ControlKind(IntEnum):
    """What a control is."""

    LABEL = 0  #: A label.
    TEXT_FIELD = 1  #: A text field.
    BUTTON = 2  #: A push button.
    CHECK_BOX = 3  #: A check box.
    OPTION_BUTTON = 4  #: An option button.
    DROP_DOWN_LIST = 5  #: A list that drops down.
    LIST_BOX = 6  #: A list.
    FRAME = 7  #: A frame around others.


class CloseReason(IntEnum):
    """Why a window closes."""

    CLOSE_BOX = 0  #: By its close box.
    CODE = 1  #: By code.
    SYSTEM_ENDS = 2  #: The system ends.
    TASK_MANAGER = 3  #: The task manager ends the program.
    PARENT_CLOSES = 4  #: The window that holds it closes.
    OWNER_CLOSES = 5  #: The window that owns it closes.


class Box(NamedTuple):
    """A message box that is up."""

    #: What it says.
    text: str
    #: Empty: the host application's own name is shown.
    title: str
    #: What kind of a message it brings.
    style: BoxStyle
    #: Which buttons it has.
    buttons: Buttons
    #: What Enter answers.
    default_answer: Answer
    #: What a box answers that is closed without a button: the most careful of its answers.
    closed_answer: Answer

    def offers(self, answer: Answer) -> bool:
        """Whether it has a button with that answer."""
        return answer in _OFFERED[self.buttons]


class Control(NamedTuple):
    """What the user sees of a control."""

    #: As handlers bear it; members of arrays are named "Box(3)".
    name: str
    #: What it is.
    kind: ControlKind
    #: A field's text, a button's or label's caption as designed, a list's selected row.
    text: str
    #: The part of a field's text that is selected.
    selection: str
    #: The rows of a list.
    items: int
    #: Whether it is checked, or on.
    checked: bool
    #: Whether it takes no entry.
    locked: bool
    #: Whether it takes the focus.
    enabled: bool
    #: Whether it is seen.
    visible: bool


class _ControlStruct(Structure):
    _fields_ = [("size", c_size_t), ("name", c_char_p), ("kind", c_int32), ("items", c_int32), ("text", c_char_p),
                ("selection", c_char_p), ("checked", c_int32), ("locked", c_int32), ("enabled", c_int32),
                ("visible", c_int32)]


_TEXT = POINTER(c_char_p)
_NUMBER = POINTER(c_int32)
_CONTROL = POINTER(_ControlStruct)
_get_name = _library.function("form_get_name", c_void_p, _TEXT)
_is_up = _library.function("form_is_up", c_void_p, _NUMBER)
_get_chosen = _library.function("form_get_chosen", c_void_p, _NUMBER)
_get_title = _library.function("form_get_title", c_void_p, _TEXT)
_get_focus = _library.function("form_get_focus", c_void_p, _TEXT)
_get_status = _library.function("form_get_status", c_void_p, _TEXT)
_control_count = _library.function("form_control_count", c_void_p, _NUMBER)
_control_at = _library.function("form_control_at", c_void_p, c_int64, _CONTROL)
_control_of = _library.function("form_control_of", c_void_p, c_char_p, _CONTROL)
_get_row = _library.function("form_get_row", c_void_p, c_char_p, c_int32, _TEXT)
_type = _library.function("form_type", c_void_p, c_char_p)
_press_key = _library.function("form_press_key", c_void_p, c_char_p)
_press_mouse = _library.function("form_press_mouse", c_void_p, c_char_p)
_click = _library.function("form_click", c_void_p, c_char_p)
_choose = _library.function("form_choose", c_void_p, c_char_p, c_int32)
_paste = _library.function("form_paste", c_void_p, c_char_p)
_close = _library.function("form_close", c_void_p, c_int32)


@contextlib.contextmanager
def _naming_a_control() -> Iterator[None]:
    try:
        yield
    except InvalidCallError as error:
        raise UnknownKeyError(error.number, error.description, error.source) from None


class Form:
    """A form that is up, and a user at it: acts, and eyes that read what is shown. It is good for as long as the
    routine runs that was given it, and an act for as long as the form is up; else error 1010."""

    def __init__(self, pointer: c_void_p) -> None:
        self._pointer: Optional[c_void_p] = pointer

    @property
    def _open(self) -> c_void_p:
        if self._pointer is None:
            raise FormClosedError(ErrorNumber.FORM_CLOSED, "the form's routine has returned")
        return self._pointer

    def _text(self, getter: Any) -> str:
        place = c_char_p()
        getter(self._open, byref(place))
        return _library.decoded(place.value)

    @property
    def name(self) -> str:
        """Such as "frmDueDateAmount"."""
        return self._text(_get_name)

    @property
    def is_up(self) -> bool:
        """Whether it is still up."""
        if self._pointer is None:
            return False
        up = c_int32()
        _is_up(self._pointer, byref(up))
        return bool(up.value)

    @property
    def chosen(self) -> bool:
        """Whether it counts as accepted by now, which the show's result will tell."""
        chosen = c_int32()
        _get_chosen(self._open, byref(chosen))
        return bool(chosen.value)

    @property
    def title(self) -> str:
        """The title of its window."""
        return self._text(_get_title)

    @property
    def focus(self) -> str:
        """The name of the control that has the focus; empty where none has."""
        return self._text(_get_focus)

    @property
    def status(self) -> str:
        """What it says without a box; empty mostly."""
        return self._text(_get_status)

    @staticmethod
    def _seen(struct: _ControlStruct) -> Control:
        return Control(name=_library.decoded(struct.name), kind=ControlKind(struct.kind),
                       text=_library.decoded(struct.text), selection=_library.decoded(struct.selection),
                       items=struct.items, checked=bool(struct.checked), locked=bool(struct.locked),
                       enabled=bool(struct.enabled), visible=bool(struct.visible))

    @property
    def controls(self) -> List[Control]:
        """All controls as they are now, in the order of the form."""
        count = c_int32()
        _control_count(self._open, byref(count))
        seen = []
        for position in range(1, count.value + 1):
            struct = _ControlStruct(size=ctypes.sizeof(_ControlStruct))
            _control_at(self._open, position, byref(struct))
            seen.append(self._seen(struct))
        return seen

    def control(self, name: str) -> Control:
        """A control as it is now. Error 5, a ``KeyError``, for a name that none has."""
        struct = _ControlStruct(size=ctypes.sizeof(_ControlStruct))
        with _naming_a_control():
            _control_of(self._open, _library.text(name), byref(struct))
        return self._seen(struct)

    def __getitem__(self, name: str) -> Control:
        return self.control(name)

    def rows(self, control: str) -> List[str]:
        """The rows of a list. Error 5 for what is none."""
        rows = []
        for row in range(self.control(control).items):
            place = c_char_p()
            _get_row(self._open, _library.text(control), row, byref(place))
            rows.append(_library.decoded(place.value))
        return rows

    def type(self, text: str) -> None:
        """Types each character into the control that has the focus by then; a tab goes on to the next control. Where
        the form closes before the last one: error 1010."""
        _type(self._open, _library.text(text))

    def press_key(self, key: str) -> None:
        """Tab, Shift+Tab, Enter, Shift+Enter, Ctrl+Enter, Escape, Backspace, Delete, Space, Left, Right, Up, Down,
        Home, End or Alt+LETTER."""
        _press_key(self._open, _library.text(key))

    def press_mouse(self, control: str) -> None:
        """Presses the mouse on a control without releasing it."""
        with _naming_a_control():
            _press_mouse(self._open, _library.text(control))

    def click(self, control: str) -> None:
        """Presses the mouse on a control and releases it."""
        with _naming_a_control():
            _click(self._open, _library.text(control))

    def choose(self, control: str, row: Union[int, str]) -> None:
        """Picks a row of a list, from 0 or by its text."""
        if isinstance(row, str):
            rows = self.rows(control)
            if row not in rows:
                raise UnknownKeyError(ErrorNumber.INVALID_PROCEDURE_CALL, f'"{control}" has no row "{row}"')
            row = rows.index(row)
        _choose(self._open, _library.text(control), _library.whole(row))

    def paste(self, text: str) -> None:
        """Pastes over the selection of the control that has the focus."""
        _paste(self._open, _library.text(text))

    def close(self, reason: CloseReason = CloseReason.CLOSE_BOX) -> None:
        """Closes the window."""
        _close(self._open, _library.whole(reason))


class _BoxStruct(Structure):
    _fields_ = [("size", c_size_t), ("text", c_char_p), ("title", c_char_p), ("style", c_int32), ("buttons", c_int32),
                ("default_answer", c_int32), ("closed_answer", c_int32)]


_ON_FORM = CFUNCTYPE(c_int, c_void_p, c_void_p)
_ON_BOX = CFUNCTYPE(c_int, c_void_p, POINTER(_BoxStruct), _NUMBER)
_ON_BEEP = CFUNCTYPE(c_int, c_void_p)
_ON_HELP = CFUNCTYPE(c_int, c_void_p, c_char_p, c_int32)
_ON_HANDLER = CFUNCTYPE(c_int, c_void_p, c_char_p)


class _UserStruct(Structure):
    _fields_ = [("size", c_size_t), ("context", c_void_p), ("on_form", _ON_FORM), ("on_box", _ON_BOX),
                ("on_beep", _ON_BEEP), ("on_help", _ON_HELP), ("on_handler", _ON_HANDLER)]


_use_scripted_user = _library.function("use_scripted_user", POINTER(_UserStruct))

# What the routines of the host's have raised in the show that runs; the first of them comes out of it.
_raised: List[BaseException] = []


@contextlib.contextmanager
def handing_out() -> Iterator[None]:
    """Around a show: what a routine has raised comes out of it, whatever the library answers. A routine may show
    another screen, whose exceptions are its own."""
    outer = _raised[:]
    _raised.clear()
    try:
        with _library.hearing(_raised.append):
            yield
    except FiscalonError:
        if not _raised:
            raise
    finally:
        mine = _raised[:]
        _raised[:] = outer
    if mine:
        raise mine[0]


def _guarded(kind: Any, routine: Optional[Callable[..., object]]) -> Any:
    """A routine as the library calls it. An exception never reaches the library, which would take it for an answer; it
    is kept, and the show ends."""
    if routine is None:
        return kind()
    call = routine

    def guarded(_context: Any, *arguments: Any) -> int:
        try:
            call(*arguments)
            return 0
        except BaseException as error:
            _raised.append(error)
            return 1

    return kind(guarded)


# What the library calls must stay as long as it may call it.
_installed: List[Any] = []


def use_scripted_user(*, on_form: Optional[Callable[[Form], object]] = None,
                      on_box: Optional[Callable[[Box], Answer]] = None, on_beep: Optional[Callable[[], object]] = None,
                      on_help: Optional[Callable[[str, int], object]] = None,
                      on_handler: Optional[Callable[[str], object]] = None) -> None:
    """Installs the front end that needs no display, with routines that play the user.

    ``on_form`` is given the form that is up; one that is still up when it returns is closed as hidden. ``on_box``
    answers a message box by one of its buttons; without it a box gets its default answer. ``on_beep`` and ``on_help``
    (a file and a context number) hear of what their names say, and ``on_handler`` of each handler that is about to run,
    such as "txtAmountPayable_Change". What a routine raises ends the show and comes out of ``Payment.show``."""
    for routine in (on_form, on_box, on_beep, on_help, on_handler):
        if routine is not None and not callable(routine):
            raise mismatch("a routine or None", routine)

    def form_is_up(pointer: int) -> None:
        form = Form(c_void_p(pointer))
        try:
            on_form(form)  # type: ignore[misc]
        finally:
            form._pointer = None

    def box_is_up(struct: Any, place: Any) -> None:
        seen = struct.contents
        box = Box(text=_library.decoded(seen.text), title=_library.decoded(seen.title), style=BoxStyle(seen.style),
                  buttons=Buttons(seen.buttons), default_answer=Answer(seen.default_answer),
                  closed_answer=Answer(seen.closed_answer))
        answer = on_box(box)  # type: ignore[misc]
        if not isinstance(answer, Answer):
            raise mismatch("an Answer", answer)
        if not box.offers(answer):
            raise refused(ErrorNumber.INVALID_PROCEDURE_CALL)
        place[0] = int(answer)

    def help_is_wanted(file: Optional[bytes], context: int) -> None:
        on_help(_library.decoded(file), context)  # type: ignore[misc]

    def handler_runs(name: Optional[bytes]) -> None:
        on_handler(_library.decoded(name))  # type: ignore[misc]

    user = _UserStruct(size=ctypes.sizeof(_UserStruct), context=None,
                       on_form=_guarded(_ON_FORM, on_form and form_is_up),
                       on_box=_guarded(_ON_BOX, on_box and box_is_up),
                       on_beep=_guarded(_ON_BEEP, on_beep),
                       on_help=_guarded(_ON_HELP, on_help and help_is_wanted),
                       on_handler=_guarded(_ON_HANDLER, on_handler and handler_runs))
    _use_scripted_user(byref(user))
    _installed[:] = [user]
