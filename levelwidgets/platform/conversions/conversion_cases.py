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
  remark      why the system's automation layer answers otherwise, see REMARKS; empty where it agrees
"""

import datetime
import re
import struct
from decimal import ROUND_HALF_UP, Context, Decimal
from fractions import Fraction

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
    "left": "an exclamation mark fills from the left; Wine ignores it",
    "case": "a text format without < keeps capitals; Wine makes some of them small",
    "capitals": "letters with accents have capitals, too; Wine knows those of the alphabet only",
    "numeric-text": "a text with thousands separators or zeros in front is a number; Wine gives it as it is",
    "currency": "the named format follows the locale's patterns; Wine the American one",
    "date-number": "a date has its number of days in a number format; Wine gives its text",
    "medium": "the medium date is dd-mmm-yy; Wine gives the long date",
    "half-day": "h is 1 to 12 beside AM/PM; Wine writes 0 to 23",
    "midnight": "midnight has a long time, and a time that rounds to it is none; Wine takes both the other way",
    "late": "a time that rounds to midnight belongs to the next day; Wine keeps the weekday and day of the year",
    "garbage": "Wine reads behind the end of the format",
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

LONG_EN = "January February March April May June July August September October November December".split()
SHORT_EN = [name[:3] for name in LONG_EN]
DAYS_EN = "Sunday Monday Tuesday Wednesday Thursday Friday Saturday".split()

NBSP = "\u00a0"


class Locale:
    """A second record of each locale's data, so that a slip in the library's shows."""

    def __init__(self, **values):
        self.__dict__.update(values)


def locale(decimal, thousands, currency, places, positive, negative, short, long, time, date_sep, am, pm, months,
           short_months, days, short_days, first_day, first_week):
    return Locale(**locals())


LOCALES = {
    "en-US": locale(".", ",", "$", 2, "$n", "($n)", "{M}/{d}/{y}", "{dddd}, {MMMM} {d}, {y}", "{h}:{mm}:{ss} {tt}",
                    "/", "AM", "PM", LONG_EN, SHORT_EN, DAYS_EN, [d[:3] for d in DAYS_EN], 1, 1),
    "en-GB": locale(".", ",", "£", 2, "$n", "-$n", "{dd}/{MM}/{y}", "{dd} {MMMM} {y}", "{HH}:{mm}:{ss}", "/", "AM",
                    "PM", LONG_EN, SHORT_EN, DAYS_EN, [d[:3] for d in DAYS_EN], 2, 2),
    "de-DE": locale(",", ".", "€", 2, "n $", "-n $", "{dd}.{MM}.{y}", "{dddd}, {d}. {MMMM} {y}", "{HH}:{mm}:{ss}",
                    ".", "AM", "PM",
                    "Januar Februar März April Mai Juni Juli August September Oktober November Dezember".split(),
                    "Jan Feb Mrz Apr Mai Jun Jul Aug Sep Okt Nov Dez".split(),
                    "Sonntag Montag Dienstag Mittwoch Donnerstag Freitag Samstag".split(),
                    "So Mo Di Mi Do Fr Sa".split(), 2, 2),
    "fr-FR": locale(",", NBSP, "€", 2, "n $", "-n $", "{dd}/{MM}/{y}", "{dddd} {d} {MMMM} {y}", "{HH}:{mm}:{ss}",
                    "/", "AM", "PM",
                    "janvier février mars avril mai juin juillet août septembre octobre novembre décembre".split(),
                    "janv. févr. mars avr. mai juin juil. août sept. oct. nov. déc.".split(),
                    "dimanche lundi mardi mercredi jeudi vendredi samedi".split(),
                    "dim. lun. mar. mer. jeu. ven. sam.".split(), 2, 2),
    "sv-SE": locale(",", NBSP, "kr", 2, "n $", "-n $", "{y}-{MM}-{dd}", "den {d} {MMMM} {y}", "{HH}:{mm}:{ss}", "-",
                    "fm", "em",
                    "januari februari mars april maj juni juli augusti september oktober november december".split(),
                    "jan feb mar apr maj jun jul aug sep okt nov dec".split(),
                    "söndag måndag tisdag onsdag torsdag fredag lördag".split(),
                    "sön mån tis ons tor fre lör".split(), 2, 2),
    "ja-JP": locale(".", ",", "¥", 0, "$n", "-$n", "{y}/{MM}/{dd}", "{y}年{M}月{d}日", "{H}:{mm}:{ss}", "/", "午前",
                    "午後", [f"{m}月" for m in range(1, 13)], [f"{m}" for m in range(1, 13)],
                    [d + "曜日" for d in "日月火水木金土"], list("日月火水木金土"), 1, 1),
}

# --- Numbers ---------------------------------------------------------------------------------


def to_decimal(kind, text):
    """The digits that are shown of a number."""
    if kind == "r":
        return Context(prec=15, rounding=ROUND_HALF_UP).create_decimal(Decimal(float(text)))
    if kind == "f":
        single = struct.unpack("f", struct.pack("f", float(text)))[0]
        return Context(prec=7, rounding=ROUND_HALF_UP).create_decimal(Decimal(single))
    return Decimal(int(text))


def general(number, digits, loc):
    number = number.normalize()
    if number == 0:
        return "0"
    sign, figures, exponent = number.as_tuple()
    figures = "".join(map(str, figures))
    minus = "-" if sign else ""
    magnitude = len(figures) + exponent
    if magnitude > digits or -exponent > digits:
        mantissa = figures[0] + (loc.decimal + figures[1:] if len(figures) > 1 else "")
        return f"{minus}{mantissa}E{'-' if magnitude < 1 else '+'}{abs(magnitude - 1):02d}"
    return minus + format(abs(number), "f").replace(".", loc.decimal)


SECTION_TOKENS = re.compile(r'\\(.)|"([^"]*)"?|([0#])|(\.)|(,)|(%)|([Ee][+-])([0#]*)|(.)', re.S)


def split_sections(picture):
    sections, current, quoted, escaped = [], "", False, False
    for c in picture:
        if c == ";" and not quoted and not escaped:
            sections.append(current)
            current = ""
            continue
        if c == '"' and not escaped:
            quoted = not quoted
        escaped = c == "\\" and not escaped and not quoted
        current += c
    return sections + [current]


def read_section(section):
    """The section as a list of parts, and its figures."""
    parts, whole, decimals, seen_point = [], "", "", False
    power = commas = 0
    grouped = percent = False
    exponent = None
    for match in SECTION_TOKENS.finditer(section):
        escaped, quoted, digit, point, comma, per, exp, exp_digits, other = match.groups()
        if exp and (whole or decimals) and exponent is None:
            exponent = (exp, max(1, exp_digits.count("0")))
            parts.append(("exp", None))
        elif exp:
            parts.append(("lit", exp + exp_digits))
        elif digit and exponent is None:
            if seen_point:
                decimals += digit
            else:
                grouped = grouped or (commas > 0)
                commas = 0
                whole += digit
            parts.append(("dec" if seen_point else "int", digit))
        elif point and exponent is None:
            seen_point = True
            parts.append(("point", None))
        elif comma and exponent is None:
            if not whole and not seen_point:
                parts.append(("lit", ","))
            elif not seen_point:
                commas += 1
        elif per:
            power += 0 if percent else 2
            percent = True
            parts.append(("lit", "%"))
        else:
            parts.append(("lit", next(g for g in (escaped, quoted, digit, point, comma, other) if g is not None)))
    return parts, whole, decimals, grouped, power - 3 * commas, exponent


def fitted(number, section):
    """The number as the section shows it, and its exponent."""
    _, whole, decimals, _, power, exponent = read_section(section)
    number = number.scaleb(power)
    if not whole and not decimals:
        return number, 0
    if exponent is None or number == 0:
        return number.quantize(Decimal(1).scaleb(-len(decimals)), rounding=ROUND_HALF_UP,
                               context=Context(prec=400)), 0
    significant = len(whole) + len(decimals)
    number = Context(prec=significant, rounding=ROUND_HALF_UP).create_decimal(number)
    shift = number.adjusted() + 1 - len(whole)
    return number.scaleb(-shift), shift


def write_section(number, shift, section, with_sign, loc):
    parts, whole, decimals, grouped, _, exponent = read_section(section)
    minus = "-" if with_sign and number < 0 else ""
    integer, _, fraction = format(abs(number), "f").partition(".")
    integer = integer.lstrip("0")
    fraction = fraction.rstrip("0")
    if len(decimals) == 0 and exponent is None and not whole and not any(k == "point" for k, _ in parts):
        integer = ""
    first_zero = whole.find("0")
    integer = integer.rjust(len(whole) - first_zero if first_zero >= 0 else 0, "0")
    last_zero = decimals.rfind("0")
    fraction = fraction.ljust(last_zero + 1, "0")
    # The figures for each placeholder, from the right; the first takes what is left over.
    groups = []
    for place in range(len(integer)):
        group = integer[len(integer) - 1 - place]
        if grouped and place > 0 and place % 3 == 0:
            group += loc.thousands
        groups.insert(0, group)
    cells = [""] * max(0, len(whole) - len(groups)) + groups
    extra = cells[:len(cells) - len(whole)] if len(whole) < len(cells) else []
    cells = cells[len(extra):]
    result, decimal_at, seen_point = "", 0, False
    for kind, value in parts:
        if kind == "lit":
            result += value
        elif kind == "int":
            result += "".join(extra) + cells.pop(0)
            extra = []
        elif kind == "point":
            if not whole and not seen_point:
                result += "".join(extra)
            seen_point = True
            result += loc.decimal
        elif kind == "dec":
            result += fraction[decimal_at:decimal_at + 1]
            decimal_at += 1
        else:
            mark, least = exponent
            sign = "-" if shift < 0 else "+" if mark[1] == "+" else ""
            result += f"{mark[0]}{sign}{abs(shift):0{least}d}"
    return minus + result


def format_number(number, picture, loc):
    sections = split_sections(picture)
    given = [i < len(sections) and sections[i] != "" for i in range(4)]
    chosen = 1 if number < 0 and given[1] else 0
    shown, shift = fitted(number, sections[chosen])
    if shown == 0:
        section = sections[2 if given[2] else 0]
        return write_section(Decimal(0), 0, section, False, loc)
    return write_section(shown, shift, sections[chosen], chosen == 0, loc)


def currency(number, loc):
    number = number.quantize(Decimal(1).scaleb(-loc.places), rounding=ROUND_HALF_UP, context=Context(prec=400))
    integer, _, fraction = format(abs(number), "f").partition(".")
    integer = re.sub(r"(?<=\d)(?=(\d{3})+$)", loc.thousands, integer)
    amount = integer + (loc.decimal + fraction if fraction else "")
    return (loc.negative if number < 0 else loc.positive).replace("n", amount).replace("$", loc.currency)


# --- Dates -----------------------------------------------------------------------------------

DAY_ZERO = datetime.date(1899, 12, 30)


def moment(days):
    whole = int(days)
    seconds = abs(Fraction(days) - whole) * 86400
    second = int(seconds + Fraction(1, 2))
    day = DAY_ZERO.toordinal() + whole + second // 86400
    if not datetime.date(100, 1, 1).toordinal() <= day <= datetime.date(9999, 12, 31).toordinal():
        return None
    second %= 86400
    return datetime.datetime.combine(datetime.date.fromordinal(day),
                                     datetime.time(second // 3600, second // 60 % 60, second % 60))


def days_of(*fields):
    """The date number of year, month, day, hour, minute, second."""
    when = datetime.datetime(*fields)
    day = when.date().toordinal() - DAY_ZERO.toordinal()
    time = (when.hour * 3600 + when.minute * 60 + when.second) / 86400
    return day + time if day >= 0 else day - time


def by_locale(pattern, when, loc):
    twelve = when.hour % 12 or 12
    weekday = when.isoweekday() % 7
    return pattern.format(M=when.month, MM=f"{when.month:02d}", MMMM=loc.months[when.month - 1], d=when.day,
                          dd=f"{when.day:02d}", dddd=loc.days[weekday], y=when.year, h=twelve, H=when.hour,
                          HH=f"{when.hour:02d}", mm=f"{when.minute:02d}", ss=f"{when.second:02d}",
                          tt=loc.am if when.hour < 12 else loc.pm)


def general_date(when, loc):
    parts = []
    if when.date() != DAY_ZERO:
        parts.append(by_locale(loc.short, when, loc))
    if when.time() != datetime.time() or not parts:
        parts.append(by_locale(loc.time, when, loc))
    return " ".join(parts)


def week(when, first_day, first_week):
    """By counting back from the week that holds the day to the first one of its year."""
    def start_of(day):
        return day - (datetime.date.fromordinal(day).isoweekday() % 7 - (first_day - 1)) % 7

    def first_start(year):
        january_1 = datetime.date(year, 1, 1).toordinal()
        start = start_of(january_1)
        days_in_year = start + 7 - january_1
        needed = {1: 1, 2: 4, 3: 7}[first_week]
        return start if days_in_year >= needed else start + 7

    start = start_of(when.toordinal())
    year = when.year
    if start < first_start(year):
        year -= 1
    elif first_week == 2 and year < 9999 and start >= first_start(year + 1):
        return 1
    return (start - first_start(year)) // 7 + 1


DATE_TOKENS = re.compile(
    r'\\(.)|"([^"]*)"?|(d{1,6}|ww?|m{1,4}|q|yyyy|yy|y|hh?|nn?|ss?|ttttt|c|AM/PM|A/P|AMPM|/|:)|(.)', re.S | re.I)


def format_date(when, picture, loc, first_day, first_week):
    picture = split_sections(picture)[0]
    weekday = when.isoweekday() % 7
    tokens = [m.groups() for m in DATE_TOKENS.finditer(picture)]
    twelve = any(t[2] and t[2].upper() in ("AM/PM", "A/P", "AMPM") for t in tokens)
    hour = (when.hour % 12 or 12) if twelve else when.hour
    morning = when.hour < 12
    result, after_hours = "", False
    for escaped, quoted, token, other in tokens:
        if token is None:
            result += next(g for g in (escaped, quoted, other) if g is not None)
            continue
        name = token.lower()
        if name in ("m", "mm") and after_hours:
            name = name.replace("m", "n")
        if name not in ("/", ":", "am/pm", "a/p", "ampm"):
            after_hours = name in ("h", "hh")
        result += {
            "d": lambda: str(when.day), "dd": lambda: f"{when.day:02d}",
            "ddd": lambda: loc.short_days[weekday], "dddd": lambda: loc.days[weekday],
            "ddddd": lambda: by_locale(loc.short, when, loc), "dddddd": lambda: by_locale(loc.long, when, loc),
            "w": lambda: str((weekday - (first_day - 1)) % 7 + 1),
            "ww": lambda: str(week(when.date(), first_day, first_week)),
            "m": lambda: str(when.month), "mm": lambda: f"{when.month:02d}",
            "mmm": lambda: loc.short_months[when.month - 1], "mmmm": lambda: loc.months[when.month - 1],
            "q": lambda: str((when.month - 1) // 3 + 1), "y": lambda: str(when.timetuple().tm_yday),
            "yy": lambda: f"{when.year % 100:02d}", "yyyy": lambda: str(when.year),
            "h": lambda: str(hour), "hh": lambda: f"{hour:02d}",
            "n": lambda: str(when.minute), "nn": lambda: f"{when.minute:02d}",
            "s": lambda: str(when.second), "ss": lambda: f"{when.second:02d}",
            "ttttt": lambda: by_locale(loc.time, when, loc), "c": lambda: general_date(when, loc),
            "am/pm": lambda: ("AM" if morning else "PM") if token[0] == "A" else ("am" if morning else "pm"),
            "a/p": lambda: ("A" if morning else "P") if token[0] == "A" else ("a" if morning else "p"),
            "ampm": lambda: loc.am if morning else loc.pm,
            "/": lambda: loc.date_sep, ":": lambda: ":",
        }[name]()
    return result


# --- Texts -----------------------------------------------------------------------------------


def format_text(text, picture):
    sections = split_sections(picture)
    section = sections[1] if text == "" and len(sections) > 1 and sections[1] else sections[0]
    tokens = re.findall(r'\\(.)|"([^"]*)"?|([@&<>!])|(.)', section, re.S)
    case = next((c for _, _, c, _ in tokens if c and c in "<>"), "")
    text = text.lower() if case == "<" else text.upper() if case == ">" else text
    places = sum(1 for _, _, c, _ in tokens if c and c in "@&")
    left = any(c == "!" for _, _, c, _ in tokens)
    gap = max(0, places - len(text))
    cells = list(text[:places]) + [None] * gap if left else [None] * gap + list(text[:places])
    result = ""
    for escaped, quoted, code, other in tokens:
        if code and code in "@&":
            cell = cells.pop(0)
            result += (" " if code == "@" else "") if cell is None else cell
        elif not code:
            result += escaped or quoted or other
    return result + text[places:]


# --- Format ----------------------------------------------------------------------------------

NAMED = {
    "Fixed": "0.00", "Standard": "#,##0.00", "Percent": "0.00%", "Scientific": "0.00E+00",
    "Yes/No": '"Yes";"Yes";"No"', "True/False": '"True";"True";"False"', "On/Off": '"On";"On";"Off"',
    "General Date": "c", "Long Date": "dddddd", "Medium Date": "dd-mmm-yy", "Short Date": "ddddd",
    "Long Time": "ttttt", "Medium Time": "hh:nn AMPM", "Short Time": "hh:nn",
}
NUMBER_NAMES = ["General Number", "Currency", "Fixed", "Standard", "Percent", "Scientific", "Yes/No", "True/False",
                "On/Off"]
DATE_NAMES = ["General Date", "Long Date", "Medium Date", "Short Date", "Long Time", "Medium Time", "Short Time"]


def general_value(kind, text, loc):
    if kind == "r":
        return general(to_decimal(kind, text), 15, loc)
    if kind == "f":
        return general(to_decimal(kind, text), 7, loc)
    if kind == "b":
        return "True" if text == "1" else "False"
    if kind == "d":
        when = moment(float(text))
        return general_date(when, loc) if when else general(to_decimal("r", text), 15, loc)
    return text


def number_of(kind, text, loc):
    if kind in "rfi":
        return to_decimal(kind, text)
    if kind == "d":
        return to_decimal("r", text)
    if kind == "b":
        return Decimal(-1 if text == "1" else 0)
    if kind == "e":
        return Decimal(0)
    plain = text.replace(loc.thousands, "").replace(loc.decimal, ".")
    return to_decimal("r", plain) if re.fullmatch(r"-?\d+(\.\d*)?", plain) else None


def format_value(kind, text, name, loc, days):
    if kind == "n":
        sections = split_sections(name)
        if len(sections) > 3 and sections[3]:
            return write_section(Decimal(0), 0, sections[3], False, loc)
        return ""
    if name == "":
        return general_value(kind, text, loc)
    picture = NAMED.get(name, name)
    type_of = "number" if name in NUMBER_NAMES else "date" if name in DATE_NAMES else kind_of(picture)
    if type_of == "text":
        return format_text(general_value(kind, text, loc), picture)
    if type_of == "date":
        if kind == "s":
            when = SAMPLE_DATE_TEXTS.get(text)
            number = number_of(kind, text, loc)
            if when is None and number is not None:
                when = moment(float(number))
        else:
            when = moment(float(number_of(kind, text, loc)) if kind != "d" else float(text))
        return format_date(when, picture, loc, *days) if when else general_value(kind, text, loc)
    if name == "General Number" and kind == "d":
        return general_value(kind, text, loc)
    number = number_of(kind, text, loc)
    if number is None:
        return general_value(kind, text, loc)
    if name == "General Number":
        return general(number, 7 if kind == "f" else 15, loc)
    return currency(number, loc) if name == "Currency" else format_number(number, picture, loc)


def kind_of(picture):
    bare = re.sub(r'\\.|"[^"]*"?', "", picture)
    match = re.search(r"([0#.,%])|([@&<>!])|(d|w|m|q|y|h|n|s|ttttt|c|am/pm|a/p|ampm|/|:)", bare, re.I)
    if not match or match.group(1):
        return "number"
    return "text" if match.group(2) else "date"


SAMPLE_DATE_TEXTS = {
    "12/31/2024": datetime.datetime(2024, 12, 31),
    "1/2/1970 6:30 PM": datetime.datetime(1970, 1, 2, 18, 30),
    "14:05": datetime.datetime(1899, 12, 30, 14, 5),
    # A point separates the parts of a time.
    "12.5": datetime.datetime(1899, 12, 30, 12, 5),
    "001.50": datetime.datetime(1899, 12, 30, 1, 50),
}

# --- Why the automation layer under Wine answers otherwise -----------------------------------


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
    if kind == "d":
        return "" if name == "General Number" else "date-number"
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
    return "garbage" if kind == "b" and picture == "c" else ""


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


ROWS = []


def add(operation, loc, value, picture, days, expected, remark=""):
    assert not remark or remark in REMARKS, remark
    ROWS.append((operation, loc, value, picture, days, expected, remark))


def add_format(kind, text, name, loc="en-US", days=(1, 1)):
    expected = format_value(kind, text, name, LOCALES[loc], days)
    remark = format_remark(kind, text, name, LOCALES[loc], expected)
    add("fmt", loc, f"{kind}:{text}", name, f"{days[0]},{days[1]}", expected, remark)


DOUBLES = ("0 -0.0 1 -1 0.5 -0.5 1.5 2.5 -2.5 3.5 9.995 -9.995 1.005 0.125 0.135 0.004 -0.004 0.995 99.995 0.1 "
           "0.30000000000000004 0.3333333333333333 1e-5 1e-10 12.5 -12.5 1234.5 -1234.5 1234.5678 999.995 1000 "
           "999999.5 1234567.891 -1234567.891 123456789012345 1e15 1.5e15 123456789012345678 1e20 -1e20 5e-324 "
           "0.000123456 17 100 4711").split()

NUMBER_PICTURES = [
    "", "General Number", "Currency", "Fixed", "Standard", "Percent", "Scientific", "Yes/No", "True/False", "On/Off",
    "0", "#", "00", "000", "0.0", "0.00", "0.000", "#.##", "#.00", ".00", "0.##", "0.0#", "#,##0", "#,##0.00", "#,###.##",
    "0,000.0", "000,000", "0,", "#,##0,", "#,##0,,", "#,##0,.0K", "0%", "0.0%", "#%", "0.00E+00", "0.0e-0", "##0.0#E+0",
    "0E+000", "#.###E-00", "$0.00", "$#,##0;($#,##0)", "$#,##0;($#,##0);\"zero\"", "0.0;-0.0;\\z", "0;;\\z", "0;-0;;\"null\"",
    "+0;-0;0", "0\\%", "\\#0", "\"n=\"0.0", "(0)", "0 \"units\"", "00-00", "###-####", "0.0.0", "\"pos\";\"neg\"",
    "\"pos\";\"neg\";\"zero\"", "#;-#", "0 ;(0)", "0.00 EUR",
]

DATES = [repr(d) for d in (
    days_of(2024, 5, 15, 10, 30, 0), days_of(2024, 2, 29, 0, 0, 0), days_of(2023, 12, 31, 23, 59, 59),
    days_of(100, 1, 1, 0, 0, 0), days_of(1899, 12, 29, 6, 0, 0), days_of(1899, 12, 30, 0, 0, 0),
    days_of(1899, 12, 30, 12, 0, 0), days_of(1899, 12, 31, 0, 0, 1), days_of(1900, 2, 28, 1, 2, 3),
    days_of(1930, 1, 1, 0, 0, 0), days_of(2029, 12, 31, 13, 5, 9), days_of(9999, 12, 31, 23, 59, 59),
    days_of(2000, 2, 29, 12, 59, 59), days_of(1999, 9, 9, 9, 9, 9), days_of(2024, 12, 30, 0, 30, 0),
    45427.4999999, 45427.99999999, -0.25, -1.75, days_of(1600, 10, 10, 22, 10, 10))]

DATE_PICTURES = DATE_NAMES + [
    "", "c", "d", "dd", "ddd", "dddd", "ddddd", "dddddd", "w", "ww", "m", "mm", "mmm", "mmmm", "q", "y", "yy", "yyyy",
    "h", "hh", "n", "nn", "s", "ss", "ttttt", "AM/PM", "am/pm", "A/P", "a/p", "AMPM", "d/m/yy", "dd mmm yyyy",
    "dddd, mmmm d, yyyy", "yyyy-mm-dd hh:nn:ss", "hh:mm:ss", "h:mm AM/PM", "hh:nn:ss a/p", "m/d/yyyy h:m", "mm:ss",
    "hh :mm:mm", "hh:dd :mm:mm", "\"Week \"ww", "d\\d", "dd.mm.yyyy", "q/yyyy", "mm/dd/yy", "yyy", "hhnn", "d;m", "0", "0.00",
    "@", ">",
]

TEXTS = ["testing", "abc", "", "Ärger", "12.5", "-1234.5", "001.50", "1,234.50", "39697.11", "12/31/2024", "1/2/1970 6:30 PM", "14:05"]
TEXT_PICTURES = ["", "@", "&", "@@@@@@@@", "&&&&&&&&", "!@@@@@@@@", "!&&&&", "<", ">", ">@@@", "<&&", "\\x@\\x@", "@\\x@@@@@@@",
                 "\"<\"@\">\"", "@;\"none\"", "@@-@@", "&-&-&", "0.00", "#,##0", "General Number", "Currency", "Yes/No", "Fixed",
                 "dd mmm yyyy", "hh:nn", "Short Time", "\"literal\""]


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
        for picture in DATE_NAMES + ["c", "ddd d mmm yy", "dddd d mmmm yyyy", "dd/mm/yyyy hh:nn", "h AMPM", "ttttt", "dddddd"]:
            for value in DATES[:8]:
                add_format("d", value, picture, loc)


# --- Texts to numbers ------------------------------------------------------------------------

NUMBER_FACTS = """
error 13||.|-.|+|-|$|()|(|)|abc|1e|1e+|12a|1 2|5)|(5|--5|+-5|+ +5|5--|+5-|0x10|&H|&HG|&O8|&17|1..2|1.2.3|,5|$$5|£5|e5|1/2
6.5|6.5| 6.5|6.5 |+6.5|6.5+|+ 6.5|$6.5|6.5$|6.5 $|$ 6.5|06.50|6.5E0|65e-1|65E-01|0.65e+1|$6.5$$|6.5d0|.65D1
-6.5|-6.5|- 6.5|6.5-|6.5 -|(6.5)|( 6.5 )|-$6.5|$-6.5|($6.5)|$(6.5)|(6.5)$|(-6.5)|-(6.5)|6.5$-|6.5-$|-65e-1
1234567|1,234,567|1234,567|1,2,3,4,5,6,7|1,,234,567|1,234,567,|$1,234,567|1234567.|1234567.0
0|0|-0|0.0|.0|0.|0e5|0e400|1e-400|-1e-999|&H0|&O0
255|&HFF|&hff|&H00FF| &HFF |&O377|&o377
65535|&HFFFF
4294967295|&HFFFFFFFF
18446744073709551615|&HFFFFFFFFFFFFFFFF
error 6|1e309|-1e400|1e99999|&H1FFFFFFFFFFFFFFFF|1797693134862315800000e290
"""


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


# --- Texts to dates --------------------------------------------------------------------------

# Of this year; the tests' today is 15 May 2024.
DATE_FACTS = """
error 13|True|False|0.|.0|-1.1|1.1-|1;2;3|1*2*3|1@2@3|1#2#3|(1:2)|<1:2>|1/2/3/4|0|1|0.60|24.00|0:60|24:00|1 2 am
error 13|1 am 2|1.5 2|1 5.2|2 32 3|1 2 am 3|1 2.3 4|1.2.3 4|1 2.3.4|1.2 3.4|1.2.3.4|1 2 3 4|1 am 2 3.4|1 2 am 3.4
error 13|1.2 3 am 4|1.2 3 4 am|1.2.3.4.5|1.2.3 4 am 5|1 2 3 4 5|1.2 3 4 5 6|32 49|0 49|02.01.1970 00:00:00|Jan|2024|Janu 2, 1970
error 13||  |/1/2|1/2/|2/29/2023|2/29/1900|4/31/2024|13/13/2024|1/1/10000|1/1/99999999|24:00:00|23:59:60|10:30:15.5|PM 3:00|2024-05-31T10:30
error 13|Friday, May 31, 2024|Fri May 31 2024|10:|:10|1:2:3:4|10:30 /5|1:2 3:4|Jan Feb 2000|abc|1/2/2000 x
1899-12-30 1:00|1 am|1:00|1:00 AM|1:0:0|1.0|01:00|1a|1 A|1:00a
1899-12-30 0:01|0.1|0:1|0.1.0
1899-12-30 2:05|2.5|2:05 AM|2:5
1899-12-30 0:59|12:59 AM|12:59 A
1899-12-30 12:00|00:00 pm|00:00 p|12 PM|12:00|12:00:00
1899-12-30 0:00|00:00 AM|00:00 a|12 am|0:0|12:00:00 AM
1899-12-30 12:59|12:59 pm|12:59 p
1899-12-30 13:00|13:00 AM|13:00 PM|13 am|1 PM|1:00:00 pm|13:00
1899-12-30 1:05:02|1.5.2|1:5:2|01:05:02
2024-01-02|1 2|1/2|Jan 2|2 Jan|January 2|2-January|1-2|jan-2
2024-02-01|2 1|2/1
2024-01-14|14 1|1 14|14/1
2024-02-29|2/29|29 2|Feb 29|29 February
1930-02-01|30 2|2 30|Feb 30
1935-01-01|Jan 35|35 Jan|Jan-35|35-Jan|Jan/35|35/Jan
2006-01-01|Jan 2006|2006 January|1/2006|2006/1
2003-01-02|1 2 3|1/2/3|1/2/03|1/2/2003|1-2-2003|1 - 2 - 2003|2 Jan 3|2-Jan-03|Jan 2 3|2003 Jan 2|1,2,2003
2014-02-03|14 2 3|2 3 14
2003-02-14|2 14 3|2003/14/2|14/2/2003|2003-2-14
1932-02-03|32 2 3|2 3 32
2029-01-02|1 2 29|1/2/29
1930-01-02|1 2 30|1/2/30
1931-01-02|1 2 31
1999-01-01|1/1/99|1/1/1999|Jan 1, 1999
2000-01-01|1/1/00|1/1/2000|1/1/0
0100-01-01|1/1/100|January 1, 100
9999-12-31|12/31/9999
1899-12-29|12/29/1899
1899-12-29 6:00|12/29/1899 6:00|6:00 12/29/1899
2024-01-02 3:00|3 am 1 2|1 2 3 am
2024-03-04 1:02|1.2 3 4|3 4 1.2
2024-04-05 1:02:03|1.2.3 4 5
2005-03-04 1:02|1.2 3 4 5
2003-01-02 4:05|1 2 3 4.5
2006-04-05 1:02:03|1.2.3 4 5 6
2003-01-02 4:05:06|1 2 3 4.5.6
1970-01-02|2 January, 1970|2 January 1970|2 Jan 1970|2/Jan/1970|2-Jan-1970|1 2 1970|1/2/1970|jan 2, 1970|JANUARY 2, 1970
2024-05-15 10:30|5/15/2024 10:30|5/15/2024 10:30:00 AM|10:30:00 AM 5/15/2024|May 15, 2024, 10:30| 5/15/2024   10:30 a 
"""


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


GENERAL_FACTS = """
0.333333333333333 0.3333333333333333
3.33333333333333E-02 0.03333333333333333
4.16666666666667E-02 0.041666666666666664
6.94444444444444E-04 0.0006944444444444445
0.000000001234567 1.234567e-9
1.2345678E-09 1.2345678e-9
0.000000000000005 5e-15
5E-16 5e-16
123456789012345 123456789012345
1E+15 1e15
1.23456789012346E+17 123456789012345678
1.79769313486232E+308 1.7976931348623157e308
4.94065645841247E-324 5e-324
1561.09 1561.0900000000001
0 -0.0
"""


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
    formats()
    numbers()
    dates()
    texts()
    for name, reason in REMARKS.items():
        print(f"# {name}\t{reason}")
    for row in ROWS:
        print("\t".join(row))


main()
