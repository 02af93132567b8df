"""An assessment of a workers' compensation board."""

from controls import Check, Field
from keys import AMOUNT_KEYS, DATE_KEYS, ENTER
from older_screen import OlderScreen
from values import leading_number, money

MEMBERS = range(6)
LIMIT = 99999999900  # 9999999.99 as money
INVALID_YEAR = ('Invalid year value, please re-enter the year value or check your PC to make sure that it has the '
                'correct date.')
INVALID_MONTH = 'Invalid month value, please re-enter or check your PC to make sure that it has the correct date.'
OTHER_MONTH = 'Invalid month value, please re-enter.'
ASK_MONTH = 'Please enter the month for the start of the period.'
BAD_CLASS = 'Invalid classification number.'
SAME_CLASS = 'Classification number is duplicated.'


class Assessment(OlderScreen):
    codes = ('01',)
    name = 'Assessment'
    caption = 'Additional Information to Accompany Payment'
    labels = {
        'Label7': 'For the period from:',
        'Label8': 'MM',
        'Label9': 'to:',
        'Label10': 'MM/YYYY',
        'Label1': 'Payment to:',
        'Label2': 'Amount to be paid:',
        'Label23': 'Assessment Details',
    }

    def build(self):
        self.payee = self.add_payee('WCBpayeename', None)
        self.amount = self.label('WCBpaidamount')
        self.date_caption = self.label('lblCPayDate', 'Payment will be made on:')
        self.date = self.label('WCBpaiddate')
        self.add(Check, 'WCBstatementonly(0)', 1, 'Paying statement of account only')
        self.add(Check, 'WCBstatementonly(1)', 2, 'Paying with details below')
        self.add(Field, 'WCBperiodfrommm', 5, 2)
        self.add(Field, 'WCBperiodtomm', 6, 2)
        self.add(Field, 'WCBperiodyyyy', 7, 4)
        for each in MEMBERS:
            self.add(Field, f'WCBclass({each})', 8 + 2 * each, 18)
            self.add(Field, f'WCBassessment({each})', 9 + 2 * each, 10)
        self.add_buttons()

    def Form_Load(self):
        self.show_head()
        self.WCBstatementonly[1].set(True)

    # A statement alone, or with details

    def WCBstatementonly_Click(self, index):
        self.WCBstatementonly[1 - index].set(not self.WCBstatementonly[index].on)
        if self.WCBstatementonly[1].on:
            self.focus_if_able(self.WCBperiodfrommm)

    def WCBstatementonly_KeyPress(self, index, key):
        if key == ENTER:
            self.WCBstatementonly[index].set(True)
            if self.WCBstatementonly[0].on:
                self.accept()
            else:
                self.set_focus(self.WCBperiodfrommm)
        return key

    # The period

    def period_key(self, key, following):
        if key not in DATE_KEYS:
            return 0
        if key == ENTER:
            self.set_focus(following)
        return key

    def WCBperiodfrommm_KeyPress(self, key):
        return self.period_key(key, self.WCBperiodtomm)

    def WCBperiodtomm_KeyPress(self, key):
        return self.period_key(key, self.WCBperiodyyyy)

    def WCBperiodyyyy_KeyPress(self, key):
        return self.period_key(key, self.WCBclass[0])

    def WCBperiodfrommm_Change(self):
        self.move_when(self.WCBperiodfrommm, 2, self.WCBperiodtomm)

    def WCBperiodtomm_Change(self):
        self.move_when(self.WCBperiodtomm, 2, self.WCBperiodyyyy)

    def WCBperiodyyyy_Change(self):
        self.move_when(self.WCBperiodyyyy, 4, self.WCBclass[0])

    def move_when(self, field, length, following):
        if len(field.trimmed()) == length:
            self.skip(self.set_focus, following)

    def month_left(self, month):
        """Whether a month is left that was looked at and is one."""
        if month.text == '' or self.is_passing():
            return False
        if not 1 <= leading_number(month.text) <= 12:
            self.skip(self.set_focus, month)
            return False
        if len(month.text) == 1:
            month.set('0' + month.text)
        return True

    def WCBperiodfrommm_LostFocus(self):
        if self.month_left(self.WCBperiodfrommm):
            self.skip(self.set_focus, self.WCBperiodtomm)

    def WCBperiodtomm_LostFocus(self):
        self.month_left(self.WCBperiodtomm)

    def WCBperiodyyyy_LostFocus(self):
        year = self.WCBperiodyyyy
        if not year.trimmed():
            year.set(str(self.host.today.year))
        if not self.is_passing() and self.period_passes():
            self.skip(self.set_focus, self.WCBclass[0])

    def clear(self, text, *fields):
        """Refuses fields, the first of which gets the focus."""
        self.box(text)
        for each in fields:
            each.set('')
        self.skip(self.set_focus, fields[0])
        return False

    def period_passes(self):
        """The year, and what it says of the months."""
        start, end, year = (leading_number(each.trimmed())
                            for each in (self.WCBperiodfrommm, self.WCBperiodtomm, self.WCBperiodyyyy))
        this_month, this_year = self.host.today.month, self.host.today.year
        is_last_year = year == this_year - 1
        if year not in (this_year, this_year - 1) or (is_last_year and this_month > 2):
            return self.clear(INVALID_YEAR, self.WCBperiodyyyy)
        if start == end:
            if end > this_month and (not is_last_year or this_month > 2):
                return self.clear(INVALID_MONTH, self.WCBperiodfrommm, self.WCBperiodtomm)
        elif start in (4, 7, 10) and end != 12:
            if end != start + 2 or (end > this_month + 1 and (not is_last_year or this_month > 2)):
                return self.clear(OTHER_MONTH, self.WCBperiodtomm)
        return True

    # Classes and assessments

    def WCBclass_KeyPress(self, index, key):
        if key not in DATE_KEYS:
            return 0
        if key == ENTER:
            field = self.WCBclass[index]
            if field.text and len(field.trimmed()) != 7:
                self.refuse(field, BAD_CLASS)
            elif field.text and any(field.trimmed() == each.trimmed() for each in self.WCBclass[:index]):
                self.refuse(field, SAME_CLASS)
            else:
                self.set_focus(self.WCBassessment[index])
        return key

    def WCBassessment_KeyPress(self, index, key):
        if key not in AMOUNT_KEYS:
            return 0
        if key == ENTER:
            field = self.WCBassessment[index]
            value = money(leading_number(field.trimmed()))
            if value < 0:
                self.box('Amount cannot be less than 0.')
                return key
            value = self.cents(field.text, value)
            field.set(self.money(value))
            if value > LIMIT:
                self.refuse(field, self.over_limit() + '.')
            else:
                self.set_focus(self.Command3D6 if index == 5 else self.WCBclass[index + 1])
        return key

    def over_limit(self):
        return 'Assessment amount cannot be greater than\n' + self.money(LIMIT, 'Currency')

    # OK

    def Command3D6_Click(self):
        if self.WCBstatementonly[0].on:
            self.accept()
        elif self.is_complete():
            self.write_records()
            self.accept()

    def is_complete(self):
        for month in (self.WCBperiodfrommm, self.WCBperiodtomm):
            if not month.trimmed():
                return self.clear(ASK_MONTH, month)
            if not 1 <= leading_number(month.trimmed()) <= 12:
                return self.refuse(month)
            if len(month.trimmed()) == 1:
                month.set('0' + month.trimmed())
        if not self.WCBperiodyyyy.trimmed():
            return self.refuse(self.WCBperiodyyyy, 'Please enter year field.', 'plain')
        return self.period_passes() and self.details_pass()

    def details_pass(self):
        if not any(each.text for each in self.WCBassessment):
            return self.refuse(self.WCBassessment[0])
        for first in MEMBERS:
            for second in MEMBERS:
                text = self.WCBclass[first].text
                if first != second and text and text.strip(' ') == self.WCBclass[second].trimmed():
                    return self.refuse(self.WCBclass[second], SAME_CLASS)
        for each in MEMBERS:
            amount, number = self.WCBassessment[each], self.WCBclass[each]
            if not amount.text:
                continue
            value = money(leading_number(amount.trimmed()))
            if value < 0:
                return self.refuse(amount, 'Assessment amount cannot be less than 0.')
            if not self.has_point(amount.text):
                value = self.cents(amount.text, value)
                amount.set(self.money(value))
            if value > LIMIT:
                return self.refuse(amount, self.over_limit())
            if not number.trimmed():
                return self.refuse(number, 'Please enter classification number.')
            if len(number.trimmed()) != 7:
                return self.refuse(number, BAD_CLASS)
        return True

    def last_day(self, month):
        year = self.host.today.year
        if month in (4, 6, 9, 11):
            return 30
        if month != 2:
            return 31
        return 29 if year % (400 if year % 100 == 0 else 4) == 0 else 28

    def output(self):
        start, end, year = (each.trimmed() for each in (self.WCBperiodfrommm, self.WCBperiodtomm, self.WCBperiodyyyy))
        self.send_government(year[:4] + start[:2] + '01', f'{year[:4]}{end}{self.last_day(leading_number(end)):02}')
        slots = []
        for each in MEMBERS:
            amount = self.WCBassessment[each]
            if amount.text:
                slots.append(self.text_slot(f'{2 * each + 1:02}', self.WCBclass[each].trimmed()))
                slots.append((f'{2 * each + 2:02}', self.money(self.to_money(amount.trimmed()) * 100, '0' * 18)))
                # Two pairs are a record, whatever becomes of the next one.
                if len(slots) == 4:
                    self.send_free(*slots)
                    slots.clear()
        if slots:
            self.send_free(*slots)

    def plan(self, draw):
        today = self.host.today
        if draw.odds(.1):
            yield 'WCBstatementonly(0)', ''
        if draw.odds(.5):
            start = end = draw.choice((today.month, draw.randrange(1, today.month + 1)))
        else:
            start = draw.choice((1, 4, 7, 10, today.month, draw.randrange(1, 13)))
            end = draw.choice((min(start + 2, 12), 12, today.month, today.month + 1, draw.randrange(1, 13)))
        yield 'WCBperiodfrommm', draw.choice((str(start), f'{start:02}'))
        yield 'WCBperiodtomm', draw.choice((str(end), f'{end:02}'))
        yield 'WCBperiodyyyy', str(today.year - (draw.choice((1, 1, 2, -1)) if draw.odds(.3) else 0))
        numbers = draw.sample(('1234567', '7654321', '0000001', '1111111', '2222222', '3333333'), 6)
        for each in MEMBERS[:draw.randrange(1, 7)]:
            if draw.odds(.9):
                yield f'WCBclass({each})', numbers[each] if draw.odds(.95) else draw.choice(('123456', numbers[0]))
                yield f'WCBassessment({each})', (
                    draw.shown(draw.cents() % 10**9) if draw.odds(.9) else draw.choice(('999999999', '1000000000')))
