"""Numbers, money, dates and texts as the screens read and show them."""

import datetime
import math
import re
from decimal import ROUND_HALF_EVEN, ROUND_HALF_UP, Decimal, getcontext

# As many digits as a float can have before its point, and behind it.
getcontext().prec = 800


class RunTimeError(Exception):
    """A failure of the platform's kind, as a host sees it."""

    DESCRIPTIONS = {
        5: 'Invalid procedure call or argument',
        6: 'Overflow',
        9: 'Subscript out of range',
        13: 'Type mismatch',
        75: 'Path/File access error',
        76: 'Path not found',
    }

    def __init__(self, number):
        super().__init__(number)
        self.number = number
        self.description = self.DESCRIPTIONS[number]


class Locale:
    """The user's separators and how money is shown below zero."""

    def __init__(self, name, point, group, positive, negative):
        self.name = name
        self.point = point
        self.group = group
        self.positive = positive
        self.negative = negative
        groups = ' \xa0' if group == '\xa0' else group
        digits, point = f'[0-9][0-9{groups}]*', re.escape(point)
        self.number = re.compile(f'(?:{digits}(?:{point}[0-9{groups}]*)?|{point}{digits})(?:[eE][+-]?[0-9]+)?')


LOCALES = {
    'en-CA': Locale('en-CA', '.', ',', '${}', '-${}'),
    'en-US': Locale('en-US', '.', ',', '${}', '(${})'),
    'fr-CA': Locale('fr-CA', ',', '\xa0', '{} $', '({} $)'),
}

BLANKS = ' \t\n\r\v\f\xa0'
UNITS = 10000  # of Money in one dollar
LARGEST_MONEY = 2**63 - 1

LEADING_NUMBER = re.compile(r'[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?')
POINT_NUMBER = re.compile(r'[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)')


def leading_number(text):
    """The number that a text begins with, with "." as its point; 0 where none does."""
    if text.isdigit() and text.isascii():
        return float(text)
    found = LEADING_NUMBER.match(text.translate({32: None, 9: None, 10: None}))
    number = float(found.group()) if found else 0.0
    if math.isinf(number):
        raise RunTimeError(6)
    return number


def decimal_of(number):
    """The 15 digits of a float that count."""
    return Decimal('%.15g' % number)


def money(number):
    """A float in ten-thousandths of a dollar, halves to even."""
    try:
        units = int((Decimal(number) * UNITS).quantize(Decimal(1), ROUND_HALF_EVEN))
    except ArithmeticError:
        raise RunTimeError(6) from None
    if not -LARGEST_MONEY - 1 <= units <= LARGEST_MONEY:
        raise RunTimeError(6)
    return units


def dollars(units):
    """Money as a float."""
    return units / UNITS


def strict_number(text, locale):
    """A text that is wholly a number of the user's locale; None for any other."""
    text = text.strip(BLANKS)
    sign, signs, symbols = 1, 0, 0
    while text and text[0] in '+-$(':
        if text[0] == '$':
            if symbols:
                return None
            symbols += 1
        elif text[0] == '(':
            if signs or ')' not in text:
                return None
            closing = text.rindex(')')
            if text[closing + 1:].strip(BLANKS + '$'):
                return None
            text = text[:closing] + text[closing + 1:]
            sign, signs = -1, 1
        else:
            if signs:
                return None
            sign, signs = (-1 if text[0] == '-' else 1), 1
        text = text[1:].lstrip(BLANKS)
    found = locale.number.match(text)
    if not found:
        return None
    for each in text[found.end():]:
        if each in '+-':
            if signs:
                return None
            sign, signs = (-1 if each == '-' else 1), 1
        elif each not in BLANKS + '$':
            return None
    digits = re.sub('[^0-9.eE+-]', '', found.group().replace(locale.group, '').replace(locale.point, '.'))
    try:
        return sign * Decimal(digits)
    except ArithmeticError:
        return None


def to_money(text, locale):
    """Money of a text that is wholly a number; type mismatch for any other."""
    number = strict_number(text, locale)
    if number is None:
        raise RunTimeError(13)
    # What is too large to be counted is no number either.
    if abs(number) > LARGEST_MONEY:
        raise RunTimeError(6)
    units = int((number * UNITS).quantize(Decimal(1), ROUND_HALF_EVEN))
    if not -LARGEST_MONEY - 1 <= units <= LARGEST_MONEY:
        raise RunTimeError(6)
    return units


def is_numeric(text, locale):
    try:
        to_money(text, locale)
        return True
    except RunTimeError:
        return False


