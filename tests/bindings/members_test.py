#!/usr/bin/env python3
"""What each language lets a host call is what bindings/members.json says, class by class, member by member, error by
error: the headers of C++, the interfaces of the component, the header of C, the one file of C#, and the guide. Python
is held to it where it runs."""

import json
import re
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
TABLE = json.loads((TREE / "bindings/members.json").read_text(encoding="utf-8"))
CLASSES = {each["name"]: each for each in TABLE["classes"]}
NUMBERS = {each["number"] for each in TABLE["errors"]}

HEADERS = ("core/session.h", "core/records/pc4_records.h", "validation/validate_add_info.h")
# What a walk in C++ is made of, and what spares a copy there.
OF_CPP_ALONE = {"begin", "end", "Kept", "DescriptionView"}
CPP_TYPES = {"std::string": "text", "std::string_view": "text", "uint8_t": "byte", "Number": "byte",
             "Boolean": "boolean", "bool": "boolean", "double": "float", "int32_t": "int32"}
IDL_TYPES = {"BSTR": "text", "unsigned char": "byte", "VARIANT_BOOL": "boolean", "double": "float", "long": "int32",
             "IUnknown*": "walk"}


def read(path):
    return (TREE / path).read_text(encoding="utf-8")


def members_of(a_class):
    """The members that a class has, with what a collection's operations come to in it."""
    if "of" not in a_class:
        return a_class["members"]
    texts = [member["name"] for member in CLASSES[a_class["of"]]["members"]]
    members = []
    for member in TABLE["collection"]:
        member = dict(member)
        if member["name"] == "Add":
            member["arguments"] = [[name, "text"] for name in [*texts, "sKey"]]
        if member["type"] == "member":
            member["type"] = a_class["of"]
        members.append(member)
    return members


def calls_of(a_class):
    """(name, kind, type) of all that a host can do with a class; of a call its type and those of its arguments."""
    calls = set()
    for member in members_of(a_class):
        for kind in member["kinds"]:
            told = member["type"] if kind != "call" else (member["type"], *(each for _, each in member["arguments"]))
            calls.add((member["name"], kind, told))
    return calls


def numbers_of(member):
    return {int(number) for number in member.get("errors", {})}


def body_of(text, name):
    """What stands between the braces of a class."""
    start = re.search(rf"(?m)^class {name}\b[^;{{]*{{\n", text)
    return text[start.end():text.index("\n};", start.end())]


def public_part(body):
    parts = re.split(r"(?m)^ (public|private|protected):$", body)
    return "".join(part for access, part in zip(parts[1::2], parts[2::2]) if access == "public")


def numbers_in(words):
    """The errors that a comment or a help text names."""
    return {int(number) for number in re.findall(r"\b[Ee]rrors? (\d+)", words)}


