#include <levelwidgets/host/form_file/document.h>

#include <algorithm>

#include <levelwidgets/host/form_file/document_plain.h>
#include <levelwidgets/host/form_file/document_toml.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

std::variant<FormNode, FormSyntaxError> ParseFormNodes(const std::string& text) {
  if (auto plain = ReadPlainFormNodes(text)) return *std::move(plain);
  return ParseToml(text);
}

const FormNode* FormNode::Find(std::string_view name) const {
  const auto found = std::ranges::find(children, name, &FormNode::key);
  return found == children.end() ? nullptr : &*found;
}

const std::vector<FormNode>& FormDocument::ControlTables() const {
  static const std::vector<FormNode> none;
  const FormNode* controls = root_.Find("control");
  return controls ? controls->children : none;
}

FormDocument::FormDocument(std::string text, FormNode root) : text_(std::move(text)), root_(std::move(root)) {
  line_starts_.push_back(text_.starts_with("\xEF\xBB\xBF") ? 3 : 0);
  for (std::size_t at = 0; (at = text_.find('\n', at)) != std::string::npos;) line_starts_.push_back(++at);
}

TextPosition FormDocument::PositionOf(std::size_t offset) const {
  const auto after = std::ranges::upper_bound(line_starts_, std::max(offset, line_starts_.front()));
  const std::size_t start = *std::prev(after);
  const std::string_view before = TextOf({start, std::max(start, offset)});
  const auto continuations = std::ranges::count_if(before, text::IsContinuation);
  return {static_cast<int>(after - line_starts_.begin()),
          static_cast<int>(before.size() - static_cast<std::size_t>(continuations)) + 1};
}

namespace {

// Past the string that begins at `at`.
std::size_t EndOfString(std::string_view text, std::size_t at) {
  const std::string_view single = text.substr(at, 1);
  const std::string_view triple = text.substr(at, 3);
  const bool is_long = triple.size() == 3 && triple[1] == single[0] && triple[2] == single[0];
  const std::string_view quote = is_long ? triple : single;
  for (at += quote.size(); at < text.size(); ++at) {
    if (text[at] == '\\' && quote[0] == '"') {
      ++at;
    } else if (text.substr(at).starts_with(quote)) {
      return at + quote.size();
    } else if (text[at] == '\n' && !is_long) {
      break;
    }
  }
  return std::min(at, text.size());
}

}  // namespace

std::optional<RefusedKey> FindRefusedKey(std::string_view text) {
  constexpr int kMostDots = 16;
  constexpr int kMostDottedKeys = 100'000;
  if (std::ranges::count(text, '.') <= kMostDots) return std::nullopt;
  int dots = 0;
  int dotted_keys = 0;
  bool in_value = false;
  for (std::size_t at = 0; at < text.size();) {
    switch (text[at]) {
      case '.':
        if (++dots > kMostDots) return RefusedKey{at, "a key or header of more than 17 parts is refused"};
        if (dots > 1 || in_value || ++dotted_keys <= kMostDottedKeys) break;
        return RefusedKey{at, "more than 100000 keys and headers with a dot are refused"};
      case '=':
        in_value = true;
        dots = 0;
        break;
      case '\n':
      case ',':
      case '[':
      case '{':
        in_value = false;
        dots = 0;
        break;
      case '#': at = std::min(text.find('\n', at), text.size()); continue;
      case '"':
      case '\'': at = EndOfString(text, at); continue;
      default: break;
    }
    ++at;
  }
  return std::nullopt;
}

}  // namespace levelwidgets
