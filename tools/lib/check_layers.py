#!/usr/bin/env python3
"""Checks that every #include, and every link of a layer's CMake target, follows the layers' arrows.

    check_layers.py [TREE]

Prints one line per offence, "file:line: what is wrong", and exits with 1 if there is any."""

import re
import sys
from pathlib import Path

# What each layer may include beside itself. docs/architecture.md says why.
LAYERS = {
    "platform": set(),
    "values": {"platform"},
    "records": {"values", "platform"},
    "forms": {"platform"},
    "core": {"records", "values", "forms", "platform"},
    "parts": {"core", "records", "values", "forms", "platform"},
    "screens": {"parts", "core", "records", "values", "forms", "platform"},
    "validation": {"core", "records", "values", "platform"},
    "played": {"screens", "core", "records", "values", "forms", "platform"},
    "scripted": {"played", "core", "forms", "platform"},
    # What plays scenarios on widgets is part of the folder.
    "qt": {"played", "core", "forms", "platform"},
    "win32": {"played", "core", "forms", "platform"},
    # What hosts on Windows create by name: the library, and the forms that it shows there.
    "component": {"win32", "validation", "core", "records", "platform"},
    # What a record says, for people.
    "reading": {"validation", "core", "records", "values", "platform"},
    # The program's outputs, inputs and terminal.
    "files": {"reading", "validation", "records", "platform"},
}

# The longest prefix that fits says which layer a file belongs to. What is not named here (the programs, tests,
# examples, bench) stands on top and may use everything.
FOLDERS = {
    "core/": "core",
    "core/platform/": "platform",
    "core/values/": "values",
    "core/records/": "records",
    "core/forms/": "forms",
    "screens/": "screens",
    "screens/parts/": "parts",
    "validation/": "validation",
    "frontends/played/": "played",
    "frontends/scripted/": "scripted",
    "frontends/qt/": "qt",
    "frontends/win32/": "win32",
    "component/": "component",
    "tools/reading/": "reading",
    "tools/fiscalon/files/": "files",
}
# Those that are made of the toolkit's or the system's own headers.
OF_THE_SYSTEM = ("qt", "win32", "component", "files")
TOP = ("tools/", "tests/", "examples/", "bench/", "include/")
QT_FOLDERS = ("frontends/qt/", "tools/desk/", "examples/qt_host/", "tests/")

STANDARD = set(
    """algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes
    climits clocale cmath compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef
    cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format
    forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator latch
    limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random ranges
    ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept stop_token
    streambuf string string_view strstream syncstream system_error thread tuple type_traits typeindex typeinfo
    unordered_map unordered_set utility valarray variant vector version
    assert.h ctype.h errno.h float.h inttypes.h limits.h locale.h math.h setjmp.h signal.h stdarg.h stddef.h
    stdint.h stdio.h stdlib.h string.h time.h uchar.h wchar.h""".split()
)
# What differs between systems lies in folders of one system each. Nothing else calls a system, takes from such a folder,
# or asks which system it is on: CMake takes the right one.
POSIX_FOLDERS = ("core/platform/posix/", "tools/fiscalon/posix/", "tools/fiscalon/files/posix/")
WINDOWS_FOLDERS = (
    "core/platform/windows/",
    "tools/fiscalon/windows/",
    "tools/fiscalon/files/windows/",
    "frontends/win32/",
    "component/",
)
POSIX = re.compile(r"(sys/\w+|dirent|fcntl|langinfo|unistd)\.h")
WINDOWS = re.compile(r"(sys/\w+|fcntl|io|windows)\.h")
ASKS_WHICH_SYSTEM = re.compile(r"^\s*#\s*(?:el)?if.*(?:\b_?WIN(?:32|64)\b|__linux|__unix|__APPLE__|__MINGW|__has_include)")
# Made by the build.
GENERATED = ("fiscalon_component.h",)
QT = re.compile(r"(Qt\w*/.*|Q[A-Z]\w*|q\w+\.h)")

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]*)"|<([^>]*)>)')
LAYER_TARGET = re.compile(r"fiscalon_layer\(\s*(\w+)\s+(?:DEPENDS\s+([\w\s]*?)\s+)?SOURCES")


def layer_of(path):
    fitting = [prefix for prefix in FOLDERS if path.startswith(prefix)]
    return FOLDERS[max(fitting, key=len)] if fitting else None


def offence_of_quoted(tree, path, included):
    layer, other = layer_of(path), layer_of(included)
    if included in GENERATED:
        return None if path.startswith(("component/",) + TOP) else f'"{included}" belongs into component/'
    if included.startswith(("./", "../")) or not ((tree / included).is_file() or (tree / "include" / included).is_file()):
        return f'"{included}" is no file of the project, seen from its root'
    for folders in (POSIX_FOLDERS, WINDOWS_FOLDERS):
        if included.startswith(folders) and not path.startswith(folders + ("tests/", "examples/windows/")):
            return f'"{included}" is of one system'
    if layer is None or other == layer:
        return None
    if other is None:
        return f'{layer} may not include "{included}", which stands above it'
    if other not in LAYERS[layer]:
        return f'{layer} may not include "{included}" of {other}'
    return None


def offence_of_angled(path, included):
    if QT.fullmatch(included):
        return None if path.startswith(QT_FOLDERS) else f"<{included}>: Qt belongs into {' and '.join(QT_FOLDERS[:2])}"
    layer = layer_of(path)
    if layer is None or layer in OF_THE_SYSTEM or included in STANDARD:
        return None
    if path.startswith(POSIX_FOLDERS) and POSIX.fullmatch(included):
        return None
    if path.startswith(WINDOWS_FOLDERS) and WINDOWS.fullmatch(included):
        return None
    return f"{layer} may not include <{included}>, which is not of the standard library"


def source_offences(tree, path):
    text = (tree / path).read_text(encoding="utf-8", errors="replace")
    for number, line in enumerate(text.splitlines(), start=1):
        if ASKS_WHICH_SYSTEM.match(line) and not path.startswith(POSIX_FOLDERS + WINDOWS_FOLDERS + ("tests/", "bench/")):
            yield f"{path}:{number}: what differs between systems belongs into a folder of one system"
        match = INCLUDE.match(line)
        if not match:
            continue
        quoted, angled = match.groups()
        offence = offence_of_quoted(tree, path, quoted) if quoted is not None else offence_of_angled(path, angled)
        if offence:
            yield f"{path}:{number}: {offence}"


def target_offences(tree, path):
    text = (tree / path).read_text(encoding="utf-8")
    for match in LAYER_TARGET.finditer(text):
        layer, depends = match.group(1), set((match.group(2) or "").split())
        line = text.count("\n", 0, match.start()) + 1
        if layer not in LAYERS:
            yield f"{path}:{line}: the layer {layer} is not known to this check"
        for wrong in sorted(depends - LAYERS.get(layer, depends)):
            yield f"{path}:{line}: the target of {layer} may not link {wrong}"


def offences(tree):
    found, files = [], 0
    for top in sorted(set(folder.split("/")[0] for folder in FOLDERS) | set(folder.rstrip("/") for folder in TOP)):
        for file in sorted((tree / top).rglob("*")):
            path = file.relative_to(tree).as_posix()
            if file.suffix in (".h", ".cpp"):
                files += 1
                found += source_offences(tree, path)
            elif file.name == "CMakeLists.txt":
                found += target_offences(tree, path)
    if files == 0:
        found.append(f"{tree}: no source file found")
    return found


def main(arguments):
    tree = Path(arguments[0]) if arguments else Path(__file__).resolve().parents[2]
    found = offences(tree)
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
