"""Keys by the characters that they make, in the code page."""

from values import upper

BACKSPACE, LINE_FEED, ENTER, ESCAPE, SPACE = 8, 10, 13, 27, 32
QUOTE, COMMA, MINUS, POINT = map(ord, '",-.')
DIGITS = frozenset(b'0123456789')
LETTERS = frozenset(range(ord('A'), ord('Z') + 1)) | frozenset(range(ord('a'), ord('z') + 1))
DATE_KEYS = DIGITS | {BACKSPACE, ENTER}
AMOUNT_KEYS = DATE_KEYS | {POINT, COMMA}


def character_of(key):
    return bytes([key]).decode('cp1252', 'replace')


def capital(key):
    """The key of a letter's capital."""
    return upper(character_of(key)).encode('cp1252', 'replace')[0]
