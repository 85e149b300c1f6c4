#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/activex/identity/compiled_type_library_fixture.h>
#include <levelwidgets/activex/identity/component_classes.h>
#include <levelwidgets/activex/identity/type_library.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

CompiledTypeLibrary LibraryOf(int bits) {
  return CompiledTypeLibrary(std::string(BuildDir()) + "/type_library/levelwidgets" + std::to_string(bits) +
                             ".tlb");
}

// --- What the tables say, in the words of CompiledType, and without a look at the source text -------------

std::string ExpectedPlainType(VariantType type) {
  switch (type) {
    case VariantType::kBoolean: return "boolean";
    case VariantType::kInt16: return "short";
    case VariantType::kInt32: return "long";
    case VariantType::kSingle: return "float";
    case VariantType::kDouble: return "double";
    case VariantType::kDate: return "date";
    case VariantType::kString: return "text";
    default: return "unexpected";
  }
}

std::string ExpectedType(const MemberType& type) {
  switch (type.kind) {
    case TypeKind::kNone: return "void";
    case TypeKind::kAny: return "variant";
    case TypeKind::kPlain: return ExpectedPlainType(type.type);
    case TypeKind::kColor: return "OLE_COLOR";
    case TypeKind::kHandle: return "OLE_HANDLE";
    case TypeKind::kEnumeration: return std::string(type.enumeration->name);
    case TypeKind::kFont: return "stdole.{BEF6E003-A874-101A-8BBA-00AA00300CAB}*";
    case TypeKind::kObject: break;
  }
  if (type.Name() == "Enumerator") return "IUnknown*";
  return type.object_class ? "_" + std::string(type.Name()) + "*" : "IDispatch*";
}

std::string ExpectedValue(const Literal& literal, const MemberType& type) {
  const Variant value = literal.Value();
  if (type.kind == TypeKind::kEnumeration || type.type == VariantType::kInt32) {
    return "long " + std::to_string(ToInt32(value));
  }
  if (type.type == VariantType::kInt16) return "short " + std::to_string(ToInt16(value));
  if (type.type == VariantType::kBoolean) return ToBoolean(value) ? "boolean true" : "boolean false";
  return "text \"" + ToText(value) + "\"";
}

std::string ExpectedArguments(const ArgumentList& arguments) {
  std::string text;
  for (const ArgumentInfo& argument : arguments) {
    if (!text.empty()) text += ", ";
    text += std::string(argument.name) + (argument.output ? "" : " in") +
            (argument.by_reference ? " out" : "") + (argument.default_value ? " optional" : "") + ": " +
            ExpectedType(argument.type) + (argument.by_reference ? "*" : "");
    if (argument.default_value) text += " = " + ExpectedValue(*argument.default_value, argument.type);
  }
  return text;
}

std::string ExpectedMember(const std::string& attributes, std::string_view name, const std::string& arguments,
                           const std::string& type, std::string_view help) {
  return "  [" + attributes + "] " + std::string(name) + "(" + arguments + "): " + type + " " +
         std::string(help) + "\n";
}

// As a member of that number and name, with `flags` behind.
std::string ExpectedProperty(const ComponentClass& of, const PropertyInfo& property, int number,
                             std::string_view name, const std::string& flags) {
  const bool notifies = of.is_control && property.persisted && !property.Indexed() && !property.ReadOnly();
  const std::string behind = (notifies ? " bindable" : "") + flags;
  const std::string id = std::to_string(number);
  const std::string indices = ExpectedArguments(property.indices);
  const std::string type = ExpectedType(property.type);
  std::string text = ExpectedMember(id + " get" + behind, name, indices, type, property.help);
  if (property.ReadOnly()) return text;
  const std::string values = indices + (indices.empty() ? "" : ", ") + "(value) in: " + type;
  text += ExpectedMember(id + " put" + behind, name, values, "void", property.help);
  if (property.type.kind == TypeKind::kFont || property.type.kind == TypeKind::kObject) {
    text += ExpectedMember(id + " putref" + behind, name, values, "void", property.help);
  }
  return text;
}

