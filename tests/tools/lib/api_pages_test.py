#!/usr/bin/env python3
"""The API pages tell of every promised name, and what they lack is noticed."""

import contextlib
import io
import os
import re
import shutil
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

TREE = Path(__file__).resolve().parents[3]
TOOLS = TREE / "tools/lib"
sys.path.insert(0, str(TOOLS))
sys.dont_write_bytecode = True
import api_filter  # noqa: E402
import api_pages  # noqa: E402
import api_python  # noqa: E402

HEADERS = Path(os.environ["FISCALON_HEADERS"]) if "FISCALON_HEADERS" in os.environ else None

PROPERTY = """class Form {
 public:
  /// The title.
  std::string Caption() const { return caption_; }
  void Caption(std::string_view text) {
    Caption(text);
  }
  bool IsUp() const;
  bool IsUp(int row) const;

  /// A row by its number.
  template <class Number>
  void Pick(Number row);
  void Pick(std::string_view row);
  void Register(PassKey<Control> key);
};"""
TOLD = """class Form {
 public:
  /// The title.
  std::string Caption() const { return caption_; }
  /// The title.
  void Caption(std::string_view text) {
    Caption(text);
  }
  bool IsUp() const;
  bool IsUp(int row) const;

  /// A row by its number.
  template <class Number>
  void Pick(Number row);
  /// A row by its number.
  void Pick(std::string_view row);
  /// @private
  void Register(PassKey<Control> key);
};"""


class Filter(unittest.TestCase):
    def test_tells_both_halves_of_a_property_what_stands_before_the_first(self):
        self.assertEqual("\n".join(api_filter.header(PROPERTY)), TOLD)

    def test_lets_a_comment_of_the_header_for_c_hold_up_to_the_next(self):
        text = """/* Fiscalon for hosts in C: all of it.
 * And more. */

/* ---- Records ---- */

/* A record. */
typedef struct fiscalon_record fiscalon_record;
/* The date. */
FISCALON_API int fiscalon_record_get_date(fiscalon_record* record);
FISCALON_API int fiscalon_record_set_date(fiscalon_record* record);
FISCALON_API int fiscalon_record_destroy(fiscalon_record** record);

/* How many. */
FISCALON_API int fiscalon_records_count(void);

FISCALON_API int fiscalon_gov_formats_count(void);
FISCALON_API int fiscalon_other(void);"""
        self.assertEqual("\n".join(api_filter.c_header(text)), """/** @file
 * Fiscalon for hosts in C: all of it.
 * And more. */

/* ---- Records ---- */

/** A record. */
typedef struct fiscalon_record fiscalon_record;
/** The date. */
FISCALON_API int fiscalon_record_get_date(fiscalon_record* record);
/** The date. */
FISCALON_API int fiscalon_record_set_date(fiscalon_record* record);
/** Gives a handle back, and sets the host's variable to NULL. */
FISCALON_API int fiscalon_record_destroy(fiscalon_record** record);

/** How many. */
FISCALON_API int fiscalon_records_count(void);

/** How many. */
FISCALON_API int fiscalon_gov_formats_count(void);
FISCALON_API int fiscalon_other(void);""")

    def test_makes_comments_of_help_texts(self):
        text = '  importlib("other.tlb");\n' \
               '  [propget, id(1), helpstring("A \\"word\\", or [none].")] HRESULT Text([in] BSTR text);\n' \
               "  [propget, id(2), restricted, hidden] HRESULT Walk();"
        self.assertEqual("\n".join(api_filter.interfaces(text)),
                         '\n  /** A "word", or [none]. */ [propget, id(1)] HRESULT Text([in] BSTR text);\n')


    def test_says_the_head_of_the_file_for_c_sharp_of_its_namespace(self):
        text = """// Fiscalon for hosts in C#.
// And more.
using System;

namespace Fiscalon
{
    public sealed class Odd : Exception
    {
        internal Odd(string text)
            : base(text) => Problems = text;
        public Odd() : this("") { }
        public string Problems => held;
"""
        self.assertEqual("\n".join(api_filter.c_sharp(text)), """/// @namespace Fiscalon Fiscalon for hosts in C#.
/// And more.
using System;

namespace Fiscalon
{
    public sealed class Odd : Exception
    {
        internal Odd(string text)
            : base(text) { }
        public Odd() : this("") { }
        public string Problems => held;
""")


