"""Why the system's automation layer under Wine is known to answer otherwise."""

import datetime
import re
from decimal import Decimal

from conversion_cases_rules import (NAMED, NUMBER_NAMES, days_of, fitted, general, general_value, kind_of, moment,
                                    number_of, read_section, split_sections, to_decimal)

REMARKS = {
    "general": "a fraction is written out while it fits 15 decimals (7 of a single); Wine goes by the exponent",
    "exponent": "a number with an exponent has the locale's decimal separator; Wine writes a point",
    "half": "digits are cut half away from zero; Wine rounds halves to even",
    "scaling": "thousands separators behind the last digit divide by 1000; Wine only groups",
    "zero": "what rounds to zero is zero, without a sign and in zero's section; Wine looks before it rounds",
    "below-one": "a number below 1 rounds to a whole one like any other; Wine drops it",
    "sign": "the minus sign stands in front of all literals; Wine puts it in front of the first digit",
    "literal-sign": "a negative number keeps its sign in front of literals; Wine has no digit to put it to",
    "whole": "without placeholders in front of the point the whole part is written nevertheless; Wine drops it",
    "zero-exponent": "zero has the exponent 0; Wine shifts it",
    "empty": "an empty value is 0; Wine formats it without a digit",
    "empty-text": "an empty text is no date; Wine takes it for day 0",
    "null": "null takes the fourth section; Wine gives nothing",
    "boolean": "the general form of a boolean is True or False; Wine gives a number",
    "left": "an exclamation mark fills from the left and keeps the last characters; Wine ignores it",
    "case": "a text format without < keeps capitals; Wine makes some of them small",
    "capitals": "letters with accents have capitals, too; Wine knows those of the alphabet only",
    "numeric-text": "a text with thousands separators or zeros in front is a number; Wine gives it as it is",
    "currency": "the named format follows the locale's patterns; Wine the American one",
    "date-number": "a date has its number of days in a number format that is written out; Wine gives its text",
    "medium": "the medium date is dd-mmm-yy; Wine gives the long date",
    "half-day": "h is 1 to 12 beside AM/PM; Wine writes 0 to 23",
    "midnight": "midnight has a long time, and a time that rounds to it is none; Wine takes both the other way",
    "late": "a time that rounds to midnight belongs to the next day; Wine keeps the weekday and day of the year",
    "garbage": "Wine appends whatever stands behind the format in memory",
    "week": "weeks and weekdays follow the two arguments; Wine counts weeks from 1 January and misses some days",
    "window": "two-digit years are 1930 to 2029; Wine's end in 2049",
    "order": "the day stands in front of a named month and the year behind it; Wine reads the year first",
    "day-name": "a date with the name of its day is no date; Wine reads it",
    "two-months": "two names of months are no date; Wine reads the second one as a number",
    "half-letter": "A and P stand for AM and PM; Wine does not know them",
    "unit": "the words of the locale's long dates are understood; Wine knows none",
    "two-signs": "one sign only; Wine takes one more",
    "negative-zero": "a text is never read as minus zero; Wine does so",
    "d-exponent": "D stands for E in an exponent; Wine does not know it",
    "bits": "hexadecimal digits are up to 64 bits; Wine stops at 32",
    "range": "all doubles are read; Wine gives up at both ends",
    "precision": "the nearest double; Wine multiplies rounded powers of ten",
}


def general_remark(kind, text, loc):
    digits = 7 if kind == "f" else 15
    number = to_decimal(kind, text)
    if loc.decimal != "." and "E-" in general(number, digits, loc):
        return "exponent"
    if general(number, digits, loc) == by_exponent(number, digits, loc):
        exact = Decimal(float(text))
        return "half" if kind == "f" and f"{exact:.{digits}G}" != f"{float(text):.{digits}G}" else ""
    return "general"


def by_exponent(number, digits, loc):
    text = f"{float(number):.{digits}G}"
    return "0" if text == "-0" else text.replace(".", loc.decimal)


