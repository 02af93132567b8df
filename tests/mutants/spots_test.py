#!/usr/bin/env python3
"""Which changes are found in a source, and what becomes of it behind the switches."""

import os
import pathlib
import subprocess
import tempfile
import types
import unittest

import run
import spots
from build import TREE, Test
from known import Known


def labels(text):
    return [spot.label for spot in spots.spots_of(text)]


def body(statement):
    """What is found in a function of one statement."""
    return labels(f"int F(int a, int b) {{\n{statement}\n}}\n")


def all_switched(text):
    return spots.switched(text, list(enumerate(spots.spots_of(text), 1)))[0]


class Spots(unittest.TestCase):
    def test_a_comparison_becomes_others(self):
        self.assertEqual(body("return a < b;"), ["return a [< -> <=] b;", "return a [< -> >=] b;"])
        self.assertEqual(body("return a == b;"), ["return a [== -> !=] b;"])

    def test_sums_products_and_both_kinds_of_conjunction_become_their_opposites(self):
        self.assertEqual(body("return a + b;"), ["return a [+ -> -] b;"])
        self.assertEqual(body("return a * b;"), ["return a [* -> /] b;"])
        self.assertEqual(body("return a && b;"), ["return a [&& -> ||] b;"])

    def test_texts_are_not_subtracted(self):
        self.assertEqual(body('return a + "b";'), ['return a + ["b" -> + "~"];'])

    def test_a_condition_is_turned_round_and_never_met(self):
        self.assertEqual(body("if (a) b;"), ["[if -> if never] (a) b;", "[if -> if not] (a) b;"])

    def test_a_condition_that_declares_something_stays(self):
        self.assertEqual(body("if (int c = a) b;"), [])
        self.assertEqual(
            body("if (int c = a; c) b;"), ["[if -> if never] (int c = a; c) b;", "[if -> if not] (int c = a; c) b;"]
        )

    def test_a_condition_of_the_compiler_is_its_own(self):
        found = spots.spots_of("void F() {\nif constexpr (kA == 1)\nb = 2;\n}\n")
        self.assertEqual([spot.early for spot in found if "kA" in spot.label], [True, True])
        self.assertEqual([spot.early for spot in found if "kA" not in spot.label], [False])

    def test_a_number_is_one_more(self):
        self.assertEqual(body("return 159;"), ["return [159 -> 160];"])
        self.assertEqual(body("return 0x1F;"), ["return [0x1F -> 0x20];"])
        self.assertEqual(body("return 1'000;"), [])

    def test_a_text_is_longer_and_a_character_the_next(self):
        self.assertEqual(body('return "ab"\n"cd";'), ['["cd" -> + "~"];'])
        self.assertEqual(body("return 'a';"), ["return ['a' -> 'b'];"])

    def test_a_statement_for_its_effect_goes(self):
        self.assertEqual(body("a.b(c);"), ["[a.b(c); -> gone]"])
        self.assertEqual(body("a = b;"), ["[a = b; -> gone]"])
        self.assertEqual(body("++a;"), ["[++a; -> gone]"])
        self.assertEqual(body("for (;;) break;"), ["for (;;) [break; -> gone]"])

    def test_a_declaration_and_a_value_stay(self):
        for statement in ("Type a(b);", "const Type* a = b;", "return a;", "std::vector<int> a;", "return a(b);"):
            self.assertEqual(body(statement), [], statement)

    def test_the_arguments_of_a_function_without_a_name_stay(self):
        self.assertEqual(body("[&](auto a) { b; }\n  (c);"), [])

    def test_what_is_no_code_stays(self):
        for text in ('#include "a.h"', "// a < 1", "/* 2 */", 'static_assert(3 < 4, "5");', "enum class E { A = 6 };"):
            self.assertEqual(labels(f"{text}\n"), [], text)

    def test_template_arguments_are_no_comparisons(self):
        self.assertEqual(body("return std::max<int>(a, b);"), [])
        self.assertEqual(body("return Take<Frame{1, 2}>(a, b);"), [])

    def test_the_same_seed_draws_the_same(self):
        text = "int F(int a) { return a + 1 + 2 + 3 + 4 + 5 + 6 + 7; }\n"
        one, every = run.sampled("a.cpp", text, 3, 1)
        self.assertEqual((len(one), every), (3, len(labels(text))))
        self.assertEqual(one, run.sampled("a.cpp", text, 3, 1)[0])
        self.assertNotEqual(one, run.sampled("a.cpp", text, 3, 2)[0])


