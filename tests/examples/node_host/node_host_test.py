#!/usr/bin/env python3
"""The host for Node gets records, False and errors from the program, of a form in the terminal that it is started from.

    node_host_test.py PROGRAM

Exit status 77: skipped, for want of node."""

import shutil
import sys
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(TREE / "tests/tools/fiscalon/commands"))
sys.dont_write_bytecode = True
import collect_json_test as collect  # noqa: E402

NODE = shutil.which("node")


def host(*arguments):
    return collect.Terminal(None, *arguments, command=(NODE, TREE / "examples/node_host/payment.js"),
                            environment={"FISCALON_PROGRAM": collect.PROGRAM})  # fmt: skip


class NodeHost(unittest.TestCase):
    def test_prints_the_records(self):
        out, err, status = collect.fill_at(host("15"))
        period = "PC40001T" + " " * 16 + "202512  "
        self.assertEqual(out.decode(), period.ljust(160) + "\n" + collect.F_RECORD + "\n")
        self.assertEqual((err, status), (b"", 0))

    def test_tells_that_the_user_cancelled(self):
        terminal = host("15")
        terminal.until("Taxation year ends on:")
        terminal.type("\x1b")
        self.assertEqual(terminal.ended(), (b"", b"Cancelled.\n", 1))

    def test_tells_errors_with_their_remedy(self):
        out, err, status = host("99").ended()
        self.assertEqual((out, status), (b"", 2))
        self.assertRegex(err.decode(), "^Fiscalon.ShowLevyraScreen: Invalid Screen Type\n  there is no screen \"99\";")
        _, err, status = host("15", "--toolkit", "paper").ended()
        self.assertEqual(status, 2)
        self.assertIn('"paper" is none of', err.decode())


if __name__ == "__main__":
    if NODE is None:
        print("skipped: node is not installed (docs/dependencies.md)")
        sys.exit(77)
    unittest.main()