std::string ExpectedInterface(const ComponentClass& of) {
  const ClassInfo& info = *of.info;
  std::string text = "interface _" + std::string(info.Name()) + " " + TextOf(of.identity->interface_id) +
                     " hidden: " + std::string(info.Help()) + "\n";
  std::string special;
  for (const PropertyInfo& property : info.Properties()) {
    const bool is_enumerator = property.name == info.EnumeratorMember();
    text += ExpectedProperty(of, property, property.number, property.name, is_enumerator ? " hidden" : "");
    if (property.name == info.DefaultMember()) {
      special = ExpectedProperty(of, property, DISPID_VALUE, "_Default", " hidden") + special;
    }
    if (is_enumerator) {
      special += ExpectedProperty(of, property, DISPID_NEWENUM, "_NewEnum", " hidden restricted");
    }
  }
  for (const MethodInfo& method : info.Methods()) {
    text += ExpectedMember(std::to_string(method.number), method.name, ExpectedArguments(method.arguments),
                           ExpectedType(method.result), method.help);
  }
  return text + special;
}

std::string ExpectedEvents(const ComponentClass& of) {
  std::string text = "interface __" + std::string(of.info->Name()) + " " + TextOf(of.identity->events_id) +
                     " hidden: Events of " + std::string(of.info->Name()) + ".\n";
  for (const EventInfo& event : of.info->Events()) {
    text += ExpectedMember(std::to_string(event.number), event.name, ExpectedArguments(event.arguments),
                           "void", event.help);
  }
  return text;
}

std::string ExpectedClass(const ComponentClass& of) {
  const std::string name(of.info->Name());
  std::string text = "class " + name + " " + TextOf(of.identity->class_id) +
                     (of.Creatable() ? " creatable" : "") + (of.is_control ? " control" : "") + ": " +
                     std::string(of.info->Help()) + "\n" + "  default _" + name + "\n";
  if (!of.info->Events().empty()) text += "  default source __" + name + "\n";
  return text;
}

std::string ExpectedEnumeration(const EnumerationInfo& enumeration) {
  std::string text = "enumeration " + std::string(enumeration.name) + " " +
                     TextOf(IdentityOfEnumeration(enumeration.name)->id) + ": \n";
  for (const EnumerationItem& item : enumeration.items) {
    text += "  " + std::string(item.name) + " = long " + std::to_string(item.value) + "\n";
  }
  return text;
}

std::map<std::string, std::string> ExpectedTypes() {
  std::map<std::string, std::string> types{
      {"OLE_COLOR", "alias OLE_COLOR {66504301-BE0F-101A-8BBB-00AA00300CAB}: \n  unsigned long\n"},
      {"OLE_HANDLE", "alias OLE_HANDLE {66504313-BE0F-101A-8BBB-00AA00300CAB}: \n  unsigned int\n"}};
  for (const ComponentClass& each : ComponentClasses()) {
    const std::string name(each.info->Name());
    types["_" + name] = ExpectedInterface(each);
    types[name] = ExpectedClass(each);
    if (!each.info->Events().empty()) types["__" + name] = ExpectedEvents(each);
    for (const EnumerationInfo* enumeration : each.info->Enumerations()) {
      types[std::string(enumeration->name)] = ExpectedEnumeration(*enumeration);
    }
  }
  return types;
}

// --- Tests ------------------------------------------------------------------------------------------------

class CompiledTypeLibraryTest : public ::testing::TestWithParam<int> {};

TEST_P(CompiledTypeLibraryTest, HasTheNameIdentifierAndVersionOfTheLibrary) {
  EXPECT_EQ(LibraryOf(GetParam()).Head(),
            "LevelWidgets {9466D224-2367-4381-9D9F-81D8788F9CF0} 1.0, language 0, " +
                std::to_string(GetParam()) + " bits, controls: LevelWidgets: flat controls for forms");
}

TEST_P(CompiledTypeLibraryTest, HasTheTypesOfTheClassTablesAndNoOthers) {
  std::vector<std::string> expected;
  for (const auto& [name, text] : ExpectedTypes()) expected.push_back(name);
  std::vector<std::string> names;
  for (const auto& [name, text] : LibraryOf(GetParam()).Types()) names.push_back(name);
  EXPECT_THAT(names, ::testing::ElementsAreArray(expected));
}

TEST_P(CompiledTypeLibraryTest, EveryTypeSaysWhatTheClassTablesSay) {
  const auto types = LibraryOf(GetParam()).Types();
  for (const auto& [name, text] : ExpectedTypes()) {
    const auto found = types.find(name);
    if (found != types.end()) EXPECT_EQ(found->second, text) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(EachBitness, CompiledTypeLibraryTest, ::testing::Values(64, 32),
                         [](const auto& info) { return std::to_string(info.param) + "Bits"; });

}  // namespace
}  // namespace levelwidgets
