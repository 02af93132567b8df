#!/usr/bin/env python3
"""Makes Windows Installer packages of the ZIP files for Windows: of each ZIP one for all users of a machine and one for
a user, beside it, with their checksums. They hold what the ZIP holds, and register the component by plain rows.

    make_msi.py --keys PROGRAM [--version VERSION] ZIP...

PROGRAM is component/list_registered_keys.exe of the 64-bit build, which prints those rows and is run by Wine.
--version is for trials: as if the ZIP were of that version. Where FISCALON_SIGN is set, packages are signed by it. Ends
with 2, and a reason, where something is not as it must be."""

import argparse
import hashlib
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import uuid
import zipfile
from pathlib import Path
from typing import NamedTuple
from xml.etree import ElementTree

WINE = Path(__file__).with_name("wine.sh")
# All identifiers are made from it, and the same in each version. It never changes: by them the installer knows what it
# has installed before.
NAMESPACE = uuid.UUID("3cb67beb-b85f-4415-b417-fd5493cdd5b1")
LIBRARY = "fiscalon.dll"
VERSION_RESOURCE = "VS_VERSION_INFO".encode("utf-16-le")


class Architecture(NamedTuple):
    # As wixl names it, and as the type library does.
    name: str
    word_size: str
    is_64_bit: str
    programs: str
    product: str


ARCHITECTURES = {
    "x86_64": Architecture("x64", "win64", "yes", "ProgramFiles64Folder", "Fiscalon"),
    "x86": Architecture("x86", "win32", "no", "ProgramFilesFolder", "Fiscalon (32-bit)"),
}


class Audience(NamedTuple):
    name: str
    suffix: str
    scope: str
    root: str
    # Who may not install it is told why.
    needs: str = ""


AUDIENCES = (
    Audience("machine", "", "perMachine", "HKLM", "Privileged"),
    Audience("user", "-user", "perUser", "HKCU"),
)
MANY_RIGHTS = "Only an administrator installs Fiscalon for all users. The package that ends with -user needs none."
NEWER = "A newer version of Fiscalon is installed. Remove it first to have this one."


class Package(NamedTuple):
    version: str
    architecture: Architecture
    audience: Audience

    def identifier(self, what):
        return str(uuid.uuid5(NAMESPACE, f"{self.architecture.name} {self.audience.name} {what}")).upper()

    def identifier_of_both_word_sizes(self, what):
        return str(uuid.uuid5(NAMESPACE, f"{self.audience.name} {what}")).upper()


class RegisteredValue(NamedTuple):
    owner: str
    key: str
    name: str
    text: str


def fail(reason):
    print(f"make_msi: {reason}", file=sys.stderr)
    sys.exit(2)


def run(*command, **settings):
    try:
        arguments = [str(part) for part in command]
        return subprocess.run(arguments, check=True, text=True, capture_output=True, **settings).stdout
    except FileNotFoundError:
        fail(f"{command[0]} is missing: install the Debian package wixl or msitools")
    except subprocess.CalledProcessError as failed:
        fail(f"{Path(str(command[0])).name} failed: {failed.stderr.strip() or failed.stdout.strip()}")


def registered_values(program, architecture):
    """What the component registers, with what the installer puts in place of paths."""
    printed = run(WINE, program, f"[#{LIBRARY}]", "[INSTALLDIR]", architecture.word_size)
    values = [RegisteredValue(*line.split("\t")) for line in printed.splitlines()]
    if not values:
        fail(f"{program} prints nothing that could be registered")
    return values


def add(parent, kind, **attributes):
    return ElementTree.SubElement(parent, kind, attributes)


def add_component(parent, feature, package, name, identifier):
    add(feature, "ComponentRef", Id=name)
    return add(parent, "Component", Id=name, Guid=identifier, Win64=package.architecture.is_64_bit)


def add_values(component, package, values):
    for value in values:
        # A text of nothing would not be written: a property that nobody sets stands for it.
        attributes = {"Root": package.audience.root, "Key": f"Software\\Classes\\{value.key}", "Type": "string"}
        attributes["Value"] = value.text or "[NOTHING]"
        if value.name:
            attributes["Name"] = value.name
        add(component, "RegistryValue", **attributes)


def identifier_of(inside):
    """Of a file or a folder, by its path in the package; that of the library is a name, for rows to refer to."""
    return inside if inside == LIBRARY else "x" + uuid.uuid5(NAMESPACE, inside).hex


