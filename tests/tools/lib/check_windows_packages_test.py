#!/usr/bin/env python3
"""The check of the packages for Windows finds what is missing, foreign or wrong in packages of its own."""

import hashlib
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[3] / "tools" / "lib"))
sys.dont_write_bytecode = True
import check_windows_packages  # noqa: E402

FOLDER = "fiscalon-1.2.3-windows-x86"
SOUND = {name: b"" for name in check_windows_packages.FILES}
SOUND |= {f"{folder}file": b"" for folder in check_windows_packages.FOLDERS}

PROGRAM = "file format pei-i386\n\tDLL Name: KERNEL32.dll\n\tDLL Name: msvcrt.dll\n"
LIBRARY = (
    PROGRAM
    + """[Ordinal/Name Pointer] Table
\t[   0] DllCanUnloadNow
\t[   1] DllGetClassObject
\t[   2] DllInstall
\t[   3] DllRegisterServer
\t[   4] DllUnregisterServer

The Function Table
"""
)

LIBRARY_OF_C = PROGRAM + "[Ordinal/Name Pointer] Table\n"
LIBRARY_OF_C += "".join(f"\t[   0] {name}\n" for name in check_windows_packages.EXPORTS["fiscalon-c.dll"])
LIBRARY_OF_C += "\nThe Function Table\n"


class CheckWindowsPackages(unittest.TestCase):
    def offences_of(self, files, name=f"{FOLDER}.zip", checksum=None, library=LIBRARY):
        # What the tool for object files tells stands in for the library and the program.
        told = {b"library": library, b"library of C": LIBRARY_OF_C}
        check_windows_packages.headers_of = lambda bytes_: told.get(bytes_, PROGRAM)
        libraries = {"fiscalon.dll": b"library", "fiscalon-c.dll": b"library of C"}
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / name
            with zipfile.ZipFile(path, "w") as package:
                for inside, bytes_ in files.items():
                    package.writestr(f"{FOLDER}/{inside}", libraries.get(inside, bytes_))
            right = hashlib.sha256(path.read_bytes()).hexdigest()
            Path(f"{path}.sha256").write_text(f"{checksum or right}  {name}\n")
            return list(check_windows_packages.offences_of(path))

    def test_a_sound_package_passes(self):
        self.assertEqual(self.offences_of(SOUND), [])

    def test_each_missing_file_is_told(self):
        for name in check_windows_packages.FILES:
            without = {inside: bytes_ for inside, bytes_ in SOUND.items() if inside != name}
            self.assertEqual(self.offences_of(without), [f"{name} is missing"])
        for folder in check_windows_packages.FOLDERS:
            without = {inside: bytes_ for inside, bytes_ in SOUND.items() if not inside.startswith(folder)}
            self.assertEqual(self.offences_of(without), [f"nothing lies in {folder}"])

    def test_a_foreign_file_is_told(self):
        self.assertEqual(self.offences_of(SOUND | {"gtest.lib": b""}), ["gtest.lib does not belong into it"])

    def test_a_wrong_checksum_is_told(self):
        told = self.offences_of(SOUND, checksum="0" * 64)
        self.assertEqual(told, [f"{FOLDER}.zip.sha256 does not tell the file's checksum"])

    def test_a_wrong_name_is_told(self):
        self.assertEqual(self.offences_of(SOUND, name="fiscalon.zip"), ["the name is not that of a package"])

    def test_a_library_of_the_compiler_is_told(self):
        library = LIBRARY.replace("msvcrt", "libstdc++-6")
        told = self.offences_of(SOUND, library=library)
        self.assertEqual(told, ["fiscalon.dll needs libstdc++-6.dll, which is not the system's"])

    def test_a_decorated_or_missing_export_is_told(self):
        for library in (LIBRARY.replace("DllInstall", "DllInstall@8"), LIBRARY.replace("\t[   2] DllInstall\n", "")):
            told = self.offences_of(SOUND, library=library)
            self.assertEqual(len(told), 1)
            self.assertTrue(told[0].startswith("fiscalon.dll exports "), told)

    def test_another_machine_is_told(self):
        library = LIBRARY.replace("pei-i386", "pei-x86-64")
        self.assertEqual(self.offences_of(SOUND, library=library), ["fiscalon.dll is not of the format pei-i386"])

    def offences_of_installer(self, installed, name=f"{FOLDER}-user.msi", checksum=None, packed=SOUND):
        # What the tool for installer packages unpacks stands in for one.
        check_windows_packages.files_of_installer = lambda path: installed
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / name
            path.write_bytes(b"installer")
            right = hashlib.sha256(b"installer").hexdigest()
            Path(f"{path}.sha256").write_text(f"{checksum or right}  {name}\n")
            if packed is not None:
                with zipfile.ZipFile(Path(folder) / f"{FOLDER}.zip", "w") as package:
                    for inside, bytes_ in packed.items():
                        package.writestr(f"{FOLDER}/{inside}", bytes_)
            return list(check_windows_packages.offences_of_installer(path))

    def test_an_installer_with_the_files_of_its_zip_passes(self):
        self.assertEqual(self.offences_of_installer(SOUND), [])
        self.assertEqual(self.offences_of_installer(SOUND, name=f"{FOLDER}.msi"), [])

    def test_an_installer_with_other_files_is_told(self):
        changed = {name: bytes_ for name, bytes_ in SOUND.items() if name != "LICENSE"}
        changed |= {"fiscalon.dll": b"another", "gtest.lib": b""}
        self.assertEqual(
            self.offences_of_installer(changed),
            [
                "LICENSE is missing, which the ZIP has",
                "fiscalon.dll is not that of the ZIP",
                "gtest.lib is no file of the ZIP",
            ],
        )

    def test_an_installer_that_is_not_as_it_was_made_is_told(self):
        told = self.offences_of_installer(SOUND, checksum="0" * 64)
        self.assertEqual(told, [f"{FOLDER}-user.msi.sha256 does not tell the file's checksum"])

    def test_an_installer_without_its_zip_is_told(self):
        self.assertEqual(self.offences_of_installer(SOUND, packed=None), [f"there is no {FOLDER}.zip to compare with"])

    def test_an_installer_of_another_name_is_told(self):
        self.assertEqual(self.offences_of_installer(SOUND, name="setup.msi"), ["the name is not that of a package"])


if __name__ == "__main__":
    unittest.main()
