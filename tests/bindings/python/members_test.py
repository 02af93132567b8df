"""Every call of bindings/members.json as a host in Python makes it, with good arguments and bad ones; errors are
compared by number, source and description."""

import inspect
import json
import re

import pytest

import fiscalon

from conftest import TREE

TABLE = json.loads((TREE / "bindings/members.json").read_text(encoding="utf-8"))
CLASSES = {each["name"]: each for each in TABLE["classes"]}
DESCRIPTIONS = {each["number"]: each["description"] for each in TABLE["errors"]}
OPERATIONS = {each["name"]: each for each in TABLE["collection"]}
# What stands for an operation in a sequence of Python's.
OPERATORS = {"Count": "__len__", "NewEnum": "__iter__"}
# What a class has beside the members of the table: an object's life, and what makes it one of Python's own.
OF_PYTHON = {"close", "closed", "count", "index", "is_same", "of"}
CHARACTERS = [fiscalon.from_windows_1252(bytes([code])) for code in range(1, 256)]
NO_TEXTS = [(None, 13), (1, 13), (1.5, 13), (True, 13), (b"bytes", 13), ([], 13), (object(), 13), ("\0", 1003),
            ("a\0b", 1003), ("\ud800", 1003), ("a\udc80", 1003), ("\u65e5", 1003), ("Ω", 1003), ("\U0001f600", 1003)]
NO_NUMBERS = [(None, 13), ("1", 13), (b"1", 13), (1.5, 13), ([], 13), (object(), 13), (1 << 31, 6), (1 << 70, 6),
              (-(1 << 70), 6)]


class Counter:
    """How many things were looked at."""

    made = 0

    def same(self, seen, wanted, what=""):
        self.made += 1
        assert seen == wanted and type(seen) is type(wanted), what

    def raises(self, number, call, what="", source="Fiscalon", description=None):
        self.made += 1
        with pytest.raises(fiscalon.FiscalonError) as caught:
            call()
        error = caught.value
        assert error.number == number, (what, error)
        assert error.source == source, (what, error)
        assert error.description, what
        if number in DESCRIPTIONS and number != 13:
            assert error.description == (description or DESCRIPTIONS[number]), (what, error)


@pytest.fixture(scope="module")
def counter():
    return Counter()


def snake(name):
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


def name_in_python(member):
    return member.get("short") or OPERATORS.get(member["name"]) or snake(member["name"])


def class_of(row):
    return getattr(fiscalon, row["python"])


def members_of(row):
    return row["members"] if "members" in row else TABLE["collection"]


def made(row):
    """An object of a class. Only a collection makes a record."""
    return class_of(row)() if row["creatable"] else fiscalon.Records().add()


def setting(target, name, value):
    return lambda: setattr(target, name, value)


@pytest.mark.parametrize("row", TABLE["classes"], ids=lambda row: row["name"])
def test_a_class_has_these_members_and_no_others(row):
    public = {name for name in dir(class_of(row)) if not name.startswith("_")} - OF_PYTHON
    wanted = {name_in_python(member) for member in members_of(row)}
    assert public == {name for name in wanted if not name.startswith("_")}
    for member in members_of(row):
        found = inspect.getattr_static(class_of(row), name_in_python(member))
        assert callable(found) == (member["kinds"] == ["call"] or name_in_python(member).startswith("__")), member
        assert inspect.getdoc(found) or callable(found) and found.__name__.startswith("__"), member


@pytest.mark.parametrize("row", [row for row in TABLE["classes"] if "of" in row], ids=lambda row: row["name"])
def test_add_takes_the_texts_of_a_member_in_their_order(row):
    texts = [snake(member["name"]) for member in CLASSES[row["of"]]["members"]]
    assert list(inspect.signature(class_of(row).add).parameters) == ["self", *texts, "key"]


def test_all_numbers_have_a_class_and_a_name():
    names = {value for name, value in vars(fiscalon.ErrorNumber).items() if not name.startswith("_")}
    assert set(DESCRIPTIONS) <= names
    for number in names:
        error = fiscalon._errors.error_of(number, "words", "source")
        assert (error.number, error.description, error.source) == (number, "words", "source")
        assert str(error) == f"words (error {number} of source)"


