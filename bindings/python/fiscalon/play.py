"""Plays scenarios: text files that play a host and a user against a screen and say what must be seen.

    python3 -m fiscalon.play FILE...

The language is that of ``fiscalon play``. Host and user are Python here: every act and every look goes through the
scripted user, as those of a host's own tests do. One line per scenario, then how many passed; exit status 0, 1 where
one failed, 2 for a file that makes no sense."""

from __future__ import annotations

import contextlib
import datetime
import re
import sys
import tempfile
from collections import deque
from pathlib import Path
from typing import (Any, Callable, ContextManager, Deque, Dict, Iterable, List, NamedTuple, NoReturn, Optional, Tuple,
                    Union)

import fiscalon
from fiscalon import Answer, Box, BoxStyle, CloseReason, Control, Form, Record

_APPLICATION = "Fiscalon"
_ANSWERS = {"OK": Answer.OK, "Cancel": Answer.CANCEL, "Yes": Answer.YES, "No": Answer.NO}
_BUTTONS = {"$OK": "OK", "$CANCEL": "Cancel", "$HELP": "Help"}
_DOLLAR_NAME = re.compile(r"\$[A-Za-z][A-Za-z0-9_]*")
_WORD = re.compile(r'[ \t\r]*(?:"((?:[^"\\]|\\["\\tn])*)"(?=[ \t\r#]|$)|([^ \t\r#"][^ \t\r#]*))')
_ESCAPES = {"\\": "\\", '"': '"', "t": "\t", "n": "\n"}


class ScenarioError(Exception):
    """A scenario that makes no sense: "file:line: reason"."""

    def __init__(self, file: str, line: int, reason: str) -> None:
        super().__init__(file, line, reason)
        #: Where, and why.
        self.file, self.line, self.reason = file, line, reason

    def __str__(self) -> str:
        return f"{self.file}:{self.line}: {self.reason}"


class ScenarioFailure(AssertionError):
    """What a scenario expected, and what was seen instead."""

    def __init__(self, file: str, line: int, source: str, expected: str, seen: str) -> None:
        super().__init__(file, line, source, expected, seen)
        #: Where, the line as it is written, and what it told.
        self.file, self.line, self.source, self.expected, self.seen = file, line, source, expected, seen

    def __str__(self) -> str:
        return f"{self.file}:{self.line}: {self.source}\n     expected: {self.expected}\n     seen:     {self.seen}"


class Line(NamedTuple):
    """One line that says something."""

    #: Of the file, from 1.
    number: int
    #: What it asks for, such as "click" or "expect message".
    verb: str
    #: The words behind it.
    arguments: List[str]
    #: As it is written.
    source: str


class Scenario(NamedTuple):
    """One scenario, as it is played for one screen."""

    #: The file's name.
    file: str
    #: Empty where the file is one scenario.
    name: str
    #: Empty where the file names no screens.
    screen: str
    #: What it says, in order.
    lines: List[Line]

    @property
    def title(self) -> str:
        """Under what it is reported."""
        in_brackets = f"({self.screen})" if self.screen else ""
        label = " ".join(filter(None, (self.name, in_brackets)))
        return self.file + (f": {label}" if self.name else f" {label}" if label else "")


def _words(text: str) -> List[str]:
    words: List[str] = []
    at = 0
    while True:
        rest = text[at:].lstrip(" \t\r")
        if not rest or rest.startswith("#"):
            return words
        found = _WORD.match(text, at)
        if found is None:
            raise ValueError("a quoted word that does not end well")
        quoted, plain = found.groups()
        words.append(plain if quoted is None
                     else re.sub(r"\\(.)", lambda escape: _ESCAPES[str(escape.group(1))], quoted))
        at = found.end()


