"""An assistive program at each form: compares all that the accessibility bus tells of it with what its layout has, and
does by these interfaces alone what a user does in a scenario of the screen. Run by assistive_program_test.sh."""

import collections
import functools
import pathlib
import subprocess

from gi.repository import Atspi

from assistive_bus import (ENTER, TAB, Form, Scenario, act, beneath, description_of, expect, fail, has, play, scenarios,
                           selected_rows, text_of, told_forms, type_key, until)

ROLES = {"Label": "label", "TextField": "text", "Button": "push button", "CheckBox": "check box",
         "OptionButton": "radio button", "DropDownList": "combo box", "ListBox": "list", "Frame": "panel"}
STATES = {"enabled": Atspi.StateType.ENABLED, "showing": Atspi.StateType.SHOWING,
          "focused": Atspi.StateType.FOCUSED, "focusable": Atspi.StateType.FOCUSABLE,
          "locked": Atspi.StateType.READ_ONLY, "several_lines": Atspi.StateType.MULTI_LINE,
          "checked": Atspi.StateType.CHECKED}
KEYS = {"Enter": ENTER, "Tab": TAB, "Down": 0xFF54, "End": 0xFF57}

Control = collections.namedtuple("Control", "name kind told description label key typed states")


class Expected:
    """A form as its layout has it."""

    def __init__(self, file, scenario, title):
        self.scenario = Scenario(pathlib.Path(file), scenario or None)
        self.title = title
        self.controls = []
        self.boxes = []
        self.status = ""
        self.focus = None


def all_expected():
    forms = []
    said = subprocess.run([told_forms, scenarios], check=True, capture_output=True, encoding="utf-8").stdout
    for what, *words in (line.split("\t") for line in said.splitlines()):
        if what == "form":
            form = Expected(*words)
            forms.append(form)
        elif what == "control":
            form.controls.append(Control(*words[:7], set(words[7:])))
        elif what == "box":
            form.boxes.append(words)
        elif what == "status":
            form.status = words[0]
        elif what == "focus":
            form.focus = words[0]
        else:
            fail(f"a line of {told_forms}: {what}")
    return forms


