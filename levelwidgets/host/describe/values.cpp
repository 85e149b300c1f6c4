#include <levelwidgets/host/describe/values.h>

#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>

#include <levelwidgets/host/form_file/values.h>
#include <levelwidgets/host/form_file/values_date.h>

namespace levelwidgets {

namespace {

using Json = nlohmann::ordered_json;

Json JsonOfFont(const Font& font) {
  Json json;
  for (const PropertyInfo& part : Font::Table().Properties()) {
    json[std::string(part.name)] = JsonOfValue(part.get(font));
  }
  return json;
}

// The colour as form files write it, "0x00CDD9DD".
std::string TextOfColor(const Variant& value) {
  std::ostringstream text;
  text << "0x" << std::uppercase << std::hex << std::setw(8) << std::setfill('0')
       << static_cast<std::uint32_t>(ToInt32(value));
  return text.str();
}

}  // namespace

Json JsonOfValue(const Variant& value, const MemberType& type) {
  switch (value.Type()) {
    case VariantType::kBoolean: return ToBoolean(value);
    case VariantType::kInt16: return ToInt16(value);
    case VariantType::kInt32:
      if (type.IsUnsigned()) return static_cast<std::uint32_t>(ToInt32(value));
      return ToInt32(value);
    case VariantType::kSingle:
    case VariantType::kDouble: return ToDouble(value);
    case VariantType::kDate: return WriteDate(ToDate(value));
    case VariantType::kString: return ToText(value);
    case VariantType::kFont: return JsonOfFont(*ToFont(value));
    default: return nullptr;
  }
}

Json JsonOfDefault(const DefaultValue& value, const MemberType& type) {
  switch (value.kind) {
    case DefaultValue::Kind::kAmbientFont: return "ambient Font";
    case DefaultValue::Kind::kDisplayName: return "ambient DisplayName";
    case DefaultValue::Kind::kAmbientBackColor: return "ambient BackColor";
    case DefaultValue::Kind::kAmbientForeColor: return "ambient ForeColor";
    case DefaultValue::Kind::kFixed: return JsonOfValue(value.Value(), type);
    case DefaultValue::Kind::kNone: break;
  }
  return nullptr;
}

std::string TextOfDefault(const DefaultValue& value, const MemberType& type) {
  if (value.kind == DefaultValue::Kind::kNone) return "none";
  if (value.kind != DefaultValue::Kind::kFixed) return JsonOfDefault(value, type).get<std::string>();
  const Variant fixed = value.Value();
  if (type.kind == TypeKind::kColor) return TextOfColor(fixed);
  if (fixed.IsNull() || fixed.Type() == VariantType::kFont) return WriteValue(fixed, type);
  return JsonOfValue(fixed, type).dump();
}

bool HasDefault(const PropertyInfo& property) {
  return property.defaults.when_new.kind != DefaultValue::Kind::kNone;
}

std::string TextOfDefaults(const PropertyInfo& property) {
  const std::string when_new = TextOfDefault(property.defaults.when_new, property.type);
  const std::string when_read = TextOfDefault(property.defaults.when_read, property.type);
  const std::string when_written = TextOfDefault(property.defaults.when_written, property.type);
  if (when_new == when_read && when_read == when_written) return when_new;
  std::string text = "new " + when_new + ", loaded " + when_read;
  if (when_written != when_read) text += ", not saved " + when_written;
  return text;
}

std::string ListOfKeys(const PropertyInfo& collection, std::string_view quote) {
  const SavedItems& items = *collection.type.object_class().SavedItems();
  const auto quoted = [quote](std::string_view key) {
    return std::string(quote) + std::string(key) + std::string(quote);
  };
  std::string list = quoted(items.count_key);
  for (const PropertyInfo* field : items.item_class().Persisted()) {
    list += ", " + quoted(items.KeyOf(1, *field));
  }
  return list;
}

std::string TextOfArguments(const ArgumentList& arguments) {
  std::string text = "(";
  for (const ArgumentInfo& argument : arguments) {
    if (text.size() > 1) text += ", ";
    text += argument.output ? "out " : argument.by_reference ? "by reference " : "";
    text += std::string(argument.name) + ": " + std::string(argument.type.Name());
    if (argument.default_value) {
      text += " = " + JsonOfValue(argument.default_value->Value(), argument.type).dump();
    }
  }
  return text + ")";
}

std::string Code(std::string_view text) {
  if (text.empty()) return "";
  std::string code;
  for (const char c : text) code += c == '|' ? std::string("\\|") : std::string(1, c);
  return "`" + code + "`";
}

}  // namespace levelwidgets