def _read_lines(file: str, text: str) -> List[Line]:
    lines = []
    for number, source in enumerate(text.split("\n"), 1):
        try:
            words = _words(source)
        except ValueError as problem:
            raise ScenarioError(file, number, str(problem)) from None
        if words[:1] == ["expect"] and len(words) > 1:
            words[:2] = [f"expect {words[1]}"]
        if words:
            lines.append(Line(number, words[0], words[1:], source.rstrip()))
    return lines


def _with_meanings(text: str, meanings: Dict[str, str]) -> str:
    return _DOLLAR_NAME.sub(lambda name: meanings.get(name[0], name[0]), text)


def _read_screens(file: str, lines: Iterable[Line]) -> List[Dict[str, str]]:
    """What the dollar names stand for, of each screen that the file is played for. Of the names for buttons only a form
    that is up knows."""
    screens: List[Dict[str, str]] = []
    for line in lines:
        if line.verb == "screens":
            screens = [{"$SCREEN": code} for code in line.arguments]
    for line in lines:
        if line.verb != "name":
            continue
        name, *values = line.arguments
        if len(values) != len(screens):
            raise ScenarioError(file, line.number, f'"{name}" needs a value for each of the {len(screens)} screens')
        for meanings, value in zip(screens, values):
            meanings[name] = _with_meanings(value, meanings)
    return screens or [{}]


def parse(file: str, text: str) -> List[Scenario]:
    """The scenarios of a file, for each of its screens in turn."""
    lines = _read_lines(file, text[1:] if text.startswith("\ufeff") else text)
    for line in lines:
        _find_verb(file, line)
    scenarios = []
    for meanings in _read_screens(file, lines):
        ahead: List[Line] = []
        own: List[Scenario] = []
        for line in lines:
            if line.verb in ("screens", "name"):
                continue
            if line.verb == "scenario":
                own.append(Scenario(file, line.arguments[0], meanings.get("$SCREEN", ""), list(ahead)))
                continue
            line = line._replace(arguments=[_with_meanings(each, meanings) for each in line.arguments])
            (own[-1].lines if own else ahead).append(line)
        scenarios += own or [Scenario(file, "", meanings.get("$SCREEN", ""), ahead)]
    if not any(scenario.lines for scenario in scenarios):
        raise ScenarioError(file, 1, "the scenario is empty")
    return scenarios


def read(path: Union[str, Path]) -> List[Scenario]:
    """The scenarios of a file."""
    try:
        text = Path(path).read_text(encoding="utf-8")
    except (OSError, UnicodeDecodeError) as problem:
        raise ScenarioError(str(path), 0, f"the file can't be read: {problem}") from None
    return parse(str(path), text)


def _quoted(text: str) -> str:
    """As a scenario writes it."""
    if text and not re.search(r'[ \t\r\n"\\#]', text):
        return text
    for plain, escape in (("\\", "\\\\"), ('"', '\\"'), ("\t", "\\t"), ("\n", "\\n")):
        text = text.replace(plain, escape)
    return f'"{text}"'


def _plain(text: str) -> str:
    """With one kind of line ends."""
    return text.replace("\r\n", "\n").replace("\r", "\n")


def _yes_no(value: bool) -> str:
    return "yes" if value else "no"


def _number(text: str) -> int:
    return int(text, 16 if text.lower().lstrip("-").startswith("0x") else 10)


def _boolean(text: str) -> int:
    return {"true": -1, "false": 0}[text.lower()] if text.lower() in ("true", "false") else _number(text)


def _in_code_page(text: str) -> str:
    """A text of a scenario, in which what has no place in Windows-1252 is "?"."""
    try:
        fiscalon.to_windows_1252(text)
        return text
    except fiscalon.TextError:
        return "?" if len(text) == 1 else "".join(map(_in_code_page, text))


def _snake(name: str) -> str:
    """The name of a property in Python's style: "ZelmorNumber" is zelmor_number."""
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


