#!/usr/bin/env python3
"""Checks what Debian's own checker does not: that each package tells what is linked into its programs, and that no two
are described alike.

    check_debian_packages.py PACKAGE...

Prints one line per offence and exits with 1 if there is any."""

import subprocess
import sys
import tempfile
from pathlib import Path

import notices


def field_of(package, name):
    return subprocess.run(["dpkg-deb", "-f", package, name], check=True, capture_output=True, text=True).stdout


def offences_of(package):
    name = field_of(package, "Package").strip()
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["dpkg-deb", "-x", package, folder], check=True)
        files = [path for path in Path(folder).rglob("*") if path.is_file() and not path.is_symlink()]
        linked = b"".join(bytes_ for bytes_ in map(Path.read_bytes, files) if bytes_.startswith(b"\x7fELF"))
        told = Path(folder, "usr/share/doc", name, "copyright").read_text(encoding="utf-8")
        return list(notices.offences_of(told, linked))


def synopsis_of(package):
    return field_of(package, "Description").partition("\n")[0]


def main(packages):
    found = [f"{package}: {offence}" for package in packages for offence in offences_of(package)]
    synopses = [synopsis_of(package) for package in packages]
    found += [f"{package}: is described as another is" for package, one in zip(packages, synopses)
              if synopses.count(one) > 1]
    print("\n".join(found or [f"{len(packages)} packages are right"]))
    return 1 if found or not packages else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
