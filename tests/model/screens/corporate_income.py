"""Corporate income tax: amounts owing, or an instalment of a fiscal period."""

from controls import Field, Option
from keys import AMOUNT_KEYS, DATE_KEYS, ENTER
from older_screen import OlderScreen
from values import is_amount_text, leading_number, money

ASK_DATE = 'Please enter the date for the end of fiscal period.'


class CorporateIncome(OlderScreen):
    codes = ('02',)
    name = 'GOVCORPINCOME'
    caption = 'Corporation/Business Remittance Voucher'
    labels = {
        'Label5': 'Corporation/Business Remittance Voucher (Form RC98/RC99/RC100)',
        'Label9': 'Amounts Owing Payment:',
        'Label6': 'Instalment Payment:',
        'Label7': 'Remittance Period Ending:',
        'Label8': 'YYYYMMDD',
        'Label1': 'Payment to:',
        'Label3': 'Amount to be paid:',
    }

    def build(self):
        self.payee = self.add_payee('PayeeName', 19)
        self.amount = self.label('AmountPaid')
        self.date_caption = self.label('lblCPayDate', 'Payment will be made on:')
        self.date = self.label('PayDate')
        self.add(Option, 'optRC99', 0, 'RC99')
        self.add(Option, 'optRC100', 1, 'RC100')
        self.add(Field, 'ArrearsPayment', 3, 10, locked=True)
        self.add(Field, 'InstalmentPayment', 4, 10, locked=True)
        self.add(Field, 'EndDate', 5, 8)
        self.add_buttons(6, 7, 8)

    def Form_Load(self):
        self.show_head()
        self.optRC99.set(True)

    def optRC99_Click(self):
        if self.optRC99.on:
            self.choose(self.ArrearsPayment, self.InstalmentPayment)

    def optRC100_Click(self):
        if self.optRC100.on:
            self.choose(self.InstalmentPayment, self.ArrearsPayment)
            self.set_focus(self.EndDate)

    def choose(self, entry, other):
        """The whole amount goes to the line that was chosen."""
        entry.set_enabled(True)
        entry.set(self.number(leading_number(self.payment.paid_amount)))
        other.set_enabled(False)
        other.set('')
        self.EndDate.set_enabled(entry is self.InstalmentPayment)
        if entry is self.ArrearsPayment:
            self.EndDate.set('')

    def ArrearsPayment_KeyPress(self, key):
        if key not in AMOUNT_KEYS:
            return 0
        if key == ENTER:
            self.skip(self.confirm_arrears)
        return key

    def confirm_arrears(self):
        field = self.ArrearsPayment
        field.set(field.trimmed())
        if not field.text:
            return field.set(self.number(0))
        return self.confirm(field, 'Arrears', self.Command3D6)

    def InstalmentPayment_KeyPress(self, key):
        if key not in AMOUNT_KEYS:
            return 0
        if key == ENTER:
            self.skip(self.confirm_instalment)
        return key

    def confirm_instalment(self):
        field = self.InstalmentPayment
        field.set(field.trimmed())
        if not field.text:
            field.set(self.number(0))
            return self.set_focus(self.Command3D6)
        return self.confirm(field, 'Instalment', self.EndDate, empties=True)

    def confirm(self, field, name, following, empties=False):
        if not is_amount_text(field.text):
            return self.refuse(field)
        value = money(leading_number(field.text))
        if value < 0:
            self.box(f'{name} Amount cannot be less than 0.')
            if empties:
                field.set('')
            return self.refuse(field)
        if value == 0:
            return None
        field.set(self.money(self.cents(field.text, value)))
        if money(leading_number(field.text)) > money(leading_number(self.payment.paid_amount)):
            return self.refuse(field, f'{name} Payment cannot be greater than amount to be paid.')
        return self.set_focus(following)

    def EndDate_Change(self):
        self.date_change(self.EndDate, self.Command3D6)

    def EndDate_KeyPress(self, key):
        if key not in DATE_KEYS:
            return 0
        if key == ENTER:
            self.skip(self.confirm_date)
        return key

    def confirm_date(self):
        date, instalment = self.EndDate.trimmed(), self.InstalmentPayment.trimmed()
        if not date and instalment:
            self.box(ASK_DATE)
            self.EndDate.set('')
            return self.refuse(self.EndDate)
        if date and instalment and len(date) != 8:
            return self.refuse(self.EndDate)
        total = leading_number(self.ArrearsPayment.trimmed()) + leading_number(instalment)
        agrees = total == leading_number(self.amount.caption.strip(' '))
        return self.set_focus(self.Command3D6 if agrees else self.ArrearsPayment)

    def EndDate_LostFocus(self):
        self.date_left(self.EndDate)

    def Command3D6_Click(self):
        if self.is_complete():
            self.skip(self.write_records)
            self.accept()

    def refuse_selected(self, field, text=None):
        field.select_all()
        if text is not None:
            self.box(text)
        self.skip(self.set_focus, field)
        return False

    def is_complete(self):
        instalment, date, arrears = self.InstalmentPayment, self.EndDate, self.ArrearsPayment
        instalment.set(instalment.trimmed())
        if self.optRC100.on:
            if not instalment.text:
                instalment.set(self.number(0))
            if not is_amount_text(instalment.text):
                return self.refuse_selected(instalment)
            value = money(leading_number(instalment.text))
            if value < 0:
                return self.refuse_selected(instalment, 'Instalment Amount cannot be less than 0.')
            if value != 0:
                instalment.set(self.money(self.cents(instalment.text, value)))
            if leading_number(instalment.text) == 0:
                return self.refuse_selected(instalment, 'Instalment Payment cannot be 0.')
            if not date.trimmed():
                return self.refuse(date, ASK_DATE)
            if len(date.trimmed()) != 8:
                return self.refuse_selected(date)
            date.set(date.trimmed())
            if self.is_bad_date(date.text):
                return self.refuse_selected(date, 'Invalid date value.')
            if self.year_is_refused(date.text, f"'{self.Label7.caption[:-1]}'"):
                return self.refuse(date)
            date.set(self.as_date(date.text))
        arrears.set(arrears.trimmed())
        if self.optRC99.on:
            if not arrears.text:
                arrears.set(self.number(0))
            if not is_amount_text(arrears.text):
                return self.refuse_selected(arrears)
            value = money(leading_number(arrears.text))
            if value < 0:
                return self.refuse_selected(arrears, 'Arrears Amount cannot be less than 0.')
            if value != 0:
                arrears.set(self.money(self.cents(arrears.text, value)))
            if leading_number(arrears.text) == 0:
                return self.refuse_selected(arrears, 'Amounts Owing Payment cannot be 0.')
        return True

    def output(self):
        self.send_government()
        slots = []
        if leading_number(self.InstalmentPayment.text) != 0:
            slots += [('01', self.strict_cents(self.InstalmentPayment)),
                      self.text_slot('02', self.EndDate.trimmed())]
        if leading_number(self.ArrearsPayment.text) != 0:
            slots.append(('03', self.strict_cents(self.ArrearsPayment)))
        self.send_free(*slots)

    def strict_cents(self, field):
        """The text as the user's locale reads it."""
        return self.money(self.to_money(field.trimmed()) * 100, '0' * 18)

    def plan(self, draw):
        if draw.odds(.3):
            return ('optRC99', ''), ('ArrearsPayment', '')
        return ('optRC100', ''), ('InstalmentPayment', ''), ('EndDate', draw.near_now())
