"""A single instalment for one period."""

import datetime

from controls import Button, Field
from newer_screen import QuebecScreen
from screen import ZEROS
from values import a_year_later, yyyymmdd


class InstalmentPeriod(QuebecScreen):
    """The period of an instalment, which may end at any time to come. The window's closing decides nothing."""

    labels = {'Label6': 'Instalment Period From:', 'Label7': 'To:'}
    Form_QueryUnload = None

    def add_period(self):
        self.add_head()
        self.add(Field, 'txtPeriodFrom', 0, 8)
        self.add(Field, 'txtPeriodTo', 1, 8)

    def txtPeriodFrom_Change(self):
        self.digits_change(self.txtPeriodFrom, self.txtPeriodTo)

    def txtPeriodTo_Change(self):
        self.digits_change(self.txtPeriodTo, self.first_amount())

    def txtPeriodFrom_LostFocus(self):
        self.guarded(self.txtPeriodFrom, lambda: self.check_from(self.txtPeriodFrom, self.txtPeriodTo))

    def txtPeriodTo_LostFocus(self):
        self.guarded(self.txtPeriodTo, lambda: self.check_to(self.txtPeriodFrom, self.txtPeriodTo, None))

    def plan_period(self, draw):
        today = self.host.today
        start = draw.day(datetime.date(1992, 7, 2), today - datetime.timedelta(days=1))
        yield 'txtPeriodFrom', yyyymmdd(start)
        yield 'txtPeriodTo', draw.date(start, a_year_later(a_year_later(today)))


class Instalments(InstalmentPeriod):
    codes = ('17',)
    name = 'frmInstalments'
    caption = 'Instalment Remittance'

    def build(self):
        self.add_period()
        self.label('lblAmountPayable', 'Instalment Amount:')
        self.add(Field, 'txtAmountPayable', 2, 12)
        self.add(Button, 'cmdOK', 3, '&OK')
        self.add(Button, 'cmdCancel', 4, 'Cancel')

    def SetupForm(self):
        super().SetupForm()
        self.title = self.payment.CompName

    def first_amount(self):
        return self.txtAmountPayable

    def txtAmountPayable_Change(self):
        self.amount_change(self.txtAmountPayable, self.cmdOK)

    def txtAmountPayable_LostFocus(self):
        self.CheckValues(self.txtAmountPayable, self.lblAmountPayable.caption)

    def ValidateForm(self):
        return self.is_amount_to_be_paid(self.txtAmountPayable) or self.refuse(
            self.txtAmountPayable, 'The Instalment Amount must match the Amount to be paid.')

    def output(self):
        self.send_government(self.txtPeriodFrom.text, self.txtPeriodTo.text)
        self.send_free(self.amount_slot('01', self.txtAmountPayable), ('02', ZEROS), ('03', ZEROS), ('04', ZEROS))

    def plan(self, draw):
        yield from self.plan_period(draw)
        yield 'txtAmountPayable', draw.shown(self.due())