_PROPERTIES: Dict[str, Callable[[str], Any]] = {
    **{name: str for name in ("ZelmorNumber", "CompCode", "CompName", "AccountNumber", "PaidAmount", "PaidDate",
                              "NumberOfInfoCollect", "GovFilename", "EnterName", "EnterTitle", "SeqNumber",
                              "BusinessName", "MainPath")},
    "APHoldFlg": _number, "WriteFile": _boolean, "PlayByPlayEnabled": _boolean, "SessionNumber": float}


class _Run:
    """One scenario that is being played."""

    def __init__(self, scenario: Scenario, folder: str, today: Optional[datetime.date], locale: str) -> None:
        self.scenario, self.folder = scenario, folder
        self.next = 0
        self.language = "en"
        self.line = scenario.lines[0]
        self.form: Optional[Form] = None
        self.shown = ""
        self.seen: Deque[Tuple[int, Union[Box, Tuple[str, ...]]]] = deque()
        self.answers: Deque[Answer] = deque()
        self.result: Optional[bool] = None
        self.error: Optional[fiscalon.FiscalonError] = None
        self.chosen: Dict[str, bool] = {}
        fiscalon.reset()
        fiscalon.use_scripted_user(on_form=self.play_while_up, on_box=self.answer_box,
                                   on_beep=lambda: self.notice(("beep",)),
                                   on_help=lambda file, context: self.notice(("help", file, str(context))))
        fiscalon.use_locale(locale)
        if today is not None:
            fiscalon.use_fixed_clock(today)
        self.payment = fiscalon.Payment()

    def play(self) -> None:
        while self.next < len(self.scenario.lines):
            self.play_line()
        self.refuse_unclaimed()
        if self.error is not None:
            self.fail("no error", self.ending())

    def play_line(self) -> None:
        line = self.line = self.scenario.lines[self.next]
        self.next += 1
        turn, _, routine = _VERBS[line.verb]
        if turn == "host" and self.form is not None:
            self.fail(f'the form to be closed before "{line.verb}"', f'"{self.shown}" is still open')
        if turn == "user":
            self.refuse_unclaimed()
            self.user
        routine(self, *[self.meant(each) for each in line.arguments])

    def meant(self, argument: str) -> str:
        argument = argument.replace("$TMP", self.folder)
        for name, caption in _BUTTONS.items() if self.scenario.screen else ():
            if name in argument:
                own = [each.name for each in self.user.controls
                       if each.kind == fiscalon.ControlKind.BUTTON and each.text.replace("&", "") == caption]
                argument = argument.replace(name, own[0]) if own else argument
        return argument

    # What fails.

    def fail(self, expected: str, seen: str) -> NoReturn:
        raise ScenarioFailure(self.scenario.file, self.line.number, self.line.source.strip(), expected, seen)

    def compare(self, expected: str, seen: str) -> None:
        if expected != seen:
            self.fail(expected, seen)

    def compare_texts(self, expected: str, seen: str) -> None:
        self.compare(_quoted(self.comparable(expected)), _quoted(self.comparable(seen)))

    def comparable(self, text: str) -> str:
        """Blanks that no line breaks at look as others do; English texts have none and are compared to the letter."""
        return _plain(text) if self.language == "en" else _plain(text).replace("\xa0", " ")

    # Who is there.

    @property
    def is_up(self) -> bool:
        return self.form is not None and self.form.is_up

    @property
    def user(self) -> Form:
        if self.form is None or not self.form.is_up:
            self.fail("a form to be open", "no form is open")
        return self.form

    def control(self, name: str) -> Control:
        try:
            return self.user.control(name)
        except KeyError:
            raise ScenarioError(self.scenario.file, self.line.number,
                                f'"{self.shown}" has no control "{name}"') from None

    # The show.

    def show(self, code: str) -> None:
        self.refuse_unclaimed()
        if self.error is not None:
            self.fail("no error of the show before", self.ending())
        self.result = None
        try:
            self.result = self.payment.show(code)
        except fiscalon.FiscalonError as error:
            self.error = error

    def play_while_up(self, form: Form) -> None:
        self.form, self.shown = form, form.name
        try:
            while form.is_up and self.next < len(self.scenario.lines):
                self.play_line()
            if form.is_up:
                self.fail("the form to be closed", f'"{self.shown}" is still open where the scenario ends')
        finally:
            self.chosen[self.shown] = form.chosen
            self.form = None

    def ending(self) -> str:
        if self.error is not None:
            return f"error {self.error.number} {_quoted(self.error.source)} {_quoted(self.error.description)}"
        return "no screen was shown" if self.result is None else f"result {self.result}"

    def ended(self) -> str:
        if self.is_up:
            self.fail("the form to be closed", f'"{self.shown}" is still open')
        return self.ending()

    # What is shown beside the form.

    def answer_box(self, box: Box) -> Answer:
        self.notice(box._replace(title="") if box.title == _APPLICATION else box)
        if not self.answers:
            return box.default_answer
        answer = self.answers.popleft()
        if not box.offers(answer):
            self.fail("a box with the button that was to be answered", f'the box "{box.text}" has no such button')
        return answer

    def notice(self, thing: Union[Box, Tuple[str, ...]]) -> None:
        self.seen.append((self.line.number, thing))

    @staticmethod
    def described(thing: Union[Box, Tuple[str, ...]], with_title: bool) -> str:
        if not isinstance(thing, Box):
            return " ".join([thing[0], *map(_quoted, thing[1:])])
        words = f"message {thing.style.name.lower()} {_quoted(_plain(thing.text))}"
        return words + (f" title {_quoted(_plain(thing.title or _APPLICATION))}" if with_title else "")

    def claim(self, expected: str, with_title: bool = False) -> None:
        if not self.seen:
            self.fail(expected, "nothing was shown")
        self.compare(self.comparable(expected), self.comparable(self.described(self.seen.popleft()[1], with_title)))

    def refuse_unclaimed(self) -> None:
        if self.seen:
            line, thing = self.seen[0]
            raise ScenarioFailure(self.scenario.file, line, "", "nothing that no line expects",
                                  self.described(thing, False))

    # What the host finds.

    def members(self) -> List[Record]:
        return list(self.payment.pc4_records or ())

    def records(self) -> List[str]:
        if self.payment.write_file != -1:
            return [member.description for member in self.members()]
        path = Path(self.payment.gov_filename)
        content = fiscalon.from_windows_1252(path.read_bytes()) if path.is_file() else ""
        lines = content.split("\r\n")
        for line in [each for each in lines[:-1] if len(each) < 2 or each[0] + each[-1] != '""'] + lines[-1:]:
            if line:
                self.fail("each line of the record file in double quotes and ended by CR LF", _quoted(line))
        return [line[1:-1] for line in lines[:-1]]

    def record(self, position: str) -> str:
        records = self.records()
        if not 1 <= _number(position) <= len(records):
            self.fail(f"a record {position}", f"{len(records)} records")
        return records[_number(position) - 1]


