"""Fixtures for the tests of a host: a library as freshly loaded, on a fixed day, and a user who is played.

    def test_an_accepted_payment_has_two_records(fiscalon_user):
        def fill(form):
            form.type("202412")
            form.type("12345")
            form.click("cmdOK")

        fiscalon_user.on_form = fill
        payment = fiscalon.Payment()
        payment.paid_amount = "12345"
        assert payment.show("15")
        assert len(payment.pc4_records) == 2
"""

from __future__ import annotations

import datetime
from collections import deque
from pathlib import Path
from typing import Callable, Deque, Iterator, List, Optional, Tuple, Union

import pytest

import fiscalon
from fiscalon import play

#: When it is in every test that asks for these fixtures.
TODAY = datetime.datetime(2026, 6, 15, 13, 5, 9)
#: Who the user is in them.
LOCALE = "en-CA"


class PlayedUser:
    """A user who does what a test says, and remembers what was shown. Boxes must be claimed: one that a test did not
    expect fails it."""

    def __init__(self) -> None:
        #: Fills the form that is up.
        self.on_form: Optional[Callable[[fiscalon.Form], object]] = None
        #: What the next boxes are answered; one without an answer gets its default one.
        self.answers: Deque[fiscalon.Answer] = deque()
        #: The boxes that no line of the test has claimed yet.
        self.boxes: Deque[fiscalon.Box] = deque()
        #: How often it beeped.
        self.beeps = 0
        #: Files and context numbers of the help that was opened.
        self.help: List[Tuple[str, int]] = []

    def claim_box(self, text: str) -> fiscalon.Box:
        """The first box that is left, which must say this."""
        assert self.boxes, f"no box was shown that says {text!r}"
        box = self.boxes.popleft()
        assert box.text == text
        return box

    def _fill(self, form: fiscalon.Form) -> None:
        if self.on_form is None:
            raise AssertionError(f"{form.name} is up, and nobody fills it; set fiscalon_user.on_form")
        self.on_form(form)

    def _answer(self, box: fiscalon.Box) -> fiscalon.Answer:
        self.boxes.append(box)
        return self.answers.popleft() if self.answers else box.default_answer

    def _hear(self) -> None:
        self.beeps += 1

    def _install(self) -> None:
        fiscalon.use_scripted_user(on_form=self._fill, on_box=self._answer, on_beep=self._hear,
                                   on_help=lambda file, context: self.help.append((file, context)))


@pytest.fixture
def fiscalon_fresh() -> Iterator[None]:
    """The library as freshly loaded, on 15 June 2026, with a user of English Canada; afterwards as freshly loaded
    too."""
    fiscalon.reset()
    fiscalon.use_fixed_clock(TODAY)
    fiscalon.use_locale(LOCALE)
    yield
    fiscalon.reset()


@pytest.fixture
def fiscalon_user(fiscalon_fresh: None) -> Iterator[PlayedUser]:
    """A fresh library with a played user in front of it."""
    user = PlayedUser()
    user._install()
    yield user
    if user.boxes:
        pytest.fail(f"nobody expected the box {user.boxes[0].text!r}")


@pytest.fixture
def fiscalon_play() -> Callable[[Union[str, Path]], None]:
    """Plays all scenarios of a file; one that fails fails the test."""

    def play_file(path: Union[str, Path]) -> None:
        for scenario in play.read(path):
            play.play(scenario)

    return play_file
