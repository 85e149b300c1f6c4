#include <levelwidgets/host/monkey/exceptions.h>

#include <algorithm>

namespace levelwidgets::monkey {

namespace {

const PropertyInfo* FindFlagged(const ClassInfo& info, MemberFlags flags) {
  const auto found = std::ranges::find_if(
      info.Properties(), [&](const PropertyInfo& property) { return Has(property.flags, flags); });
  return found == info.Properties().end() ? nullptr : &*found;
}

bool HasRange(const ClassInfo& info) { return FindFlagged(info, MemberFlags::kRangeValue) != nullptr; }

std::int32_t Whole(const Control& control, MemberFlags part) {
  return ToInt32(FindFlagged(control.Class(), part)->get(control));
}

constexpr MemberFlags kBounds = MemberFlags::kRangeLow | MemberFlags::kRangeHigh;
constexpr MemberFlags kValueOrBound = kBounds | MemberFlags::kRangeValue;

// Whether sums of the numbers of its range may have no room in 32 bits.
bool IsFarRange(const Control& control) {
  constexpr std::int64_t kFar = std::int64_t{1} << 29;
  return std::ranges::any_of(control.Class().Properties(), [&](const PropertyInfo& property) {
    return Has(property.flags, kValueOrBound | MemberFlags::kRangeStep) &&
           std::abs(std::int64_t{ToInt32(property.get(control))}) >= kFar;
  });
}

// The font that the control changes by itself; null for most.
FontRef FontThatChanges(const Control& control) {
  const PropertyInfo* font = FindFlagged(control.Class(), MemberFlags::kChangesUnderPointer);
  return font ? ToFont(font->get(control)) : nullptr;
}

// Whether `number` is an error of conversions, and the control or an editor in it converts.
bool ConversionRaises(const ClassInfo& info, std::int32_t number) {
  const bool is_conversions = number == kInvalidCall || number == kOverflow || number == kTypeMismatch;
  return is_conversions && FindFlagged(info, MemberFlags::kFormat | MemberFlags::kOpensEditors) != nullptr;
}

}  // namespace

bool BecomesAnother(const PropertyInfo& property) {
  return Has(property.flags, MemberFlags::kBecomesAnother);
}

bool RefusesItsOwn(const Control& control, const PropertyInfo& property) {
  if (Has(property.flags, MemberFlags::kRefusesItsOwn)) return true;
  if (Has(property.flags, MemberFlags::kRangeValue) && CannotLoadAgain(control)) return true;
  return Has(property.flags, kValueOrBound) && IsFarRange(control);
}

bool CannotLoadAgain(const Control& control) {
  const PropertyInfo* format = FindFlagged(control.Class(), MemberFlags::kFormat);
  if (format && !ToText(format->get(control)).empty()) return true;
  if (!HasRange(control.Class())) return false;
  const std::int32_t value = Whole(control, MemberFlags::kRangeValue);
  return value < Whole(control, MemberFlags::kRangeLow) || value > Whole(control, MemberFlags::kRangeHigh);
}

bool InputMayRaise(const Error& error, const Form& form) {
  return std::ranges::any_of(form.Controls(), [&](const auto& hosted) {
    const ClassInfo& info = hosted->ControlClass();
    if (ConversionRaises(info, error.Number())) return true;
    if (error.Number() == kSubscriptOutOfRange) {
      return FindFlagged(info, MemberFlags::kPicked | MemberFlags::kOpensEditors) != nullptr;
    }
    if (!HasRange(info)) return false;
    if (error.Number() == kOverflow) return IsFarRange(*hosted->GetControl());
    return error.Number() == ObjectErrorNumber(kInvalidValueCode) && error.Source() == info.QualifiedName();
  });
}

bool IsShownLater(const PropertyInfo& property) { return Has(property.flags, MemberFlags::kShownLater); }

bool LooksLate(const Control& control) { return FontThatChanges(control) != nullptr; }

bool MayLookLate(const Control& control, const std::vector<std::shared_ptr<HostedControl>>& all) {
  if (FindFlagged(control.Class(), MemberFlags::kFocusShownLater)) return true;
  return std::ranges::any_of(all, [&](const auto& hosted) {
    const auto other = hosted->GetControl();
    const FontRef font = other ? FontThatChanges(*other) : nullptr;
    return font && font == control.GetSurface().GetFont();
  });
}

}  // namespace levelwidgets::monkey
