"""An assistive program at work on single forms, and on the desk: what their scenarios do not have. Run by
assistive_program_test.sh."""

from gi.repository import Atspi

from assistive_bus import (ENTER, TAB, Form, Scenario, Shown, Told, act, are_checked, beneath, description_of, desk,
                           expect, has, named, play, scenarios, selected_rows, type_key, until)


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
            with Told(form) as told:
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


def invoice_payments():
    scenario = Scenario(scenarios / "general/invoice_payments/records.scenario", "each invoice is a member")
    with Form("08", scenario) as form:
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
        form.answer("Are you sure you wish to delete this invoice payment?", "Yes", "Invoice Payments Details")
        until("the invoice stays in the list", lambda: form.row("MISTAKE") is None)
        invoice("20260602", "INV-101", "23.45")
        invoice("20260603", "INV-102", "50.00")
        form.press("OK")
        form.has_handed_over()


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


def payment_desk():
    """How a screen ended is said once, when the form has gone."""
    if not desk:
        return
    cancelled = "Cancelled. Nothing was written."
    with Shown(*desk) as window, Told(window) as told:
        window.press("Show the screen")
        window.press("Cancel")
        window.find("notification", cancelled)
        expect("times that it is said", told.of(Told.KINDS[2], 1, ("notification",)).count(cancelled), 1)


play(*((session.__name__, session)
       for session in (assessment, refused_month, invoice_payments, donation, payment_desk)))
