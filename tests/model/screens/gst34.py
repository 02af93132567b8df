"""The GST34 return: its lines, what is payable or refunded, and whether that agrees with the payment."""

from controls import Field
from keys import AMOUNT_KEYS, COMMA, DATE_KEYS, DIGITS, ENTER, MINUS, POINT
from period_screen import PeriodScreen
from values import is_amount_text, leading_number, money

# Field, what is said below zero.
AMOUNTS = {
    'InstalmentPayment': 'Instalment Amount cannot be less than 0.',
    'Rebates': 'Amount of rebates cannot be less than 0.',
    'RealProperty': 'Amount of tax due on acquisition of real property cannot be less than 0.',
    'ImportedTax': 'Amount of tax due on taxable supplies cannot be less than 0.',
    'TotalGST': 'Amount in total GST/HST and adjustments for period field cannot be less than 0.',
    'TotalITCs': 'Amount in total ITCs and adjustments field cannot be less than 0.',
}
CALCULATED = ('NetTax', 'RefundAmount', 'PaymentEnclosed')
AFTER = dict(zip(AMOUNTS, [*list(AMOUNTS)[1:], 'Command1'])) | dict.fromkeys(CALCULATED, 'Command1')
SALES_BELOW_ZERO = 'Amount in sales and other revenue cannot be less than 0.'
SALES_DECIMALS = 'Amount of sales and other revenue cannot have decimal value.'
TWO_DOLLARS = 2 * 10000


