"""What a host may do wrong, and what becomes of it: an exception with a number and words, and never an answer."""

import os
import pickle
import subprocess
import sys
import textwrap
import threading

import pytest

import fiscalon

from conftest import fill


def run(script, environment, **changes):
    return subprocess.run([sys.executable, "-c", textwrap.dedent(script)], env={**environment, **changes},
                          capture_output=True, text=True, timeout=60)


def in_thread(call):
    """What a call in another thread raises."""
    raised = []

    def guarded():
        try:
            call()
        except BaseException as error:
            raised.append(error)

    thread = threading.Thread(target=guarded)
    thread.start()
    thread.join()
    return raised[0] if raised else None


def test_errors_can_be_pickled():
    for error in (fiscalon.InvalidScreenError(-2147221503, "words", "source"),
                  fiscalon.BatchError(1011, "words", problems=[fiscalon.BatchProblem("file", 3, "reason")])):
        copy = pickle.loads(pickle.dumps(error))
        assert type(copy) is type(error)
        assert (copy.number, copy.description, copy.source) == (error.number, error.description, error.source)
        assert getattr(copy, "problems", None) == getattr(error, "problems", None)


def test_a_closed_object_is_refused_in_each_use(payment):
    payment.close()
    payment.close()
    with pytest.raises(fiscalon.ClosedError) as caught:
        payment.show("15")
    assert caught.value.number == 91
    with pytest.raises(fiscalon.ClosedError):
        with payment:
            pass
    assert not hasattr(fiscalon.Payment, "nothing_of_the_kind")


def test_a_block_closes_its_object():
    with fiscalon.Records() as records:
        record = records.add(description="kept")
    assert records.closed
    assert record.description == "kept"
    assert repr(records) == "<closed Records>"


def test_records_outlive_the_payment(payment, fiscalon_user):
    fiscalon_user.on_form = fill
    assert payment.show("15")
    records = payment.pc4_records
    payment.close()
    assert [record.description[:8] for record in records] == ["PC40001T", "PC40001F"]


def test_the_collection_is_the_forms_own(payment, fiscalon_user):
    fiscalon_user.on_form = fill
    assert payment.show("15")
    first = payment.pc4_records
    assert payment.show("15")
    assert payment.pc4_records.is_same(first)


def test_no_front_end_is_an_error(fiscalon_fresh):
    with pytest.raises(fiscalon.NotSetError) as caught:
        fiscalon.Payment().show("15")
    assert (caught.value.number, caught.value.source) == (91, "Fiscalon.ShowLevyraScreen")


@pytest.mark.parametrize("name", ["", "QT", "gtk", "../qt", "win32"])
def test_a_front_end_that_is_not_there_is_an_error_with_words(name, fiscalon_fresh):
    with pytest.raises(fiscalon.FrontEndError) as caught:
        fiscalon.use_front_end(name)
    assert caught.value.number == 1008
    assert caught.value.description
    with pytest.raises(fiscalon.FrontEndError):
        fiscalon.front_end_hindrance(name)


def test_a_front_end_that_is_not_installed_names_its_package(fiscalon_fresh, tmp_path):
    fiscalon.use_front_end_folder(tmp_path)
    try:
        with pytest.raises(fiscalon.FrontEndError, match="libfiscalon-c-qt"):
            fiscalon.use_front_end("qt")
    finally:
        fiscalon.use_front_end_folder(None)


def test_what_a_routine_raises_comes_out_as_it_is(payment, fiscalon_user):
    class Own(Exception):
        pass

    mine = Own("mine")

    def raising(_form):
        raise mine

    fiscalon_user.on_form = raising
    with pytest.raises(Own) as caught:
        payment.show("15")
    assert caught.value is mine
    assert payment.pc4_records is None
    # The form goes on where it was.
    fiscalon_user.on_form = fill
    assert payment.show("15")


@pytest.mark.parametrize("kind", [KeyboardInterrupt, SystemExit, GeneratorExit, MemoryError, RecursionError])
def test_exceptions_of_the_interpreter_come_out_too(payment, fiscalon_user, kind):
    def raising(_form):
        raise kind

    fiscalon_user.on_form = raising
    with pytest.raises(kind):
        payment.show("15")


@pytest.mark.parametrize("answer", [None, True, 0, 1, "OK", fiscalon.BoxStyle.CRITICAL])
def test_what_is_no_answer_never_becomes_one(payment, answer):
    fiscalon.use_scripted_user(on_form=lambda form: form.click("cmdOK"), on_box=lambda box: answer)
    with pytest.raises(fiscalon.TypeMismatchError) as caught:
        payment.show("15")
    assert caught.value.number == 13


def test_an_answer_that_the_box_does_not_offer_is_an_error(payment):
    fiscalon.use_scripted_user(on_form=lambda form: form.click("cmdOK"), on_box=lambda box: fiscalon.Answer.YES)
    with pytest.raises(fiscalon.InvalidCallError) as caught:
        payment.show("15")
    assert caught.value.number == 5


