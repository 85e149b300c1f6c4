#include <levelwidgets/host/monkey/event.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/form_file/values.h>

namespace levelwidgets::monkey {

namespace {

constexpr std::string_view kLuaWords[] = {
    "and", "break", "do",  "else", "elseif", "end",    "false",  "for",  "function", "goto",  "if",
    "in",  "local", "nil", "not",  "or",     "repeat", "return", "then", "true",     "until", "while"};

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      quoted += {'\\', c};
    } else if (byte < 0x20 || byte == 0x7F) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\%03d", byte);
      quoted += escape;
    } else {
      quoted += c;
    }
  }
  return quoted + "\"";
}

std::string Number(double value) {
  if (std::isnan(value)) return "(0/0)";
  if (std::isinf(value)) return value < 0 ? "-math.huge" : "math.huge";
  char text[40];
  std::snprintf(text, sizeof text, "%.17g", value);
  // A float stays one: what is written without a fraction is an integer.
  return std::string_view(text).find_first_of(".e") == std::string_view::npos ? text + std::string(".0")
                                                                              : text;
}

std::string FontToLua(const Font& font) {
  std::string text;
  for (const PropertyInfo& part : Font::Table().Properties()) {
    text += (text.empty() ? "" : ", ") + std::string(part.name) + " = " + ToLua(part.get(font));
  }
  return "lw.font{ " + text + " }";
}

std::string List(std::span<const Variant> values) {
  std::string text;
  for (const Variant& value : values) text += (text.empty() ? "" : ", ") + ToLua(value);
  return text;
}

std::string List(const std::vector<std::int64_t>& numbers) {
  std::string text;
  for (const std::int64_t number : numbers) text += (text.empty() ? "" : ", ") + std::to_string(number);
  return text;
}

// A control whose name means something else behind the form's is reached by the preamble's function.
std::string Owner(const std::string& control) {
  if (control.empty()) return "f";
  static constexpr std::string_view kFormMethods[] = {"add",    "close", "controls", "hide", "on",
                                                      "remove", "save",  "show",     "text"};
  const bool taken = std::ranges::find(kFormMethods, control) != std::end(kFormMethods) ||
                     std::ranges::find(kLuaWords, control) != std::end(kLuaWords) ||
                     Form::Table().FindProperty(control) || Form::Table().FindEvent(control) ||
                     Form::Table().FindMethod(control);
  return taken ? "control(" + Quoted(control) + ")" : "f." + control;
}

std::string Target(const Event& event) {
  std::string text = Owner(event.control);
  for (const PathStep& step : event.path) {
    text += "." + step.property;
    if (step.index != 0) text += "[" + std::to_string(step.index) + "]";
  }
  return text;
}

std::string Assignment(const Event& event) {
  std::string text = Target(event) + "." + event.member;
  for (std::size_t i = 0; i + 1 < event.values.size(); ++i) text += "[" + ToLua(event.values[i]) + "]";
  return text + " = " + ToLua(event.values.back());
}

std::string Addition(const Event& event) {
  const auto& at = event.numbers;
  std::string text = "f:add(" + Quoted(event.member) + ", " + Quoted(event.control) +
                     ", { Left = " + std::to_string(at[0]) + ", Top = " + std::to_string(at[1]) +
                     ", Width = " + std::to_string(at[2]) + ", Height = " + std::to_string(at[3]);
  return text + (at[4] != 0 ? ", Properties = {} })" : " })");
}

// Most invariants are of the form as a whole.
std::string Checked(const Event& event) {
  std::string text = "check(" + Quoted(event.member);
  if (!event.control.empty()) text += ", " + Owner(event.control);
  if (!event.values.empty()) text += ", " + Owner(ToText(event.values[0]));
  return text + ")";
}

std::string Which(const Event& event) { return event.numbers[0] == 0 ? "f" : "g"; }

}  // namespace

bool operator==(const Event& a, const Event& b) {
  const bool same_nested = a.nested && b.nested ? *a.nested == *b.nested : !a.nested && !b.nested;
  return same_nested && a.kind == b.kind && a.control == b.control && a.path == b.path &&
         a.member == b.member && a.values == b.values && a.numbers == b.numbers;
}

std::string ToLua(const Variant& value) {
  switch (value.Type()) {
    case VariantType::kEmpty: return "nil";
    case VariantType::kNull: return "lw.null";
    case VariantType::kBoolean: return ToBoolean(value) ? "true" : "false";
    case VariantType::kInt16:
    case VariantType::kInt32: return std::to_string(ToInt32(value));
    case VariantType::kSingle:
    case VariantType::kDouble:
    case VariantType::kDate: return Number(ToDouble(value));
    case VariantType::kString: return Quoted(std::get<std::string>(value.Get()));
    case VariantType::kFont: return FontToLua(*ToFont(value));
    case VariantType::kObject: return "nil";
  }
  return "nil";
}

std::string ToLua(const Event& event) {
  const std::string numbers = List(event.numbers);
  switch (event.kind) {
    case EventKind::kMove: return "d:move(" + numbers + ")";
    case EventKind::kMoveTo: return "d:move_to(" + Owner(event.control) + ", " + numbers + ")";
    case EventKind::kMoveToPanel: return "move_to_panel(" + Owner(event.control) + ", " + numbers + ")";
    case EventKind::kPress: return "d:press(" + numbers + ")";
    case EventKind::kRelease: return "d:release(" + numbers + ")";
    case EventKind::kDoubleClick: return "d:doubleclick()";
    case EventKind::kWheel: return "d:wheel(" + numbers + ")";
    case EventKind::kKey: return "d:key(" + numbers + ")";
    case EventKind::kKeyDown: return "d:keydown(" + numbers + ")";
    case EventKind::kKeyUp: return "d:keyup(" + numbers + ")";
    case EventKind::kType: return "d:type(" + List(event.values) + ")";
    case EventKind::kAdvance: return "d:advance(" + numbers + ")";
    case EventKind::kSet: return Assignment(event);
    case EventKind::kCall: return Target(event) + ":" + event.member + "(" + List(event.values) + ")";
    case EventKind::kPlace: return Owner(event.control) + ":Move(" + numbers + ")";
    case EventKind::kFontField:
      return Owner(event.control) + ".Font." + event.member + " = " + List(event.values);
    case EventKind::kShareFont: return Owner(event.control) + ".Font = " + Owner(event.member) + ".Font";
    case EventKind::kAdd: return Addition(event);
    case EventKind::kRemove: return "f:remove(" + Quoted(event.control) + ")";
    case EventKind::kShow: return Which(event) + ":show()";
    case EventKind::kHide: return Which(event) + ":hide()";
    case EventKind::kOnce:
      return "once(" + Owner(event.control) + ", " + Quoted(event.member) + ", function() " +
             ToLua(*event.nested) + " end)";
    case EventKind::kThrow: return "d:throw(" + Owner(event.control) + ", " + Quoted(event.member) + ")";
    case EventKind::kCheck: return Checked(event);
  }
  return "";
}

}  // namespace levelwidgets::monkey