def number_remark(kind, text, name, loc):
    picture = NAMED.get(name, name)
    if kind == "n":
        return "null" if len(split_sections(picture)) > 3 else ""
    if kind == "e":
        return "empty"
    if kind == "d" and name not in NUMBER_NAMES:
        return "date-number"
    number = number_of(kind, text, loc)
    if number is None:
        return ""
    if name == "General Number":
        if kind == "s":
            return "numeric-text" if general_value("r", str(number), loc) != text else ""
        return general_remark(kind, text, loc) if kind in "rf" else ""
    if name == "Currency":
        if loc.currency != "$":
            return "currency"
        return "zero" if number != 0 and abs(number) < Decimal("0.005") else ""
    sections = split_sections(picture)
    chosen = 1 if number < 0 and len(sections) > 1 and sections[1] else 0
    parts, whole, decimals, _, _, exponent = read_section(sections[chosen])
    if re.search(r",(\.|[^0#,]*$)", sections[chosen]):
        return "scaling"
    if number != 0 and fitted(number, sections[chosen])[0] == 0:
        return "zero"
    if number == 0 and exponent and len(whole) > 1:
        return "zero-exponent"
    if not whole and any(kind == "point" for kind, _ in parts):
        return "whole"
    if not decimals and whole and not exponent and abs(number) < 1 and number != 0:
        return "below-one"
    if number < 0 and chosen == 0:
        if not whole and not decimals and name not in NAMED:
            return "literal-sign"
        if parts[0][0] == "lit" and name not in NAMED:
            return "sign"
    return "half" if kind == "f" and text == "654322.25" else ""


def date_remark(kind, text, name, when):
    picture = NAMED.get(name, name)
    if name == "Medium Date":
        return "medium"
    if kind == "s" and text == "":
        return "empty-text"
    if kind == "s" and "," in text:
        return "numeric-text"
    if when is None:
        return ""
    if re.search(r"(?<!h)h(?!h).*am/pm", picture, re.I):
        return "half-day"
    if kind == "d" and re.fullmatch(r"[\d.]+9999999\d?", text):
        return "midnight" if picture == "c" else "late"
    if picture == "ttttt" and when.time() == datetime.time():
        return "midnight"
    if "ww" in picture:
        return "week"
    return "garbage" if name == "c" else ""


def text_remark(kind, text, name, loc):
    if kind == "b":
        return "boolean"
    name = re.sub('"[^"]*"', "", name)
    general_text = general_value(kind, text, loc)
    if "!" in name:
        return "left"
    if "<" in name and general_text.lower() != general_text and not general_text.isascii():
        return "capitals"
    if kind in "rf" and general_remark(kind, text, loc):
        return general_remark(kind, text, loc)
    return "case" if re.search(r".[AMPE]", general_text) and ">" not in name else ""


def format_remark(kind, text, name, loc, expected):
    picture = NAMED.get(name, name)
    if name == "":
        if kind == "b":
            return "boolean"
        if kind == "d":
            return "midnight" if text == "45427.99999999" else ""
        return general_remark(kind, text, loc) if kind in "rf" else ""
    type_of = "number" if name in NUMBER_NAMES else kind_of(picture)
    if type_of == "number":
        return number_remark(kind, text, name, loc)
    if kind == "d" and type_of == "text" and text == "45427.99999999":
        return "midnight"
    if type_of == "text":
        return text_remark(kind, text, name, loc)
    when = moment(float(number_of(kind, text, loc))) if kind in "rfib" else moment(float(text)) if kind == "d" else 0
    return date_remark(kind, text, name, when) if when != 0 or kind == "s" else ""


def number_text_remark(text, expected):
    bare = text.strip()
    if bare in ("+-5", "5--", "+5-"):
        return "two-signs"
    if bare.startswith("&"):
        return "bits" if len(bare) > 9 else ""
    if re.search("d", bare, re.I):
        return "d-exponent"
    if bare in ("-0", "-1e-999"):
        return "negative-zero"
    if expected.startswith("e"):
        return ""
    if expected in ("1.7976931348623157e+308", "5e-324"):
        return "range"
    return "precision" if len(bare) > 20 or expected == "2.2250738585072014e-308" else ""


def date_text_remark(text, expected, name):
    if re.match("Fri", text):
        return "day-name"
    if text == "Jan Feb 2000":
        return "two-months"
    if re.search(r"\d ?[ap]$", text, re.I):
        return "half-letter"
    if text in ("2 Jan 3", "2-Jan-03"):
        return "order"
    if not text.isascii() and text.upper() == text and name != "ja-JP":
        return "capitals"
    if re.search("den|[年月日]", text):
        return "unit"
    if not expected.startswith("e") and days_of(1930, 1, 1) <= float(expected) < days_of(1950, 1, 1):
        return "window" if not re.search(r"19[34]\d", text) else ""
    return ""
