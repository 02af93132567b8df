"""A form without a display: focus, keys, mouse, and the order in which handlers run."""

import collections

from controls import Button, Check, Field, Label, Option
from keys import BACKSPACE, ENTER, ESCAPE, LINE_FEED, SPACE
from values import RunTimeError

Box = collections.namedtuple('Box', 'style text title answer default')


class Form:
    """A form with its controls. Handlers are methods, control, underscore, event; those of an array get the index."""

    name = ''
    caption = ''
    cancel_button = None
    # Those that only say something, with what they say as long as the form is up.
    labels = {}

    def __init__(self):
        self.controls = []
        self.by_name = {}
        self.handlers = {}
        self.loaded = False
        self.up = False
        self.shown = False
        self.active = None
        self.queue = collections.deque()
        self.depth = 0
        self.lost = collections.Counter()
        self.error = None
        self.title = self.caption
        self.noticed = []
        self.refuses = False
        for label, caption in self.labels.items():
            self.add(Label, label, caption)
        self.build()
        self.changing = self.controls[len(self.labels):]
        self.order = sorted(
            (each for each in self.controls if each.focusable),
            key=lambda each: (each.tab is None, each.tab if each.tab is not None else 0))

    def add(self, kind, name, *place, **design):
        control = kind(self, name, *place, **design)
        self.controls.append(control)
        self.by_name[name] = control
        base = name.partition('(')[0]
        if control.index is None:
            setattr(self, name, control)
        else:
            setattr(self, base, [*getattr(self, base, []), control])
        return control

    # Life

    def load(self):
        if self.loaded:
            return
        self.loaded = True
        self.title = self.caption
        self.active = None
        for each in self.controls:
            each.reset()
        try:
            self.handle(self.Form_Load)
        except RunTimeError:
            self.loaded = False
            raise

    def Form_Load(self):
        pass

    def show(self):
        """The form comes up; an error that ends it is kept."""
        self.error = None
        self.lost.clear()
        try:
            self.load()
            self.up = self.shown = True
            self.active = None
            first = next((each for each in self.order if each.is_open()), None)
            if first is not None:
                self.move_focus(first)
            self.queue.clear()
            if hasattr(self, 'Form_Activate'):
                self.handle(self.Form_Activate)
            self.run_queue()
        except RunTimeError as error:
            self.fail(error)

    def hide(self):
        self.up = False
        self.queue.clear()

    def unload(self):
        self.hide()
        self.loaded = False
        self.shown = False
        self.active = None

    def fail(self, error):
        self.error = self.error or error
        self.hide()

    # Handlers

    def handle(self, handler, *arguments):
        """Runs one; what is posted runs when the outermost has returned."""
        self.depth += 1
        try:
            result = handler(*arguments)
        finally:
            self.depth -= 1
        if self.depth == 0:
            self.run_queue()
        return result

    def fire(self, control, event, *arguments):
        key = control.base, event
        if key not in self.handlers:
            self.handlers[key] = getattr(self, f'{control.base}_{event}', None)
        handler = self.handlers[key]
        if handler is None:
            return arguments[0] if arguments else None
        if control.index is not None:
            arguments = (control.index, *arguments)
        return self.handle(handler, *arguments)

    def run_queue(self):
        while self.queue and self.up:
            event, control = self.queue.popleft()
            if event == 'Tab':
                self.tab(1)
            elif self.lost[control] < 2:
                self.lost[control] += 1
                self.fire(control, 'LostFocus')

    def do_events(self):
        self.run_queue()

    def send_tab(self):
        self.queue.append(('Tab', None))

    def box(self, text, style='critical', title='', answers=('OK',)):
        answer = answers[0]
        if self.refuses and len(answers) > 1:
            answer, self.refuses = answers[1], False
        self.noticed.append(Box(style, text, title, answer, answers[0]))
        return answer

    # Focus

    def move_focus(self, control, by_mouse=False):
        if control is self.active:
            return
        if self.active is not None:
            self.queue.append(('LostFocus', self.active))
        self.active = control
        control.focus_came(by_mouse)

    def set_focus(self, control):
        """By code."""
        if not self.shown or control is self.active:
            return
        if not control.is_open() or not self.up:
            raise RunTimeError(5)
        self.move_focus(control)

    def focus_if_able(self, control):
        """By the control's own flags: what its frame is does not count."""
        if control.enabled and control.visible:
            self.set_focus(control)

    def focus_must_be_possible(self):
        """A control that is closed while it has the focus gives it to the next stop."""
        if self.up and self.active is not None and not self.active.is_open():
            following = self.next_stop(1)
            if following is not None and following is not self.active:
                self.move_focus(following)

    def stops(self):
        """The tab stops in their order: of a group of options the one that is on, or the first."""
        for each in self.order:
            if not each.stop or not each.is_open():
                continue
            if isinstance(each, Option) and each is not self.active:
                group = [one for one in each.group() if one.is_open()]
                if self.active in group:
                    continue
                if each is not next((one for one in group if one.on), group[0]):
                    continue
            yield each

    def next_stop(self, step):
        stops = list(self.stops())
        if not stops:
            return None
        at = self.order.index(self.active) if self.active is not None else -1
        places = [self.order.index(each) for each in stops]
        if step > 0:
            return next((each for each, place in zip(stops, places) if place > at), stops[0])
        return next((each for each, place in zip(reversed(stops), reversed(places)) if place < at), stops[-1])

    def tab(self, step):
        following = self.next_stop(step)
        if following is not None:
            self.move_focus(following)

    def active_name(self):
        return self.active.name if self.active is not None else ''

    # What a user does: each is one act

    def act(self, verb, *arguments):
        """Whatever becomes of the form is told by `up` and `error`."""
        self.lost.clear()
        try:
            getattr(self, 'act_' + verb)(*arguments)
            self.run_queue()
        except RunTimeError as error:
            self.fail(error)

    def act_close(self, reason):
        if getattr(self, 'Form_QueryUnload', None):
            self.handle(self.Form_QueryUnload, reason)
        self.unload()

    def act_paste(self, text):
        if isinstance(self.active, Field):
            self.active.paste(text)

    def press(self, control):
        """Whether the control has the focus when all that this brings about is over."""
        if not control.is_open() or not control.focusable:
            return False
        self.fire(control, 'MouseDown')
        if not self.up or not control.is_open():
            return False
        self.move_focus(control, by_mouse=True)
        self.run_queue()
        return self.up and control is self.active

    def act_focus(self, name):
        self.press(self.by_name[name])

    def act_click(self, name):
        control = self.by_name[name]
        if self.press(control):
            control.pressed()

    def act_choose(self, name, row):
        control = self.by_name[name]
        if self.press(control):
            control.row, control.typed = control.rows.index(row), ''
            self.fire(control, 'Click')
            if self.up:
                self.fire(control, 'Chosen')

    def act_type(self, character):
        if character == '\t':
            self.act_key('Tab')
        else:
            self.stroke(character, ord(character.encode('cp1252')))

    def act_key(self, name):
        modifier, _, key = name.rpartition('+')
        if key == 'Tab':
            return self.tab(-1 if modifier else 1)
        if name == 'Escape' and self.cancel_button:
            button = self.by_name[self.cancel_button]
            if button.is_open():
                button.pressed()
            return None
        if modifier == 'Alt':
            return self.access_key(key)
        if name in ('Enter', 'Space') and isinstance(self.active, Button):
            return self.active.pressed()
        if name == 'Space' and isinstance(self.active, Check):
            return self.active.pressed()
        characters = {'Enter': ENTER, 'Backspace': BACKSPACE, 'Escape': ESCAPE, 'Space': SPACE}
        return self.stroke(key, LINE_FEED if name == 'Ctrl+Enter' else characters.get(key), shift=bool(modifier))

    def access_key(self, letter):
        """A button that can't take the focus gets none of it: then it is a key like any other."""
        for each in self.controls:
            if isinstance(each, Button) and f'&{letter}'.lower() in each.caption.lower() and each.is_open():
                self.move_focus(each, by_mouse=True)
                self.run_queue()
                if self.up and each is self.active:
                    each.pressed()
                return
        self.stroke('Alt+' + letter, None, shift=True)

    def stroke(self, name, character, shift=False):
        """A key that reaches handlers, and then the control."""
        target = self.active
        if character == SPACE and isinstance(target, (Button, Check)):
            return target.pressed()
        if getattr(self, 'Form_KeyDown', None):
            if not self.handle(self.Form_KeyDown, name, shift) or not self.goes_on(target):
                return None
        if target is not None:
            if self.fire(target, 'KeyDown', name) is None or not self.goes_on(target):
                return None
        if character is not None:
            if hasattr(self, 'Form_KeyPress'):
                character = self.handle(self.Form_KeyPress, character)
                if not character or not self.goes_on(target):
                    return None
            target = self.active
            if target is not None:
                character = self.fire(target, 'KeyPress', character)
                if not character or not self.goes_on(target):
                    return None
        if self.active is target and target is not None:
            target.key(name, character)
        return None

    def goes_on(self, target):
        return self.up and (target is None or target.is_open())