# What the lines do, by who speaks.


def _host(run: _Run, name: str, value: str) -> None:
    try:
        setattr(run.payment, _snake(name), _PROPERTIES[name](_in_code_page(value)))
    except fiscalon.FiscalonError as error:
        run.fail("the property to take its value", str(error))


def _today(_: _Run, date: str, time: str = "00:00:00") -> None:
    fiscalon.use_fixed_clock(datetime.datetime.fromisoformat(f"{date}T{time}"))


def _language(run: _Run, name: str) -> None:
    fiscalon.use_language(name)
    run.language = name


def _type(run: _Run, text: str) -> None:
    try:
        run.user.type(_in_code_page(text))
    except fiscalon.FormClosedError:
        run.fail("a form to type into", "the form was closed before the end of the text")


def _choose(run: _Run, control: str, text: str) -> None:
    run.control(control)
    rows = run.user.rows(control)
    comparable = [run.comparable(row) for row in rows]
    if run.comparable(text) not in comparable:
        run.fail(f'a row {_quoted(text)} in "{control}"', ", ".join(map(_quoted, rows)) or "no rows")
    run.user.choose(control, comparable.index(run.comparable(text)))


def _act(act: str) -> Callable[[_Run, str], None]:
    """An act on a control."""

    def routine(run: _Run, control: str) -> None:
        getattr(run.user, act)(run.control(control).name)

    return routine


