#include <levelwidgets/platform/conversions/date_parse.h>

#include <algorithm>
#include <array>
#include <optional>

#include <levelwidgets/platform/conversions/date_resolve.h>
#include <levelwidgets/platform/text/calendar.h>
#include <levelwidgets/platform/text/letter_case.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::conversions {
namespace {

bool IsPunctuation(char c) { return std::string_view(",./-").find(c) != std::string_view::npos; }

// The next text of a date pattern between its fields, in quotes or not, without blanks around it; often
// empty.
std::string_view TakePatternWord(std::string_view& pattern) {
  const bool quoted = pattern.front() == '\'';
  if (quoted) pattern.remove_prefix(1);
  const std::size_t length = std::min(pattern.find_first_of(quoted ? "'" : "dMy' "), pattern.size());
  std::string_view word = pattern.substr(0, length);
  pattern.remove_prefix(std::min(quoted ? length + 1 : std::max<std::size_t>(length, 1), pattern.size()));
  while (word.ends_with(' ')) word.remove_suffix(1);
  while (word.starts_with(' ')) word.remove_prefix(1);
  return word;
}

bool BeginsWithLetter(std::string_view text) {
  if (text.empty()) return false;
  const char32_t c = text::TakeCharacter(text);
  return text::UpperCase(c) != c || text::LowerCase(c) != c;
}

class DateReader {
 public:
  DateReader(std::string_view text, const Locale& locale) : rest_(text), locale_(locale) {}

  Converted<Date> Read(int current_year) {
    while (SkipBlanks(), !rest_.empty()) {
      if (!ReadOne()) return kMismatch;
    }
    // A separator stands between two elements.
    return after_link_ ? kMismatch : Value(current_year);
  }

 private:
  static constexpr ConversionStatus kMismatch = ConversionStatus::kMismatch;

  bool Take(std::string_view token) {
    if (token.empty() || !rest_.starts_with(token)) return false;
    rest_.remove_prefix(token.size());
    return true;
  }
  bool TakeBlank() {
    const bool blank = !rest_.empty() && (rest_.front() == ' ' || rest_.front() == ',' ||
                                          (rest_.front() >= '\t' && rest_.front() <= '\r'));
    if (blank) rest_.remove_prefix(1);
    return blank || Take(kNoBreakSpace);
  }
  void SkipBlanks() {
    while (TakeBlank()) {
    }
  }
  // A word that no letter follows.
  bool TakeWord(std::string_view word) {
    const std::size_t length = text::MatchIgnoringCase(rest_, word);
    if (length == 0 || BeginsWithLetter(rest_.substr(length))) return false;
    rest_.remove_prefix(length);
    return true;
  }
  bool TakeTimeLink() {
    if (Take(":") || Take(locale_.time_separator)) return true;
    return locale_.date_separator != "." && Take(".");
  }
  bool TakeDateLink() { return Take("/") || Take("-") || Take(locale_.date_separator); }

  bool ReadOne() {
    if (text::IsDigit(rest_.front())) return ReadNumber();
    if (TakeDateLink()) {
      after_link_ = true;
      return count_ > 0;
    }
    for (std::size_t month = 0; month < locale_.months.size(); ++month) {
      if (text::IsDigit(locale_.months[month].front())) break;  // a number with a unit
      if (TakeWord(locale_.months[month]) || TakeWord(locale_.short_months[month])) {
        return AddElement({static_cast<int>(month) + 1, true});
      }
    }
    return TakeUnit();
  }

  // A word of the locale's long dates, such as a unit behind a number.
  bool TakeUnit() {
    std::string_view pattern = locale_.long_date;
    while (!pattern.empty()) {
      const std::string_view word = TakePatternWord(pattern);
      if (!word.empty() && !IsPunctuation(word.front()) && Take(word)) return true;
    }
    return false;
  }

  // -1 for a number too long for any date.
  int TakeNumber() {
    constexpr std::size_t kMostDigits = 6;
    const std::size_t length = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
    int number = 0;
    for (char c : rest_.substr(0, std::min(length, kMostDigits))) number = number * 10 + (c - '0');
    rest_.remove_prefix(length);
    return length > kMostDigits ? -1 : number;
  }

  // A number of the date, or with those that follow it a time.
  bool ReadNumber() {
    std::array<int, 3> fields{TakeNumber()};
    if (fields[0] < 0) return false;
    std::size_t fields_read = 1;
    while (TakeTimeLinkBehindBlanks()) {
      SkipBlanks();
      if (fields_read == fields.size() || rest_.empty() || !text::IsDigit(rest_.front())) return false;
      fields[fields_read++] = TakeNumber();
    }
    if (ReadHalf()) return AddTime(fields);
    return fields_read > 1 ? AddTime(fields) : AddElement({fields[0], false});
  }
  bool TakeTimeLinkBehindBlanks() {
    const std::string_view before = rest_;
    SkipBlanks();
    if (TakeTimeLink()) return true;
    rest_ = before;
    return false;
  }

  // Which half of the day; leaves the text as it was when it says none.
  bool ReadHalf() {
    const std::string_view before = rest_;
    SkipBlanks();
    for (std::string_view am :
         {std::string_view(locale_.am), std::string_view("AM"), std::string_view("A")}) {
      if (TakeWord(am)) return half_ = Half::kMorning, true;
    }
    for (std::string_view pm :
         {std::string_view(locale_.pm), std::string_view("PM"), std::string_view("P")}) {
      if (TakeWord(pm)) return half_ = Half::kAfternoon, true;
    }
    rest_ = before;
    return false;
  }

  bool AddElement(DateElement element) {
    if (date_ended_ || count_ == elements_.size()) return false;
    elements_[count_++] = element;
    after_link_ = false;
    return true;
  }

  bool AddTime(const std::array<int, 3>& fields) {
    if (has_time_ || after_link_) return false;
    has_time_ = true;
    date_ended_ = count_ > 0;
    time_ = fields;
    if (half_ == Half::kMorning && time_[0] == 12) time_[0] = 0;
    if (half_ == Half::kAfternoon && time_[0] < 12) time_[0] += 12;
    return true;
  }

  Converted<Date> Value(int current_year) const {
    DateParts parts;  // day 0 when there is no date
    if (count_ > 0) {
      const auto day = ResolveDate({elements_.data(), count_}, locale_.date_order, current_year);
      if (!day) return kMismatch;
      parts = *day;
    } else if (!has_time_) {
      return kMismatch;
    }
    parts.hour = time_[0];
    parts.minute = time_[1];
    parts.second = time_[2];
    const std::optional<Date> date = calendar::DateOf(parts);
    return date ? Converted<Date>(*date) : kMismatch;
  }

  enum class Half { kNone, kMorning, kAfternoon };

  std::string_view rest_;
  const Locale& locale_;
  std::array<DateElement, 3> elements_;
  std::size_t count_ = 0;
  bool date_ended_ = false;  // by a time
  bool after_link_ = false;
  bool has_time_ = false;
  std::array<int, 3> time_{};
  Half half_ = Half::kNone;
};

}  // namespace

Converted<Date> ParseDate(std::string_view text, const Locale& locale, int current_year) {
  return DateReader(text, locale).Read(current_year);
}

}  // namespace levelwidgets::conversions