@pytest.mark.parametrize("row", TABLE["classes"], ids=lambda row: row["name"])
def test_properties(row, counter, fiscalon_fresh):
    target = made(row)
    for member in members_of(row):
        name, kind = name_in_python(member), member["type"]
        if member["kinds"] == ["call"] or "of" in row or kind in CLASSES:
            continue
        readable, writable = "get" in member["kinds"], "let" in member["kinds"]
        if readable:
            wanted = "" if kind == "text" else bool(member["start"]) if not writable else member["start"]
            counter.same(getattr(target, name), wanted, name)
        else:
            with pytest.raises(AttributeError):
                getattr(target, name)
        if not writable:
            with pytest.raises(AttributeError):
                setattr(target, name, 1)
            continue
        cases = member.get("cases") or [[text, text] for text in TABLE["texts"] + CHARACTERS]
        for value, *read in cases:
            setattr(target, name, value)
            if readable:
                counter.same(getattr(target, name), read[0], (name, value))
        kept = getattr(target, name) if readable else None
        for value, number in member.get("bad", []):
            counter.raises(number, setting(target, name, value), (name, value))
        for value, number in NO_TEXTS if kind == "text" else NO_NUMBERS[:-3] if kind == "float" else NO_NUMBERS:
            if kind == "float" and isinstance(value, float):
                continue
            counter.raises(number, setting(target, name, value), (name, value))
        if readable:
            counter.same(getattr(target, name), kept, name)
        with pytest.raises(AttributeError):
            delattr(target, name)
    target.close()
    assert target.closed
    for member in members_of(row):
        if "get" in member["kinds"]:
            counter.raises(91, lambda: getattr(target, name_in_python(member)) if "of" not in row else len(target),
                           member["name"], description=f"this {row['python']} was closed")


@pytest.mark.parametrize("row", [row for row in TABLE["classes"] if "members" in row], ids=lambda row: row["name"])
def test_texts_take_each_character_of_the_code_page_at_any_place(row, counter):
    target = made(row)
    for member in row["members"]:
        if member["type"] == "text" and member["kinds"] == ["get", "let"] and "cases" not in member:
            for character in CHARACTERS:
                for text in (f"{character}x", f"x{character}", character * 3):
                    setattr(target, snake(member["name"]), text)
                    counter.same(getattr(target, snake(member["name"])), text)


@pytest.mark.parametrize("row", [row for row in TABLE["classes"] if "members" in row], ids=lambda row: row["name"])
def test_properties_that_hold_collections(row, counter):
    target = made(row)
    for member in row["members"]:
        if member["type"] not in CLASSES:
            continue
        name, kind = snake(member["name"]), class_of(CLASSES[member["type"]])
        counter.same(getattr(target, name), None, name)
        collection = kind()
        collection.add("kept")
        setattr(target, name, collection)
        counter.same(getattr(target, name).is_same(collection), True, name)
        counter.same(len(getattr(target, name)), 1, name)
        others = [class_of(other)() for other in TABLE["classes"] if other["creatable"] and class_of(other) is not kind]
        for value in ["text", 1, [], object(), *others]:
            counter.raises(13, setting(target, name, value), name)
        counter.same(getattr(target, name).is_same(collection), True, name)
        setattr(target, name, None)
        counter.same(getattr(target, name), None, name)
        collection.close()
        counter.raises(91, setting(target, name, collection), name, description=f"this {kind.__name__} was closed")