class Switches(unittest.TestCase):
    def test_a_change_takes_in_both_sides_and_no_more(self):
        text = "int F() { return x.f(a) + b[c] < d; }\n"
        sums = [(1, spot) for spot in spots.spots_of(text) if "[+ -> -]" in spot.label]
        self.assertEqual(
            spots.switched(text, sums)[0],
            "int F() { return (mutants::Is(1) ? (x.f(a) - b[c]) : (x.f(a) + b[c])) < d; }\n",
        )

    def test_changes_within_changes(self):
        self.assertEqual(
            all_switched("int F() { return a && b == c; }\n"),
            "int F() { return (mutants::Is(1) ? (a || b == c) : (a && (mutants::Is(2) ? (b != c) : (b == c)))); }\n",
        )

    def test_a_statement_that_goes_takes_no_else_with_it(self):
        self.assertEqual(
            all_switched("void F() {\n  if (bool b = c) d();\n  else e();\n}\n"),
            "void F() {\n  if (bool b = c) { if (!mutants::Is(1)) d(); }\n  else { if (!mutants::Is(2)) e(); }\n}\n",
        )

    def test_a_constant_that_is_changed_becomes_a_variable(self):
        text = "constexpr int kA = 1;\nconstexpr int kB = kA;\n"
        self.assertEqual(
            all_switched(text), "const int kA = (mutants::On(1) ? (2) : (1));\nconstexpr int kB = kA;\n"
        )
        self.assertEqual(all_switched('constexpr const char* kA = "b";\n')[:15], " const char* kA")

    def test_each_change_runs_when_it_is_on_and_is_told_when_it_was_reached(self):
        text = """
constexpr int kLimit = 10;
constexpr int Twice(int a) { return a * 2; }
static_assert(Twice(2) == 4);
int main(int count, char**) {
  if (count < 1)
    return 99;
  return Twice(count) + kLimit;
}
"""
        found = spots.spots_of(text)
        numbers = {spot.label: number for number, spot in enumerate(found, 1)}
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "a.cpp").write_text(f'#include "{TREE / run.SWITCH}"\n{all_switched(text)}')
            compiler = os.environ.get("CXX", "g++")
            subprocess.run([compiler, "-std=c++20", "-O0", "-o", folder / "a", folder / "a.cpp"], check=True)

            def status(number=0):
                surroundings = {"FISCALON_MUTANT": str(number), "FISCALON_MUTANTS_REACHED": str(folder / "r")}
                return subprocess.run([folder / "a"], env=surroundings, check=False).returncode

            self.assertEqual(status(), 12)
            reached = set(map(int, (folder / "r").read_text().split()))
            self.assertEqual(reached, set(numbers.values()) - {numbers["return [99 -> 100];"]})
            self.assertEqual(status(numbers["constexpr int kLimit = [10 -> 11];"]), 13)
            self.assertEqual(status(numbers["[if -> if not] (count < 1)"]), 99)
            self.assertEqual(status(numbers["return Twice(count) [+ -> -] kLimit;"]), 256 - 8)
            self.assertEqual(status(numbers["constexpr int Twice(int a) { return a * [2 -> 3]; }"]), 13)


class Judged:
    """A judge of tests that fail by every change."""

    def __init__(self, failing, reaching):
        self.failing, self.asked = failing, []
        self.reaching = {1: [Test(name, (f"{name}_program",), "") for name in reaching]}

    def is_own(self, program, _source):
        return program.startswith("own")

    def kills(self, tests, _source, _number):
        self.asked += [test.name for test in tests]
        return any(test.name in self.failing for test in tests)


class FirstLook(unittest.TestCase):
    """Which tests are asked of a change, and whether one of them fails by it."""

    def look(self, failing, reaching, near=True, known=""):
        judge = Judged(failing, reaching)
        options = types.SimpleNamespace(folder=pathlib.Path(self.folder), near=near)
        mutant = run.Mutant(1, "a/b.cpp", None, "change")
        return run.Run(options).kills(judge, mutant, Known(known)), judge.asked

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def test_is_at_the_tests_of_the_folder_and_the_scenarios(self):
        self.assertEqual(self.look(["own"], ["far", "own", "scripted/a"]), (True, ["own", "scripted/a"]))

    def test_goes_on_to_the_others_where_these_pass(self):
        self.assertEqual(self.look(["far"], ["far", "own"]), (True, ["own", "far"]))
        self.assertEqual(self.look([], ["far", "own"]), (False, ["own", "far"]))

    def test_goes_no_further_where_nobody_could_see_the_change(self):
        self.assertEqual(self.look(["far"], ["far", "own"], known="a/b.cpp: change\n  Why.\n"), (False, ["own"]))

    def test_is_at_the_others_where_the_folder_has_none(self):
        self.assertEqual(self.look(["far"], ["far"], known="a/b.cpp: change\n  Why.\n"), (True, ["far"]))

    def test_is_at_all_without_it(self):
        self.assertEqual(self.look([], ["far", "own"], near=False), (False, ["far", "own"]))


class KnownChanges(unittest.TestCase):
    def test_have_their_reasons(self):
        known = Known("# A comment\n\na/b.cpp: if (a [< -> <=] b)\n  Both are\n  the same.\n\na/c.cpp: x\n  y\n")
        self.assertEqual(known.reason("a/b.cpp", "if (a [< -> <=] b)"), "Both are the same.")
        self.assertEqual(known.reason("a/b.cpp", "if (a [< -> <=] b) #2"), "Both are the same.")
        self.assertEqual(known.reason("a/c.cpp", "if (a [< -> <=] b)"), "")

    def test_all_have_one_and_a_source(self):
        known = Known.read(TREE / "tests/mutants/equivalent.txt")
        for (source, change), reason in known.reasons.items():
            self.assertTrue(reason, change)
            self.assertTrue((TREE / source).is_file(), source)
            every = {spot.label for spot in spots.spots_of((TREE / source).read_text(), source.endswith(".h"))}
            self.assertIn(change.split(" #")[0], every, source)


if __name__ == "__main__":
    unittest.main()
