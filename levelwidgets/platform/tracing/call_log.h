// What the tracing platform's parts write their calls to. Not for use outside this folder.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <levelwidgets/platform/conversion.h>
#include <levelwidgets/platform/drawing.h>
#include <levelwidgets/platform/tracing/traced_call.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets::tracing {

class CallLog {
 public:
  bool active = false;

  // Each argument becomes one or more numbers or texts; while stopped none is looked at.
  template <typename... Args>
  void Record(const char* name, const Args&... args) {
    if (!active) return;
    TracedCall& call = calls_.emplace_back();
    call.name = name;
    (Append(call.arguments, args), ...);
  }

  void Add(TracedCall call) {
    if (active) calls_.push_back(std::move(call));
  }

  // Records the call, then makes it.
  template <typename Part, typename Result, typename... Parameters>
  Result Pass(const char* name, Part& part, Result (Part::*operation)(Parameters...),
              const std::type_identity_t<std::remove_cvref_t<Parameters>>&... args) {
    Record(name, args...);
    return (part.*operation)(args...);
  }

  std::vector<TracedCall> Take() { return std::exchange(calls_, {}); }

 private:
  using Arguments = std::vector<TraceArgument>;

  static void Append(Arguments& out, std::integral auto value) {
    out.emplace_back(static_cast<std::int64_t>(value));
  }
  template <typename Tag>
  static void Append(Arguments& out, Handle<Tag> handle) {
    Append(out, handle.value);
  }
  static void Append(Arguments& out, double value) { out.emplace_back(value); }
  static void Append(Arguments& out, Date date) { Append(out, date.days); }
  static void Append(Arguments& out, EmptyValue) { Append(out, std::string_view("Empty")); }
  static void Append(Arguments& out, NullValue) { Append(out, std::string_view("Null")); }
  static void Append(Arguments& out, const ConversionValue& value) {
    std::visit([&out](const auto& held) { Append(out, held); }, value);
  }
  static void Append(Arguments& out, std::string_view text) { out.emplace_back(std::string(text)); }
  static void Append(Arguments& out, const std::string& text) { out.emplace_back(text); }
  static void Append(Arguments& out, Color color) { Append(out, color.bits()); }
  static void Append(Arguments& out, ColorRef color) { Append(out, color.value); }
  static void Append(Arguments& out, PixelPoint point) {
    Append(out, point.x);
    Append(out, point.y);
  }
  static void Append(Arguments& out, PixelSize size) {
    Append(out, size.width);
    Append(out, size.height);
  }
  static void Append(Arguments& out, const PixelRect& rect) {
    for (int edge : {rect.left, rect.top, rect.right, rect.bottom}) Append(out, edge);
  }

  std::vector<TracedCall> calls_;
};

}  // namespace levelwidgets::tracing
