#include <levelwidgets/platform/conversions/locale.h>

#include <levelwidgets/platform/text/letter_case.h>

namespace levelwidgets::conversions {
namespace {

Locale English() {
  Locale locale;
  locale.name = "en-US";
  locale.months = {"January", "February", "March",     "April",   "May",      "June",
                   "July",    "August",   "September", "October", "November", "December"};
  locale.short_months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  locale.days = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  locale.short_days = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  return locale;
}

Locale British() {
  Locale locale = English();
  locale.name = "en-GB";
  locale.currency = "£";
  locale.negative_currency = 1;
  locale.date_order = DateOrder::kDayMonthYear;
  locale.short_date = "dd/MM/yyyy";
  locale.long_date = "dd MMMM yyyy";
  locale.time = "HH:mm:ss";
  locale.first_day = 2;
  locale.first_week = 2;
  return locale;
}

// What the locales of the continent have in common.
Locale European(std::string_view name, std::string_view thousands) {
  Locale locale;
  locale.name = name;
  locale.decimal = ",";
  locale.thousands = thousands;
  locale.list = ";";
  locale.currency = "€";
  locale.currency_decimal = ",";
  locale.currency_thousands = thousands;
  locale.positive_currency = 3;
  locale.negative_currency = 8;
  locale.date_order = DateOrder::kDayMonthYear;
  locale.short_date = "dd/MM/yyyy";
  locale.long_date = "dddd d MMMM yyyy";
  locale.time = "HH:mm:ss";
  locale.first_day = 2;
  locale.first_week = 2;
  return locale;
}

Locale German() {
  Locale locale = European("de-DE", ".");
  locale.short_date = "dd.MM.yyyy";
  locale.long_date = "dddd, d. MMMM yyyy";
  locale.date_separator = ".";
  locale.months = {"Januar", "Februar", "März",      "April",   "Mai",      "Juni",
                   "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
  locale.short_months = {"Jan", "Feb", "Mrz", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
  locale.days = {"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"};
  locale.short_days = {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"};
  return locale;
}

Locale French() {
  Locale locale = European("fr-FR", kNoBreakSpace);
  locale.months = {"janvier", "février", "mars",      "avril",   "mai",      "juin",
                   "juillet", "août",    "septembre", "octobre", "novembre", "décembre"};
  locale.short_months = {"janv.", "févr.", "mars",  "avr.", "mai",  "juin",
                         "juil.", "août",  "sept.", "oct.", "nov.", "déc."};
  locale.days = {"dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"};
  locale.short_days = {"dim.", "lun.", "mar.", "mer.", "jeu.", "ven.", "sam."};
  return locale;
}

Locale Swedish() {
  Locale locale = European("sv-SE", kNoBreakSpace);
  locale.currency = "kr";
  locale.date_order = DateOrder::kYearMonthDay;
  locale.short_date = "yyyy-MM-dd";
  locale.long_date = "'den 'd MMMM yyyy";
  locale.date_separator = "-";
  locale.am = "fm";
  locale.pm = "em";
  locale.months = {"januari", "februari", "mars",      "april",   "maj",      "juni",
                   "juli",    "augusti",  "september", "oktober", "november", "december"};
  locale.short_months = {"jan", "feb", "mar", "apr", "maj", "jun", "jul", "aug", "sep", "okt", "nov", "dec"};
  locale.days = {"söndag", "måndag", "tisdag", "onsdag", "torsdag", "fredag", "lördag"};
  locale.short_days = {"sön", "mån", "tis", "ons", "tor", "fre", "lör"};
  return locale;
}

Locale Japanese() {
  Locale locale;
  locale.name = "ja-JP";
  locale.code_page = 932;
  locale.currency = "¥";
  locale.currency_digits = 0;
  locale.negative_currency = 1;
  locale.date_order = DateOrder::kYearMonthDay;
  locale.short_date = "yyyy/MM/dd";
  locale.long_date = "yyyy'年'M'月'd'日'";
  locale.time = "H:mm:ss";
  locale.am = "午前";
  locale.pm = "午後";
  for (std::size_t month = 0; month < locale.months.size(); ++month) {
    locale.short_months[month] = std::to_string(month + 1);
    locale.months[month] = locale.short_months[month] + "月";
  }
  locale.short_days = {"日", "月", "火", "水", "木", "金", "土"};
  for (std::size_t day = 0; day < locale.days.size(); ++day) {
    locale.days[day] = locale.short_days[day] + "曜日";
  }
  return locale;
}

const std::array<Locale, 6>& Locales() {
  static const std::array<Locale, 6> locales = {English(), British(), German(),
                                                French(),  Swedish(), Japanese()};
  return locales;
}

}  // namespace

std::vector<std::string_view> LocaleNames() {
  std::vector<std::string_view> names;
  for (const Locale& locale : Locales()) names.push_back(locale.name);
  return names;
}

const Locale* FindLocale(std::string_view name) {
  for (const Locale& locale : Locales()) {
    if (text::EqualIgnoringCase(locale.name, name)) return &locale;
  }
  return nullptr;
}

const Locale& LocaleOrDefault(std::string_view name) {
  const Locale* locale = FindLocale(name);
  return locale ? *locale : *FindLocale("en-US");
}

}  // namespace levelwidgets::conversions
