#!/usr/bin/env python3
"""What Doxygen reads in place of a source, so that the sources say things once:

- A property is a pair of overloads, `Text()` and `Text(text)`, with one comment before them; both get it.
- What only the library itself can call, which a `PassKey` shows, is none of the interface.
- In the header for C a comment holds for all declarations up to the next comment or blank line; the operations of
  one kind of collection are told of for the others too.
- The help texts of the interfaces for Windows, which editors there show, are their comments.
- What stands at the head of the file for C# is said of its namespace.

    api_filter.py FILE > WHAT_DOXYGEN_READS"""

import re
import sys
from pathlib import Path

# A member function, by the indent that members have and bodies don't.
FUNCTION = re.compile(r"  (?! )(?!return\b)(?:\[\[\w+\]\] )?\w[\w:<>,&* ]*[ &*](\w+)\(")
ATTRIBUTES = re.compile(r'\[(?:[^\[\]"]|"[^"]*")*?helpstring\("((?:[^"\\]|\\.)*)"\)(?:[^\[\]"]|"[^"]*")*\]')
DESTROYS = "/** Gives a handle back, and sets the host's variable to NULL. */"


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


def c_header(text):
    """The C header with Doxygen's own marks, each declaration with the comment that holds for it."""
    # What stands before all else is said of the whole header.
    comment, told, reading, begun = [], {}, False, False
    for line in text.split("\n"):
        line = re.sub(r"(?<=\S)(\s+)/\* (.*\*/)$", r"\1/**< \2", line)
        if reading or re.match(r" */\* (?!---)", line):
            comment = [*comment, line] if reading else [line.replace("/* ", "/** " if begun else "/** @file\n * ", 1)]
            begun = True
            reading = "*/" not in line
            if not reading and comment[0].startswith("/** @file"):
                yield from comment
                comment = []
            continue
        if not line.strip():
            comment = []
        function = re.match(r"FISCALON_API .*?(fiscalon_\w+)\(", line)
        if function:
            name = re.sub(r"^fiscalon_(records|gov_formats|free_formats)_", "", function[1])
            said = [DESTROYS] if name.endswith("destroy") else comment or told.get(name, [])
            told.setdefault(name, said)
            yield from said
        elif re.match(r"typedef|enum|#define|  FISCALON_|  [a-z]", line):
            yield from comment
            comment = [] if line.startswith((" ", "typedef struct", "enum")) and not line.endswith(";") else comment
        yield line


def interfaces(text):
    """Windows' interface language with its help texts as comments."""
    def commented(match):
        said = match[1].replace('\\"', '"')
        return f"/** {said} */ " + re.sub(r',?\s*helpstring\("(?:[^"\\]|\\.)*"\)', "", match[0]).replace("[, ", "[")

    # What only type libraries and scripting engines look at is none of the interface either.
    yield ATTRIBUTES.sub(commented, re.sub(r"(?m)^ *(?:importlib\(.*|\[.*\bhidden\b.*)$", "", text))


def c_sharp(text):
    """The file for C#, whose head is said of its whole namespace."""
    lines = text.split("\n")
    head = next(number for number, line in enumerate(lines) if not line.startswith("//"))
    for number, line in enumerate(lines):
        if number < head:
            yield f"///{' @namespace Fiscalon' if number == 0 else ''}{line[2:]}"
        else:
            # Constructors that are expressions behind an initializer are more than Doxygen knows of the language.
            yield re.sub(r"( : (?:base|this)\(.*\)) => .*;$", r"\1 { }", line)


def main(path):
    read = {".idl": interfaces, ".cs": c_sharp}.get(path.suffix) or (c_header if path.name == "c.h" else header)
    sys.stdout.write("\n".join(read(path.read_text(encoding="utf-8"))))


if __name__ == "__main__":
    main(Path(sys.argv[1]))
