#include <sstream>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/describe/describe.h>
#include <levelwidgets/host/describe/values.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets {

namespace {

// Prose in a cell.
std::string Cell(std::string_view text) {
  std::string cell;
  for (const char c : text) {
    if (c == '|' || c == '*' || c == '<' || c == '_') cell += '\\';
    cell += c;
  }
  return cell;
}

// The heading of an enumeration as its link names it.
std::string Anchor(std::string_view heading) {
  std::string anchor;
  for (const char c : heading) anchor += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return anchor;
}

std::string Type(const MemberType& type) {
  const std::string name(type.Name());
  if (type.enumeration) return "[" + name + "](#" + Anchor(name) + ")";
  const auto classes = DescribedClasses();
  const bool has_page =
      type.object_class && std::ranges::find(classes, &type.object_class()) != classes.end();
  return has_page ? "[" + name + "](" + name + ".md)" : name;
}

std::string NamesOf(const ArgumentList& arguments) {
  std::string text;
  for (const ArgumentInfo& argument : arguments)
    text += (text.empty() ? "" : ", ") + std::string(argument.name);
  return text;
}

std::string ListOf(const ArgumentList& arguments) {
  std::string list;
  for (const ArgumentInfo& argument : arguments) {
    if (!list.empty()) list += "<br>";
    list += Code(argument.name) + ": " + Type(argument.type);
    if (argument.by_reference) list += argument.output ? ", handed back" : ", by reference";
    if (argument.default_value) {
      list += ", otherwise " + Code(TextOfDefault(*argument.default_value, argument.type));
    }
  }
  return list;
}

std::string Default(const DefaultValue& value, const MemberType& type) {
  const std::string text = TextOfDefault(value, type);
  return value.kind == DefaultValue::Kind::kFixed ? Code(text) : text;
}

std::string Defaults(const PropertyInfo& property) {
  if (!HasDefault(property)) return "";
  const std::string when_new = Default(property.defaults.when_new, property.type);
  const std::string when_read = Default(property.defaults.when_read, property.type);
  const std::string when_written = Default(property.defaults.when_written, property.type);
  if (when_new == when_read && when_read == when_written) return when_new;
  std::string text = "new: " + when_new + "<br>loaded: " + when_read;
  if (when_written != when_read) text += "<br>not saved: " + when_written;
  return text;
}

std::string SavedAs(const PropertyInfo& property) {
  if (!property.persisted) return "not saved";
  std::string text = Code(property.name);
  if (property.is_collection) return ListOfKeys(property, "`") + " ...";
  if (property.Indexed()) text = Code(property.KeyOf(1)) + ", " + Code(property.KeyOf(2)) + " ...";
  if (property.stored_as != property.type.type) text += " as " + std::string(NameOf(property.stored_as));
  return text;
}

void WriteProperties(std::ostream& out, const ClassInfo& info) {
  if (info.Properties().empty()) return;
  out << "\n## Properties\n\n| Property | Type | Saved as | Default | |\n|---|---|---|---|---|\n";
  for (const PropertyInfo& property : info.Properties()) {
    const std::string indices = property.Indexed() ? "(" + NamesOf(property.indices) + ")" : "";
    out << "| " << Code(std::string(property.name) + indices) << " | " << Type(property.type) << " | "
        << SavedAs(property) << " | " << Defaults(property) << " | " << Cell(property.help);
    if (property.ReadOnly()) out << " Read-only.";
    if (property.Indexed()) out << "<br>" << ListOf(property.indices);
    out << " |\n";
  }
}

void WriteMethods(std::ostream& out, const ClassInfo& info) {
  if (info.Methods().empty()) return;
  out << "\n## Methods\n\n| Method | Arguments | Returns | |\n|---|---|---|---|\n";
  for (const MethodInfo& method : info.Methods()) {
    out << "| " << Code(std::string(method.name) + "(" + NamesOf(method.arguments) + ")") << " | "
        << ListOf(method.arguments) << " | " << Type(method.result) << " | " << Cell(method.help) << " |\n";
  }
}

void WriteEvents(std::ostream& out, const ClassInfo& info) {
  if (info.Events().empty()) return;
  out << "\n## Events\n\n| Number | Event | Arguments | |\n|---|---|---|---|\n";
  for (const EventInfo& event : info.Events()) {
    out << "| " << event.number << " | " << Code(event.name) << " | " << ListOf(event.arguments) << " | "
        << Cell(event.help) << " |\n";
  }
}

void WriteEnumerations(std::ostream& out, const ClassInfo& info) {
  if (info.Enumerations().empty()) return;
  out << "\n## Enumerations\n";
  for (const EnumerationInfo* enumeration : info.Enumerations()) {
    out << "\n### " << enumeration->name << "\n\n| Value | Name |\n|---|---|\n";
    for (const EnumerationItem& item : enumeration->items) {
      out << "| " << item.value << " | " << Code(item.name) << " |\n";
    }
  }
}

bool IsControl(const ClassInfo& info) {
  return std::ranges::find(ControlClasses(), &info) != ControlClasses().end();
}

// The property pages that serve the class; "" for none.
std::string LinksToPages(const ClassInfo& info) {
  std::string text;
  for (const PageInfo* page : PagesOf(info.Name())) {
    const std::string name(page->name);
    text += (text.empty() ? "" : " and ") + ("[" + name + "](" + name + ".md)");
  }
  return text;
}

// What concerns the class as a whole.
void WriteRemarks(std::ostream& out, const ClassInfo& info) {
  if (IsControl(info)) {
    out << "\nPlaced without a size it is " << info.DefaultSize().width.value << " by "
        << info.DefaultSize().height.value
        << " twips. A form adds the keys and methods of [Placement](Placement.md).\n";
  }
  if (const std::string pages = LinksToPages(info); !pages.empty()) {
    out << "\nA designer edits it on " << pages << ".\n";
  }
  if (&info == &Form::Table()) out << "\nScripts have its methods in small letters: `form:show()`.\n";
  if (info.Creatable()) out << "\nA script makes one by `lw.new(\"" << info.Name() << "\")`.\n";
  if (!info.DefaultMember().empty()) {
    out << "\n" << Code(info.DefaultMember()) << " stands for the object itself (its default member).\n";
  }
  if (!info.EnumeratorMember().empty()) {
    out << "\nA collection: `for item in list:each() do` goes through it in scripts.\n";
  }
}

}  // namespace

std::string DescribeAsMarkdown(const ClassInfo& info) {
  std::ostringstream out;
  out << "# " << info.Name() << "\n\n" << Cell(info.Help()) << "\n";
  WriteRemarks(out, info);
  WriteProperties(out, info);
  WriteMethods(out, info);
  WriteEvents(out, info);
  WriteEnumerations(out, info);
  return out.str();
}

}  // namespace levelwidgets
