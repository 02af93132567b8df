#!/usr/bin/env python3
"""Checks that every #include, and every link of a layer's CMake target, follows the layers' arrows.

    check_layers.py [TREE]

Prints one line per offence, "file:line: what is wrong", and exits with 1 if there is any."""

import re
import sys
from pathlib import Path
from typing import NamedTuple

class Layer(NamedTuple):
    name: str
    # The longest that fits says which layer a file belongs to.
    folder: str
    # What it may include beside itself.
    uses: str
    # Made of the toolkit's or the system's own headers.
    of_the_system: bool = False
    # Its classes but for the toolkits lie in a namespace of its name, so that a program may link several of the kind.
    own_namespace: bool = False


# A row for each. docs/architecture.md says why. What has none (the programs, tests, examples, bench) stands on top and
# may use everything.
ROWS = (
    Layer("platform", "core/platform/", ""),
    Layer("values", "core/values/", "platform"),
    Layer("records", "core/records/", "values wording platform"),
    Layer("wording", "core/wording/", "platform"),
    Layer("forms", "core/forms/", "wording platform"),
    Layer("core", "core/", "records values forms wording platform"),
    Layer("parts", "screens/parts/", "core records values forms wording platform"),
    Layer("screens", "screens/", "parts core records values forms wording platform"),
    Layer("validation", "validation/", "core records values platform"),
    Layer("played", "frontends/played/", "screens core records values forms wording platform"),
    Layer("scripted", "frontends/scripted/", "played core forms wording platform"),
    # What plays scenarios on widgets is part of the folder.
    Layer("qt", "frontends/qt/", "played core forms wording platform", of_the_system=True, own_namespace=True),
    Layer("win32", "frontends/win32/", "played core forms wording platform", of_the_system=True, own_namespace=True),
    Layer("terminal", "frontends/terminal/", "played core forms wording platform", of_the_system=True,
          own_namespace=True),
    # What hosts on Windows create by name: the library, and the forms that it shows there.
    Layer("component", "component/", "win32 validation core records wording platform", of_the_system=True),
    # What hosts in C and in other languages load: the library, whose header is of C, and the front ends of its system.
    Layer("c", "bindings/c/", "scripted played validation core records values forms wording platform",
          of_the_system=True),
    Layer("c_posix", "bindings/c/posix/", "c terminal forms platform", of_the_system=True),
    Layer("c_windows", "bindings/c/windows/", "c win32 forms platform", of_the_system=True),
    Layer("c_qt", "bindings/c/qt/", "c qt forms platform"),
    # What a record says, for people.
    Layer("reading", "tools/reading/", "validation core records values wording platform"),
    # A payment as it is entered at a desk, on whatever that shows it.
    Layer("paying", "tools/paying/", "reading core records values wording platform"),
    # The program's outputs, inputs and terminal.
    Layer("files", "tools/fiscalon/files/", "reading validation records platform", of_the_system=True),
)
LAYERS = {row.name: row for row in ROWS}
TOP = ("tools/", "tests/", "examples/", "bench/", "include/")
QT_FOLDERS = ("frontends/qt/", "tools/desk/", "examples/qt_host/", "bench/qt/", "tests/")

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
# What differs between systems lies in folders of one system each. Nothing else calls a system, takes from such a
# folder, or asks which system it is on: CMake takes the right one.
POSIX_FOLDERS = ("core/platform/posix/", "tools/fiscalon/posix/", "tools/fiscalon/files/posix/", "bindings/c/posix/")
WINDOWS_FOLDERS = (
    "core/platform/windows/",
    "tools/fiscalon/windows/",
    "tools/fiscalon/files/windows/",
    "frontends/win32/",
    "component/",
    "bindings/c/windows/",
    "include/fiscalon/win32.h",
)
POSIX = re.compile(r"(sys/\w+|dirent|fcntl|langinfo|unistd)\.h")
WINDOWS = re.compile(r"(sys/\w+|fcntl|io|windows)\.h")
ASKS_WHICH_SYSTEM = re.compile(r"^\s*#\s*(?:el)?if.*(?:\b_?WIN(?:32|64)\b|__linux|__unix|__APPLE__|__MINGW|"
                               r"__has_include)")
# Core's own, and for tests that set what no host can.
TO_CHANGE = "core/module_to_change.h"
# Made by the build.
GENERATED = ("fiscalon_component.h",)
QT = re.compile(r"(Qt\w*/.*|Q[A-Z]\w*|q\w+\.h)")

# The standard library's paths are made of the system's own characters, so no text becomes one by itself: where it can,
# in a path that is made or declared by its type, and in a call that is given a text, and where a path becomes a text.
PATHS = "core/platform/utf8_path.h"
TEXT = re.compile(r"\bstd::string(?:_view)?[\s&]+(\w+)\s*[,);={]")
PATH_BY_HAND = re.compile(
    r"\bfilesystem::path\s*[({]"
    r"|\bfilesystem::path\s+[a-z]\w*\s*[({=]"
    r"|\b(?:namespace\s+\w+\s*=|using(?:\s+namespace)?)\s+std::filesystem\b"
    r"|\.(?:string|native|generic_string|u8string|generic_u8string)\(\)"
)
PATH_CALL = re.compile(r"\bfilesystem::\w+\((\w+)[,)]")

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]*)"|<([^>]*)>)')
NAMESPACE = re.compile(r"^namespace (fiscalon[\w:]*) {$", re.MULTILINE)
# A block of names alone, which declares what lies elsewhere.
FORWARD = re.compile(r"^namespace fiscalon {\n(?:(?:class|struct) \w+;\n)+}\n", re.MULTILINE)
LAYER_TARGET = re.compile(r"fiscalon_layer\(\s*(\w+)\s+(?:DEPENDS\s+([\w\s]*?)\s+)?SOURCES")


