#!/usr/bin/env python3
"""Makes the API pages by Doxygen, of what hosts are promised: the headers as they are installed and the interfaces for
Windows, and in folders of their own the package for Python and the file for C#.

    api_pages.py --headers FOLDER --version VERSION --out FOLDER

Prints one line per name that is promised and not told of, and per reference that leads nowhere, and exits with 1 then.
Names of headers that are there for others' sake, which no umbrella header names, need no comment."""

import argparse
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

# Nothing is left in the tree by a build.
sys.dont_write_bytecode = True
import api_python  # noqa: E402

TREE = Path(__file__).resolve().parents[2]
# What is promised beside the headers.
C_HEADER = TREE / "include/fiscalon/c.h"
FURTHER = ("include/fiscalon/c.h", "frontends/win32/win32_toolkit.h", "component/fiscalon.idl")
PYTHON = TREE / "bindings/python/fiscalon"
C_SHARP = TREE / "bindings/dotnet/Fiscalon.cs"
# Hosts in these languages write dots between names.
DOTS = ("OPTIMIZE_OUTPUT_JAVA = YES", "EXTRACT_STATIC = YES", "MAX_INITIALIZER_LINES = 0")
UNTOLD = re.compile(r"(.*?):\d+: .* is not documented\.")


def promised(headers):
    """The headers that hosts include, and those of which they are made."""
    named = {C_HEADER, TREE / "frontends/win32/win32_toolkit.h"}
    for umbrella in sorted(headers.glob("*.h")):
        named.add(umbrella)
        for include in re.findall(r'#include "fiscalon/([^"]+)"', umbrella.read_text(encoding="utf-8")):
            named.add(headers / include)
    return named


def pages(first, inputs, roots, version, out, more=()):
    """Makes pages, of which the first is told by name. Gives back what Doxygen warns of."""
    def quoted(paths):
        return " ".join(f'"{path}"' for path in paths)

    settings = [
        f"@INCLUDE = {TREE}/docs/api/Doxyfile",
        f"PROJECT_NUMBER = {version}",
        f"INPUT = {quoted([TREE / 'docs/api' / first, *inputs])}",
        f'USE_MDFILE_AS_MAINPAGE = "{TREE / "docs/api" / first}"',
        # The pages name headers as hosts include them, and no folder of whoever built them.
        f"STRIP_FROM_PATH = {quoted([*roots, TREE])}",
        f"STRIP_FROM_INC_PATH = {quoted(roots)}",
        f'OUTPUT_DIRECTORY = "{out.parent}"',
        f"HTML_OUTPUT = {out.name}",
        *more,
    ]
    ran = subprocess.run(["doxygen", "-"], input="\n".join(settings), cwd=TREE, text=True, capture_output=True)
    if ran.returncode:
        sys.exit(f"api_pages: doxygen failed:\n{ran.stderr}")
    return ran.stderr


def python_pages(version, out):
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder).resolve()
        api_python.write(PYTHON, root)
        warnings = pages("python.md", [root], [root], version, out, DOTS)
        # The lines are those of what Doxygen has read.
        return re.sub(rf"(?m)^{re.escape(str(root / PYTHON.name))}/(.*?):\d+:", rf"{PYTHON}/\1:0:", warnings)


def offences(warnings, needed):
    """What is wrong, of what Doxygen warns of."""
    for line in dict.fromkeys(warnings.splitlines()):
        untold = UNTOLD.fullmatch(line)
        if not untold or Path(untold[1]) in needed or not untold[1].endswith(".h"):
            yield line


def tidy(out):
    # The pages are read without scripts, and these are others' work.
    for script in out.rglob("*.js"):
        script.unlink()
    # Those of folders are named for where all of it was built, and say nothing.
    for page in out.rglob("dir_*.html"):
        page.unlink()
    for page in out.rglob("*.html"):
        text = page.read_text(encoding="utf-8")
        page.write_text(re.sub(r'<a [^>]*href="dir_\w+\.html"[^>]*>(.*?)</a>', r"\1", text), encoding="utf-8")


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
    warnings = pages("index.md", [headers, *(TREE / name for name in FURTHER)], [headers.parent], told.version, out)
    warnings += python_pages(told.version, out / "python")
    warnings += pages("csharp.md", [C_SHARP], [C_SHARP.parent], told.version, out / "csharp", DOTS)
    tidy(out)
    found = list(offences(warnings, promised(headers)))
    print("\n".join(found or [f"the pages are in {out}"]))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
