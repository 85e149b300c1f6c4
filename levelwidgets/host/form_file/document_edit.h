// Changes to a form file's text that leave the rest of it alone.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <levelwidgets/host/form_file/document.h>

namespace levelwidgets {

// What becomes of one key of a table.
struct KeyChange {
  std::string_view key;
  std::optional<Variant> value;  // nothing: the key goes
  MemberType type;               // of no kind when unknown
};

// Collects changes, all of them stated in places of the original, and applies them at once.
class FormTextEditor {
 public:
  explicit FormTextEditor(const FormDocument& document);

  // "\n" or "\r\n", as the text has it.
  const std::string& Newline() const { return newline_; }
  // Changes, adds and removes keys. New ones follow the table's last.
  void Change(const FormNode& table, const std::vector<KeyChange>& changes);
  // Adds lines after the last of a table's own.
  void AddLines(const FormNode& table, const std::vector<std::string>& lines);
  // Removes a [[control]] with all that belongs to it, and the comment that stands directly above it.
  void RemoveBlock(const FormNode& table);
  // The changed text.
  std::string Apply() const;

 private:
  struct Edit {
    TextSpan span;
    std::string text;
  };

  std::string_view Text() const { return document_.Text(); }
  std::size_t LineStart(std::size_t offset) const;
  // Past the line's end, and so the start of the next line.
  std::size_t LineEnd(std::size_t offset) const;
  TextSpan WholeLines(TextSpan span) const { return {LineStart(span.begin), LineEnd(span.end)}; }
  bool LineStartsWith(std::size_t line, char c) const;
  bool IsBlankLine(std::size_t line) const;

  void ChangeLines(const FormNode& table, const std::string& prefix, const std::vector<KeyChange>& changes);
  void RemoveLines(const FormNode& node);
  void AddHeader(const FormNode& table, const std::vector<std::string>& lines);
  std::string Inline(const FormNode& table, const std::vector<KeyChange>& changes) const;
  std::string InlineEntry(const FormNode& entry, const KeyChange* change) const;
  // The block's lines with the comments and blank lines that go with it.
  TextSpan Surroundings(TextSpan lines, std::size_t previous_end) const;

  const FormDocument& document_;
  std::string newline_;
  std::vector<TextSpan> statements_;  // every header and key of the text, in order
  std::vector<Edit> edits_;
  bool removed_end_ = false;
};

}  // namespace levelwidgets