def _expect_message(run: _Run, style: str, text: str, _word: str = "", title: str = "") -> None:
    words = f"message {style} {_quoted(_plain(text))}"
    run.claim(words + (f" title {_quoted(_plain(title))}" if _word else ""), with_title=bool(_word))


def _expect_error(run: _Run, number: str, source: str, description: str) -> None:
    signed = (_number(number) + (1 << 31)) % (1 << 32) - (1 << 31)
    run.compare(f"error {signed} {_quoted(source)} {_quoted(description)}", run.ended())
    run.error = None


def _expect_chosen(run: _Run, value: str) -> None:
    if not run.shown:
        run.fail("a form that was shown", "no form was shown")
    run.compare(str(_boolean(value) == -1), str(run.form.chosen if run.form is not None else run.chosen[run.shown]))


def _expect_record(run: _Run, position: str, text: str) -> None:
    run.compare(_plain(text.rstrip(" ")), _plain(run.record(position).rstrip(" ")))


def _expect_records(run: _Run, count: str) -> None:
    run.compare(f"{_number(count)} records", f"{len(run.records())} records")


def _expect_length(run: _Run, position: str, length: str) -> None:
    run.compare(str(_number(length)), str(len(run.record(position))))


def _expect_invoice(run: _Run, position: str, date: str, amount: str, description: str) -> None:
    members = run.members()
    if not 1 <= _number(position) <= len(members):
        run.fail(f"a member {position}", f"{len(members)} members")
    member = members[_number(position) - 1]
    run.compare(f"{date}|{amount}|{description.rstrip(' ')}",
                f"{member.the_date}|{member.amount}|{member.description.rstrip(' ')}")


def _expect_line(run: _Run, path: str, position: str, text: str) -> None:
    if not Path(path).is_file():
        run.fail(f"line {position} of {path}: {_quoted(_plain(text))}", "there is no such file")
    lines = fiscalon.from_windows_1252(Path(path).read_bytes()).split("\n")
    lines = lines[:-1] if lines[-1] == "" else lines
    if not 1 <= _number(position) <= len(lines):
        run.fail(f"line {position} of {path}: {_quoted(_plain(text))}", f"the file has {len(lines)} lines")
    line = lines[_number(position) - 1]
    run.compare_texts(text, line[:-1] if line.endswith("\r") else line)


def _state(name: str) -> Callable[[_Run, str, str], None]:
    def routine(run: _Run, control: str, value: str) -> None:
        run.compare(value, _yes_no(getattr(run.control(control), name)))

    return routine


