"""What conversions must give, worked out by exact decimal arithmetic and Python's calendar."""

import datetime
import re
import struct
from decimal import ROUND_HALF_UP, Context, Decimal
from fractions import Fraction

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
    if left and places:  # no more than there are places for: the last ones
        text = text[max(0, len(text) - places):]
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
    name = next((known for known in NUMBER_NAMES + DATE_NAMES if known.lower() == name.lower()), name)
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
