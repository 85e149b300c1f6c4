// Collects what is wrong in one form file.
#pragma once

#include <levelwidgets/host/form_document.h>
#include <levelwidgets/host/form_file.h>

namespace levelwidgets {

class FormReport {
 public:
  FormReport(const FormDocument& document, std::string file) : document_(document), file_(std::move(file)) {}

  // `offset` is where in the text.
  void Error(std::size_t offset, std::string message) {
    has_errors_ = true;
    Add(Diagnostic::Severity::kError, offset, std::move(message));
  }
  void Warning(std::size_t offset, std::string message) {
    Add(Diagnostic::Severity::kWarning, offset, std::move(message));
  }
  bool HasErrors() const { return has_errors_; }
  const FormDocument& Document() const { return document_; }
  const std::string& File() const { return file_; }

  // In the order of the file.
  std::vector<Diagnostic> Diagnostics() const;

 private:
  struct Entry {
    std::size_t offset;
    Diagnostic::Severity severity;
    std::string message;
  };
  void Add(Diagnostic::Severity severity, std::size_t offset, std::string message) {
    entries_.push_back({offset, severity, std::move(message)});
  }

  const FormDocument& document_;
  std::string file_;
  std::vector<Entry> entries_;
  bool has_errors_ = false;
};

// `; did you mean "Width"?`, or "" when no candidate is near enough.
std::string Suggestion(std::string_view name, std::span<const std::string_view> candidates);

}  // namespace levelwidgets
