#!/usr/bin/env python3
"""The table of which screen needs what of a payment is what the screens do: each is filled in once more for each
property, which is given another value, and either something that the user sees or the records are others, or nothing
is."""

import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
PROGRAM = os.environ.get("FISCALON_PROGRAM", "")
# What a payment is given instead. Codes of billers mean something each.
OTHERS = {
    "PaidAmount": ("99900",),
    "PaidDate": ("07012026",),
    "APHoldFlg": ("1",),
    "CompName": ('"Another Payee"',),
    "SeqNumber": ("0002",),
    "EnterName": ('"Somebody Else"',),
    "EnterTitle": ("Treasurer",),
    "CompCode": ("001055", "001052"),
    "NumberOfInfoCollect": ("5", "12"),
    "BusinessName": ('"A Business"',),
    "AccountNumber": ("12345",),
    "ZelmorNumber": ("12345",),
}


def codes_in(told, codes):
    """The screens of a cell: "all", "none", or codes and stretches of them."""
    if told in ("all", "none"):
        return set(codes) if told == "all" else set()
    named = set()
    for first, last in re.findall(r"(\d\d)(?: to (\d\d))?", told):
        named |= {code for code in codes if first <= code <= (last or first)}
    return named


@unittest.skipUnless(PROGRAM, "there is no program to show screens with")
class WhichScreenNeedsWhat(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        table = (TREE / "screens/launch_table.cpp").read_text(encoding="utf-8")
        forms = dict(re.findall(r'LaunchRow\{"(\d\d)", +"\w+", *"(\w+)"', table))
        drawn = {}
        for scenario in (TREE / "tests/scenarios").glob("*/*/picture*.scenario"):
            text = scenario.read_text(encoding="utf-8")
            drawn[re.search(r"(?m)^show (\d\d)$", text)[1]] = text
        # Where two codes show the same form, one picture is enough for both.
        self.scenarios = {}
        for code, form in forms.items():
            like = code if code in drawn else next(other for other, its in forms.items() if its == form
                                                   and other in drawn)
            self.scenarios[code] = re.sub(r"(?m)^show \d\d$", f"show {code}", drawn[like])

    def seen(self, code, text):
        """How the screen looks; nothing where its expectations are not met, its records among them."""
        scenario, picture = self.folder / "a.scenario", self.folder / "a.txt"
        scenario.write_text(text, encoding="utf-8")
        picture.unlink(missing_ok=True)
        command = [PROGRAM, "picture", code, "--toolkit", "terminal", "--out", picture, "--scenario", scenario]
        ran = subprocess.run(command, capture_output=True, text=True, cwd=self.folder)
        self.assertIn(ran.returncode, (0, 1), ran.stderr)
        return picture.read_text(encoding="utf-8") if ran.returncode == 0 else ""

    def counts(self, code, name, value):
        """Whether another value of a property makes a difference."""
        text = self.scenarios[code]
        given = re.sub(rf"(?m)^host {name} .*\n", "", text)
        return self.seen(code, re.sub(r"(?m)^show ", f"host {name} {value}\nshow ", given)) != self.looks[code]

    def test_is_told_as_it_is(self):
        page = (TREE / "docs/screens/README.md").read_text(encoding="utf-8")
        rows = re.findall(r"(?m)^\| (`\w+`(?:, `\w+`)*) \| ([^|]+) \|", page.partition("## Which screen needs what")[2])
        told = {name: cell.strip() for names, cell in rows for name in re.findall(r"`(\w+)`", names)}
        self.assertLessEqual(set(OTHERS), set(told))
        self.looks = {code: self.seen(code, text) for code, text in self.scenarios.items()}
        self.assertEqual([code for code, look in self.looks.items() if not look], [],
                         "their pictures are not what they were")
        for name, values in OTHERS.items():
            needed = {code for code in self.scenarios if any(self.counts(code, name, value) for value in values)}
            self.assertEqual(sorted(needed), sorted(codes_in(told[name], self.scenarios)), name)


if __name__ == "__main__":
    unittest.main()
