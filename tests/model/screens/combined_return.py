"""A GST/HST return and a QST return, settled by one payment."""

import datetime

from controls import Button, Field
from keys import DATE_KEYS, LETTERS, capital
from newer_screen import QuebecScreen, amounts
from screen import ZEROS
from values import a_year_later, is_numeric, pad_right, yyyymmdd

ROWS = (
    ('GSTCollectible', 'GST/HST collectible and adjustments (105)'),
    ('GSTITCs', 'ITCs payable and adjustments (108)'),
    ('GSTInstalment', 'GST/HST instalment (110)'),
    ('OtherGSTHSTRebates', 'Other GST/HST Rebates (111)'),
    ('NewHousingRebate', 'New Housing Rebate Included in the ITCs (135)'),
    ('QSTCollectible', 'QST collectible and adjustments (205):'),
    ('QSTITRs', 'ITRs payable and adjustments (208):'),
    ('QSTInstalment', 'QST instalment (210):'),
    ('OtherQSTRebates', 'Other QST Rebates (211)'),
    ('Supplies', 'Supplies (sales figure) (101):'),
)
PERIODS = ('txtGSTPeriodFrom', 'txtGSTPeriodTo', 'txtQSTPeriodFrom', 'txtQSTPeriodTo')


def is_business_number(digits):
    """The check digit of a number of nine digits."""
    if not digits.isdigit():
        return False
    doubled = (f'{2 * int(each):02}' for each in digits[1::2])
    return (sum(map(int, digits[::2])) + sum(int(each) for pair in doubled for each in pair)) % 10 == 0


