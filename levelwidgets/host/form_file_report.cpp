#include <levelwidgets/host/form_file_report.h>

#include <algorithm>

namespace levelwidgets {

std::string Diagnostic::ToString() const {
  std::string place = file;
  if (line > 0) place += ":" + std::to_string(line) + ":" + std::to_string(column);
  return place + (severity == Severity::kWarning ? ": warning: " : ": ") + message;
}

std::vector<Diagnostic> FormReport::Diagnostics() const {
  std::vector<Entry> entries = entries_;
  std::ranges::stable_sort(entries, {}, &Entry::offset);
  std::vector<Diagnostic> diagnostics;
  for (Entry& entry : entries) {
    const TextPosition at = document_.PositionOf(entry.offset);
    diagnostics.push_back({entry.severity, file_, at.line, at.column, std::move(entry.message)});
  }
  return diagnostics;
}

std::string Suggestion(std::string_view name, std::span<const std::string_view> candidates) {
  const std::string_view nearest = NearestName(name, candidates);
  return nearest.empty() ? "" : "; did you mean \"" + std::string(nearest) + "\"?";
}

}  // namespace levelwidgets
