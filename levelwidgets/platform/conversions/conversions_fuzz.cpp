// Any text as a number, as a date and as a format. The first line of the input is the text, the second the
// format; without a second line the text is both.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include <levelwidgets/platform/conversions/conversions.h>

using levelwidgets::Converted;
using levelwidgets::Date;
using levelwidgets::conversions::Conversions;
using levelwidgets::conversions::LocaleOrDefault;

namespace {

// Stops the fuzzer when a promise is broken.
void Check(bool promise) {
  if (!promise) std::abort();
}

void CheckConversions(Conversions& conversions, std::string_view text, std::string_view format) {
  const Converted<double> number = conversions.ToDouble(text);
  Check(conversions.IsNumeric(text) == static_cast<bool>(number));
  Check(std::isfinite(number.value));
  const Converted<Date> date = conversions.ToDate(text);
  if (conversions.IsDate(text)) {
    Check(static_cast<bool>(date));
    Check(static_cast<bool>(conversions.SplitDate(date.value)));
    // What is written of it is the same date, to the second.
    const std::string general = conversions.ToText(date.value).value;
    Check(conversions.ToText(conversions.ToDate(std::string_view(general)).value).value == general);
  }
  if (number) {
    const std::string general = conversions.ToText(number.value).value;
    const double back = conversions.ToDouble(std::string_view(general)).value;
    Check(!std::isfinite(back) || conversions.ToText(back).value == general);
    conversions.Format(number.value, format);
  }
  for (int day = 0; day <= 7; day += 7) {
    const auto formatted = conversions.Format(text, format, day, day / 3);
    Check(static_cast<bool>(formatted) == static_cast<bool>(conversions.Format(45427.4375, format)));
  }
  conversions.Format(Date{-1.75}, format);
  conversions.Format(-0.0004F, format);
  conversions.UpperCase(text);
}

// A format as the fuzzer writes it: \x01 to \x03 repeat the character in front of them 10 to 1,000 times.
std::string Unfolded(std::string_view written) {
  std::string format;
  for (const char c : written) {
    if (c < 1 || c > 3 || format.empty()) {
      format += c;
      continue;
    }
    std::size_t times = 1;
    for (int power = 0; power < c; ++power) times *= 10;
    format.append(times, format.back());
  }
  return format;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Conversions conversions[] = {{LocaleOrDefault("en-US"), [] { return Date{45427}; }},
                                      {LocaleOrDefault("de-DE"), [] { return Date{45427}; }},
                                      {LocaleOrDefault("ja-JP"), [] { return Date{45427}; }}};
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t line = input.find('\n');
  const std::string format = Unfolded(line == std::string_view::npos ? input : input.substr(line + 1));
  for (Conversions& local : conversions) CheckConversions(local, input.substr(0, line), format);
  return 0;
}