@amounts({name: 'txt' + following for (name, _), (following, _) in zip(ROWS, ROWS[1:])} | {'Supplies': 'cmdOK'})
class CombinedReturn(QuebecScreen):
    codes = ('18',)
    name = 'frmQue_Rev_QSTGSTComb'
    caption = 'Quebec GST/HST - QST Return'
    labels = {
        'lblGSTAccountNumber': 'GST account number:',
        'Label6': 'GST/HST From:',
        'Label7': 'To:',
        'Label2': 'QST From:',
        'Label3': 'To:',
        'Label4': 'Reporting Period',
        'lblGSTPayable': 'GST/HST payable or refund (113)',
        'lblQSTPayable': 'QST payable or refund (213):',
        'lblAmountPayable': 'Amount payable:',
    }

    def build(self):
        self.add_head()
        self.add(Field, 'txtGSTAccountNumber', 0, 15)
        for tab, name in enumerate(PERIODS, 1):
            self.add(Field, name, tab, 8)
        self.add_amounts(5, ROWS)
        self.add(Button, 'cmdOK', 15, '&OK')
        self.add(Button, 'cmdCancel', 16, 'Cancel')
        for name, tab in (('txtGSTPayable', 29), ('txtQSTPayable', 34), ('txtAmountPayable', 39)):
            self.add(Field, name, tab, 12, locked=True, stop=False)

    # The account

    def txtGSTAccountNumber_KeyPress(self, key):
        if key in LETTERS:
            return capital(key)
        return key if key in DATE_KEYS else 0

    def txtGSTAccountNumber_Change(self):
        field = self.txtGSTAccountNumber
        self.filter(field, lambda text: ''.join(each for each in text if each.isascii() and each.isalnum()).upper())
        self.move_on(field, self.txtGSTPeriodFrom)

    def txtGSTAccountNumber_LostFocus(self):
        self.guarded(self.txtGSTAccountNumber, self.check_account)

    def check_account(self):
        text, locale = self.txtGSTAccountNumber.text, self.host.locale
        if (len(text) >= 15 and is_numeric(text[:9], locale) and is_numeric(text[-4:], locale) and text[9:11] == 'RT'
                and is_business_number(text[:9])):
            return True
        self.box('The GST Account Number must be a valid CRA Business Number in the form 999999999RT9999.')
        return False

    # The periods

    def txtGSTPeriodFrom_Change(self):
        self.digits_change(self.txtGSTPeriodFrom, self.txtGSTPeriodTo)

    def txtGSTPeriodTo_Change(self):
        self.digits_change(self.txtGSTPeriodTo, self.txtQSTPeriodFrom)

    def txtQSTPeriodFrom_Change(self):
        self.digits_change(self.txtQSTPeriodFrom, self.txtQSTPeriodTo)

    def txtQSTPeriodTo_Change(self):
        self.digits_change(self.txtQSTPeriodTo, self.txtGSTCollectible)

    def txtGSTPeriodFrom_LostFocus(self):
        self.guarded(self.txtGSTPeriodFrom, lambda: self.check_from(self.txtGSTPeriodFrom, self.txtGSTPeriodTo, 'GST '))

    def txtGSTPeriodTo_LostFocus(self):
        limit = a_year_later(self.host.today) - datetime.timedelta(days=1)
        self.guarded(self.txtGSTPeriodTo,
                     lambda: self.check_to(self.txtGSTPeriodFrom, self.txtGSTPeriodTo, limit, 'GST '))

    def txtQSTPeriodFrom_LostFocus(self):
        self.guarded(self.txtQSTPeriodFrom, lambda: self.check_from(self.txtQSTPeriodFrom, self.txtQSTPeriodTo, 'QST '))

    def txtQSTPeriodTo_LostFocus(self):
        limit = a_year_later(self.host.today)
        self.guarded(self.txtQSTPeriodTo,
                     lambda: self.check_to(self.txtQSTPeriodFrom, self.txtQSTPeriodTo, limit, 'QST '))

    # The balances

    def RecalcForm(self):
        self.txtGSTPayable.set(self.money(self.sum_of(
            self.txtGSTCollectible, self.txtGSTITCs, self.txtGSTInstalment, self.txtOtherGSTHSTRebates, sign=-1)))
        self.txtQSTPayable.set(self.money(self.sum_of(
            self.txtQSTCollectible, self.txtQSTITRs, self.txtQSTInstalment, self.txtOtherQSTRebates, sign=-1)))
        self.txtAmountPayable.set(self.money(self.sum_of(self.txtGSTPayable, self.txtQSTPayable)))

    def ValidateForm(self):
        return self.balance_agrees(self.txtGSTCollectible) is not False

    def output(self):
        def slot(number, name):
            return self.amount_slot(number, self.by_name['txt' + name])

        def text(number, name):
            return number, pad_right(self.by_name['txt' + name].text, 18)

        self.send_government(self.txtQSTPeriodFrom.text, self.txtQSTPeriodTo.text)
        self.send_free(slot('01', 'Supplies'), slot('02', 'QSTCollectible'), slot('03', 'QSTITRs'),
                       slot('04', 'QSTInstalment'))
        self.send_free(slot('05', 'QSTPayable'), slot('06', 'GSTCollectible'), slot('07', 'GSTITCs'),
                       slot('08', 'GSTInstalment'))
        self.send_free(slot('09', 'GSTPayable'), text('10', 'GSTAccountNumber'), text('11', 'GSTPeriodFrom'),
                       text('12', 'GSTPeriodTo'))
        self.send_free(slot('13', 'OtherQSTRebates'), slot('14', 'OtherGSTHSTRebates'), slot('15', 'NewHousingRebate'),
                       ('16', ZEROS))

    def plan(self, draw):
        today = self.host.today
        good = '123456782RT0001', '123456782rt0001', '000000000RT1E12'
        bad = '123456789RT0001', '123456782XX0001', '12345678ART0001', '123456782RT1E99'
        yield 'txtGSTAccountNumber', draw.choice(good if draw.odds(.8) else bad)
        for name in ('GST', 'QST'):
            start = draw.day(datetime.date(1992, 7, 2), today - datetime.timedelta(days=1))
            yield f'txt{name}PeriodFrom', yyyymmdd(start)
            yield f'txt{name}PeriodTo', draw.date(start, a_year_later(today))
        names = [name for name, _ in ROWS if name not in ('NewHousingRebate', 'Supplies')]
        total = self.due() if draw.odds(.8) else -500
        lines = dict(zip(names, draw.parts(total, 8, (1, -1, -1, -1) * 2)))
        for name, _ in ROWS:
            yield 'txt' + name, draw.shown(lines[name] if name in lines else draw.cents())
