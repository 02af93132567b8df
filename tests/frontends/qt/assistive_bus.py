"""What assistive programs share: finding controls by role and name on the accessibility bus, acting on them, and
comparing what the host got with what a scenario of the corpus expects."""

import contextlib
import pathlib
import re
import shlex
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

scenarios, told_forms, program, *desk = sys.argv[1:]
scenarios = pathlib.Path(scenarios)
PATIENCE = 15
ENTER, TAB = 0xFF0D, 0xFF09


def fail(what):
    raise SystemExit(f"FAIL: {what}")


def expect(what, got, wanted):
    if got != wanted:
        fail(f"{what}: got {got}, wanted {wanted}")


def hear_events():
    loop = GLib.MainContext.default()
    while loop.pending():
        loop.iteration(False)


def until(what, found):
    """Asks again until there is an answer."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        hear_events()
        # What is asked about may be gone by now, and its program busy.
        with contextlib.suppress(GLib.Error):
            if answer := found():
                return answer
        time.sleep(0.02)
    fail(what)


class Told:
    """What the form's program tells of itself while it lives: each event with role and name of its object."""

    KINDS = ("object:property-change:accessible-name", "object:property-change:accessible-description",
             "object:state-changed:showing")

    def __init__(self, shown):
        self.events = []
        self.listener = Atspi.EventListener.new(self.hear)
        for kind in self.KINDS:
            self.listener.register(kind)
        # A program tells what somebody listens to, once it has heard so from the desktop.
        for node in (Atspi.get_desktop(0), shown.top):
            node.clear_cache()
            node.get_child_count()

    def hear(self, event):
        # What is gone by now is of no interest.
        with contextlib.suppress(GLib.Error):
            self.events.append((event.type, event.detail1, event.source.get_role_name(), event.source.get_name()))

    def of(self, kind, detail, about):
        """The events of a kind that came before the answer to what was asked last."""
        hear_events()
        return [name for told, value, role, name in self.events if (told, value) == (kind, detail) and role in about]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for kind in self.KINDS:
            self.listener.deregister(kind)


def beneath(node):
    yield node
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None:
            yield from beneath(child)


def named(top, role, name):
    return next((node for node in beneath(top) if node.get_role_name() == role and node.get_name() == name), None)


class Scenario:
    """A scenario of the corpus: what the host gives, the screen, what its user does, and the records."""

    def __init__(self, file, name=None):
        head, *rest = re.split(r"^scenario ", file.read_text(encoding="utf-8"), flags=re.MULTILINE)
        own = [text for text in rest if shlex.split(text.partition("\n")[0])[0] == name]
        expect(f"scenarios '{name}' of {file}", len(own), 0 if name is None else 1)
        lines = [shlex.split(line, comments=True)
                 for line in "".join([head, *(text.partition("\n")[2] for text in own)]).splitlines()]
        lines = [line for line in lines if line]
        shows = [i for i, line in enumerate(lines) if line[0] == "show"]
        expect(f"shows of {file}", len(shows), 1)
        self.today = next(line[1] for line in lines if line[0] == "today")
        self.code = lines[shows[0]][1]
        self.hosts = [line[1:] for line in lines if line[0] == "host"]
        # A record is one word, an invoice three.
        self.collected = [[word.strip() for word in line[3:]] for line in lines if line[:2] in
                          (["expect", "record"], ["expect", "invoice"])]
        outcome = ("result", "chosen", "record", "records", "invoice", "length")
        self.acts = [line for line in lines[shows[0] + 1:] if line[0] != "expect" or line[1] not in outcome]

    def flags(self):
        for name, value in self.hosts:
            yield "--" + re.sub(r"(?<=[a-z])(?=[A-Z])", "-", name).lower()
            yield value


