#include <levelwidgets/host/form_file/document_plain.h>

#include <algorithm>
#include <charconv>

#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

using Kind = FormNode::Kind;
using Shape = FormNode::Shape;

// A table is searched for each of its keys in turn.
constexpr std::size_t kMostKeys = 64;
constexpr std::size_t kUsualKeys = 8;
constexpr int kMostInlineTables = 8;  // in each other

bool IsBareKey(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || text::IsDigit(c) || c == '_' || c == '-';
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// Whether the character may stand in a string or a comment.
bool IsText(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 0x20 && byte != 0x7F) || c == '\t';
}

// What follows the backslash of an escape; 0 for those that are left to the library.
char Escaped(char c) {
  switch (c) {
    case 'b': return '\b';
    case 't': return '\t';
    case 'n': return '\n';
    case 'f': return '\f';
    case 'r': return '\r';
    case '"':
    case '\\': return c;
    default: return 0;
  }
}

// Every function that reads something returns false at what it does not know.
class PlainReader {
 public:
  explicit PlainReader(std::string_view text) : text_(text) {}

  bool Read(FormNode& root) {
    root.shape = At('[') ? Shape::kHeader : Shape::kDotted;
    FormNode* table = &root;
    while (at_ < text_.size()) {
      SkipBlanks();
      if (At('[')) {
        table = ReadHeader(root);
        if (!table) return false;
      } else if (!AtEndOfLine() && !ReadEntry(*table, 0)) {
        return false;
      }
      SkipBlanks();
      if (!ReadEndOfLine()) return false;
    }
    root.span = {0, text_.size()};
    return true;
  }

 private:
  bool At(char c) const { return at_ < text_.size() && text_[at_] == c; }
  bool Take(char c) {
    if (!At(c)) return false;
    ++at_;
    return true;
  }
  void SkipBlanks() {
    while (at_ < text_.size() && IsBlank(text_[at_])) ++at_;
  }
  bool AtEndOfLine() const { return at_ == text_.size() || At('#') || At('\n') || At('\r'); }

  bool ReadEndOfLine() {
    if (Take('#')) {
      while (at_ < text_.size() && IsText(text_[at_])) ++at_;
    }
    if (at_ == text_.size()) return true;
    Take('\r');
    return Take('\n');
  }

  // [key] or [[key]]: the table that the following entries belong to.
  FormNode* ReadHeader(FormNode& root) {
    const std::size_t begin = at_++;
    const bool is_one_of_many = Take('[');
    const TextSpan key_span = ReadKey();
    const std::string_view key = TextOf(key_span);
    if (key.empty() || !Take(']') || (is_one_of_many && !Take(']'))) return nullptr;
    const auto known = std::ranges::find(root.children, key, &FormNode::key);
    FormNode* node = known == root.children.end() ? nullptr : &*known;
    if (node && !(is_one_of_many && node->kind == Kind::kList)) return nullptr;
    if (!node) {
      node = AddChild(root, key_span);
      if (!node) return nullptr;
      node->span.begin = begin;
      if (is_one_of_many) node->kind = Kind::kList;
    }
    node->span.end = at_;
    FormNode& table = is_one_of_many ? node->children.emplace_back() : *node;
    table.span = {begin, at_};
    table.shape = Shape::kHeader;
    table.children.reserve(kUsualKeys);
    return &table;
  }

  bool ReadEntry(FormNode& table, int depth) {
    const TextSpan key = ReadKey();
    FormNode* const node = AddChild(table, key);
    if (!node) return false;
    SkipBlanks();
    if (!Take('=')) return false;
    SkipBlanks();
    node->span.begin = at_;
    if (!ReadValue(*node, depth)) return false;
    node->span.end = at_;
    return true;
  }

  TextSpan ReadKey() {
    const std::size_t begin = at_;
    while (at_ < text_.size() && IsBareKey(text_[at_])) ++at_;
    return {begin, at_};
  }

