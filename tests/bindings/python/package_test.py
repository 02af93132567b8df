"""The package as it is shipped: typed throughout, valid for the oldest Python that it is for, and a wheel that installs
without a network."""

import ast
import os
import shutil
import subprocess
import sys
import zipfile
from pathlib import Path

import pytest

import fiscalon
from fiscalon import _library
from conftest import TREE

PACKAGE = TREE / "bindings/python"
MODULES = sorted((PACKAGE / "fiscalon").glob("*.py"))
USE = """
import fiscalon
fiscalon.use_scripted_user(on_form=lambda form: (form.type("202412"), form.type("12345"), form.click("cmdOK")))
payment = fiscalon.Payment()
payment.paid_amount, payment.paid_date, payment.seq_number = "12345", "06152026", "0001"
assert payment.show("15") and len(payment.pc4_records) == 2
try:
    payment.show("12")
except fiscalon.InvalidScreenError as error:
    print(fiscalon.__file__, error.number)
"""


def test_modules_are_valid_for_the_oldest_python():
    assert len(MODULES) > 8
    for module in MODULES:
        ast.parse(module.read_text(encoding="utf-8"), feature_version=(3, 8))


@pytest.mark.skipif(shutil.which("mypy") is None, reason="there is no mypy")
def test_the_types_hold(tmp_path):
    cache = Path(os.environ.get("FISCALON_BUILD", tmp_path)) / "mypy"
    checked = subprocess.run(["mypy", "--strict", "--python-version", "3.8", "--cache-dir", cache, "fiscalon",
                              TREE / "examples/python_host/host.py"], cwd=PACKAGE, capture_output=True, text=True,
                              timeout=120)
    assert checked.returncode == 0, checked.stdout


@pytest.mark.skipif(shutil.which("stubtest") is None, reason="there is no stubtest")
def test_the_types_are_those_of_what_runs(environment):
    checked = subprocess.run(["stubtest", "fiscalon", "--allowlist", "stubtest.txt"], cwd=PACKAGE, env=environment,
                             capture_output=True, text=True, timeout=120)
    assert checked.returncode == 0, checked.stdout + checked.stderr


WITHOUT = """
import ctypes, sys
class Other(ctypes.CDLL):
    def __getattr__(self, name):
        if name in sys.argv[1:]:
            raise AttributeError(name)
        return super().__getattr__(name)
ctypes.CDLL = Other
try:
    import fiscalon
except ImportError as error:
    print(error)
"""


@pytest.mark.parametrize("lacking, found", [
    (["fiscalon_use_language"], f"is of Fiscalon {fiscalon.version()}, without fiscalon_use_language;"),
    (["fiscalon_version", "fiscalon_last_error"], "is no library of Fiscalon, without fiscalon_version;")])
def test_a_library_that_lacks_something_is_an_error_with_a_remedy(environment, lacking, found):
    told = subprocess.run([sys.executable, "-c", WITHOUT, *lacking], env=environment, capture_output=True, text=True,
                          timeout=60)
    assert told.stderr == "" and found in told.stdout, told
    for words in ("needs that of 1.0.0 or newer", "libfiscalon-c1", "FISCALON_LIBRARY"):
        assert words in told.stdout


def numbers(version):
    return [int(part) for part in version.split("-")[0].split(".")]


def test_the_version_that_the_package_needs_is_the_library_of_this_tree_or_older():
    assert numbers(_library._NEEDED) <= numbers(fiscalon.version())


@pytest.fixture(scope="module")
def wheel():
    wheels = list(Path(os.environ.get("FISCALON_WHEELS", "/nowhere")).glob("*.whl"))
    if not wheels:
        pytest.skip("no wheel was made")
    return wheels[0]


def test_the_wheel_suits_every_python_of_this_system(wheel):
    assert wheel.name.split("-", 2)[2] in ("py3-none-linux_x86_64.whl", "py3-none-linux_aarch64.whl")
    with zipfile.ZipFile(wheel) as packed:
        names = packed.namelist()
        entry_points = packed.read(next(name for name in names if name.endswith("entry_points.txt"))).decode()
    assert {f"fiscalon/{module.name}" for module in MODULES} <= set(names)
    assert {"fiscalon/py.typed", "fiscalon/libfiscalon-c.so.1"} <= set(names)
    assert "fiscalon = fiscalon.pytest_plugin" in entry_points
    assert all(name.startswith(("fiscalon/", "fiscalon-")) for name in names)


def test_the_wheel_installs_without_a_network_and_works(wheel, tmp_path):
    clean = {name: value for name, value in os.environ.items() if not name.startswith(("PYTHON", "FISCALON"))}
    subprocess.run([sys.executable, "-m", "venv", "--without-pip", tmp_path / "venv"], check=True, timeout=120)
    python = tmp_path / "venv/bin/python"
    installed = subprocess.run([sys.executable, "-m", "pip", "--python", python, "install", "--no-index", "--quiet",
                                "--disable-pip-version-check", wheel], env=clean, cwd=tmp_path, capture_output=True,
                                text=True, timeout=120)
    assert installed.returncode == 0, installed.stderr
    used = subprocess.run([python, "-c", USE], env=clean, cwd=tmp_path, capture_output=True, text=True, timeout=60)
    assert used.returncode == 0, used.stderr
    file, number = used.stdout.split()
    assert Path(file).is_relative_to(tmp_path) and number == "-2147221503"


def pythons_at_hand():
    """Those of the system, and those that pyenv keeps; its shims are no Pythons."""
    folders = [Path("/usr/bin"), Path("/usr/local/bin"), *sorted((Path.home() / ".pyenv/versions").glob("3.*/bin"))]
    found = {str((folder / f"python3.{minor}").resolve()) for folder in folders for minor in range(8, 14)
             if (folder / f"python3.{minor}").exists()}
    return sorted(found)


@pytest.mark.parametrize("python", pythons_at_hand())
def test_the_wheel_loads_on_each_python_that_is_at_hand(wheel, tmp_path, python):
    with zipfile.ZipFile(wheel) as packed:
        packed.extractall(tmp_path)
    used = subprocess.run([python, "-B", "-c", USE], env={"PATH": os.environ["PATH"], "PYTHONPATH": str(tmp_path)},
                          cwd=tmp_path, capture_output=True, text=True, timeout=60)
    assert used.returncode == 0, used.stderr
    assert used.stdout.split()[1] == "-2147221503"
