#include <algorithm>
#include <cstdlib>

#include <levelwidgets/platform/conversions/format.h>

namespace levelwidgets::conversions {
namespace {

class NumberWriter {
 public:
  NumberWriter(const Decimal& number, const NumberLayout& layout, const Locale& locale, TextBuilder& out)
      : number_(number), layout_(layout), locale_(locale), out_(out) {
    shown_decimals_ = std::max(layout.least_decimals, number.count - number.point);
  }

  void Write(const ParsedFormat& format, const FormatSection& section, int exponent) {
    for (std::uint32_t i = section.first; i < section.last; ++i) {
      const FormatToken& token = format.tokens[i];
      switch (token.kind) {
        case TokenKind::kLiteral: out_.Append(format.LiteralOf(token)); break;
        case TokenKind::kPoint: WritePoint(); break;
        case TokenKind::kExponent: WriteExponent(exponent); break;
        default: in_decimals_ ? WriteDecimal() : WriteWhole();
      }
    }
  }

 private:
  void WriteWhole() {
    const int place = layout_.whole_digits - 1 - whole_written_;
    const int first = whole_written_ == 0 ? std::max(number_.point - 1, place) : place;
    WritePlaces(first, place);
    ++whole_written_;
  }
  // Those of the places that have a digit or must show one.
  void WritePlaces(int first, int last) {
    for (int place = std::min(first, std::max(number_.point, layout_.least_whole) - 1); place >= last;
         --place) {
      out_.Append(number_.At(place));
      if (layout_.grouped && place > 0 && place % 3 == 0) out_.Append(locale_.thousands);
    }
  }
  void WritePoint() {
    // Without placeholders in front of the point the whole part is shown nevertheless.
    if (layout_.whole_digits == 0 && !in_decimals_) WritePlaces(number_.point - 1, 0);
    in_decimals_ = true;
    out_.Append(locale_.decimal);
  }
  void WriteDecimal() {
    if (decimals_written_ < shown_decimals_) out_.Append(number_.At(-1 - decimals_written_));
    ++decimals_written_;
  }
  void WriteExponent(int exponent) {
    out_.Append(layout_.exponent_letter);
    if (exponent < 0) {
      out_.Append('-');
    } else if (layout_.exponent_plus) {
      out_.Append('+');
    }
    out_.AppendNumber(std::abs(exponent), layout_.exponent_digits);
  }

  const Decimal& number_;
  const NumberLayout& layout_;
  const Locale& locale_;
  TextBuilder& out_;
  int shown_decimals_ = 0;
  int whole_written_ = 0;
  int decimals_written_ = 0;
  bool in_decimals_ = false;
};

// Rounds to what the section shows; returns the exponent.
int Fit(Decimal& number, const NumberLayout& layout) {
  if (number.IsZero()) return 0;
  number.point += layout.power;
  if (!layout.scientific) {
    if (layout.HasDigits()) number.RoundTo(-layout.decimals);
    return 0;
  }
  number.RoundTo(number.point - layout.whole_digits - layout.decimals);
  const int exponent = number.point - layout.whole_digits;
  number.point = layout.whole_digits;
  return exponent;
}

void WriteSection(Decimal number, const ParsedFormat& format, const FormatSection& section,
                  const Locale& locale, bool with_sign, TextBuilder& out) {
  const int exponent = Fit(number, section.number);
  if (with_sign && number.negative) out.Append('-');
  NumberWriter(number, section.number, locale, out).Write(format, section, exponent);
}

}  // namespace

void FormatNumber(const Decimal& number, const ParsedFormat& format, const Locale& locale, TextBuilder& out) {
  const auto& sections = format.sections;
  const bool own_negative = number.negative && sections[1].given;
  Decimal rounded = number;
  Fit(rounded, sections[own_negative ? 1 : 0].number);
  // What is zero once rounded is zero: it has no sign and takes the section of zero.
  if (rounded.IsZero()) {
    return WriteSection({}, format, sections[sections[2].given ? 2 : 0], locale, false, out);
  }
  WriteSection(number, format, sections[own_negative ? 1 : 0], locale, !own_negative, out);
}

void FormatNull(const ParsedFormat& format, const Locale& locale, TextBuilder& out) {
  if (format.sections[3].given) WriteSection({}, format, format.sections[3], locale, false, out);
}

namespace {

// n the number, $ the symbol; the numbers of the patterns are the system's.
constexpr std::string_view kPositiveCurrency[] = {"$n", "n$", "$ n", "n $"};
constexpr std::string_view kNegativeCurrency[] = {"($n)", "-$n",  "$-n",   "$n-",  "(n$)", "-n$",
                                                  "n-$",  "n$-",  "-n $",  "-$ n", "n $-", "$ n-",
                                                  "$ -n", "n- $", "($ n)", "(n $)"};

void WriteAmount(const Decimal& number, const Locale& locale, TextBuilder& out) {
  for (int place = std::max(number.point, 1) - 1; place >= 0; --place) {
    out.Append(number.At(place));
    if (place > 0 && place % 3 == 0) out.Append(locale.currency_thousands);
  }
  if (locale.currency_digits == 0) return;
  out.Append(locale.currency_decimal);
  for (int place = -1; place >= -locale.currency_digits; --place) out.Append(number.At(place));
}

}  // namespace

void FormatCurrency(Decimal number, const Locale& locale, TextBuilder& out) {
  number.RoundTo(-locale.currency_digits);
  const std::string_view pattern =
      number.negative ? kNegativeCurrency[static_cast<std::size_t>(locale.negative_currency)]
                      : kPositiveCurrency[static_cast<std::size_t>(locale.positive_currency)];
  for (char c : pattern) {
    if (c == 'n') {
      WriteAmount(number, locale, out);
    } else if (c == '$') {
      out.Append(locale.currency);
    } else {
      out.Append(c);
    }
  }
}

}  // namespace levelwidgets::conversions
