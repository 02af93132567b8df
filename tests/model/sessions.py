"""Random sessions: users who fill a screen nearly right, and then do anything."""

import datetime
import random

from controls import Button, Check, Field, List
from telling import Step, Telling

KEYS = ('Tab', 'Shift+Tab', 'Enter', 'Escape', 'Backspace', 'Delete', 'Space', 'Left', 'Right', 'Up', 'Down', 'Home',
        'End', 'Shift+Enter', 'Ctrl+Enter', 'Alt+X')
JUNK = ('', '0', '00', '0.00', '-5', '5-', '.', ',', '1,000', '1.005', '12.5', '12,5', '12.345', '-0.01', 'abc', 'a1b2',
        ' 7 ', '20260230', '99991231', '00000000', '20261', '2026 615', '99999999', '123456789012',
        '9999999.99', '10000000', 'Hélène "Côté"', '200', '1E3')
NAMES = ('', 'Ann Levy', 'Hélène Côté', ' Bo ', 'x' * 30, 'y' * 20, 'z' * 31, 'tab\there')
TODAYS = (datetime.date(2026, 6, 15), datetime.date(2026, 1, 31), datetime.date(2024, 2, 29),
          datetime.date(2025, 12, 31), datetime.date(2026, 2, 1), datetime.date(2027, 3, 30))


class Draw(random.Random):
    """What may come to a user's mind."""

    host = None

    def odds(self, chance):
        return self.random() < chance

    def cents(self):
        """An amount to be paid."""
        return self.choice((0, 1, 199, 200, 12345, 50000, 100000, 999999999, 10**self.randrange(9, 12),
                            *(self.randrange(1, 10**self.randrange(2, 9)) for _ in range(4))))

    def shown(self, cents):
        """An amount as somebody types it."""
        sign, cents = ('-' if cents < 0 else ''), abs(cents)
        point = self.host.locale.point
        with_point = f'{sign}{cents // 100}{point}{cents % 100:02}'
        if cents % 100 == 0 and self.odds(.3):
            return f'{sign}{cents // 100}{point}'
        return with_point if self.odds(.5) else f'{sign}{cents}'

    def parts(self, total, count, signs=None):
        """Amounts that come to a total, each taken with its sign."""
        signs = signs or (1,) * count
        amounts = [self.choice((0, 0, 1, 50, self.randrange(1000), self.randrange(100000))) for _ in range(count)]
        adds = [each for each in range(count) if signs[each] > 0]
        rest = total - sum(sign * amount for sign, amount in zip(signs, amounts))
        if rest >= 0 or len(adds) == count:
            if rest < 0:
                amounts = [0] * count
                rest = total
            amounts[self.choice(adds)] += rest
        else:
            takes = [each for each in range(count) if signs[each] < 0]
            amounts[self.choice(takes)] += -rest
        return amounts

    def day(self, first, last):
        """A date from first to last, rather at an end."""
        days = (last - first).days
        between = self.randrange(days + 1)
        away = self.choice((0, days, between, between, max(days - 1, 0), min(1, days)))
        return first + datetime.timedelta(days=away)

    def date(self, first, last):
        return self.day(first, last).strftime('%Y%m%d').zfill(8)

    def near_now(self):
        """A date of a year that some screens take and others ask about."""
        today = self.host.today
        if self.odds(.7):
            return self.date(datetime.date(today.year, 1, 1), datetime.date(today.year, 12, 31))
        return self.date(datetime.date(today.year - 2, 1, 1), datetime.date(today.year + 2, 12, 31))

    def near_pair(self):
        """Two such dates, mostly in their order."""
        start = self.near_now()
        first = datetime.date(int(start[:4]), int(start[4:6]), int(start[6:]))
        later = self.date(first + datetime.timedelta(days=1), first + datetime.timedelta(days=90))
        return start, later if self.odds(.8) else self.choice((start, self.near_now()))

    def spoiled(self, text):
        """Nearly the text, or something else."""
        place = self.randrange(len(text) + 1)
        return self.choice((
            '-' + text, text[:place] + text[place + 1:], text[:place] + self.choice('0123456789.,- aZ') + text[place:],
            text[:place] + self.choice('0123456789') + text[place + 1:], self.choice(JUNK)))


