// The only file that sees the TOML library.
#include <algorithm>
#include <chrono>

#include <levelwidgets/host/form_document.h>
#include <levelwidgets/host/form_values_date.h>

#define TOML_EXCEPTIONS 0
#define TOML_ENABLE_FORMATTERS 0
#define TOML_ENABLE_WINDOWS_COMPAT 0
#include <toml++/toml.h>

namespace levelwidgets {

namespace {

// Turns the library's lines and columns into offsets.
class LineStarts {
 public:
  explicit LineStarts(const std::string& text) : text_(text) {
    starts_.push_back(text.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos;) starts_.push_back(++at);
    ascii_ = std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  }

  std::size_t OffsetOf(toml::source_position position) const {
    if (!position || position.line > starts_.size()) return text_.size();
    std::size_t at = starts_[position.line - 1];
    if (ascii_) return std::min(at + position.column - 1, text_.size());
    for (auto left = position.column - 1; left > 0 && at < text_.size(); --left) {
      do ++at;
      while (at < text_.size() && (static_cast<unsigned char>(text_[at]) & 0xC0) == 0x80);
    }
    return at;
  }
  TextSpan SpanOf(const toml::source_region& region) const {
    return {OffsetOf(region.begin), OffsetOf(region.end)};
  }

 private:
  const std::string& text_;
  std::vector<std::size_t> starts_;
  bool ascii_ = false;
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
  explicit Converter(const std::string& text) : text_(text), lines_(text) {}

  FormNode Convert(toml::node& source) const {
    FormNode node;
    node.span = lines_.SpanOf(source.source());
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
      child.key_span = lines_.SpanOf(key.source());
    }
    std::ranges::sort(node.children, {}, [](const FormNode& child) { return child.key_span.begin; });
  }

  void ConvertList(toml::array& source, FormNode& node) const {
    node.kind = Kind::kList;
    node.children.reserve(source.size());
    for (toml::node& item : source) node.children.push_back(Convert(item));
  }

  const std::string& text_;
  LineStarts lines_;
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
  toml::parse_result result = toml::parse(std::string_view(text));
  if (!result) return SyntaxError(text, result.error());
  return Converter(text).Convert(result.table());
}

}  // namespace levelwidgets
