#include <levelwidgets/host/form_file/report.h>

#include <algorithm>
#include <span>

namespace levelwidgets {

std::string Diagnostic::ToString() const {
  std::string place = file.empty() ? "\"\"" : file;
  if (line > 0) place += ":" + std::to_string(line) + ":" + std::to_string(column);
  return place + (severity == Severity::kWarning ? ": warning: " : ": ") + message;
}

std::vector<Diagnostic> FormReport::Diagnostics() const {
  constexpr std::size_t kMost = 1000;
  std::vector<Entry> entries = entries_;
  std::ranges::stable_sort(entries, {}, &Entry::offset);
  std::vector<Diagnostic> diagnostics;
  const std::size_t told = std::min(entries.size(), kMost);
  for (Entry& entry : std::span(entries).first(told)) {
    const TextPosition at = document_.PositionOf(entry.offset);
    diagnostics.push_back(
        {entry.severity, file_, at.line, at.column, std::move(entry.message), entry.of_desktop});
  }
  const std::span<const Entry> rest = std::span(entries).subspan(told);
  if (rest.empty()) return diagnostics;
  const auto errors = std::ranges::count(rest, Severity::kError, &Entry::severity);
  const auto warnings = static_cast<std::ptrdiff_t>(rest.size()) - errors;
  diagnostics.push_back(
      {errors > 0 ? Severity::kError : Severity::kWarning, file_, 0, 0,
       "and " + std::to_string(errors) + " more errors and " + std::to_string(warnings) + " more warnings"});
  return diagnostics;
}

std::string Suggestion(std::string_view name, std::span<const std::string_view> candidates) {
  const std::string_view nearest = NearestName(name, candidates);
  return nearest.empty() ? "" : "; did you mean \"" + std::string(nearest) + "\"?";
}

}  // namespace levelwidgets
