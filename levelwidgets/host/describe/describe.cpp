#include <levelwidgets/host/describe/describe.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/describe/values.h>
#include <levelwidgets/host/form/form.h>

namespace levelwidgets {

namespace {

using Json = nlohmann::ordered_json;

// --- JSON ------------------------------------------------------------------------------------------

Json JsonOf(const SavedItems& items) {
  return {{"count", items.count_key}, {"prefix", items.prefix}, {"class", items.item_class().Name()}};
}

Json JsonOf(const PropertyInfo& property) {
  Json json;
  json["number"] = property.number;
  json["name"] = property.name;
  json["type"] = property.type.Name();
  json["persisted"] = property.persisted ? Json(property.name) : Json();
  json["stored_as"] = property.persisted ? Json(NameOf(property.stored_as)) : Json();
  if (property.is_collection) json["items"] = JsonOf(*property.type.object_class().SavedItems());
  json["default_new"] = JsonOfDefault(property.defaults.when_new, property.type);
  json["default_read"] = JsonOfDefault(property.defaults.when_read, property.type);
  json["default_write"] = JsonOfDefault(property.defaults.when_written, property.type);
  json["read_only"] = property.ReadOnly();
  json["indexed"] = property.Indexed();
  json["help"] = property.help;
  return json;
}

Json JsonOf(const MethodInfo& method) {
  Json arguments = Json::array();
  for (const ArgumentInfo& argument : method.arguments) {
    Json json{{"name", argument.name}, {"type", argument.type.Name()}};
    if (argument.by_reference) json["by_reference"] = true;
    if (argument.output) json["output"] = true;
    if (argument.default_value) json["default"] = JsonOfValue(argument.default_value->Value(), argument.type);
    arguments.push_back(std::move(json));
  }
  return {{"number", method.number},
          {"name", method.name},
          {"arguments", std::move(arguments)},
          {"help", method.help}};
}

Json JsonOf(const EventInfo& event) {
  Json arguments = Json::array();
  for (const ArgumentInfo& argument : event.arguments) {
    arguments.push_back(Json{
        {"name", argument.name}, {"type", argument.type.Name()}, {"by_reference", argument.by_reference}});
  }
  return {{"number", event.number}, {"name", event.name}, {"arguments", std::move(arguments)}};
}

Json JsonOf(const EnumerationInfo& enumeration) {
  Json items = Json::array();
  for (const EnumerationItem& item : enumeration.items) {
    items.push_back(Json{{"name", item.name}, {"value", item.value}});
  }
  return {{"name", enumeration.name}, {"items", std::move(items)}};
}

template <typename Member>
Json JsonOfAll(std::span<const Member> members) {
  Json list = Json::array();
  for (const Member& member : members) list.push_back(JsonOf(member));
  return list;
}

// --- Text ------------------------------------------------------------------------------------------

void WriteProperty(std::ostream& out, const PropertyInfo& property) {
  out << "  " << property.name;
  if (property.Indexed()) out << TextOfArguments(property.indices);
  out << ": " << property.type.Name();
  if (property.ReadOnly()) out << ", read-only";
  if (property.persisted && property.stored_as != property.type.type) {
    out << ", saved as " << NameOf(property.stored_as);
  }
  if (property.is_collection) out << ", saved as " << ListOfKeys(property, "") << " and so on";
  if (!property.persisted) out << ", not saved";
  if (property.persisted && property.Indexed()) {
    out << ", saved as " << property.KeyOf(1) << ", " << property.KeyOf(2) << " and so on";
  }
  out << "\n      " << property.help;
  if (HasDefault(property)) out << " Default: " << TextOfDefaults(property);
  out << "\n";
}

void WriteMethod(std::ostream& out, const MethodInfo& method) {
  out << "  " << method.name << TextOfArguments(method.arguments);
  if (!method.result.Name().empty()) out << ": " << method.result.Name();
  out << "\n      " << method.help << "\n";
}

void WriteEnumeration(std::ostream& out, const EnumerationInfo& enumeration) {
  out << "\n" << enumeration.name << "\n";
  for (const EnumerationItem& item : enumeration.items) out << "  " << item.value << " " << item.name << "\n";
}

}  // namespace

std::vector<const ClassInfo*> DescribedClasses() {
  std::vector<const ClassInfo*> classes(ControlClasses().begin(), ControlClasses().end());
  classes.insert(classes.end(), ObjectClasses().begin(), ObjectClasses().end());
  classes.insert(classes.end(), {&Font::Table(), &Form::Table(), &HostedControl::Table()});
  return classes;
}

Json DescribeAsJson(const ClassInfo& info) {
  Json enumerations = Json::array();
  for (const EnumerationInfo* enumeration : info.Enumerations()) enumerations.push_back(JsonOf(*enumeration));
  Json json;
  json["class"] = info.Name();
  if (!info.DefaultMember().empty()) json["default_member"] = info.DefaultMember();
  json["properties"] = JsonOfAll(info.Properties());
  json["methods"] = JsonOfAll(info.Methods());
  json["events"] = JsonOfAll(info.Events());
  json["enumerations"] = std::move(enumerations);
  return json;
}

std::string DescribeAsText(const ClassInfo& info) {
  std::ostringstream out;
  out << info.Name() << ": " << info.Help() << "\n";
  if (!info.DefaultMember().empty()) out << "Default member: " << info.DefaultMember() << "\n";
  out << "\nProperties\n";
  for (const PropertyInfo& property : info.Properties()) WriteProperty(out, property);
  if (!info.Methods().empty()) out << "\nMethods\n";
  for (const MethodInfo& method : info.Methods()) WriteMethod(out, method);
  if (!info.Events().empty()) out << "\nEvents\n";
  for (const EventInfo& event : info.Events()) {
    out << "  " << event.number << " " << event.name << TextOfArguments(event.arguments) << "\n      "
        << event.help << "\n";
  }
  for (const EnumerationInfo* enumeration : info.Enumerations()) WriteEnumeration(out, *enumeration);
  return out.str();
}

}  // namespace levelwidgets
