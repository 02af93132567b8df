"""The structs of the package are those of the library, member by member."""

import ctypes

import pytest

from fiscalon import _batch, _library, _scripted

from conftest import TREE

STRUCTS = {"fiscalon_error": _library.ErrorStruct, "fiscalon_text": _batch._TextStruct,
           "fiscalon_fault": _batch._FaultStruct, "fiscalon_verdict": _batch._VerdictStruct,
           "fiscalon_batch_counts": _batch._CountsStruct, "fiscalon_batch": _batch._BatchStruct,
           "fiscalon_box": _scripted._BoxStruct, "fiscalon_control": _scripted._ControlStruct,
           "fiscalon_scripted_user": _scripted._UserStruct}


def layouts():
    """{struct: (size, [(member, offset, size)])}, of which the library promises that they stay."""
    told = {}
    for line in (TREE / "bindings/c/layouts.txt").read_text(encoding="utf-8").splitlines():
        name, *numbers = line.split()
        if line.startswith(" "):
            told[struct][1].append((name, *map(int, numbers)))
        else:
            struct = name
            told[struct] = (int(numbers[0]), [])
    return told


def test_each_struct_is_told_here():
    assert set(layouts()) == set(STRUCTS)


@pytest.mark.parametrize("name", STRUCTS)
def test_a_struct_lies_as_the_library_has_it(name):
    struct = STRUCTS[name]
    members = [(member, getattr(struct, member).offset, getattr(struct, member).size) for member, _ in struct._fields_]
    assert (ctypes.sizeof(struct), members) == layouts()[name]
