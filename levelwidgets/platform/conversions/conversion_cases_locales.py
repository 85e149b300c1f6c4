"""A second record of each locale's data, so that a slip in the library's shows."""

LONG_EN = "January February March April May June July August September October November December".split()
SHORT_EN = [name[:3] for name in LONG_EN]
DAYS_EN = "Sunday Monday Tuesday Wednesday Thursday Friday Saturday".split()

NBSP = "\u00a0"


class Locale:
    """The data of a locale as attributes; patterns are format strings."""

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
