"""What these tests share. The package is the one of the tree, unless it is installed."""

import os
import sys
from pathlib import Path

import pytest

TREE = Path(__file__).resolve().parents[3]


@pytest.fixture
def tree():
    return TREE


@pytest.fixture
def environment():
    """Of a process of Python's that finds the package as this one does."""
    return {**os.environ, "PYTHONPATH": os.pathsep.join(sys.path)}


@pytest.fixture
def payment(fiscalon_user):
    """A payment, and nobody yet who fills its forms."""
    import fiscalon

    made = fiscalon.Payment()
    made.comp_name = "Summit Levies"
    made.paid_amount = "12345"
    made.paid_date = "06152026"
    made.seq_number = "0001"
    return made


def fill(form):
    """A taxation year end, the amount, OK: screen "15"."""
    form.type("202412")
    form.type("12345")
    form.click("cmdOK")
