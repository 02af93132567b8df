"""A session as a scenario: what a host and a user do, and what they must see of it."""

import collections
import re

from controls import Button, Field, List
from form import Box
from host import FOLDER, LOGS, TIME, Host
from values import LOCALES

Step = collections.namedtuple('Step', 'verb arguments refuses', defaults=(False,))

HOST_VERBS = ('today', 'locale', 'folder', 'host', 'show')


TO_BE_ESCAPED = re.compile('["\\\\\r\n\t]')


def quoted(text):
    """A text as an argument of a scenario."""
    if TO_BE_ESCAPED.search(text):
        for plain, escaped in (('\\', '\\\\'), ('"', '\\"'), ('\r\n', '\\n'), ('\n', '\\n'), ('\t', '\\t')):
            text = text.replace(plain, escaped)
    return f'"{text}"'


def line(verb, *arguments):
    return ' '.join([verb, *(quoted(str(each)) for each in arguments)])


def shown(value):
    if isinstance(value, bool):
        return 'yes' if value else 'no'
    return value if isinstance(value, int) else quoted(value)


def is_settled(key, control):
    """Whether it is known what a key does to a control; the rest is left to the editor that a front end has for it."""
    if key in ('Home', 'End'):
        return not isinstance(control, List)
    if key in ('Up', 'Down'):
        return not (isinstance(control, Field) and control.lines)
    if key in ('Shift+Enter', 'Ctrl+Enter'):
        return not isinstance(control, Button)
    return True


class Telling:
    """Plays steps on the model and writes them down with what comes of them."""

    def __init__(self, screen):
        self.host = Host(screen)
        self.lines = [f'today {self.host.today} {TIME}', f'host MainPath {FOLDER}', f'folder {LOGS}']
        self.steps = []
        self.told = {}
        self.logged = {}
        self.beside = None

    @property
    def form(self):
        form = self.host.form
        return form if form is not None and form.up else None

    def play(self, step, looks=False):
        """One step; one that makes no sense now is left out. With `looks`, all that is on the screen is told."""
        if step.verb in HOST_VERBS:
            if self.form is None:
                self.steps.append(step)
                getattr(self, 'play_' + step.verb)(*step.arguments)
            return
        if self.form is None or not self.makes_sense(step):
            return
        self.steps.append(step)
        form = self.form
        form.refuses = step.refuses
        arguments = step.arguments
        if step.verb == 'type':
            typed = 0
            while typed < len(arguments[0]) and form.up:
                self.host.act('type', arguments[0][typed])
                typed += 1
            arguments = (arguments[0][:typed],)
        else:
            self.host.act(step.verb, *arguments)
        # Answers stand ahead of the act, as far as one is not what its box would get anyway.
        boxes = [each for each in form.noticed if isinstance(each, Box)]
        while boxes and boxes[-1].answer == boxes[-1].default:
            boxes.pop()
        self.lines += ['  answer ' + box.answer for box in boxes]
        self.lines.append('  ' + line(step.verb, *arguments))
        self.tell(form, looks)

    def makes_sense(self, step):
        """Whether a user can do this at what is on the screen."""
        form, active = self.form, self.form.active
        if step.verb == 'key':
            return is_settled(step.arguments[0], active)
        if step.verb == 'paste':
            return isinstance(active, Field)
        if step.verb in ('focus', 'click', 'choose'):
            control = form.by_name.get(step.arguments[0])
            if control is None or not control.focusable:
                return False
            return step.verb != 'choose' or (isinstance(control, List) and step.arguments[1] in control.rows)
        return True

    def play_today(self, date):
        self.host.today = date
        self.lines.append(f'today {date} {TIME}')

    def play_locale(self, name):
        self.host.locale = LOCALES[name]
        self.lines.append(f'locale {name}')

    def play_folder(self, path):
        self.lines.append(line('folder', path))
        while path not in self.host.folders:
            self.host.folders.add(path)
            path = path.rpartition('/')[0]

    def play_host(self, name, value):
        self.host.set(name, value)
        self.lines.append(line('host', name, value))

    def play_show(self, code):
        self.told, self.beside = {}, None
        self.host.show(code)
        self.lines.append('show ' + code)
        self.tell(self.host.form, looks=True)

    def tell(self, form, looks):
        for seen in form.noticed:
            if seen == 'beep':
                self.lines.append('  expect beep')
            elif isinstance(seen, str):
                self.lines.append('  ' + line('expect help', seen) + ' 100000004')
            else:
                title = f' title {quoted(seen.title)}' if seen.title else ''
                self.lines.append(f'  expect message {seen.style} {quoted(seen.text)}{title}')
        form.noticed.clear()
        if form.up:
            self.tell_screen(form, looks)
        else:
            self.tell_ending()

    def tell_screen(self, form, looks):
        if form.active is not None:
            beside = form.active.name, form.active.selected() if isinstance(form.active, Field) else None
            if beside != self.beside:
                self.beside = beside
                self.lines.append(f'  expect focus {beside[0]}')
                if beside[1] is not None:
                    self.lines.append('  ' + line(f'expect selection {beside[0]}', beside[1]))
        told = self.told
        if told.get('') != form.title:
            told[''] = form.title
            self.lines.append('  ' + line('expect title', form.title))
        for control in form.controls if looks else form.changing:
            seen, before = control.seen(), told.get(control.name)
            if looks or seen != before:
                told[control.name] = seen
                for each, (name, value) in enumerate(zip(control.seen_as, seen)):
                    if looks or before[each] != value:
                        self.lines.append(f'  expect {name} {control.name} {shown(value)}')

    def tell_ending(self):
        ending = self.host.ending
        if isinstance(ending, bool):
            self.lines.append(f'expect result {ending}')
        else:
            self.lines.append(f'expect error {ending.number} Fiscalon.ShowLevyraScreen {quoted(ending.description)}')
        self.lines.append(f'expect chosen {self.host.form.chosen}')
        self.host.form.accessed('Get Chosen')  # to ask is an access, too
        records = self.host.found_records()
        self.lines.append(f'expect records {len(records)}')
        for place, record in enumerate(records, 1):
            if isinstance(record, str):
                self.lines.append(line(f'expect record {place}', record.rstrip(' ')))
                self.lines.append(f'expect length {place} {len(record)}')
            else:
                self.lines.append(line(f'expect invoice {place}', *record))
        for path, logged in self.host.logs.items():
            for place in range(self.logged.get(path, 0), len(logged)):
                self.lines.append(f'expect line {path} {place + 1} {quoted(logged[place])}')
            self.logged[path] = len(logged)

    def end(self):
        if self.form is not None:
            self.play(Step('close', (0,)), looks=True)
