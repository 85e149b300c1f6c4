// Values by a format that has been taken apart.
#pragma once

#include <optional>
#include <string_view>

#include <levelwidgets/platform/conversions/decimal.h>
#include <levelwidgets/platform/conversions/format_parse.h>
#include <levelwidgets/platform/conversions/locale.h>
#include <levelwidgets/platform/conversions/text_builder.h>
#include <levelwidgets/platform/text/calendar.h>

namespace levelwidgets::conversions {

// `format` is of kind kNumber.
void FormatNumber(const Decimal& number, const ParsedFormat& format, const Locale& locale, TextBuilder& out);
// The fourth section's text, if there is one.
void FormatNull(const ParsedFormat& format, const Locale& locale, TextBuilder& out);

void FormatCurrency(Decimal number, const Locale& locale, TextBuilder& out);

// `format` is of kind kDate; the last two are not the system's (not 0).
void FormatDate(const DateParts& date, const ParsedFormat& format, const Locale& locale, int first_day,
                int first_week, TextBuilder& out);

// `format` is of kind kText.
void FormatText(std::string_view text, const ParsedFormat& format, TextBuilder& out);

}  // namespace levelwidgets::conversions
