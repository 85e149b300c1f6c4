// A format text taken apart.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace levelwidgets::conversions {

enum class FormatKind : std::uint8_t { kGeneral, kGeneralNumber, kCurrency, kNumber, kDate, kText };

enum class TokenKind : std::uint8_t {
  kLiteral,
  // Numbers.
  kZero,
  kDigit,
  kPoint,
  kExponent,
  // Dates.
  kDay,
  kDay2,
  kDayShort,
  kDayLong,
  kShortDate,
  kLongDate,
  kWeekday,
  kWeek,
  kMonth,
  kMonth2,
  kMonthShort,
  kMonthLong,
  kQuarter,
  kDayOfYear,
  kYear2,
  kYear4,
  kHour,
  kHour2,
  kMinute,
  kMinute2,
  kSecond,
  kSecond2,
  kHalfUpper,
  kHalfLower,
  kHalfUpperLetter,
  kHalfLowerLetter,
  kHalfLocal,
  kGeneralDate,
  kLongTime,
  kDateSeparator,
  kTimeSeparator,
  // Texts.
  kCharacterOrBlank,
  kCharacter
};

struct FormatToken {
  TokenKind kind;
  std::uint32_t begin = 0;  // of a literal, in ParsedFormat::literals
  std::uint32_t length = 0;
};

// What a section of a number format says besides its tokens.
struct NumberLayout {
  int whole_digits = 0;  // placeholders in front of the point
  int least_whole = 0;   // of them those that always show a digit
  int decimals = 0;      // placeholders behind it
  int least_decimals = 0;
  int power = 0;  // of ten that the number is multiplied by: percent and thousands that are cut off
  bool has_point = false;
  bool grouped = false;
  bool scientific = false;
  char exponent_letter = 'E';
  bool exponent_plus = false;  // a sign in front of positive exponents, too
  int exponent_digits = 1;

  bool HasDigits() const { return whole_digits + decimals > 0; }
};

enum class TextCase : std::uint8_t { kAsIs, kUpper, kLower };

struct FormatSection {
  std::uint32_t first = 0;  // its tokens
  std::uint32_t last = 0;   // exclusive
  bool given = false;       // anything stands between the semicolons
  NumberLayout number;
  TextCase text_case = TextCase::kAsIs;
  bool fill_left_to_right = false;
  int characters = 0;  // placeholders
};

struct ParsedFormat {
  bool valid = true;  // false with more than four sections
  FormatKind kind = FormatKind::kGeneral;
  bool twelve_hours = false;
  int section_count = 1;
  std::array<FormatSection, 4> sections;
  std::vector<FormatToken> tokens;
  std::string literals;

  std::string_view LiteralOf(const FormatToken& token) const {
    return std::string_view(literals).substr(token.begin, token.length);
  }
};

// Named formats are known whatever their case; any other text is a user-defined format.
ParsedFormat ParseFormat(std::string_view format);

}  // namespace levelwidgets::conversions
