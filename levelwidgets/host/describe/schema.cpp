#include <limits>
#include <nlohmann/json.hpp>

#include <levelwidgets/host/describe/describe.h>
#include <levelwidgets/host/describe/values.h>
#include <levelwidgets/host/form_file/state.h>
#include <levelwidgets/host/form_file/values.h>

namespace levelwidgets {

namespace {

using Json = nlohmann::ordered_json;

constexpr char kDraft[] = "http://json-schema.org/draft-07/schema#";

Json Reference(const std::string& definition) { return {{"$ref", "#/definitions/" + definition}}; }

Json Whole(std::int64_t least, std::int64_t most) {
  return {{"type", "integer"}, {"minimum", least}, {"maximum", most}};
}

template <typename Number>
Json Whole() {
  return Whole(std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max());
}

// An item by its name or its number.
Json EnumerationSchema(const EnumerationInfo& enumeration) {
  Json values = Json::array();
  for (const EnumerationItem& item : enumeration.items) values.push_back(item.name);
  for (const EnumerationItem& item : enumeration.items) values.push_back(item.value);
  return {{"enum", std::move(values)}};
}

Json ValueSchema(const MemberType& shown, VariantType stored_as) {
  if (shown.enumeration) return EnumerationSchema(*shown.enumeration);
  if (shown.kind == TypeKind::kColor) {
    return Whole(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::uint32_t>::max());
  }
  switch (stored_as) {
    case VariantType::kBoolean: return {{"type", "boolean"}};
    case VariantType::kInt16: return Whole<std::int16_t>();
    case VariantType::kInt32: return Whole<std::int32_t>();
    case VariantType::kSingle:
    case VariantType::kDouble: return {{"type", "number"}};
    case VariantType::kDate: return Reference("Date");
    case VariantType::kString: return {{"type", "string"}};
    case VariantType::kFont: return Reference("Font");
    default: return Reference("Value");
  }
}

// What applies where the file says nothing.
std::string Otherwise(const PropertyInfo& property) {
  const DefaultValue& value = property.defaults.when_read;
  if (value.kind == DefaultValue::Kind::kNone) return "";
  std::string text = TextOfDefault(value, property.type);
  if (value.kind != DefaultValue::Kind::kFixed) text = "the form's (" + text + ")";
  if (property.type.enumeration && value.kind == DefaultValue::Kind::kFixed) {
    for (const EnumerationItem& item : property.type.enumeration->items) {
      if (item.value == ToInt32(value.Value())) text = item.name;
    }
  }
  return "\n\nDefault: `" + text + "`";
}

// Of a property of a control, or of a key of a form or a placement.
Json KeySchema(const PropertyInfo& property, VariantType stored_as) {
  Json schema = ValueSchema(property.type, stored_as);
  Json described{{"title", property.type.Name()},
                 {"description", std::string(property.help) + Otherwise(property)}};
  if (schema.contains("$ref")) {
    described["allOf"] = Json::array({std::move(schema)});  // nothing counts beside a reference
  } else {
    described.update(schema);
  }
  const DefaultValue& value = property.defaults.when_read;
  if (value.kind != DefaultValue::Kind::kFixed) return described;
  if (Json json = JsonOfValue(value.Value(), property.type); !json.is_null()) {
    described["default"] = std::move(json);
  }
  return described;
}

Json KeysSchema(const std::vector<const PropertyInfo*>& keys) {
  Json schemas = Json::object();
  for (const PropertyInfo* key : keys) {
    Json schema = KeySchema(*key, key->persisted ? key->stored_as : key->type.type);
    if (key->type.type == VariantType::kSingle) {
      const auto most = static_cast<std::int64_t>(kMostTwips.value);
      schema["minimum"] = Has(key->flags, MemberFlags::kExtent) ? 0 : -most;
      schema["maximum"] = most;
    }
    schemas[std::string(key->name)] = std::move(schema);
  }
  return schemas;
}

// A key for each index from 1 on, that of the first to be proposed.
void AddNumbered(Json& properties, Json& patterns, const Json& schema, const std::string& before,
                 const std::string& behind) {
  properties[before + "1" + behind] = schema;
  Json others = schema;
  others.erase("default");
  patterns["^" + before + "[1-9][0-9]{0,8}" + behind + "$"] = std::move(others);
}

void AddItems(Json& properties, Json& patterns, const PropertyInfo& collection) {
  const SavedItems& items = *collection.type.object_class().SavedItems();
  Json count = Whole(0, std::numeric_limits<std::int16_t>::max());
  count["description"] = "How many items there are: " + std::string(collection.help);
  count["default"] = 0;
  properties[std::string(items.count_key)] = std::move(count);
  for (const PropertyInfo* field : items.item_class().Persisted()) {
    AddNumbered(properties, patterns, KeySchema(*field, field->stored_as), std::string(items.prefix),
                std::string(field->name));
  }
}

Json ControlPropertiesSchema(const ClassInfo& control) {
  Json properties = Json::object();
  Json patterns = Json::object();
  for (const PropertyInfo* property : control.Persisted()) {
    if (property->is_collection) {
      AddItems(properties, patterns, *property);
      continue;
    }
    const Json schema = KeySchema(*property, property->stored_as);
    if (!property->Indexed()) {
      properties[std::string(property->name)] = schema;
      continue;
    }
    AddNumbered(properties, patterns, schema, std::string(property->name), "");
  }
  if (const PropertyInfo* last = control.OnlyWritten()) {
    properties[std::string(last->name)] = KeySchema(*last, last->stored_as);
  }
  Json schema{{"title", control.Name()},
              {"description", control.Help()},
              {"type", "object"},
              {"properties", properties}};
  if (!patterns.empty()) schema["patternProperties"] = patterns;
  schema["additionalProperties"] = false;
  return schema;
}

Json FontSchema() {
  Json properties = Json::object();
  Json required = Json::array();
  for (const PropertyInfo& part : Font::Table().Properties()) {
    Json schema = ValueSchema(part.type, part.stored_as);
    if (Has(part.flags, MemberFlags::kPoints)) schema["exclusiveMinimum"] = 0;
    properties[std::string(part.name)] = std::move(schema);
    if (IsRequired(part)) required.push_back(part.name);
  }
  return {{"title", "Font"},
          {"description", "A font, such as `{ Name = \"Tahoma\", Size = 8.25 }`; sizes are points."},
          {"type", "object"},
          {"properties", properties},
          {"required", required},
          {"additionalProperties", false}};
}

// The shapes of values that more than one key has.
void AddValueDefinitions(Json& definitions) {
  definitions["Font"] = FontSchema();
  // A validator sees TOML's dates as text.
  definitions["Date"] = {
      {"title", "Date"},
      {"description", "A date, such as `2024-05-31` or `2024-05-31T10:30:00`."},
      {"type", "string"},
      {"pattern", "^[0-9]{4}-[0-9]{2}-[0-9]{2}([Tt ][0-9]{2}:[0-9]{2}(:[0-9]{2}(\\.[0-9]+)?)?)?$"}};
  definitions["Null"] = {{"title", "Null"},
                         {"description", "No value, written `{ Null = true }`."},
                         {"type", "object"},
                         {"properties", {{"Null", {{"const", true}}}}},
                         {"required", Json::array({"Null"})},
                         {"additionalProperties", false}};
  definitions["Value"] = {{"title", "Value"},
                          {"description", "A value of any type; none is `{ Null = true }`."},
                          {"anyOf",
                           {{{"type", "boolean"}},
                            {{"type", "number"}},
                            {{"type", "string"}},
                            Reference("Null"),
                            Reference("Font")}}};
}

Json FormTableSchema() {
  Json properties{{"Name", {{"type", "string"}, {"description", "The form's name."}, {"default", "frmForm"}}},
                  {"Script",
                   {{"type", "string"},
                    {"minLength", 1},
                    {"description", "A Lua file beside the form, which holds its code."}}}};
  properties.update(KeysSchema(FormKeys()));
  return {{"title", "Form"},
          {"description", Form::Table().Help()},
          {"type", "object"},
          {"properties", properties},
          {"additionalProperties", false},
          {"x-taplo", {{"initKeys", {"Name", "Caption", "Width", "Height"}}}}};
}

Json ClassKeySchema(std::span<const ClassInfo* const> controls) {
  Json names = Json::array();
  Json helps = Json::array();
  for (const bool qualified : {false, true}) {
    for (const ClassInfo* control : controls) {
      names.push_back(qualified ? control->QualifiedName() : std::string(control->Name()));
      helps.push_back(control->Help());
    }
  }
  return {{"description", "What the control is."},
          {"enum", names},
          {"x-taplo", {{"docs", {{"enumValues", helps}}}}}};
}

// Checked by no branch of its own: editors that do not follow conditions propose the keys of all classes from
// it.
Json PropertiesKeySchema(std::span<const ClassInfo* const> controls) {
  Json choices = Json::array();
  for (const ClassInfo* control : controls) choices.push_back(Reference(std::string(control->Name())));
  choices.push_back(Json::object());
  return {{"type", "object"}, {"description", "What the control itself has saved."}, {"anyOf", choices}};
}

// What the class says about Properties. One condition inside the other: editors find no keys beside an
// "allOf".
Json ByClass(std::span<const ClassInfo* const> controls) {
  if (controls.empty()) return Json::object();
  const ClassInfo& control = *controls.front();
  Json schema{
      {"if",
       {{"properties", {{"Class", {{"enum", {std::string(control.Name()), control.QualifiedName()}}}}}},
        {"required", Json::array({"Class"})}}},
      {"then", {{"properties", {{"Properties", Reference(std::string(control.Name()))}}}}}};
  if (controls.size() > 1) schema["else"] = ByClass(controls.subspan(1));
  return schema;
}

Json ControlTableSchema(std::span<const ClassInfo* const> controls) {
  Json properties{
      {"Class", ClassKeySchema(controls)},
      {"Name",
       {{"type", "string"},
        {"pattern", "^[A-Za-z_][A-Za-z0-9_]*$"},
        {"description", "The control's name, another one for each: a global of the form's script."}}}};
  properties.update(KeysSchema(PlacementKeys()));
  properties["Properties"] = PropertiesKeySchema(controls);
  Json schema{{"title", "Control"},
              {"description", "A control on the form."},
              {"type", "object"},
              {"properties", properties},
              {"required", {"Class", "Name"}},
              {"additionalProperties", false},
              {"x-taplo", {{"initKeys", {"Class", "Name"}}}}};
  schema.update(ByClass(controls));
  return schema;
}

}  // namespace

Json FormSchema(std::span<const ClassInfo* const> controls) {
  Json definitions = Json::object();
  definitions["Form"] = FormTableSchema();
  definitions["Control"] = ControlTableSchema(controls);
  for (const ClassInfo* control : controls)
    definitions[std::string(control->Name())] = ControlPropertiesSchema(*control);
  AddValueDefinitions(definitions);
  return {{"$schema", kDraft},
          {"title", "LevelWidgets form file"},
          {"description",
           "A form and its controls. Lengths are twips: 1440 to the inch, 15 to the pixel at 96 dpi."},
          {"type", "object"},
          {"properties",
           {{"form", Reference("Form")}, {"control", {{"type", "array"}, {"items", Reference("Control")}}}}},
          {"required", Json::array({"form"})},
          {"additionalProperties", false},
          {"definitions", definitions}};
}

Json PropertiesSchema(const ClassInfo& control) {
  Json schema{{"$schema", kDraft}};
  schema.update(ControlPropertiesSchema(control));
  schema["definitions"] = Json::object();
  AddValueDefinitions(schema["definitions"]);
  return schema;
}

}  // namespace levelwidgets
