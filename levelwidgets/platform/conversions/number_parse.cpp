#include <levelwidgets/platform/conversions/number_parse.h>

#include <algorithm>
#include <charconv>
#include <string>

#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::conversions {
namespace {

// -1 for what is no digit of a base up to 16.
int DigitValue(char c) {
  if (text::IsDigit(c)) return c - '0';
  const char letter = text::AsciiLower(c);
  return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

// The digits as std::from_chars wants them. Numbers of an ordinary length need no allocation.
class Digits {
 public:
  void Add(char c) {
    if (size_ < sizeof inline_) {
      inline_[size_++] = c;
    } else {
      if (long_.empty()) long_.assign(inline_, size_);
      long_ += c;
    }
  }
  std::string_view View() const { return long_.empty() ? std::string_view(inline_, size_) : long_; }

 private:
  char inline_[64];
  std::size_t size_ = 0;
  std::string long_;
};

class NumberReader {
 public:
  NumberReader(std::string_view text, const Locale& locale) : rest_(text), locale_(locale) {
    std::string_view thousands = locale.thousands;
    if (!thousands.empty()) text::TakeCharacter(thousands);
    // Only the separator's first character counts.
    thousands_ = std::string_view(locale.thousands).substr(0, locale.thousands.size() - thousands.size());
  }

  Converted<double> Read() {
    ReadFront();
    if (Take("&")) return signed_ || currency_ || parenthesis_ ? kMismatch : ReadBits();
    if (!ReadWhole()) return kMismatch;
    ReadExponent();
    ReadBack();
    if (!rest_.empty() || parenthesis_) return kMismatch;
    return Value();
  }

 private:
  static constexpr ConversionStatus kMismatch = ConversionStatus::kMismatch;

  bool Take(std::string_view token) {
    if (token.empty() || !rest_.starts_with(token)) return false;
    rest_.remove_prefix(token.size());
    return true;
  }
  bool TakeBlank() {
    if (!rest_.empty() && (rest_.front() == ' ' || (rest_.front() >= '\t' && rest_.front() <= '\r'))) {
      rest_.remove_prefix(1);
      return true;
    }
    return Take(kNoBreakSpace);
  }
  bool TakeSign() {
    if (signed_ || rest_.empty() || (rest_.front() != '+' && rest_.front() != '-')) return false;
    negative_ = negative_ || rest_.front() == '-';
    rest_.remove_prefix(1);
    return signed_ = true;
  }
  bool TakeThousands() {
    // A locale that separates by a no-break space takes an ordinary one for it.
    return Take(thousands_) || (thousands_ == kNoBreakSpace && Take(" "));
  }

  void ReadFront() {
    for (;;) {
      if (TakeBlank() || TakeSign()) continue;
      if (!currency_ && Take(locale_.currency)) {
        currency_ = true;
      } else if (!parenthesis_ && Take("(")) {
        parenthesis_ = negative_ = true;
      } else {
        return;
      }
    }
  }

  // True when there is a digit.
  bool ReadWhole() {
    bool any = false;
    bool in_fraction = false;
    for (;;) {
      if (!rest_.empty() && text::IsDigit(rest_.front())) {
        digits_.Add(rest_.front());
        rest_.remove_prefix(1);
        any = true;
      } else if (!in_fraction && Take(locale_.decimal)) {
        digits_.Add('.');
        in_fraction = true;
      } else if (!any || !TakeThousands()) {
        return any;
      }
    }
  }

  void ReadExponent() {
    if (rest_.empty() || (text::AsciiLower(rest_.front()) != 'e' && text::AsciiLower(rest_.front()) != 'd'))
      return;
    std::size_t end = 1;
    const bool has_sign = rest_.size() > 1 && (rest_[1] == '+' || rest_[1] == '-');
    if (has_sign) ++end;
    const std::size_t first_digit = end;
    while (end < rest_.size() && text::IsDigit(rest_[end])) ++end;
    if (end == first_digit) return;
    digits_.Add('e');
    if (has_sign) digits_.Add(rest_[1]);
    for (char c : rest_.substr(first_digit, end - first_digit)) digits_.Add(c);
    rest_.remove_prefix(end);
  }

  void ReadBack() {
    while (TakeBlank() || TakeSign() || Take(locale_.currency) || (parenthesis_ && Take(")") && Close())) {
    }
  }
  bool Close() {
    parenthesis_ = false;
    return true;
  }

  Converted<double> Value() const {
    const std::string_view digits = digits_.View();
    double number = 0;
    const auto status = std::from_chars(digits.data(), digits.data() + digits.size(), number).ec;
    // Both too large and too small are out of range.
    if (status == std::errc::result_out_of_range && !IsTiny(digits)) return ConversionStatus::kOutOfRange;
    if (status == std::errc::invalid_argument) return kMismatch;
    if (status == std::errc::result_out_of_range || number == 0) return 0.0;
    return negative_ ? -number : number;
  }

  // Whether a number out of a double's range is so by being small: its first digit's place says so.
  static bool IsTiny(std::string_view digits) {
    const std::size_t mark = digits.find('e');
    const std::string_view mantissa = digits.substr(0, mark);
    const std::size_t first = mantissa.find_first_not_of("0.");
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const bool negative_exponent = mark != std::string_view::npos && digits[mark + 1] == '-';
    if (mark == std::string_view::npos) return first > point;
    // The exponent outweighs the mantissa's length in any text that can be out of range except for very long
    // ones.
    long long exponent = 0;
    const char* begin =
        digits.data() + mark + 1 + (digits[mark + 1] == '-' || digits[mark + 1] == '+' ? 1 : 0);
    if (std::from_chars(begin, digits.data() + digits.size(), exponent).ec != std::errc()) {
      return negative_exponent;
    }
    const auto place = static_cast<long long>(point) - static_cast<long long>(first);
    return place + (negative_exponent ? -exponent : exponent) < 0;
  }

  Converted<double> ReadBits() {
    if (rest_.empty()) return kMismatch;
    const char letter = text::AsciiLower(rest_.front());
    if (letter != 'h' && letter != 'o') return kMismatch;
    rest_.remove_prefix(1);
    const int shift = letter == 'h' ? 4 : 3;
    std::uint64_t bits = 0;
    bool any = false;
    for (; !rest_.empty(); rest_.remove_prefix(1)) {
      const int digit = DigitValue(rest_.front());
      if (digit < 0 || digit >= 1 << shift) break;
      if (bits >> (64 - shift) != 0) return ConversionStatus::kOutOfRange;
      bits = bits << shift | static_cast<std::uint64_t>(digit);
      any = true;
    }
    while (TakeBlank()) {
    }
    if (!any || !rest_.empty()) return kMismatch;
    return static_cast<double>(bits);
  }

  std::string_view rest_;
  const Locale& locale_;
  std::string_view thousands_;
  Digits digits_;
  bool signed_ = false;
  bool negative_ = false;
  bool currency_ = false;
  bool parenthesis_ = false;
};

}  // namespace

Converted<double> ParseNumber(std::string_view text, const Locale& locale) {
  return NumberReader(text, locale).Read();
}

}  // namespace levelwidgets::conversions
