"""What all screens share: the payment that they are given, their loading, their boxes, their records."""

from controls import Label
from form import Form
from values import (
    RunTimeError, amount_to_field, blanks, dollars, format_money, format_number, format_text, is_valid_date,
    leading_number, money, to_money)

ZEROS = '0' * 18


class Screen(Form):
    """A form that collects what goes with a payment."""

    # By which the launch knows it.
    codes = ()
    # The controls of the head, where the screen has them.
    payee = amount = date = date_caption = None
    amount_pattern = 'Currency'
    looks_at_hold = False
    # What its payments vary beside the common properties.
    biller_codes = ()
    own_properties = {}

    def __init__(self, host):
        self.host = host
        self.payment = None
        self.chosen = False
        self.records = []
        super().__init__()

    def launched(self, code):
        """The launch routine has set the payment."""

    def accessed(self, how):
        """The launch routine gives or takes a property."""

    # The head

    def shown_date(self):
        date = self.payment.PaidDate
        return f'{date[2:4]}/{date[:2]}/{date[4:8]}'

    def label(self, name, caption='', **design):
        return self.add(Label, name, caption, **design)

    def show_head(self):
        if self.payee:
            self.payee.set(self.payment.CompName)
        held = self.looks_at_hold and self.payment.APHoldFlg == 1
        if self.looks_at_hold:
            self.date_caption.set_visible(not held)
            self.date.set_visible(not held)
        if not held:
            self.date.caption = self.shown_date()
        self.amount.caption = self.amount_to_be_paid()

    def amount_to_be_paid(self):
        return format_text(self.payment.paid_amount, 'Currency', self.host.locale)

    def due(self):
        """The amount to be paid, in cents."""
        return round(leading_number(self.payment.paid_amount) * 100)

    # Numbers as the user's locale has them

    def number(self, value, pattern='0.00'):
        return format_number(value, pattern, self.host.locale)

    def money(self, units, pattern='0.00'):
        return format_money(units, pattern, self.host.locale)

    def to_money(self, text):
        return to_money(text, self.host.locale)

    def sum_of(self, first, *others, sign=1):
        """Amounts added or taken off in floating point, as money."""
        total = leading_number(first.text)
        for each in others:
            total += sign * leading_number(each.text)
        return money(total)

    def has_point(self, text):
        return self.host.locale.point in text

    def cents(self, text, units):
        """Money of a text that means cents where it has no decimal separator."""
        return units if self.has_point(text) else money(dollars(units) / 100)

    def has_decimals(self, text):
        """Whether something other than zeros stands behind the decimal separator."""
        return self.has_point(text) and leading_number(text.partition(self.host.locale.point)[2]) != 0

    def is_bad_date(self, text):
        """A date that can't be read is a bad one."""
        try:
            return not is_valid_date(text, self.host.today, self.host.locale)
        except RunTimeError:
            return True

    def year_is_refused(self, text, label):
        """Whether the user does not want a year that is not the current one."""
        if text[:4] == str(self.host.today.year):
            return False
        question = (f'The year for {label} entered does not correspond to the current year.\r\n'
                    'Are you sure you want to use it?')
        return self.box(question, 'exclamation', 'Date Warning', ('Yes', 'No')) == 'No'

    # Failures

    def skip(self, statement, *arguments):
        """A statement that may fail, where the routine goes on with the next one."""
        try:
            return statement(*arguments)
        except RunTimeError:
            return None

    def read(self, text):
        """A text's number, where a failure leaves 0."""
        return self.skip(leading_number, text) or 0.0

    def read_money(self, text):
        return self.skip(lambda: money(leading_number(text))) or 0

    def refuse(self, control, text=None, style='critical', title=''):
        """A failed test: its box, and the focus on what failed it. False."""
        if text is not None:
            self.box(text, style, title)
        self.set_focus(control)
        return False

    # The end

    def accept(self):
        self.chosen = True
        self.hide()

    def cancel(self):
        self.chosen = False
        self.hide()

    def close_as_cancelled(self, reason):
        if reason in (0, 2, 3):
            self.cancel()

    # Records

    def writes_file(self):
        return self.payment.WriteFile == -1

    def begin_records(self):
        if self.writes_file():
            self.sink = self.host.open_file(self.payment.GovFilename)
        else:
            self.records.clear()
            self.sink = self.records

    def send(self, kind, body):
        record = f'PC4{self.payment.SeqNumber}{kind}{body}'
        self.sink.append(''.join(each if each >= ' ' else ' ' for each in record))

    def send_government(self, start='', end='', due=''):
        name, title = self.payment.EnterName.strip(' '), self.payment.EnterTitle.strip(' ')
        fields = start.ljust(8) + end.ljust(8) + due.ljust(8) + blanks(8)
        self.send('T', fields + name + blanks(30 - len(name)) + title + blanks(20 - len(title)) + blanks(70))

    def send_free(self, *slots):
        """A slot that is not there is blank; one that is too wide makes its record longer."""
        self.send('F', ''.join(number + value for number, value in slots) + blanks(20 * (4 - len(slots)) + 72))

    def text_slot(self, number, text):
        return number, text.ljust(18)

    def amount_slot(self, number, field):
        """An amount in cents whose sign is one of its columns."""
        return number, amount_to_field(money(leading_number(field.text) * 100))

    def cents_slot(self, number, value):
        """An amount in cents, as a pattern of digits shows it."""
        return number, self.money(money(value * 100), ZEROS)