class Cpp(unittest.TestCase):
    """The headers that hosts compile against."""

    DECLARATION = re.compile(r"((?:^ +///.*\n)*)(?:^ +template .*\n)?^ +(?:static )?([\w:<>]+&?) (\w+)\(([^)]*)\)"
                             r"(?: const)?(?=;| \{)", re.MULTILINE)

    @classmethod
    def setUpClass(cls):
        cls.text = "\n".join(read(header) for header in HEADERS)

    def declared(self, name):
        """(member, returned type, types of the arguments, words of the comment ahead) of each public routine of a
        class."""
        for words, returned, member, arguments in self.DECLARATION.findall(public_part(body_of(self.text, name))):
            kinds = [re.sub(r"\s*=.*", "", each).rsplit(" ", 1)[0].strip() for each in arguments.split(",")
                     if each.strip()]
            yield member, returned, kinds, re.sub(r"\s*///", "", words)

    def told(self, returned):
        shared = re.fullmatch(r"std::shared_ptr<(\w+)>", returned)
        return shared.group(1) if shared else CPP_TYPES[returned]

    def test_has_these_members_and_no_others(self):
        for name, a_class in CLASSES.items():
            if "of" in a_class:
                continue
            with self.subTest(name):
                seen = set()
                wanted = calls_of(a_class)
                for member, returned, arguments, _ in self.declared(name):
                    if member in OF_CPP_ALONE | {name}:
                        continue
                    if returned == "bool" and (member, "call", "boolean") not in wanted and member != "ShowGST58":
                        seen.add((member, "call", ("truth", *map(self.told, arguments))))
                    elif returned == "void":
                        told = self.told(arguments[0])
                        seen.add((member, "set" if told in CLASSES else "let", told))
                    else:
                        seen.add((member, "get", self.told(returned)))
                self.assertEqual(seen, wanted)

    def test_collections_have_the_operations(self):
        header = read("core/records/keyed_collection.h").replace("template <typename Member>\nclass", "class")
        operations = public_part(body_of(header, "KeyedCollection"))
        names = set(re.findall(r"(?m)^  [\w:<>& ]+?\b([A-Z]\w*)\(", operations)) - OF_CPP_ALONE - {"Raise", "Find"}
        for name, a_class in CLASSES.items():
            if "of" not in a_class:
                continue
            with self.subTest(name):
                self.assertRegex(self.text, rf"class {name} : public KeyedCollection<{a_class['of']}> ")
                add = next(each for each in self.declared(name) if each[0] == "Add")
                self.assertEqual(add[1], a_class["of"] + "&")
                self.assertEqual([CPP_TYPES[each] for each in add[2]],
                                 ["text"] * (len(CLASSES[a_class["of"]]["members"]) + 1))
                self.assertEqual(numbers_in(add[3]), {457})
                wanted = {member["name"] for member in members_of(a_class)}
                self.assertEqual(names | {"Add", "NewEnum"}, wanted)

    def test_comments_name_no_error_that_a_member_does_not_raise(self):
        for name, a_class in CLASSES.items():
            raised = {member["name"]: numbers_of(member) for member in members_of(a_class)}
            for member, _, _, words in self.declared(name):
                with self.subTest(f"{name}.{member}"):
                    # A check's records that were never set are a reason, not an error.
                    said = set() if "as error" in words else numbers_in(words)
                    self.assertLessEqual(said, raised.get(member, set()))

    def test_knows_the_numbers(self):
        text = read("core/platform/runtime_error.h")
        constants = {name: int(number) for name, number in re.findall(r"(k\w+) = (\d+);", text)}
        constants |= {name: int(number, 16) - (1 << 32)
                      for name, number in re.findall(r"(k\w+) = static_cast<int32_t>\((0x\d+)\);", text)}
        self.assertEqual(constants, {each["name"]: each["number"] for each in TABLE["errors"]})

    def test_knows_their_descriptions(self):
        described = dict(re.findall(r'error_number::(k\w+), "([^"]+)"',
                                    read("core/platform/runtime_error.cpp") + read("core/session.cpp")))
        self.assertEqual(described, {each["name"]: each["description"] for each in TABLE["errors"]})

    def test_has_what_is_set_for_the_process(self):
        named = set(re.findall(r"(?m)^void (\w+)\(", read("core/host_setup.h")))
        named |= set(re.findall(r"(?m)^BatchProgress (\w+)\(", read("validation/batch.h")))
        self.assertEqual(named, {each["name"] for each in TABLE["process"]})