def add_files(parent, feature, package, folder, files, values):
    """The files of a folder and those below it, each a component of its own, as upgrades want it."""
    for path in sorted(folder.iterdir()):
        inside = path.relative_to(files).as_posix()
        name = identifier_of(inside)
        if path.is_dir():
            add_files(add(parent, "Directory", Id=name, Name=path.name), feature, package, path, files, values)
            continue
        component = add_component(parent, feature, package, f"c.{name}", package.identifier(f"file {inside}"))
        add(component, "File", Id=name, Name=path.name, Source=inside, KeyPath="yes")
        if inside == LIBRARY:
            add_values(component, package, [value for value in values if value.owner == "one"])


def add_folders(product, package):
    """Where it is installed: the last of these."""
    folder = add(product, "Directory", Id="TARGETDIR", Name="SourceDir")
    if package.audience.name == "machine":
        folder = add(folder, "Directory", Id=package.architecture.programs)
    else:
        folder = add(add(folder, "Directory", Id="LocalAppDataFolder"), "Directory", Id="Programs", Name="Programs")
    return add(folder, "Directory", Id="INSTALLDIR", Name=package.architecture.product)


def source_of(package, files, values):
    """What wixl compiles."""
    wix = ElementTree.Element("Wix", xmlns="http://schemas.microsoft.com/wix/2006/wi")
    product = add(
        wix, "Product", Id=package.identifier(package.version), Name=package.architecture.product, Language="1033",
        Version=package.version, Manufacturer="Fiscalon contributors", UpgradeCode=package.identifier("upgrades"),
    )  # fmt: skip
    add(
        product, "Package", InstallerVersion="500", Compressed="yes", InstallScope=package.audience.scope,
        Description="Fiscalon", Comments="Collects the details of government remittances in Canada and checks them",
    )  # fmt: skip
    add(product, "MajorUpgrade", DowngradeErrorMessage=NEWER)
    if package.audience.needs:
        add(product, "Condition", Message=MANY_RIGHTS).text = package.audience.needs
    add(product, "Media", Id="1", Cabinet="fiscalon.cab", EmbedCab="yes")
    add(product, "Property", Id="ARPNOMODIFY", Value="1")
    feature = ElementTree.Element("Feature", Id="Fiscalon", Level="1", Title="Fiscalon")
    folder = add_folders(product, package)
    add_files(folder, feature, package, files, files, values)
    # The installer takes what is common away with the last product that has it.
    common = package.identifier_of_both_word_sizes("names")
    names = add_component(folder, feature, package, "names", common)
    add_values(names, package, [value for value in values if value.owner == "both"])
    names[0].set("KeyPath", "yes")
    product.append(feature)
    return ElementTree.tostring(wix, encoding="unicode")


def write_checksum(path):
    checksum = hashlib.sha256(path.read_bytes()).hexdigest()
    path.with_name(f"{path.name}.sha256").write_text(f"{checksum}  {path.name}\n", encoding="utf-8")


def make(package, files, values, made):
    with tempfile.TemporaryDirectory() as folder:
        source = Path(folder, "fiscalon.wxs")
        source.write_text(source_of(package, files, values), encoding="utf-8")
        part = Path(folder, made.name)
        run("wixl", "--arch", package.architecture.name, "--output", part, source, cwd=files)
        # Without its version a file would be taken for older than any on the machine, and left out of an upgrade.
        for file in files.iterdir():
            if file.is_file() and VERSION_RESOURCE in file.read_bytes():
                run("msibuild", part, "-q", f"UPDATE `File` SET `Version` = '{package.version}.0', `Language` = '4105' "
                    f"WHERE `File` = '{identifier_of(file.name)}'")  # fmt: skip
        if os.environ.get("FISCALON_SIGN"):
            run(*shlex.split(os.environ["FISCALON_SIGN"]), part)
        shutil.copyfile(part, made)
    write_checksum(made)


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--keys", type=Path, required=True, metavar="PROGRAM")
    parser.add_argument("--version")
    parser.add_argument("zips", type=Path, nargs="+", metavar="ZIP")
    told = parser.parse_args(arguments)
    for path in told.zips:
        match = re.fullmatch(r"fiscalon-([\d.]+)-windows-(x86_64|x86)\.zip", path.name)
        if not match:
            fail(f"{path.name} is not the name of a package for Windows")
        version, label = told.version or match.group(1), match.group(2)
        architecture = ARCHITECTURES[label]
        values = registered_values(told.keys, architecture)
        with tempfile.TemporaryDirectory() as folder, zipfile.ZipFile(path) as package:
            package.extractall(folder)
            for audience in AUDIENCES:
                made = path.with_name(f"fiscalon-{version}-windows-{label}{audience.suffix}.msi")
                make(Package(version, architecture, audience), Path(folder, path.stem), values, made)
                print(made)


if __name__ == "__main__":
    main(sys.argv[1:])
