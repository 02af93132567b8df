"""The two ends of a reporting period, on the older screens that have them."""

from older_screen import OlderScreen


class PeriodScreen(OlderScreen):
    """Its fields are `PeriodStartDate` and `PeriodEndDate`."""

    ask_start = 'Please enter the date for the start of the period.'
    ask_end = 'Please enter the date for the end of period.'
    # The name of the field that comes next.
    after_period = None
    reformats_end = True

    def following_period(self):
        return self.by_name[self.after_period]

    def PeriodStartDate_Change(self):
        self.date_change(self.PeriodStartDate, self.PeriodEndDate)

    def PeriodEndDate_Change(self):
        self.date_change(self.PeriodEndDate, self.following_period())

    def PeriodStartDate_KeyPress(self, key):
        return self.date_key(self.PeriodStartDate, key, self.ask_start, self.PeriodEndDate)

    def PeriodEndDate_KeyPress(self, key):
        return self.date_key(self.PeriodEndDate, key, self.ask_end, self.following_period())

    def PeriodStartDate_LostFocus(self):
        self.date_left(self.PeriodStartDate)

    def PeriodEndDate_LostFocus(self):
        self.date_left(self.PeriodEndDate, self.reformats_end)
