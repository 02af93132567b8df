#!/usr/bin/env python3
"""Plays random sessions of the model on the program, and tells where the two differ."""

import argparse
import pathlib
import random
import re
import subprocess
import sys
import tempfile

from screens import FORMS
from sessions import Session
from telling import Telling

FAILURE = re.compile(r'^FAIL +\S+: session (\d+)$', re.MULTILINE)
EXPECTATION = re.compile(r'^ *expect ')
# Sessions that are told in one file.
AT_ONCE = 500


class Program:
    """What is compared with the model."""

    def __init__(self, path, toolkit, folder):
        self.command = [path, 'play', '--toolkit', toolkit]
        self.folder = folder

    def play(self, name, lines):
        """Whether all is as a scenario says, and what the program says of it."""
        file = self.folder / f'{name}.scenario'
        file.write_text('\n'.join(lines) + '\n', encoding='utf-8')
        done = subprocess.run([*self.command, file], capture_output=True, encoding='utf-8', check=False)
        return done.returncode == 0, done.stdout + done.stderr


def retold(form, steps):
    """The steps anew, with all that is on the screen after each."""
    telling = Telling(form)
    for step in steps:
        telling.play(step, looks=True)
    telling.end()
    return telling


def shrunk(program, form, telling):
    """The fewest steps on which the program still differs."""

    def differs(steps):
        told = retold(form, steps)
        return told if told.steps and not program.play('shrunk', told.lines)[0] else None

    least = differs(telling.steps) or telling
    size = len(least.steps) // 2
    while size:
        at = 0
        while at < len(least.steps):
            found = differs(least.steps[:at] + least.steps[at + size:])
            if found is not None and len(found.steps) < len(least.steps):
                least = found
            else:
                at += size
        size //= 2
    return least


def numbers_that_differ(program, form, tellings):
    """Which of some sessions the program plays otherwise."""
    lines = []
    for number, telling in tellings.items():
        lines.append(f'scenario "session {number}"')
        lines += telling.lines
    agrees, said = program.play(f'screen_{form.codes[0]}', lines)
    numbers = [int(number) for number in FAILURE.findall(said)]
    if not agrees and not numbers:
        sys.exit(said)
    return numbers


def sessions_that_differ(program, form, seed, numbers):
    tellings = {}
    for number in numbers:
        tellings[number] = Session(form, f'{seed} {form.name} {number}').run()
        if len(tellings) == AT_ONCE or number == numbers[-1]:
            for each in numbers_that_differ(program, form, tellings):
                yield each, tellings[each]
            tellings.clear()


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument('--program', required=True, help='the command-line program')
    arguments.add_argument('--toolkit', default='scripted', help='the front end that shows the forms')
    arguments.add_argument('--sessions', type=int, default=100, help='how many of each screen')
    arguments.add_argument('--seed', type=int, help='what they are drawn by; a fresh one without it')
    arguments.add_argument('--session', type=int, help='this one alone')
    arguments.add_argument('--screens', nargs='+', metavar='CODE', help='these screens alone')
    arguments.add_argument('--keep', type=pathlib.Path, help='a folder in which the last scenarios are left')
    given = arguments.parse_args()
    seed = random.SystemRandom().randrange(10**9) if given.seed is None else given.seed
    numbers = range(given.sessions) if given.session is None else range(given.session, given.session + 1)
    forms = [form for form in FORMS if given.screens is None or set(given.screens) & set(form.codes)]
    print(f'{len(numbers)} sessions of each of {len(forms)} screens, seed {seed}', flush=True)

    differing = 0
    with tempfile.TemporaryDirectory() as temporary:
        folder = given.keep or pathlib.Path(temporary)
        folder.mkdir(parents=True, exist_ok=True)
        program = Program(given.program, given.toolkit, folder)
        for form in forms:
            told = 0
            for number, telling in sessions_that_differ(program, form, seed, numbers):
                differing += 1
                told += 1
                # Most that follow have the same cause.
                if told <= 2:
                    tell_difference(program, form, number, telling)
    print(f'{differing} differ, seed {seed}')
    return 1 if differing else 0


def tell_difference(program, form, number, telling):
    print(f'\nScreen {form.codes[0]}, session {number}:')
    least = shrunk(program, form, telling)
    print('\n'.join(line for line in least.lines if not EXPECTATION.match(line)))
    print(program.play(f'screen_{form.codes[0]}_session_{number}', least.lines)[1], flush=True)


if __name__ == '__main__':
    sys.exit(main())