class Component(unittest.TestCase):
    """The interfaces of the component, of which its type library and the header for hosts are made."""

    METHOD = re.compile(r"\[([^\]]*?\bid\([^\]]*)\]\s*HRESULT (\w+)"
                        r"\(((?:\[[^\]]*\]|[^()])*(?:\([^()]*\)(?:\[[^\]]*\]|[^()])*)*)\);", re.DOTALL)

    @classmethod
    def setUpClass(cls):
        cls.text = read("component/fiscalon.idl")

    def methods(self, name):
        start = re.search(rf"(?m)^  interface _{name} : IDispatch {{\n", self.text)
        body = self.text[start.end():self.text.index("\n  }", start.end())]
        for attributes, member, arguments in self.METHOD.findall(body):
            types = [(bool(re.search(r"\bout\b", flags)), re.sub(r"\s+", " ", kind).strip())
                     for flags, kind in re.findall(r"\[((?:[^\]\"]|\"[^\"]*\")*)\]\s*([\w ]+?\**) ?\w+(?=,|$)",
                                                   arguments.strip())]
            yield attributes, member, types

    def told(self, kind):
        kind = re.sub(r"^_", "", kind)
        return IDL_TYPES[kind] if kind in IDL_TYPES else kind.rstrip("*")

    def test_has_these_members_and_no_others(self):
        for name, a_class in CLASSES.items():
            with self.subTest(name):
                wanted = set()
                for member, kind, told in calls_of(a_class):
                    if kind == "call":
                        told = tuple("VARIANT" if each == "position or key" else "boolean" if each == "truth" else each
                                     for each in told)
                    wanted.add((member, kind, told))
                seen = set()
                for attributes, member, types in self.methods(name):
                    given = ["VARIANT" if kind == "VARIANT" else self.told(kind) for out, kind in types if not out]
                    returned = [self.told(kind[:-1]) for out, kind in types if out]
                    if "propputref" in attributes:
                        seen.add((member, "set", given[0]))
                    elif "propput" in attributes:
                        seen.add((member, "let", given[0]))
                    elif "propget" in attributes and not given:
                        seen.add((member, "get", returned[0]))
                    else:
                        seen.add((member, "call", (returned[0] if returned else None, *given)))
                self.assertEqual(seen, wanted)

    def test_makes_the_classes_that_a_host_can_create(self):
        made = {name: "noncreatable" not in flags
                for flags, name in re.findall(r"\[([^\]]*)\]\s*coclass (\w+)", self.text)}
        wanted = {name: each["creatable"] for name, each in CLASSES.items()}
        # What is set for the process has a class of its own here.
        setups = [row["component"].split(".") for row in TABLE["process"] if "component" in row]
        self.assertEqual(made, {**wanted, **{name: True for name, _ in setups}})
        for name, member in setups:
            self.assertEqual([(told, kinds[0]) for _, told, kinds in self.methods(name)],
                             [(member, (True, "BSTR*")), (member, (False, "BSTR"))])

    def test_help_texts_tell_the_errors_of_the_collections(self):
        for name, a_class in CLASSES.items():
            raised = {member["name"]: numbers_of(member) for member in members_of(a_class)}
            for attributes, member, _ in self.methods(name):
                with self.subTest(f"{name}.{member}"):
                    said = numbers_in(attributes)
                    self.assertEqual(said, raised[member] if "of" in a_class else set())

    def test_scripts_meet_each_error_of_the_collections(self):
        met = read("tests/component/every_member.vbs")
        for collection in (name for name, each in CLASSES.items() if "of" in each):
            for number in (5, 9, 457):
                self.assertRegex(met, rf'Raised "{collection} [^"]*", {number}, "Fiscalon"')


def snake(name):
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


