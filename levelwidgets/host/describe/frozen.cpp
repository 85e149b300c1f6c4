#include <levelwidgets/host/describe/frozen.h>

#include <algorithm>
#include <sstream>

#include <levelwidgets/host/describe/values.h>

namespace levelwidgets {

namespace {

std::string FrozenTypeOf(const PropertyInfo& property) {
  std::string type = property.Indexed() ? TextOfArguments(property.indices) + ": " : "";
  type += property.type.Name();
  return property.ReadOnly() ? type + ", read-only" : type;
}

std::string FrozenTypeOf(const MethodInfo& method) {
  const bool returns = method.result.kind != TypeKind::kNone;
  return TextOfArguments(method.arguments) + (returns ? ": " + std::string(method.result.Name()) : "");
}

std::string FrozenTypeOf(const EventInfo& event) { return TextOfArguments(event.arguments); }

template <typename Info>
void AddLines(std::vector<std::string>& lines, const ClassInfo& info, std::string_view kind,
              std::span<const Info> members) {
  for (const Info& member : members) {
    std::ostringstream line;
    line << info.Name() << " " << kind << " " << member.number << " " << member.name << " "
         << FrozenTypeOf(member);
    lines.push_back(line.str());
  }
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  std::istringstream in{std::string(text)};
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

bool IsRemark(const std::string& line) { return line.empty() || line[0] == '#'; }

bool Contains(const std::vector<std::string>& lines, const std::string& line) {
  return std::ranges::find(lines, line) != lines.end();
}

// Behind the last line of the class that `line` is of, or at the end for the first of a class.
void Insert(std::vector<std::string>& lines, const std::string& line) {
  const std::string of_class = line.substr(0, line.find(' ') + 1);
  const auto last = std::find_if(lines.rbegin(), lines.rend(),
                                 [&](const std::string& other) { return other.starts_with(of_class); });
  lines.insert(last == lines.rend() ? lines.end() : last.base(), line);
}

}  // namespace

std::vector<std::string> MemberLines(std::span<const ClassInfo* const> classes) {
  std::vector<std::string> lines;
  for (const ClassInfo* info : classes) {
    AddLines(lines, *info, "property", info->Properties());
    AddLines(lines, *info, "method", info->Methods());
    AddLines(lines, *info, "event", info->Events());
  }
  return lines;
}

FrozenMembers GrowFrozenMembers(std::string_view list, const std::vector<std::string>& members) {
  FrozenMembers frozen;
  std::vector<std::string> lines = LinesOf(list);
  for (const std::string& line : lines) {
    if (!IsRemark(line) && !Contains(members, line)) frozen.broken.push_back(line);
  }
  for (const std::string& member : members) {
    if (Contains(lines, member)) continue;
    frozen.added.push_back(member);
    Insert(lines, member);
  }
  for (const std::string& line : lines) frozen.text += line + "\n";
  return frozen;
}

}  // namespace levelwidgets
