#!/usr/bin/env python3
"""ZIP files of the same files become the same bytes, however they were packed."""

import os
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[3] / "tools" / "lib"))
sys.dont_write_bytecode = True
import even_zip  # noqa: E402

FILES = {"folder/b": b"second" * 1000, "folder/a": b"first", "folder/below/c": b""}


def rewritten(names, moment, rights, method, epoch=None):
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "files.zip"
        with zipfile.ZipFile(path, "w", method) as package:
            for name in names:
                entry = zipfile.ZipInfo(name, moment)
                entry.external_attr = rights << 16
                package.writestr(entry, FILES.get(name, b""), method)
        os.environ.pop("SOURCE_DATE_EPOCH", None)
        if epoch is not None:
            os.environ["SOURCE_DATE_EPOCH"] = str(epoch)
        even_zip.rewrite(path)
        return path.read_bytes()


class EvenZip(unittest.TestCase):
    def test_the_same_files_make_the_same_bytes(self):
        one = rewritten(list(FILES), (2026, 6, 15, 12, 0, 0), 0o100644, zipfile.ZIP_DEFLATED)
        other = rewritten(["folder/", *sorted(FILES)], (2030, 1, 2, 3, 4, 6), 0o100600, zipfile.ZIP_STORED)
        self.assertEqual(one, other)

    def test_the_files_stay_what_they_are(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "files.zip"
            # 2026-06-15 12:00:00 UTC.
            path.write_bytes(rewritten(list(FILES), (2030, 1, 2, 3, 4, 6), 0o100600, zipfile.ZIP_STORED, 1781524800))
            with zipfile.ZipFile(path) as package:
                self.assertEqual({name: package.read(name) for name in package.namelist()}, FILES)
                self.assertEqual(package.namelist(), sorted(FILES))
                self.assertEqual({entry.date_time for entry in package.infolist()}, {(2026, 6, 15, 12, 0, 0)})


if __name__ == "__main__":
    unittest.main()
