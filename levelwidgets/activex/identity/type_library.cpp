#include <levelwidgets/activex/identity/type_library.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include <levelwidgets/activex/identity/component_classes.h>

namespace levelwidgets {

namespace {

constexpr int kDefaultNumber = 0;      // DISPID_VALUE
constexpr int kEnumeratorNumber = -4;  // DISPID_NEWENUM

// Of the system's own library: what a font is for containers.
constexpr Guid kFontInterfaceId = "{BEF6E003-A874-101A-8BBA-00AA00300CAB}"_guid;

// Without braces, as source text has it.
std::string BareText(const Guid& id) {
  const std::string text = TextOf(id);
  return text.substr(1, text.size() - 2);
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

std::string_view PlainTypeText(VariantType type) {
  switch (type) {
    case VariantType::kBoolean: return "VARIANT_BOOL";
    case VariantType::kInt16: return "short";
    case VariantType::kInt32: return "long";
    case VariantType::kSingle: return "float";
    case VariantType::kDouble: return "double";
    case VariantType::kDate: return "DATE";
    case VariantType::kString: return "BSTR";
    default: throw std::logic_error("no plain type");
  }
}

std::string ObjectTypeText(const MemberType& type) {
  if (!type.object_class) return "IDispatch*";
  const std::string_view name = type.object_class().Name();
  // What for-each gets is no class of the library.
  return IdentityOf(name) ? InterfaceName(name) + "*" : "IUnknown*";
}

std::string TypeText(const MemberType& type) {
  switch (type.kind) {
    case TypeKind::kNone: return "void";
    case TypeKind::kAny: return "VARIANT";
    case TypeKind::kPlain: return std::string(PlainTypeText(type.type));
    case TypeKind::kColor: return std::string(kColorTypeName);
    case TypeKind::kHandle: return std::string(kHandleTypeName);
    case TypeKind::kEnumeration: return std::string(type.enumeration->name);
    case TypeKind::kFont: return "Font*";
    case TypeKind::kObject: return ObjectTypeText(type);
  }
  throw std::logic_error("no type");
}

std::string DefaultText(const Literal& literal) {
  const Variant value = literal.Value();
  switch (value.Type()) {
    case VariantType::kBoolean: return ToBoolean(value) ? "-1" : "0";
    case VariantType::kInt16:
    case VariantType::kInt32: return std::to_string(ToInt32(value));
    case VariantType::kString: return Quoted(ToText(value));
    default: throw std::logic_error("no default of an argument has this type yet");
  }
}

std::string ArgumentText(const ArgumentInfo& argument) {
  std::string attributes = argument.output ? "out" : argument.by_reference ? "in, out" : "in";
  if (argument.default_value) {
    attributes += ", optional, defaultvalue(" + DefaultText(*argument.default_value) + ")";
  }
  return "[" + attributes + "] " + TypeText(argument.type) + (argument.by_reference ? "* " : " ") +
         std::string(argument.name);
}

// "[in] short Index, [in] long Width"
std::string ArgumentsText(const ArgumentList& arguments) {
  std::string text;
  for (const ArgumentInfo& argument : arguments) {
    if (!text.empty()) text += ", ";
    text += ArgumentText(argument);
  }
  return text;
}

// How a member appears: under its own number and name, or once more under those that containers ask for.
struct Appearance {
  int number;
  std::string_view name;
  bool hidden = false;
  bool restricted = false;
};

std::string AttributesText(const Appearance& as, std::string_view kind, bool bindable,
                           std::string_view help) {
  std::ostringstream text;
  text << "[id(" << as.number << ")";
  if (!kind.empty()) text << ", " << kind;
  if (bindable) text << ", bindable";
  if (as.restricted) text << ", restricted";
  if (as.hidden) text << ", hidden";
  text << ", helpstring(" << Quoted(help) << ")]";
  return text.str();
}

class LibraryWriter {
 public:
  std::string Write();

 private:
  void WriteEnumerations();
  void WriteInterface(const ComponentClass& of);
  void WriteProperty(const ComponentClass& of, const PropertyInfo& property, const Appearance& as);
  void WritePut(const PropertyInfo& property, const std::string& attributes, std::string_view name);
  void WriteMethod(const MethodInfo& method, const Appearance& as);
  void WriteSpecialMembers(const ComponentClass& of);
  void WriteEvents(const ComponentClass& of);
  void WriteClass(const ComponentClass& of);

  std::vector<ComponentClass> classes_ = ComponentClasses();
  std::ostringstream out_;
};

std::string LibraryWriter::Write() {
  out_ << "// Written by tools/update_docs from the class tables.\n"
       << "import \"oaidl.idl\";\n\n"
       // Only what is declared can be referred to, and by an identifier only what has one: by another name of
       // this interface, widl would count the types of the library that it reads here, and others have
       // another order.
       << "[uuid(" << BareText(kFontInterfaceId) << ")]\n"
       << "dispinterface Font {\n"
       << "  properties:\n"
       << "  methods:\n"
       << "};\n\n"
       << "[uuid(" << BareText(kLibraryId) << "), version(" << kLibraryMajor << "." << kLibraryMinor
       << "), control, helpstring(" << Quoted(kLibraryHelp) << ")]\n"
       << "library " << kLibraryName << " {\n"
       << "  importlib(\"stdole2.tlb\");\n\n"
       // Of the imported ones widl keeps what they stand for, and no name.
       << "  typedef [uuid(" << BareText(kColorTypeId) << "), public] unsigned long " << kColorTypeName
       << ";\n"
       << "  typedef [uuid(" << BareText(kHandleTypeId) << "), public] unsigned int " << kHandleTypeName
       << ";\n\n";
  for (const ComponentClass& each : classes_) {
    out_ << "  dispinterface " << InterfaceName(each.info->Name()) << ";\n";
  }
  WriteEnumerations();
  for (const ComponentClass& each : classes_) {
    WriteInterface(each);
    WriteEvents(each);
    WriteClass(each);
  }
  out_ << "}\n";
  return out_.str();
}

void LibraryWriter::WriteEnumerations() {
  std::vector<const EnumerationInfo*> all;
  for (const ComponentClass& each : classes_) {
    for (const EnumerationInfo* enumeration : each.info->Enumerations()) {
      if (std::ranges::find(all, enumeration) == all.end()) all.push_back(enumeration);
    }
  }
  std::ranges::sort(all, {}, &EnumerationInfo::name);
  for (const EnumerationInfo* enumeration : all) {
    const Guid& id = IdentityOfEnumeration(enumeration->name)->id;
    out_ << "\n  typedef [uuid(" << BareText(id) << "), v1_enum] enum " << enumeration->name << " {\n";
    for (const EnumerationItem& item : enumeration->items) {
      out_ << "    " << item.name << " = " << item.value << ",\n";
    }
    out_ << "  } " << enumeration->name << ";\n";
  }
}

void LibraryWriter::WriteInterface(const ComponentClass& of) {
  out_ << "\n  [uuid(" << BareText(of.identity->interface_id) << "), hidden, helpstring("
       << Quoted(of.info->Help()) << ")]\n"
       << "  dispinterface " << InterfaceName(of.info->Name()) << " {\n"
       << "  properties:\n"
       << "  methods:\n";
  for (const PropertyInfo& property : of.info->Properties()) {
    // For-each asks by its number; people are offered the items.
    const bool hidden = Has(property.flags, MemberFlags::kEnumerator);
    WriteProperty(of, property, {property.number, property.name, hidden});
  }
  for (const MethodInfo& method : of.info->Methods()) WriteMethod(method, {method.number, method.name});
  WriteSpecialMembers(of);
  out_ << "  };\n";
}

// What containers and languages ask for by a fixed number, besides the member that it stands for.
void LibraryWriter::WriteSpecialMembers(const ComponentClass& of) {
  const std::string_view default_member = of.info->DefaultMember();
  if (const PropertyInfo* property = of.info->FindProperty(default_member)) {
    WriteProperty(of, *property, {kDefaultNumber, "_Default", true});
  } else if (const MethodInfo* method = of.info->FindMethod(default_member)) {
    WriteMethod(*method, {kDefaultNumber, "_Default", true});
  }
  if (const PropertyInfo* items = of.info->FindProperty(of.info->EnumeratorMember())) {
    WriteProperty(of, *items, {kEnumeratorNumber, "_NewEnum", true, true});
  }
}

void LibraryWriter::WriteProperty(const ComponentClass& of, const PropertyInfo& property,
                                  const Appearance& as) {
  // Containers hear of changes of what a control saves.
  const bool bindable = of.is_control && property.persisted && !property.Indexed() && !property.ReadOnly();
  out_ << "    " << AttributesText(as, "propget", bindable, property.help) << " " << TypeText(property.type)
       << " " << as.name << "(" << ArgumentsText(property.indices) << ");\n";
  if (property.ReadOnly()) return;
  WritePut(property, AttributesText(as, "propput", bindable, property.help), as.name);
  const bool is_object = property.type.kind == TypeKind::kFont || property.type.kind == TypeKind::kObject;
  if (is_object) WritePut(property, AttributesText(as, "propputref", bindable, property.help), as.name);
}

void LibraryWriter::WritePut(const PropertyInfo& property, const std::string& attributes,
                             std::string_view name) {
  const std::string indices = ArgumentsText(property.indices);
  out_ << "    " << attributes << " void " << name << "(" << indices << (indices.empty() ? "" : ", ")
       << "[in] " << TypeText(property.type) << " NewValue);\n";
}

void LibraryWriter::WriteMethod(const MethodInfo& method, const Appearance& as) {
  out_ << "    " << AttributesText(as, "", false, method.help) << " " << TypeText(method.result) << " "
       << as.name << "(" << ArgumentsText(method.arguments) << ");\n";
}

void LibraryWriter::WriteEvents(const ComponentClass& of) {
  if (of.info->Events().empty()) return;
  out_ << "\n  [uuid(" << BareText(of.identity->events_id) << "), hidden, helpstring("
       << Quoted("Events of " + std::string(of.info->Name()) + ".") << ")]\n"
       << "  dispinterface " << EventsName(of.info->Name()) << " {\n"
       << "  properties:\n"
       << "  methods:\n";
  for (const EventInfo& event : of.info->Events()) {
    out_ << "    " << AttributesText({event.number, event.name}, "", false, event.help) << " void "
         << event.name << "(" << ArgumentsText(event.arguments) << ");\n";
  }
  out_ << "  };\n";
}

void LibraryWriter::WriteClass(const ComponentClass& of) {
  out_ << "\n  [uuid(" << BareText(of.identity->class_id) << ")" << (of.is_control ? ", control" : "")
       << (of.Creatable() ? "" : ", noncreatable") << ", helpstring(" << Quoted(of.info->Help()) << ")]\n"
       << "  coclass " << of.info->Name() << " {\n"
       << "    [default] dispinterface " << InterfaceName(of.info->Name()) << ";\n";
  if (!of.info->Events().empty()) {
    out_ << "    [default, source] dispinterface " << EventsName(of.info->Name()) << ";\n";
  }
  out_ << "  };\n";
}

}  // namespace

std::string InterfaceName(std::string_view class_name) { return "_" + std::string(class_name); }
std::string EventsName(std::string_view class_name) { return "__" + std::string(class_name); }

std::string TypeLibraryIdl() { return LibraryWriter().Write(); }

}  // namespace levelwidgets
