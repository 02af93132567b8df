#!/usr/bin/env python3
"""The API pages tell of every promised name, and what they lack is noticed."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[3]
TOOLS = TREE / "tools/lib"
sys.path.insert(0, str(TOOLS))
sys.dont_write_bytecode = True
import api_filter  # noqa: E402

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
        text = '  importlib("other.tlb");\n  [propget, id(1), helpstring("A \\"word\\", or [none].")] HRESULT Text([in] BSTR text);\n' \
               "  [propget, id(2), restricted, hidden] HRESULT Walk();"
        self.assertEqual("\n".join(api_filter.interfaces(text)),
                         '\n  /** A "word", or [none]. */ [propget, id(1)] HRESULT Text([in] BSTR text);\n')


@unittest.skipUnless(HEADERS and shutil.which("doxygen"), "there are no headers of hosts, or no Doxygen")
class Pages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.headers = Path(folder.name) / "headers/fiscalon"
        self.pages = Path(folder.name) / "api"
        shutil.copytree(HEADERS, self.headers)

    def ran(self):
        command = [sys.executable, TOOLS / "api_pages.py", "--headers", self.headers, "--version", "7.8.9", "--out", self.pages]
        ran = subprocess.run(command, capture_output=True, text=True)
        self.assertEqual(ran.stderr, "")
        return ran.returncode, ran.stdout

    def test_tell_of_all_names_by_no_script_and_without_a_folder_of_the_build(self):
        self.assertEqual(self.ran(), (0, f"the pages are in {self.pages}\n"))
        index = (self.pages / "index.html").read_text(encoding="utf-8")
        self.assertIn("7.8.9", index)
        self.assertIn("ShowLevyraScreen", index)
        for page in self.pages.iterdir():
            self.assertNotEqual(page.suffix, ".js")
            held = page.read_bytes()
            self.assertNotIn(b"<script", held, page.name)
            for root in (TREE, self.headers.parent):
                self.assertNotIn(f"{root}/".encode(), held, page.name)

    def test_are_refused_where_a_promised_name_is_not_told_of_or_a_reference_leads_nowhere(self):
        session = self.headers / "core/session.h"
        text = session.read_text(encoding="utf-8")
        untold = re.sub(r"(?:  ///.*\n)+(?=  bool ShowLevyraScreen)", "", text)
        self.assertNotEqual(untold, text)
        session.write_text(untold.replace("/// Biller code,", "/// Biller code of @ref fiscalon::Nothing here,"), encoding="utf-8")
        # No umbrella header names this one: it is there for others' sake, and may leave a comment out.
        queue = self.headers / "core/forms/event_queue.h"
        told = queue.read_text(encoding="utf-8")
        queue.write_text(told.replace("  /// The next event that is due; nothing when the queue is empty.\n", ""), encoding="utf-8")
        self.assertNotEqual(queue.read_text(encoding="utf-8"), told)
        status, printed = self.ran()
        self.assertEqual(status, 1)
        places = {line.partition(":")[0].rpartition("/")[2] for line in printed.splitlines()}
        self.assertEqual(places, {"session.h", "index.md"}, printed)
        self.assertEqual(len({re.sub(r":\d+:", ":", line) for line in printed.splitlines()}), 3, printed)
        self.assertIn("ShowLevyraScreen(std::string_view screenCode) (function) of class fiscalon::Levyra is not documented", printed)
        self.assertIn("unable to resolve reference to 'fiscalon::Nothing'", printed)


class Widths(unittest.TestCase):
    def test_of_fields_are_those_of_the_layouts(self):
        layout = (TREE / "core/records/record_layout.h").read_text(encoding="utf-8")
        widths = {name: int(to) - int(from_) + 1
                  for from_, to, name in re.findall(r'RecordField\{(\d+), (\d+), "(Period\w+|Filler\d|Contact\w+|Field\w+)"', layout)}
        header = (TREE / "core/records/pc4_records.h").read_text(encoding="utf-8")
        told = {name: int(width) for width, name in re.findall(r"/// (\d+) columns.*\n  std::string (\w+)\(\)", header)}
        self.assertEqual(told, widths)
        self.assertEqual(len(told), 9)


if __name__ == "__main__":
    unittest.main()
