"""Fiscalon: collects the details of government remittances in Canada and checks them.

    import fiscalon

    fiscalon.use_front_end("qt")
    payment = fiscalon.Payment()
    payment.comp_name = "Summit Levies"
    payment.paid_amount = "12345"  # cents
    payment.paid_date = "06152026"
    payment.seq_number = "0001"
    if payment.show("15"):
        for record in payment.pc4_records:
            print(record.description)

All texts are Python's own. The library works in Windows-1252, so a character that it lacks is an error, never "?"."""

from ._batch import BatchCounts, Fault, Judge, Verdict, Verdicts, count_batch, validate_batch
from ._check import Check
from ._errors import (AlreadyShownError, BatchError, BatchProblem, BusyError, ClosedError, DuplicateKeyError,
                      ErrorNumber, FiscalonError, ForkedError, FormClosedError, FrontEndError, InvalidCallError,
                      InvalidScreenError, NotSetError, NumberOverflowError, OutOfMemoryError, RecordFileError,
                      TextError, ThreadError, TypeMismatchError, UnknownKeyError, UnknownPositionError)
from ._payment import Payment
from ._process import (from_windows_1252, front_end_hindrance, reset, to_windows_1252, use_fixed_clock, use_front_end,
                       use_front_end_folder, use_language, use_locale, version)
from ._records import FreeFormat, FreeFormats, GovFormat, GovFormats, Record, Records
from ._scripted import Answer, Box, BoxStyle, Buttons, CloseReason, Control, ControlKind, Form, use_scripted_user
from ._separate import ProgramError, use_program

__all__ = [
    "AlreadyShownError", "Answer", "BatchCounts", "BatchError", "BatchProblem", "Box", "BoxStyle", "BusyError",
    "Buttons", "Check", "ClosedError", "CloseReason", "Control", "ControlKind", "DuplicateKeyError", "ErrorNumber",
    "Fault", "FiscalonError", "ForkedError", "Form", "FormClosedError", "FreeFormat", "FreeFormats", "FrontEndError",
    "GovFormat", "GovFormats", "InvalidCallError", "InvalidScreenError", "Judge", "NotSetError", "NumberOverflowError",
    "OutOfMemoryError", "Payment", "ProgramError", "Record", "RecordFileError", "Records", "TextError", "ThreadError",
    "TypeMismatchError", "UnknownKeyError", "UnknownPositionError", "Verdict", "Verdicts", "count_batch",
    "from_windows_1252", "front_end_hindrance", "reset", "to_windows_1252", "use_fixed_clock", "use_front_end",
    "use_front_end_folder", "use_language", "use_locale", "use_program", "use_scripted_user", "validate_batch",
    "version"]

__version__ = version()
