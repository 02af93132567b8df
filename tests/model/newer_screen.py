"""What the newer screens share: filters, periods, and amounts that add up to the payment."""

import datetime

from controls import Field
from screen import Screen
from values import RunTimeError, date_of, digits_only, keep_numeric, leading_number, yyyymmdd


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
