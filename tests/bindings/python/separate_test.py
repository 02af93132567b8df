"""A form in a process of its own: what is asked of the program, and what becomes of its answers."""

import json
import os
import stat
import textwrap

import pytest

import fiscalon


@pytest.fixture
def program(tmp_path):
    """A stand-in for the program: it keeps what it was asked, and answers what a test says."""
    path = tmp_path / "program"

    def answering(answer, status=0, instead=""):
        path.write_text(textwrap.dedent(f"""\
            #!/bin/sh
            cat >'{tmp_path}/request'
            printf '%s\\n' "$*" >'{tmp_path}/arguments'
            {instead or "cat <<'END'"}
            {answer if isinstance(answer, str) else json.dumps(answer)}
            {"" if instead else "END"}
            exit {status}
            """), encoding="utf-8")
        path.chmod(path.stat().st_mode | stat.S_IXUSR)
        fiscalon.use_program(path)

    yield answering
    fiscalon.use_program()


def asked(tmp_path):
    return json.loads((tmp_path / "request").read_text(encoding="utf-8"))


def test_the_payment_is_asked_for_as_it_is(payment, program, tmp_path):
    program({"result": False, "records": None}, 1)
    payment.enter_name = "Hélène Côté"
    payment.ap_hold_flg = 1
    payment.write_file = True
    payment.gov_filename = tmp_path / "records.pc4"
    payment.main_path = tmp_path
    payment.session_number = 123456
    assert payment.show("15", in_process=False) is False
    assert payment.pc4_records is None
    assert asked(tmp_path) == {"screen": "15", "payment": {
        "CompName": "Summit Levies", "PaidAmount": "12345", "PaidDate": "06152026", "SeqNumber": "0001",
        "EnterName": "Hélène Côté", "APHoldFlg": 1, "WriteFile": -1, "GovFilename": str(tmp_path / "records.pc4"),
        "MainPath": str(tmp_path), "SessionNumber": 123456.0}}
    arguments = (tmp_path / "arguments").read_text(encoding="utf-8")
    assert arguments == "collect --json - --today=2026-06-15 --locale=en-CA\n"


@pytest.mark.parametrize("cents", ["12345", "1200", "5", "0", "-5", "99", "1", "100000000000", "12.5"])
def test_the_amount_is_the_same_there(payment, program, tmp_path, cents):
    program({"result": False, "records": None}, 1)
    payment.paid_amount = cents
    payment.show("15", in_process=False)
    there = fiscalon.Payment()
    there.paid_amount = asked(tmp_path)["payment"]["PaidAmount"]
    assert there.paid_amount == payment.paid_amount


def test_the_records_are_handed_over(payment, program):
    program({"result": True, "records": [{"TheDate": "20260601", "Amount": " 000012345", "Description": "Côté"},
                                         {"TheDate": "", "Amount": "", "Description": "second"}]})
    assert payment.show("08", in_process=False) is True
    assert [(each.the_date, each.amount, each.description) for each in payment.pc4_records] == [
        ("20260601", " 000012345", "Côté"), ("", "", "second")]


def test_records_of_a_file_leave_the_collection(payment, program):
    program({"result": True, "records": None})
    kept = payment.pc4_records = fiscalon.Records.of(["kept"])
    assert payment.show("15", in_process=False) is True
    assert payment.pc4_records.is_same(kept)


@pytest.mark.parametrize("number, kind", [(-2147221503, fiscalon.InvalidScreenError), (76, fiscalon.RecordFileError)])
def test_errors_of_the_screen_are_those_of_this_process(payment, program, number, kind):
    program({"error": {"number": number, "source": "Fiscalon.ShowLevyraScreen", "description": "Words", "remedy": None,
                       "key": None, "line": None}}, 2)
    with pytest.raises(kind) as caught:
        payment.show("15", in_process=False)
    error = caught.value
    assert (error.number, error.source, error.description) == (number, "Fiscalon.ShowLevyraScreen", "Words")


def test_errors_of_the_program_are_told_with_their_remedy(payment, program):
    program({"error": {"number": None, "source": "fiscalon collect", "description": "there is no display",
                       "remedy": "set DISPLAY", "key": None, "line": None}}, 2)
    with pytest.raises(fiscalon.ProgramError, match="there is no display; set DISPLAY") as caught:
        payment.show("15", in_process=False)
    assert caught.value.number == 1100


@pytest.mark.parametrize("answer, instead", [("", ""), ('{"result": tr', ""), ("[]", ""), ('"text"', ""), ("{}", ""),
                                             ('{"result": 1}', ""), ('{"result": true}', ""),
                                             ('{"result": true, "records": [{"TheDate": ""}]}', ""),
                                             ('{"result": "True", "records": null}', ""), ('{"error": "words"}', ""),
                                             ("", "kill -SEGV $$")])
def test_half_an_answer_is_none(payment, program, answer, instead):
    program(answer, 0, instead)
    payment.pc4_records = None
    with pytest.raises(fiscalon.ProgramError) as caught:
        payment.show("15", in_process=False)
    assert caught.value.number == 1100 and caught.value.description
    assert payment.pc4_records is None


def test_a_program_that_is_not_there_names_its_package(payment):
    fiscalon.use_program("/nowhere/fiscalon")
    try:
        with pytest.raises(fiscalon.ProgramError, match="fiscalon-tools"):
            payment.show("15", in_process=False)
    finally:
        fiscalon.use_program()


def test_bad_codes_are_refused_before_anything_is_started(payment):
    for code, number in ((None, 13), ("\0", 1003), ("\ud800", 1003)):
        with pytest.raises(fiscalon.FiscalonError) as caught:
            payment.show(code, in_process=False)
        assert caught.value.number == number


@pytest.mark.skipif("FISCALON_PROGRAM" not in os.environ, reason="there is no program to ask")
def test_the_program_itself_answers(payment):
    fiscalon.use_program(os.environ["FISCALON_PROGRAM"], toolkit="scripted")
    try:
        with pytest.raises(fiscalon.ProgramError, match="the front end scripted shows forms to nobody"):
            payment.show("12", in_process=False)
    finally:
        fiscalon.use_program()
