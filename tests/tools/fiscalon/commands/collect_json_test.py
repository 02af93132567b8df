#!/usr/bin/env python3
"""What programs send to `fiscalon collect --json` and get from it: held against the schemas that are installed, and
written out. A user at a terminal that the program is started from fills the forms.

    collect_json_test.py PROGRAM"""

import fcntl
import json
import os
import re
import select
import signal
import subprocess
import sys
import tempfile
import termios
import time
import unittest
from pathlib import Path

import jsonschema

PROGRAM = os.path.abspath(sys.argv.pop(1))
SCHEMAS = Path(__file__).resolve().parents[4] / "tools/fiscalon/schemas"
REQUEST, ANSWER = (
    jsonschema.Draft202012Validator(json.loads((SCHEMAS / f"collect-{name}.schema.json").read_text(encoding="utf-8")))
    for name in ("request", "answer")
)
ENVIRONMENT = {**os.environ, "LC_ALL": "C.UTF-8", "TERM": "xterm-256color"}
for variable in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "NO_COLOR"):
    ENVIRONMENT.pop(variable, None)

PAYMENT = {"CompName": "Summit Levies", "PaidAmount": "12345", "PaidDate": "06152026", "EnterName": "Hélène Côté",
           "EnterTitle": "Clerk", "SeqNumber": "0001"}  # fmt: skip
T_RECORD = "PC40001T" + " " * 16 + "202512  " + " " * 8 + "Hélène Côté".ljust(30) + "Clerk".ljust(20) + " " * 70
F_RECORD = ("PC40001F" + "01000000000000012345" + "".join(f"{n:02}" + "0" * 18 for n in (2, 3, 4))).ljust(160)
# What a request ends with that nothing is wrong with, where nobody can be shown a form.
NOBODY = ("there is no display to show the form on; set DISPLAY or WAYLAND_DISPLAY; standard input is no terminal; "
          "start it in one, without a pipe", "this build has no Qt front end; build it with FISCALON_QT=ON; standard "
          "input is no terminal; start it in one, without a pipe")  # fmt: skip
PROPERTIES = ("ZelmorNumber, CompCode, CompName, AccountNumber, PaidAmount, PaidDate, NumberOfInfoCollect, "
              "GovFilename, EnterName, EnterTitle, APHoldFlg, SeqNumber, BusinessName, WriteFile, PlayByPlayEnabled, "
              "MainPath, SessionNumber")  # fmt: skip


def answer_of(output):
    """The one line that a program reads."""
    text = output.decode("utf-8")
    assert text.endswith("\n") and text.count("\n") == 1, text
    answer = json.loads(text)
    ANSWER.validate(answer)
    return answer


def run(request, *arguments, **options):
    """The program where there is neither a display nor a terminal."""
    options = {"env": ENVIRONMENT, "start_new_session": True, "timeout": 30, "capture_output": True, **options}
    return subprocess.run([PROGRAM, "collect", "--json", *arguments], input=request, **options)


def error_of(request, *arguments):
    ended = run(request, *arguments)
    assert ended.returncode == 2 and ended.stderr == b"", ended
    return answer_of(ended.stdout)["error"]


