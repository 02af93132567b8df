#!/usr/bin/env python3
"""Writes the programs that a guide is made of: all listings whose fence names a file, one after the other.

    listings.py GUIDE.md FOLDER"""

import re
import sys
from pathlib import Path

guide, folder = Path(sys.argv[1]), Path(sys.argv[2])
text = guide.read_text(encoding="utf-8")
languages = "c|cmake|cpp|csharp|json|python"
unnamed = re.findall(rf"^```(?:{languages})\n", text, re.M)
if unnamed:
    sys.exit(f"{guide}: {len(unnamed)} listings name no file, so nobody would build them")
files = {}
for name, listing in re.findall(rf"^```(?:{languages}) (\S+)\n(.*?)^```$", text, re.M | re.S):
    files[name] = files.get(name, "") + listing
for name, listing in files.items():
    place = folder / name
    place.parent.mkdir(parents=True, exist_ok=True)
    place.write_text(listing, encoding="utf-8")
