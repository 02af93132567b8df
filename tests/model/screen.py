"""What all screens share: the payment that they are given, their loading, their boxes, their records."""

import datetime

from runtime import BACKSPACE, DIGITS, ENTER, Button, Field, Form, Label
from values import (
    RunTimeError, amount_to_field, blanks, date_of, digits_only, dollars, format_money, format_number, format_text,
    is_valid_date, keep_numeric, leading_number, money, to_money, yyyymmdd)

ZEROS = '0' * 18
AMOUNT_KEYS = DIGITS | {BACKSPACE, ENTER, ord('.'), ord(',')}
DATE_KEYS = DIGITS | {BACKSPACE, ENTER}


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

    # The head

    def shown_date(self):
        date = self.payment.paid_date
        return f'{date[2:4]}/{date[:2]}/{date[4:8]}'

    def label(self, name, caption='', **design):
        return self.add(Label, name, caption, **design)

    def show_head(self):
        if self.payee:
            self.payee.set(self.payment.comp_name)
        held = self.looks_at_hold and self.payment.hold == 1
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
        return self.payment.write_file == -1

    def begin_records(self):
        if self.writes_file():
            self.sink = self.host.open_file(self.payment.gov_filename)
        else:
            self.records.clear()
            self.sink = self.records

    def send(self, kind, body):
        record = f'PC4{self.payment.seq_number}{kind}{body}'
        self.sink.append(''.join(each if each >= ' ' else ' ' for each in record))

    def send_government(self, start='', end='', due=''):
        name, title = self.payment.enter_name.strip(' '), self.payment.enter_title.strip(' ')
        fields = start.ljust(8) + end.ljust(8) + due.ljust(8) + blanks(8)
        self.send('T', fields + name + blanks(30 - len(name)) + title + blanks(20 - len(title)) + blanks(70))

    def send_free(self, *slots):
        self.send('F', ''.join(number + value for number, value in slots).ljust(80) + blanks(72))

    def text_slot(self, number, text):
        return number, text.ljust(18)

    def amount_slot(self, number, field):
        """An amount in cents whose sign is one of its columns."""
        return number, amount_to_field(money(leading_number(field.text) * 100))

    def cents_slot(self, number, value):
        """An amount in cents, as a pattern of digits shows it."""
        return number, self.money(money(value * 100), ZEROS)


class OlderScreen(Screen):
    """A form whose fields are confirmed by Enter, with a Help button and a date that a payment on hold has not."""

    amount_pattern = '0.00'
    looks_at_hold = True
    buttons = ('Command3D6', 'Command3D5', 'Command3D4')

    def add_buttons(self, *tabs):
        captions = ('&OK', '&Cancel', '&Help')
        for name, caption, tab in zip(self.buttons, captions, tabs or (None,) * 3):
            self.add(Button, name, tab, caption)

    def add_payee(self, name, tab):
        return self.add(Field, name, tab, locked=True, stop=False)

    def amount_to_be_paid(self):
        return self.number(leading_number(self.payment.paid_amount), self.amount_pattern)

    def is_passing(self):
        """Whether the focus is on the way to Cancel or Help."""
        return self.active_name() in self.buttons[1:]

    def Form_QueryUnload(self, reason):
        self.close_as_cancelled(reason)

    def show_head(self):
        super().show_head()
        self.help_folder = self.payment.gov_filename
        for _ in range(3):
            self.help_folder = self.help_folder.rpartition('/')[0]

    def open_help(self):
        self.seen.append((self.help_folder + '/' if self.help_folder else '') + 'ZELMOR.CHM>ShowTopic')

    Command3D5_Click = Screen.cancel
    Command3D4_Click = open_help

    # A date of eight digits

    def date_key(self, field, key, question, following, go_on=None):
        """Digits alone; Enter asks for a whole date and moves on."""
        if key not in DATE_KEYS:
            return 0
        if key == ENTER:
            if not field.trimmed():
                self.refuse(field, question)
            elif len(field.trimmed()) != 8:
                self.refuse(field)
            else:
                self.set_focus(following)
        return key

    def date_change(self, field, following):
        if len(field.trimmed()) == 8 and following.enabled:
            self.skip(self.set_focus, following)

    def date_left(self, field, reformats=True):
        if field.text == '' or self.is_passing():
            return
        field.set(field.trimmed())
        if self.is_bad_date(field.text):
            self.box('Invalid date value.')
            self.skip(self.set_focus, field)
        elif reformats:
            field.set(self.as_date(field.text))

    def as_date(self, text):
        return self.number(leading_number(text), '00000000')

    def write_records(self):
        self.begin_records()
        self.output()


class NewerScreen(Screen):
    """A form whose fields are filtered as they change and checked when they are left."""

    def Form_KeyDown(self, key, shift):
        if key == 'Enter' and not shift:
            self.send_tab()
            return None
        return key

    cmdCancel_Click = Screen.cancel

    def cmdOK_Click(self):
        if self.ValidateForm():
            self.DoWrite()
            self.accept()

    def DoWrite(self):
        self.begin_records()
        self.output()

    def is_cancelling(self):
        return self.active_name() == 'cmdCancel'

    def filter(self, field, keep):
        field.set(keep(field.text))

    def move_on(self, field, following):
        if field.is_full() and following.enabled:
            self.skip(self.set_focus, following)

    def digits_change(self, field, following):
        self.filter(field, digits_only)
        self.move_on(field, following)

    def amount_change(self, field, following):
        self.filter(field, lambda text: keep_numeric(text, self.host.locale))
        self.move_on(field, following)


