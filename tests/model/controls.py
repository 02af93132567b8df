"""What a form is made of: labels, fields, buttons, checks, options, lists and frames."""

from keys import BACKSPACE, ENTER, LINE_FEED, SPACE, character_of


class Control:
    """What all controls have: a name, a place in the tab order, and whether they are seen and open."""

    focusable = True

    def __init__(self, form, name, tab=None, caption='', visible=True, enabled=True, stop=True, frame=None):
        self.form = form
        self.name = name
        self.base, _, index = name.partition('(')
        self.index = int(index[:-1]) if index else None
        self.tab = tab
        self.caption = caption
        self.design = (visible, enabled)
        self.stop = stop and self.focusable
        self.frame = frame
        self.reset()

    def reset(self):
        self.visible, self.enabled = self.design

    def shown_text(self):
        return self.caption

    # What is to be seen of it, as a scenario calls it.
    seen_as = ('text', 'enabled', 'visible')

    def seen(self):
        return self.shown_text(), self.enabled, self.is_seen()

    def set_visible(self, visible):
        self.visible = visible
        self.form.focus_must_be_possible()

    def set_enabled(self, enabled):
        self.enabled = enabled
        self.form.focus_must_be_possible()

    def is_seen(self):
        return self.visible and (self.frame is None or self.frame.visible)

    def is_open(self):
        """Visible and enabled, with the frame around it."""
        return self.visible and self.enabled and (self.frame is None or (self.frame.visible and self.frame.enabled))

    def focus_came(self, by_mouse):
        pass

    def pressed(self):
        pass

    def key(self, name, character):
        pass


class Label(Control):
    focusable = False

    seen_as = ('text', 'visible')

    def seen(self):
        return self.caption, self.is_seen()

    def __init__(self, form, name, caption='', **design):
        self.designed = caption
        super().__init__(form, name, caption=caption, **design)

    def reset(self):
        super().reset()
        self.caption = self.designed


class Frame(Label):
    seen_as = ('visible',)

    def seen(self):
        return (self.visible,)


class Button(Control):
    def pressed(self):
        self.form.fire(self, 'Click')


class Field(Control):
    """A text field with its caret: what is selected ends at it."""

    def __init__(self, form, name, tab=None, length=0, locked=False, lines=False, **design):
        self.length = length
        self.locked = locked
        self.lines = lines
        super().__init__(form, name, tab, **design)

    def reset(self):
        super().reset()
        self.text = ''
        self.selection = (0, 0)

    def shown_text(self):
        return self.text

    def trimmed(self):
        return self.text.strip(' ')

    def is_full(self):
        return len(self.trimmed()) == self.length

    def selected(self):
        return self.text[self.selection[0]:self.selection[1]]

    def select_all(self):
        self.selection = (0, len(self.text))

    def set(self, text):
        """By code: the caret keeps its distance from the end."""
        if text == self.text:
            return
        caret = max(0, len(text) - (len(self.text) - self.selection[1]))
        self.text, self.selection = text, (caret, caret)
        self.form.fire(self, 'Change')

    def focus_came(self, by_mouse):
        if by_mouse:
            self.selection = (len(self.text), len(self.text))
        else:
            self.select_all()

    def put(self, text):
        """By the user: over the selection, as far as there is room."""
        first, last = self.selection
        if self.length:
            text = text[:max(0, self.length - len(self.text) + last - first)]
            # A line end goes in whole or not at all.
            text = text.removesuffix('\r')
        self.edit(first, last, text)

    def edit(self, first, last, text=''):
        before = self.text
        self.text = before[:first] + text + before[last:]
        self.selection = (first + len(text),) * 2
        if self.text != before:
            self.form.fire(self, 'Change')

    # A line end is stepped over as one.

    def before(self, place):
        return max(0, place - (2 if self.text[:place].endswith('\r\n') else 1))

    def behind(self, place):
        return min(len(self.text), place + (2 if self.text.startswith('\r\n', place) else 1))

    def paste(self, text):
        if self.locked:
            return
        text = text.replace('\r\n', '\n').replace('\r', '\n')
        text = text.replace('\n', '\r\n') if self.lines else text.partition('\n')[0]
        if text:
            self.put(text)

    def key(self, name, character):
        first, last = self.selection
        if name in ('Home', 'End', 'Left', 'Right'):
            caret = {
                'Home': self.text.rfind('\n', 0, last) + 1,
                'End': (self.text + '\r\n').index('\r\n', last),
                'Left': first if first < last else self.before(first),
                'Right': last if first < last else self.behind(last),
            }[name]
            self.selection = (caret, caret)
        elif self.locked:
            return
        elif name == 'Delete' or character == BACKSPACE:
            if first == last:
                first, last = (first, self.behind(last)) if name == 'Delete' else (self.before(first), last)
            if first < last:
                self.edit(first, last)
        elif character in (ENTER, LINE_FEED):
            if self.lines:
                self.put('\r\n')
        elif character is not None and character >= SPACE:
            self.put(character_of(character))


class Check(Control):
    def reset(self):
        super().reset()
        self.on = False

    def set(self, on):
        if on != self.on:
            self.on = on
            self.form.fire(self, 'Click')

    seen_as = ('checked', 'enabled', 'visible')

    def seen(self):
        return self.on, self.enabled, self.visible

    def pressed(self):
        self.set(not self.on)


class Option(Check):
    """One of the options of its form: exactly one is on."""

    def set(self, on):
        if on == self.on:
            return
        others = [each for each in self.group() if each is not self and each.on] if on else []
        for each in others:
            each.on = False
        self.on = on
        for each in [*others, self]:
            self.form.fire(each, 'Click')

    def group(self):
        return [each for each in self.form.controls if isinstance(each, Option) and each.frame is self.frame]

    def pressed(self):
        self.set(True)

    def key(self, name, character):
        if name in ('Down', 'Up', 'Left', 'Right'):
            group = [each for each in self.group() if each.is_open()]
            step = 1 if name in ('Down', 'Right') else -1
            following = group[(group.index(self) + step) % len(group)]
            self.form.move_focus(following)
            following.set(True)


class List(Control):
    """A drop-down list or a list box."""

    def reset(self):
        super().reset()
        self.rows = []
        self.row = -1
        self.typed = ''

    def shown_text(self):
        return self.rows[self.row] if self.row >= 0 else ''

    seen_as = (*Control.seen_as, 'items')

    def seen(self):
        return *super().seen(), len(self.rows)

    def focus_came(self, by_mouse):
        self.typed = ''

    def fill(self, rows):
        self.rows, self.row, self.typed = list(rows), -1, ''

    def step(self, row):
        if row != self.row:
            self.row = row
            self.form.fire(self, 'Click')

    def key(self, name, character):
        if name in ('Down', 'Up'):
            self.typed = ''
            if self.rows:
                self.step(min(max(self.row + (1 if name == 'Down' else -1), 0), len(self.rows) - 1))
        elif character == BACKSPACE:
            self.typed = ''
        elif character is not None and character >= SPACE:
            self.search(character_of(character))

    def search(self, letter):
        """The row that begins with all that was typed, or else with the letter alone."""
        around = range(len(self.rows))
        start = max(self.row, 0)
        for typed, first in ((self.typed + letter, start), (letter, self.row + 1)):
            for each in around:
                row = (first + each) % len(self.rows)
                if self.rows[row].lower().startswith(typed.lower()):
                    self.step(row)
                    self.typed = typed
                    return