# Who speaks, how many arguments there may be, and what is done.
_VERBS: Dict[str, Tuple[str, Tuple[int, ...], Callable[..., object]]] = {
    "scenario": ("heading", (1,), lambda run: None),
    "screens": ("heading", tuple(range(1, 30)), lambda run: None),
    "name": ("heading", tuple(range(2, 30)), lambda run: None),
    "today": ("host", (1, 2), _today),
    "locale": ("host", (1,), lambda run, name: fiscalon.use_locale(name)),
    "language": ("host", (1,), _language),
    "host": ("host", (2,), _host),
    "folder": ("host", (1,), lambda run, path: Path(path).mkdir(parents=True, exist_ok=True)),
    "show": ("host", (1,), _Run.show),
    "type": ("user", (1,), _type),
    "key": ("user", (1,), lambda run, key: run.user.press_key(key)),
    "focus": ("user", (1,), _act("press_mouse")),
    "click": ("user", (1,), _act("click")),
    "choose": ("user", (2,), _choose),
    "paste": ("user", (1,), lambda run, text: run.user.paste(_in_code_page(text))),
    "close": ("user", (1,), lambda run, reason: run.user.close(CloseReason(_number(reason)))),
    "answer": ("answer", (1,), lambda run, button: run.answers.append(_ANSWERS[button])),
    "expect message": ("watcher", (2, 4), _expect_message),
    "expect beep": ("watcher", (0,), lambda run: run.claim("beep")),
    "expect help": ("watcher", (2,), lambda run, file, context: run.claim(f"help {_quoted(file)} {_number(context)}")),
    "expect focus": ("watcher", (1,), lambda run, name: run.compare(run.control(name).name, run.user.focus)),
    "expect title": ("watcher", (1,), lambda run, title: run.compare_texts(title, run.user.title)),
    "expect open": ("watcher", (1,), lambda run, value: run.compare(value, _yes_no(run.is_up))),
    "expect text": ("watcher", (2,), lambda run, name, text: run.compare_texts(text, run.control(name).text)),
    "expect selection": ("watcher", (2,), lambda run, name, text: run.compare_texts(text, run.control(name).selection)),
    "expect items": ("watcher", (2,),
                     lambda run, name, count: run.compare(str(_number(count)), str(run.control(name).items))),
    "expect enabled": ("watcher", (2,), _state("enabled")),
    "expect visible": ("watcher", (2,), _state("visible")),
    "expect checked": ("watcher", (2,), _state("checked")),
    "expect locked": ("watcher", (2,), _state("locked")),
    "expect result": ("watcher", (1,), lambda run, value: run.compare(f"result {_boolean(value) != 0}", run.ended())),
    "expect error": ("watcher", (3,), _expect_error),
    "expect chosen": ("watcher", (1,), _expect_chosen),
    "expect records": ("watcher", (1,), _expect_records),
    "expect record": ("watcher", (2,), _expect_record),
    "expect length": ("watcher", (2,), _expect_length),
    "expect invoice": ("watcher", (4,), _expect_invoice),
    "expect file": ("watcher", (2,), lambda run, path, value: run.compare(value, _yes_no(Path(path).exists()))),
    "expect line": ("watcher", (3,), _expect_line),
}


def _find_verb(file: str, line: Line) -> None:
    if line.verb not in _VERBS:
        raise ScenarioError(file, line.number, f'"{line.verb}" is nothing that a scenario can say')
    if len(line.arguments) not in _VERBS[line.verb][1]:
        raise ScenarioError(file, line.number, f'"{line.verb}" does not take {len(line.arguments)} arguments')
    if line.verb == "host" and line.arguments[0] not in _PROPERTIES:
        raise ScenarioError(file, line.number, f'"{line.arguments[0]}" is no property that a host sets')


def play(scenario: Scenario, *, today: Optional[datetime.date] = None, locale: str = "en-CA") -> None:
    """Plays a scenario; ``ScenarioFailure`` where it sees what it does not expect. The library is as freshly loaded
    before and after it."""
    # Its own folder, for the few that say so.
    needs_folder = any("$TMP" in argument for line in scenario.lines for argument in line.arguments)
    place: ContextManager[str] = contextlib.nullcontext("")
    if needs_folder:
        place = tempfile.TemporaryDirectory(prefix="fiscalon-")
    with place as folder:
        try:
            _Run(scenario, folder, today, locale).play()
        finally:
            fiscalon.reset()


def main(arguments: List[str]) -> int:
    """Plays files, as the module does that is run, and gives its exit status."""
    if not arguments or arguments[0].startswith("-"):
        print(__doc__, file=sys.stderr)
        return 2
    passed = failed = 0
    try:
        for path in arguments:
            for scenario in read(path):
                try:
                    play(scenario)
                    passed += 1
                    print(f"ok   {scenario.title}")
                except ScenarioFailure as failure:
                    failed += 1
                    print(f"FAIL {failure}")
    except ScenarioError as error:
        print(error, file=sys.stderr)
        return 2
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
