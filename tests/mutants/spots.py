"""Where a C++ source can be changed a little, and the source with all these changes in it, each behind a switch.

It goes by tokens and by the blanks that clang-format puts around what has two sides, and takes no compiler to read a
source. What it gets wrong does not compile, and is left out then."""

import re
from typing import NamedTuple

TOKEN = re.compile(
    r"""(?P<skip>\s+|//[^\n]*|/\*.*?\*/|^[ ]*\#(?:[^\n\\]|\\\n|\\.)*)
      |(?P<text>(?:"(?:[^"\\\n]|\\.)*")(?:s|sv)?\b|"(?:[^"\\\n]|\\.)*")
      |(?P<char>'(?:[^'\\\n]|\\.)+')
      |(?P<number>\.?\d(?:[\w.]|'\w|[eE][+-])*)
      |(?P<word>[A-Za-z_]\w*)
      |(?P<sign><=>|<<=|>>=|\.\.\.|->\*|::|->|\+\+|--|<<|&&|\|\||[-+*/%&|^=!<>]=|.)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

# What binds more tightly has the smaller number; what ends an expression has the largest.
BINDING = {"*": 1, "/": 1, "%": 1, "+": 2, "-": 2, "<<": 3, ">>": 3, "<=>": 4, "<": 5, "<=": 5, ">": 5, ">=": 5,
           "==": 6, "!=": 6, "&": 7, "^": 8, "|": 9, "&&": 10, "||": 11}  # fmt: skip
SWAPS = {"==": ("!=",), "!=": ("==",), "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
         "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "&&": ("||",), "||": ("&&",)}  # fmt: skip
ENDINGS = {",", ";", "?", ":", "=", "+=", "-=", "*=", "/=", "|=", "&=", "%=", "...",
           "return", "throw", "case", "else", "do", "co_return", "co_yield"}  # fmt: skip
OPENING, CLOSING = {"(": ")", "[": "]", "{": "}"}, {")": "(", "]": "[", "}": "{"}
# Names that stand for their opposites, as `true` and `false` do.
OPPOSITES = (
    ("true", "false"),
    ("kTrue", "kFalse"),
    ("MessageStyle::Plain", "MessageStyle::Critical"),
    ("MessageStyle::Information", "MessageStyle::Plain"),
    ("AmountRange::Positive", "AmountRange::NotNegative"),
    ("OutputFailure::IsSkipped", "OutputFailure::Leaves"),
)
OPPOSITE = {one: other for one, other in OPPOSITES} | {other: one for one, other in reversed(OPPOSITES)}
KEYWORDS = {"if", "for", "while", "switch", "return", "throw", "case", "default", "else", "do", "goto", "using", "new",
            "delete", "typename", "template", "static_assert", "const", "constexpr", "static", "auto"}  # fmt: skip


class Token(NamedTuple):
    kind: str
    text: str
    start: int
    end: int


class Spot(NamedTuple):
    """A change: the part of the text that makes way, and what takes its place."""

    start: int
    end: int
    # The expression, or statement, that is replaced, as it is after the change; "" for a statement that goes.
    changed: str
    # What a reader is shown: the line, with the change in it.
    label: str
    line: int
    # Whether the compiler may already need it, so that no switch can change it while the program runs.
    early: bool
    # The constant that must become a variable for a switch to work: the place of its `constexpr`, and its name.
    constant: tuple = ()
    # "value", "condition" or "statement".
    kind: str = "value"

    @property
    def constant_name(self):
        return self.constant[1] if self.constant else ""


def tokens_of(text):
    """The tokens. A name with its scopes and its template arguments is one of them."""
    raw = [Token(match.lastgroup, match[0], match.start(), match.end()) for match in TOKEN.finditer(text)]
    plain = [token for token in raw if token.kind != "skip"]
    result = []
    at = 0
    while at < len(plain):
        token = plain[at]
        at += 1
        if token.kind == "word" or token.text == "::":
            end = token.end
            while at < len(plain) and plain[at].start == end:
                if plain[at].text == "::" or (plain[at].kind == "word" and text[:end].endswith("::")):
                    end, at = plain[at].end, at + 1
                elif plain[at].text == "<" and (past := after_arguments(text, plain, at)):
                    end, at = plain[past - 1].end, past
                else:
                    break
            token = Token("word", text[token.start:end], token.start, end)
        elif token.text == ">" and at < len(plain) and plain[at].text == ">" and plain[at].start == token.end:
            token, at = Token("sign", ">>", token.start, plain[at].end), at + 1
        result.append(token)
    return result


def after_arguments(text, tokens, at):
    """The token behind the template arguments that begin here; 0 where it is a comparison."""
    if text[tokens[at].start - 1].isspace() or text[tokens[at].end].isspace():
        return 0
    depth = braces = 0
    for place in range(at, len(tokens)):
        sign = tokens[place].text
        depth += (sign == "<") - (sign == ">")
        braces += (sign == "{") - (sign == "}")
        if depth == 0:
            return place + 1
        if sign == ";" or braces < 0:
            return 0
    return 0


class Source:
    """A source, and what of it stands where."""

    def __init__(self, text, is_header=False):
        self.text = text
        self.is_header = is_header
        self.tokens = tokens_of(text)
        self.partner = {}
        opened = []
        for at, token in enumerate(self.tokens):
            if token.text in OPENING:
                opened.append(at)
            elif token.text in CLOSING and opened:
                self.partner[at] = opened[-1]
                self.partner[opened.pop()] = at
        self.places = self.find_places()

    def is_two_sided(self, at):
        """Whether a sign stands between two sides: clang-format puts a blank on both."""
        token = self.tokens[at]
        return (
            0 < at < len(self.tokens) - 1
            and self.tokens[at - 1].text not in ENDINGS | set(OPENING)
            and self.text[token.start - 1].isspace()
            and self.text[token.end].isspace()
            and self.tokens[at - 1].text != "operator"
        )

    def left_end(self, at):
        """The first token of the expression whose last operation is the sign here."""
        binding = BINDING[self.tokens[at].text]
        place = at
        while place > 0:
            token = self.tokens[place - 1]
            beside = self.tokens[place]
            if token.text in ENDINGS or token.text in OPENING:
                break
            if token.text in BINDING and self.is_two_sided(place - 1):
                if BINDING[token.text] > binding:
                    break
                place -= 1
            elif token.text in CLOSING:
                if place != at and (beside.kind != "sign" or beside.text in ("!", "{", "*", "++", "--")):
                    break
                place = self.partner.get(place - 1, place - 1)
            elif token.kind != "sign" and place != at and beside.kind != "sign":
                break
            else:
                place -= 1
        return place

    def right_end(self, at, binding=None):
        """The token behind the expression that the sign here has on its right."""
        binding = BINDING[self.tokens[at].text] if binding is None else binding
        place = at + 1
        while place < len(self.tokens):
            token = self.tokens[place]
            if token.text in ENDINGS or token.text in CLOSING:
                break
            if token.text in BINDING and self.is_two_sided(place) and BINDING[token.text] >= binding:
                break
            place = self.partner.get(place, place) + 1
        return place

    def find_places(self):
        """For each token: may the compiler need it, the constant that it belongs to, is it within a function's body."""
        places = [None] * len(self.tokens)
        self.walk_declarations(0, len(self.tokens), places)
        return places

    def walk_declarations(self, at, end, places):
        while at < end:
            first = at
            colon = False
            while at < end:
                token = self.tokens[at].text
                if token == ";":
                    at += 1
                    break
                if token in ("(", "["):
                    at = self.partner.get(at, at) + 1
                    continue
                if token == ":" and at > first and self.tokens[at - 1].text in ("public", "private", "protected"):
                    at += 1
                    first = at
                    continue
                if token == ":":
                    colon = True
                if token == "{":
                    close = self.partner.get(at, end)
                    kind = self.kind_of_braces(first, at, colon)
                    if kind == "scope":
                        self.walk_declarations(at + 1, close, places)
                        at = first = close + 1
                        continue
                    if kind == "body":
                        self.mark_function(first, at, close, places)
                        at = first = close + 1
                        break
                    at = close + 1
                    continue
                at += 1
            self.mark_data(first, at, places)

    def kind_of_braces(self, first, at, colon):
        words = [token.text for token in self.tokens[first:at]]
        before = words[-1] if words else ""
        if "enum" in words:
            return "value"
        if "namespace" in words or before == '"C"':
            return "scope"
        has_list = "(" in words
        if ("class" in words or "struct" in words or "union" in words) and not has_list and "=" not in words:
            return "scope"
        if "=" in words and "operator" not in " ".join(words):
            # Of a default argument, or of what a declaration sets.
            depth = 0
            for word in words:
                depth += (word in OPENING) - (word in CLOSING)
                if word == "=" and depth == 0:
                    return "value"
        if has_list and (before in (")", "const", "noexcept", "override", "final", "try", "}", ">") or "->" in words):
            return "body"
        if has_list and not colon and before not in ("]",) and words[-2:-1] == ["requires"]:
            return "body"
        return "value"

    def mark_function(self, first, body, close, places):
        early = any(token.text in ("constexpr", "consteval") for token in self.tokens[first:body])
        for at in range(first, close):
            places[at] = (early or at < body, (), at > body)
        for at in range(body + 1, close):
            self.mark_local(at, places)

    def mark_local(self, at, places):
        """A constant within a function may be the compiler's too."""
        token = self.tokens[at]
        if token.text == "constexpr" and self.tokens[at - 1].text == "if":
            for place in range(at + 1, self.partner.get(at + 1, at)):
                places[place] = (True, (), True)
            return
        if token.text not in ("constexpr", "const") or self.tokens[at - 1].text not in ("{", "}", ";", ")", "static"):
            return
        if self.tokens[at + 1].text == "(" or self.tokens[at - 1].text == ")":
            return
        if token.text == "const":
            for place in range(at, self.end_of_statement(at)):
                places[place] = (True, places[place][1], True)
            return
        self.mark_constant(at, self.end_of_statement(at), places, True)

    def end_of_statement(self, at):
        while at < len(self.tokens) and self.tokens[at].text != ";":
            at = self.partner[at] + 1 if self.tokens[at].text in OPENING and at in self.partner else at + 1
        return at

    def mark_data(self, first, end, places):
        for at in range(first, end):
            places[at] = (True, (), False)
        words = [token.text for token in self.tokens[first:end]]
        if "enum" in words or "using" in words or "static_assert" in words or "friend" in words:
            return
        for at in range(first, end):
            if self.tokens[at].text == "constexpr":
                self.mark_constant(at, end, places, False)
                return

    def mark_constant(self, at, end, places, in_function):
        equals = next((place for place in range(at, end) if self.tokens[place].text in ("=", "{")), None)
        if equals is None:
            return
        names = [token.text for token in self.tokens[at:equals] if token.kind == "word"]
        # What a header tells to all is nearly always something that the compiler must know.
        constant = (self.tokens[at].start, names[-1]) if len(names) > 1 and not self.is_header else ()
        for place in range(at, end):
            places[place] = (not constant, constant, in_function)
        # Types, sizes and template arguments stay the compiler's.
        for place in range(at, equals):
            places[place] = (True, (), in_function)

    def label(self, start, end, changed):
        """The line of the change, with `[was -> is]` in it."""
        first = self.text.rfind("\n", 0, start) + 1
        last = self.text.find("\n", end)
        was = " ".join(self.text[start:end].split())
        around = f"{self.text[first:start]}[{was} -> {changed}]{self.text[end:last]}"
        return " ".join(around.split("//")[0].split()) if "//" in self.text[end:last] else " ".join(around.split())

    def spot(self, first, past, changed, at=None, shown=None, kind="value"):
        """Tokens from `first` on, to that before `past`, become `changed`. A reader is shown `at` become `shown`."""
        start, end = self.tokens[first].start, self.tokens[past - 1].end
        seen = (start, end) if at is None else (self.tokens[at].start, self.tokens[at].end)
        early, constant, _ = self.places[first if at is None else at]
        return Spot(
            start, end, changed,
            self.label(*seen, changed if shown is None else shown),
            self.text.count("\n", 0, seen[0]) + 1, early, constant, kind,
        )  # fmt: skip

    def between(self, first, past):
        return self.text[self.tokens[first].start:self.tokens[past - 1].end] if past > first else ""


def spots_of(text, is_header=False):
    """All changes of a source, in the order of their places."""
    source = Source(text, is_header)
    found = []
    skipped_to = 0
    for at, token in enumerate(source.tokens):
        if at < skipped_to or source.places[at] is None:
            continue
        if token.text in ("static_assert", "enum", "using", "noexcept", "alignas", "case", "template", "operator"):
            skipped_to = end_of_fixed(source, at)
            continue
        if token.text == "[" and source.tokens[at + 1].text == "[":
            skipped_to = source.partner.get(at, at) + 1
            continue
        found += spots_at(source, at)
    return sorted(set(found), key=lambda spot: (spot.start, -spot.end, spot.label))


def end_of_fixed(source, at):
    """Behind what can't be otherwise at this place: a label of a case, the values of an enumeration, and the like."""
    word = source.tokens[at].text
    if word == "operator":
        return at + 2
    if word in ("template", "noexcept", "alignas"):
        if word == "template":
            depth = 0
            for place in range(at + 1, len(source.tokens)):
                sign = source.tokens[place].text
                depth += (sign == "<") - (sign == ">") - 2 * (sign == ">>")
                if depth <= 0:
                    return place + 1
        return source.partner.get(at + 1, at) + 1
    while source.tokens[at].text not in (";", ":"):
        at = source.partner.get(at, at) + 1
    return at + 1


def spots_at(source, at):
    token = source.tokens[at]
    in_function = source.places[at][2]
    if token.kind == "text":
        yield from text_spots(source, at)
    elif token.kind == "char":
        yield from char_spots(source, at)
    elif token.kind == "number":
        yield from number_spots(source, at)
    elif token.text in OPPOSITE:
        yield source.spot(at, at + 1, OPPOSITE[token.text])
    elif token.text in SWAPS and source.is_two_sided(at):
        yield from swap_spots(source, at)
    elif token.text == "!" and at + 1 < len(source.tokens):
        yield from negation_spots(source, at)
    elif token.text == "if" and in_function and source.tokens[at + 1].text == "(":
        yield from condition_spots(source, at)
    if in_function:
        yield from statement_spots(source, at)


def text_spots(source, at):
    token = source.tokens[at]
    if source.tokens[at - 1].kind == "text" or source.tokens[at - 1].text in ("extern", "operator"):
        return
    past = at + 1
    while source.tokens[past].kind == "text":
        past += 1
    whole = source.between(at, past)
    if "\\0" in whole or "\\x" in token.text and whole != token.text:
        return
    quote = whole.rindex('"')
    changed = whole[:quote] + "~" + whole[quote:]
    yield source.spot(at, past, changed, past - 1, '+ "~"')


def char_spots(source, at):
    inner = source.tokens[at].text[1:-1]
    if len(inner) == 1:
        other = chr(ord(inner) + 1) if inner not in "&[~" else "x"
        yield source.spot(at, at + 1, f"'{other}'")
    else:
        yield source.spot(at, at + 1, "'x'")


def number_spots(source, at):
    token = source.tokens[at]
    if token.text == "0" and source.tokens[at - 1].text == "=" and source.tokens[at - 2].text in (")", "const"):
        # It makes a routine abstract.
        return
    if re.fullmatch(r"\d+", token.text):
        yield source.spot(at, at + 1, str(int(token.text) + 1))
    elif re.fullmatch(r"(\d+)([uUlLzZ]+)", token.text):
        digits = re.match(r"\d+", token.text)[0]
        yield source.spot(at, at + 1, str(int(digits) + 1) + token.text[len(digits):])
    elif re.fullmatch(r"0x[0-9A-Fa-f]+", token.text):
        yield source.spot(at, at + 1, hex(int(token.text, 16) + 1))
    elif re.fullmatch(r"\d+\.\d*|\d+(?:\.\d*)?[eE][+-]?\d+", token.text):
        yield source.spot(at, at + 1, f"({token.text} + 1)")


def swap_spots(source, at):
    token = source.tokens[at]
    first, past = source.left_end(at), source.right_end(at)
    if first == at or past == at + 1:
        return
    left, right = source.between(first, at), source.between(at + 1, past)
    if token.text == "+" and '"' in left + right:
        # A concatenation, which has no opposite.
        return
    for other in SWAPS[token.text]:
        yield source.spot(first, past, f"{left} {other} {right}", at, other)


def negation_spots(source, at):
    if source.tokens[at + 1].start != source.tokens[at].end:
        return
    past = source.right_end(at, 0)
    if past > at + 1:
        yield source.spot(at, past, f"static_cast<bool>({source.between(at + 1, past)})", at, "")


def condition_spots(source, at):
    close = source.partner.get(at + 1)
    if close is None:
        return
    first = place = at + 2
    sets = False
    while place < close:
        sign = source.tokens[place].text
        sets = sign == "=" or (sets and sign != ";")
        first = place + 1 if sign == ";" else first
        place = source.partner.get(place, place) + 1
    if sets or first == close:
        # What the condition declares would be gone.
        return
    whole = source.between(first, close)
    if '"' in whole and len(whole) > 500:
        return
    yield source.spot(first, close, f"!({whole})", at, "if not", kind="condition")
    yield source.spot(first, close, f"false && ({whole})", at, "if never", kind="condition")


def statement_spots(source, at):
    """A call for its effect, an assignment, or a word that leaves: without it the rest goes on."""
    token, before = source.tokens[at], source.tokens[at - 1].text
    if before not in (";", "{", "}", ")", "else", ":") or (before == ":" and not ends_label(source, at - 1)):
        return
    if before == ")" and source.tokens[source.partner.get(at - 1, 1) - 1].text not in ("if", "for", "while"):
        return
    if before == "{" and not begins_block(source, at - 1):
        return
    if token.kind != "word" and token.text not in ("++", "--", "*", "("):
        return
    if (before, token.text) == ("}", "("):
        # The arguments of a function without a name.
        return
    past = source.end_of_statement(at)
    if past >= len(source.tokens) or any(source.partner.get(place, at) < at for place in range(at, past)):
        # It is a part of a `for`, or what stands last in brackets.
        return
    if token.text in ("break", "continue") or (token.text == "return" and past == at + 1):
        yield source.spot(at, past + 1, "", None, "gone", "statement")
        return
    if token.text in KEYWORDS:
        return
    place = at + 1 if token.text in ("++", "--", "*") else at
    last = None
    while place < past:
        part = source.tokens[place]
        if part.kind == "word" and (last is None or last.text in (".", "->", "*")):
            pass
        elif part.text in (".", "->", "++", "--"):
            pass
        elif part.text in ("(", "[") and (last is None or last.kind == "word" or last.text in (")", "]")):
            place = source.partner[place]
            part = source.tokens[place]
        else:
            break
        last = part
        place += 1
    effect = place == past and (last.text in (")", "++", "--") or token.text in ("++", "--"))
    sets = place < past and source.tokens[place].text in ("=", "+=", "-=", "*=", "/=", "|=", "&=", "%=")
    if effect or sets:
        yield source.spot(at, past + 1, "", None, "gone", "statement")


def ends_label(source, at):
    while at > 0 and source.tokens[at].text not in ("case", "default", "?", ";", "{", "}"):
        at -= 1
    return source.tokens[at].text in ("case", "default")


def begins_block(source, at):
    """Whether the braces hold statements, not values."""
    before = source.tokens[at - 1]
    ends = (")", "else", "do", "try", "const", "noexcept", "override", "mutable", ";", "{", "}", ":")
    return before.text in ends or (before.kind == "word" and source.tokens[at - 2].text == "->")


def switched(text, numbered):
    """The source with each of these (number, spot) behind its switch, and where in it which number lies."""
    edits = []
    constants = set()
    for number, spot in numbered:
        if spot.constant:
            constants.add(spot.constant[0])
        edits.append((spot.start, -spot.end, number, spot))
    edits.sort(key=lambda edit: edit[:3])
    out, ranges = [], []
    length = 0

    def emit(piece):
        nonlocal length
        out.append(piece)
        length += len(piece)

    def plain(start, end):
        for place in sorted(constants):
            if start <= place < end:
                behind = place + len("constexpr")
                emit(text[start:place] + ("" if text.startswith(" const ", behind) else "const"))
                start = behind
        emit(text[start:end])

    def render(start, end, inner):
        at = start
        while inner:
            _, _, number, spot = inner.pop(0)
            if spot.start < at or spot.end > end:
                continue
            below = []
            while inner and inner[0][3].start < spot.end:
                below.append(inner.pop(0))
            plain(at, spot.start)
            began = length
            test = f"{'mutants::On' if spot.constant else 'mutants::Is'}({number})"
            if spot.kind == "statement":
                emit(f"{{ if (!{test}) ")
                render(spot.start, spot.end, below)
                emit(" }")
            else:
                emit(f"({test} ? ({spot.changed}) : {'bool' if spot.kind == 'condition' else ''}(")
                render(spot.start, spot.end, below)
                emit("))")
            ranges.append((began, length, number))
            at = spot.end
        plain(at, end)

    render(0, len(text), edits)
    return "".join(out), ranges