def test_a_routine_of_beeps_help_and_handlers_may_raise(payment):
    def raising(*_):
        raise LookupError("heard")

    fiscalon.use_scripted_user(on_form=fill, on_handler=raising)
    with pytest.raises(LookupError, match="heard"):
        payment.show("15")
    fiscalon.use_scripted_user(on_form=lambda form: form.click("Command3D4"), on_help=raising)
    with pytest.raises(LookupError, match="heard"):
        payment.show("04")


def test_a_routine_may_show_another_screen(payment, fiscalon_user):
    inner = fiscalon.Payment()
    results = []

    def outer(form):
        if form.name == "GOVINDIDUAL":
            raise LookupError("inner")
        with pytest.raises(fiscalon.AlreadyShownError):
            payment.show("15")
        with pytest.raises(LookupError, match="inner"):
            inner.show("04")
        fill(form)
        results.append(form.is_up)

    fiscalon_user.on_form = outer
    assert payment.show("15")
    assert results == [False]


def test_a_form_that_is_gone_is_refused(payment, fiscalon_user):
    kept = []

    def keeping(form):
        kept.append(form)
        fill(form)
        assert not form.is_up
        with pytest.raises(fiscalon.FormClosedError):
            form.type("1")
        with pytest.raises(fiscalon.FormClosedError):
            form.click("cmdOK")

    fiscalon_user.on_form = keeping
    assert payment.show("15")
    for call in (lambda: kept[0].name, lambda: kept[0].type("1"), lambda: kept[0].controls, lambda: kept[0]["cmdOK"]):
        with pytest.raises(fiscalon.FormClosedError) as caught:
            call()
        assert caught.value.number == 1010
    assert not kept[0].is_up


def test_acts_that_make_no_sense_are_refused(payment, fiscalon_user):
    def trying(form):
        for number, call in ((5, lambda: form.click("cmdNothing")), (5, lambda: form["txtNothing"]),
                             (5, lambda: form.press_key("Enterr")), (5, lambda: form.choose("cmdOK", 0)),
                             (5, lambda: form.rows("cmdOK") or form.choose("cmdOK", "row")),
                             (5, lambda: form.close(9)), (13, lambda: form.type(None)), (13, lambda: form.click(1)),
                             (13, lambda: form.close("0")), (1003, lambda: form.paste("\0")),
                             (1003, lambda: form.type("\u65e5")), (1003, lambda: form.paste("\ud800"))):
            with pytest.raises(fiscalon.FiscalonError) as caught:
                call()
            assert caught.value.number == number, caught.value
        with pytest.raises(KeyError):
            form["txtNothing"]
        fill(form)

    fiscalon_user.on_form = trying
    assert payment.show("15")


def test_routines_must_be_routines(fiscalon_fresh):
    with pytest.raises(fiscalon.TypeMismatchError):
        fiscalon.use_scripted_user(on_form="fill")


def test_a_reset_from_a_routine_is_refused(payment, fiscalon_user):
    def resetting(form):
        with pytest.raises(fiscalon.BusyError):
            fiscalon.reset()
        with pytest.raises(fiscalon.BusyError):
            fiscalon.use_front_end(None)
        fill(form)

    fiscalon_user.on_form = resetting
    assert payment.show("15")


def test_another_thread_can_neither_show_nor_reset(payment, fiscalon_user):
    fiscalon_user.on_form = fill
    for call in (lambda: payment.show("15"), lambda: fiscalon.use_front_end("scripted"), fiscalon.reset):
        error = in_thread(call)
        assert isinstance(error, fiscalon.ThreadError), error
        assert error.number == 1005
    assert payment.show("15")


def test_another_thread_waits_for_nobody_while_a_screen_is_open(payment, fiscalon_user):
    errors = []

    def while_open(form):
        errors.append(in_thread(lambda: payment.comp_name))
        errors.append(in_thread(fiscalon.Payment))
        fill(form)

    fiscalon_user.on_form = while_open
    assert payment.show("15")
    assert [type(error) for error in errors] == [fiscalon.ThreadError] * 2


def test_another_thread_may_let_go_of_an_object_while_a_screen_is_open(payment, fiscalon_user):
    records = fiscalon.Records()

    def while_open(form):
        assert in_thread(records.close) is None
        fill(form)

    fiscalon_user.on_form = while_open
    assert payment.show("15")
    assert records.closed


def test_threads_that_read_one_object_get_whole_texts(fiscalon_fresh):
    payment = fiscalon.Payment()
    texts = {"name " * 20, "title " * 30}
    payment.enter_name, payment.enter_title = sorted(texts)
    seen = []

    def read():
        for _ in range(2000):
            seen.append({payment.enter_name, payment.enter_title})

    others = [threading.Thread(target=read) for _ in range(3)]
    for other in others:
        other.start()
    for other in others:
        other.join()
    assert len(seen) == 6000 and all(each == texts for each in seen)


