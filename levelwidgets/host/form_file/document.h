// A form file's text as a tree of values that know their places in it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <levelwidgets/host/form_file/state.h>

namespace levelwidgets {

// Bytes of the text, the end exclusive.
struct TextSpan {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// A place as people count it, from 1; columns count characters.
struct TextPosition {
  int line = 1;
  int column = 1;
};

struct FormNode {
  enum class Kind { kBoolean, kInteger, kFloat, kString, kDate, kZonedDate, kList, kTable };
  // How a table is written: with a [header] of its own, by dotted keys in the table around it, or { inline }.
  enum class Shape { kHeader, kDotted, kInline };

  Kind kind = Kind::kTable;
  Shape shape = Shape::kInline;
  std::string key;  // of an entry of a table
  std::variant<bool, std::int64_t, double, std::string, Date> scalar;
  std::vector<FormNode> children;  // of a table or list, in the order of the text
  TextSpan key_span;
  TextSpan span;  // the value's; of a table that is not inline, its [header] or first key

  bool IsTable() const { return kind == Kind::kTable; }
  // Null when there is no such key.
  const FormNode* Find(std::string_view name) const;
};

struct FormSyntaxError {
  TextPosition at;
  std::string message;
};

// Parses TOML. The first error ends it.
std::variant<FormNode, FormSyntaxError> ParseFormNodes(const std::string& text);

class FormDocument {
 public:
  FormDocument(std::string text, FormNode root);

  const std::string& Text() const { return text_; }
  const FormNode& Root() const { return root_; }
  std::string_view TextOf(TextSpan span) const {
    return std::string_view(text_).substr(span.begin, span.end - span.begin);
  }
  TextPosition PositionOf(std::size_t offset) const;
  // The [form] table and the [[control]] tables; the loader has made sure that they exist.
  const FormNode& FormTable() const { return *root_.Find("form"); }
  const std::vector<FormNode>& ControlTables() const;

  // What the form was like when it had been loaded from this text: what differs now is what a save changes.
  const FormState& Loaded() const { return loaded_; }
  void SetLoaded(FormState state) { loaded_ = std::move(state); }

 private:
  std::string text_;
  FormNode root_;
  std::vector<std::size_t> line_starts_;
  FormState loaded_;
};

// A dotted key or header with more parts than any form needs, or one more of them than can be read in sane
// time.
struct RefusedKey {
  std::size_t offset;
  std::string message;
};
std::optional<RefusedKey> FindRefusedKey(std::string_view text);

}  // namespace levelwidgets
