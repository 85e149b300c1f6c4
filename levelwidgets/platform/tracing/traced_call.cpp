#include <levelwidgets/platform/tracing/traced_call.h>

#include <sstream>

namespace levelwidgets {
namespace {

void Write(std::ostream& out, std::int64_t number) { out << number; }
void Write(std::ostream& out, double number) { out << number; }
void Write(std::ostream& out, const std::string& text) { out << '"' << text << '"'; }

}  // namespace

std::string TracedCall::ToString() const {
  std::ostringstream out;
  out << name << '(';
  const char* separator = "";
  for (const TraceArgument& argument : arguments) {
    out << separator;
    std::visit([&out](const auto& value) { Write(out, value); }, argument);
    separator = ", ";
  }
  out << ')';
  return out.str();
}

std::vector<std::string> Names(const std::vector<TracedCall>& calls) {
  std::vector<std::string> names;
  for (const TracedCall& call : calls) names.push_back(call.name);
  return names;
}

}  // namespace levelwidgets
