"""The invoices that a payment settles."""

from controls import Button, Check, Field, List
from keys import AMOUNT_KEYS, DATE_KEYS, ENTER, MINUS, QUOTE
from older_screen import OlderScreen
from values import RunTimeError, format_money, is_amount_text, is_valid_date, leading_number, money, number_text

TITLE = 'Invoice Payments Details'
STORE = 51
LARGEST = 9999999.99
ASK_DATE = 'Please enter invoice date.'
ASK_NUMBER = 'Please enter invoice number or description'
ASK_AMOUNT = 'Please enter amount of invoice.'
TOO_MUCH = 'Invoice amount exceeds max. amount.'


class InvoicePayments(OlderScreen):
    codes = ('08', '11')
    name = 'InvoicePayments'
    caption = 'Zelmor - Invoice Payments'
    amount_pattern = '#,###,###0.00'
    buttons = ('cmdOK', 'cmdCancel', 'cmdHelp')
    labels = {
        'Label1': 'Payment to:',
        'Label3': 'Amount to be paid:',
        'Label7': 'Invoice Payments Details',
        'Label12': 'Invoice Date          Invoice No./Description                                Amount',
    }

    def build(self):
        self.payee = self.add_payee('InvoicePayeeName', 19)
        self.amount = self.label('InvoicePaymentAmount')
        self.date_caption = self.label('lblCPayDate', 'Payment will be made on:')
        self.date = self.label('InvoicePaymentDate')
        self.label('Label2', 'If you wish to delete an invoice payment, select the item in the list of invoice '
                             'payments, then select Cancel an Invoice button.')
        self.add(Check, 'InvoiceStatementOnly(0)', 1, 'Paying statement of account only')
        self.add(Check, 'InvoiceStatementOnly(1)', 2, 'Paying with details below')
        self.add(Field, 'InvoiceDate', 3, 8)
        self.add(Field, 'InvoiceNumber', 4, 27)
        self.add(Field, 'InvoiceAmount', 5, 12)
        self.add(List, 'InvoicePaymentList', 6)
        self.add(Button, 'CancelInvoice', 7, 'Cancel an &Invoice')
        self.add_buttons(20, 21, 22)

    cmdCancel_Click = OlderScreen.cancel
    cmdHelp_Click = OlderScreen.open_help

    def box(self, text, style='critical', title='', answers=('OK',)):
        return super().box(text, style, title or TITLE, answers)

    def Form_Load(self):
        self.lines = []
        self.amount_cleared = False
        self.show_head()
        held = self.payment.APHoldFlg == 1
        self.InvoiceStatementOnly[1 if held else 0].set(True)
        self.prefix = 'For HOLD payment, invoice payment details are mandatory.' if held else ''
        self.remaining = self.whole_amount()
        self.follow_rows()

    def whole_amount(self):
        return money(leading_number(self.payment.paid_amount))

    def follow_rows(self):
        """What can be cancelled."""
        self.Label2.set_visible(bool(self.lines))
        self.CancelInvoice.set_enabled(bool(self.lines))

    # A statement alone, or with details

    def InvoiceStatementOnly_Click(self, index):
        self.InvoiceStatementOnly[1 - index].set(not self.InvoiceStatementOnly[index].on)
        self.focus_if_able(self.InvoiceDate)

    def InvoiceStatementOnly_KeyPress(self, index, key):
        if key == ENTER:
            self.InvoiceStatementOnly[index].set(True)
            if self.InvoiceStatementOnly[0].on:
                self.accept()
            else:
                self.set_focus(self.InvoiceDate)
        return key

    # An invoice, field by field

    def InvoiceDate_KeyPress(self, key):
        if key not in DATE_KEYS:
            return 0
        if key == ENTER:
            self.amount_cleared = False
            date = self.InvoiceDate
            if not date.trimmed():
                self.refuse(date, ASK_DATE)
            elif len(date.trimmed()) != 8:
                self.refuse(date, 'Invalid date value.')
            elif self.date_passes():
                date.set(self.as_date(date.text))
                self.set_focus(self.InvoiceNumber)
        return key

    def date_passes(self):
        """A date that can't be read is a failure here."""
        self.InvoiceDate.set(self.InvoiceDate.trimmed())
        return (is_valid_date(self.InvoiceDate.text, self.host.today, self.host.locale)
                or self.refuse(self.InvoiceDate, 'Invalid date value.'))

    def InvoiceNumber_KeyPress(self, key):
        if key == QUOTE:
            return 0
        if key == ENTER:
            if not self.InvoiceNumber.trimmed():
                self.refuse(self.InvoiceNumber, ASK_NUMBER)
            else:
                self.amount_cleared = False
                self.set_focus(self.InvoiceAmount)
        return key

    def InvoiceAmount_KeyDown(self, key):
        """The first key takes the amount away that was suggested."""
        if key != 'Enter' and not self.amount_cleared:
            self.InvoiceAmount.set('')
            self.set_focus(self.InvoiceAmount)
            self.amount_cleared = True
        return key

    def InvoiceAmount_KeyPress(self, key):
        if key not in AMOUNT_KEYS | {MINUS}:
            return 0
        if key == ENTER and self.line_is_complete():
            self.add_line()
            self.follow_rows()
            self.set_focus(self.cmdOK if self.InvoiceAmount.text == '0.00' else self.InvoiceDate)
            self.amount_cleared = False
        return key

    def line_is_complete(self):
        date, number, amount = self.InvoiceDate, self.InvoiceNumber, self.InvoiceAmount
        if not amount.trimmed():
            return self.refuse(amount, ASK_AMOUNT)
        if not date.trimmed():
            return self.refuse(date, ASK_DATE)
        if len(date.trimmed()) != 8:
            return self.refuse(date)
        if not self.date_passes():
            return False
        if not number.trimmed():
            return self.refuse(number, ASK_NUMBER + '.')
        return self.amount_passes()

    def amount_passes(self):
        amount = self.InvoiceAmount
        amount.set(amount.trimmed())
        value = self.cents(amount.text, money(leading_number(amount.text)))
        amount.set(self.money(value))
        if value > self.remaining:
            return self.refuse_selected(amount)
        if leading_number(amount.trimmed()) > LARGEST:
            return self.refuse(amount, TOO_MUCH)
        return True

    def refuse_selected(self, field):
        field.select_all()
        return self.refuse(field)

    def add_line(self):
        if len(self.lines) >= STORE:
            raise RunTimeError(9)
        date, number = self.InvoiceDate.text, self.InvoiceNumber.text
        amount = number_text(leading_number(self.InvoiceAmount.trimmed()))
        self.lines.append((date, number, amount))
        shown = self.number(leading_number(amount)).rjust(11)
        self.InvoicePaymentList.rows.append(f'{date}{" " * 6}{number:27}  {shown}')
        self.count_again()
        self.InvoiceDate.set('')
        self.InvoiceNumber.set('')
        self.suggest()

    def count_again(self):
        self.remaining = self.whole_amount() - sum(money(leading_number(amount)) for _, _, amount in self.lines)

    def suggest(self):
        self.InvoiceAmount.set(self.money(self.remaining).strip(' '))

    # The list

    def InvoicePaymentList_Click(self):
        if self.InvoicePaymentList.row >= 0:
            self.CancelInvoice.set_enabled(True)

    def CancelInvoice_Click(self):
        row = self.InvoicePaymentList.row
        if row < 0:
            self.box('Please select item in the list of invoice payments and then select Cancel an Invoice button.',
                     'information')
            return
        if self.box('Are you sure you wish to delete this invoice payment?', 'question', '', ('Yes', 'No')) == 'Yes':
            if len(self.lines) == STORE:
                raise RunTimeError(9)
            del self.lines[row]
            self.count_again()
            self.suggest()
            del self.InvoicePaymentList.rows[row]
            self.InvoicePaymentList.row = -1
        self.follow_rows()
        self.set_focus(self.InvoiceDate)

    # OK

    def cmdOK_Click(self):
        is_first = self.InvoiceStatementOnly[1].on and not self.lines
        if is_first or leading_number(self.InvoiceAmount.text) != 0:
            if not self.pending_line_passes(None if is_first else 'Invalid date value.'):
                return
            self.add_line()
        self.follow_rows()
        if not self.lines:
            self.chosen = True
            self.box('Invoice Details Must Be Entered.', 'exclamation', 'Invoice Details')
        elif self.remaining != 0:
            self.refuse(self.InvoiceDate, 'Amount to be paid does not equal total amount of invoices.')
        else:
            self.write_records()
            self.accept()

    def pending_line_passes(self, wrong_length):
        date, number, amount = self.InvoiceDate, self.InvoiceNumber, self.InvoiceAmount
        if not date.trimmed():
            return self.refuse(date, self.prefix + ASK_DATE)
        if len(date.trimmed()) != 8:
            return self.refuse(date, wrong_length)
        if not self.date_passes():
            return False
        date.set(self.as_date(date.text))
        if not number.trimmed():
            return self.refuse(number, f'{self.prefix}{ASK_NUMBER}.')
        if not amount.trimmed():
            return self.refuse(amount, self.prefix + ASK_AMOUNT)
        amount.set(amount.trimmed())
        if not is_amount_text(amount.text):
            return self.refuse_selected(amount)
        return self.amount_passes()

    def entry(self, line):
        date, number, amount = line
        cents = money(leading_number(amount) * 100)
        shown = format_money(cents, ' 000000000' if cents >= 0 else '000000000', self.host.locale)
        return f'{date.strip(" ")[:8]:8}', shown, f'{number.strip(" ")[:27]:27}'

    def output(self):
        entries = [self.entry(line) for line in self.lines]
        if not self.writes_file():
            self.records.extend(entries)
            return
        for first in range(0, len(entries), 2):
            self.send('R', ''.join(''.join(each) for each in entries[first:first + 2]).ljust(90) + ' ' * 62)

    def plan(self, draw):
        count = draw.choice((1, 1, 2, 3)) if draw.odds(.995) else 53
        if draw.odds(.8):
            yield 'InvoiceStatementOnly(1)', ''
        for amount in draw.parts(self.due(), count) if count < 50 else [1] * count:
            yield 'InvoiceDate', draw.near_now()
            yield 'InvoiceNumber', draw.choice(('A-17', 'Café 12', 'no "quotes"', 'x' * 27))
            yield 'InvoiceAmount', draw.shown(-amount if draw.odds(.05) else amount)
            if draw.odds(.1) and self.lines and self.up:
                yield 'InvoicePaymentList', draw.choice(self.InvoicePaymentList.rows)
                yield 'CancelInvoice', ''
