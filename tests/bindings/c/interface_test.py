#!/usr/bin/env python3
"""The interface for hosts in C keeps its promise: the names that the library exports and the layouts of its structs are
those of the committed lists, each function is called by the program that calls them all, the header is accepted by
every compiler at hand, and the library can be loaded by whoever has no header."""

import ctypes
import os
import re
import shutil
import subprocess
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[3]
LIBRARY = os.environ["FISCALON_C_LIBRARY"]
HEADER = (TREE / "include/fiscalon/c.h").read_text(encoding="utf-8")
EVERY_MEMBER = TREE / "tests/bindings/c/every_member.c"
LIST = (TREE / "bindings/c/exports.txt").read_text(encoding="utf-8").split()
COMPILERS = (
    ("gcc", "-std=c99", "c"), ("clang", "-std=c99", "c"), ("gcc", "-std=c11", "c"), ("g++", "-std=c++98", "c++"),
    ("clang++", "-std=c++20", "c++"), ("x86_64-w64-mingw32-gcc-posix", "-std=c99", "c"),
    ("x86_64-w64-mingw32-g++-posix", "-std=c++20", "c++"), ("i686-w64-mingw32-gcc-posix", "-std=c99", "c"))


def without_comments(text):
    return re.sub(r"/\*.*?\*/", "", text, flags=re.DOTALL)


class Interface(unittest.TestCase):
    def test_exports_the_listed_names_alone(self):
        listed = subprocess.run(["nm", "-D", "--defined-only", LIBRARY], capture_output=True, text=True, check=True)
        exported = {line.split()[-1].split("@")[0] for line in listed.stdout.splitlines()}
        # Of the sanitizers' own making.
        exported = {name for name in exported if name == "FISCALON_C_1" or not name.startswith(("__asan", "__odr"))}
        self.assertEqual(exported - {"FISCALON_C_1"}, set(LIST))

    def test_declares_the_listed_names(self):
        declared = re.findall(r"^FISCALON_API [^;(]*?\b(fiscalon_\w+)\(", without_comments(HEADER), re.MULTILINE)
        self.assertEqual(sorted(declared), LIST)

    def test_is_called_as_a_whole_by_the_program_that_calls_every_function(self):
        run = subprocess.run(["nm", "-u", os.environ["FISCALON_C_EVERY_MEMBER"]], capture_output=True, text=True,
                             check=True)
        called = {line.split()[-1].split("@")[0] for line in run.stdout.splitlines()}
        self.assertEqual(set(LIST) - called, set())

    def test_bears_its_name(self):
        dynamic = subprocess.run(["readelf", "-d", LIBRARY], capture_output=True, text=True, check=True).stdout
        self.assertIn("[libfiscalon-c.so.1]", dynamic)
        self.assertNotRegex(dynamic, r"NEEDED.*(Qt|libfiscalon\.)")

    def test_has_the_listed_layouts(self):
        printed = subprocess.run([os.environ["FISCALON_C_LAYOUTS"]], capture_output=True, text=True, check=True).stdout
        self.assertEqual(printed, (TREE / "bindings/c/layouts.txt").read_text(encoding="utf-8"))
        in_header = re.findall(r"^typedef struct (\w+) \{", HEADER, re.MULTILINE)
        self.assertEqual([line.split()[0] for line in printed.splitlines() if not line.startswith(" ")], in_header)

    def test_is_accepted_by_every_compiler_at_hand(self):
        tried = 0
        for compiler, standard, language in COMPILERS:
            if shutil.which(compiler) is None:
                continue
            tried += 1
            command = [compiler, standard, "-x", language, "-Wall", "-Wextra", "-pedantic-errors", "-Werror",
                       "-fsyntax-only", "-I", TREE / "include", TREE / "include/fiscalon/c.h"]
            # Both warn of a header that is compiled by itself.
            command += ["-Wno-pragma-once-outside-header"] if compiler.startswith("clang") else []
            compiled = subprocess.run(command, capture_output=True, text=True)
            self.assertEqual(compiled.returncode, 0, f"{compiler} {standard}: {compiled.stderr}")
        self.assertGreater(tried, 1)

    @unittest.skipIf(os.environ["FISCALON_SANITIZED"] == "TRUE", "a sanitizer's library is not loaded late")
    def test_can_be_loaded_by_whoever_has_no_header(self):
        library = ctypes.CDLL(LIBRARY)
        library.fiscalon_version.restype = ctypes.c_char_p
        self.assertRegex(library.fiscalon_version().decode(), r"^\d+\.\d+\.\d+$")
        payment, text = ctypes.c_void_p(), ctypes.c_char_p()
        self.assertEqual(library.fiscalon_payment_create(ctypes.byref(payment)), 0)
        self.assertEqual(library.fiscalon_payment_set_paid_amount(payment, b"12345"), 0)
        self.assertEqual(library.fiscalon_payment_get_paid_amount(payment, ctypes.byref(text)), 0)
        self.assertEqual(text.value, b"123.45")
        self.assertEqual(library.fiscalon_payment_destroy(ctypes.byref(payment)), 0)
        self.assertIsNone(payment.value)


if __name__ == "__main__":
    unittest.main()
