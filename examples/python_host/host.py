#!/usr/bin/env python3
"""A host in Python: collects what goes with one payment, and prints the records.

    host.py [FRONT-END]

FRONT-END is qt, terminal, or nothing for a user who is played here, so that it runs without a display."""

import sys

import fiscalon


def fill_and_confirm(form: fiscalon.Form) -> None:
    """What a user would do: a taxation year end, the amount in cents, OK."""
    form.type("202412")  # the sixth digit moves on to the amount
    form.type("12345")
    form.click("cmdOK")


def tell(box: fiscalon.Box) -> fiscalon.Answer:
    print(f"The screen says: {box.text}", file=sys.stderr)
    return box.default_answer


def main() -> int:
    if len(sys.argv) > 1:
        fiscalon.use_front_end(sys.argv[1])
    else:
        fiscalon.use_scripted_user(on_form=fill_and_confirm, on_box=tell)

    payment = fiscalon.Payment()
    payment.comp_name = "Summit Levies"
    payment.paid_amount = "12345"  # cents
    payment.paid_date = "06152026"
    payment.enter_name = "Hélène Côté"
    payment.enter_title = "Clerk"
    payment.seq_number = "0001"
    try:
        if not payment.show("15"):
            print("Cancelled.", file=sys.stderr)
            return 1
    except fiscalon.FiscalonError as error:
        print(f"{error.source}: {error.description}", file=sys.stderr)
        return 2
    for record in payment.pc4_records or ():
        print(record.description)
    return 0


if __name__ == "__main__":
    sys.exit(main())
