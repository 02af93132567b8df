#!/usr/bin/env python3
"""Checks the packages for Windows: their checksums, what is in a ZIP, and what its library and program need; and that
an installer package has the very files of the ZIP beside it.

    check_windows_packages.py ZIP|MSI...

Prints one line per offence and exits with 1 if there is any."""

import hashlib
import re
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path

import notices

# Folders that hold something, whatever it is.
FOLDERS = ("dotnet/", "examples/", "include/fiscalon/", "lib/cmake/fiscalon-c/", "lib/cmake/fiscalon/",
           "operator-guide/", "operator-guide.fr/", "schemas/")
FILES = set(
    """CHANGELOG.md LICENSE THIRD-PARTY.txt fiscalon-c.dll fiscalon.dll fiscalon.exe fiscalon.manifest fiscalon.tlb
    fiscalon_component.h lib/fiscalon/common_controls.o lib/libfiscalon-c.dll.a lib/libfiscalon.a
    lib/libfiscalon_win32.a lib/pkgconfig/fiscalon-c.pc lib/pkgconfig/fiscalon-win32.pc lib/pkgconfig/fiscalon.pc
    operator-guide.fr.md operator-guide.md windows-guide.md""".split()
)
LIST_OF_C = Path(__file__).resolve().parents[2] / "bindings/c/exports.txt"
EXPORTS = {
    "fiscalon.dll": {"DllCanUnloadNow", "DllGetClassObject", "DllInstall", "DllRegisterServer", "DllUnregisterServer"},
    "fiscalon-c.dll": set(LIST_OF_C.read_text(encoding="utf-8").split()),
}
# What every Windows has.
SYSTEM_LIBRARIES = set(
    """advapi32 comctl32 comdlg32 gdi32 gdiplus kernel32 msvcrt ole32 oleaut32 oleacc shell32 shlwapi user32
    uxtheme""".split()
)
MOST_BYTES = 4 * 1024 * 1024
FORMATS = {"x86_64": "pei-x86-64", "x86": "pei-i386"}


def headers_of(bytes_):
    """What the tool for object files tells of a program or a library."""
    with tempfile.NamedTemporaryFile() as file:
        file.write(bytes_)
        file.flush()
        command = ["x86_64-w64-mingw32-objdump", "-p", file.name]
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def offences_of_binary(name, bytes_, wanted_format):
    headers = headers_of(bytes_)
    if f"file format {wanted_format}\n" not in headers:
        yield f"{name} is not of the format {wanted_format}"
    imports = {library.lower().removesuffix(".dll") for library in re.findall(r"DLL Name: (\S+)", headers)}
    if not imports:
        yield f"{name} imports nothing, which can't be"
    for library in sorted(imports - SYSTEM_LIBRARIES):
        yield f"{name} needs {library}.dll, which is not the system's"
    if name.endswith(".dll"):
        exports = set(re.findall(r"^\s*\[ *\d+\] (\S+)$", headers.partition("[Ordinal/Name Pointer] Table")[2], re.M))
        if exports != EXPORTS[name]:
            yield f"{name} exports {sorted(exports)}, not {sorted(EXPORTS[name])}"
        if len(bytes_) >= MOST_BYTES:
            yield f"{name} has {len(bytes_)} bytes; {MOST_BYTES} are too many"


def offences_of_checksum(path):
    beside = Path(f"{path}.sha256")
    if not beside.is_file():
        return [f"there is no {beside.name}"]
    told, _, name = beside.read_text().strip().partition("  ")
    if (told, name) != (hashlib.sha256(path.read_bytes()).hexdigest(), path.name):
        return [f"{beside.name} does not tell the file's checksum"]
    return []


def offences_of(path):
    match = re.fullmatch(r"(fiscalon-[\d.]+-windows-(x86_64|x86))\.zip", path.name)
    if not match:
        yield "the name is not that of a package"
        return
    folder, architecture = match.groups()
    yield from offences_of_checksum(path)
    with zipfile.ZipFile(path) as package:
        names = [name for name in package.namelist() if not name.endswith("/")]
        inside = {name.removeprefix(f"{folder}/") for name in names if name.startswith(f"{folder}/")}
        if len(inside) != len(names):
            yield f"not all files lie in {folder}/"
        for name in sorted(FILES - inside):
            yield f"{name} is missing"
        for name in sorted(name for name in inside - FILES if not name.startswith(FOLDERS)):
            yield f"{name} does not belong into it"
        for wanted in FOLDERS:
            if not any(name.startswith(wanted) for name in inside):
                yield f"nothing lies in {wanted}"
        for name in sorted(name for name in inside & FILES if name.endswith((".dll", ".exe"))):
            yield from offences_of_binary(name, package.read(f"{folder}/{name}"), FORMATS[architecture])
        if "THIRD-PARTY.txt" in inside:
            told = package.read(f"{folder}/THIRD-PARTY.txt").decode()
            linked = b"".join(package.read(f"{folder}/{name}") for name in inside if name.endswith((".dll", ".exe")))
            yield from notices.offences_of(told, linked)


def files_of_installer(path):
    """What it installs: the bytes of each file by its name below the folder of the component."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["msiextract", "-C", folder, path.resolve()], check=True, capture_output=True)
        files = [file for file in Path(folder).rglob("*") if file.is_file()]
        root = next((file.parent for file in files if file.name == "fiscalon.dll"), Path(folder))
        return {file.relative_to(root).as_posix(): file.read_bytes() for file in files}


def offences_of_installer(path):
    match = re.fullmatch(r"(fiscalon-[\d.]+-windows-(?:x86_64|x86))(-user)?\.msi", path.name)
    if not match:
        yield "the name is not that of a package"
        return
    yield from offences_of_checksum(path)
    beside = path.with_name(f"{match.group(1)}.zip")
    if not beside.is_file():
        yield f"there is no {beside.name} to compare with"
        return
    with zipfile.ZipFile(beside) as package:
        packed = {name.partition("/")[2]: package.read(name) for name in package.namelist() if not name.endswith("/")}
    installed = files_of_installer(path)
    for name in sorted(packed.keys() | installed.keys()):
        if name not in installed:
            yield f"{name} is missing, which the ZIP has"
        elif name not in packed:
            yield f"{name} is no file of the ZIP"
        elif packed[name] != installed[name]:
            yield f"{name} is not that of the ZIP"


def main(arguments):
    found = []
    for path in map(Path, arguments):
        offences = offences_of_installer(path) if path.suffix == ".msi" else offences_of(path)
        found += [f"{path}: {offence}" for offence in offences]
    print("\n".join(found or [f"{len(arguments)} packages are right"]))
    return 1 if found or not arguments else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
