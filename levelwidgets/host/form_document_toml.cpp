// The only file that sees the TOML library.
#include <algorithm>
#include <chrono>

#include <levelwidgets/host/form_document.h>
#include <levelwidgets/host/form_values_date.h>

// An assertion of the library would end the program at "[=", which its parser then reports as it should.
#define TOML_ASSERT(expression) static_assert(true)
#define TOML_EXCEPTIONS 0
#define TOML_MAX_NESTED_VALUES 64
#define TOML_ENABLE_FORMATTERS 0
#define TOML_ENABLE_WINDOWS_COMPAT 0
#include <toml++/toml.h>

namespace levelwidgets {

namespace {

// Turns the library's lines and columns into offsets.
class TextPlaces {
 public:
  explicit TextPlaces(const std::string& text) : size_(text.size()) {
    const bool ascii = std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (!ascii) ListCharacters(text);
    starts_.push_back(text.starts_with("\xEF\xBB\xBF") ? 1 : 0);
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos;) {
      starts_.push_back(NumberOf(++at));
    }
  }

  TextSpan SpanOf(const toml::source_region& region) const {
    return {OffsetOf(region.begin), OffsetOf(region.end)};
  }

 private:
  void ListCharacters(const std::string& text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
      if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) characters_.push_back(at);
    }
    characters_.push_back(text.size());
  }
  // The number of the character at `offset`.
  std::size_t NumberOf(std::size_t offset) const {
    if (characters_.empty()) return offset;
    const auto found = std::ranges::lower_bound(characters_, offset);
    return static_cast<std::size_t>(found - characters_.begin());
  }
  std::size_t OffsetOf(toml::source_position position) const {
    if (!position || position.line > starts_.size()) return size_;
    const std::size_t number = starts_[position.line - 1] + position.column - 1;
    if (characters_.empty()) return std::min(number, size_);
    return characters_[std::min(number, characters_.size() - 1)];
  }

  std::size_t size_;
  std::vector<std::size_t> starts_;      // the number of each line's first character
  std::vector<std::size_t> characters_;  // where each is; empty when all are single bytes
};

using Kind = FormNode::Kind;
using Shape = FormNode::Shape;

double TimeOfDay(const toml::time& time) {
  return TimeFraction(time.hour, time.minute, time.second, time.nanosecond);
}

Date DateOf(const toml::date& date, double time_of_day) {
  return MakeDate({std::chrono::year(date.year), std::chrono::month(date.month), std::chrono::day(date.day)},
                  time_of_day);
}

class Converter {
 public:
  explicit Converter(const std::string& text) : text_(text), places_(text) {}

  FormNode Convert(toml::node& source) const {
    FormNode node;
    node.span = places_.SpanOf(source.source());
    switch (source.type()) {
      case toml::node_type::table: ConvertTable(*source.as_table(), node); break;
      case toml::node_type::array: ConvertList(*source.as_array(), node); break;
      case toml::node_type::string: Set(node, Kind::kString, std::move(source.as_string()->get())); break;
      case toml::node_type::integer: Set(node, Kind::kInteger, source.as_integer()->get()); break;
      case toml::node_type::floating_point: Set(node, Kind::kFloat, source.as_floating_point()->get()); break;
      case toml::node_type::boolean: Set(node, Kind::kBoolean, source.as_boolean()->get()); break;
      case toml::node_type::date: Set(node, Kind::kDate, DateOf(source.as_date()->get(), 0)); break;
      case toml::node_type::time: Set(node, Kind::kDate, Date{TimeOfDay(source.as_time()->get())}); break;
      case toml::node_type::date_time: {
        const toml::date_time& value = source.as_date_time()->get();
        Set(node, value.offset ? Kind::kZonedDate : Kind::kDate, DateOf(value.date, TimeOfDay(value.time)));
        break;
      }
      case toml::node_type::none: break;
    }
    return node;
  }

 private:
  template <typename T>
  static void Set(FormNode& node, Kind kind, T value) {
    node.kind = kind;
    node.scalar = std::move(value);
  }

  void ConvertTable(toml::table& source, FormNode& node) const {
    node.kind = Kind::kTable;
    if (!source.is_inline()) {
      const bool header = node.span.begin < text_.size() && text_[node.span.begin] == '[';
      node.shape = header ? Shape::kHeader : Shape::kDotted;
    }
    node.children.reserve(source.size());
    for (auto&& [key, value] : source) {
      FormNode& child = node.children.emplace_back(Convert(value));
      child.key = key.str();
      child.key_span = places_.SpanOf(key.source());
    }
    std::ranges::sort(node.children, {}, [](const FormNode& child) { return child.key_span.begin; });
  }

  void ConvertList(toml::array& source, FormNode& node) const {
    node.kind = Kind::kList;
    node.children.reserve(source.size());
    for (toml::node& item : source) node.children.push_back(Convert(item));
  }

  const std::string& text_;
  TextPlaces places_;
};

FormSyntaxError SyntaxError(const std::string& text, const toml::parse_error& error) {
  // The library notices bad bytes a block late.
  if (const auto invalid = FindInvalidUtf8(text)) {
    return {FormDocument(text, {}).PositionOf(*invalid), "the text is not UTF-8"};
  }
  return {{static_cast<int>(error.source().begin.line), static_cast<int>(error.source().begin.column)},
          std::string(error.description())};
}

}  // namespace

std::variant<FormNode, FormSyntaxError> ParseFormNodes(const std::string& text) {
  // The library follows dotted keys by recursion, without a limit of its own.
  if (const auto deep = FindDeepKey(text)) {
    return FormSyntaxError{FormDocument(text, {}).PositionOf(*deep), "a key of that many parts is refused"};
  }
  toml::parse_result result = toml::parse(std::string_view(text));
  if (!result) return SyntaxError(text, result.error());
  return Converter(text).Convert(result.table());
}

}  // namespace levelwidgets
