"""What the older screens share: Enter in a field, Help, and a date that a payment on hold has not."""

from controls import Button, Field
from keys import DATE_KEYS, ENTER
from screen import Screen
from values import leading_number


class OlderScreen(Screen):
    """A form whose fields are confirmed by Enter, with a Help button and a date that a payment on hold has not."""

    amount_pattern = '0.00'
    looks_at_hold = True
    buttons = ('Command3D6', 'Command3D5', 'Command3D4')

    def add_buttons(self, *tabs):
        captions = ('&OK', '&Cancel', '&Help')
        for name, caption, tab in zip(self.buttons, captions, tabs or (None,) * 3):
            self.add(Button, name, tab, caption)

    def add_payee(self, name, tab):
        return self.add(Field, name, tab, locked=True, stop=False)

    def amount_to_be_paid(self):
        return self.number(leading_number(self.payment.paid_amount), self.amount_pattern)

    def is_passing(self):
        """Whether the focus is on the way to Cancel or Help."""
        return self.active_name() in self.buttons[1:]

    def Form_QueryUnload(self, reason):
        self.close_as_cancelled(reason)

    def show_head(self):
        super().show_head()
        self.help_folder = self.payment.GovFilename
        for _ in range(3):
            self.help_folder = self.help_folder.rpartition('/')[0]

    def open_help(self):
        self.noticed.append((self.help_folder + '/' if self.help_folder else '') + 'ZELMOR.CHM>ShowTopic')

    Command3D5_Click = Screen.cancel
    Command3D4_Click = open_help

    # A date of eight digits

    def date_key(self, field, key, question, following):
        """Digits alone; Enter asks for a whole date and moves on."""
        if key not in DATE_KEYS:
            return 0
        if key == ENTER:
            if not field.trimmed():
                self.refuse(field, question)
            elif len(field.trimmed()) != 8:
                self.refuse(field)
            else:
                self.set_focus(following)
        return key

    def date_change(self, field, following):
        if len(field.trimmed()) == 8 and following.enabled:
            self.skip(self.set_focus, following)

    def date_left(self, field, reformats=True):
        if field.text == '' or self.is_passing():
            return
        field.set(field.trimmed())
        if self.is_bad_date(field.text):
            self.box('Invalid date value.')
            self.skip(self.set_focus, field)
        elif reformats:
            field.set(self.as_date(field.text))

    def as_date(self, text):
        return self.number(leading_number(text), '00000000')

    def write_records(self):
        self.begin_records()
        self.output()
