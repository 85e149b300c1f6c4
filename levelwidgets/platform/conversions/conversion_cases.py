#!/usr/bin/env python3
"""Writes conversion_cases.tsv: what each conversion must give.

Usage: conversion_cases.py > conversion_cases.tsv

The expected results are worked out here by other means than the library's (exact decimal arithmetic, the
calendar of Python's datetime, date texts put together from a known day) or, in the lists of facts, written
down by hand. Columns, separated by tabs:

  operation   fmt, num (text to number), date (text to date), text (number to its general form)
  locale
  value       r:double  f:single  i:integer  b:boolean  d:date as days  s:text  n: null  e: empty
  format      of fmt only
  days        first day and first week of fmt: 1,1
  expected    the text or the number; error 5, error 6 or error 13
  remark      why the system's automation layer answers otherwise, see conversion_cases_remarks.py; empty where it agrees
"""

import datetime

from conversion_cases_facts import (DATE_FACTS, DATE_PICTURES, DATES, DOUBLES, FORMAT_FACTS, GENERAL_FACTS,
                                    NUMBER_FACTS, NUMBER_PICTURES, TEXT_PICTURES, TEXTS)
from conversion_cases_locales import LOCALES, NBSP
from conversion_cases_remarks import (REMARKS, date_text_remark, format_remark, general_remark, number_text_remark)
from conversion_cases_rules import (DATE_NAMES, NUMBER_NAMES, by_locale, days_of, format_value, general, general_date, to_decimal)

ROWS = []


def add(operation, loc, value, picture, days, expected, remark=""):
    assert not remark or remark in REMARKS, remark
    ROWS.append((operation, loc, value, picture, days, expected, remark))


def add_format(kind, text, name, loc="en-US", days=(1, 1)):
    expected = format_value(kind, text, name, LOCALES[loc], days)
    remark = format_remark(kind, text, name, LOCALES[loc], expected)
    add("fmt", loc, f"{kind}:{text}", name, f"{days[0]},{days[1]}", expected, remark)


def format_facts():
    for line in FORMAT_FACTS.strip("\n").split("\n"):
        value, name, expected = line.split(" ~ ")
        add_format(value[0], value[2:], name)
        assert ROWS[-1][5] == expected, (line, ROWS[-1][5])


def formats():
    for picture in NUMBER_PICTURES:
        for value in DOUBLES:
            add_format("r", value, picture)
    for picture in ("", "0", "0.00", "#,##0.00", "Currency", "General Number", "Yes/No", "@", "0.0000000000"):
        for value in ("0.1", "1.1", "654322.25", "1234.5", "-1e10", "1e7", "9999999", "0.041666668", "1.4e-45"):
            add_format("f", value, picture)
        for value in ("0", "1", "-1", "32767", "-32768", "2147483647", "-2147483648"):
            add_format("i", value, picture)
        for value in ("0", "1"):
            add_format("b", value, picture)
        add_format("e", "", picture)
        add_format("n", "", picture)
    add_format("n", "", '0;-0;0;"nothing"')
    for picture in DATE_PICTURES:
        for value in DATES:
            add_format("d", value, picture)
    for picture in NUMBER_NAMES + ["general number", "GENERAL NUMBER"]:
        for value in DATES[:8]:
            add_format("d", value, picture)
    for picture in ("yyyy", "c", "Short Date", "hh:nn"):
        for value in ("45427.4375", "0", "-1.5", "3000000", "-657435", "1e20"):
            add_format("r", value, picture)
        add_format("b", "1", picture)
    for picture in TEXT_PICTURES:
        for value in TEXTS:
            add_format("s", value, picture)
        add_format("r", "-12.5", picture)
    for first_week in (1, 2, 3):
        for first_day in range(1, 8):
            for date in ((2024, 1, 1), (2023, 1, 1), (2024, 12, 30), (2021, 1, 2), (2026, 12, 31), (2000, 2, 29)):
                add_format("d", repr(days_of(*date)), "w ww", days=(first_day, first_week))
    for loc in ("en-GB", "de-DE", "fr-FR", "sv-SE", "ja-JP"):
        for picture in ("", "Currency", "Standard", "Percent", "#,##0.00", "0.00;(0.00)", "0.0E+0", "General Number"):
            for value in ("0", "0.5", "-0.5", "1234.5", "-1234567.891", "1e15", "1e-10"):
                add_format("r", value, picture, loc)
        for value in DATES[:8]:
            add_format("d", value, "General Number", loc)
        for picture in DATE_NAMES + ["c", "ddd d mmm yy", "dddd d mmmm yyyy", "dd/mm/yyyy hh:nn", "h AMPM", "ttttt", "dddddd"]:
            for value in DATES[:8]:
                add_format("d", value, picture, loc)