class GuardedPeriods:
    """The two ends of a reporting period; one check at a time, since a failed one pulls the focus back."""

    in_validation = False

    def guarded(self, field, check):
        """A field is left: its check, unless to cancel."""
        if self.is_cancelling():
            return
        if not self.in_validation:
            self.in_validation = True
            if not check():
                self.skip(self.set_focus, field)
                self.do_events()
        self.in_validation = False

    def period_date(self, text):
        """The date of eight digits, or None."""
        if len(text) < 8:
            return None
        try:
            date = date_of(text, self.host.locale)
        except RunTimeError:
            return None
        return date if yyyymmdd(date) == text else None

    def date_or_none(self, text):
        try:
            return date_of(text, self.host.locale)
        except RunTimeError:
            return None

    def check_from(self, start, end, prefix=''):
        today = self.host.today
        date = self.period_date(start.text)
        if date is not None and not datetime.date(1992, 7, 1) < date < today:
            date = None
        if date is None:
            yesterday = yyyymmdd(today - datetime.timedelta(days=1))
            self.box(f'{prefix}Reporting Period From must be in the form YYYYMMDD and must be between 19920702 and '
                     f'{yesterday}')
            return False
        if len(end.text) == 8:
            limit = self.date_or_none(end.text)
            if limit is None or date >= limit:
                self.box(f"{prefix}Reporting Period From must be less than the {prefix}Reporting Period 'To' date.")
                return False
        return True

    def check_to(self, start, end, limit, prefix=''):
        date = self.period_date(end.text)
        if date is not None and limit is not None and date > limit:
            date = None
        if date is None:
            bound = 'greater than the From date.' if limit is None else 'between the From date and ' + yyyymmdd(limit)
            self.box(f'{prefix}Reporting Period To must be in the form YYYYMMDD and must be {bound}')
            return False
        if len(start.text) == 8:
            other = self.date_or_none(start.text)
            if other is None or date <= other:
                self.box(f"{prefix}Reporting Period To must be greater than the {prefix}Reporting Period 'From' date.")
                return False
        return True


class QuebecScreen(GuardedPeriods, NewerScreen):
    """A form that adds up amounts to the one that is paid."""

    cancel_button = 'cmdCancel'

    def Form_Load(self):
        self.SetupForm()

    def SetupForm(self):
        self.show_head()

    def add_head(self):
        self.date = self.label('lblPayDate')
        self.amount = self.label('lblAmountPaid')

    def Form_QueryUnload(self, reason):
        self.close_as_cancelled(reason)

    def add_amounts(self, first_tab, rows):
        """Rows of field and label: amounts to enter, each with its caption."""
        for place, (name, caption) in enumerate(rows):
            if caption is not None:
                self.label('lbl' + name, caption)
            self.add(Field, 'txt' + name, first_tab + place, 12)

    def CheckValues(self, field, name):
        """Whether an amount that is left passes, which shows it with two decimals."""
        value = leading_number(field.text)
        if value < 0 and not self.is_cancelling():
            self.box(f'{name} cannot be negative.', 'plain')
            self.skip(self.set_focus, field)
            return
        if not field.trimmed():
            field.set(self.number(0))
        elif self.has_point(field.text):
            field.set(self.number(value))
        else:
            field.set(self.number(value / 100))
        self.RecalcForm()

    def RecalcForm(self):
        pass

    def is_amount_to_be_paid(self, field):
        """A comparison that can't be made has failed."""
        try:
            return self.to_money(field.text) == self.to_money(self.amount.caption)
        except RunTimeError:
            return False

    def balance_agrees(self, focus):
        """A refund wants a payment of nothing, any other balance its own amount. None for an accepted refund."""
        try:
            below_zero = self.to_money(self.txtAmountPayable.text) < 0
        except RunTimeError:
            below_zero = True
        if below_zero:
            try:
                refused = self.to_money(self.amount.caption) != 0
            except RunTimeError:
                refused = True
            if refused:
                return self.refuse(focus, 'If the Amount Payable is less than zero, the Amount to be paid must be zero '
                                          '(0.00).')
            return None
        if not self.is_amount_to_be_paid(self.txtAmountPayable):
            return self.refuse(focus, 'The Amount Payable must match the Amount to be paid.')
        return True


def amounts(following, called=None):
    """Handlers of amounts by what a full one leads to: a control, or a routine that says which. Each is filtered, and
    checked when it is left, under the caption of its label or as it is called."""
    def put(screen):
        for name, target in following.items():
            def change(self, field='txt' + name, target=target):
                self.amount_change(self.by_name[field], target(self) if callable(target) else self.by_name[target])

            def left(self, name=name):
                said = called[name] if called else self.by_name['lbl' + name].caption
                self.CheckValues(self.by_name['txt' + name], said)

            setattr(screen, f'txt{name}_Change', change)
            # A screen may have its own.
            if not hasattr(screen, f'txt{name}_LostFocus'):
                setattr(screen, f'txt{name}_LostFocus', left)
        return screen
    return put
