"""CSST payments, and non-resident tax, to Revenue Quebec: three codes of one form."""

import datetime

from controls import Button, Field, Frame
from newer_screen import QuebecScreen
from screen import ZEROS
from values import RunTimeError, date_from_parts, format_text, leading_number, pad_right, yyyymmdd

RANGE = 'must not be more than 8 years in the past or more than 1 year in the future.'


class CsstPayments(QuebecScreen):
    codes = ('25', '26', '27')
    name = 'frmQue_Rev_CSST_Payments'
    caption = 'Revenue Quebec CSST Payments'
    labels = {
        'lblPaymentDate': 'Payment Date',
        'Label1': 'Amount to be paid',
        'lblPeriodEndDate': 'Remittance Period End Date',
        'lblRemittancePeriodFormat': 'YYYYMMDD',
        'lblAmountPayable': 'CSST Payable',
    }

    def build(self):
        self.add_head()
        self.add(Field, 'txtRemittancePeriod', 0, 8)
        self.add(Button, 'cmdOK', 1, '&OK')
        self.add(Button, 'cmdCancel', 2, 'Cancel')
        frame = self.add(Frame, 'fraMonthNonResidentTax')
        self.label('lblMonthWithheld', 'Month for which non-resident tax was withheld', frame=frame)
        self.label('Label3', 'YYYY', frame=frame)
        self.label('Label4', 'MM', frame=frame)
        self.add(Field, 'txtYear', 3, 4, frame=frame)
        self.add(Field, 'txtMonth', 4, 2, frame=frame)
        self.add(Field, 'txtAmountPayable', 12, 12, locked=True, stop=False)

    def launched(self, code):
        self.code = code

    def Form_Load(self):
        self.year_failed = self.month_failed = False
        self.SetupForm()

    def SetupForm(self):
        self.show_head()
        self.txtAmountPayable.set(format_text(self.payment.paid_amount, '0.00', self.host.locale))
        if self.code != '25':
            self.title = self.payment.CompName.strip(' ')
        for control in (self.lblAmountPayable, self.txtAmountPayable):
            control.set_visible(self.code == '25')
        for control in (self.lblPeriodEndDate, self.lblRemittancePeriodFormat, self.txtRemittancePeriod):
            control.set_visible(self.code != '27')
        self.fraMonthNonResidentTax.set_visible(self.code == '27')

    def Form_Activate(self):
        self.focus_if_able(self.txtYear if self.code == '27' else self.txtRemittancePeriod)

    def txtRemittancePeriod_Change(self):
        self.digits_change(self.txtRemittancePeriod, self.cmdOK)

    def txtYear_Change(self):
        self.digits_change(self.txtYear, self.cmdOK if self.txtMonth.trimmed() else self.txtMonth)

    def txtMonth_Change(self):
        self.digits_change(self.txtMonth, self.cmdOK)

    def txtRemittancePeriod_LostFocus(self):
        text = self.txtRemittancePeriod.text
        if not self.is_cancelling() and not self.dates_pass(text[:4], text[4:6], text[6:8]):
            self.skip(self.set_focus, self.txtRemittancePeriod)

    def txtYear_LostFocus(self):
        if not self.is_cancelling() and not self.month_failed:
            self.year_failed = not self.dates_pass(self.txtYear.text, self.txtMonth.text, '', year_counts=True)
            if self.year_failed:
                self.skip(self.set_focus, self.txtYear)

    def txtMonth_LostFocus(self):
        if not self.is_cancelling() and not self.year_failed:
            self.month_failed = not self.dates_pass(self.txtYear.text, self.txtMonth.text, '', month_counts=True)
            if self.month_failed:
                self.skip(self.set_focus, self.txtMonth)

    def dates_pass(self, year, month, day, year_counts=False, month_counts=False):
        passes = True
        if self.code == '27':
            if year_counts:
                passes = len(year.strip(' ')) >= 4 and self.is_near_payment(leading_number(year))
            if month_counts:
                passes = passes and len(month.strip(' ')) >= 2 and 1 <= leading_number(month) <= 12
        else:
            date = self.whole_date(year + month + day)
            passes = date is not None and (
                self.is_near_payment(date.year) if self.code == '26' else date > datetime.date(2011, 1, 1))
        if not passes:
            label = self.lblMonthWithheld if self.code == '27' else self.lblPeriodEndDate
            form = 'YYYYMM' if self.code == '27' else 'YYYYMMDD'
            limits = 'after January 1, 2011.' if self.code == '25' else RANGE
            self.box(f'{label.caption} must be a valid date, in the form {form} and {limits}')
        return passes

    def whole_date(self, text):
        if len(text) < 8:
            return None
        try:
            date = date_from_parts(int(text[:4]), int(text[4:6]), int(text[6:8]))
        except RunTimeError:
            return None
        return date if yyyymmdd(date) == text else None

    def is_near_payment(self, year):
        """From eight years before the payment to one behind it; a payment without a date says nothing."""
        paid = self.date.caption.split('/')[-1]
        return len(paid) != 4 or int(paid) - 8 <= year <= int(paid) + 1

    def cmdOK_Click(self):
        self.DoWrite()
        self.accept()

    def output(self):
        self.send_government(end='' if self.code == '27' else self.txtRemittancePeriod.text)
        if self.code == '25':
            self.send_free(self.amount_slot('01', self.txtAmountPayable), ('02', ZEROS), ('03', ZEROS), ('04', ZEROS))
        elif self.code == '27':
            self.send_free(('01', pad_right(self.txtYear.text + self.txtMonth.text, 18)))

    def plan(self, draw):
        if self.code == '27':
            yield 'txtYear', str(draw.choice((2026, 2025, 2018, 2017, 2016, 2027, 2028)))
            yield 'txtMonth', draw.choice(('01', '12', '06', '13', '00', '2'))
        else:
            yield 'txtRemittancePeriod', draw.choice((
                '20110101', '20110102', '20100229', '20180101', '20171231', '20271231', '20280101', '20170101',
                draw.near_now()))