def numbers():
    for line in NUMBER_FACTS.strip("\n").split("\n"):
        expected, *texts = line.split("|")
        for text in texts:
            number = expected if expected.startswith("e") else repr(float(expected))
            add("num", "en-US", "s:" + text, "", "", number, number_text_remark(text, number))
    for text in ("0.1", "123456.789", "1.7976931348623157e308", "2.2250738585072014e-308", "4.9e-324",
                 "3.14159265358979", "9007199254740993", "123456789012345678901234567890", "0.000001", "1e23",
                 "8.5e-5", "179769313486231570" + "0" * 291, "0." + "0" * 300 + "17"):
        add("num", "en-US", "s:" + text, "", "", repr(float(text)), number_text_remark(text, repr(float(text))))
    for loc, texts in {"en-GB": ["£1,234.5", "-£1,234.5", "1234.5"], "de-DE": ["1.234,5", "1234,5", "1.234,5 €", "€1234,5"],
                       "fr-FR": [f"1{NBSP}234,5", "1 234,5", f"1 234,5{NBSP}€", "1234,5"],
                       "sv-SE": [f"1{NBSP}234,5 kr", "1234,5kr", "1 234,5"], "ja-JP": ["¥1,234.5", "-¥1,234.5", "1234.5"]}.items():
        for text in texts:
            add("num", loc, "s:" + text, "", "", repr(-1234.5 if text.startswith("-") else 1234.5))
    for loc, text in (("de-DE", "1,2,3"), ("fr-FR", "1.5"), ("sv-SE", "$5"), ("ja-JP", "1.2.3"), ("en-GB", "$5")):
        add("num", loc, "s:" + text, "", "", "error 13")


def date_number(text):
    day, _, time = text.partition(" ")
    fields = [int(f) for f in day.split("-")] + [int(f) for f in time.split(":") if f]
    return repr(float(days_of(*fields)))


def add_date(loc, text, expected):
    add("date", loc, "s:" + text, "", "", expected, date_text_remark(text, expected, loc))


def dates():
    for line in DATE_FACTS.strip("\n").split("\n"):
        expected, *texts = line.split("|")
        for text in texts:
            add_date("en-US", text, expected if expected.startswith("e") else date_number(expected))
    for name, loc in LOCALES.items():
        for day in ((2024, 2, 29), (1999, 12, 31), (2029, 1, 1), (1930, 11, 30), (100, 3, 4), (9999, 10, 9)):
            for time in ((0, 0, 0), (9, 5, 0), (23, 59, 59)):
                when = datetime.datetime(*day, *time)
                expected = repr(float(days_of(*day, *time)))
                add_date(name, general_date(when, loc), expected)
                if "dddd" not in loc.long:
                    add_date(name, by_locale(loc.long + " " + loc.time, when, loc), expected)
                if name != "ja-JP":
                    add_date(name, f"{day[2]} {loc.months[day[1] - 1]} {day[0]} {time[0]}:{time[1]}:{time[2]}", expected)
        if name != "ja-JP":
            for month in range(12):
                for word in sorted({loc.months[month], loc.short_months[month], loc.months[month].upper()}):
                    add_date(name, f"7 {word} 2021", repr(float(days_of(2021, month + 1, 7))))
    facts = {
        "en-GB": {"2003-02-01": ["1 2 3", "1/2/2003"], "2003-02-14": ["14 2 3", "2 14 3"], "2024-02-01": ["1/2"],
                  "2014-03-02": ["2 3 14"], "1932-02-03": ["32 2 3"], "2024-05-31": ["5/31/2024", "31/5/2024", "2024-05-31"]},
        "de-DE": {"2003-02-01": ["1.2.3", "1.2.2003", "1. Februar 2003"], "2024-12-30": ["30.12", "12.30"],
                  "2024-12-31 10:30": ["31.12.2024 10:30:00", "31.12.24 10:30"], "error 13": ["27.8.", "1.2.3.4"]},
        "sv-SE": {"2001-02-03": ["1 2 3", "01-02-03", "2001-02-03"], "2003-02-13": ["2 13 3"], "2024-01-02": ["1 2"],
                  "2024-12-31": ["31/12/2024", "12/31/2024", "den 31 december 2024"]},
        "ja-JP": {"2024-05-31": ["2024年5月31日", "2024/5/31", "5月31日"], "2001-02-03": ["1 2 3"]},
        "fr-FR": {"2024-12-31": ["31/12/2024", "31 déc. 2024", "31 DÉCEMBRE 2024"], "error 13": ["1 aout 2024"]},
    }
    for name, cases in facts.items():
        for expected, texts in cases.items():
            for text in texts:
                add_date(name, text, expected if expected.startswith("e") else date_number(expected))


def add_text(loc, kind, value, expected):
    add("text", loc, f"{kind}:{value}", "", "", expected, general_remark(kind, value, LOCALES[loc]))


def texts():
    for line in GENERAL_FACTS.strip().split("\n"):
        expected, value = line.split()
        add_text("en-US", "r", value, expected)
    for exponent in range(-20, 22):
        for mantissa in ("1", "1.5", "9.99999999999999", "1.23456789012345", "-4.25"):
            value = f"{mantissa}e{exponent}"
            add_text("en-US", "r", value, general(to_decimal("r", value), 15, LOCALES["en-US"]))
            if exponent in (-5, 3):
                add_text("de-DE", "r", value, general(to_decimal("r", value), 15, LOCALES["de-DE"]))
    for value in ("654322.25", "0.1", "1e7", "9999999", "1234567", "0.041666668", "3.4028235e38", "1.4e-45", "16777216"):
        add_text("en-US", "f", value, general(to_decimal("f", value), 7, LOCALES["en-US"]))


def main():
    format_facts()
    formats()
    numbers()
    dates()
    texts()
    for name, reason in REMARKS.items():
        print(f"# {name}\t{reason}")
    for row in ROWS:
        print("\t".join(row))


main()
