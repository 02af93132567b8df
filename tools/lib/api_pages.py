#!/usr/bin/env python3
"""Makes the API pages by Doxygen, of what hosts are promised: the headers as they are installed, the interfaces for Windows,
and the modules of other languages.

    api_pages.py --headers FOLDER --version VERSION --out FOLDER

Prints one line per name that is promised and not told of, and per reference that leads nowhere, and exits with 1 then. Names
of headers that are there for others' sake, which no umbrella header names, need no comment."""

import argparse
import re
import shutil
import subprocess
import sys
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
# What is promised beside the headers, where it is there.
C_HEADER = TREE / "include/fiscalon/c.h"
FURTHER = ("include/fiscalon/c.h", "frontends/win32/win32_toolkit.h", "component/fiscalon.idl")
UNTOLD = re.compile(r"(.*?):\d+: .* is not documented\.")


def promised(headers):
    """The headers that hosts include, and those of which they are made."""
    named = {C_HEADER, TREE / "frontends/win32/win32_toolkit.h"}
    for umbrella in sorted(headers.glob("*.h")):
        named.add(umbrella)
        for include in re.findall(r'#include "fiscalon/([^"]+)"', umbrella.read_text(encoding="utf-8")):
            named.add(headers / include)
    return named


def settings(headers, version, out):
    """What is added to the file of settings."""
    inputs = [TREE / "docs/api", headers, *(TREE / name for name in FURTHER if (TREE / name).exists())]
    yield f"@INCLUDE = {TREE}/docs/api/Doxyfile"
    yield f"PROJECT_NUMBER = {version}"
    yield "INPUT = " + " ".join(f'"{path}"' for path in inputs)
    # The pages name headers as hosts include them, and no folder of whoever built them.
    yield f'STRIP_FROM_PATH = "{headers.parent}" "{TREE}"'
    yield f'STRIP_FROM_INC_PATH = "{headers.parent}"'
    yield f'OUTPUT_DIRECTORY = "{out.parent}"'
    yield f"HTML_OUTPUT = {out.name}"


def offences(warnings, needed):
    """What is wrong, of what Doxygen warns of."""
    for line in dict.fromkeys(warnings.splitlines()):
        untold = UNTOLD.fullmatch(line)
        if not untold or Path(untold[1]) in needed or not untold[1].endswith(".h"):
            yield line


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--headers", type=Path, required=True)
    parser.add_argument("--version", required=True)
    parser.add_argument("--out", type=Path, required=True)
    told = parser.parse_args(arguments)
    headers, out = told.headers.resolve(), told.out.resolve()
    if out.exists():
        shutil.rmtree(out)
    out.parent.mkdir(parents=True, exist_ok=True)
    ran = subprocess.run(["doxygen", "-"], input="\n".join(settings(headers, told.version, out)), cwd=TREE, text=True,
                         capture_output=True)
    if ran.returncode:
        sys.exit(f"api_pages: doxygen failed:\n{ran.stderr}")
    # The pages are read without scripts, and these are others' work.
    for script in out.rglob("*.js"):
        script.unlink()
    found = list(offences(ran.stderr, promised(headers)))
    print("\n".join(found or [f"the pages are in {out}"]))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
