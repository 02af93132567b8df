"""Who makes a payment to a charity."""

import re

from controls import Button, Field, List
from keys import AMOUNT_KEYS, ENTER, QUOTE, capital
from newer_screen import NewerScreen
from values import blanks, leading_number

LENGTHS = {
    'txtName': 60, 'txtAddress': 60, 'txtCity': 20, 'cmbProvince': None, 'txtPostalCode': 9, 'txtEmail': 60,
    'txtPhoneNo1': 3, 'txtPhoneNo2': 3, 'txtPhoneNo3': 4, 'txtAmount': 16, 'txtPurpose': 60,
}
PROVINCES = ('AB', 'BC', 'MB', 'NB', 'NL', 'NS', 'NT', 'NU', 'ON', 'PE', 'QC', 'SK', 'YT')
ADDRESS = re.compile(
    r"^[a-z0-9!#$%&'*+/=?^_`{|}~-]+(?:\.[a-z0-9!#$%&'*+/=?^_`{|}~-]+)*@(?:[a-z0-9](?:[a-z0-9-]*[a-z0-9])?\.)+"
    r'[a-z0-9](?:[a-z0-9-]*[a-z0-9])?$', re.IGNORECASE | re.ASCII)
FORM = "e-mail address with the form 'name@example.com'."

class Donation(NewerScreen):
    codes = ('10',)
    name = 'frmDonation'
    caption = 'Payment From'
    looks_at_hold = True
    own_properties = {'BusinessName': ('', '', ' ', 'Levy & Sons', 'x' * 60, 'x' * 61)}

    Form_KeyDown = None
    labels = {
        'Label1': 'Please indicate the name and address of the person making the payment:',
        'Label2': 'If a donation receipt is required, please provide the information requested below:',
        'Label4': 'Payment to:',
        'Label3': 'Total to be paid:',
        'lblCName': 'Name:',
        'lblCAddress': 'Address:',
        'lblCCity': 'City:',
        'lblCProvince': 'Province:',
        'lblCPostalCode': 'Postal Code:',
        'Label8': 'Email (if available):',
        'lblCPhoneNo': 'Phone No:',
        'lblCAmount': 'Amount:',
        'lblCPurpose': 'Purpose:',
    }

    def build(self):
        self.label('lblBillerName')
        self.amount = self.label('lblAmountPaid')
        self.date_caption = self.label('lblCPayDate', 'Date:')
        self.date = self.label('lblPayDate')
        for tab, (name, length) in enumerate(LENGTHS.items()):
            if name == 'cmbProvince':
                self.add(List, name, tab)
            else:
                self.add(Field, name, tab, length, lines=name == 'txtPurpose')
        self.add(Button, 'cmdOK', None, '&OK')
        self.add(Button, 'cmdCancel', None, '&Cancel')

    def amount_to_be_paid(self):
        return self.number(leading_number(self.payment.paid_amount), '#0.00')

    def Form_Load(self):
        self.lblBillerName.caption = self.payment.CompName
        self.show_head()
        self.txtAmount.set(self.amount.caption)
        self.cmbProvince.fill(PROVINCES)
        if self.payment.BusinessName.strip(' '):
            self.txtName.set(self.payment.BusinessName)
            self.txtName.set_enabled(False)

    def Form_KeyPress(self, key):
        if key == ENTER:
            self.send_tab()
            return 0
        return key

    def Form_QueryUnload(self, reason):
        self.close_as_cancelled(reason)

    def txtName_KeyPress(self, key):
        return 0 if key == QUOTE else capital(key)

    txtAddress_KeyPress = txtCity_KeyPress = txtPostalCode_KeyPress = txtPurpose_KeyPress = txtName_KeyPress

    def txtEmail_KeyPress(self, key):
        return 0 if key == QUOTE else key

    def txtPhoneNo1_KeyPress(self, key):
        return key if key in AMOUNT_KEYS else 0

    txtPhoneNo2_KeyPress = txtPhoneNo3_KeyPress = txtAmount_KeyPress = txtPhoneNo1_KeyPress

    def txtPhoneNo1_Change(self):
        self.move_on(self.txtPhoneNo1, self.txtPhoneNo2)

    def txtPhoneNo2_Change(self):
        self.move_on(self.txtPhoneNo2, self.txtPhoneNo3)

    def txtPhoneNo3_Change(self):
        self.move_on(self.txtPhoneNo3, self.txtAmount)

    def ValidateForm(self):
        for name in ('txtName', 'txtAddress', 'txtCity', 'txtPostalCode', 'txtEmail', 'txtPurpose'):
            field = self.by_name[name]
            passes = name != 'txtEmail' or self.email_passes(field.text)
            if not passes or len(field.text) > LENGTHS[name]:
                return self.refuse_selected(field)
        return True

    def email_passes(self, text):
        complaint = ''
        if text.strip(' '):
            if len(text.strip(' ')) < 5:
                complaint = 'Please enter a complete ' + FORM
            elif not ADDRESS.match(text):
                complaint = 'Please enter a valid ' + FORM
        if complaint:
            self.box(complaint, title='E-mail Address entry')
        return not complaint

    def refuse_selected(self, field):
        field.select_all()
        if field.visible and field.enabled:
            self.set_focus(field)
        return False

    def output(self):
        for text in (
            'NAME: ' + self.txtName.text, 'ADDRESS: ' + self.txtAddress.text,
            f'{blanks(9)}{self.txtCity.text} {self.cmbProvince.shown_text()}',
            'POSTAL CODE: ' + self.txtPostalCode.text,
            'EMAIL: ' + self.txtEmail.text,
            f'PHONE NO: {self.txtPhoneNo1.text}-{self.txtPhoneNo2.text}-{self.txtPhoneNo3.text}',
            'AMOUNT: ' + self.txtAmount.text, 'PURPOSE: ' + self.txtPurpose.text,
        ):
            self.send('P', text + blanks(70 - len(text)) + blanks(82))

    def plan(self, draw):
        rows = (
            ('txtName', draw.choice(('Hélène Côté', 'levy', 'A "B" c'))),
            ('txtAddress', draw.choice(('12 rue de l\'Église', 'x' * 60, 'straße ÿ'))),
            ('txtCity', draw.choice(('Montréal', 'x' * 20))),
            ('cmbProvince', draw.choice(PROVINCES)),
            ('txtPostalCode', draw.choice(('h2x 1y4', 'T5J'))),
            ('txtEmail', draw.choice((
                '', 'a@b.ca', 'a@b', 'x@y', 'A.B@Example.COM', '    ', 'name@example.c-', 'a b@c.de'))),
            ('txtPhoneNo1', '514'), ('txtPhoneNo2', '555'), ('txtPhoneNo3', '0199'),
            ('txtAmount', draw.shown(self.due())),
            ('txtPurpose', draw.choice(('books', 'two\nlines', 'é' * 60))),
        )
        return [row for row in rows if draw.odds(.6)]
