"""A period, a due date and up to twelve short items, for any biller."""

from controls import Check, Field
from keys import AMOUNT_KEYS, ENTER, LETTERS, MINUS, QUOTE, capital
from period_screen import PeriodScreen
from values import format_text, is_amount_text, leading_number, money

ASK_DUE = 'Please enter due date.'
BOX_KEYS = AMOUNT_KEYS | LETTERS | {MINUS}
DETAILS, AMOUNT = 12, 13


def is_box_text(text):
    return all(each.isascii() and (each.isalnum() or each in '.-,') for each in text)


class GenericRemittance(PeriodScreen):
    codes = ('07',)
    after_period = 'DueDate'
    ask_end = 'Please enter the date for the end of the period.'
    reformats_end = False
    name = 'GENERICFORM'
    caption = 'Additional Information'
    own_properties = {'NumberOfInfoCollect': ('0', '1', '3', '4', '5', '12', '13', '2.5', '3.5', '', 'x')}
    labels = {
        'Label1': 'Payment to:',
        'Label3': 'Amount to be paid:',
        'Label21': 'For the period from:',
        'Label22': 'YYYYMMDD',
        'Label23': 'to:',
        'Label24': 'YYYYMMDD',
        'Label25': 'Due Date:',
        'Label26': 'YYYYMMDD',
        'Label7': 'A-01',
        'Label27': 'Details:',
        'Label28': 'Amount:',
        'Label19': 'Other Amount/Comment',
        'Label5': 'Additional Information',
        'Label6': 'Box:',
    }

    def build(self):
        self.payee = self.add_payee('PayeeName', 35)
        self.amount = self.label('AmountPaid')
        self.date_caption = self.label('lblCPayDate', 'Payment will be made on:')
        self.date = self.label('PayDate')
        self.add(Check, 'StatementOnly(0)', 1, 'Paying statement of account only')
        self.add(Check, 'StatementOnly(1)', 2, 'Paying with details below')
        self.add(Field, 'PeriodStartDate', 3, 8)
        self.add(Field, 'PeriodEndDate', 4, 8)
        self.add(Field, 'DueDate', 5, 8)
        for each in range(14):
            self.add(Field, f'Box({each})', 35 + each if each else 6, 50 if each == DETAILS else 18)
        self.add_buttons()

    def amount_to_be_paid(self):
        return format_text(self.payment.paid_amount, '#0.00', self.host.locale)

    def Form_Load(self):
        self.show_head()
        wanted = leading_number(self.payment.NumberOfInfoCollect)
        self.count = round(wanted) if 0 < wanted < 13 else 0
        for each in self.Box[self.count:12]:
            each.set_enabled(False)

    def Form_Activate(self):
        self.StatementOnly[1].set(True)

    def details(self):
        return [self.PeriodStartDate, self.PeriodEndDate, self.DueDate, *self.Box[:self.count], *self.Box[DETAILS:]]

    def StatementOnly_Click(self, index):
        self.StatementOnly[1 - index].set(not self.StatementOnly[index].on)
        for each in self.details():
            each.set_enabled(not self.StatementOnly[0].on)
        if self.StatementOnly[1].on:
            self.focus_if_able(self.PeriodStartDate)

    def StatementOnly_KeyPress(self, index, key):
        if key == ENTER:
            self.StatementOnly[index].set(True)
            if self.StatementOnly[0].on:
                self.accept()
            else:
                self.skip(self.set_focus, self.PeriodStartDate)
        return key

    # Dates

    def DueDate_Change(self):
        self.date_change(self.DueDate, self.Box[0])

    def DueDate_KeyPress(self, key):
        following = self.Box[0] if self.Box[0].enabled else self.DueDate
        return self.date_key(self.DueDate, key, ASK_DUE, following)

    def DueDate_LostFocus(self):
        self.date_left(self.DueDate)

    # Boxes

    def Box_KeyPress(self, index, key):
        if key == QUOTE if index == DETAILS else key not in BOX_KEYS:
            return 0
        key = capital(key)
        if key == ENTER and index < self.count and self.box_passes(index):
            self.set_focus(self.Command3D6 if index == self.count - 1 else self.Box[index + 1])
        return key

    def box_passes(self, index):
        box = self.Box[index]
        if not box.trimmed():
            return self.refuse(box, f'Please enter Box {index + 1:02} field.')
        box.set(box.trimmed())
        return is_box_text(box.text) or self.refuse(box)

    # OK

    def Command3D6_Click(self):
        if self.StatementOnly[0].on:
            self.accept()
        elif self.is_complete():
            self.skip(self.write_records)
            self.accept()

    def date_passes(self, field, question, wrong_length=None):
        if not field.trimmed():
            return self.refuse(field, question)
        if len(field.trimmed()) != 8:
            return self.refuse(field, wrong_length)
        field.set(field.trimmed())
        return not self.is_bad_date(field.text) or self.refuse(field, 'Invalid date value.')

    def year_passes(self, field, label):
        if self.year_is_refused(field.text, label.caption[:-1]):
            return self.refuse(field)
        field.set(self.as_date(field.text))
        return True

    def is_complete(self):
        start, end, due = self.PeriodStartDate, self.PeriodEndDate, self.DueDate
        if not self.date_passes(start, self.ask_start) or not self.year_passes(start, self.Label21):
            return False
        if not self.date_passes(end, self.ask_end):
            return False
        if leading_number(end.text) == leading_number(start.text):
            return self.refuse(end, 'Reporting period starting date is same as ending date.')
        if leading_number(end.text) < leading_number(start.text):
            return self.refuse(end, 'Reporting period ending date is incorrect.')
        if not self.year_passes(end, self.Label23):
            return False
        if not self.date_passes(due, ASK_DUE, 'Invalid date value.') or not self.year_passes(due, self.Label25):
            return False
        return self.boxes_pass()

    def boxes_pass(self):
        for each in range(self.count):
            if not self.box_passes(each):
                return False
        for box in self.Box[self.count:12]:
            if box.trimmed() and not is_box_text(box.text):
                return self.refuse(box)
        details, amount = self.Box[DETAILS], self.Box[AMOUNT]
        details.set(details.trimmed())
        if not all(' ' <= each <= '~' for each in details.text):
            return self.refuse(details)
        amount.set(amount.trimmed())
        if amount.text:
            if not is_amount_text(amount.text):
                return self.refuse(amount)
            amount.set(self.money(self.cents(amount.text, self.read_money(amount.text))))
        if details.text and not amount.text:
            return self.refuse(amount, "If you enter a value for 'Details', you must also enter a value for 'Other "
                                       "Amount'.", 'information')
        if amount.text and not details.text:
            return self.refuse(details, "If you enter a value for 'Other Amount', you must also enter a value for "
                                        "'Details'.", 'information')
        return True

    def output(self):
        self.send_government(*(each.trimmed()[:8] for each in (self.PeriodStartDate, self.PeriodEndDate, self.DueDate)))
        slots = [f'{each + 1:02}{self.Box[each].trimmed():18}' for each in range(12) if self.Box[each].trimmed()]
        details, amount = self.Box[DETAILS].trimmed(), self.Box[AMOUNT].trimmed()
        body = ''
        if details or amount:
            body = f'{self.money(money(leading_number(amount) * 100), "0" * 18)}{details:50}'.ljust(152)
        rest = len(slots) % 4
        for first in range(0, len(slots), 4):
            record = slots[first:first + 4]
            # In the collection the details go into a record that has slots left.
            joined = body if first + 4 > len(slots) and rest and not self.writes_file() else ''
            self.send('F', ''.join(record) + joined + ' ' * (20 * (4 - len(record)) + 72))
        if body and (self.writes_file() or not rest):
            self.send('G', body)

    def plan(self, draw):
        if draw.odds(.07):
            yield 'StatementOnly(0)', ''
        start, end = draw.near_pair()
        yield 'PeriodStartDate', start
        yield 'PeriodEndDate', end
        yield 'DueDate', draw.near_now()
        for each in range(self.count):
            good, bad = ('a1', 'B-2', '3.0', '4,5', '7' * 18), ('é', 'x y', ' ')
            yield f'Box({each})', draw.choice(good if draw.odds(.95) else bad)
        with_details = draw.odds(.5)
        if with_details != draw.odds(.1):
            yield f'Box({DETAILS})', draw.choice(('some # details', 'x')) if draw.odds(.9) else 'é'
        if with_details:
            yield f'Box({AMOUNT})', draw.shown(draw.cents())
