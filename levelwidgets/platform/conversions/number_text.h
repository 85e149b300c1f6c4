// Numbers in their general form.
#pragma once

#include <levelwidgets/platform/conversions/decimal.h>
#include <levelwidgets/platform/conversions/locale.h>
#include <levelwidgets/platform/conversions/text_builder.h>

namespace levelwidgets::conversions {

// Written out while neither the whole part nor the decimals are longer than `digits` places, else with an
// exponent of at least two digits: 0.000000001234567, 3.33333333333333E-02, 1E+15.
void AppendGeneral(const Decimal& number, int digits, const Locale& locale, TextBuilder& out);

// "1.#INF", "-1.#INF" or "1.#QNAN" for a number that is not finite.
void AppendGeneral(double number, const Locale& locale, TextBuilder& out);
void AppendGeneral(float number, const Locale& locale, TextBuilder& out);

// The texts of numbers that are not finite.
std::string_view NotFiniteText(double number);

}  // namespace levelwidgets::conversions
