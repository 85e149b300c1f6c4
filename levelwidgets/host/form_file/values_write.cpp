#include <charconv>
#include <cmath>
#include <cstdio>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/host/form_file/values.h>
#include <levelwidgets/host/form_file/values_date.h>
#include <levelwidgets/platform/text/utf8.h>

namespace levelwidgets {

namespace {

// The shortest text that reads back as the same number.
template <typename Number>
std::string Shortest(Number number) {
  char text[64];
  const auto [end, status] = std::to_chars(text, text + sizeof text, number);
  return {text, end};
}

template <typename Number>
std::string WriteFloat(Number number, bool whole_as_integer) {
  constexpr Number kExact = 1 << 24;
  if (whole_as_integer && std::trunc(number) == number && std::fabs(number) < kExact) {
    return std::to_string(static_cast<std::int64_t>(number));
  }
  std::string text = Shortest(number);
  if (std::isfinite(number) && text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

std::string WriteColor(std::int32_t color) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(color));
  return text;
}

std::string WriteFont(const Font& font) {
  std::string text;
  for (const PropertyInfo& part : Font::Table().Properties()) {
    const Variant value = part.get(font);
    if (!IsRequired(part) && value == part.defaults.when_written.Value()) continue;
    text += (text.empty() ? "" : ", ") + std::string(part.name) + " = " + WriteValue(value, part.type);
  }
  return "{ " + text + " }";
}

void AppendEscaped(std::string& text, char c) {
  switch (c) {
    case '"': text += "\\\""; return;
    case '\\': text += "\\\\"; return;
    case '\n': text += "\\n"; return;
    case '\r': text += "\\r"; return;
    case '\t': text += "\\t"; return;
    default: break;
  }
  const auto byte = static_cast<unsigned char>(c);
  if (byte >= 0x20 && byte != 0x7F) {
    text += c;
    return;
  }
  char escape[8];
  std::snprintf(escape, sizeof escape, "\\u%04X", byte);
  text += escape;
}

}  // namespace

std::string WriteString(std::string_view text) {
  std::string written = "\"";
  while (!text.empty()) {
    const std::size_t valid = text::FindIllFormed(text).value_or(text.size());
    for (const char c : text.substr(0, valid)) AppendEscaped(written, c);
    text.remove_prefix(valid);
    if (text.empty()) break;
    written += "\xEF\xBF\xBD";
    text.remove_prefix(1);
  }
  return written + "\"";
}

std::string WriteValue(const Variant& value, const MemberType& type) {
  const bool known = type.kind != TypeKind::kNone;
  switch (value.Type()) {
    case VariantType::kNull: return "{ Null = true }";
    case VariantType::kBoolean: return ToBoolean(value) ? "true" : "false";
    case VariantType::kInt16: return std::to_string(ToInt16(value));
    case VariantType::kInt32:
      return type.kind == TypeKind::kColor ? WriteColor(ToInt32(value)) : std::to_string(ToInt32(value));
    case VariantType::kSingle:
      // Of unknown type it is read back as a double, so it is written as that.
      return known ? WriteFloat(ToSingle(value), true) : WriteFloat(ToDouble(value), false);
    case VariantType::kDouble: return WriteFloat(ToDouble(value), known);
    case VariantType::kDate: return WriteDate(ToDate(value));
    case VariantType::kString: return WriteString(ToText(value));
    case VariantType::kFont: return WriteFont(*ToFont(value));
    default: throw Error(kTypeMismatch);
  }
}

}  // namespace levelwidgets
