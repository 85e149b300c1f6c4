#include <levelwidgets/host/form_document.h>

#include <algorithm>

namespace levelwidgets {

namespace {

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// How many bytes the well-formed character at the start of `text` has; 0 when it is none.
std::size_t CharacterLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xC2 && lead < 0xE0 ? 2 : lead >= 0xE0 && lead < 0xF0 ? 3 : 4;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  if (!std::ranges::all_of(text.substr(1, length - 1), IsContinuation)) return 0;
  const auto second = static_cast<unsigned char>(text[1]);
  const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
  const bool surrogate = lead == 0xED && second >= 0xA0;
  const bool too_large = lead == 0xF4 && second >= 0x90;
  return overlong || surrogate || too_large ? 0 : length;
}

}  // namespace

std::optional<std::size_t> FindInvalidUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = CharacterLength(text.substr(at));
    if (length == 0) return at;
    at += length;
  }
  return std::nullopt;
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

TextPosition FormDocument::PositionOf(std::size_t offset) const {
  const std::string_view before = std::string_view(text_).substr(0, offset);
  const std::size_t line_start = before.rfind('\n') + 1;  // 0 on the first line
  std::string_view in_line = before.substr(line_start);
  if (line_start == 0 && in_line.starts_with("\xEF\xBB\xBF")) in_line.remove_prefix(3);
  return {static_cast<int>(std::ranges::count(before, '\n')) + 1,
          static_cast<int>(in_line.size() -
                           static_cast<std::size_t>(std::ranges::count_if(in_line, IsContinuation))) +
              1};
}

}  // namespace levelwidgets
