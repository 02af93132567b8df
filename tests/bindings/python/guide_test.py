"""The guide's listings run, and print what they should; so does the example."""

import re
import subprocess
import sys

import pytest

from conftest import TREE

GUIDE = (TREE / "docs/host-guide-python.md").read_text(encoding="utf-8")
LISTINGS = re.findall(r"(?m)^```python (\S+)\n((?s:.*?))^```$", GUIDE)
SCENARIO, = (text for language, text in re.findall(r"(?m)^```(\w*)[^\n]*\n((?s:.*?))^```$", GUIDE) if not language)
RECORDS = ["PC40001T                202412          Hélène Côté                   Clerk",
           "PC40001F0100000000000001234502" + 18 * "0" + "03" + 18 * "0" + "04" + 18 * "0"]


@pytest.fixture
def folder(tmp_path):
    for name, text in LISTINGS:
        with open(tmp_path / name, "a", encoding="utf-8") as file:
            file.write(text)
    (tmp_path / "my.scenario").write_text(SCENARIO, encoding="utf-8")
    return tmp_path


def run(environment, folder, *words):
    return subprocess.run([sys.executable, *words], cwd=folder, env={**environment, "PYTHONIOENCODING": "utf-8"},
                          capture_output=True, text=True, encoding="utf-8", timeout=60)


def test_all_listings_are_told_here():
    assert {name for name, _ in LISTINGS} == {"host.py", "separate.py", "members.py", "bulk.py", "batch.py",
                                              "test_host.py"}


@pytest.mark.parametrize("host", ["host.py", TREE / "examples/python_host/host.py"], ids=["guide", "example"])
def test_the_host_prints_the_records(folder, environment, host):
    ended = run(environment, folder, host)
    assert (ended.returncode, ended.stderr) == (0, "")
    assert [line.rstrip() for line in ended.stdout.splitlines()] == RECORDS
    assert [len(line) for line in ended.stdout.splitlines()] == [160, 160]


def test_the_example_says_what_a_front_end_lacks(folder, environment):
    ended = run(environment, folder, TREE / "examples/python_host/host.py", "gtk")
    assert ended.returncode == 1 and 'There is no front end "gtk"' in ended.stderr


def test_a_form_in_a_process_of_its_own(folder, environment):
    ended = run(environment, folder, "separate.py", "/nowhere/fiscalon")
    assert (ended.returncode, ended.stdout.count("\n")) == (0, 1)
    assert "fiscalon-tools" in ended.stdout and "error 1100" in ended.stdout


def test_collections(folder, environment):
    ended = run(environment, folder, "members.py")
    assert ended.stdout.splitlines() == ["second second second", "UnknownPositionError 9", "UnknownPositionError 9",
                                         "UnknownKeyError 5", "457", "2 ['first', 'second']"], ended.stderr


def test_bulk(folder, environment):
    ended = run(environment, folder, "bulk.py")
    assert ended.stdout == "Field 01 Amount of Payment is not equal to amount to be paid\n", ended.stderr


def test_a_batch(folder, environment):
    (folder / "batch.csv").write_text("seq,screen,biller,amount\n0001,03,,12345\n0002,03,,1\n", encoding="utf-8")
    body = "{}F0100000000000001234502" + "20260531".ljust(18) + "0300000000000050000004000000000000000012"
    (folder / "batch.pc4").write_text("".join(body.format(f"PC4{seq}").ljust(160) + "\r\n"
                                              for seq in ("0001", "0002")), newline="")
    ended = run(environment, folder, "batch.py")
    assert ended.stdout.splitlines() == ["0002 2 not-the-amount Field 01 Amount of Payment is not equal to amount to "
                                         "be paid", "1 of 2"], ended.stderr
    (folder / "batch.csv").write_text("seq,screen,biller,amount\n0001,03,,12345\n", encoding="utf-8")
    ended = run(environment, folder, "batch.py")
    assert ended.returncode == 2 and ended.stderr.startswith("batch.pc4:2: ")


def test_the_tests(folder, environment):
    ended = run(environment, folder, "-m", "pytest", "-q", "-p", "no:cacheprovider", "-p", "fiscalon.pytest_plugin",
                "test_host.py")
    assert "2 passed" in ended.stdout, ended.stdout


def test_the_first_lines_of_all(folder, environment):
    """What the README shows, with a played user in the place of windows."""
    readme = (TREE / "README.md").read_text(encoding="utf-8")
    lines, = re.findall(r"(?m)^```python readme/main.py\n((?s:.*?))^```$", readme)
    (folder / "main.py").write_text(f"""
import fiscalon
from host import fill_and_confirm, send

fiscalon.use_front_end = lambda name: fiscalon.use_scripted_user(on_form=fill_and_confirm)
{lines}""", encoding="utf-8")
    (folder / "host.py").write_text("""
def fill_and_confirm(form):
    form.type("202412")
    form.type("12345")
    form.click("cmdOK")


def send(description):
    print(description[:8])
""", encoding="utf-8")
    ended = run(environment, folder, "main.py")
    assert ended.stdout.split() == ["PC40001T", "PC40001F"], ended.stderr


def test_each_error_has_its_row():
    import fiscalon
    rows = dict(re.findall(r"(?m)^\| ([-\d, ]+) \| `(\w+)`", GUIDE))
    told = {int(number): name for numbers, name in rows.items() for number in numbers.split(", ")}
    for number, name in told.items():
        expected = getattr(fiscalon, name)
        raised = type(fiscalon._errors.error_of(number, "words"))
        assert raised is expected or name == "ProgramError", number
    # What this side never meets: it makes its calls as they must be made.
    silent = {"NULL_POINTER", "NO_HANDLE", "STRUCT_SIZE", "CALLBACK", "UNFORESEEN"}
    numbers = {value: name for name, value in vars(fiscalon.ErrorNumber).items() if not name.startswith("_")}
    assert set(told) == {value for value, name in numbers.items() if name not in silent}