class CHeader(unittest.TestCase):
    """The header for hosts in C."""

    PLACES = {"text": "const char**", "byte": "int32_t*", "boolean": "int32_t*", "truth": "int32_t*",
              "int32": "int32_t*"}
    VALUES = {"text": "const char*", "byte": "int32_t", "boolean": "int32_t", "float": "double"}

    @classmethod
    def setUpClass(cls):
        cls.functions, cls.words = {}, {}
        text = read("include/fiscalon/c.h")
        for words, name, arguments in re.findall(r"((?:/\*(?:[^*]|\*(?!/))*\*/\s*)?)FISCALON_API \w+[ *]+"
                                                 r"fiscalon_(\w+)\(([^)]*)\);", text):
            kinds = [re.sub(r"(\*?) ?\b\w+$", r"\1", each.strip()).strip() for each in arguments.split(",")]
            cls.functions[name] = kinds
            cls.words[name] = words

    def wanted(self, a_class):
        """The functions of a class, with the types of their arguments."""
        name = a_class["c"]
        own = f"fiscalon_{name}*"
        functions = {f"{name}_destroy": [own + "*"]}
        if a_class["creatable"]:
            functions[f"{name}_create"] = [own + "*"]
        if "of" in a_class:
            member = f"fiscalon_{CLASSES[a_class['of']]['c']}**"
            texts = len(CLASSES[a_class["of"]]["members"])
            functions.update({f"{name}_add": [own, *["const char*"] * (texts + 1), member],
                              f"{name}_count": [own, "int32_t*"], f"{name}_item_at": [own, "int64_t", member],
                              f"{name}_item_of": [own, "const char*", member], f"{name}_remove_at": [own, "int64_t"],
                              f"{name}_remove_of": [own, "const char*"], f"{name}_clear": [own],
                              f"{name}_is_same": [own, own, "int32_t*"]})
            return functions
        for member in a_class["members"]:
            known = member.get("short", snake(member["name"]))
            held = CLASSES.get(member["type"])
            if member["kinds"] == ["call"]:
                functions[f"{name}_{known}"] = [own, *[self.VALUES[kind] for _, kind in member["arguments"]],
                                                self.PLACES[member["type"]]]
            if "get" in member["kinds"]:
                functions[f"{name}_get_{known}"] = [own, f"fiscalon_{held['c']}**" if held
                                                    else self.PLACES[member["type"]]]
            if {"let", "set"} & set(member["kinds"]):
                value = f"fiscalon_{held['c']}*" if held else self.VALUES[member["type"]]
                # What holds for the process needs no payment.
                if member.get("process"):
                    functions[f"set_{known}"] = [value]
                else:
                    functions[f"{name}_set_{known}"] = [own, value]
        return functions

    def test_has_these_members_and_no_others(self):
        for a_class in TABLE["classes"]:
            with self.subTest(a_class["name"]):
                wanted = self.wanted(a_class)
                seen = {name: kinds for name, kinds in self.functions.items()
                        if kinds[0].rstrip("*") == f"fiscalon_{a_class['c']}"
                        or (name in wanted and name.startswith("set_"))}
                self.assertEqual(seen, wanted)

    def test_names_the_numbers(self):
        text = read("include/fiscalon/c.h")
        numbers = {int(number) for number in re.findall(r"FISCALON_ERROR_\w+ = (-?\d+)", text)}
        self.assertEqual({number for number in numbers if number < 1000} - {7}, NUMBERS)

    def test_comments_name_no_error_that_a_member_does_not_raise(self):
        for a_class in TABLE["classes"]:
            for member in members_of(a_class):
                known = member.get("short", snake(member["name"]))
                for function in self.wanted(a_class):
                    if not re.fullmatch(rf"({a_class['c']}_)?(get_|set_)?{known}(_at|_of)?", function):
                        continue
                    with self.subTest(function):
                        words = self.words[function]
                        # A check's records that were never set are a reason, not an error; and a handle that is NULL
                        # is 91 everywhere.
                        said = numbers_in(words) if "as error 91" not in words else set()
                        self.assertLessEqual(said, numbers_of(member))


