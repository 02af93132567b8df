"""A taxation year and the amount that is payable for it."""

from controls import Button, Field
from newer_screen import NewerScreen
from screen import ZEROS
from values import RunTimeError, date_from_parts, leading_number, yyyymmdd


class DueDateAmount(NewerScreen):
    codes = ('15',)
    name = 'frmDueDateAmount'
    caption = 'Due Date / Amount Screen'
    cancel_button = 'cmdCancel'
    labels = {
        'Label1': 'Taxation year ends on:',
        'Label9': 'YYYYMM',
        'lblAmountPayable': 'Amount payable:',
        'lblCPayDate': 'Payment Date:',
        'Label8': 'Amount to be paid:',
    }

    def build(self):
        self.date = self.label('lblPayDate')
        self.amount = self.label('lblAmountPaid')
        self.add(Field, 'txtRemittancePeriod', 0, 6)
        self.add(Field, 'txtAmountPayable', 1, 12)
        self.add(Button, 'cmdOK', 2, '&OK')
        self.add(Button, 'cmdCancel', 3, 'Cancel')

    def Form_Load(self):
        self.show_head()
        self.title = self.payment.CompName

    def txtRemittancePeriod_Change(self):
        self.digits_change(self.txtRemittancePeriod, self.txtAmountPayable)

    def txtAmountPayable_Change(self):
        self.amount_change(self.txtAmountPayable, self.cmdOK)

    def txtRemittancePeriod_LostFocus(self):
        if self.txtRemittancePeriod.trimmed() and not self.is_cancelling() and not self.is_valid_year():
            self.skip(self.set_focus, self.txtRemittancePeriod)

    def is_valid_year(self):
        """A month from 1990 on, up to the one before this month of the next year."""
        text, today = self.txtRemittancePeriod.text, self.host.today
        first_too_late = today.replace(year=today.year + 1, day=1)
        try:
            date = date_from_parts(int(text[:4]), int(text[4:6]), 1) if len(text) >= 6 else None
        except RunTimeError:
            return False  # the failure leaves the check before its message
        if date is None or yyyymmdd(date) != text + '01' or not (date < first_too_late and date.year >= 1990):
            last = date_from_parts(first_too_late.year, first_too_late.month - 1, 1)
            self.box("'Taxation year ends on' must be in the form YYYYMM. Your entry can range from 199001 to "
                     f'{yyyymmdd(last)[:6]}.')
            return False
        return True

    def ValidateForm(self):
        field = self.txtAmountPayable
        if not self.is_valid_year():
            return self.refuse(self.txtRemittancePeriod)
        value = leading_number(field.text)
        if value <= 0:
            return self.refuse(field, 'Amount payable cannot be zero or negative.', 'plain')
        field.set(self.number(value if self.has_point(field.text) else value / 100))
        try:
            agrees = self.to_money(field.text) == self.to_money(self.amount.caption)
        except RunTimeError:
            agrees = False
        return agrees or self.refuse(field, 'The Amount Payable must match the Amount to be paid.')

    def output(self):
        self.send_government(due=self.txtRemittancePeriod.text)
        self.send_free(self.amount_slot('01', self.txtAmountPayable), ('02', ZEROS), ('03', ZEROS), ('04', ZEROS))

    def plan(self, draw):
        today = self.host.today
        this_month = today.year * 12 + today.month - 1
        months = draw.choice((1990 * 12, 1990 * 12 - 1, this_month + draw.choice((0, -5, 11, 12, 10))))
        return (('txtRemittancePeriod', f'{months // 12}{months % 12 + 1:02}'),
                ('txtAmountPayable', draw.shown(self.due())))
