"""An instalment that is split between GST/HST and QST."""

from controls import Button, Field
from newer_screen import amounts
from screen import ZEROS
from screens.instalments import InstalmentPeriod


@amounts({'GSTInstalment': 'txtQSTInstalment', 'QSTInstalment': 'cmdOK'})
class QstGstInstalment(InstalmentPeriod):
    codes = ('19',)
    name = 'frmQue_Rev_QSTGSTInst'
    caption = 'Revenue Quebec QST/GST/HST Instalment'

    def build(self):
        self.add_period()
        self.add_amounts(2, (('GSTInstalment', 'GST/HST Instalment:'), ('QSTInstalment', 'QST Instalment:')))
        self.add(Button, 'cmdOK', 4, '&OK')
        self.add(Button, 'cmdCancel', 5, 'Cancel')
        self.label('lblAmountPayable', 'Amount Remitted:')
        self.add(Field, 'txtAmountPayable', 16, 12, stop=False)

    def first_amount(self):
        return self.txtGSTInstalment

    def RecalcForm(self):
        self.txtAmountPayable.set(self.money(self.sum_of(self.txtGSTInstalment, self.txtQSTInstalment)))

    def ValidateForm(self):
        if not self.is_amount_to_be_paid(self.txtAmountPayable):
            return self.refuse(self.txtGSTInstalment, 'The Amount Remitted must match the Amount to be paid.')
        if self.to_money(self.txtAmountPayable.text) == 0:
            return self.refuse(self.txtGSTInstalment, 'The Amount Remitted must be greater than zero.')
        return True

    def output(self):
        self.send_government(self.txtPeriodFrom.text, self.txtPeriodTo.text)
        self.send_free(self.amount_slot('01', self.txtQSTInstalment), self.amount_slot('02', self.txtGSTInstalment),
                       ('03', ZEROS), ('04', ZEROS))

    def plan(self, draw):
        yield from self.plan_period(draw)
        gst, qst = draw.parts(self.due(), 2)
        yield 'txtGSTInstalment', draw.shown(gst)
        yield 'txtQSTInstalment', draw.shown(qst)
        if draw.odds(.05):
            yield 'txtAmountPayable', draw.shown(self.due())