class CSharp(unittest.TestCase):
    """The one file of hosts in C#: it declares a function of the library for each member."""

    @staticmethod
    def body(text, a_class):
        start = re.search(rf"(?m)^    public (?:sealed |static )*class {a_class['name']}\b", text).start()
        return text[start:text.index("\n    }", start)]

    def test_calls_each_function_of_a_class(self):
        text = read("bindings/dotnet/Fiscalon.cs")
        header = CHeader()
        header.setUpClass()
        for a_class in TABLE["classes"]:
            for function in header.wanted(a_class):
                with self.subTest(function):
                    self.assertRegex(text, rf"\bfiscalon_{function}\b")

    def test_has_each_member_by_its_own_name(self):
        text = read("bindings/dotnet/Fiscalon.cs")
        for a_class in TABLE["classes"]:
            for member in a_class.get("members", []):
                with self.subTest(f"{a_class['name']}.{member['name']}"):
                    body = self.body(text, a_class)
                    self.assertRegex(body, rf"\bpublic (?:static )?[\w<>]+ {member['name']}\b")

    def test_has_no_member_that_the_table_lacks(self):
        text = read("bindings/dotnet/Fiscalon.cs")
        for a_class in TABLE["classes"]:
            with self.subTest(a_class["name"]):
                named = set(re.findall(r"(?m)^        public (?:static )?[\w<>]+ (\w+)", self.body(text, a_class)))
                self.assertLessEqual(named - {"Dispose"}, {member["name"] for member in members_of(a_class)})


class PowerShell(unittest.TestCase):
    """The host in PowerShell, and its listing in the guide, which run where no test does: they call what there is."""

    # What a name behind a dot is used for, by what comes behind it.
    USE = re.compile(r"(\$\w+)\.(\w+)(\(| = )?")

    def uses_of(self, text):
        """(class, member, kind) of all that is done with an object of the component's."""
        classes = dict(re.findall(r"(\$\w+) = New-Object -ComObject Fiscalon\.(\w+)", text))
        self.assertEqual(len(classes), text.count("-ComObject"))
        for name in classes.values():
            self.assertTrue(CLASSES[name]["creatable"], name)
        for member, collection in re.findall(r"foreach \((\$\w+) in (\$\w+\.\w+)\)", text):
            owner, _, name = collection.partition(".")
            kept = next(each["type"] for each in members_of(CLASSES[classes[owner]]) if each["name"] == name)
            classes[member] = CLASSES[kept]["of"]
        for variable, name, behind in self.USE.findall(text):
            if variable in classes:
                yield classes[variable], name, {"(": {"call"}, " = ": {"let", "set"}}.get(behind, {"get"})

    def test_uses_what_the_classes_have(self):
        guide = re.search(r"(?ms)^## From PowerShell\n(.*?)^## ", read("docs/windows-guide.md"))[1]
        for text, least in ((read("examples/windows/payment.ps1"), 20), (guide, 6)):
            uses = list(self.uses_of(text))
            self.assertGreaterEqual(len(uses), least)
            for name, member, kinds in uses:
                with self.subTest(f"{name}.{member}"):
                    told = {kind for each in members_of(CLASSES[name]) if each["name"] == member
                            for kind in each["kinds"]}
                    self.assertTrue(kinds & told, (kinds, told))


class Guide(unittest.TestCase):
    """The host guide, on all its pages."""

    @classmethod
    def setUpClass(cls):
        cls.text = "\n".join(page.read_text(encoding="utf-8")
                             for page in sorted((TREE / "docs").glob("host-guide*.md")))

    def test_tells_each_error(self):
        for error in TABLE["errors"]:
            number = error["number"] % (1 << 32) if error["number"] < 0 else error["number"]
            self.assertRegex(self.text, rf"\b({number}|0x{number:08X})\b")

    def test_names_no_constant_that_the_table_lacks(self):
        named = set(re.findall(r"`(k[A-Z]\w+)`", self.text))
        self.assertGreater(len(named), 10)
        self.assertLessEqual(named, {each["name"] for each in TABLE["errors"]})

    def test_gives_the_constants_their_numbers(self):
        numbers = {each["name"]: each["number"] for each in TABLE["errors"]}
        for column, names in re.findall(r"(?m)^\| ([\dx, ]+) \| (`k[^|]+) \|", self.text):
            told = [int(number, 0) for number in column.split(", ")]
            self.assertEqual([value - (1 << 32) if value >> 31 else value for value in told],
                             [numbers[name] for name in re.findall(r"`(k\w+)`", names)])


if __name__ == "__main__":
    unittest.main()
