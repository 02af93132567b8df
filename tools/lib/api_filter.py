#!/usr/bin/env python3
"""What Doxygen reads in place of a source, so that the sources say things once:

- A property is a pair of overloads, `Text()` and `Text(text)`, with one comment before them; both get it.
- What only the library itself can call, which a `PassKey` shows, is none of the interface.
- The help texts of the interfaces for Windows, which editors there show, are their comments.

    api_filter.py FILE > WHAT_DOXYGEN_READS"""

import re
import sys
from pathlib import Path

# A member function, by the indent that members have and bodies don't.
FUNCTION = re.compile(r"  (?! )(?!return\b)(?:\[\[\w+\]\] )?\w[\w:<>,&* ]*[ &*](\w+)\(")
ATTRIBUTES = re.compile(r'\[(?:[^\[\]"]|"[^"]*")*?helpstring\("((?:[^"\\]|\\.)*)"\)(?:[^\[\]"]|"[^"]*")*\]')


def header(text):
    """A C++ header with the second halves of its properties told of too."""
    comment, told, name = [], [], ""
    template = []
    for line in text.split("\n"):
        if line.lstrip().startswith("///"):
            comment.append(line)
            continue
        if re.match(r"  template <", line):
            template.append(line)
            continue
        function = FUNCTION.match(line)
        if "PassKey<" in line and function:
            comment = ["  /// @private"]
        elif function and not comment and function[1] == name:
            comment = told
        if function:
            name, told = function[1], comment
        elif re.match(r"  [^ }]", line):
            name = ""
        yield from comment + template + [line]
        comment, template = [], []


def interfaces(text):
    """Windows' interface language with its help texts as comments."""
    def commented(match):
        said = match[1].replace('\\"', '"')
        return f"/** {said} */ " + re.sub(r',?\s*helpstring\("(?:[^"\\]|\\.)*"\)', "", match[0]).replace("[, ", "[")

    # What only type libraries and scripting engines look at is none of the interface either.
    yield ATTRIBUTES.sub(commented, re.sub(r"(?m)^ *(?:importlib\(.*|\[.*\bhidden\b.*)$", "", text))


def main(path):
    read = interfaces if path.suffix == ".idl" else header
    sys.stdout.write("\n".join(read(path.read_text(encoding="utf-8"))))


if __name__ == "__main__":
    main(Path(sys.argv[1]))
