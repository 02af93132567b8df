#!/usr/bin/env python3
"""What installer packages are made of: the identities by which the installer knows products for ever, and the rows."""

import contextlib
import io
import sys
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

sys.path.insert(0, str(Path(__file__).resolve().parents[3] / "tools" / "lib"))
sys.dont_write_bytecode = True
import make_msi  # noqa: E402

# Machine and user of 64 bits, then of 32. They stand on the machines of users.
UPGRADES = [
    "6BEB7E6E-18AF-536C-90F2-69FB355411E7",
    "507DC67E-0FB0-5717-9228-29AFF0BA67FE",
    "CE953C16-9F45-5896-866E-E3B7A0646796",
    "8FAF26B8-740A-5706-8ACE-ACB20583452F",
]
VALUES = [
    make_msi.RegisteredValue("both", "Fiscalon.Levyra\\CurVer", "", "Fiscalon.Levyra.1"),
    make_msi.RegisteredValue("one", "CLSID\\{1}\\InprocServer32", "ThreadingModel", "Apartment"),
    make_msi.RegisteredValue("one", "CLSID\\{1}\\Programmable", "", ""),
]


def package(label="x86_64", audience=0, version="1.2.3"):
    return make_msi.Package(version, make_msi.ARCHITECTURES[label], make_msi.AUDIENCES[audience])


def source(made):
    with tempfile.TemporaryDirectory() as folder:
        files = Path(folder)
        (files / "examples").mkdir()
        for name in ("fiscalon.dll", "LICENSE", "examples/LICENSE"):
            (files / name).write_bytes(b"x")
        text = make_msi.source_of(made, files, VALUES)
    # Without its namespace, which each name would have before it.
    return ElementTree.fromstring(text.replace(' xmlns="http://schemas.microsoft.com/wix/2006/wi"', ""))


def rows(component):
    return [tuple(row.get(name) for name in ("Root", "Key", "Name", "Value"))
            for row in component.iter("RegistryValue")]


class MakeMsi(unittest.TestCase):
    def test_an_upgrade_finds_what_was_ever_installed(self):
        self.assertEqual(
            [package(label, audience).identifier("upgrades") for label in ("x86_64", "x86") for audience in (0, 1)],
            UPGRADES,
        )

    def test_each_version_is_a_product_of_its_own(self):
        products = {source(package(label, audience, version)).find("Product").get("Id")
                    for label in ("x86_64", "x86") for audience in (0, 1)
                    for version in ("1.2.3", "1.2.4")}  # fmt: skip
        self.assertEqual(len(products), 8)

    def test_files_are_components_of_their_own_in_every_version(self):
        def components(version):
            made = source(package(version=version)).iter("Component")
            files = [(each.find("File"), each.get("Guid")) for each in made]
            return {(file.get("Source"), identifier) for file, identifier in files if file is not None}

        one = components("1.2.3")
        self.assertEqual({name for name, _ in one}, {"fiscalon.dll", "LICENSE", "examples/LICENSE"})
        self.assertEqual(len({identifier for _, identifier in one}), 3)
        self.assertEqual(components("1.2.4"), one)

    def test_rows_belong_to_the_library_or_to_both_word_sizes(self):
        for audience, root in ((0, "HKLM"), (1, "HKCU")):
            made = source(package(audience=audience)).iter("Component")
            held = {each.get("Id"): rows(each) for each in made if rows(each)}
            self.assertEqual(
                held,
                {
                    "c.fiscalon.dll": [
                        (root, "Software\\Classes\\CLSID\\{1}\\InprocServer32", "ThreadingModel", "Apartment"),
                        # A property that nobody sets is an empty text; none would be no row at all.
                        (root, "Software\\Classes\\CLSID\\{1}\\Programmable", None, "[NOTHING]"),
                    ],
                    "names": [(root, "Software\\Classes\\Fiscalon.Levyra\\CurVer", None, "Fiscalon.Levyra.1")],
                },
            )

    def test_both_word_sizes_share_the_names_and_nothing_else(self):
        def identifiers(label):
            return {each.get("Id"): each.get("Guid") for each in source(package(label)).iter("Component")}

        one, other = identifiers("x86_64"), identifiers("x86")
        self.assertEqual({name for name in one if one[name] == other[name]}, {"names"})

    def test_identifiers_are_such_as_the_installer_takes(self):
        for each in source(package()).iter():
            if each.get("Id") and each.tag not in ("Product", "Media"):
                self.assertRegex(each.get("Id"), r"^[A-Za-z_][A-Za-z0-9_.]{0,71}$")
            if each.get("Guid"):
                self.assertRegex(each.get("Guid"), r"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$")

    def test_what_is_no_package_is_refused(self):
        said = io.StringIO()
        with contextlib.redirect_stderr(said), self.assertRaises(SystemExit) as ended:
            make_msi.main(["--keys", "keys.exe", "fiscalon.zip"])
        self.assertEqual(ended.exception.code, 2)
        self.assertEqual(said.getvalue(), "make_msi: fiscalon.zip is not the name of a package for Windows\n")


if __name__ == "__main__":
    unittest.main()