PACKAGE = {
    "__init__": '''"""The package::

    code

See ``Payment.comp_code``."""

from ._payment import Kind, Payment, version

__all__ = ["Kind", "Payment", "version"]
''',
    "_base": '''class Base:
    """Nobody sees it."""

    _hidden = 1

    def close(self) -> None:
        """Closes it."""

    def show(self) -> None:
        """Not this one."""


class Text:
    pass
''',
    "_payment": '''import enum
from ._base import Base, Text


class Kind(enum.IntEnum):
    """A kind."""

    PLAIN = 0  #: No mark.
    LOUD = 1


class Payment(Base):
    """One payment. ``Kind`` says which, ``comp_code`` whose, ``nothing`` what."""

    comp_code = Text("Biller code, "
                     "such as 1.")

    def __init__(self, name: str) -> None:
        #: As it was given.
        self.name = name
        self._own = name

    @property
    def rows(self) -> list[int]:
        """Its rows."""

    @overload
    def show(self, code: str) -> bool: ...

    def show(self, code: str, *, fast: bool = True) -> bool:
        """Shows it."""


def version() -> str:
    """The version."""


def inner() -> None: ...
''',
    "play": '''"""Plays."""

#: When.
TODAY: int = 5
_OWN = 6


def play(path: str) -> None: ...
'''}
READ = """## @namespace fiscalon
# The package:
#
#     code
#
# See @ref fiscalon::Payment::comp_code "Payment.comp_code".

## A kind.
class Kind(enum.IntEnum):
    pass
    ## No mark.
    PLAIN = 0
    LOUD = 1

## One payment. @ref fiscalon::Kind "Kind" says which, @ref fiscalon::Payment::comp_code "comp_code" whose, ``nothing`` what.
class Payment:
    pass
    def _set(self):
        ## Biller code, such as 1.
        #
        # @par Type
        # <tt>str</tt>
        self.comp_code = None
    def _set(self):
        ## As it was given.
        self.name = None
    def _set(self):
        ## Its rows.
        #
        # @par Type
        # <tt>list[int]</tt>
        self.rows = None
    ## Shows it.
    #
    # @par Types
    # <tt>show(code: str, *, fast: bool=True) -> bool</tt>
    def show(code, fast=True):
        pass
    ## Closes it.
    #
    # @par Types
    # <tt>close() -> None</tt>
    def close():
        pass

## The version.
#
# @par Types
# <tt>version() -> str</tt>
def version():
    pass"""


class Python(unittest.TestCase):
    def test_is_read_as_hosts_see_it_wherever_it_is_written(self):
        with tempfile.TemporaryDirectory() as folder:
            package = Path(folder) / "fiscalon"
            package.mkdir()
            for name, text in PACKAGE.items():
                (package / f"{name}.py").write_text(text, encoding="utf-8")
            modules = api_python.Package(package).modules()
            self.assertEqual(modules, {"__init__": READ, "play": """## @namespace fiscalon::play
# Plays.

## When.
TODAY = 5
def play(path):
    pass"""})


def page_of(kind, name):
    """The page on which Doxygen tells of a class or a namespace."""
    escaped = name.replace("_", "__").replace("::", "_1_1")
    return kind + re.sub("[A-Z]", lambda capital: f"_{capital[0].lower()}", escaped) + ".html"


