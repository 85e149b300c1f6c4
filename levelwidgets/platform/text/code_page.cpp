#include <levelwidgets/platform/text/code_page.h>

#include <iconv.h>

#include <algorithm>
#include <cerrno>

#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets::text {

namespace {

constexpr int kWestern = 1252;

// The default code page needs no tables of the system: bytes 0x80 to 0x9F, the others are themselves.
constexpr char16_t kWesternSpecials[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                           0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

class Converter {
 public:
  explicit Converter(int number)
      : handle_(iconv_open("UTF-32LE",
                           number == 28591 ? "ISO-8859-1" : ("CP" + std::to_string(number)).c_str())) {}
  ~Converter() {
    if (Open()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool Open() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  // False when `bytes` are only the beginning of a character.
  bool Convert(std::string_view bytes, char32_t& character) {
    std::uint8_t out[8] = {};
    char* in_next = const_cast<char*>(bytes.data());  // which is only read
    char* out_next = reinterpret_cast<char*>(out);
    std::size_t in_left = bytes.size();
    std::size_t out_left = sizeof out;
    errno = 0;
    const std::size_t result = iconv(handle_, &in_next, &in_left, &out_next, &out_left);
    const bool incomplete = result == static_cast<std::size_t>(-1) && errno == EINVAL;
    if (result == 0 && out_left == 4) {
      character = static_cast<char32_t>(out[0] | out[1] << 8 | out[2] << 16);
    }
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    return !incomplete;
  }

 private:
  iconv_t handle_;
};

std::array<char32_t, 256> Identity() {
  std::array<char32_t, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<char32_t>(i);
  return table;
}

constexpr bool MayHavePairs(int number) {
  return number == 932 || number == 936 || number == 949 || number == 950;
}

constexpr char32_t kReplacement = 0xFFFD;

}  // namespace

CodePage::CodePage(int number) : number_(number), unicode_(Identity()) {
  if (number_ == kWestern || !FillTables()) {
    number_ = kWestern;
    unicode_ = Identity();
    std::copy(std::begin(kWesternSpecials), std::end(kWesternSpecials), unicode_.begin() + 0x80);
  }
  BuildInverse();
}

// False, with unicode_ half filled, when the system knows no such code page, or one with longer characters.
bool CodePage::FillTables() {
  Converter converter(number_);
  if (!converter.Open()) return false;
  if (MayHavePairs(number_)) pairs_.assign(0x10000 - kFirstPair, kReplacement);
  for (std::size_t i = 0x80; i < unicode_.size(); ++i) {
    char bytes[] = {static_cast<char>(i), 0};
    if (converter.Convert({bytes, 1}, unicode_[i])) continue;
    if (pairs_.empty()) return false;
    firsts_[i] = true;
    for (std::size_t second = kLeastSecond; second < 0xFF; ++second) {
      bytes[1] = static_cast<char>(second);
      converter.Convert({bytes, 2}, pairs_[(i << 8 | second) - kFirstPair]);
    }
  }
  return true;
}

void CodePage::BuildInverse() {
  for (std::size_t i = 0x80; i < unicode_.size(); ++i) {
    if (!firsts_[i]) inverse_.push_back({unicode_[i], static_cast<CharacterCode>(i)});
  }
  for (std::size_t i = 0; i < pairs_.size(); ++i) {
    if (pairs_[i] != kReplacement) {
      inverse_.push_back({pairs_[i], static_cast<CharacterCode>(i + kFirstPair)});
    }
  }
  std::stable_sort(inverse_.begin(), inverse_.end(),
                   [](const Entry& a, const Entry& b) { return a.character < b.character; });
}

CharacterCode CodePage::Code(char32_t character) const {
  if (character < 0x80) return static_cast<CharacterCode>(character);
  const auto found =
      std::lower_bound(inverse_.begin(), inverse_.end(), character,
                       [](const Entry& entry, char32_t wanted) { return entry.character < wanted; });
  return found != inverse_.end() && found->character == character ? found->code : '?';
}

void CodePage::Append(std::string_view utf8, std::string& bytes) const {
  while (!utf8.empty()) {
    if (static_cast<unsigned char>(utf8.front()) < 0x80) {
      bytes.push_back(utf8.front());
      utf8.remove_prefix(1);
    } else {
      const CharacterCode code = Code(TakeCharacter(utf8));
      if (code >= kFirstPair) bytes.push_back(static_cast<char>(code >> 8));
      bytes.push_back(static_cast<char>(code & 0xFF));
    }
  }
}

std::string CodePage::ToBytes(std::string_view utf8) const {
  std::string bytes;
  bytes.reserve(utf8.size());
  Append(utf8, bytes);
  return bytes;
}

std::string CodePage::ToUtf8(std::string_view bytes) const {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) AppendCharacter(Unicode(TakeCode(bytes)), text);
  return text;
}

bool IsCodePage(int number) { return CodePage(number).Number() == number; }

int CodePageOfCharset(int charset, int system) {
  struct Row {
    int charset;
    int code_page;
  };
  constexpr Row kRows[] = {{161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},
                           {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}};
  for (const Row& row : kRows) {
    if (row.charset == charset) return row.code_page;
  }
  return system;
}

}  // namespace levelwidgets::text
