"""The GST58 remittance: one payment split among categories."""

from controls import Field
from keys import AMOUNT_KEYS, ENTER
from period_screen import PeriodScreen
from values import is_amount_text, leading_number

# Field, what Enter says below zero, what OK says.
CATEGORIES = (
    ('InstalmentPayment', 'Instalment Amount cannot be less than 0.'),
    ('ArrearsPayment', 'Arrears Amount cannot be less than 0.'),
    ('OtherPayment', 'Other payment cannot be less than 0.'),
    ('AuditAssessment', 'Audit Assessment cannot be less than 0.'),
    ('NetTaxDue', 'NetTaxDue cannot be less than 0.'),
)
NO_ZERO = 'Payment enclosed cannot be 0.'
BELOW_ZERO = 'Payment enclosed cannot be less than 0.'
NOT_EQUAL = 'Payment enclosed is not equal to amount to be paid.'


class Gst58(PeriodScreen):
    codes = ('06',)
    after_period = 'InstalmentPayment'
    name = 'GOVGST58'
    caption = 'Goods and Services Tax Remittance'
    labels = {
        'Label5': 'Goods and Services Tax Remittance Details',
        'Label1': 'Payment to:',
        'Label3': 'Amount to be paid:',
        'Label6': 'Period From:',
        'Label10': 'YYYYMMDD',
        'Label7': 'To:',
        'Label11': 'YYYYMMDD',
        'Label9': 'Instalment Payment:',
        'Label13': 'Arrears Payment:',
        'Label34': 'Other Payment:',
        'label33': 'Audit Assessment:',
        'lebal10': 'Net Tax Remittance:',
        'Label45': 'Total Payment Enclosed:',
    }

    def build(self):
        self.payee = self.add_payee('PayeeName', 28)
        self.amount = self.label('AmountPaid')
        self.date_caption = self.label('lblCPayDate', 'Payment will be made on:')
        self.date = self.label('PayDate')
        self.add(Field, 'PeriodStartDate', 1, 8)
        self.add(Field, 'PeriodEndDate', 2, 8)
        for tab, (name, _) in enumerate(CATEGORIES, 3):
            self.add(Field, name, tab, 12)
        self.add(Field, 'PaymentEnclosed', 8, 12)
        self.add_buttons()

    def Form_Load(self):
        self.show_head()
        self.PaymentEnclosed.set(self.amount.caption)

    def Form_Activate(self):
        self.focus_if_able(self.PeriodStartDate)

    def categories(self):
        return [self.by_name[name] for name, _ in CATEGORIES]

    def RecalcTotal(self):
        self.PaymentEnclosed.set(self.money(self.sum_of(*self.categories()), '#0.00'))

    def in_cents(self, field):
        """The number of a field that means cents where it has no decimal separator."""
        value = self.read(field.text)
        return value if self.has_point(field.text) else value / 100

    def category_key(self, place, key):
        if key not in AMOUNT_KEYS:
            return 0
        if key == ENTER:
            name, below_zero = CATEGORIES[place]
            field = self.by_name[name]
            field.set(field.trimmed())
            if self.read(field.text) < 0:
                self.refuse(field, below_zero)
            else:
                field.set(self.number(self.in_cents(field)))
                self.skip(self.RecalcTotal)
                self.set_focus([*self.categories(), self.PaymentEnclosed][place + 1])
        return key

    def InstalmentPayment_KeyPress(self, key):
        return self.category_key(0, key)

    def ArrearsPayment_KeyPress(self, key):
        return self.category_key(1, key)

    def OtherPayment_KeyPress(self, key):
        return self.category_key(2, key)

    def AuditAssessment_KeyPress(self, key):
        return self.category_key(3, key)

    def NetTaxDue_KeyPress(self, key):
        return self.category_key(4, key)

    def PaymentEnclosed_KeyPress(self, key):
        if key not in AMOUNT_KEYS:
            return 0
        if key == ENTER:
            self.skip(self.confirm_total)
        return key

    def confirm_total(self):
        field = self.PaymentEnclosed
        field.set(field.trimmed())
        value = self.read(field.text)
        if value == 0:
            return self.refuse(field, NO_ZERO)
        if value < 0:
            return self.refuse(field, BELOW_ZERO)
        field.set(self.number(self.in_cents(field)))
        if leading_number(field.text) != leading_number(self.amount.caption):
            return self.refuse(field, NOT_EQUAL)
        return self.Command3D6_Click()

    def Command3D6_Click(self):
        if self.is_complete():
            self.write_records()
            self.accept()

    def is_complete(self):
        start, end, total = self.PeriodStartDate, self.PeriodEndDate, self.PaymentEnclosed
        if not start.trimmed():
            return self.refuse(start, self.ask_start)
        if self.is_bad_date(start.text):
            return self.refuse(start, 'Invalid date value.')
        if self.year_is_refused(start.text, self.Label6.caption[:-1]):
            return self.refuse(start)
        start.set(start.trimmed())
        if not end.trimmed():
            return self.refuse(end, self.ask_end)
        if len(end.trimmed()) != 8:
            return self.refuse(end, 'Invalid date value.')
        end.set(end.trimmed())
        if self.is_bad_date(end.text):
            return self.refuse(end, 'Invalid date value.')
        if leading_number(end.text) == leading_number(start.text):
            return self.refuse(end, 'Period starting date is same as ending date.')
        if leading_number(end.text) < leading_number(start.text):
            return self.refuse(end, 'Period ending date is incorrect.')
        if self.year_is_refused(end.text, self.Label7.caption[:-1]):
            return self.refuse(end)

        for name, below_zero in CATEGORIES:
            field = self.by_name[name]
            field.set(field.trimmed())
            value = self.read(field.text)
            if value < 0:
                return self.refuse(field, below_zero.replace('NetTaxDue', 'Net Tax Due'))
            if value != 0:
                if not is_amount_text(field.text):
                    return self.refuse(field)
                field.set(self.number(self.in_cents(field)))
            elif name != 'InstalmentPayment':
                field.set(self.number(0))
        self.RecalcTotal()

        if not total.trimmed():
            return self.refuse(total, 'Please enter amount of payment enclosed.')
        if leading_number(total.text) == 0:
            return self.refuse(total, NO_ZERO)
        if leading_number(total.text) < 0:
            return self.refuse(total, BELOW_ZERO)
        if not is_amount_text(total.text):
            return self.refuse(total)
        total.set(self.number(self.in_cents(total)))
        if leading_number(total.text) != leading_number(self.amount.caption):
            return self.refuse(total, NOT_EQUAL)
        return True

    def output(self):
        self.send_government(self.PeriodStartDate.trimmed()[:8], self.PeriodEndDate.trimmed()[:8])
        instalment, arrears, other, audit, net = self.categories()
        rows = [('01', instalment), ('02', arrears), ('03', audit), ('04', other), ('05', self.PaymentEnclosed)]
        slots = [row for row in rows if leading_number(row[1].text) != 0]
        if leading_number(net.text) != 0:
            slots.append(('06', net))
        slots = [self.cents_slot(number, leading_number(field.text)) for number, field in slots]
        for first in range(0, max(len(slots), 1), 4):
            self.send_free(*slots[first:first + 4])

    def plan(self, draw):
        start, end = draw.near_pair()
        yield 'PeriodStartDate', start
        yield 'PeriodEndDate', end
        for (name, _), amount in zip(CATEGORIES, draw.parts(self.due(), len(CATEGORIES))):
            if amount or draw.odds(.5):
                yield name, draw.shown(amount)
        if draw.odds(.4):
            yield 'PaymentEnclosed', draw.shown(self.due())
