#!/usr/bin/env python3
"""Writes the notices that must go along with programs and libraries: of each work of others that is linked into them,
its copyright and licence, word for word as the distribution has them.

    notices.py --out FILE [--debian LICENSE] BINARY...

With --debian the file is a Debian package's copyright file, which begins with our own licence. Ends with 2 where a
notice is not to be had."""

import argparse
import re
import sys
from pathlib import Path
from typing import NamedTuple

DOCUMENTS = Path("/usr/share/doc")


class Part(NamedTuple):
    name: str
    # What stands in each binary that holds it, stripped or not.
    marker: bytes
    # The Debian package that tells its copyright, and the beginnings of the paths there that are linked in.
    package: str
    paths: tuple
    # Or what is to be said, where a licence asks for no notice.
    remark: str = ""


# All that is ever linked into what we ship.
PARTS = (
    Part("CLI11", b"N3CLI", "libcli11-dev", ("*",)),
    Part("JSON for Modern C++", b"N8nlohmann", "nlohmann-json3-dev", ("*", "include/")),
    Part("winpthreads", b"winpthreads", "mingw-w64-common", ("mingw-w64-libraries/winpthreads/",)),
    Part("mingw-w64 runtime", b"Mingw-w64 runtime", "mingw-w64-common", ("*", "mingw-w64-crt/")),
    Part("GNU C++ runtime", b"libstdc++-v3/", "", (),
         "libstdc++ and libgcc are under the GNU General Public License, version 3, with the GCC Runtime Library\n"
         "Exception, version 3.1, which lets a compiled program that holds them be passed on under its own terms."),
)  # fmt: skip


def parts_of(binary):
    """What a binary's bytes hold of others."""
    return [part for part in PARTS if part.marker in binary]


def stanzas(text):
    """The paragraphs of a copyright file, each a table of its fields. What continues a field keeps its lines."""
    for paragraph in re.split(r"\n\s*\n", text):
        fields = re.findall(r"^(\S+):[ \t]*(.*(?:\n[ \t].*)*)", paragraph, re.M)
        if fields:
            yield dict(fields)


def notice_of(part, documents):
    """The stanzas of a part, as pairs of copyright and licence, the licence in full."""
    path = documents / part.package / "copyright"
    if not path.is_file():
        sys.exit(f"notices: {part.name} is linked in, and its notice, {path}, is missing: install {part.package}")
    all_stanzas = list(stanzas(path.read_text(encoding="utf-8")))
    texts = {}
    for stanza in all_stanzas:
        name, _, text = stanza.get("License", "").partition("\n")
        if text:
            texts.setdefault(name.lower(), text)
    found = []
    for stanza in all_stanzas:
        files = stanza.get("Files", "").split()
        if any(file == wanted or (wanted.endswith("/") and file.startswith(wanted)) for file in files
               for wanted in part.paths):
            if any("tests" in file for file in files):
                continue
            name, _, text = stanza["License"].partition("\n")
            if not text and name != "public-domain":
                # A stanza may name several, each of which stands by itself.
                each = re.split(r" and | or ", name.lower())
                if any(one not in texts for one in each):
                    sys.exit(f"notices: {path} has no text of the licence {name}")
                text = "\n .\n".join(texts[one] for one in each)
            found.append((stanza["Copyright"], name, text))
    if not found:
        sys.exit(f"notices: {path} does not tell of {part.name}")
    return list(dict.fromkeys(found))


def plain(parts, documents):
    yield "What others have written is in these programs and libraries, by their leave:\n"
    for part in parts:
        yield f"\n{part.name}\n{'-' * len(part.name)}\n\n"
        if part.remark:
            yield f"{part.remark}\n"
        for copyright_, name, text in notice_of(part, documents) if part.package else ():
            holders = "; ".join(line.strip() for line in copyright_.splitlines())
            body = re.sub(r"^ \.$", "", re.sub(r"^\t", " ", text, flags=re.M), flags=re.M)
            yield f"Copyright: {holders}\nLicense: {name}\n" + (f"\n{body}\n\n" if body else "\n")


def debian(parts, documents, license_):
    owner = re.search(r"^Copyright \(c\) (.*)$", license_, re.M).group(1)
    body = "\n".join(f" {line}" if line else " ." for line in license_.rstrip("\n").split("\n"))
    yield (
        "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\nUpstream-Name: fiscalon\n\n"
        f"Files: *\nCopyright: {owner}\nLicense: Expat\n{body}\n"
    )
    for part in parts:
        for copyright_, name, text in notice_of(part, documents):
            yield f"\nFiles: {part.name.replace(' ', '-')}/*\nCopyright: {copyright_}\nLicense: {name}\n"
            yield f"{text}\n" if text else ""
            yield "Comment: Compiled into the program.\n"


def offences_of(told, linked):
    """What a file of notices lacks or has too much, beside the bytes of what it goes along with."""
    held = parts_of(linked)
    for part in PARTS:
        is_told = part.name in told or part.name.replace(" ", "-") in told
        if is_told != (part in held):
            reason = "linked in, and its notice is missing" if part in held else "told, and not linked in"
            yield f"{part.name} is {reason}"


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--out", type=Path, required=True)
    parser.add_argument("--debian", type=Path, metavar="LICENSE")
    parser.add_argument("--documents", type=Path, default=DOCUMENTS)
    parser.add_argument("binaries", type=Path, nargs="*", metavar="BINARY")
    told = parser.parse_args(arguments)
    linked = b"".join(path.read_bytes() for path in told.binaries)
    parts = parts_of(linked)
    if told.debian:
        lines = debian(parts, told.documents, told.debian.read_text(encoding="utf-8"))
    else:
        lines = plain(parts, told.documents)
    text = "".join(lines)
    told.out.parent.mkdir(parents=True, exist_ok=True)
    told.out.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main(sys.argv[1:])
