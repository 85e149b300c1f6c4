#include <levelwidgets/host/form_file/values.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/form_file/report.h>

namespace levelwidgets {

namespace {

using Kind = FormNode::Kind;
using Value = std::optional<Variant>;

bool IsColor(const ValueType& type) { return type.shown.kind == TypeKind::kColor; }

std::string ItemNames(const EnumerationInfo& enumeration) {
  std::string names;
  for (const EnumerationItem& item : enumeration.items) names += std::string(item.name) + ", ";
  return names;
}

// What would be right.
std::string Wanted(const ValueType& type) {
  if (type.shown.enumeration) return "one of " + ItemNames(*type.shown.enumeration) + "or its number";
  if (IsColor(type)) return "a colour, 0x00BBGGRR or 0x80000000 plus the index of a system colour";
  switch (type.stored_as) {
    case VariantType::kBoolean: return "true or false";
    case VariantType::kInt16: return "a whole number from -32768 to 32767";
    case VariantType::kInt32: return "a whole number from -2147483648 to 2147483647";
    case VariantType::kSingle: return "a length in twips, a number";
    case VariantType::kDouble: return "a number";
    case VariantType::kDate: return "a date, such as 2024-05-31 or 2024-05-31T10:30:00";
    case VariantType::kString: return "a string";
    case VariantType::kFont: return "a font, such as { Name = \"Tahoma\", Size = 8.25 }";
    default: return "a single value";
  }
}

bool IsNull(const FormNode& node) {
  if (!node.IsTable() || node.children.size() != 1) return false;
  const FormNode* null = node.Find("Null");
  return null && null->kind == Kind::kBoolean && std::get<bool>(null->scalar);
}

// The value as it stands in the text, where that is short enough to be quoted.
std::string Quoted(const FormNode& node, const FormReport& report) {
  const std::string_view text = report.Document().TextOf(node.span);
  if (node.kind == Kind::kList || (node.IsTable() && !IsNull(node)) || text.size() > 40 ||
      text.find('\n') != std::string_view::npos) {
    return "this";
  }
  return std::string(text);
}

std::string KindName(const FormNode& node) {
  switch (node.kind) {
    case Kind::kBoolean: return "a boolean";
    case Kind::kInteger: return "a number";
    case Kind::kFloat: return "a number with a fraction";
    case Kind::kString: return "a string";
    case Kind::kDate: return "a date";
    case Kind::kZonedDate: return "a date with a time zone";
    case Kind::kList: return "a list";
    case Kind::kTable: return IsNull(node) ? "Null" : "a table";
  }
  return "unknown";
}

class Reader {
 public:
  Reader(const FormNode& node, std::string_view label, const ValueType& type, FormReport& report)
      : node_(node), label_(label), type_(type), report_(report) {}

  Value Read() {
    switch (type_.stored_as) {
      case VariantType::kBoolean: return Is(Kind::kBoolean) ? Variant(std::get<bool>(node_.scalar)) : Wrong();
      case VariantType::kInt16: return Integer<std::int16_t>();
      case VariantType::kInt32: return Integer<std::int32_t>();
      case VariantType::kSingle: return Float<float>();
      case VariantType::kDouble: return Float<double>();
      case VariantType::kDate: return Is(Kind::kDate) ? Variant(std::get<Date>(node_.scalar)) : Wrong();
      case VariantType::kString:
        return Is(Kind::kString) ? Variant(std::get<std::string>(node_.scalar)) : Wrong();
      case VariantType::kFont: return node_.IsTable() && !IsNull(node_) ? Font() : Wrong();
      default: return Any();
    }
  }

 private:
  bool Is(Kind kind) const { return node_.kind == kind; }

  Value Complain(const std::string& what) {
    report_.Error(node_.span.begin,
                  std::string(label_) + " is " + Wanted(type_) + "; " + Quoted(node_, report_) + " " + what);
    return std::nullopt;
  }
  Value Wrong() { return Complain("is " + KindName(node_)); }
  Value OutOfRange() { return Complain("is out of range"); }

