"""Source deductions to the Canada Revenue Agency."""

from controls import Field
from keys import AMOUNT_KEYS, DATE_KEYS, ENTER
from older_screen import OlderScreen
from values import is_amount_text, leading_number

GROSS_BELOW_ZERO = ' Amount of Gross Payroll in Remitting Period cannot be less than 0.'
EMPLOYEES_BELOW_ZERO = 'Number of employees in latest pay period cannot be less than 0.'
ASK_DATE = 'Please enter the date for the end of remitting period.'


class SourceDeductions(OlderScreen):
    codes = ('03',)
    name = 'GOVSOURCEDEDUCTION'
    caption = 'Additional Information'
    labels = {
        'Label8': 'Gross Payroll in Remitting Period (dollars only):',
        'Label9': 'Number of Employees in Last Pay Period:',
        'Label7': 'End of Remitting Period:',
        'Label10': 'YYYYMMDD',
        'Label6': 'Amount Paid:',
        'Label1': 'Payment to:',
        'Label3': 'Amount to be paid:',
        'Label5': 'Additional Information',
    }

    def __init__(self, host):
        super().__init__(host)
        self.skip_gross_check = False

    def build(self):
        self.payee = self.add_payee('PayeeName', 19)
        self.amount = self.label('AmountPaid')
        self.date_caption = self.label('lblCPayDate', 'Payment will be made on:')
        self.date = self.label('PayDate')
        self.add(Field, 'GrossPayroll', 1, 12)
        self.add(Field, 'NumberOfEmployees', 2, 6)
        self.add(Field, 'EndDate', 3, 8)
        self.add(Field, 'PaymentAmount', 4, 12)
        self.add_buttons()

    def Form_Load(self):
        self.show_head()
        self.PaymentAmount.set(self.amount.caption)

    def Form_Activate(self):
        self.focus_if_able(self.GrossPayroll)

    def to_be_paid(self):
        return leading_number(self.amount.caption)

    # Keys

    def GrossPayroll_KeyPress(self, key):
        if key not in AMOUNT_KEYS:
            return 0
        if key == ENTER:
            self.skip(self.confirm_gross)
        return key

    def confirm_gross(self):
        field = self.GrossPayroll
        field.set(field.trimmed())
        value = self.read_money(field.text)
        if not is_amount_text(field.text):
            return self.refuse(field)
        field.set(self.money(value))
        if value < 0:
            return self.refuse(field, GROSS_BELOW_ZERO)
        if self.has_decimals(field.text):
            return self.refuse(field, 'Amount of Gross Payroll cannot have decimal value.', 'plain')
        return self.set_focus(self.NumberOfEmployees)

    def NumberOfEmployees_KeyPress(self, key):
        if key not in AMOUNT_KEYS:
            return 0
        if key == ENTER:
            self.skip(self.confirm_employees)
        return key

    def confirm_employees(self):
        field = self.NumberOfEmployees
        field.set(field.trimmed())
        value = self.read(field.text)
        if not is_amount_text(field.text):
            return self.refuse(field)
        field.set(self.number(value, '0'))
        if value < 0:
            return self.refuse(field, EMPLOYEES_BELOW_ZERO)
        if value == 0 and self.to_be_paid() == 0:
            field.set('0')
        return self.set_focus(self.EndDate)

    def EndDate_KeyPress(self, key):
        if key not in DATE_KEYS:
            return 0
        if key == ENTER:
            if not self.EndDate.trimmed():
                self.refuse(self.EndDate, ASK_DATE)
            elif len(self.EndDate.trimmed()) != 8:
                self.box('Invalid date value.')
                self.EndDate.set('')
                self.set_focus(self.EndDate)
            else:
                self.set_focus(self.Command3D6)
        return key

    def PaymentAmount_KeyPress(self, key):
        if key not in AMOUNT_KEYS:
            return 0
        if key == ENTER:
            self.skip(self.confirm_amount)
        return key

    def confirm_amount(self):
        field = self.PaymentAmount
        field.set(field.trimmed())
        value = self.read_money(field.text)
        if value < 0:
            return self.refuse(field, 'Amount of Payment cannot be less than 0.')
        if self.to_be_paid() != 0 and value == 0:
            return self.refuse(field, 'Please enter amount of payment.')
        if value == 0:
            field.set(self.number(0))
        if not is_amount_text(field.text):
            return self.refuse(field)
        field.set(self.money(self.cents(field.text, value)))
        if self.to_be_paid() != leading_number(field.text):
            return self.refuse(field, 'Amount of Payment is not equal to amount to be paid.')
        return self.set_focus(self.EndDate)

    # Leaving

    def EndDate_Change(self):
        self.date_change(self.EndDate, self.Command3D6)

    def EndDate_LostFocus(self):
        self.date_left(self.EndDate)

    def GrossPayroll_LostFocus(self):
        if self.skip_gross_check:
            self.skip_gross_check = False
            return
        field = self.GrossPayroll
        field.set(field.trimmed())
        if not is_amount_text(field.text):
            self.skip(self.set_focus, field)
        else:
            field.set(self.money(self.read_money(field.text)))

    def Command3D4_MouseDown(self):
        self.skip_gross_check = True

    Command3D5_MouseDown = Command3D4_MouseDown

    # OK

    def Command3D6_Click(self):
        if self.is_complete():
            self.skip(self.write_records)
            self.accept()

    def is_complete(self):
        amount, date, gross, employees = self.PaymentAmount, self.EndDate, self.GrossPayroll, self.NumberOfEmployees
        due = self.to_be_paid()
        amount.set(amount.trimmed())
        value = self.read_money(amount.text)
        if not is_amount_text(amount.text):
            return self.refuse(amount)
        amount.set(self.money(self.cents(amount.text, value)))
        paid = leading_number(amount.text)
        if paid < 0:
            return self.refuse(amount, 'Amount of Payment cannot be less than 0.')
        if paid == 0 and due != 0:
            return self.refuse(amount, 'Please enter amount of payment.')
        if paid == 0:
            amount.set(self.number(0))
        if due != leading_number(amount.text):
            return self.refuse(amount, 'Amount of Payment is not equal to amount to be paid.')

        if not date.trimmed():
            return self.refuse(date, ASK_DATE)
        if len(date.trimmed()) != 8:
            self.box('Invalid date value.')
            date.set('')
            return self.refuse(date)
        date.set(date.trimmed())
        if self.is_bad_date(date.text):
            date.select_all()
            return self.refuse(date, 'Invalid date value.')
        if self.year_is_refused(date.text, f"'{self.Label7.caption[:-1]}'"):
            return self.refuse(date)
        date.set(self.as_date(date.text))

        gross.set(gross.trimmed())
        value = self.read_money(gross.text)
        if not is_amount_text(gross.text):
            return self.refuse(gross)
        if value < 0:
            return self.refuse(gross, GROSS_BELOW_ZERO)
        if due == 0:
            return self.refuse(amount, 'Amount to be paid is equal to 0.')
        if value == 0:
            return self.refuse(gross, 'Please enter Gross Payroll in Remitting Period.')
        if self.has_decimals(gross.text):
            return self.refuse(gross, 'Amount of Gross Payroll in Remitting Period cannot have decimal value.', 'plain')

        employees.set(employees.trimmed())
        value = self.read(employees.text)
        if not is_amount_text(employees.text):
            return self.refuse(employees)
        if self.has_decimals(employees.text):
            employees.select_all()
            return self.refuse(employees)
        employees.set(self.number(value, '0'))
        if leading_number(employees.text) == 0 and due != 0:
            return self.refuse(employees, 'Please enter number of employees in latest pay period.')
        if value < 0:
            return self.refuse(employees, EMPLOYEES_BELOW_ZERO)
        return True

    def output(self):
        self.send_government()
        self.send_free(
            self.cents_slot('01', leading_number(self.PaymentAmount.text)),
            self.text_slot('02', self.EndDate.trimmed()),
            self.cents_slot('03', leading_number(self.GrossPayroll.text)),
            ('04', self.number(leading_number(self.NumberOfEmployees.text), '0' * 18)))

    def plan(self, draw):
        return (('GrossPayroll', draw.choice(('5000', '5000.00', '1', '0', '1234.5'))),
                ('NumberOfEmployees', draw.choice(('3', '12', '0', '1.0'))),
                ('EndDate', draw.near_now()),
                ('PaymentAmount', draw.shown(self.due())))
