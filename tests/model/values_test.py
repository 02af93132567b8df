#!/usr/bin/env python3
"""What the model makes of numbers and dates is what the vectors say."""

import pathlib
import re
import unittest
from decimal import Decimal

from values import (
    LOCALES, UNITS, RunTimeError, date_from_parts, format_money, format_number, format_text, is_numeric, money,
    number_text, to_money, yyyymmdd)

VECTORS = pathlib.Path(__file__).parent.parent / 'vectors'
ESCAPE = re.compile(r'\\(?:x([0-9A-F]{2})|(.))')
PLAIN = {'t': '\t', 'n': '\n', 'r': '\r', '\\': '\\'}


def rows(name):
    def plain(escape):
        return chr(int(escape[1], 16)) if escape[1] else PLAIN[escape[2]]

    lines = (VECTORS / name).read_text(encoding='utf-8').split('\n')[1:]
    return [[ESCAPE.sub(plain, cell) for cell in line.split('\t')] for line in lines if line]


def with_decimals(units):
    return f'{Decimal(units) / UNITS:.4f}'


def number(text):
    """A number, or a product or the like of two."""
    for sign, calculate in (('*', lambda a, b: a * b), ('/', lambda a, b: a / b)):
        first, found, second = text.partition(sign)
        if found:
            return calculate(float(first), float(second))
    first, found, second = text.partition('+')
    return float(first) + float(second) if found and 'e' not in first else float(text)


class Values(unittest.TestCase):
    def each(self, name, seen):
        for row in rows(name):
            with self.subTest(row):
                self.assertEqual(seen(*row[:-1]), row[-1])

    def test_text_as_money(self):
        for locale, text, result, *wanted in rows('to_money.tsv'):
            with self.subTest(locale=locale, text=text):
                if result == 'ok':
                    self.assertEqual(with_decimals(to_money(text, LOCALES[locale])), wanted[0])
                else:
                    with self.assertRaises(RunTimeError):
                        to_money(text, LOCALES[locale])

    def test_numeric_texts(self):
        self.each('numeric_test.tsv', lambda locale, text: 'yes' if is_numeric(text, LOCALES[locale]) else 'no')

    def test_format(self):
        kinds = {'double': lambda text, *shown: format_number(number(text), *shown),
                 'money': lambda text, *shown: format_money(int(Decimal(text) * UNITS), *shown),
                 'text': format_text}
        self.each('format.tsv', lambda locale, pattern, kind, text: kinds[kind](text, pattern, LOCALES[locale]))

    def test_float_as_money(self):
        self.each('money_from_float.tsv', lambda value: with_decimals(money(float(value))))

    def test_float_as_text(self):
        self.each('number_text.tsv', lambda value: number_text(float(value)))

    def test_date_from_parts(self):
        def seen(*parts):
            try:
                return yyyymmdd(date_from_parts(*map(int, parts)))
            except RunTimeError:
                return 'error'

        self.each('date_from_parts.tsv', seen)


if __name__ == '__main__':
    unittest.main()