class Shown:
    """A program with a window."""

    HOST = "Fiscalon"

    def __init__(self, *command):
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.top = until(f"{command[0]} is not on the bus", self.first_window)

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        if kind is not None:
            with contextlib.suppress(GLib.Error, AttributeError):
                print(f"status: {self.process.poll()}", file=sys.stderr)
                for node in beneath(self.top.get_parent()):
                    print(node.get_role_name(), node.get_name(), *(state.value_nick for state in
                          node.get_state_set().get_states()), sep=" ", file=sys.stderr)
        self.process.kill()
        self.process.communicate()

    def first_window(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application is not None and application.get_process_id() == self.process.pid:
                return application.get_child_at_index(0)
        return None

    def find(self, role, name):
        """In any window of the program."""
        return until(f"there is no {role} '{name}'", lambda: named(self.top.get_parent(), role, name))

    def answer(self, question, button, title=None):
        """Presses a button of the box that asks this, and has the focus on one of its buttons."""
        def box():
            windows = (self.top.get_parent().get_child_at_index(i)
                       for i in range(self.top.get_parent().get_child_count()))
            # One of them may have gone meanwhile.
            return next((window for window in windows if window and window.get_role_name() == "alert"), None)
        asked = until(f"no box asks '{question}'", box)
        until(f"the box does not ask '{question}'", lambda: named(asked, "label", question))
        expect("the box's title", asked.get_name(), title or self.HOST)
        until("no button of the box has the focus", lambda: any(
            has(node, Atspi.StateType.FOCUSED) for node in beneath(asked) if node.get_role_name() == "push button"))
        act(named(asked, "push button", button), "Press")
        until(f"the box that asks '{question}' stays", lambda: box() is None)

    def row(self, words):
        """The row of a list that holds these words; None where there is none."""
        for node in beneath(self.top):
            if node.get_role_name() == "list item" and words in node.get_name():
                return node
        return None

    def enter(self, name, text, shown=None):
        node = self.find("text", name)
        Atspi.EditableText.set_text_contents(node, text)
        until(f"'{name}' shows {text_of(node)}", lambda: text_of(node) == (text if shown is None else shown))

    def press(self, name):
        act(self.find("push button", name), "Press")

    def ended(self, status):
        try:
            said, _ = self.process.communicate(timeout=PATIENCE)
        except subprocess.TimeoutExpired:
            fail("the form stays")
        expect("the program's status", self.process.returncode, status)
        return said


class Form(Shown):
    """The form of a screen, shown by the program for a payment."""

    def __init__(self, code, scenario=None):
        self.scenario = scenario
        super().__init__(program, "--today", scenario.today if scenario else "2026-06-15", "--locale", "en-CA",
                         "collect", code, *(scenario.flags() if scenario else ("--paid-amount", "12345")))

    def has_handed_over(self):
        """OK was pressed, and the host has what the scenario expects."""
        got = [[field.strip() for field in line.split("\t")] for line in self.ended(0).splitlines()]
        expect("what was collected", got, self.scenario.collected)


def act(node, action):
    names = [Atspi.Action.get_action_name(node, i) for i in range(Atspi.Action.get_n_actions(node))]
    if action not in names:
        fail(f"{node.get_name()} has {names}, not {action}")
    Atspi.Action.do_action(node, names.index(action))


def has(node, state):
    node.clear_cache()
    return node.get_state_set().contains(state)


def description_of(node):
    node.clear_cache()
    return node.get_description()


def text_of(node):
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def are_checked(*nodes):
    return [has(node, Atspi.StateType.CHECKED) for node in nodes]


def selected_rows(rows):
    return [node.get_name() for node in beneath(rows)
            if node.get_role_name() == "list item" and has(node, Atspi.StateType.SELECTED)]


def type_key(keysym):
    Atspi.generate_keyboard_event(keysym, None, Atspi.KeySynthType.SYM)


def play(*sessions):
    Atspi.set_timeout(PATIENCE * 1000, PATIENCE * 1000)
    for name, session in sessions:
        began = time.monotonic()
        session()
        print(f"ok: {name}, {time.monotonic() - began:.1f} s", flush=True)