class Gst34(PeriodScreen):
    codes = ('05',)
    after_period = 'SalesRevenue'
    name = 'GOVGST34'
    caption = 'Goods and Services Tax  / Harmonized Sales Tax Return for Registrants '
    buttons = ('Command1', 'Command2', 'Command3')
    labels = {
        'Label4': 'Goods and Services Tax / Harmonized Sales Tax Return for Registrants (Form GST34) Details',
        'Label6': 'Reporting Period From:',
        'Label8': 'YYYYMMDD',
        'Label7': 'To:',
        'Label9': 'YYYYMMDD',
        'Label11': 'Sales and  Other Revenue (101):',
        'Label2': '.00',
        'Label15': 'Instalments and Other Annual Filer Payments (110):',
        'Label16': 'Rebates (111):',
        'Label17': 'GST/HST due on acquisition of taxable real property (205):',
        'Label18': 'Other GST/HST to be self-assessed (405):',
        'Label12': 'Total GST/HST and adjustments for period (105):',
        'Label13': 'Total ITCs and adjustments (108):',
        'Label14': 'Net tax (109):',
        'Label19': 'Refund claimed (114):',
        'Label20': 'Payment enclosed (115):',
        'Label1': 'Payment to:',
        'Label3': 'Amount to be paid:',
    }

    def build(self):
        self.payee = self.add_payee('PayeeName', 36)
        self.amount = self.label('AmountPaid')
        self.date_caption = self.label('lblCPayDate', 'Payment will be made on:')
        self.date = self.label('PayDate')
        self.add(Field, 'PeriodStartDate', 1, 8)
        self.add(Field, 'PeriodEndDate', 2, 8)
        self.add(Field, 'SalesRevenue', 3, 10)
        for tab, name in enumerate(AMOUNTS, 4):
            self.add(Field, name, tab, 12)
        for tab, name in enumerate(CALCULATED, 10):
            self.add(Field, name, tab, 13 if name == 'NetTax' else 12, locked=True, stop=False)
        self.add_buttons()

    def Form_Load(self):
        self.show_head()

    def Form_Activate(self):
        self.focus_if_able(self.PeriodStartDate)

    Command2_Click = PeriodScreen.cancel
    Command3_Click = PeriodScreen.open_help

    # The calculated lines

    def balance(self):
        total = leading_number(self.NetTax.text) - leading_number(self.InstalmentPayment.text)
        total -= leading_number(self.Rebates.text)
        total += leading_number(self.RealProperty.text)
        return money(total + leading_number(self.ImportedTax.text))

    def RecalcForm(self):
        self.NetTax.set(self.number(leading_number(self.TotalGST.text) - leading_number(self.TotalITCs.text)))
        balance = self.balance()
        self.RefundAmount.set(self.money(-balance if balance <= -TWO_DOLLARS else 0))
        self.PaymentEnclosed.set(self.money(balance if balance >= TWO_DOLLARS else 0))

    # Keys

    def limit_amount_key(self, field, key, most):
        """The key, or 0 where it would make the amount too wide; and whether Enter may move on."""
        text, (first, last) = field.text, field.selection
        if key == POINT and '.' in text and '.' not in field.selected():
            return 0, True
        if key not in DIGITS | {POINT, MINUS} or (first == 0 and last == len(text)):
            return key, True
        point = text.find('.') + 1

        def fits(part, longest):
            return len(part) <= (longest + 1 if leading_number(part) < 0 else longest)

        passes = True
        if key in DIGITS:
            if not point:
                passes = fits(text, most - 1)
            elif first >= point:
                passes = len(text) - point <= 1
            else:
                passes = fits(text[:point - 1], most - 3)
        elif key == POINT and not point:
            passes = fits(text, most - 2)
        if not passes:
            self.noticed.append('beep')
        return (key if passes else 0), passes

    def amount_key(self, name, key):
        allowed = AMOUNT_KEYS
        if key not in allowed and not (name == 'NetTax' and key == MINUS):
            return 0
        limited = self.skip(self.limit_amount_key, self.by_name[name], key, 12 if name == 'NetTax' else 11)
        key, accepted = limited or (key, True)
        if key == ENTER and accepted:
            self.set_focus(self.by_name[AFTER[name]])
        return key

    def SalesRevenue_KeyPress(self, key):
        if key not in DATE_KEYS | {COMMA}:
            return 0
        if key == ENTER:
            self.set_focus(self.InstalmentPayment)
        return key

    # Leaving an amount

    def shows_cents(self, field, value):
        """The decimal rule."""
        field.set(self.money(self.cents(field.text, value)))

    def amount_left(self, name):
        field = self.by_name[name]
        field.set(field.trimmed())
        value = self.read_money(field.text)
        if field.text and value < 0 and name in AMOUNTS:
            self.box(AMOUNTS[name])
            if name == 'TotalITCs':
                field.select_all()
            else:
                field.set('')
            self.skip(self.set_focus, field)
            return
        if value != 0:
            if not is_amount_text(field.text):
                self.skip(self.set_focus, field)
                return
            self.shows_cents(field, value)
        else:
            field.set(self.number(0))
        self.RecalcForm()

    def NetTax_LostFocus(self):
        field = self.NetTax
        field.set(field.trimmed())
        if not field.text:
            self.refuse(field, 'Please enter amount of Net Tax.')
            return
        value = money(leading_number(field.text))
        if value != 0:
            self.shows_cents(field, value)
        else:
            field.set(self.number(0))
        self.RecalcForm()

    def SalesRevenue_LostFocus(self):
        field = self.SalesRevenue
        field.set(field.trimmed())
        if field.text:
            self.skip(self.sales_pass, field)

    def sales_pass(self, field):
        value = self.read(field.text)
        if value < 0:
            self.box(SALES_BELOW_ZERO)
            field.set('')
            return self.refuse(field)
        if value != 0:
            if not is_amount_text(field.text):
                return self.refuse(field)
            if self.has_decimals(field.text):
                return self.refuse(field, SALES_DECIMALS, 'plain')
        return True

    # OK

    def Command1_Click(self):
        if self.is_complete():
            self.write_records()
            self.accept()

    def is_complete(self):
        return self.dates_pass() and self.lines_pass() and self.balance_passes()

    def dates_pass(self):
        start, end = self.PeriodStartDate, self.PeriodEndDate
        if not start.trimmed():
            return self.refuse(start, self.ask_start)
        if len(start.trimmed()) != 8:
            return self.refuse(start)
        start.set(start.trimmed())
        if self.is_bad_date(start.text):
            return self.refuse(start, 'Invalid date value.')
        if self.year_is_refused(start.text, "'Reporting Period From'"):
            return self.refuse(start)
        start.set(self.as_date(start.text))
        if not end.trimmed():
            return self.refuse(end, self.ask_end)
        if len(end.trimmed()) != 8:
            return self.refuse(end, 'Invalid date value.')
        end.set(end.trimmed())
        if self.is_bad_date(end.text):
            return self.refuse(end, 'Invalid date value.')
        if self.year_is_refused(end.text, "'Reporting Period To'"):
            return self.refuse(end)
        end.set(self.as_date(end.text))
        if leading_number(end.text) == leading_number(start.text):
            return self.refuse(end, 'Reporting period starting date cannot be the same as ending date.')
        if leading_number(end.text) < leading_number(start.text):
            return self.refuse(end, 'Reporting period ending date is incorrect.')
        return True

    def lines_pass(self):
        sales = self.SalesRevenue
        sales.set(sales.trimmed())
        if not self.sales_pass(sales):
            return False
        if self.read(sales.text) == 0:
            sales.set('0')
        for name, below_zero in AMOUNTS.items():
            field = self.by_name[name]
            field.set(field.trimmed())
            value = self.read(field.text)
            if value < 0:
                self.box(below_zero)
                field.set('')
                return self.refuse(field)
            if value != 0 and not is_amount_text(field.text):
                return self.refuse(field)
            self.show_number_in_cents(field, value)
        net = self.NetTax
        net.set(net.trimmed())
        self.show_number_in_cents(net, leading_number(net.text))
        self.RecalcForm()
        total, credits, net_tax = (self.to_money(each.text) for each in (self.TotalGST, self.TotalITCs, net))
        if total - credits != net_tax:
            return self.refuse(net, 'Amount of Net tax is incorrect.')
        return True

    def show_number_in_cents(self, field, value):
        field.set(self.number(value if self.has_point(field.text) or value == 0 else value / 100))

    def balance_passes(self):
        balance = self.balance()
        paid = money(leading_number(self.amount.caption))
        two = self.number(2, '$0.00')
        if balance >= 0:
            self.PaymentEnclosed.set(self.money(balance))
            self.RefundAmount.set(self.number(0))
            if balance < TWO_DOLLARS:
                return self.refuse(self.PaymentEnclosed, f'You do not need to pay a balance less than {two}',
                                   'information')
            if paid != balance:
                return self.refuse(self.PaymentEnclosed, 'The amount in the Payment Enclosed field is not equal to the '
                                                         'amount to be paid.')
            return True
        self.PaymentEnclosed.set(self.number(0))
        self.RefundAmount.set(self.money(balance))
        if balance > -TWO_DOLLARS:
            return self.refuse(self.RefundAmount, f'A balance of less than {two} will not be refunded.', 'information')
        if paid != 0:
            return self.refuse(self.Command2, 'In order to apply for a refund, the amount to be paid must be zero.')
        return True

    def strict_slot(self, number, field):
        return number, self.money(self.to_money(field.text) * 100, '0' * 18)

    def output(self):
        self.send_government(self.PeriodStartDate.trimmed()[:8], self.PeriodEndDate.trimmed()[:8])
        self.send_free(self.cents_slot('01', leading_number(self.SalesRevenue.text)),
                       self.cents_slot('02', leading_number(self.TotalGST.text)),
                       self.strict_slot('03', self.InstalmentPayment), self.strict_slot('04', self.TotalITCs))
        net = self.to_money(self.NetTax.text) * 100
        net_text = self.money(-net, '0' * 17 + '-') if net < 0 else self.money(net, '0' * 18)
        self.send_free(self.strict_slot('05', self.Rebates), ('06', net_text),
                       self.strict_slot('07', self.RealProperty), self.strict_slot('08', self.RefundAmount))
        self.send_free(self.strict_slot('09', self.ImportedTax), self.strict_slot('10', self.PaymentEnclosed))

    def plan(self, draw):
        start, end = draw.near_pair()
        yield 'PeriodStartDate', start
        yield 'PeriodEndDate', end
        yield 'SalesRevenue', draw.choice(('5000', '0', '5,000', '9999999999'))
        total = self.due()
        if total == 0 or draw.odds(.1):
            total = draw.choice((-200, -199, -12345, 0, 199, 200))
        signs = (-1, -1, 1, 1, 1, -1)
        for name, amount in zip(AMOUNTS, draw.parts(total, 6, signs)):
            yield name, draw.shown(amount)
        if draw.odds(.2):
            yield draw.choice(CALCULATED), ''


for each in [*AMOUNTS, *CALCULATED]:
    def pressed(self, key, name=each):
        return self.amount_key(name, key)

    def left(self, name=each):
        self.amount_left(name)

    setattr(Gst34, each + '_KeyPress', pressed)
    if each != 'NetTax':
        setattr(Gst34, each + '_LostFocus', left)
