#include <levelwidgets/host/monkey/exceptions.h>

#include <algorithm>

namespace levelwidgets::monkey {

namespace {

struct Member {
  std::string_view control_class;
  std::string_view property;
};

constexpr Member kRefused[] = {
    {"FlatTextBox", "MultiLine"},     // read-only at run time
    {"FlatTabStrip", "SelectedTab"},  // 0 until a tab is selected, and cannot be assigned
};

constexpr Member kShownLater[] = {
    {"FlatLabel", "ForeColor"},          {"FlatButton", "ForeColorDisabled"},
    {"FlatScroll", "Enabled"},           {"FlatScroll", "ButtonColorMouseOver"},
    {"FlatScroll", "ButtonColorPushed"}, {"FlatTabStrip", "TabCount"},
};

constexpr std::string_view kScroll = "FlatScroll";

// Under the pointer a label underlines its font, often without a repaint.
constexpr std::string_view kUnderlines = "FlatLabel";

bool IsAmong(std::span<const Member> members, const ClassInfo& info, std::string_view property) {
  return std::ranges::any_of(members, [&](const Member& member) {
    return member.control_class == info.Name() && member.property == property;
  });
}

std::int32_t Whole(const Control& control, std::string_view property) {
  return ToInt32(GetByName(control, property));
}

// Whether sums of a scroll bar's numbers may have no room in 32 bits.
bool IsFarRange(const Control& control) {
  constexpr std::int64_t kFar = std::int64_t{1} << 29;
  static constexpr std::string_view kSummands[] = {"Min", "Max", "SmallChange", "LargeChange", "Value"};
  return std::ranges::any_of(
      kSummands, [&](std::string_view name) { return std::abs(std::int64_t{Whole(control, name)}) >= kFar; });
}

}  // namespace

bool RefusesItsOwn(const Control& control, std::string_view property) {
  if (IsAmong(kRefused, control.Class(), property)) return true;
  if (control.Class().Name() != kScroll) return false;
  if (property == "Value" && CannotLoadAgain(control)) return true;
  return (property == "Value" || property == "Min" || property == "Max") && IsFarRange(control);
}

bool CannotLoadAgain(const Control& control) {
  if (control.Class().Name() != kScroll) return false;
  const std::int32_t value = Whole(control, "Value");
  return value < Whole(control, "Min") || value > Whole(control, "Max");
}

bool InputMayRaise(const Error& error, const Form& form) {
  if (error.Number() == ObjectErrorNumber(kInvalidValueCode)) {
    return error.Source() == "LevelWidgets." + std::string(kScroll);
  }
  return error.Number() == kOverflow && std::ranges::any_of(form.Controls(), [](const auto& hosted) {
           return hosted->ControlClass().Name() == kScroll && IsFarRange(*hosted->GetControl());
         });
}

bool IsShownLater(const ClassInfo& info, std::string_view property) {
  return IsAmong(kShownLater, info, property);
}

bool MayLookLate(const Control& control, const std::vector<std::shared_ptr<HostedControl>>& all) {
  return std::ranges::any_of(all, [&](const auto& hosted) {
    const auto other = hosted->GetControl();
    return other && other->Class().Name() == kUnderlines &&
           other->GetSurface().GetFont() == control.GetSurface().GetFont();
  });
}

}  // namespace levelwidgets::monkey
