"""The GST/HST return made to Revenue Quebec."""

from newer_screen import amounts
from screens.qst_return import TaxReturn, after_other_rebates
from values import leading_number, money


@amounts({
    'Supplies': 'txtTaxCollectible', 'TaxCollectible': 'txtITRs', 'ITRs': 'txtInstalments',
    'Instalments': 'txtOtherRebates', 'OtherRebates': after_other_rebates, 'NewHousingRebates': 'txtExemptSupplies',
    'ExemptSupplies': 'txtAssociatesTaxableSales', 'AssociatesTaxableSales': 'txtPensionPlanRebate',
    'PensionPlanRebate': 'cmdOK',
})
class GstReturn(TaxReturn):
    codes = ('28',)
    name = 'frmQue_Rev_GST'
    caption = 'Quebec GST/HST Remittance'
    payable = 'GST/HST payable or refund (113)'
    rows = (
        ('Supplies', 'Supplies (sales figure) (101)'),
        ('TaxCollectible', 'GST/HST collectible and adjustments (105)'),
        ('ITRs', 'ITCs and adjustments (108)'),
        ('Instalments', 'GST/HST instalments (110)'),
        ('OtherRebates', 'Other GST/HST Rebates (111)'),
        ('NewHousingRebates', 'New Housing Rebate Included in the ITCs (135)'),
        ('ExemptSupplies', 'Exempt supplies, zero-rated exports, and other sales (91)'),
        ('AssociatesTaxableSales', "Associates' taxable sales made in Canada (102):"),
        ('PensionPlanRebate', 'Pension plan rebate included in the ITCs (136):'),
    )

    def ValidateForm(self):
        agrees = self.balance_agrees(self.txtTaxCollectible)
        if not agrees:
            return agrees is None
        exempt, supplies = (money(leading_number(each.text)) for each in (self.txtExemptSupplies, self.txtSupplies))
        if exempt > supplies:
            return self.refuse(
                self.txtExemptSupplies,
                f'The {self.lblExemptSupplies.caption} must be less than or equal to {self.lblSupplies.caption}.')
        return True

    def output(self):
        self.send_first_lines()
        self.send_free(
            self.amount_slot('05', self.txtAmountPayable), self.amount_slot('06', self.txtOtherRebates),
            self.amount_slot('07', self.txtNewHousingRebates), self.amount_slot('08', self.txtPensionPlanRebate))
        self.send_free(
            self.amount_slot('09', self.txtExemptSupplies), self.amount_slot('10', self.txtAssociatesTaxableSales))