@pytest.mark.parametrize("row", [row for row in TABLE["classes"] if "of" in row], ids=lambda row: row["name"])
def test_collections(row, counter):
    texts = [snake(member["name"]) for member in CLASSES[row["of"]]["members"]]
    collection = class_of(row)()
    counter.same(len(collection), 0)
    counter.same(list(collection), [])
    collection.clear()
    first = collection.add()
    second = collection.add(*[f"text {number}" for number in range(len(texts))], "second")
    for number, name in enumerate(texts):
        counter.same(getattr(first, name), "")
        counter.same(getattr(second, name), f"text {number}")
        second_of_its_own = collection.add(**{name: "by name"})
        counter.same(getattr(second_of_its_own, name), "by name")
        collection.remove(3)
    counter.same(len(collection), 2)
    for place in (2, "second"):
        counter.same(collection.item(place), second)
    for place in (1, -1, "second"):
        counter.same(collection[place], second)
    counter.same(collection[0], first)
    counter.same(list(collection), [first, second])
    counter.same(collection[::-1], [second, first])
    for routine in ("Item", "Remove"):
        for place, number in OPERATIONS[routine]["bad"]:
            counter.raises(number, lambda: getattr(collection, routine.lower())(place), (routine, place))
        for place in (None, True, 1.0, b"second", [], object(), slice(1)):
            counter.raises(13, lambda: getattr(collection, routine.lower())(place), (routine, place))
        for place in (1 << 63, 1 << 70, -(1 << 70)):
            counter.raises(9, lambda: getattr(collection, routine.lower())(place), (routine, place))
        for place in ("\0", "\ud800", "\u65e5"):
            counter.raises(1003, lambda: getattr(collection, routine.lower())(place), (routine, place))
    for index, number in ((2, 9), (-3, 9), (1 << 70, 9), (-(1 << 70), 9), ("no key", 5), (True, 13), (None, 13),
                          (1.0, 13)):
        counter.raises(number, lambda: collection[index], index)
        counter.raises(number, lambda: collection.__delitem__(index), index)
    counter.raises(457, lambda: collection.add(key="second"))
    for value, number in NO_TEXTS:
        for name in [*texts, "key"]:
            counter.raises(number, lambda: collection.add(**{name: value}), (name, value))
    counter.same(len(collection), 2)
    counter.same(collection.is_same(collection), True)
    counter.same(collection.is_same(class_of(row)()), False)
    counter.raises(13, lambda: collection.is_same([]))
    del collection[0]
    counter.same(len(collection), 1)
    collection.remove("second")
    counter.same(len(collection), 0)
    # A member outlives its place.
    counter.same(getattr(second, texts[0]), "text 0")
    collection.add(key="second")
    collection.clear()
    counter.same(len(collection), 0)
    collection.add(key="second")
    collection.close()
    for call in (lambda: len(collection), lambda: collection[0], lambda: collection.item("second"),
                 lambda: collection.remove(1), lambda: collection.add(), collection.clear):
        counter.raises(91, call, description=f"this {row['python']} was closed")


def test_errors_of_collections_are_errors_of_python_too():
    collection = fiscalon.Records()
    with pytest.raises(IndexError):
        collection[0]
    with pytest.raises(KeyError):
        collection["key"]
    with pytest.raises(TypeError):
        collection[None]


def test_a_record_is_made_by_a_collection_alone():
    with pytest.raises(TypeError):
        fiscalon.Record()


def test_show_raises_what_the_table_says(counter, fiscalon_fresh):
    row = next(member for member in CLASSES["Levyra"]["members"] if member["name"] == "ShowLevyraScreen")
    payment = fiscalon.Payment()
    for code, number, *words in row["bad"]:
        counter.raises(number, lambda: payment.show(code), code, source=row["source"],
                       description=words[0] if words else None)
    for code, number in NO_TEXTS:
        counter.raises(number, lambda: payment.show(code), code,
                       source=row["source"] if number == 1003 and code.isprintable() else "Fiscalon")


@pytest.mark.parametrize("routine", ["UseLocale", "UseLanguage"])
def test_what_is_set_by_a_name_takes_the_names_of_the_table_alone(routine, counter, fiscalon_fresh):
    row = next(each for each in TABLE["process"] if each["name"] == routine)
    use = getattr(fiscalon, snake(routine))
    for name in row["cases"]:
        use(name)
    for name, number in row["bad"] + NO_TEXTS:
        with pytest.raises(fiscalon.FiscalonError) as caught:
            use(name)
        counter.same(caught.value.number, number, name)


@pytest.mark.parametrize("row", [row for row in TABLE["classes"] if row["creatable"]], ids=lambda row: row["name"])
def test_objects_are_neither_copied_nor_pickled(row, counter):
    import copy
    import pickle
    for call in (copy.copy, copy.deepcopy, pickle.dumps):
        counter.raises(13, lambda: call(made(row)))


def test_numbers_of_each_width(counter):
    payment = fiscalon.Payment()
    for flag in range(-300, 600):
        if 0 <= flag <= 255:
            payment.ap_hold_flg = flag
            counter.same(payment.ap_hold_flg, flag)
        else:
            counter.raises(6, setting(payment, "ap_hold_flg", flag))
    for flag in range(-33000, 33000, 7):
        if -32768 <= flag <= 32767:
            payment.write_file = flag
            counter.same(payment.write_file, flag)
        else:
            counter.raises(6, setting(payment, "write_file", flag))


def test_so_many_things_were_looked_at(counter):
    assert counter.made > 22000, counter.made