def layer_of(path):
    fitting = [row for row in ROWS if path.startswith(row.folder)]
    return max(fitting, key=lambda row: len(row.folder)) if fitting else None


def offence_of_quoted(tree, path, included):
    layer, other = layer_of(path), layer_of(included)
    if included in GENERATED:
        return None if path.startswith(("component/",) + TOP) else f'"{included}" belongs into component/'
    is_there = (tree / included).is_file() or (tree / "include" / included).is_file()
    if included.startswith(("./", "../")) or not is_there:
        return f'"{included}" is no file of the project, seen from its root'
    for folders in (POSIX_FOLDERS, WINDOWS_FOLDERS):
        if included.startswith(folders) and not path.startswith(folders + ("tests/", "examples/windows/")):
            return f'"{included}" is of one system'
    if included == TO_CHANGE and (layer is None or layer.name != "core") and not path.startswith("tests/"):
        return f'"{included}" is for core alone: others set the module by core/host_setup.h and Levyra'
    if layer is None or other == layer:
        return None
    if other is None:
        return f'{layer.name} may not include "{included}", which stands above it'
    if other.name not in layer.uses.split():
        return f'{layer.name} may not include "{included}" of {other.name}'
    return None


def offence_of_angled(path, included):
    if QT.fullmatch(included):
        return None if path.startswith(QT_FOLDERS) else f"<{included}>: Qt belongs into {' and '.join(QT_FOLDERS[:2])}"
    layer = layer_of(path)
    if layer is None or layer.of_the_system or included in STANDARD:
        return None
    if path.startswith(POSIX_FOLDERS) and POSIX.fullmatch(included):
        return None
    if path.startswith(WINDOWS_FOLDERS) and WINDOWS.fullmatch(included):
        return None
    return f"{layer.name} may not include <{included}>, which is not of the standard library"


def makes_a_path_by_hand(line, texts):
    call = PATH_CALL.search(line)
    return PATH_BY_HAND.search(line) or (call and call.group(1) in texts)


def source_offences(tree, path):
    text = (tree / path).read_text(encoding="utf-8", errors="replace")
    texts = set(TEXT.findall(text))
    minds_paths = path != PATHS and not path.startswith(WINDOWS_FOLDERS + ("tests/", "bench/"))
    may_ask = POSIX_FOLDERS + WINDOWS_FOLDERS + ("tests/", "bench/")
    for number, line in enumerate(text.splitlines(), start=1):
        if minds_paths and makes_a_path_by_hand(line, texts):
            yield (f'{path}:{number}: Utf8Path makes paths and Utf8Of reads them ("{PATHS}"); '
                   '"auto" holds what they give')
        if ASKS_WHICH_SYSTEM.match(line) and not path.startswith(may_ask):
            yield f"{path}:{number}: what differs between systems belongs into a folder of one system"
        match = INCLUDE.match(line)
        if not match:
            continue
        quoted, angled = match.groups()
        offence = offence_of_quoted(tree, path, quoted) if quoted is not None else offence_of_angled(path, angled)
        if offence:
            yield f"{path}:{number}: {offence}"


def namespace_offences(tree, path):
    layer = layer_of(path)
    if layer is None or not layer.own_namespace or Path(path).stem.endswith("_toolkit"):
        return
    text = (tree / path).read_text(encoding="utf-8", errors="replace")
    for match in NAMESPACE.finditer(FORWARD.sub(lambda names: "\n" * names.group().count("\n"), text)):
        if not f"{match.group(1)}::".startswith(f"fiscalon::{layer.name}::"):
            line = text.count("\n", 0, match.start()) + 1
            yield f"{path}:{line}: what {layer.name} defines lies in fiscalon::{layer.name}, but for its toolkits"


def target_offences(tree, path):
    text = (tree / path).read_text(encoding="utf-8")
    for match in LAYER_TARGET.finditer(text):
        layer, depends = match.group(1), set((match.group(2) or "").split())
        line = text.count("\n", 0, match.start()) + 1
        if layer not in LAYERS:
            yield f"{path}:{line}: the layer {layer} is not known to this check"
            continue
        for wrong in sorted(depends - set(LAYERS[layer].uses.split())):
            yield f"{path}:{line}: the target of {layer} may not link {wrong}"


def offences(tree):
    found, files = [], 0
    for top in sorted(set(row.folder.split("/")[0] for row in ROWS) | set(folder.rstrip("/") for folder in TOP)):
        for file in sorted((tree / top).rglob("*")):
            path = file.relative_to(tree).as_posix()
            if file.suffix in (".h", ".cpp"):
                files += 1
                found += source_offences(tree, path)
                found += namespace_offences(tree, path)
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