  FormNode* AddChild(FormNode& table, TextSpan key) {
    const std::string_view name = TextOf(key);
    if (name.empty() || table.children.size() >= kMostKeys || table.Find(name)) return nullptr;
    FormNode& child = table.children.emplace_back();
    child.key = name;
    child.key_span = key;
    return &child;
  }

  bool ReadValue(FormNode& node, int depth) {
    if (At('"')) return ReadString(node);
    if (At('\'')) return ReadLiteralString(node);
    if (At('{')) return depth < kMostInlineTables && ReadInlineTable(node, depth + 1);
    return ReadWord(node);
  }

  bool ReadString(FormNode& node) {
    std::string value;
    for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
      char c = text_[at_];
      if (!IsText(c)) return false;
      if (c == '\\') {
        c = ++at_ < text_.size() ? Escaped(text_[at_]) : char{0};
        if (c == 0) return false;
      }
      value += c;
    }
    const bool is_empty = value.empty();
    node.kind = Kind::kString;
    node.scalar = std::move(value);
    return Take('"') && !(is_empty && At('"'));  // three of them begin a string of many lines
  }

  bool ReadLiteralString(FormNode& node) {
    const std::size_t begin = ++at_;
    while (at_ < text_.size() && text_[at_] != '\'' && IsText(text_[at_])) ++at_;
    node.kind = Kind::kString;
    node.scalar = std::string(TextOf({begin, at_}));
    const bool is_empty = at_ == begin;
    return Take('\'') && !(is_empty && At('\''));
  }

  bool ReadInlineTable(FormNode& node, int depth) {
    ++at_;
    SkipBlanks();
    if (Take('}')) return true;
    do {
      SkipBlanks();
      if (!ReadEntry(node, depth)) return false;
      SkipBlanks();
    } while (Take(','));
    return Take('}');
  }

  // true, false or a number.
  bool ReadWord(FormNode& node) {
    const std::size_t begin = at_;
    while (at_ < text_.size() && (IsBareKey(text_[at_]) || text_[at_] == '.')) ++at_;
    const std::string_view word = TextOf({begin, at_});
    if (word == "true" || word == "false") {
      node.kind = Kind::kBoolean;
      node.scalar = word == "true";
      return true;
    }
    return word.starts_with("0x") ? SetInteger(node, word.substr(2), 16) : SetNumber(node, word);
  }

  static bool SetNumber(FormNode& node, std::string_view word) {
    const std::string_view digits = word.substr(word.starts_with('-') ? 1 : 0);
    const auto point = static_cast<std::size_t>(std::ranges::find(digits, '.') - digits.begin());
    const std::string_view whole = digits.substr(0, point);
    const bool leading_zero = whole.size() > 1 && whole[0] == '0';
    if (whole.empty() || leading_zero || !std::ranges::all_of(whole, text::IsDigit)) return false;
    if (point == digits.size()) return SetInteger(node, word, 10);
    const std::string_view fraction = digits.substr(point + 1);
    if (fraction.empty() || !std::ranges::all_of(fraction, text::IsDigit)) return false;
    double value = 0;
    node.kind = Kind::kFloat;
    const bool right = std::from_chars(word.data(), word.data() + word.size(), value).ec == std::errc();
    node.scalar = value;
    return right;
  }

  // Of so few digits that it is in range.
  static bool SetInteger(FormNode& node, std::string_view word, int base) {
    constexpr std::size_t kMostDigits = 15;
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, base);
    node.kind = Kind::kInteger;
    node.scalar = value;
    const bool has_sign_where_none_is = base != 10 && word.starts_with('-');
    return error == std::errc() && end == word.data() + word.size() && word.size() <= kMostDigits &&
           !has_sign_where_none_is;
  }

  std::string_view TextOf(TextSpan span) const { return text_.substr(span.begin, span.end - span.begin); }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

std::optional<FormNode> ReadPlainFormNodes(std::string_view text) {
  if (text::FindIllFormed(text)) return std::nullopt;
  FormNode root;
  return PlainReader(text).Read(root) ? std::optional(std::move(root)) : std::nullopt;
}

}  // namespace levelwidgets
