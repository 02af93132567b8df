"""One of Alberta's tax programs, with the end of its period."""

from controls import Button, Field, List
from keys import DATE_KEYS, ENTER
from newer_screen import NewerScreen
from screen import ZEROS
from values import leading_number, money

PROGRAMS = {
    'Corporate Income Tax': 1,
    'Fuel Tax Collectors': 10,
    'Fuel Tax: Railway Companies': 13,
    'Health Cost Recovery': 23,
    'Insurance Tax': 3,
    'International Fuel Tax Agreement (IFTA)': 7,
    'Propane Tax: Collectors': 21,
    'Tobacco Tax': 11,
    'Tourism Levy': 5,
}
ASK_DATE = 'Please enter the Period End Date.'


class AlbertaFinance(NewerScreen):
    codes = ('14',)
    name = 'frmAlbertaRevenue'
    caption = 'Alberta Finance'
    labels = {
        'Label1': 'Tax Program:',
        'Label7': 'Period End Date:',
        'Label9': 'YYYYMMDD',
        'Label2': 'Facility Number:',
        'lblCPayDate': 'Date:',
        'Label3': 'Amount to be paid:',
    }

    def build(self):
        self.date = self.label('lblPayDate')
        self.amount = self.label('lblAmountPaid')
        self.add(List, 'cmbTaxProgram', 0)
        self.add(Field, 'txtPeriodEndDate', 1, 8)
        self.add(Field, 'txtFacilityNumber', 2, 3, enabled=False)
        self.add(Button, 'cmdOK', None, '&OK')
        self.add(Button, 'cmdCancel', None, 'Cancel')

    def Form_Load(self):
        self.cmbTaxProgram.fill(PROGRAMS)
        self.show_head()

    def cmbTaxProgram_Click(self):
        self.txtFacilityNumber.set_enabled(self.cmbTaxProgram.shown_text().upper() == 'TOURISM LEVY')

    def cmbTaxProgram_Chosen(self):
        self.cmbTaxProgram_Click()
        self.set_focus(self.txtPeriodEndDate)

    def txtPeriodEndDate_Change(self):
        if len(self.txtPeriodEndDate.trimmed()) == 8:
            for following in (self.txtFacilityNumber, self.cmdOK):
                if following.enabled:
                    self.skip(self.set_focus, following)
                    break

    def txtPeriodEndDate_KeyPress(self, key):
        if key not in DATE_KEYS:
            return 0
        if key == ENTER and not self.txtPeriodEndDate.trimmed():
            self.box(ASK_DATE)
        return key

    def txtPeriodEndDate_LostFocus(self):
        field = self.txtPeriodEndDate
        if field.text == '' or self.active_name() in ('cmdOK', 'cmdCancel'):
            return
        field.set(field.trimmed())
        if self.is_bad_date(field.text):
            self.box('Invalid date value.')
            self.skip(self.set_focus, field)
        else:
            field.set(self.number(leading_number(field.text), '00000000'))

    def txtFacilityNumber_Change(self):
        if len(self.txtFacilityNumber.trimmed()) == 3 and self.cmdOK.enabled:
            self.skip(self.set_focus, self.cmdOK)

    def txtFacilityNumber_KeyPress(self, key):
        return key if key in DATE_KEYS else 0

    def ValidateForm(self):
        date, facility = self.txtPeriodEndDate, self.txtFacilityNumber
        if not self.cmbTaxProgram.shown_text():
            return self.refuse(self.cmbTaxProgram, 'Please select the tax program you wish to remit for.',
                               'information')
        if not date.trimmed():
            return self.refuse(date, ASK_DATE)
        if len(date.trimmed()) != 8:
            return self.refuse(date, 'Invalid date value.')
        date.set(date.trimmed())
        if self.is_bad_date(date.text):
            return self.refuse(date, 'Invalid date value.')
        date.set(self.number(leading_number(date.text), '00000000'))
        if facility.enabled and len(facility.trimmed()) < 3:
            return self.refuse(facility, 'Please enter your facility number.', 'information')
        return True

    def output(self):
        self.send_government(end=self.txtPeriodEndDate.trimmed()[:8])
        program = str(PROGRAMS[self.cmbTaxProgram.shown_text()]).zfill(18)
        facility = self.money(money(leading_number(self.txtFacilityNumber.text)), ZEROS)
        self.send_free(('01', program), ('02', facility), ('03', ZEROS), ('04', ZEROS))

    def plan(self, draw):
        yield 'cmbTaxProgram', draw.choice((*PROGRAMS, 'Tourism Levy', 'Tourism Levy'))
        yield 'txtPeriodEndDate', draw.near_now()
        if draw.odds(.8):
            yield 'txtFacilityNumber', draw.choice(('123', '007', '12'))