def format_decimal(number, pattern, locale, negative=None):
    """A decimal by a pattern of digits, or as currency."""
    negative = number < 0 if negative is None else negative
    currency = pattern == 'Currency'
    places = 2 if currency or '.' in pattern else 0
    rounded = abs(number).quantize(Decimal(1).scaleb(-places), ROUND_HALF_UP)
    whole, _, decimals = str(rounded).partition('.')
    if currency or ',' in pattern:
        pieces = []
        while len(whole) > 3:
            pieces.insert(0, whole[-3:])
            whole = whole[:-3]
        whole = locale.group.join([whole, *pieces])
    if currency:
        shown = whole + locale.point + decimals
        return (locale.negative if negative else locale.positive).format(shown)
    before = re.match('[^0#]*', pattern).group()
    behind = re.search('[^0]*$', pattern).group()
    body = pattern[len(before):len(pattern) - len(behind)].partition('.')[0].replace('#', '').replace(',', '')
    shown = whole.zfill(len(body)) + (locale.point + decimals if places else '')
    return ('-' if negative else '') + before + shown + behind


def format_number(number, pattern, locale):
    """A float by a pattern."""
    text = number_text(number)
    if 'E' in text and '.' in text and strict_number(text, locale) is None:
        return text  # no number to who has a comma as the point
    return format_decimal(decimal_of(number), pattern, locale)


def format_money(units, pattern, locale):
    """Money by a pattern."""
    return format_decimal(decimal_of_money(units), pattern, locale)


def decimal_of_money(units):
    return Decimal(units) / UNITS


def format_text(text, pattern, locale):
    """A text that is a number by a pattern; any other unchanged."""
    number = strict_number(text, locale)
    if number is None and POINT_NUMBER.fullmatch(text):
        number = Decimal(text)
    if number is None or abs(number) * UNITS > LARGEST_MONEY:
        return text
    # A zero keeps the sign that it has in the text.
    negative = True if number == 0 and '-' in text else None
    return format_decimal(decimal_of(float(number)), pattern, locale, negative)


def number_text(number):
    """The shortest text of a float, with "." as its point."""
    shown = decimal_of(number).normalize()
    if not shown:
        return '0'
    if abs(shown) >= 10**15 or -shown.as_tuple().exponent > 15:
        mantissa, exponent = f'{number:.14E}'.split('E')
        return mantissa.rstrip('0').rstrip('.') + 'E' + exponent
    return format(shown, 'f')


def host_amount(text):
    """Cents as a host gives them, in dollars as the screens hold them: without a zero before the point."""
    shown = number_text(leading_number(text) / 100)
    return re.sub(r'^(-?)0\.', r'\1.', shown)


def amount_to_field(units):
    """Money in the 18 columns of an amount, its sign in front."""
    if units >= 0:
        return format_decimal(decimal_of_money(units), '0' * 18, LOCALES['en-CA'])
    return '-' + format_decimal(decimal_of_money(-units), '0' * 17, LOCALES['en-CA'])


def pad_right(text, width):
    return text[:width].ljust(width)


def blanks(count):
    if count < 0:
        raise RunTimeError(5)
    return ' ' * count


def is_amount_text(text):
    text = text.strip(' ')
    return bool(text) and all(each in '0123456789.,' for each in text)


def keep_numeric(text, locale):
    return ''.join(each for each in text if each in '-0123456789' or each == locale.point)


def digits_only(text):
    return ''.join(each for each in text if each in '0123456789')


def upper(character):
    """The capital of a letter, where the code page has one."""
    capital = character.upper()
    if len(capital) != 1:
        return character
    try:
        capital.encode('cp1252')
    except UnicodeEncodeError:
        return character
    return capital


def part_number(text, locale):
    """A part of a date as an integer."""
    number = strict_number(text, locale)
    if number is None:
        raise RunTimeError(13)
    if abs(number) > 2**31:
        raise RunTimeError(6)
    return int(number.quantize(Decimal(1), ROUND_HALF_EVEN))


def date_from_parts(year, month, day):
    """A date whose months and days roll over."""
    if 0 <= year <= 29:
        year += 2000
    elif 30 <= year <= 99:
        year += 1900
    if year > 9999:
        raise RunTimeError(5)
    year, month = year + (month - 1) // 12, (month - 1) % 12 + 1
    if not 100 <= year <= 9999:
        raise RunTimeError(5)
    try:
        date = datetime.date(year, month, 1) + datetime.timedelta(days=day - 1)
    except OverflowError:
        raise RunTimeError(5) from None
    if date.year < 100:
        raise RunTimeError(5)
    return date


def yyyymmdd(date):
    return f'{date.year:04}{date.month:02}{date.day:02}'


def date_of(text, locale):
    """The date of eight digits; run-time error for letters."""
    return date_from_parts(*(part_number(part, locale) for part in (text[:4], text[4:6], text[6:8])))


def a_year_later(date):
    try:
        return date.replace(year=date.year + 1)
    except ValueError:
        return date.replace(year=date.year + 1, day=28)


def is_valid_date(text, today, locale):
    """Whether a text is a date of eight digits at most two years from this one."""
    if len(text) < 8:
        return False
    date = date_from_parts(*(part_number(part, locale) for part in (text[:4], text[4:6], text[-2:])))
    if yyyymmdd(date) != text:
        return False
    return today.year - 2 <= part_number(text[:4], locale) <= today.year + 2