class Terminal:
    """A terminal, and a program that is started from it with pipes as its standard streams."""

    def __init__(self, request, *arguments, folder=None, command=(PROGRAM, "collect", "--json"), environment=None):
        # A terminal that nobody has open is gone: it is kept for the time before the program opens it.
        self.user, self.kept = os.openpty()
        fcntl.ioctl(self.kept, termios.TIOCSWINSZ, b"\x18\0\x50\0\0\0\0\0")

        def become_leader():
            os.setsid()
            fcntl.ioctl(self.kept, termios.TIOCSCTTY, 0)

        self.program = subprocess.Popen(
            [*command, *arguments, "--today", "2026-06-15", "--locale", "en-CA"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE, cwd=folder, preexec_fn=become_leader,
            env={**ENVIRONMENT, **(environment or {})})  # fmt: skip
        self.program.stdin.write(json.dumps(request).encode())
        self.program.stdin.close()
        self.seen = ""

    def until(self, pattern):
        """Waits until the text was drawn, cursor moves left out."""
        end = time.monotonic() + 20
        while not re.search(pattern, re.sub(r"\x1b[\[(][0-9;?]*[A-Za-z]", " ", self.seen)):
            ready, _, _ = select.select([self.user], [], [], max(0, end - time.monotonic()))
            if not ready:
                raise AssertionError(f"never shows {pattern}: {self.seen}")
            self.seen += os.read(self.user, 65536).decode("utf-8", "replace")
        self.seen = ""

    def type(self, keys):
        os.write(self.user, keys.encode())

    def ended(self):
        """What it printed, what it said, and how it ended."""
        streams = {self.program.stdout.fileno(): b"", self.program.stderr.fileno(): b""}
        open_ones = {*streams, self.user}
        while open_ones & set(streams):
            ready, _, _ = select.select(list(open_ones), [], [], 20)
            assert ready, "it does not end"
            for each in ready:
                read = os.read(each, 65536)
                if not read:
                    open_ones.discard(each)
                elif each in streams:
                    streams[each] += read
        out, err = streams.values()
        status = self.program.wait(20)
        os.close(self.user)
        os.close(self.kept)
        self.program.stdout.close()
        self.program.stderr.close()
        return out, err, status


def fill(request, *arguments, **options):
    return fill_at(Terminal(request, *arguments, **options))


def fill_at(terminal):
    terminal.until("Taxation year ends on:")
    terminal.type("202512123.45\r")
    terminal.until("Enter press")
    terminal.type("\r")
    return terminal.ended()


class Requests(unittest.TestCase):
    def test_are_refused_with_their_place_and_a_remedy(self):
        whole = 'write an object such as {"screen": "15", "payment": {"PaidAmount": "12345"}}'
        drop = "give such a value, without quotes, or leave the property out"
        quotes = 'put the value in quotes, such as "12345"'
        boolean = "WriteFile takes true, false or a whole number from -32768 to 32767"
        rows = [
            # what is sent, description, remedy, key, line
            (b"", "there is no request: nothing was given", whole, None, None),
            (b" \n ", "there is no request: nothing was given", whole, None, None),
            (b"[]", "the request is no object", whole, None, 1),
            (b'\n"15"', "the request is no object", whole, None, 2),
            (b"{}", "no screen is named", 'add "screen" with its code, such as "15"', "screen", None),
            (b'{"screen": 15}', "the screen's code is no text", 'put it in quotes, such as "15"', "screen", 1),
            (b'{"screen": null}', "the screen's code is no text", 'put it in quotes, such as "15"', "screen", 1),
            (b'{"screen":"15",\n"payment": []}', "the payment is no object",
             'write its properties such as {"PaidAmount": "12345"}', "payment", 2),
            (b'{"screen":"15",\n"paymet": {}}', 'there is no "paymet" in a request; did you mean "payment"?',
             "leave it out: there are screen and payment", "paymet", 2),
            (b'{"screen":"15","payment":{\n\n"PaidAmout":"1"}}',
             '"PaidAmout" is no property that a host sets; did you mean "PaidAmount"?', "there are " + PROPERTIES,
             "payment.PaidAmout", 3),
            (b'{"screen":"15","payment":{\n"PaidAmount":12345}}', "PaidAmount takes a text", quotes,
             "payment.PaidAmount", 2),
            (b'{"screen":"15","payment":{"PaidAmount":null}}', "PaidAmount takes a text", quotes,
             "payment.PaidAmount", 1),
            (b'{"screen":"15","payment":{"PaidAmount":{"cents":1}}}', "PaidAmount takes a text", quotes,
             "payment.PaidAmount", 1),
            (b'{"screen":"15","payment":{"PaidAmount":["1"]}}', "PaidAmount takes a text", quotes,
             "payment.PaidAmount", 1),
            (b'{"screen":"15","payment":{"APHoldFlg":256}}', "APHoldFlg takes a whole number from 0 to 255", drop,
             "payment.APHoldFlg", 1),
            (b'{"screen":"15","payment":{"WriteFile":"True"}}', boolean, drop, "payment.WriteFile", 1),
            (b'{"screen":"15","payment":{"WriteFile":32768}}', boolean, drop, "payment.WriteFile", 1),
            (b'{"screen":"15","payment":{"SessionNumber":"1"}}', "SessionNumber takes a number", drop,
             "payment.SessionNumber", 1),
            (b'{"screen":"15","payment":{"SeqNumber":"0001",\n"SeqNumber":"0002"}}',
             '"SeqNumber" stands twice, in line 1 before', "leave one out", "payment.SeqNumber", 2),
            (b'{"screen":"15",\n"screen":"15"}', '"screen" stands twice, in line 1 before', "leave one out",
             "screen", 2),
            (b'{"screen":"15","payment":{"CompName":"a\\u0000b"}}', '"payment.CompName" holds the character U+0000',
             "take it out", "payment.CompName", 1),
            ('{"screen":"15","payment":{"CompName":"H\u00e9l\u00e8ne \u4e2d"}}'.encode(),
             '"payment.CompName" holds "\u4e2d", which is no character of Windows-1252', "write another one",
             "payment.CompName", 1),
        ]  # fmt: skip
        for request, description, remedy, key, line in rows:
            expected = {"number": None, "source": "fiscalon collect", "description": description, "remedy": remedy,
                        "key": key, "line": line}  # fmt: skip
            self.assertEqual(error_of(request), expected, request)

    def test_that_are_no_json_are_refused_with_their_line(self):
        rows = [
            (b'{"screen": "15"', 1, "unexpected end of input"),
            (b'{"screen": "15"}\nx', 2, "invalid literal"),
            (b'{"screen": "15",\n}', 2, "expected string literal"),
            (b'{"screen": "15",\n"payment": {"CompName": "\xff"}}', 2, "ill-formed UTF-8 byte"),
            (b'{"screen": "15",\n"payment": {"CompName": "\\ud800"}}', 2, "surrogate U+D800"),
            (b'{"screen": "15",\n"payment": {"SessionNumber": 1e999}}', 2, "number overflow"),
            (b'\xef\xbb\xbf{"screen"\n: 15 15}', 2, "the screen's code"),
        ]
        for request, line, words in rows:
            error = error_of(request)
            self.assertIn(words, error["description"])
            self.assertEqual((error["number"], error["line"]), (None, 1 if "code" in words else line), request)
            self.assertTrue(error["remedy"])

    def test_are_taken_if_and_only_if_the_schema_has_them(self):
        properties = REQUEST.schema["properties"]["payment"]["properties"]
        self.assertEqual(", ".join(properties), PROPERTIES)
        values = ["", "x", "-1", "?", "é€ž", "\u0080", "\u0081", "\u4e2d", "\U0001f600", "a\nb", True, False, None, 0,
                  -1, 255, 256, 32767, 32768, -32768, -32769, 0.0, 0.5, 255.0, 12345678901234567890, [],
                  {}]  # fmt: skip
        held = {"CompName": values, "APHoldFlg": values, "WriteFile": values, "SessionNumber": values}
        requests = [{"screen": "15", "payment": {name: value}} for name in properties
                    for value in held.get(name, ["1", 1])]  # fmt: skip
        requests += [{"screen": value} for value in values] + [{"screen": "15", "payment": value} for value in values]
        taken = 0
        for request in requests:
            error = error_of(json.dumps(request).encode())
            is_taken = error["description"] in NOBODY
            taken += is_taken
            self.assertEqual(is_taken, REQUEST.is_valid(request), f"{request}: {error}")
        self.assertGreater(taken, 30)

    def test_come_from_a_file_too(self):
        with tempfile.TemporaryDirectory() as folder:
            place = Path(folder) / "request.json"
            place.write_text('{"screen": 15}', encoding="utf-8")
            for given in (str(place), f"--json={place}"):
                arguments = [given] if given.startswith("/") else []
                ended = subprocess.run(
                    [PROGRAM, "collect", *(["--json"] if arguments else [given]), *arguments],
                    env=ENVIRONMENT, capture_output=True, timeout=30)  # fmt: skip
                self.assertEqual(answer_of(ended.stdout)["error"]["key"], "screen")
            self.assertEqual(error_of(b"", f"{folder}/none.json")["description"],
                             f"{folder}/none.json can't be read: No such file or directory")  # fmt: skip
            self.assertEqual(error_of(b"", folder)["description"], f"{folder} can't be read: Is a directory")

    def test_bear_the_whole_payment(self):
        for given in (["15", "--json"], ["--json", "--paid-amount", "1"]):
            ended = subprocess.run([PROGRAM, "collect", *given], stdin=subprocess.DEVNULL, capture_output=True)
            self.assertEqual((ended.returncode, ended.stdout), (2, b""), "a wrong command line has no answer")
            self.assertIn(b"the request names the screen and the payment", ended.stderr)

    def test_are_answered_where_no_form_can_be_shown(self):
        self.assertIn(error_of(b'{"screen":"15"}')["description"], NOBODY)
        self.assertEqual(error_of(b'{"screen":"15"}', "--toolkit", "scripted")["description"],
                         "the front end scripted shows forms to nobody")  # fmt: skip
        self.assertIn("standard input is no terminal",
                      error_of(b'{"screen":"15"}', "--toolkit", "terminal")["description"])  # fmt: skip

    def test_that_nobody_hears_the_answer_of_end_so(self):
        with open("/dev/full", "wb") as full:
            ended = run(b"{}", capture_output=False, stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(ended.returncode, 2)
        self.assertEqual(ended.stderr, b"fiscalon: standard output can't be written: No space left on device\n")


class Guide(unittest.TestCase):
    def test_shows_what_is_sent_and_answered(self):
        guide = (SCHEMAS.parents[2] / "docs/host-guide.md").read_text(encoding="utf-8")
        request, answers = re.findall(r"(?ms)^```json (?:request|answer)\.json\n(.*?)^```$", guide)
        REQUEST.validate(json.loads(request))
        self.assertIn(error_of(request.encode())["description"], NOBODY)
        shown = []
        while answers.strip():
            answer, end = json.JSONDecoder().raw_decode(answers.lstrip())
            answers = answers.lstrip()[end:]
            ANSWER.validate(answer)
            shown.append(answer.get("result", "error"))
        self.assertEqual(shown, [True, False, "error"])


class Answers(unittest.TestCase):
    def test_have_the_records(self):
        out, err, status = fill({"screen": "15", "payment": PAYMENT})
        records = [{"TheDate": "", "Amount": "", "Description": text} for text in (T_RECORD, F_RECORD)]
        self.assertEqual((answer_of(out), err, status), ({"result": True, "records": records}, b"", 0))

    def test_have_invoices_with_their_date_and_amount(self):
        terminal = Terminal({"screen": "08", "payment": PAYMENT})
        terminal.until("Invoice date")
        terminal.type("\t 20260603\rINV-102\r123.45\r\x1bo")
        out, _, status = terminal.ended()
        invoice = {"TheDate": "20260603", "Amount": " 000012345", "Description": "INV-102".ljust(27)}
        self.assertEqual((answer_of(out), status), ({"result": True, "records": [invoice]}, 0))

    def test_have_no_records_where_these_went_to_a_file(self):
        with tempfile.TemporaryDirectory() as folder:
            payment = {**PAYMENT, "GovFilename": "payment.pc4", "WriteFile": True}
            out, _, status = fill({"screen": "15", "payment": payment}, folder=folder)
            self.assertEqual((answer_of(out), status), ({"result": True, "records": None}, 0))
            written = (Path(folder) / "payment.pc4").read_bytes().decode("cp1252")
            self.assertEqual(written, f'"{T_RECORD}"\r\n"{F_RECORD}"\r\n')

    def test_are_the_same_of_a_form_in_french(self):
        terminal = Terminal({"screen": "15", "payment": PAYMENT}, "--language", "fr")
        terminal.until("Fin de l'année d'imposition")
        terminal.type("202512123.45\r\x1bo")
        out, _, status = terminal.ended()
        self.assertEqual([record["Description"] for record in answer_of(out)["records"]], [T_RECORD, F_RECORD])
        self.assertEqual(status, 0)

    def test_are_false_where_the_user_cancels(self):
        terminal = Terminal({"screen": "15", "payment": PAYMENT})
        terminal.until("Taxation year ends on:")
        terminal.type("\x1b")
        out, err, status = terminal.ended()
        self.assertEqual((answer_of(out), err, status), ({"result": False, "records": None}, b"", 1))

    def test_have_the_error_of_the_screen(self):
        out, _, status = fill({"screen": "15", "payment": {**PAYMENT, "EnterName": "x" * 31}})
        self.assertEqual(answer_of(out)["error"], {
            "number": 5, "source": "Fiscalon.ShowLevyraScreen", "description": "Invalid procedure call or argument",
            "remedy": "EnterName has 31 characters, and a record has room for 30: shorten it.", "key": None,
            "line": None})  # fmt: skip
        self.assertEqual(status, 2)

    def test_have_errors_that_come_before_any_form(self):
        codes = "01, 02, 03, 04, 05, 06, 07, 08, 10, 11, 14, 15, 16, 17, 18, 19, 20, 25, 26, 27, 28"
        show = "Fiscalon.ShowLevyraScreen"
        rows = [
            ({"screen": "99"}, -2147221503, show, "Invalid Screen Type",
             f'there is no screen "99"; the codes are {codes}', "screen"),
            ({"screen": "99", "payment": {"GovFilename": "none/a.pc4", "WriteFile": True}}, -2147221503, show,
             "Invalid Screen Type", f'there is no screen "99"; the codes are {codes}', "screen"),
            ({"screen": ""}, -2147221503, show, "Invalid Screen Type",
             f'there is no screen ""; the codes are {codes}', "screen"),
            ({"screen": "15", "payment": {"PaidAmount": "1e999"}}, 6, "Fiscalon", "Overflow",
             "PaidAmount takes cents as digits, such as 12345.", "payment.PaidAmount"),
            ({"screen": "15", "payment": {"GovFilename": "none/a.pc4", "WriteFile": True}}, 76, show, "Path not found",
             'GovFilename is "none/a.pc4", and there is no folder "none": make it, or name another file.',
             "payment.GovFilename"),
            ({"screen": "15", "payment": {"GovFilename": ".", "WriteFile": -1}}, 75, show, "Path/File access error",
             'GovFilename is ".", which is a folder: name a file in it.', "payment.GovFilename"),
        ]  # fmt: skip
        for request, number, source, description, remedy, key in rows:
            with tempfile.TemporaryDirectory() as folder:
                out, _, status = Terminal(request, folder=folder).ended()
            self.assertEqual(answer_of(out)["error"], {"number": number, "source": source, "description": description,
                                                       "remedy": remedy, "key": key, "line": 1})  # fmt: skip
            self.assertEqual(status, 2)

    def test_are_none_where_a_signal_ends_the_program(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP, signal.SIGKILL):
            terminal = Terminal({"screen": "15", "payment": PAYMENT})
            terminal.until("Taxation year ends on:")
            terminal.program.send_signal(number)
            out, _, status = terminal.ended()
            self.assertEqual((out, status), (b"", -number))

    def test_come_with_a_recording(self):
        with tempfile.TemporaryDirectory() as folder:
            out, _, status = fill({"screen": "15", "payment": PAYMENT}, "--record", "my.scenario", folder=folder)
            self.assertEqual((answer_of(out)["result"], status), (True, 0))
            played = subprocess.run([PROGRAM, "play", f"{folder}/my.scenario"], capture_output=True, text=True)
            self.assertEqual(played.returncode, 0, played.stdout)


if __name__ == "__main__":
    unittest.main()
