"""An instalment of an individual's tax."""

from controls import Field
from keys import AMOUNT_KEYS, DATE_KEYS, ENTER
from older_screen import OlderScreen
from values import is_amount_text, leading_number, money

BELOW_ZERO = 'Amount of Payment cannot be less than 0.'
ASK_AMOUNT = 'Please enter amount of payment.'
OTHER_AMOUNT = 'Amount of Payment is not equal to amount to be paid.'


class IndividualTax(OlderScreen):
    codes = ('04',)
    name = 'GOVINDIDUAL'
    caption = 'Individual Instalment Remittance'
    labels = {
        'Label8': 'Instalment Payment for:',
        'Label9': 'YYYY',
        'Label10': 'Amount of Payment:',
        'Label1': 'Payment to:',
        'Label3': 'Amount to be paid:',
        'Label7': 'Individual Instalment Remittance Details',
    }

    def build(self):
        self.payee = self.add_payee('PayeeName', 15)
        self.amount = self.label('AmountPaid')
        self.date_caption = self.label('lblCPayDate', 'Payment will be made on:')
        self.date = self.label('PayDate')
        self.add(Field, 'PayYear', 2, 4)
        self.add(Field, 'PaymentAmount', 3, 12)
        self.add_buttons()

    def Form_Load(self):
        self.show_head()
        self.PaymentAmount.set(self.amount.caption)

    def Form_Activate(self):
        self.focus_if_able(self.PayYear)

    def PayYear_KeyPress(self, key):
        if key not in DATE_KEYS:
            return 0
        field = self.PayYear
        if key == ENTER and len(field.trimmed()) <= 4:
            field.set(field.trimmed() or str(self.host.today.year))
            if leading_number(field.text) >= 1000:
                self.set_focus(self.PaymentAmount)
        return key

    def PaymentAmount_KeyPress(self, key):
        if key not in AMOUNT_KEYS:
            return 0
        if key == ENTER:
            self.confirm()
        return key

    def confirm(self):
        field = self.PaymentAmount
        field.set(field.trimmed())
        value = money(leading_number(field.text))
        if value < 0:
            self.box(BELOW_ZERO)
        elif value == 0:
            self.refuse(field, ASK_AMOUNT)
        elif is_amount_text(field.text):
            field.set(self.money(self.cents(field.text, value)))
            if self.is_whole_amount():
                self.Command3D6_Click()
            else:
                self.refuse(field, OTHER_AMOUNT)

    def is_whole_amount(self):
        return leading_number(self.amount.caption) == leading_number(self.PaymentAmount.text)

    def Command3D6_Click(self):
        if self.is_complete():
            self.write_records()
            self.accept()

    def is_complete(self):
        year, amount = self.PayYear, self.PaymentAmount
        if not year.trimmed():
            return self.refuse(year, 'Please enter instalment payment year.')
        year.set(year.trimmed())
        if len(year.text) != 4 or leading_number(year.text) < 1900:
            return self.refuse(year)
        if not amount.trimmed():
            return self.refuse(amount, ASK_AMOUNT)
        amount.set(amount.trimmed())
        value = money(leading_number(amount.text))
        if value < 0:
            self.box(BELOW_ZERO)
            amount.set('')
            return self.refuse(amount)
        if not is_amount_text(amount.text):
            return self.refuse(amount)
        amount.set(self.money(self.cents(amount.text, value)))
        if not self.is_whole_amount():
            return self.refuse(amount, OTHER_AMOUNT)
        if leading_number(amount.text) == 0:
            return self.refuse(amount, 'Payment amount cannot be 0.')
        return True

    def output(self):
        self.send_government()
        self.send_free(self.text_slot('01', self.PayYear.trimmed()),
                       self.cents_slot('02', leading_number(self.PaymentAmount.text)))

    def plan(self, draw):
        return (('PayYear', draw.choice(('2026', '2025', '1900', '1899', '999', '', '0999'))),
                ('PaymentAmount', draw.shown(self.due())))
