"""Quebec Sales Tax, and the GST/HST that is remitted to Revenue Quebec."""

import datetime

from controls import Button, Field
from newer_screen import QuebecScreen, amounts
from screen import ZEROS
from values import a_year_later, yyyymmdd


class TaxReturn(QuebecScreen):
    """The lines from what is collectible to what is payable."""

    labels = {'Label6': 'Reporting Period From:', 'Label7': 'To:'}
    rows = ()  # of field and caption
    payable = ''

    def build(self):
        self.add_head()
        self.add(Field, 'txtPeriodFrom', 0, 8)
        self.add(Field, 'txtPeriodTo', 1, 8)
        self.add_amounts(2, self.rows)
        self.add(Button, 'cmdOK', 2 + len(self.rows), '&OK')
        self.add(Button, 'cmdCancel', 3 + len(self.rows), 'Cancel')
        self.label('lblAmountPayable', self.payable)
        self.add(Field, 'txtAmountPayable', 22, 12, locked=True, stop=False)

    def txtPeriodFrom_Change(self):
        self.digits_change(self.txtPeriodFrom, self.txtPeriodTo)

    def txtPeriodTo_Change(self):
        self.digits_change(self.txtPeriodTo, self.txtSupplies)

    def txtPeriodFrom_LostFocus(self):
        self.guarded(self.txtPeriodFrom, lambda: self.check_from(self.txtPeriodFrom, self.txtPeriodTo))

    def txtPeriodTo_LostFocus(self):
        self.guarded(self.txtPeriodTo, lambda: self.check_to(self.txtPeriodFrom, self.txtPeriodTo, self.last_day()))

    def last_day(self):
        return a_year_later(self.host.today) - datetime.timedelta(days=1)

    def txtSupplies_LostFocus(self):
        if self.active_name() != 'txtPeriodTo':
            self.CheckValues(self.txtSupplies, self.lblSupplies.caption)

    def RecalcForm(self):
        total = self.sum_of(self.txtTaxCollectible, self.txtITRs, self.txtInstalments, self.txtOtherRebates, sign=-1)
        self.txtAmountPayable.set(self.money(total))

    def ValidateForm(self):
        return self.balance_agrees(self.txtTaxCollectible) is not False

    def plan(self, draw):
        today = self.host.today
        start = draw.day(datetime.date(1992, 7, 2), today - datetime.timedelta(days=1))
        yield 'txtPeriodFrom', yyyymmdd(start)
        yield 'txtPeriodTo', draw.date(start, a_year_later(today))
        lines = dict(zip(('TaxCollectible', 'ITRs', 'Instalments', 'OtherRebates'),
                         draw.parts(self.due() if draw.odds(.8) else -500, 4, (1, -1, -1, -1))))
        for name, _ in self.rows:
            yield 'txt' + name, draw.shown(lines[name] if name in lines else draw.cents())

    def send_first_lines(self):
        self.send_government(self.txtPeriodFrom.text, self.txtPeriodTo.text)
        self.send_free(self.amount_slot('01', self.txtSupplies), self.amount_slot('02', self.txtTaxCollectible),
                       self.amount_slot('03', self.txtITRs), self.amount_slot('04', self.txtInstalments))


def after_other_rebates(form):
    return form.txtNewHousingRebates if form.txtNewHousingRebates.visible else form.cmdOK


@amounts({
    'Supplies': 'txtTaxCollectible', 'TaxCollectible': 'txtITRs', 'ITRs': 'txtInstalments',
    'Instalments': 'txtOtherRebates', 'OtherRebates': after_other_rebates, 'NewHousingRebates': 'cmdOK',
})
class QstReturn(TaxReturn):
    codes = ('16',)
    biller_codes = ('001053', '001055', '001099')
    name = 'frmQue_Rev_QST'
    caption = 'Quebec Sales Tax Remittance'
    payable = 'QST payable or refund (213)'
    rows = (
        ('Supplies', 'Supplies (sales figure) (201)'),
        ('TaxCollectible', 'QST collectible and adjustments (205)'),
        ('ITRs', 'ITRs and adjustments (208)'),
        ('Instalments', 'QST instalments (210)'),
        ('OtherRebates', 'Other QST Rebates (211)'),
        ('NewHousingRebates', 'New Housing Rebate Included in the ITCs (135)'),
    )
    rewritten = {
        'lblSupplies': (('201', '101'),),
        'lblTaxCollectible': (('205', '105'), ('QST', 'GST/HST')),
        'lblITRs': (('ITR', 'ITC'), ('208', '108')),
        'lblInstalments': (('210', '110'), ('QST', 'GST/HST')),
        'lblAmountPayable': (('213', '113'), ('QST', 'GST/HST')),
        'lblOtherRebates': (('QST', 'GST/HST'), ('211', '111')),
    }

    def launched(self, code):
        """The biller's code brings the captions of its tax, which loads the form."""
        if self.payment.CompCode != '001055':
            return
        self.load()
        self.title = 'Quebec GST/HST Remittance'
        for name, replacements in self.rewritten.items():
            label = self.by_name[name]
            for old, new in replacements:
                label.caption = label.caption.replace(old, new)

    def SetupForm(self):
        super().SetupForm()
        shown = self.payment.CompCode == '001055'
        self.lblNewHousingRebates.set_visible(shown)
        self.txtNewHousingRebates.set_visible(shown)

    def last_day(self):
        return a_year_later(self.host.today) if self.payment.CompCode == '001053' else super().last_day()

    def output(self):
        self.send_first_lines()
        rebate = self.amount_slot('07', self.txtNewHousingRebates)
        self.send_free(self.amount_slot('05', self.txtAmountPayable), self.amount_slot('06', self.txtOtherRebates),
                       ('07', ZEROS) if self.payment.CompCode == '001053' else rebate, ('08', ZEROS))