def test_other_threads_may_use_objects(payment):
    payment.comp_name = "set in one"
    read = []
    assert in_thread(lambda: read.append(payment.comp_name)) is None
    assert read == ["set in one"]


def test_a_forked_process_goes_on_but_for_its_parents_screens(payment, fiscalon_user):
    fiscalon_user.on_form = fill
    reading, writing = os.pipe()
    child = os.fork()
    if child == 0:
        said = b"?"
        try:
            payment.comp_name = "of the child"
            assert payment.show("15") and len(payment.pc4_records) == 2
            said = b"good"
        except BaseException as error:
            said = repr(error).encode()
        finally:
            os.write(writing, said)
            os._exit(0)
    os.waitpid(child, 0)
    assert os.read(reading, 1000) == b"good"
    assert payment.comp_name == "Summit Levies"


def test_a_locale_of_another_type_or_an_impossible_day_is_refused(fiscalon_fresh):
    with pytest.raises(fiscalon.TypeMismatchError):
        fiscalon.use_fixed_clock("2026-06-15")
    with pytest.raises(fiscalon.InvalidCallError):
        fiscalon.use_fixed_clock(__import__("datetime").date(1, 1, 1))


def test_the_code_page_goes_both_ways():
    every_byte = bytes(range(256))
    assert fiscalon.to_windows_1252(fiscalon.from_windows_1252(every_byte)) == every_byte
    assert fiscalon.from_windows_1252(b"H\xe9l\xe8ne \x80") == "Hélène €"
    assert fiscalon.to_windows_1252("") == b"" and fiscalon.from_windows_1252(b"") == ""
    for text, number in ((None, 13), ("\u65e5", 1003), ("\ud800", 1003)):
        with pytest.raises(fiscalon.FiscalonError) as caught:
            fiscalon.to_windows_1252(text)
        assert caught.value.number == number
    with pytest.raises(fiscalon.TypeMismatchError):
        fiscalon.from_windows_1252("text")


def test_a_check_judges_as_the_guide_says(fiscalon_fresh):
    records = fiscalon.Records.of(text.ljust(160) for text in (
        "PC40001T                                Jane Doe",
        "PC40001F" "01000000000000012345" "0220260531          " "03000000000000500000" "04000000000000000012"))
    check = fiscalon.Check()
    check.screen_code = "03"
    check.payment_amount = "12345"
    check.pc4_records = records
    assert check.is_info_valid()
    check.payment_amount = "99999"
    assert not check.is_info_valid()
    assert check.invalid_reason == "Field 01 Amount of Payment is not equal to amount to be paid"
    check.screen_code = "04"
    assert not check.is_info_valid()
    assert check.invalid_reason == "Invalid or not supported Screen Type"
    assert check.pc4_gov_format_records is None and check.pc4_free_format_records is None


def test_a_check_without_records_tells_so_and_logs_it(fiscalon_fresh, tmp_path):
    check = fiscalon.Check()
    payment = fiscalon.Payment()
    payment.main_path = tmp_path
    payment.session_number = 123456
    payment.zelmor_number = "77"
    check.screen_code = "03"
    assert not check.is_info_valid()
    assert check.invalid_reason == "Error 91 - Object variable or With block variable not set"
    assert b",Fiscalon,77,456,91," in (tmp_path / "error.log").read_bytes()
    payment.main_path = tmp_path / "missing"
    with pytest.raises(fiscalon.RecordFileError) as caught:
        check.is_info_valid()
    assert caught.value.number == 76


def test_records_go_to_a_file_by_its_path(payment, fiscalon_user, tmp_path):
    fiscalon_user.on_form = fill
    payment.write_file = True
    payment.gov_filename = tmp_path / "records.pc4"
    assert payment.show("15")
    assert payment.pc4_records is None
    lines = (tmp_path / "records.pc4").read_bytes().split(b"\r\n")
    assert [line[:10] for line in lines] == [b'"PC40001T ', b'"PC40001F0', b""]
    payment.gov_filename = tmp_path / "missing" / "records.pc4"
    with pytest.raises(fiscalon.RecordFileError) as caught:
        payment.show("15")
    assert (caught.value.number, caught.value.source) == (76, "Fiscalon.ShowLevyraScreen")


def test_a_library_that_is_not_there_says_how_to_get_it(environment):
    ended = run("import fiscalon", environment, FISCALON_LIBRARY="/nowhere/libfiscalon-c.so.1")
    assert ended.returncode == 1
    assert "ImportError" in ended.stderr and "libfiscalon-c1" in ended.stderr


def test_an_interpreter_ends_well_with_objects_and_routines_left(environment):
    ended = run("""
        import fiscalon
        payment = fiscalon.Payment()
        records = fiscalon.Records.of(["one", "two"])
        walk = iter(records)
        next(walk)
        fiscalon.use_scripted_user(on_form=lambda form: form.click("cmdCancel"))
        assert payment.show("15") is False
    """, environment)
    assert (ended.returncode, ended.stderr) == (0, "")
