#include <levelwidgets/platform/conversions/format_parse.h>

#include <algorithm>

#include <levelwidgets/platform/conversions/date_text.h>
#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::conversions {
namespace {

struct NamedFormat {
  std::string_view name;
  std::string_view meaning;
};

constexpr NamedFormat kNamedFormats[] = {
    {"Fixed", "0.00"},
    {"Standard", "#,##0.00"},
    {"Percent", "0.00%"},
    {"Scientific", "0.00E+00"},
    {"Yes/No", "\"Yes\";\"Yes\";\"No\""},
    {"True/False", "\"True\";\"True\";\"False\""},
    {"On/Off", "\"On\";\"On\";\"Off\""},
    {"General Date", "c"},
    {"Long Date", "dddddd"},
    {"Medium Date", "dd-mmm-yy"},
    {"Short Date", "ddddd"},
    {"Long Time", "ttttt"},
    {"Medium Time", "hh:nn AMPM"},
    {"Short Time", "hh:nn"},
};

struct DateWord {
  std::string_view word;
  TokenKind kind;
};

// Longer ones of a letter first.
constexpr DateWord kDateWords[] = {
    {"dddddd", TokenKind::kLongDate}, {"ddddd", TokenKind::kShortDate},
    {"dddd", TokenKind::kDayLong},    {"ddd", TokenKind::kDayShort},
    {"dd", TokenKind::kDay2},         {"d", TokenKind::kDay},
    {"ww", TokenKind::kWeek},         {"w", TokenKind::kWeekday},
    {"mmmm", TokenKind::kMonthLong},  {"mmm", TokenKind::kMonthShort},
    {"mm", TokenKind::kMonth2},       {"m", TokenKind::kMonth},
    {"q", TokenKind::kQuarter},       {"yyyy", TokenKind::kYear4},
    {"yy", TokenKind::kYear2},        {"y", TokenKind::kDayOfYear},
    {"hh", TokenKind::kHour2},        {"h", TokenKind::kHour},
    {"nn", TokenKind::kMinute2},      {"n", TokenKind::kMinute},
    {"ss", TokenKind::kSecond2},      {"s", TokenKind::kSecond},
    {"ttttt", TokenKind::kLongTime},  {"c", TokenKind::kGeneralDate},
    {"AM/PM", TokenKind::kHalfUpper}, {"A/P", TokenKind::kHalfUpperLetter},
    {"AMPM", TokenKind::kHalfLocal},  {"/", TokenKind::kDateSeparator},
    {":", TokenKind::kTimeSeparator},
};

class FormatReader {
 public:
  explicit FormatReader(std::string_view format) : rest_(format) {}

  ParsedFormat Read() {
    while (!rest_.empty() && out_.valid) {
      if (rest_.front() == ';') {
        EndSection();
      } else {
        Section().given = true;
        ReadOne();
      }
    }
    FinishSection();
    if (!decided_) out_.kind = FormatKind::kNumber;  // literals show for any number
    return std::move(out_);
  }

 private:
  FormatSection& Section() { return out_.sections[static_cast<std::size_t>(out_.section_count - 1)]; }
  NumberLayout& Number() { return Section().number; }

  // Whether tokens of `kind` are such, which the first one of a format decides for all of it.
  bool Decide(FormatKind kind) {
    if (!decided_) out_.kind = kind;
    decided_ = true;
    return out_.kind == kind;
  }

  void Add(TokenKind kind) { out_.tokens.push_back({kind}); }
  void AddLiteral(std::string_view text) {
    if (text.empty()) return;
    const auto begin = static_cast<std::uint32_t>(out_.literals.size());
    const auto length = static_cast<std::uint32_t>(text.size());
    out_.literals += text;
    const bool extends =
        out_.tokens.size() > Section().first && out_.tokens.back().kind == TokenKind::kLiteral;
    if (extends) {
      out_.tokens.back().length += length;
    } else {
      out_.tokens.push_back({TokenKind::kLiteral, begin, length});
    }
  }

  void ReadOne() {
    if (ReadQuoted() || ReadNumberToken() || ReadTextToken() || ReadDateToken()) return;
    AddLiteral(TakeFront());
  }

  std::string_view TakeFront() {
    const std::string_view before = rest_;
    text::TakeCharacter(rest_);
    return before.substr(0, before.size() - rest_.size());
  }

  bool ReadQuoted() {
    if (rest_.front() == '\\') {
      rest_.remove_prefix(1);
      if (!rest_.empty()) AddLiteral(TakeFront());
      return true;
    }
    if (rest_.front() != '"') return false;
    const std::size_t end = std::min(rest_.find('"', 1), rest_.size());
    AddLiteral(rest_.substr(1, end - 1));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return true;
  }

  // --- Numbers -------------------------------------------------------------------------------

  bool ReadNumberToken() {
    const char c = rest_.front();
    if (ReadExponent()) return true;
    if (std::string_view("0#.,%").find(c) == std::string_view::npos || (Number().scientific && c != '%') ||
        !Decide(FormatKind::kNumber)) {
      return false;
    }
    rest_.remove_prefix(1);
    switch (c) {
      case '0':
      case '#': AddPlaceholder(c == '0'); break;
      case '.': AddPoint(); break;
      case ',': AddThousands(); break;
      default: AddPercent();
    }
    return true;
  }

