#!/usr/bin/env python3
"""Writes ZIP files anew, so that the same files make the same bytes, wherever and whenever they are packed: sorted by
their names, with the rights that everybody has, and all of one time, that of SOURCE_DATE_EPOCH, else the first that a
ZIP can tell.

    even_zip.py ZIP..."""

import os
import sys
import time
import zipfile
from pathlib import Path


def rewrite(path):
    moment = time.gmtime(max(int(os.environ.get("SOURCE_DATE_EPOCH", 0)), 315532800))[:6]
    part = path.with_name(f"{path.name}.part")
    with zipfile.ZipFile(path) as old, zipfile.ZipFile(part, "w") as new:
        for name in sorted(name for name in old.namelist() if not name.endswith("/")):
            entry = zipfile.ZipInfo(name, moment)
            entry.create_system = 3
            entry.external_attr = 0o100644 << 16
            new.writestr(entry, old.read(name), zipfile.ZIP_DEFLATED, 9)
    part.replace(path)


if __name__ == "__main__":
    for each in sys.argv[1:]:
        rewrite(Path(each))
