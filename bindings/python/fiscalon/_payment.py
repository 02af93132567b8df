"""The payment session."""

from __future__ import annotations

from ctypes import POINTER, byref, c_char_p, c_int32, c_void_p
from typing import Optional

from . import _library, _separate
from ._handles import (Handle, Number, PathText, Text, Truth, get_object, given_object, main_path, play_by_play_enabled,
                       session_number)
from ._records import Records
from ._scripted import handing_out

_get_records = _library.function("payment_get_pc4_records", c_void_p, POINTER(c_void_p))
_set_records = _library.function("payment_set_pc4_records", c_void_p, c_void_p)
_show = _library.function("payment_show", c_void_p, c_char_p, POINTER(c_int32))


class Payment(Handle):
    """The context of one payment, and the call that asks the user for the rest (``Levyra``).

    One object may serve any number of payments; what is not set again keeps its value. Making one asks the user's
    locale for its decimal separator, which decides for the whole process whether a typed amount means cents."""

    _name = "payment"

    zelmor_number = Text("The host's customer number. The error log names it from then on.")
    comp_code = Text('Biller code, such as "001052".')
    comp_name = Text("Biller name, shown on the screens.")
    account_number = Text("Kept for the host; no screen receives it.")
    paid_amount = Text('The amount of the payment. Written in cents ("12345"), read back in dollars ("123.45", ".05"). '
                       "A text that begins with no number is 0. Error 6 for a number beyond all floats.")
    paid_date = Text("Payment date, 8 digits: month, day, year.")
    number_of_info_collect = Text('How many items screen "07" collects, "1" to "12".')
    gov_filename = PathText("Full path of the record file; a path of ``pathlib`` will do.")
    enter_name = Text("The person entering, at most 30 characters; a longer name fails the output.")
    enter_title = Text("That person's title, at most 20 characters.")
    ap_hold_flg = Number("1: the payment is on hold and has no fixed date. Error 6 for a number that 8 bits do not "
                         "hold.")
    seq_number = Text("Four characters that head each record of the payment, taken as they are.")
    show_gst58 = Truth("Always False.")
    business_name = Text("Name offered on the donation screen.")
    write_file = Number("True, and nothing else: records go to the file ``gov_filename``, not to ``pc4_records``. It "
                        "is a number, and reads as one: True is -1, any other number stays as it is and counts as "
                        "False. Error 6 for one that 16 bits do not hold.", _library.boolean)
    play_by_play_enabled = play_by_play_enabled()
    main_path = main_path()
    session_number = session_number()

    @property
    def pc4_records(self) -> Optional[Records]:
        """The records of the last screen that ended with OK and without a file, or None. It is the form's own
        collection, which its next output empties."""
        return get_object(self, _get_records, Records)

    @pc4_records.setter
    def pc4_records(self, records: Optional[Records]) -> None:
        _set_records(self._open, given_object(records, Records))

    def show(self, screen_code: str, *, in_process: bool = True) -> bool:
        """Shows the screen of a two-digit code (``ShowLevyraScreen``) and waits for the user. True: OK was chosen, and
        the records are in the file or in ``pc4_records``. False: nothing was written.

        With ``in_process=False`` the form is shown by a process of its own, ``fiscalon collect --json``, so that
        neither the interpreter nor another copy of Qt is in its way; ``fiscalon.use_program`` says how it is started.

        Errors have the source "Fiscalon.ShowLevyraScreen": 0x80040001 for an unknown code, 91 without a front end, 400
        while the form is shown already, and whatever left the form. What a routine of a scripted user raises comes out
        as it is."""
        if not in_process:
            return _separate.show(self, screen_code)
        chosen = c_int32()
        code = _library.text(screen_code)
        with handing_out():
            _show(self._open, code, byref(chosen))
        return bool(chosen.value)