class Session:
    """A user at one screen, shown once or more."""

    def __init__(self, screen, seed):
        self.telling = Telling(screen)
        self.draw = Draw(seed)
        self.draw.host = self.telling.host
        self.screen = screen
        self.code = self.draw.choice(screen.codes)

    def play(self, verb, *arguments):
        self.telling.play(Step(verb, arguments, self.draw.odds(.4)), looks=self.draw.odds(.03))

    @property
    def form(self):
        return self.telling.form

    def run(self):
        self.set_up()
        for _ in range(self.draw.choice((1, 1, 1, 1, 2, 3))):
            self.set_payment()
            self.play('show', self.draw.choice(self.screen.codes) if self.draw.odds(.2) else self.code)
            self.visit()
        self.telling.end()
        return self.telling

    def set_up(self):
        draw = self.draw
        self.play('today', draw.choice(TODAYS))
        if draw.odds(.3):
            self.play('locale', draw.choice(('fr-CA', 'fr-CA', 'en-US')))

    def set_payment(self):
        draw, play = self.draw, self.play
        if draw.odds(.95):
            play('host', 'PaidAmount', draw.choice(JUNK) if draw.odds(.05) else str(draw.cents()))
        play('host', 'PaidDate', draw.choice(('06152026', '12312025', '', '0615')))
        play('host', 'SeqNumber', draw.choice(('0001', '0001', '9999', 'A', '')))
        play('host', 'CompName', draw.choice(('Summit Levies', ' Ville de Québec ', '')))
        play('host', 'EnterName', draw.choice(NAMES[:5]) if draw.odds(.9) else draw.choice(NAMES))
        play('host', 'EnterTitle', draw.choice(('', 'Clerk', 'y' * 20)) if draw.odds(.95) else 'y' * 21)
        play('host', 'APHoldFlg', draw.choice((0, 0, 1, 2)))
        if self.screen.biller_codes:
            play('host', 'CompCode', draw.choice(self.screen.biller_codes))
        for name, values in self.screen.own_properties.items():
            play('host', name, draw.choice(values))
        self.choose_destination()

    def choose_destination(self):
        draw = self.draw
        if draw.odds(.5):
            self.play('host', 'WriteFile', draw.choice((0, 0, 1)))
            self.play('host', 'GovFilename', draw.choice(('', 'a/b/c/records.pc4', 'records.pc4')))
            return
        self.play('folder', '$TMP/a/b/c')
        self.play('host', 'WriteFile', -1)
        path = '$TMP/a/b/records.pc4' if draw.odds(.9) else draw.choice(('', '$TMP/a/b/c', '$TMP/a/none/records.pc4'))
        self.play('host', 'GovFilename', path)

    def visit(self):
        """Fills the screen, again where it is refused; in the end it is left."""
        draw = self.draw
        for _ in range(draw.choice((1, 1, 2, 3))):
            if self.form is None:
                return
            careless = draw.choice((0, .1, .3))
            meant = {}
            for name, text in self.form.plan(draw):
                meant[name] = text
                if draw.odds(careless):
                    self.wander()
                if draw.odds(careless / 3):
                    continue
                self.enter(name, draw.spoiled(text) if draw.odds(careless / 2) else text)
                if self.form is None:
                    return
                # What took the focus back is mended, before all else waits for it.
                holding = self.form.active_name()
                if holding != name and holding in meant and draw.odds(.8):
                    self.enter(holding, meant[holding])
            if self.form is not None and draw.odds(.8):
                self.press_ok()
            else:
                self.wander()
        for _ in range(draw.randrange(6)):
            self.wander()
        if self.form is not None:
            self.leave()

    def leave(self):
        draw = self.draw
        cancel = next(each for each in self.form.controls if 'ancel' in each.caption and 'nvoice' not in each.caption)
        if draw.odds(.4):
            self.play('click', cancel.name)
        if draw.odds(.2):
            self.play('key', 'Escape')
        if self.form is not None:
            self.play('close', draw.randrange(6))

    def press_ok(self):
        way = self.draw.random()
        button = next(each for each in self.form.controls if each.caption == '&OK')
        if way < .6:
            self.play('click', button.name)
        elif way < .8 and self.form.active is button:
            self.play('key', 'Enter')
        else:
            self.play('key', 'Alt+O')

    def enter(self, name, text):
        """Brings the focus to a control and gives it a text, a row or a value."""
        draw, form = self.draw, self.form
        control = form.by_name[name] if form is not None else None
        if control is None or not control.is_open():
            return
        if isinstance(control, List):
            if draw.odds(.6):
                self.play('choose', name, text)
            else:
                self.reach(control)
                self.play('type', text[:draw.randrange(1, 6)])
            return
        if isinstance(control, (Check, Button)):
            self.play('click', name)
            return
        if self.form.active is not control:
            self.reach(control)
        if self.form is None or self.form.active is not control or not isinstance(control, Field):
            return
        if control.text and control.selection != (0, len(control.text)):
            if draw.odds(.9):
                self.play('key', 'End')
                for _ in range(len(control.text) + 1):
                    if self.form is not None and self.form.active is control and control.text:
                        self.play('key', 'Backspace')
        elif control.text and not text:
            self.play('key', 'Delete')
        if self.form is None or self.form.active is not control:
            return
        if text and draw.odds(.5 if '-' in text else .9):
            self.play('type', text.replace('\n', ''))
        elif text:
            self.play('paste', text)
        if self.form is not None and self.form.active is control and draw.odds(.4):
            self.play('key', 'Enter')

    def reach(self, control):
        if self.draw.odds(.5):
            key = self.draw.choice(('Tab', 'Enter'))
            for _ in range(self.draw.randrange(1, 4)):
                if self.form is None or self.form.active is control or isinstance(self.form.active, Button):
                    break
                self.play('key', key)
        if self.form is not None and self.form.active is not control and control.is_open():
            self.play('focus', control.name)

    def wander(self):
        """Does anything."""
        draw, form = self.draw, self.form
        if form is None:
            return
        open_ones = [each for each in form.order if each.is_open()]
        way = draw.random()
        if way < .35:
            self.play('key', draw.choice(KEYS))
        elif way < .6:
            self.play('focus', draw.choice(open_ones).name)
        elif way < .7:
            self.play('click', draw.choice(open_ones).name)
        elif way < .8 and (isinstance(form.active, Field) or draw.odds(.3)):
            self.play('type', draw.choice(JUNK) or '7')
        elif way < .9 and isinstance(form.active, Field):
            self.play('paste', draw.choice(JUNK) or '7')
        elif way < .93:
            self.play('key', 'Alt+' + draw.choice('OCHI'))
        elif way < .95:
            lists = [each for each in open_ones if isinstance(each, List) and each.rows]
            if lists:
                chosen = draw.choice(lists)
                self.play('choose', chosen.name, draw.choice(chosen.rows))
        elif way < .96:
            self.play('close', draw.randrange(6))
