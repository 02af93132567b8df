"""The host's side: a payment's properties, the launch of a screen, and where its records go."""

import dataclasses
import datetime

from values import LOCALES, RunTimeError, host_amount

FOLDER = '$TMP'
LOGS = f'{FOLDER}/Zelmor'
PLAY_LOG, ERROR_LOG = f'{LOGS}/PBP.txt', f'{FOLDER}/error.log'
TIME = '13:05:09'
GENERAL_DATE = {
    'en-CA': '%Y-%m-%d 1:05:09 p.m.',
    'en-US': '{0.month}/{0.day}/%Y 1:05:09 PM',
    'fr-CA': '%Y-%m-%d 13:05:09',
}


@dataclasses.dataclass
class Payment:
    """What a host sets, by its names in a scenario."""

    CompCode: str = ''
    CompName: str = ''
    PaidAmount: str = None
    PaidDate: str = ''
    NumberOfInfoCollect: str = ''
    GovFilename: str = ''
    EnterName: str = ''
    EnterTitle: str = ''
    APHoldFlg: int = 0
    SeqNumber: str = ''
    BusinessName: str = ''
    ZelmorNumber: str = ''
    WriteFile: int = 0
    PlayByPlayEnabled: int = 0

    @property
    def paid_amount(self):
        """In dollars, as screens hold it; empty where the host has set none."""
        return '' if self.PaidAmount is None else host_amount(self.PaidAmount)


class Host:
    """A program that shows a screen, again and again."""

    def __init__(self, screen):
        self.screen = screen
        self.payment = Payment()
        self.locale = LOCALES['en-CA']
        self.today = datetime.date(2026, 6, 15)
        self.files = {}
        self.logs = {PLAY_LOG: [], ERROR_LOG: []}
        self.folders = {FOLDER, LOGS}
        self.records = None
        self.form = None
        self.ending = None

    def set(self, name, value):
        setattr(self.payment, name, value)

    def open_file(self, path):
        """The lines of a file that is opened anew."""
        if not path or path in self.folders:
            raise RunTimeError(75)
        folder = path.rpartition('/')[0]
        if folder not in self.folders:
            raise RunTimeError(76)
        self.files[path] = []
        return self.files[path]

    def show(self, code):
        self.form = self.form or self.screen(self)
        self.form.payment = dataclasses.replace(self.payment)
        try:
            self.form.launched(code)
        except RunTimeError as error:
            self.form.error = error
        else:
            self.form.show()
        self.end_if_over()

    def act(self, verb, *arguments):
        self.form.act(verb, *arguments)
        self.end_if_over()

    def end_if_over(self):
        if self.form.up:
            return
        if self.form.error is not None:
            self.ending = self.form.error
            return
        self.ending = self.form.chosen
        self.form.accessed('Get Chosen')
        if self.form.chosen and self.payment.WriteFile != -1:
            self.form.accessed('Get PC4Records')
            self.records = self.form.records
        self.form.unload()

    def moment(self):
        return self.today.strftime(GENERAL_DATE[self.locale.name]).format(self.today)

    def log_play(self, text):
        if self.payment.PlayByPlayEnabled:
            self.logs[PLAY_LOG].append(f'{self.moment()} FISCALON - {text}')

    def log_error(self, error, procedure):
        self.log_play('BULK - ShowError')
        self.logs[ERROR_LOG].append(
            f'{self.moment()},Fiscalon,,0,{error.number},"{error.description}","{procedure}"')

    def found_records(self):
        """What the host finds: the lines of its file, or the members of its collection."""
        if self.payment.WriteFile == -1:
            return self.files.get(self.payment.GovFilename, [])
        return self.records or []
