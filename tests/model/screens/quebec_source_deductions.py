"""Source deductions to Revenue Quebec."""

from controls import Button, Field, List
from newer_screen import QuebecScreen, amounts
from screen import ZEROS
from values import RunTimeError, date_from_parts, yyyymmdd

TYPES = (
    'Weekly (1st remittance)', 'Weekly (2nd remittance)', 'Weekly (3rd remittance)', 'Weekly (4th remittance)',
    'Twice Monthly (1st remittance)', 'Twice Monthly (2nd remittance)',
)


# What messages call the amounts.
NAMES = {
    'IncomeTaxWithheld': 'Income tax withheld and compensation tax',
    'QPP': 'QPP contributions',
    'HealthFund': 'Contribution to the health services fund',
    'QPIP': 'QPIP premiums',
    'CSST': 'CSST payments',
}


def after_csst(form):
    return form.cmbRemittanceType if form.cmbRemittanceType.visible else form.cmdOK


@amounts({
    'IncomeTaxWithheld': 'txtQPP', 'QPP': 'txtHealthFund', 'HealthFund': 'txtQPIP', 'QPIP': 'txtCSST',
    'CSST': after_csst,
}, NAMES)
class QuebecSourceDeductions(QuebecScreen):
    codes = ('20',)
    name = 'frmQue_Rev_SourceDeduct'
    caption = 'Revenue Quebec Source Deductions'
    own_properties = {'PlayByPlayEnabled': (0, 0, -1)}
    biller_codes = ('001051', '001052', '001052', '001099')
    labels = {
        'lblCPayDate': 'Payment Date:',
        'lblRemittanceType': 'Remittance Type:',
    }

    def build(self):
        self.add_head()
        self.add(Field, 'txtRemittancePeriod', 0, 6)
        self.add_amounts(1, [(name, None) for name in NAMES])
        self.add(List, 'cmbRemittanceType', 6)
        self.add(Button, 'cmdOK', 7, '&OK')
        self.add(Button, 'cmdCancel', 8, 'Cancel')
        self.add(Field, 'txtAmountPayable', 14, 12, locked=True, stop=False)

    # Each handler and routine, and each access to a property, is logged.

    def log(self, routine):
        self.host.log_play(f'{self.name} - {routine}')

    def accessed(self, how):
        self.log(how)

    def fire(self, control, event, *arguments):
        if hasattr(self, f'{control.name}_{event}'):
            self.log(f'{control.name}_{event}')
        return super().fire(control, event, *arguments)

    def Form_KeyDown(self, key, shift):
        self.log('Form_KeyDown')
        return super().Form_KeyDown(key, shift)

    def Form_QueryUnload(self, reason):
        self.log('Form_QueryUnload')
        super().Form_QueryUnload(reason)

    def Form_Load(self):
        self.log('Form_Load')
        super().Form_Load()

    def launched(self, code):
        for name in ('CompName', 'PaidAmount', 'PaidDate', 'EnterName', 'EnterTitle', 'GovFilename', 'SeqNumber',
                     'APHoldFlg', 'CompCode', 'WriteFile'):
            self.log('Let ' + name)
        self.SetupForm()

    def SetupForm(self):
        self.log('SetupForm')
        self.load()
        super().SetupForm()
        self.cmbRemittanceType.fill(TYPES)
        asks = self.payment.CompCode == '001052'
        self.lblRemittanceType.set_visible(asks)
        self.cmbRemittanceType.set_visible(asks)

    def txtRemittancePeriod_Change(self):
        self.digits_change(self.txtRemittancePeriod, self.txtIncomeTaxWithheld)

    def txtRemittancePeriod_LostFocus(self):
        if not self.is_cancelling() and not self.period_passes(self.txtRemittancePeriod.text):
            self.skip(self.set_focus, self.txtRemittancePeriod)

    def period_passes(self, period):
        """This month and the four before it."""
        self.host.log_play('modLevyra - IsValidRemittancePeriodQueRevSrcDeduct')
        passes = len(period) >= 6
        if passes:
            first = self.host.today.replace(day=1)
            try:
                date = date_from_parts(int(period[:4]), int(period[4:6]), 1)
            except RunTimeError as error:
                self.show_error(error, 'modLevyra.IsValidRemittancePeriodQueRevSrcDeduct')
                return True
            months = (first.year - date.year) * 12 + first.month - date.month
            passes = yyyymmdd(date) == period + '01' and 0 <= months <= 4
        if not passes:
            self.box('Remittance Period must be in the form YYYYMM and be within the last 4 months.')
        return passes

    def show_error(self, error, procedure):
        self.host.log_error(error, procedure)
        self.box(f"The following error: '{error.description} (Error {error.number})' occurred in procedure "
                 f"'{procedure}'.")

    def txtIncomeTaxWithheld_LostFocus(self):
        if self.active_name() != 'txtRemittancePeriod':
            self.CheckValues(self.txtIncomeTaxWithheld, NAMES['IncomeTaxWithheld'])

    def cmbRemittanceType_Click(self):
        if self.cmdOK.enabled:
            self.set_focus(self.cmdOK)

    def entries(self):
        return [self.by_name['txt' + name] for name in NAMES]

    def CheckValues(self, field, name):
        self.log('CheckValues')
        super().CheckValues(field, name)

    def RecalcForm(self):
        self.host.log_play('modLevyra - RecalcFormQueRevSrcDeduct')
        self.txtAmountPayable.set(self.money(self.sum_of(*self.entries())))

    def ValidateForm(self):
        self.log('ValidateForm')
        if self.payment.CompCode == '001052' and not self.cmbRemittanceType.shown_text():
            return self.refuse(self.cmbRemittanceType, 'Please select a Remittance Type.', 'information')
        self.RecalcForm()
        if not self.is_amount_to_be_paid(self.txtAmountPayable):
            return self.refuse(self.txtIncomeTaxWithheld, 'The Amount Payable must match the Amount to be paid.')
        return True

    def DoWrite(self):
        self.log('DoWrite')
        try:
            super().DoWrite()
        except RunTimeError as error:
            self.show_error(error, self.name + '.DoWrite')

    def output(self):
        self.send_government(due=self.txtRemittancePeriod.text)
        income, qpp, health, qpip, csst = self.entries()
        self.send_free(self.amount_slot('01', income), self.amount_slot('02', qpp), self.amount_slot('03', health),
                       self.amount_slot('04', qpip))
        kind = 0 if self.payment.CompCode == '001051' else self.cmbRemittanceType.row + 1
        self.send_free(('05', str(kind).zfill(18)), self.amount_slot('06', csst), ('07', ZEROS), ('08', ZEROS))

    def plan(self, draw):
        today = self.host.today
        months = today.year * 12 + today.month - 1 - draw.choice((0, 1, 4, 4, 5, -1))
        yield 'txtRemittancePeriod', f'{months // 12}{months % 12 + 1:02}'
        for name, amount in zip(NAMES, draw.parts(self.due(), len(NAMES))):
            yield 'txt' + name, draw.shown(amount)
        yield 'cmbRemittanceType', draw.choice(TYPES)