class ComparedForm(Form):
    """The form of a scenario, with its controls by the names that scenarios have for them."""

    def __init__(self, expected):
        super().__init__(expected.scenario.code, expected.scenario)
        self.expected = expected
        self.shown = [control for control in expected.controls if "showing" in control.states]
        self.capitals = {control.name for control in expected.controls if control.typed == "capitals"}
        self.kinds = {control.name: control.kind for control in expected.controls}
        self.nodes = {}
        self.typed_into = None
        self.list = None

    def __enter__(self):
        super().__enter__()
        expect("the window", (self.top.get_role_name(), self.top.get_name()), ("dialog", self.expected.title))
        found = collections.defaultdict(list)
        for node in beneath(self.top):
            found[node.get_role_name(), node.get_name()].append(node)
        for control in self.expected.controls:
            told = ROLES[control.kind], control.told
            if not found[told]:
                fail(f"no {told} for {control.name}")
            self.nodes[control.name] = found[told].pop(0)
        expect("entries that the layout does not have",
               [told for told, left in found.items() if left and told[0] in
                ("text", "combo box", "check box", "radio button", "push button")], [])
        return self

    def compare(self):
        entries = [control.told for control in self.shown if "focusable" in control.states]
        expect("the names of what takes the focus", sorted(set(entries)), sorted(entries))
        frames = {control.told for control in self.shown if control.kind == "Frame"}
        for control in self.expected.controls:
            node = self.nodes[control.name]
            expect(f"the description of {control.name}", node.get_description(), control.description)
            expect(f"the states of {control.name}", states_of(node, control.kind), control.states)
            # Qt tells of a list's label on the label's side alone.
            if control.kind != "ListBox":
                expect(f"the labels of {control.name}", related(node, Atspi.RelationType.LABELLED_BY) - frames,
                       {other.told for other in self.expected.controls if other.name == control.label})
            expect(f"what {control.name} is the label of", related(node, Atspi.RelationType.LABEL_FOR),
                   {other.told for other in self.expected.controls if other.label == control.name})
            # A closed button can't be pressed, and so has no key to do it.
            key = control.key if "enabled" in control.states else ""
            expect(f"the access key of {control.name}", access_key_of(node), key and f"Alt+{key}")

    def leave_the_payee_as_it_is(self):
        """A field that is locked takes no text."""
        name = next((control.name for control in self.shown if "locked" in control.states
                     and control.told == "Payment to"), None)
        if name is None:
            return
        began, before = self.focus(), text_of(self.nodes[name])
        Atspi.EditableText.set_text_contents(self.nodes[name], "Somebody Else")
        expect(f"the text of {name}", text_of(self.nodes[name]), before)
        self.go_to(began)

    def press_ok_too_early(self):
        """What is missing is told by boxes or by the status, and by the focus. A form that has all is left alone."""
        if self.expected.focus is None:
            return
        began = self.focus()
        ok = self.find("push button", "OK")
        act(ok, "Press")
        # The press is shown for a moment before it counts.
        until("OK stays down", lambda: not has(ok, Atspi.StateType.PRESSED))
        for title, text in self.expected.boxes:
            self.answer(text, "OK", title)
        if self.expected.status:
            self.find("notification", self.expected.status)
            expect("what the entry says", description_of(self.nodes[self.expected.focus]), self.expected.status)
        self.has_focus(self.expected.focus)
        self.go_to(began)

    def focus(self):
        return next((name for name, node in self.nodes.items() if has(node, Atspi.StateType.FOCUSED)), None)

    def has_focus(self, name):
        until(f"the focus is on {self.focus()}, not on {name}",
              lambda: has(self.nodes[name], Atspi.StateType.FOCUSED))

    def do(self, verb, *words):
        """A line of the scenario."""
        acts = {"type": self.type, "key": self.key, "focus": self.go_to, "click": self.click, "choose": self.choose,
                "expect": self.check}
        if verb not in acts:
            fail(f"what is {verb} here?")
        acts[verb](*words)
        if verb != "type":
            self.typed_into = None
        if verb != "focus":
            self.list = None

    def type(self, text):
        name = self.focus()
        node = self.nodes[name]
        # The whole text is selected where the focus came by keyboard or by the form itself.
        whole = (text_of(node) if self.typed_into == name else "") + (text.upper() if name in self.capitals else text)
        self.typed_into = name
        Atspi.EditableText.set_text_contents(node, whole)
        taken = len(text_of(node))
        if taken < len(whole) and self.focus() != name:
            self.type(whole[taken:])

    def key(self, name):
        if self.list is not None:
            rows = self.nodes[self.list]
            words = [node.get_name() for node in beneath(rows) if node.get_role_name() == "list item"]
            chosen = selected_rows(rows)
            return self.choose(self.list, words[words.index(chosen[0]) + 1 if chosen else 0])
        began = self.focus()
        # To the end of a list it goes in the list; all else goes on from there.
        rows = selected_rows(self.nodes[began]) if name == "End" else None
        type_key(KEYS[name])
        until(f"{name} does nothing at {began}", lambda: self.focus() not in (began, None) if rows is None
              else selected_rows(self.nodes[began]) != rows)

    def go_to(self, name):
        # Qt gives a drop-down list the focus by none of these interfaces; its rows can be chosen without.
        self.list = name if self.kinds[name] == "DropDownList" and self.focus() != name else None
        if self.list is not None:
            return
        Atspi.Component.grab_focus(self.nodes[name])
        self.has_focus(name)

    def click(self, name):
        act(self.nodes[name], "Press" if self.kinds[name] == "Button" else "Toggle")

    def choose(self, name, words):
        rows = self.nodes[name]
        act(next(node for node in beneath(rows) if node.get_name() == words), "Toggle")
        until(f"'{words}' is not chosen", lambda: selected_rows(rows) == [words])

    def check(self, what, *words):
        if what == "focus":
            self.has_focus(*words)
        elif what == "text":
            name, text = words
            expect(name, text_of(self.nodes[name]), text)
        else:
            fail(f"what is to expect {what} here?")


def states_of(node, kind):
    states = node.get_state_set()
    # A label is never to be edited, which is nothing that a user asks.
    return {name for name, state in STATES.items()
            if states.contains(state) and (name != "locked" or kind == "TextField")}


def related(node, kind):
    return {relation.get_target(i).get_name() for relation in node.get_relation_set()
            if relation.get_relation_type() == kind for i in range(relation.get_n_targets())}


def access_key_of(node):
    actions = node.get_action_iface()
    names = [actions.get_action_name(i) for i in range(actions.get_n_actions())] if actions else []
    return next((actions.get_key_binding(names.index(name)) for name in ("Press", "Toggle") if name in names
                 and node.get_role_name() != "combo box"), "")


def session(expected):
    with ComparedForm(expected) as form:
        form.compare()
        form.leave_the_payee_as_it_is()
        form.press_ok_too_early()
        for line in expected.scenario.acts:
            form.do(*line)
        form.has_handed_over()


play(*((expected.scenario.code, functools.partial(session, expected)) for expected in all_expected()))