  void AddPlaceholder(bool always) {
    NumberLayout& number = Number();
    Add(always ? TokenKind::kZero : TokenKind::kDigit);
    if (number.has_point) {
      ++number.decimals;
      if (always) number.least_decimals = number.decimals;
    } else {
      ++number.whole_digits;
      if (always || number.least_whole > 0) ++number.least_whole;
      // Separators between two placeholders group, those behind the last one cut thousands off.
      if (thousands_ > 0) number.grouped = true;
      thousands_ = 0;
    }
  }
  void AddPoint() {
    Number().has_point = true;
    Add(TokenKind::kPoint);
  }
  void AddThousands() {
    if (Number().has_point) return;
    if (Number().whole_digits == 0) return AddLiteral(",");
    ++thousands_;
  }
  void AddPercent() {
    if (!percent_) Number().power += 2;
    percent_ = true;
    AddLiteral("%");
  }

  // E+, E-, e+ or e- behind a placeholder, with the placeholders that follow it.
  bool ReadExponent() {
    NumberLayout& number = Number();
    if (text::AsciiLower(rest_.front()) != 'e' || rest_.size() < 2 || (rest_[1] != '+' && rest_[1] != '-') ||
        !number.HasDigits() || number.scientific) {
      return false;
    }
    number.scientific = true;
    number.exponent_letter = rest_[0];
    number.exponent_plus = rest_[1] == '+';
    const std::string_view digits = rest_.substr(2, rest_.find_first_not_of("0#", 2) - 2);
    number.exponent_digits = std::max(1, static_cast<int>(std::ranges::count(digits, '0')));
    rest_.remove_prefix(2 + digits.size());
    Add(TokenKind::kExponent);
    return true;
  }

  // --- Texts ---------------------------------------------------------------------------------

  bool ReadTextToken() {
    const char c = rest_.front();
    if (std::string_view("@&<>!").find(c) == std::string_view::npos || !Decide(FormatKind::kText))
      return false;
    rest_.remove_prefix(1);
    FormatSection& section = Section();
    switch (c) {
      case '<':
      case '>':  // the first one counts
        if (section.text_case == TextCase::kAsIs) {
          section.text_case = c == '<' ? TextCase::kLower : TextCase::kUpper;
        }
        break;
      case '!': section.fill_left_to_right = true; break;
      default: Add(c == '@' ? TokenKind::kCharacterOrBlank : TokenKind::kCharacter); ++section.characters;
    }
    return true;
  }

  // --- Dates ---------------------------------------------------------------------------------

  bool ReadDateToken() {
    for (const DateWord& word : kDateWords) {
      if (text::MatchIgnoringCase(rest_, word.word) == 0) continue;
      if (!Decide(FormatKind::kDate)) return false;
      const bool capital = rest_.front() == 'A';
      rest_.remove_prefix(word.word.size());
      AddDate(word.kind, capital);
      return true;
    }
    return false;
  }

  void AddDate(TokenKind kind, bool capital) {
    const bool after_hours = hours_ && (kind == TokenKind::kMonth || kind == TokenKind::kMonth2);
    if (after_hours) kind = kind == TokenKind::kMonth ? TokenKind::kMinute : TokenKind::kMinute2;
    if (kind == TokenKind::kHalfUpper && !capital) kind = TokenKind::kHalfLower;
    if (kind == TokenKind::kHalfUpperLetter && !capital) kind = TokenKind::kHalfLowerLetter;
    const bool half = kind >= TokenKind::kHalfUpper && kind <= TokenKind::kHalfLocal;
    if (half) out_.twelve_hours = true;
    if (!half && kind < TokenKind::kDateSeparator) {
      hours_ = kind == TokenKind::kHour || kind == TokenKind::kHour2;
    }
    Add(kind);
  }

  // --- Sections ------------------------------------------------------------------------------

  void FinishSection() {
    Number().power -= 3 * thousands_;
    Section().last = static_cast<std::uint32_t>(out_.tokens.size());
    thousands_ = 0;
    percent_ = false;
  }
  void EndSection() {
    rest_.remove_prefix(1);
    out_.valid = out_.section_count < static_cast<int>(out_.sections.size());
    if (!out_.valid) return;
    FinishSection();
    ++out_.section_count;
    Section().first = static_cast<std::uint32_t>(out_.tokens.size());
  }

  std::string_view rest_;
  ParsedFormat out_;
  bool decided_ = false;
  int thousands_ = 0;     // separators since the last placeholder
  bool percent_ = false;  // this section has one
  bool hours_ = false;    // the last part of the date was hours
};

}  // namespace

ParsedFormat ParseFormat(std::string_view format) {
  ParsedFormat parsed;
  if (format.empty()) return parsed;
  if (text::EqualIgnoringCase(format, "General Number")) {
    parsed.kind = FormatKind::kGeneralNumber;
    return parsed;
  }
  if (text::EqualIgnoringCase(format, "Currency")) {
    parsed.kind = FormatKind::kCurrency;
    return parsed;
  }
  const auto named = std::ranges::find_if(kNamedFormats, [format](const NamedFormat& candidate) {
    return text::EqualIgnoringCase(format, candidate.name);
  });
  return FormatReader(named == std::end(kNamedFormats) ? format : named->meaning).Read();
}

}  // namespace levelwidgets::conversions
