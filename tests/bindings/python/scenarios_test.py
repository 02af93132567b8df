"""The corpus, played by Python: each act and each look goes through a scripted user's routines, and what must be seen
is compared here. The package's own player and its fixtures say when a scenario fails."""

import subprocess
import sys

import pytest

import fiscalon
from fiscalon import play

from conftest import TREE

CORPUS = TREE / "tests/scenarios"
GOOD = """
today 2026-06-15
host PaidAmount 12345
host PaidDate 06152026
host SeqNumber 0001
show 15
  type 202412
  type 12345
  click cmdOK
expect result True
expect records 2
"""


def test_the_whole_corpus_passes():
    files = sorted(CORPUS.rglob("*.scenario"))
    played = 0
    for file in files:
        for scenario in play.read(file):
            play.play(scenario)
            played += 1
    assert len(files) > 300 and played > 3000


@pytest.mark.parametrize("change, expected, seen", [
    (("expect records 2", "expect records 3"), "3 records", "2 records"),
    (("expect result True", "expect result False"), "result False", "result True"),
    (("expect records 2", "expect record 3 x"), "a record 3", "2 records"),
    (("  click cmdOK\n", ""), "the form to be closed", '"frmDueDateAmount" is still open'),
    (("  click cmdOK", "  expect text txtAmountPayable 1\n  click cmdOK"), "1", "12345"),
    (("  click cmdOK", "  expect focus cmdOK\n  click cmdOK"), "cmdOK", "txtAmountPayable"),
    (("  click cmdOK\n", "  click cmdOK\n  expect text txtAmountPayable 1\n"), "a form to be open", "no form is open"),
    (("expect records 2", "expect beep"), "beep", "nothing was shown"),
    (("expect result True", "type 1"), "a form to be open", "no form is open"),
])
def test_what_is_not_as_expected_fails(change, expected, seen):
    scenario, = play.parse("one.scenario", GOOD.replace(*change))
    with pytest.raises(play.ScenarioFailure) as caught:
        play.play(scenario)
    assert (caught.value.expected, caught.value.seen) == (expected, seen)


@pytest.mark.parametrize("text, line",
                         [("", 1), ("shwo 15", 1), ("show", 1), ("\n\nshow 15 16", 3), ('type "a', 1), ('type "a"b', 1),
                                        ("host Nothing 1", 1), ("name $A 1 2\nshow 15", 1), ('type "\\x"', 1)])
def test_what_makes_no_sense_is_an_error_with_its_line(text, line):
    with pytest.raises(play.ScenarioError) as caught:
        for scenario in play.parse("one.scenario", text):
            play.play(scenario)
    assert caught.value.line == line


def test_a_control_that_no_form_has_makes_no_sense():
    scenario, = play.parse("one.scenario", GOOD.replace("cmdOK", "cmdOKK"))
    with pytest.raises(play.ScenarioError):
        play.play(scenario)


def test_a_failed_scenario_leaves_a_fresh_library():
    scenario, = play.parse("one.scenario", GOOD.replace("expect records 2", "expect records 3"))
    with pytest.raises(play.ScenarioFailure):
        play.play(scenario)
    with pytest.raises(fiscalon.NotSetError):
        fiscalon.Payment().show("15")


def test_the_program_tells_what_passed_and_what_did_not(tmp_path, environment):
    def run(*files):
        return subprocess.run([sys.executable, "-m", "fiscalon.play", *files], cwd=tmp_path, env=environment,
                              capture_output=True, text=True, timeout=60)

    (tmp_path / "good.scenario").write_text(GOOD, encoding="utf-8")
    (tmp_path / "bad.scenario").write_text(GOOD.replace("records 2", "records 3"), encoding="utf-8")
    (tmp_path / "none.scenario").write_text("shwo 15\n", encoding="utf-8")
    good = run("good.scenario")
    assert (good.returncode, good.stdout) == (0, "ok   good.scenario\n1 passed, 0 failed\n")
    bad = run("good.scenario", "bad.scenario")
    assert bad.returncode == 1
    assert bad.stdout == ("ok   good.scenario\nFAIL bad.scenario:11: expect records 3\n     expected: 3 records\n"
                          "     seen:     2 records\n1 passed, 1 failed\n")
    none = run("none.scenario")
    assert (none.returncode, none.stdout) == (2, "")
    assert none.stderr == 'none.scenario:1: "shwo" is nothing that a scenario can say\n'
    assert run("missing.scenario").returncode == 2
    assert run().returncode == 2


def test_the_fixtures_play_files_and_users(tmp_path, environment):
    """The plug-in in a test run of its own, as a host has it."""
    (tmp_path / "good.scenario").write_text(GOOD, encoding="utf-8")
    (tmp_path / "test_host.py").write_text('''
import datetime
import fiscalon
import pytest

def test_a_file(fiscalon_play):
    fiscalon_play("good.scenario")

def test_a_day_and_a_user(fiscalon_user):
    def fill(form):
        form.type("202812")
        form.click("cmdCancel")
    fiscalon_user.on_form = fill
    payment = fiscalon.Payment()
    payment.paid_amount = "12345"
    assert not payment.show("15")
    assert fiscalon_user.boxes[0].style == fiscalon.BoxStyle.CRITICAL
    # 2026-06-15: a year ahead at most.
    assert "from 199001 to 202705." in fiscalon_user.boxes.popleft().text

def test_a_box_that_nobody_claims_fails(fiscalon_user):
    fiscalon_user.on_form = lambda form: (form.click("cmdOK"), form.click("cmdCancel"))
    fiscalon.Payment().show("15")

def test_a_user_who_is_not_told_what_to_do_fails(fiscalon_user):
    with pytest.raises(AssertionError, match="frmDueDateAmount"):
        fiscalon.Payment().show("15")
''', encoding="utf-8")
    ended = subprocess.run([sys.executable, "-m", "pytest", "-q", "-p", "no:cacheprovider", "-p",
                            "fiscalon.pytest_plugin"], cwd=tmp_path,
                           env=environment, capture_output=True, text=True, timeout=120)
    assert "ERROR test_host.py::test_a_box_that_nobody_claims_fails - Failed: nobody" in ended.stdout, ended.stdout
    assert "4 passed, 1 error" in ended.stdout, ended.stdout
