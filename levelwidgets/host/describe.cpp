#include <levelwidgets/host/describe.h>

#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>

#include <levelwidgets/host/form_values.h>
#include <levelwidgets/host/form_values_date.h>

namespace levelwidgets {

namespace {

using Json = nlohmann::ordered_json;

// --- JSON ------------------------------------------------------------------------------------------

Json JsonOfFont(const FontDescription& font);

Json JsonOf(const Variant& value, const TypeName& type = {}) {
  switch (value.Type()) {
    case VariantType::kBoolean: return ToBoolean(value);
    case VariantType::kInt16: return ToInt16(value);
    case VariantType::kInt32:
      if (type.name == "Color") return static_cast<std::uint32_t>(ToInt32(value));
      return ToInt32(value);
    case VariantType::kSingle:
    case VariantType::kDouble: return ToDouble(value);
    case VariantType::kDate: return WriteDate(ToDate(value));
    case VariantType::kString: return ToText(value);
    case VariantType::kFont: return JsonOfFont(ToFont(value)->Description());
    default: return nullptr;
  }
}

Json JsonOfFont(const FontDescription& font) {
  Json json;
  for (const FontField& field : FontFields()) json[std::string(field.name)] = JsonOf(field.get(font));
  return json;
}

Json JsonOf(const DefaultValue& value, const TypeName& type) {
  switch (value.kind) {
    case DefaultValue::Kind::kAmbientFont: return "ambient Font";
    case DefaultValue::Kind::kDisplayName: return "ambient DisplayName";
    case DefaultValue::Kind::kAmbientBackColor: return "ambient BackColor";
    case DefaultValue::Kind::kAmbientForeColor: return "ambient ForeColor";
    case DefaultValue::Kind::kFixed: return JsonOf(value.value, type);
    case DefaultValue::Kind::kNone: break;
  }
  return nullptr;
}

Json JsonOf(const PropertyInfo& property) {
  Json json;
  json["name"] = property.name;
  json["type"] = property.type.name;
  json["persisted"] = property.persisted ? Json(property.name) : Json();
  json["stored_as"] = property.persisted ? Json(NameOf(property.stored_as)) : Json();
  json["default_new"] = JsonOf(property.defaults.when_new, property.type);
  json["default_read"] = JsonOf(property.defaults.when_read, property.type);
  json["default_write"] = JsonOf(property.defaults.when_written, property.type);
  json["read_only"] = property.ReadOnly();
  json["indexed"] = property.Indexed();
  json["help"] = property.help;
  return json;
}

Json JsonOf(const MethodInfo& method) {
  Json arguments = Json::array();
  for (const ArgumentInfo& argument : method.arguments) {
    Json json{{"name", argument.name}, {"type", argument.type.name}};
    if (argument.default_value) json["default"] = JsonOf(*argument.default_value, argument.type);
    arguments.push_back(std::move(json));
  }
  return {{"name", method.name}, {"arguments", std::move(arguments)}, {"help", method.help}};
}

Json JsonOf(const EventInfo& event) {
  Json arguments = Json::array();
  for (const ArgumentInfo& argument : event.arguments) {
    arguments.push_back(
        Json{{"name", argument.name}, {"type", argument.type.name}, {"by_reference", argument.by_reference}});
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
Json JsonOfAll(const std::vector<Member>& members) {
  Json list = Json::array();
  for (const Member& member : members) list.push_back(JsonOf(member));
  return list;
}

// --- Text ------------------------------------------------------------------------------------------

std::string TextOf(const DefaultValue& value, const TypeName& type) {
  if (type.name == "Color" && value.kind == DefaultValue::Kind::kFixed) {
    std::ostringstream text;
    text << "0x" << std::uppercase << std::hex << std::setw(8) << std::setfill('0')
         << static_cast<std::uint32_t>(ToInt32(value.value));
    return text.str();
  }
  const Json json = JsonOf(value, type);
  return json.is_string() && value.kind != DefaultValue::Kind::kFixed ? json.get<std::string>() : json.dump();
}

std::string DefaultsOf(const PropertyInfo& property) {
  const std::string when_new = TextOf(property.defaults.when_new, property.type);
  const std::string when_read = TextOf(property.defaults.when_read, property.type);
  const std::string when_written = TextOf(property.defaults.when_written, property.type);
  if (when_new == when_read && when_read == when_written) return when_new;
  std::string text = "new " + when_new + ", loaded " + when_read;
  if (when_written != when_read) text += ", not saved " + when_written;
  return text;
}

std::string NamesOf(const std::vector<ArgumentInfo>& arguments) {
  std::string text = "(";
  for (const ArgumentInfo& argument : arguments) {
    if (text.size() > 1) text += ", ";
    text += (argument.by_reference ? "by reference " : "") + argument.name + ": " + argument.type.name;
    if (argument.default_value) text += " = " + JsonOf(*argument.default_value, argument.type).dump();
  }
  return text + ")";
}

void WriteProperty(std::ostream& out, const PropertyInfo& property) {
  out << "  " << property.name;
  if (property.Indexed()) out << NamesOf(property.indices);
  out << ": " << property.type.name;
  if (property.ReadOnly()) out << ", read-only";
  if (property.persisted && property.stored_as != property.type.type) {
    out << ", saved as " << NameOf(property.stored_as);
  }
  if (!property.persisted) out << ", not saved";
  if (property.persisted && property.Indexed()) {
    out << ", saved as " << property.KeyOf(1) << ", " << property.KeyOf(2) << " and so on";
  }
  out << "\n      " << property.help;
  if (property.defaults.when_new.kind != DefaultValue::Kind::kNone) {
    out << " Default: " << DefaultsOf(property);
  }
  out << "\n";
}

}  // namespace

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
  for (const MethodInfo& method : info.Methods()) {
    out << "  " << method.name << NamesOf(method.arguments) << "\n      " << method.help << "\n";
  }
  if (!info.Events().empty()) out << "\nEvents\n";
  for (const EventInfo& event : info.Events()) {
    out << "  " << event.number << " " << event.name << NamesOf(event.arguments) << "\n      " << event.help
        << "\n";
  }
  for (const EnumerationInfo* enumeration : info.Enumerations()) {
    out << "\n" << enumeration->name << "\n";
    for (const EnumerationItem& item : enumeration->items) {
      out << "  " << item.value << " " << item.name << "\n";
    }
  }
  return out.str();
}

}  // namespace levelwidgets
