#!/usr/bin/env python3
"""Hosts in C#, compiled and run by Mono: every member of every class against the table of members, every function and
struct against what the library exports, hosts that do as they should and as they should not, the listings of the guide,
and the examples.

    dotnet_test.py MCS MONO LIBRARY"""

import json
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[3]
HERE = Path(__file__).resolve().parent
SOURCE = TREE / "bindings/dotnet/Fiscalon.cs"
MCS, MONO, LIBRARY = sys.argv[1:4]
del sys.argv[1:4]
sys.path.insert(0, str(HERE))
sys.dont_write_bytecode = True
import members_program  # noqa: E402

TEXT = SOURCE.read_text(encoding="utf-8")
ENVIRONMENT = {**os.environ, "LD_LIBRARY_PATH": str(Path(LIBRARY).parent), "LC_ALL": "C.UTF-8"}
RECORDS = (
    "PC40001T" + " " * 16 + "202412  " + " " * 8 + "Hélène Côté".ljust(30) + "Clerk".ljust(20) + " " * 70 + "\n"
    "PC40001F" + "01000000000000012345" + "".join(f"{n:02}" + "0" * 18 for n in (2, 3, 4)) + " " * 72 + "\n"
)


def lines_of(path):
    return (TREE / path).read_text(encoding="utf-8").splitlines()


class Hosts(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.place = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.place.name)
        cls.library = cls.folder / "Fiscalon.dll"
        cls.compiled(cls.library, SOURCE, "-target:library", f"-doc:{cls.folder}/Fiscalon.xml")

    @classmethod
    def tearDownClass(cls):
        cls.place.cleanup()

    @classmethod
    def compiled(cls, out, *sources_and_options):
        """Warnings are errors, missing comments on public members too where these are asked for."""
        command = [MCS, "-langversion:latest", "-warnaserror", "-warn:4", f"-out:{out}", *map(str, sources_and_options)]
        ended = subprocess.run(command, capture_output=True, text=True)
        if ended.returncode != 0:
            raise AssertionError(ended.stdout + ended.stderr)
        return out

    def host(self, name, *sources_and_options):
        return self.compiled(self.folder / f"{name}.exe", *sources_and_options, f"-r:{self.library}")

    def run_host(self, program, *arguments):
        return subprocess.run([MONO, program, *arguments], env=ENVIRONMENT, capture_output=True, text=True, timeout=120,
                              cwd=self.folder)  # fmt: skip

    def assert_prints(self, program, printed):
        ended = self.run_host(program)
        self.assertEqual((ended.stdout, ended.stderr, ended.returncode), (printed, "", 0))

    def test_compile_for_windows_too(self):
        self.compiled(self.folder / "Windows.dll", SOURCE, "-target:library", "-define:WINDOWS")

    def test_declare_the_functions_of_the_library_and_no_others(self):
        declared = re.findall(r"(?m)^        internal static extern \w+ (\w+)\(", TEXT)
        self.assertEqual(sorted(set(declared)), sorted(lines_of("bindings/c/exports.txt")))

    def test_use_every_function_that_they_declare(self):
        code, declarations = TEXT.split("internal static class Native\n")
        for name in re.findall(r"extern \w+ (\w+)\(", declarations):
            self.assertRegex(code, rf"Native\.{name}\b")

    def test_lay_structs_out_as_the_library_does(self):
        wanted = [re.sub(r"^  \w+ (\d+) \d+$", r"  \1", line) for line in lines_of("bindings/c/layouts.txt")]
        ended = self.run_host(self.host("HostLayouts", HERE / "HostTests.cs"), "layouts")
        told = re.split(r"\n(?=\w)", ended.stdout.strip("\n"))
        self.assertEqual(sorted(told), sorted(re.split(r"\n(?=\w)", "\n".join(wanted))))

    def test_do_what_hosts_do_and_should_not(self):
        # The structs are the file's own, so it is compiled along.
        program = self.compiled(self.folder / "HostTests.exe", SOURCE, HERE / "HostTests.cs")
        ended = self.run_host(program)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""), ended.stdout)
        self.assertGreater(ended.stdout.count("ok "), 15)

    @unittest.skipUnless((TREE / "bindings/members.json").exists(), "there is no table of members")
    def test_have_the_members_of_the_table_with_their_errors(self):
        source = self.folder / "Members.cs"
        source.write_text(members_program.program(json.loads((TREE / "bindings/members.json").read_text("utf-8"))),
                          "utf-8")
        ended = self.run_host(self.host("Members", source))
        self.assertEqual((ended.stdout.splitlines()[-1:], ended.stderr), (["0 failed"], ""), ended.stdout)

    def test_are_what_the_guide_lists(self):
        guide = self.folder / "guide"
        subprocess.run([sys.executable, TREE / "tests/examples/host/listings.py", TREE / "docs/host-guide-csharp.md",
                        guide],
                       check=True)  # fmt: skip
        self.assert_prints(self.host("GuideHost", guide / "host/Program.cs"), RECORDS)
        self.assert_prints(self.host("GuideBulk", guide / "bulk/Program.cs"),
                           "Field 01 Amount of Payment is not equal to amount to be paid\n0001: good\n0002: "
                           "Field 01 Amount of Payment is not equal to amount to be paid\n")  # fmt: skip
        self.assert_prints(self.host("GuideTest", guide / "host_test/Program.cs"), "")

    def test_are_the_example(self):
        self.assert_prints(self.host("Example", TREE / "examples/csharp_host/Program.cs"), RECORDS)

    def test_are_what_the_readme_shows(self):
        readme = (TREE / "README.md").read_text(encoding="utf-8")
        listing = re.search(r"(?ms)^```csharp readme/Program.cs\n(.*?)^```$", readme).group(1)
        self.assertLessEqual(len(listing.splitlines()), 10)
        self.assertIn('UseFrontEnd("qt")', listing)
        source = self.folder / "Readme.cs"
        # What it stands in, and a user who accepts in the place of windows.
        source.write_text("""using Fiscalon;
static class Host
{
    static void Send(string record) => System.Console.WriteLine(record.Length);
    static void FillAndConfirm(Form form) { form.Type("202412"); form.Type("12345"); form.Click("cmdOK"); }
    static void Main()
    {
""" + listing.replace('UseFrontEnd("qt")', "UseScriptedUser(new ScriptedUser { OnForm = FillAndConfirm })")
                          + "    }\n}\n",
                          encoding="utf-8")  # fmt: skip
        self.assert_prints(self.host("Readme", source), "160\n160\n")

    def test_in_the_guide_for_windows_compile(self):
        guide = (TREE / "docs/windows-guide.md").read_text(encoding="utf-8")
        listing = re.search(r"(?m)^    dynamic payment = .*\n(?:    .*\n)+", guide).group(0)
        source = self.folder / "Component.cs"
        source.write_text("using System;\nstatic class Host\n{\n    [STAThread]\n    static void Main()\n    {\n"
                          + listing + "    }\n}\n", encoding="utf-8")  # fmt: skip
        self.compiled(self.folder / "Component.exe", source, "-r:Microsoft.CSharp.dll")


if __name__ == "__main__":
    unittest.main()