  template <typename Number>
  Value Integer() {
    if (Is(Kind::kString) && type_.shown.enumeration) return Item<Number>();
    if (!Is(Kind::kInteger)) return Wrong();
    const std::int64_t number = std::get<std::int64_t>(node_.scalar);
    // A system colour is a negative number of 32 bits.
    const std::int64_t highest = IsColor(type_) ? std::int64_t{std::numeric_limits<std::uint32_t>::max()}
                                                : std::int64_t{std::numeric_limits<Number>::max()};
    if (number < std::numeric_limits<Number>::min() || number > highest) return OutOfRange();
    return Variant(static_cast<Number>(number));
  }

  template <typename Number>
  Value Item() {
    const std::string& name = std::get<std::string>(node_.scalar);
    std::vector<std::string_view> names;
    for (const EnumerationItem& item : type_.shown.enumeration->items) {
      if (item.name == name) return Variant(static_cast<Number>(item.value));
      names.push_back(item.name);
    }
    return Complain("is none of them" + Suggestion(name, names));
  }

  template <typename Number>
  Value Float() {
    double number = 0;
    if (Is(Kind::kInteger)) {
      number = static_cast<double>(std::get<std::int64_t>(node_.scalar));
    } else if (Is(Kind::kFloat)) {
      number = std::get<double>(node_.scalar);
    } else {
      return Wrong();
    }
    const auto stored = static_cast<Number>(number);
    return std::isfinite(stored) ? Variant(stored) : OutOfRange();
  }

  Value Font() {
    const FontRef font = MakeFont();
    bool complete = true;
    const std::vector<std::string_view> names = levelwidgets::Font::Table().MemberNames();
    for (const PropertyInfo& part : levelwidgets::Font::Table().Properties()) {
      complete &= ReadFontPart(part, *font);
    }
    for (const FormNode& child : node_.children) {
      if (std::ranges::find(names, child.key) != names.end()) continue;
      report_.Warning(child.key_span.begin,
                      "a font has no key \"" + child.key + "\"" + Suggestion(child.key, names));
    }
    return complete ? Value(font) : std::nullopt;
  }

  bool ReadFontPart(const PropertyInfo& part, levelwidgets::Font& font) {
    const FormNode* child = node_.Find(part.name);
    const std::string label = std::string(label_) + "." + std::string(part.name);
    if (!child) {
      if (IsRequired(part)) report_.Error(node_.span.begin, label + " is missing");
      return !IsRequired(part);
    }
    const Value value = ReadValue(*child, label, TypeOf(part), report_);
    if (!value) return false;
    try {
      part.set(font, *value);
      return true;
    } catch (const Error&) {  // only a size can be refused
      report_.Error(child->span.begin, label + " is more than 0; " + Quoted(*child, report_) + " is not");
      return false;
    }
  }

  Value Any() {
    switch (node_.kind) {
      case Kind::kBoolean: return std::get<bool>(node_.scalar);
      case Kind::kInteger: return AnyInteger();
      case Kind::kFloat: return std::get<double>(node_.scalar);
      case Kind::kString: return std::get<std::string>(node_.scalar);
      case Kind::kDate: return std::get<Date>(node_.scalar);
      case Kind::kTable: return IsNull(node_) ? Value(Null{}) : AnyFont();
      default: return Wrong();
    }
  }

  Value AnyInteger() {
    const std::int64_t number = std::get<std::int64_t>(node_.scalar);
    if (number == static_cast<std::int32_t>(number)) return static_cast<std::int32_t>(number);
    return static_cast<double>(number);
  }

  Value AnyFont() {
    if (!node_.Find("Name") && !node_.Find("Size")) return Wrong();
    return Reader(node_, label_, {MemberTypeOf<FontRef>(), VariantType::kFont}, report_).Read();
  }

  const FormNode& node_;
  std::string_view label_;
  ValueType type_;
  FormReport& report_;
};

}  // namespace

std::optional<Variant> ReadValue(const FormNode& node, std::string_view label, const ValueType& type,
                                 FormReport& report) {
  return Reader(node, label, type, report).Read();
}

std::optional<Variant> ReadUntyped(const FormNode& node, const FormDocument& document) {
  FormReport unheard(document, "");
  return Reader(node, "", {MemberTypeOf<Variant>(), VariantType::kEmpty}, unheard).Read();
}

std::optional<std::string> ReadString(const FormNode& node, std::string_view label, FormReport& report) {
  const auto value = ReadValue(node, label, {MemberTypeOf<std::string>(), VariantType::kString}, report);
  return value ? std::optional(ToText(*value)) : std::nullopt;
}

}  // namespace levelwidgets
