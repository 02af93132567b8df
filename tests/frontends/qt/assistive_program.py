"""An assistive program: finds controls by role and name on the accessibility bus, acts on them, and compares what the
host got with what scenarios of these screens expect. Run by assistive_program_test.sh."""

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

folder, scenarios, program, *desk = sys.argv[1:]
folder, scenarios = pathlib.Path(folder), pathlib.Path(scenarios)
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

    def __init__(self):
        self.events = []
        self.listener = Atspi.EventListener.new(self.hear)
        for kind in self.KINDS:
            self.listener.register(kind)

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
    """A scenario of the corpus: what the host gives, and the records that it expects."""

    def __init__(self, file, name):
        head, *rest = re.split(r"^scenario ", (scenarios / file).read_text(encoding="utf-8"), flags=re.MULTILINE)
        own = [text for text in rest if shlex.split(text.partition("\n")[0])[0] == name]
        expect(f"scenarios '{name}' of {file}", len(own), 1)
        lines = [shlex.split(line, comments=True) for line in (head + own[0].partition("\n")[2]).splitlines()]
        self.hosts = [line[1:] for line in lines if line[:1] == ["host"]]
        self.records = [line[3] for line in lines if line[:2] == ["expect", "record"]]
        self.invoices = [[line[3], line[4].strip(), line[5]] for line in lines if line[:2] == ["expect", "invoice"]]

    def flags(self):
        for name, value in self.hosts:
            yield "--" + re.sub(r"(?<=[a-z])(?=[A-Z])", "-", name).lower()
            yield value


class Shown:
    """A program with a window."""

    def __init__(self, *command):
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.top = until(f"{command[0]} is not on the bus", self.first_window)

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        if kind is not None:
            with contextlib.suppress(GLib.Error):
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

    def answer(self, question, button):
        """Presses a button of the box that asks this."""
        def box():
            windows = (self.top.get_parent().get_child_at_index(i)
                       for i in range(self.top.get_parent().get_child_count()))
            return next((window for window in windows if window.get_role_name() == "alert"), None)
        asked = until(f"no box asks '{question}'", box)
        until(f"the box does not ask '{question}'", lambda: named(asked, "label", question))
        act(named(asked, "push button", button), "Press")

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
        self.output = folder / f"{code}.pc4"
        super().__init__(program, "--today", "2026-06-15", "--locale", "en-CA", "collect", code,
                         *(scenario.flags() if scenario else ("--paid-amount", "12345")),
                         *(("--gov-filename", str(self.output)) if scenario and scenario.records else ()))

    def accept(self):
        """Presses OK, and compares what the host gets with what the scenario expects."""
        self.press("OK")
        said = self.ended(0)
        if self.scenario.records:
            lines = self.output.read_text(encoding="latin-1").splitlines()
            expect("the records", [line.strip('"').rstrip() for line in lines], self.scenario.records)
        else:
            got = [[field.strip() for field in line.split("\t")] for line in said.splitlines()]
            expect("the invoices", got, self.scenario.invoices)


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


def assessment():
    """Check boxes of which one is on at most; they go back on Cancel."""
    with Form("01") as form:
        boxes = [node for node in beneath(form.top) if node.get_role_name() == "check box"]
        expect("the boxes", len(boxes), 2)
        for on in (0, 1, 0):
            act(boxes[on], "Toggle")
            expect("the boxes", are_checked(*boxes), [on == 0, on == 1])
        form.press("Cancel")
        form.ended(1)


def refused_month():
    """Where no box says why an entry is refused, a notification and the entry's description do, and nothing else."""
    with Form("01") as form:
        form.enter("For the period from", "13")
        refused = "Please correct this entry: For the period from (MM)"
        month = form.find("text", "For the period from")
        for _ in range(2):
            with Told() as told:
                type_key(TAB)
                form.find("notification", refused)
                until("the entry does not say that it is refused", lambda: description_of(month) == refused)
                expect("focus", has(month, Atspi.StateType.FOCUSED), True)
                expect("names", told.of(Told.KINDS[0], 0, ("text", "notification", "check box", "label")), [refused])
                expect("descriptions", told.of(Told.KINDS[1], 0, ("text", "check box")), ["For the period from"])
                expect("notifications", told.of(Told.KINDS[2], 1, ("notification",)), [refused])
            form.enter("For the period from", "06")
            until("the status stays", lambda: named(form.top, "notification", refused) is None)
            until("the entry is still refused", lambda: description_of(month) == "MM")
            form.enter("For the period from", "14")
        form.press("Cancel")
        form.ended(1)


