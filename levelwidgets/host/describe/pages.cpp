#include <levelwidgets/host/describe/pages.h>
#include <levelwidgets/host/describe/values.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <vector>

namespace levelwidgets {

namespace {

using Json = nlohmann::ordered_json;

struct KindName {
  std::string_view json;
  std::string_view text;
};

KindName NameOf(FieldKind kind) {
  switch (kind) {
    case FieldKind::kText: return {"text", "text box"};
    case FieldKind::kCheck: return {"check", "check box"};
    case FieldKind::kList: return {"list", "drop-down list"};
    case FieldKind::kCombo: return {"combo", "drop-down list with typing"};
    case FieldKind::kLabel: return {"label", "label"};
    case FieldKind::kButtons: return {"buttons", "buttons"};
    case FieldKind::kFrame: return {"frame", "frame"};
  }
  return {};
}

// A property of the thing that is chosen in a field.
std::string PropertyOf(const ChosenThing& thing, std::string_view property) {
  const std::string by = "(" + std::string(thing.by) + ")";
  if (thing.property.empty()) return std::string(property) + by;
  return std::string(thing.property) + by + "." + std::string(property);
}

std::vector<std::string> Properties(const PageInfo& page, std::span<const FieldBinding> of_chosen) {
  std::vector<std::string> properties;
  for (const FieldBinding& binding : page.bindings) properties.emplace_back(binding.property);
  for (const FieldBinding& binding : of_chosen) {
    properties.push_back(PropertyOf(page.chosen, binding.property));
  }
  return properties;
}

std::optional<std::string> PropertyOf(const PageInfo& page, const FieldInfo& field) {
  for (const FieldBinding& binding : page.bindings) {
    if (binding.field == field.name) return std::string(binding.property);
  }
  for (const FieldBinding& binding : page.chosen.reads) {
    if (binding.field == field.name) return PropertyOf(page.chosen, binding.property);
  }
  return std::nullopt;
}

// What a person finds out only by trying, as sentences.
std::string RemarksOn(const PageInfo& page, const FieldInfo& field) {
  std::string text;
  const auto add = [&text](const std::string& sentence) { text += (text.empty() ? "" : " ") + sentence; };
  if (field.name == page.chosen.by) add("Chooses what the fields below show.");
  if (field.kind == FieldKind::kButtons) add("What they do is done at once.");
  if (!field.refusal.empty()) {
    add("Refuses to be left with a text that is no number: \"" + std::string(field.refusal) + "\".");
  }
  if (field.marks_by_choice_only) add("What is typed does not mark the page as changed, a choice does.");
  return text;
}

std::string Heading(const PageInfo& page, const std::string& serves) {
  return "The property page \"" + std::string(page.title) + "\" of " + serves +
         ". It shows the first of the selected controls and changes only that one.";
}

template <typename List, typename Quote>
std::string Listed(const List& list, Quote quote) {
  std::string text;
  for (const auto& one : list) text += (text.empty() ? "" : ", ") + quote(one);
  return text;
}

std::string InQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

// --- JSON ------------------------------------------------------------------------------------------

Json TextOrNull(std::string_view text) { return text.empty() ? Json() : Json(text); }

Json JsonOf(const PageInfo& page, const FieldInfo& field) {
  const auto property = PropertyOf(page, field);
  Json json;
  json["name"] = field.name;
  json["kind"] = NameOf(field.kind).json;
  json["caption"] = field.caption;
  json["items"] = Json::array();
  for (const std::string_view item : field.items) json["items"].push_back(item);
  json["label"] = TextOrNull(field.label);
  json["frame"] = TextOrNull(field.frame);
  json["property"] = property ? Json(*property) : Json();
  json["refusal"] = TextOrNull(field.refusal);
  json["marks_by_choice_only"] = field.marks_by_choice_only;
  return json;
}

// --- Text ------------------------------------------------------------------------------------------

void WriteField(std::ostream& out, const PageInfo& page, const FieldInfo& field) {
  out << "  " << field.name << ": " << NameOf(field.kind).text;
  if (!field.caption.empty()) out << " " << InQuotes(field.caption);
  if (!field.items.empty()) out << " with " << Listed(field.items, InQuotes);
  out << "\n";
  if (const auto property = PropertyOf(page, field)) out << "      Shows " << *property << ".\n";
  const std::string remarks = RemarksOn(page, field);
  if (!remarks.empty()) out << "      " << remarks << "\n";
}

std::string AsItIs(const std::string& text) { return text; }

// --- Markdown --------------------------------------------------------------------------------------

// What stands in the field, or beside it.
std::string Contents(const FieldInfo& field) {
  const auto quoted = [](std::string_view item) { return Code(item); };
  std::string text = field.caption.empty() ? "" : Code(field.caption);
  if (!field.items.empty()) text += (text.empty() ? "" : "<br>") + Listed(field.items, quoted);
  return text;
}

void WriteFieldRow(std::ostream& out, const PageInfo& page, const FieldInfo& field) {
  const auto property = PropertyOf(page, field);
  out << "| " << Code(field.name) << " | " << NameOf(field.kind).text << " | " << Contents(field) << " | "
      << (property ? Code(*property) : "") << " | " << RemarksOn(page, field) << " |\n";
}

void WriteOrder(std::ostream& out, const char* when, const std::vector<std::string>& properties) {
  out << when << Listed(properties, Code) << ".\n";
}

}  // namespace

Json DescribeAsJson(const PageInfo& page) {
  Json json;
  json["page"] = page.name;
  json["title"] = page.title;
  json["serves"] = page.serves;
  json["fields"] = Json::array();
  for (const FieldInfo& field : page.fields) json["fields"].push_back(JsonOf(page, field));
  json["reads"] = Properties(page, page.chosen.reads);
  json["writes"] = Properties(page, page.chosen.writes);
  return json;
}

std::string DescribeAsText(const PageInfo& page) {
  std::ostringstream out;
  out << page.name << ": " << Heading(page, std::string(page.serves)) << "\n\nFields\n";
  for (const FieldInfo& field : page.fields) WriteField(out, page, field);
  out << "\nRead, in this order\n  " << Listed(Properties(page, page.chosen.reads), AsItIs)
      << "\n\nWritten when the page is applied, in this order\n  "
      << Listed(Properties(page, page.chosen.writes), AsItIs) << "\n";
  return out.str();
}

std::string DescribeAsMarkdown(const PageInfo& page) {
  std::ostringstream out;
  const std::string serves(page.serves);
  out << "# " << page.name << "\n\n"
      << Heading(page, "[" + serves + "](" + serves + ".md)")
      << "\n\n## Fields\n\n| Field | Kind | Caption, items | Property | |\n|---|---|---|---|---|\n";
  for (const FieldInfo& field : page.fields) WriteFieldRow(out, page, field);
  out << "\n## Order\n\n";
  WriteOrder(out, "Read, in this order: ", Properties(page, page.chosen.reads));
  out << "\n";
  WriteOrder(out, "Written when the page is applied, in this order: ", Properties(page, page.chosen.writes));
  return out.str();
}

}  // namespace levelwidgets
