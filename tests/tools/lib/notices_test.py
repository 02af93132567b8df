#!/usr/bin/env python3
"""The notices that go along with programs hold what others ask for of whatever is linked in, and nothing else."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[3] / "tools" / "lib"))
sys.dont_write_bytecode = True
import notices  # noqa: E402

COPYRIGHT = """Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/

Files: *
Copyright: 2020 Somebody
License: Odd

Files: include/one.h include/two.h
Copyright: 2008 Somebody Else
  2009 And Another
License: Expat
 Permission is granted.
 .
 Without warranty.

Files: tests/*
Copyright: 1999 A Tester
License: Odd

License: Odd
 Do what you like.
"""
LICENSE = "MIT License\n\nCopyright (c) 2026 Us\n\nPermission.\n"


class Notices(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.documents = Path(self.folder.name)
        for package in {part.package for part in notices.PARTS if part.package}:
            (self.documents / package).mkdir()
            text = COPYRIGHT.replace("Files: *", "Files: * mingw-w64-libraries/winpthreads/a")
            (self.documents / package / "copyright").write_text(text)

    def written(self, binary, *options):
        program, out = self.documents / "program", self.documents / "out"
        program.write_bytes(binary)
        notices.main(["--documents", str(self.documents), "--out", str(out), *options, str(program)])
        return out.read_text()

    def test_name_each_part_that_a_binary_holds(self):
        for part in notices.PARTS:
            text = self.written(b"\x7f" + part.marker + b"\0")
            self.assertEqual([other.name for other in notices.PARTS if f"\n{other.name}\n" in text], [part.name])

    def test_give_copyrights_and_licences_word_for_word(self):
        text = self.written(b"N8nlohmann")
        self.assertIn("Copyright: 2020 Somebody\nLicense: Odd\n\n Do what you like.\n", text)
        self.assertIn("Copyright: 2008 Somebody Else; 2009 And Another\nLicense: Expat\n\n"
                      " Permission is granted.\n\n Without warranty.\n", text)
        self.assertNotIn("A Tester", text)

    def test_give_each_of_several_licences(self):
        several = COPYRIGHT.replace("Copyright: 2020 Somebody\nLicense: Odd",
                                    "Copyright: 2020 Somebody\nLicense: Odd and Expat")
        (self.documents / "libcli11-dev" / "copyright").write_text(several)
        self.assertIn("License: Odd and Expat\n\n Do what you like.\n\n Permission is granted.\n",
                      self.written(b"N3CLI"))

    def test_begin_with_our_own_licence_in_a_package(self):
        license_ = self.documents / "LICENSE"
        license_.write_text(LICENSE)
        text = self.written(b"nothing", "--debian", str(license_))
        self.assertTrue(text.endswith("Files: *\nCopyright: 2026 Us\nLicense: Expat\n"
                                      " MIT License\n .\n Copyright (c) 2026 Us\n .\n Permission.\n"))
        self.assertIn("\nFiles: CLI11/*\nCopyright: 2020 Somebody\nLicense: Odd\n Do what you like.\n",
                      self.written(b"N3CLI", "--debian", str(license_)))

    def test_a_notice_that_is_not_to_be_had_is_told(self):
        (self.documents / "libcli11-dev" / "copyright").unlink()
        with self.assertRaisesRegex(SystemExit,
                                    "CLI11 is linked in, and its notice, .* is missing: install libcli11-dev"):
            self.written(b"N3CLI")
        (self.documents / "libcli11-dev" / "copyright").write_text("Files: *\nCopyright: 2020 Somebody\nLicense: Odd\n")
        with self.assertRaisesRegex(SystemExit, "has no text of the licence Odd"):
            self.written(b"N3CLI")

    def test_missing_and_needless_notices_are_offences(self):
        text = self.written(b"N3CLI")
        self.assertEqual(list(notices.offences_of(text, b"N3CLI")), [])
        self.assertEqual(list(notices.offences_of(text, b"")), ["CLI11 is told, and not linked in"])
        self.assertEqual(list(notices.offences_of("", b"N3CLI")), ["CLI11 is linked in, and its notice is missing"])


if __name__ == "__main__":
    unittest.main()