def corporate_income():
    with Form("02", Scenario("federal/corporate_income/ok_instalment.scenario",
                             "OK takes an instalment with its date")) as form:
        owing, instalment = form.find("radio button", "RC99"), form.find("radio button", "RC100")
        act(instalment, "Toggle")
        expect("the options", are_checked(owing, instalment), [False, True])
        form.enter("Payment to", "Somebody Else", shown="Canada Revenue Agency")
        form.enter("Remittance Period Ending", "20260531")
        form.accept()


def source_deductions():
    with Form("03", Scenario("federal/source_deductions/records.scenario",
                             "an accepted screen hands its records over")) as form:
        form.enter("Gross Payroll in Remitting Period (dollars only)", "5000")
        form.enter("Number of Employees in Last Pay Period", "12")
        form.enter("End of Remitting Period", "20260531")
        form.accept()


def invoice_payments():
    with Form("08", Scenario("general/invoice_payments/records.scenario", "each invoice is a member")) as form:
        form.find("list", "Invoice Payments Details")
        act(form.find("check box", "Paying with details below"), "Toggle")

        def invoice(date, number, amount):
            form.enter("Invoice date [YYYYMMDD]", date)
            form.enter("Invoice No./Description", number)
            form.enter("Amount", amount)
            # The form may have suggested this amount already: then nothing was entered, and the focus is elsewhere.
            entry = form.find("text", "Amount")
            Atspi.Component.grab_focus(entry)
            until("the amount does not get the focus", lambda: has(entry, Atspi.StateType.FOCUSED))
            type_key(ENTER)
            until(f"{number} is not in the list", lambda: form.row(number))

        invoice("20260601", "INV-100", "50.00")
        invoice("20260602", "MISTAKE", "1.00")
        act(form.row("MISTAKE"), "Toggle")
        cancel = form.find("push button", "Cancel an Invoice")
        until("a selected invoice cannot be cancelled", lambda: has(cancel, Atspi.StateType.ENABLED))
        act(cancel, "Press")
        form.answer("Are you sure you wish to delete this invoice payment?", "Yes")
        until("the invoice stays in the list", lambda: form.row("MISTAKE") is None)
        invoice("20260602", "INV-101", "23.45")
        invoice("20260603", "INV-102", "50.00")
        form.accept()


def donation():
    """A field of several lines, and a drop-down list that is open."""
    with Form("10") as form:
        form.enter("Purpose", "Books\nfor schools")
        provinces = form.find("combo box", "Province")
        act(provinces, "Press")
        until("the list does not drop down", lambda: has(provinces, Atspi.StateType.EXPANDED))
        form.find("list", "Province")
        act(form.row("MB"), "Toggle")
        until("the list stays open", lambda: not has(provinces, Atspi.StateType.EXPANDED))
        expect("the province", selected_rows(provinces), ["MB"])
        form.press("Cancel")
        form.ended(1)


def due_date_amount():
    with Form("15", Scenario("general/due_date_amount/records.scenario", "two records go to the collection")) as form:
        form.enter("Taxation year ends on", "202612")
        form.enter("Amount payable", "123.45")
        form.accept()


def quebec_source_deductions():
    """A drop-down list that stays closed."""
    with Form("20", Scenario("quebec/source_deductions/remittance_type_number.scenario",
                             "the second weekly remittance is 2")) as form:
        form.enter("Remittance Period", "202606")
        for name, amount in (("Income tax withheld and compensation tax (if applicable)", "1.00"),
                             ("QPP contributions", "2.00"), ("Contribution to the health services fund", "3.00"),
                             ("QPIP premiums", "4.00"), ("CSST payments", "5.00")):
            form.enter(name, amount)
        types = form.find("combo box", "Remittance Type")
        act(form.row("Weekly (2nd remittance)"), "Toggle")
        expect("the type", selected_rows(types), ["Weekly (2nd remittance)"])
        form.accept()


Atspi.set_timeout(PATIENCE * 1000, PATIENCE * 1000)
def payment_desk():
    """How a screen ended is said once, when the form has gone."""
    if not desk:
        return
    cancelled = "Cancelled. Nothing was written."
    with Shown(*desk) as window, Told() as told:
        window.press("Show the screen")
        window.press("Cancel")
        window.find("notification", cancelled)
        expect("times that it is said", told.of(Told.KINDS[2], 1, ("notification",)).count(cancelled), 1)


for screen in (assessment, refused_month, corporate_income, source_deductions, invoice_payments, donation,
               due_date_amount, quebec_source_deductions, payment_desk):
    began = time.monotonic()
    screen()
    print(f"ok: {screen.__name__}, {time.monotonic() - began:.1f} s", flush=True)
