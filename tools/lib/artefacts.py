#!/usr/bin/env python3
"""Makes what is given out of a tree of sources: archives, packages. The same sources give the same bytes, in any folder
and at any time.

    artefacts.py --out FOLDER [--kind KIND]...

KIND is source, debian or windows; all that this machine can make, without one."""

import argparse
import gzip
import io
import os
import shutil
import subprocess
import sys
import tarfile
import tempfile
from pathlib import Path

import source_tree

# What a kind needs, by the Debian packages that have it: programs, and modules of Python.
NEEDS = {
    "source": {},
    "debian": {"cmake": "cmake", "ninja": "ninja-build", "g++": "g++", "dpkg-shlibdeps": "dpkg-dev",
               "doxygen": "doxygen",
               "/usr/bin/python3 -m setuptools": "python3-setuptools", "/usr/bin/python3 -m wheel": "python3-wheel"},
    "windows": {"cmake": "cmake", "ninja": "ninja-build", "x86_64-w64-mingw32-g++-posix": "g++-mingw-w64-x86-64-posix",
                "i686-w64-mingw32-g++-posix": "g++-mingw-w64-i686-posix", "x86_64-w64-mingw32-widl": "mingw-w64-tools",
                "wixl": "wixl", "msibuild": "msitools", "wine": "wine"},
}  # fmt: skip


def is_there(tool):
    program, _, module = tool.partition(" -m ")
    if not shutil.which(program):
        return False
    return not module or subprocess.run([program, "-c", f"import {module}"], capture_output=True).returncode == 0


def missing(kinds):
    """The tools that are not there, with the packages that bring them."""
    return {tool: package for kind in kinds for tool, package in NEEDS[kind].items() if not is_there(tool)}


def run(*command, cwd):
    date = str(source_tree.source_date(cwd_tree(cwd)))
    # What a compiler has kept of another build would show nothing of this one.
    environment = {**os.environ, "SOURCE_DATE_EPOCH": date, "CCACHE_DISABLE": "1"}
    for name in ("CMAKE_CXX_COMPILER_LAUNCHER", "LDFLAGS", "CXXFLAGS"):
        environment.pop(name, None)
    # What a package says of rights is the same, whatever those of the maker's own files are.
    subprocess.run(command, cwd=cwd, env=environment, check=True, umask=0o022)


def cwd_tree(folder):
    return next(each for each in (folder, *folder.parents) if (each / "CHANGELOG.md").is_file())


def source(tree, out):
    """All sources in one archive, in the order of their names, with no trace of whoever packed it."""
    name = f"fiscalon-{source_tree.version(tree)}"
    moment = source_tree.source_date(tree)
    packed = io.BytesIO()
    with tarfile.open(fileobj=packed, mode="w", format=tarfile.PAX_FORMAT) as archive:
        for each in sorted(path for path in tree.rglob("*") if path.is_file() and tree / "build" not in path.parents):
            entry = tarfile.TarInfo(f"{name}/{each.relative_to(tree).as_posix()}")
            entry.size = each.stat().st_size
            entry.mode = 0o755 if os.access(each, os.X_OK) else 0o644
            entry.mtime = moment
            with each.open("rb") as file:
                archive.addfile(entry, file)
    with (out / f"{name}.tar.gz").open("wb") as file, gzip.GzipFile("", "wb", 9, file, mtime=moment) as zipped:
        zipped.write(packed.getvalue())


def debian(tree, out):
    """The Debian packages, and what the same build makes for all systems of its kind: the wheel for Python."""
    run("cmake", "--preset", "package", cwd=tree)
    run("cmake", "--build", "--preset", "package", cwd=tree)
    run("cpack", cwd=tree / "build/package")
    built = tree / "build/package"
    (wheel,) = (built / "bindings/python/wheels").glob("*.whl")
    for package in (*sorted((built / "packages").glob("*.deb")), wheel):
        shutil.copy(package, out)


def windows(tree, out):
    for preset in ("windows", "windows32"):
        run("cmake", "--preset", preset, "-D", "FISCALON_TESTS=OFF", cwd=tree)
        run("cmake", "--build", "--preset", preset, cwd=tree)
    try:
        run("tools/lib/pack_windows.sh", cwd=tree)
    finally:
        run("tools/lib/wine.sh", "--end", cwd=tree)
    for package in sorted((tree / "build").glob("windows*/fiscalon-*")):
        if package.suffix in (".zip", ".msi"):
            shutil.copy(package, out)


MAKERS = {"source": source, "debian": debian, "windows": windows}


def make(out, kinds, folder=None, tree=source_tree.TREE):
    """Makes those kinds of a copy of the tree, in a folder of its own."""
    out.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(dir=folder) as work:
        copied = Path(work) / "sources"
        source_tree.copy(copied, tree)
        for kind in kinds:
            MAKERS[kind](copied, out)


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--out", type=Path, required=True)
    parser.add_argument("--kind", choices=list(MAKERS), action="append", dest="kinds")
    told = parser.parse_args(arguments)
    kinds = told.kinds or [kind for kind in MAKERS if not missing([kind])]
    lacking = missing(kinds)
    if lacking:
        reasons = (f"{tool} is missing (Debian: {package})" for tool, package in lacking.items())
        sys.exit("artefacts: " + ", ".join(reasons))
    make(told.out.resolve(), kinds)


if __name__ == "__main__":
    main(sys.argv[1:])
