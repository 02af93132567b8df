"""Forms in a process of their own: ``fiscalon collect --json``."""

from __future__ import annotations

import os
from typing import TYPE_CHECKING, Any, Dict, List, Optional, Union

from . import _library, _process
from ._errors import ErrorNumber, FiscalonError, error_of
from ._handles import written
from ._records import Records

# What starts a program is loaded when one is started: most hosts start none.
if TYPE_CHECKING:
    import subprocess

    from ._payment import Payment


class ProgramError(FiscalonError):
    """1100: the program that shows a form in a process of its own can't be started, can't show it, or has died."""


_TEXTS = {"zelmor_number": "ZelmorNumber", "comp_code": "CompCode", "comp_name": "CompName",
          "account_number": "AccountNumber", "paid_date": "PaidDate", "number_of_info_collect": "NumberOfInfoCollect",
          "gov_filename": "GovFilename", "enter_name": "EnterName", "enter_title": "EnterTitle",
          "seq_number": "SeqNumber", "business_name": "BusinessName"}
_NUMBERS = {"ap_hold_flg": "APHoldFlg", "write_file": "WriteFile"}
_OF_THE_PROCESS = {"play_by_play_enabled": "PlayByPlayEnabled", "main_path": "MainPath",
                   "session_number": "SessionNumber"}

_program: List[str] = ["fiscalon"]


def use_program(program: Union[str, "os.PathLike[str]"] = "fiscalon", toolkit: Optional[str] = None) -> None:
    """How ``Payment.show(..., in_process=False)`` starts the program, and what shows its forms; None for the first that
    can."""
    _program[:] = [os.fspath(program)] + ([f"--toolkit={toolkit}"] if toolkit is not None else [])


def _cents(dollars: str) -> str:
    """What has to be written for a payment to read these dollars."""
    import decimal

    return format(decimal.Decimal(dollars).scaleb(2), "f")


def _request(payment: Payment, screen_code: str) -> Dict[str, Any]:
    """Only what is set: the properties of a new payment are empty."""
    properties: Dict[str, Any] = {name: getattr(payment, ours) for ours, name in _TEXTS.items()}
    properties["PaidAmount"] = payment.paid_amount and _cents(payment.paid_amount)
    properties.update((name, getattr(payment, ours)) for ours, name in _NUMBERS.items())
    properties.update((_OF_THE_PROCESS[ours], _library.decoded(value) if isinstance(value, bytes) else value)
                      for ours, value in written.items())
    return {"screen": screen_code, "payment": {name: value for name, value in properties.items() if value}}


def _answered(done: subprocess.CompletedProcess[bytes]) -> Dict[str, Any]:
    """What the program said, if it is a whole answer."""
    import json

    try:
        answer = json.loads(done.stdout)
        if "error" in answer:
            error = answer["error"]
            number, words, source = error["number"], error["description"], error["source"]
            if number is not None:
                raise error_of(int(number), str(words), str(source))
            raise ProgramError(ErrorNumber.PROGRAM, "; ".join(filter(None, (words, error["remedy"]))), str(source))
        records = answer["records"]
        if not isinstance(answer["result"], bool) or not (records is None or isinstance(records, list)):
            raise ValueError("no truth or no list")
        texts = [(each["TheDate"], each["Amount"], each["Description"]) for each in records or ()]
    except (ValueError, TypeError, KeyError, AttributeError) as problem:
        if isinstance(problem, FiscalonError):
            raise
        said = done.stderr.decode("utf-8", "replace").strip()
        raise ProgramError(ErrorNumber.PROGRAM, f"{_program[0]} ended with {done.returncode} and no answer"
                                                f"{': ' if said else ''}{said}") from None
    return {"result": answer["result"], "records": None if records is None else texts}


def show(payment: Payment, screen_code: str) -> bool:
    """Shows a screen by the program. The payment takes over the records as it does from a screen of its own process."""
    import json
    import subprocess

    code = _library.text(screen_code).decode("utf-8")
    command = [_program[0], "collect", "--json", "-", *_program[1:]]
    command += [f"--{option}={value}" for option, value in _process.fixed.items()]
    try:
        done = subprocess.run(command, input=json.dumps(_request(payment, code)).encode("utf-8"),
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    except OSError as problem:
        raise ProgramError(ErrorNumber.PROGRAM,
                           f"{command[0]} can't be started: {problem.strerror}; the Debian package "
                                                "fiscalon-tools brings it") from None
    answer = _answered(done)
    if answer["result"] and answer["records"] is not None:
        records = Records()
        for texts in answer["records"]:
            records.add(*texts)
        payment.pc4_records = records
    return bool(answer["result"])
