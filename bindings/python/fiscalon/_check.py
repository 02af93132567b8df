"""The check of one payment's records without a screen."""

from __future__ import annotations

from ctypes import POINTER, byref, c_int32, c_void_p
from typing import Optional

from . import _library
from ._handles import Handle, Text, get_object, given_object, play_by_play_enabled
from ._records import FreeFormats, GovFormats, Records

_PLACE = POINTER(c_void_p)
_get_records = _library.function("check_get_pc4_records", c_void_p, _PLACE)
_set_records = _library.function("check_set_pc4_records", c_void_p, c_void_p)
_get_gov_formats = _library.function("check_get_pc4_gov_format_records", c_void_p, _PLACE)
_set_gov_formats = _library.function("check_set_pc4_gov_format_records", c_void_p, c_void_p)
_get_free_formats = _library.function("check_get_pc4_free_format_records", c_void_p, _PLACE)
_set_free_formats = _library.function("check_set_pc4_free_format_records", c_void_p, c_void_p)
_is_info_valid = _library.function("check_is_info_valid", c_void_p, POINTER(c_int32))


class Check(Handle):
    """Checks the records of one payment without a screen (``clsValidateAddInfo``): screen codes "03" and "20". For
    whole batches see ``fiscalon.validate_batch``, which is much faster."""

    _name = "check"

    screen_code = Text('"03" or "20": whose rules the records must keep.')
    number_of_fields = Text("Kept for the host; no rule looks at it.")
    biller_code = Text('Screen "20" asks biller "001052" alone for a remittance type.')
    biller_name = Text("Kept for the host; no rule looks at it.")
    payment_date = Text("Kept for the host; no rule looks at it.")
    payment_amount = Text("The amount to be paid. Written in cents, read back in dollars. Error 6 for a number beyond "
                          "all floats.")
    invalid_reason = Text('All that the last check found, ", " between; empty where it found nothing.')
    play_by_play_enabled = play_by_play_enabled()

    @property
    def pc4_records(self) -> Optional[Records]:
        """The records to check; without any the check finds error 91."""
        return get_object(self, _get_records, Records)

    @pc4_records.setter
    def pc4_records(self, records: Optional[Records]) -> None:
        _set_records(self._open, given_object(records, Records))

    @property
    def pc4_gov_format_records(self) -> Optional[GovFormats]:
        """The T records as a check cuts them into fields. It replaces what a host sets here, and leaves None, unless an
        error ended it."""
        return get_object(self, _get_gov_formats, GovFormats)

    @pc4_gov_format_records.setter
    def pc4_gov_format_records(self, formats: Optional[GovFormats]) -> None:
        _set_gov_formats(self._open, given_object(formats, GovFormats))

    @property
    def pc4_free_format_records(self) -> Optional[FreeFormats]:
        """The same of the F records."""
        return get_object(self, _get_free_formats, FreeFormats)

    @pc4_free_format_records.setter
    def pc4_free_format_records(self, formats: Optional[FreeFormats]) -> None:
        _set_free_formats(self._open, given_object(formats, FreeFormats))

    def is_info_valid(self) -> bool:
        """Whether the records keep all rules; ``invalid_reason`` tells the rest. A run-time error in a rule is a reason
        too, and a line of the error log; one in writing that log is raised."""
        valid = c_int32()
        _is_info_valid(self._open, byref(valid))
        return bool(valid.value)
