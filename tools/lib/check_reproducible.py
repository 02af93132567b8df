#!/usr/bin/env python3
"""Whether the same sources give the same bytes: makes all that is given out twice, in two folders, at two times and by
the habits of two people, and compares, installer packages by what they hold. Looks into each artefact for the folders
that it was made in, too.

    check_reproducible.py [--kind KIND]... [--keep FOLDER]
    check_reproducible.py --compare FOLDER FOLDER [--traces TEXT]...

Prints one line per difference and per trace, and exits with 1 if there is any."""

import argparse
import os
import subprocess
import sys
import tarfile
import tempfile
import zipfile
from pathlib import Path

import artefacts

# Folders of another length, another zone, another language, other rights of new files.
PEOPLE = (
    ("a", {"TZ": "UTC", "LC_ALL": "C.UTF-8", "HOME": "/nonexistent"}, 0o022),
    ("another/folder", {"TZ": "Pacific/Auckland", "LC_ALL": "fr_CA.UTF-8", "USER": "another"}, 0o002),
)


def insides(path, folder):
    """The files in an artefact, by their names, as bytes; of what is no archive the artefact itself."""
    if path.suffix == ".deb":
        subprocess.run(["dpkg-deb", "--raw-extract", path, folder / "deb"], check=True)
        for each in sorted((folder / "deb").rglob("*")):
            if each.is_file() and not each.is_symlink():
                yield str(each.relative_to(folder / "deb")), each.read_bytes()
    elif path.suffix in (".zip", ".whl"):
        with zipfile.ZipFile(path) as archive:
            for name in archive.namelist():
                yield name, archive.read(name)
    elif path.suffix == ".msi":
        subprocess.run(["msiextract", "-C", folder / "msi", path], check=True, stdout=subprocess.DEVNULL)
        for each in sorted((folder / "msi").rglob("*")):
            if each.is_file():
                yield str(each.relative_to(folder / "msi")), each.read_bytes()
    elif path.name.endswith(".tar.gz"):
        with tarfile.open(path) as archive:
            for entry in archive:
                if entry.isfile():
                    yield entry.name, archive.extractfile(entry).read()
    else:
        yield path.name, path.read_bytes()


def differences(one, other):
    """What two artefacts of one name have in common not."""
    if one.read_bytes() == other.read_bytes():
        return
    with tempfile.TemporaryDirectory() as first, tempfile.TemporaryDirectory() as second:
        left, right = dict(insides(one, Path(first))), dict(insides(other, Path(second)))
    apart = sorted(name for name in left.keys() | right.keys() if left.get(name) != right.get(name))
    # What makes installer packages writes the time and an identifier of each around their files.
    around = [] if one.suffix == ".msi" else ["what is around its files"]
    for name in apart or around:
        yield f"{one.name}: {name} differs"


def traces(path, texts):
    with tempfile.TemporaryDirectory() as folder:
        for name, held in insides(path, Path(folder)):
            for text in texts:
                if text.encode() in held:
                    yield f"{path.name}: {name} names {text}"


def compare(one, other, texts):
    names = {path.name for folder in (one, other) for path in folder.iterdir()}
    if not names:
        yield "nothing was made"
    for name in sorted(names):
        missing = [folder for folder in (one, other) if not (folder / name).is_file()]
        if missing:
            yield f"{name}: made once only"
            continue
        yield from differences(one / name, other / name)
        yield from traces(one / name, texts)


def make_twice(kinds, work):
    """Both results, and the folders that must not stand in them."""
    made, folders = [], []
    for name, habits, mask in PEOPLE:
        folder = work / name
        (folder / "work").mkdir(parents=True)
        kept, kept_mask = dict(os.environ), os.umask(mask)
        os.environ.update(habits)
        try:
            artefacts.make(folder / "out", kinds, folder / "work")
        finally:
            os.umask(kept_mask)
            os.environ.clear()
            os.environ.update(kept)
        made.append(folder / "out")
        folders.append(str(folder / "work"))
    return made, folders


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--kind", choices=list(artefacts.MAKERS), action="append", dest="kinds")
    parser.add_argument("--keep", type=Path, help="where both results are left")
    parser.add_argument("--compare", type=Path, nargs=2, metavar="FOLDER")
    parser.add_argument("--traces", action="append", default=[])
    told = parser.parse_args(arguments)
    if told.compare:
        found = list(compare(*told.compare, told.traces))
        count = len(list(told.compare[0].iterdir()))
    else:
        kinds = told.kinds or [kind for kind in artefacts.MAKERS if not artefacts.missing([kind])]
        with tempfile.TemporaryDirectory() as folder:
            work = told.keep.resolve() if told.keep else Path(folder)
            made, folders = make_twice(kinds, work)
            found = list(compare(*made, folders))
            count = len(list(made[0].iterdir()))
    print("\n".join(found or [f"{count} artefacts are the same bytes twice, and name no folder of a build"]))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
