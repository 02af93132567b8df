#!/usr/bin/env python3
"""Writes the list of parts of what is given out, in the form of SPDX 2.3: the artefact with the checksum of its bytes,
what others wrote that is linked into its programs, and the packages that it needs beside it.

    parts_list.py --version VERSION --moment SECONDS --out FILE ARTEFACT"""

import argparse
import datetime
import hashlib
import json
import re
import subprocess
import sys
import tempfile
from pathlib import Path

import check_reproducible
import notices

# Names of licences in Debian's copyright files, as SPDX has them. Others are told in the notices, word for word.
LICENCES = {"expat": "MIT", "bsd-3-clause": "BSD-3-Clause", "zpl-2.1": "ZPL-2.1"}


def version_of(package):
    """The version that is linked in: that of the installed package. Empty where there is no such package."""
    asked = subprocess.run(["dpkg-query", "-W", "-f=${Version}", package], capture_output=True, text=True)
    return asked.stdout if asked.returncode == 0 else ""


def licence_of(part):
    """The licence in SPDX's words, where all of it has some."""
    if not part.package:
        return "GPL-3.0-or-later WITH GCC-exception-3.1"
    names = {name.lower() for _, name, _ in notices.notice_of(part, notices.DOCUMENTS)}
    if not names <= set(LICENCES):
        return "NOASSERTION"
    return " AND ".join(sorted({LICENCES[name] for name in names}))


def needs_of(artefact):
    """The packages that a Debian package asks for, each with its condition."""
    if artefact.suffix != ".deb":
        return []
    asked = subprocess.run(["dpkg-deb", "-f", artefact, "Depends"], check=True, capture_output=True, text=True).stdout
    return [each.strip() for each in asked.split(",") if each.strip()]


def linked_into(artefact):
    """The parts of others in the programs and libraries of an artefact."""
    with tempfile.TemporaryDirectory() as folder:
        held = b"".join(bytes_ for _, bytes_ in check_reproducible.insides(artefact, Path(folder))
                        if bytes_.startswith((b"\x7fELF", b"MZ")))
    return notices.parts_of(held)


def entry(name, version, licence, **more):
    """One package of the list."""
    return {
        "SPDXID": "SPDXRef-" + re.sub(r"[^A-Za-z0-9.-]+", "-", name),
        "name": name,
        "versionInfo": version,
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "licenseConcluded": "NOASSERTION",
        "licenseDeclared": licence,
        "copyrightText": "NOASSERTION",
        **more,
    }


def list_of(artefact, version, moment):
    sum_ = hashlib.sha256(artefact.read_bytes()).hexdigest()
    whole = entry(artefact.name, version, "MIT", packageFileName=artefact.name,
                  checksums=[{"algorithm": "SHA256", "checksumValue": sum_}])
    linked = [entry(part.name, version_of(part.package) if part.package else "NOASSERTION", licence_of(part),
                    comment="Compiled into the program.") for part in linked_into(artefact)]
    needed = [entry(need.split()[0], re.sub(r"^\S+ ?\(?|\)$", "", need) or "NOASSERTION", "NOASSERTION")
              for need in needs_of(artefact)]
    related = [("SPDXRef-DOCUMENT", "DESCRIBES", whole["SPDXID"])]
    related += [(whole["SPDXID"], "STATIC_LINK", part["SPDXID"]) for part in linked]
    related += [(whole["SPDXID"], "DEPENDS_ON", need["SPDXID"]) for need in needed]
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": artefact.name,
        "documentNamespace": f"urn:sha256:{sum_}",
        "creationInfo": {
            "created": datetime.datetime.fromtimestamp(moment, datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ"),
            "creators": ["Organization: Fiscalon contributors", "Tool: parts_list.py"],
        },
        "packages": [whole, *linked, *needed],
        "relationships": [{"spdxElementId": one, "relationshipType": kind, "relatedSpdxElement": other}
                          for one, kind, other in related],
    }


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--version", required=True)
    parser.add_argument("--moment", type=int, required=True)
    parser.add_argument("--out", type=Path, required=True)
    parser.add_argument("artefact", type=Path)
    told = parser.parse_args(arguments)
    told.out.write_text(json.dumps(list_of(told.artefact, told.version, told.moment), indent=1) + "\n",
                        encoding="utf-8")


if __name__ == "__main__":
    main(sys.argv[1:])