@unittest.skipUnless(HEADERS and shutil.which("doxygen"), "there are no headers of hosts, or no Doxygen")
class Pages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.headers = Path(folder.name) / "headers/fiscalon"
        self.pages = Path(folder.name) / "api"
        shutil.copytree(HEADERS, self.headers)

    def ran(self):
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed):
            status = api_pages.main(["--headers", str(self.headers), "--version", "7.8.9", "--out", str(self.pages)])
        return status, printed.getvalue()

    def words(self, page):
        return set(re.findall(r"\w+", re.sub(r"<[^>]*>", " ", (self.pages / page).read_text(encoding="utf-8"))))

    def test_tell_of_all_names_by_no_script_and_without_a_folder_of_the_build(self):
        self.assertEqual(self.ran(), (0, f"the pages are in {self.pages}\n"))
        index = (self.pages / "index.html").read_text(encoding="utf-8")
        self.assertIn("7.8.9", index)
        self.assertIn("ShowLevyraScreen", index)
        for page in filter(Path.is_file, self.pages.rglob("*")):
            self.assertNotEqual(page.suffix, ".js")
            held = page.read_bytes()
            # These are named for the folder of the build.
            self.assertNotIn(b"dir_", held + page.name.encode(), page.name)
            self.assertNotIn(b"<script", held, page.name)
            for root in (TREE, self.headers.parent):
                self.assertNotIn(f"{root}/".encode(), held, page.name)

        # Doxygen says nothing where it loses a name.
        for name in self.names_in_python():
            scope, _, own = name.rpartition("::")
            kind = "namespace" if scope.rpartition("::")[2].islower() else "class"
            with self.subTest(name):
                self.assertIn(own, self.words(f"python/{page_of(kind, scope)}"))
        for kind, scope, own in self.names_in_c_sharp():
            with self.subTest(f"{scope}.{own}"):
                self.assertIn(own, self.words(f"csharp/{page_of(kind, scope)}"))

    @staticmethod
    def names_in_python():
        package = api_python.Package(api_pages.PYTHON)
        package.modules()
        return sorted(package.told)

    @staticmethod
    def names_in_c_sharp():
        scope = ""
        for line in api_pages.C_SHARP.read_text(encoding="utf-8").splitlines():
            of_a_type = re.match(r"    (?:public|internal) .*?(class|enum|struct|delegate) (\w+)", line)
            if of_a_type:
                scope = f"Fiscalon::{of_a_type[2]}" if line.startswith("    public") and of_a_type[1] == "class" else ""
            if of_a_type and line.startswith("    public"):
                yield "namespace", "Fiscalon", of_a_type[2]
            member = re.match(r"        public (?:[\w<>\[\], ]+ )?(\w+)(?=[(;]| [{=]|$)", line)
            if scope and member:
                yield "class", scope, member[1]

    def copy(self, path):
        into = self.headers.parent / path.name
        if path.is_dir():
            into = self.headers.parents[1] / "python" / path.name
            return shutil.copytree(path, into)
        return Path(shutil.copy(path, into))

    def spoil(self, file, words, other):
        text = file.read_text(encoding="utf-8")
        self.assertEqual(text.count(words), 1, words)
        file.write_text(text.replace(words, other), encoding="utf-8")

    def test_are_refused_where_a_promised_name_is_not_told_of_or_a_reference_leads_nowhere(self):
        session = self.headers / "core/session.h"
        text = session.read_text(encoding="utf-8")
        untold = re.sub(r"(?:  ///.*\n)+(?=  bool ShowLevyraScreen)", "", text)
        self.assertNotEqual(untold, text)
        session.write_text(untold.replace("/// Biller code,", "/// Biller code of @ref fiscalon::Nothing here,"),
                           encoding="utf-8")
        # No umbrella header names this one: it is there for others' sake, and may leave a comment out.
        queue = self.headers / "core/forms/event_queue.h"
        told = queue.read_text(encoding="utf-8")
        queue.write_text(told.replace("  /// The next event that is due; nothing when the queue is empty.\n", ""),
                         encoding="utf-8")
        self.assertNotEqual(queue.read_text(encoding="utf-8"), told)
        python = self.copy(api_pages.PYTHON)
        self.spoil(python / "_payment.py", "comp_code = Text('Biller code, such as \"001052\".')",
                   "comp_code = Text('')")
        self.spoil(python / "_records.py", '"""Appends a record and returns it; with an empty key it has none."""',
                   "pass")
        c_sharp = self.copy(api_pages.C_SHARP)
        self.spoil(c_sharp, "/// <summary>Biller code, such as \"001052\".</summary>", "")
        with mock.patch.multiple(api_pages, PYTHON=python, C_SHARP=c_sharp):
            status, printed = self.ran()
        self.assertEqual(status, 1)
        places = {line.partition(":")[0].rpartition("/")[2] for line in printed.splitlines()}
        self.assertEqual(places, {"session.h", "index.md", "__init__.py", "Fiscalon.cs"}, printed)
        self.assertEqual(len({re.sub(r":\d+:", ":", line) for line in printed.splitlines()}), 7, printed)
        self.assertIn("Member comp_code (variable) of class fiscalon::Payment is not documented", printed)
        self.assertIn("(function) of class fiscalon::Records is not documented", printed)
        self.assertIn("Member CompCode (property) of class Fiscalon::Levyra is not documented", printed)
        self.assertIn("ShowLevyraScreen(std::string_view screenCode) (function) of class fiscalon::Levyra is not "
                      "documented", printed)
        self.assertIn("unable to resolve reference to 'fiscalon::Nothing'", printed)


class Widths(unittest.TestCase):
    def test_of_fields_are_those_of_the_layouts(self):
        layout = (TREE / "core/records/record_layout.h").read_text(encoding="utf-8")
        widths = {name: int(to) - int(from_) + 1
                  for from_, to, name in re.findall(r'RecordField\{(\d+), (\d+), '
                                                    r'"(Period\w+|Filler\d|Contact\w+|Field\w+)"', layout)}
        header = (TREE / "core/records/pc4_records.h").read_text(encoding="utf-8")
        told = {name: int(width) for width, name in re.findall(r"/// (\d+) columns.*\n  std::string (\w+)\(\)", header)}
        self.assertEqual(told, widths)
        self.assertEqual(len(told), 9)


if __name__ == "__main__":
    unittest.main()
