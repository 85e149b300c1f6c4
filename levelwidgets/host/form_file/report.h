// Collects what is wrong in one form file.
#pragma once

#include <levelwidgets/host/form_file/document.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/platform/text/printable.h>

namespace levelwidgets {

class FormReport {
 public:
  FormReport(const FormDocument& document, std::string file) : document_(document), file_(std::move(file)) {}

  // `offset` is where in the text.
  void Error(std::size_t offset, std::string_view message) {
    has_errors_ = true;
    Add(Severity::kError, offset, message);
  }
  void Warning(std::size_t offset, std::string_view message) { Add(Severity::kWarning, offset, message); }
  // What only the desktop is short of.
  void DesktopWarning(std::size_t offset, std::string_view message) {
    Warning(offset, message);
    entries_.back().of_desktop = true;
  }
  bool HasErrors() const { return has_errors_; }
  const FormDocument& Document() const { return document_; }
  const std::string& File() const { return file_; }

  // In the order of the file. After the first thousand only how many more there are.
  std::vector<Diagnostic> Diagnostics() const;

 private:
  using Severity = Diagnostic::Severity;
  struct Entry {
    std::size_t offset;
    Severity severity;
    std::string message;
    bool of_desktop = false;
  };
  void Add(Severity severity, std::size_t offset, std::string_view message) {
    entries_.push_back({offset, severity, text::Printable(message)});
  }

  const FormDocument& document_;
  std::string file_;
  std::vector<Entry> entries_;
  bool has_errors_ = false;
};

// `; did you mean "Width"?`, or "" when no candidate is near enough.
std::string Suggestion(std::string_view name, std::span<const std::string_view> candidates);

}  // namespace levelwidgets
