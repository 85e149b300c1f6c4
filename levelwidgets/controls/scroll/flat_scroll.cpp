#include <levelwidgets/controls/scroll/flat_scroll.h>

#include <algorithm>

#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

namespace {

constexpr Color kBackColor{0x00EFF7F7u};
constexpr Color kForeColor = kButtonText;
constexpr Color kButtonColor{0x00CEDBDEu};
constexpr Color kButtonColorMouseOver{0x00DEE7EFu};
constexpr Color kButtonColorPushed{0x00CEDBDEu};
constexpr Color kForeColorMouseOver{0x00FFFFFFu};
constexpr Color kForeColorPushed{0x00FFFFFFu};
constexpr std::int32_t kMax = 100;
constexpr std::int32_t kLargeChange = 3;
constexpr std::int32_t kSmallChange = 1;
constexpr std::int32_t kValue = 1;

}  // namespace

const ClassInfo& FlatScroll::Table() {
  using S = FlatScroll;
  using Row = table::Row<S>;
  static constexpr auto data = ClassTable(
      ControlClass<S>("FlatScroll", "A flat scroll bar, vertical or horizontal.", {Twips(255), Twips(1500)}),
      table::Properties(
          Row::Property<&S::BackColor, &S::SetBackColor>(1, "BackColor", Always(kBackColor),
                                                         "Colour of the track."),
          Row::Property<&S::ForeColor, &S::SetForeColor>(2, "ForeColor", Always(kForeColor),
                                                         "Colour of outlines and arrows."),
          Row::Property<&S::Enabled, &S::SetEnabled>(3, "Enabled", Always(true),
                                                     "Whether the bar takes input.",
                                                     {.flags = MemberFlags::kShownLater}),
          Row::ReadOnly<&S::hWnd>(4, "hWnd", "Handle of the bar's window."),
          Row::Property<&S::Min, &S::SetMin>(
              5, "Min", {.when_new = 0, .when_read = 1, .when_written = 1}, "Lower end of the range.",
              {.stored_as = VariantType::kInt16, .flags = MemberFlags::kRangeLow}),
          Row::Property<&S::Max, &S::SetMax>(
              6, "Max", Always(kMax), "Upper end of the range.",
              {.stored_as = VariantType::kInt16, .flags = MemberFlags::kRangeHigh}),
          Row::Property<&S::Orientation, &S::SetOrientation>(
              7, "Orientation", Always(std::int32_t{ksxOrientationVertical}), "Which way the bar lies."),
          Row::Property<&S::LargeChange, &S::SetLargeChange>(
              8, "LargeChange", Always(kLargeChange), "What a click on the track changes Value by.",
              {.stored_as = VariantType::kInt16, .flags = MemberFlags::kRangeStep}),
          Row::Property<&S::SmallChange, &S::SetSmallChange>(
              9, "SmallChange", Always(kSmallChange), "What a click on an arrow changes Value by.",
              {.stored_as = VariantType::kInt16, .flags = MemberFlags::kRangeStep}),
          Row::Property<&S::Value, &S::SetValue>(
              10, "Value", Always(kValue), "The position, from Min to Max.",
              {.stored_as = VariantType::kInt16, .flags = MemberFlags::kRangeValue}),
          Row::Property<&S::ButtonColor, &S::SetButtonColor>(11, "ButtonColor", Always(kButtonColor),
                                                             "Fill of the arrow buttons and the thumb."),
          Row::Property<&S::ButtonColorMouseOver, &S::SetButtonColorMouseOver>(
              12, "ButtonColorMouseOver", Always(kButtonColorMouseOver),
              "Fill of an arrow button under the pointer.", {.flags = MemberFlags::kShownLater}),
          Row::Property<&S::ButtonColorPushed, &S::SetButtonColorPushed>(
              13, "ButtonColorPushed", Always(kButtonColorPushed), "Fill of an arrow button held down.",
              {.flags = MemberFlags::kShownLater}),
          Row::Property<&S::ForeColorMouseOver, &S::SetForeColorMouseOver>(
              14, "ForeColorMouseOver", Always(kForeColorMouseOver), "Kept for the form; not drawn."),
          Row::Property<&S::ForeColorPushed, &S::SetForeColorPushed>(
              15, "ForeColorPushed", Always(kForeColorPushed), "Kept for the form; not drawn.")),
      table::Persisted("BackColor", "ForeColor", "Enabled", "Min", "Max", "LargeChange", "SmallChange",
                       "Value", "ButtonColor", "ButtonColorMouseOver", "ButtonColorPushed",
                       "ForeColorMouseOver", "ForeColorPushed", "Orientation"),
      table::Methods(Row::Method<&S::Refresh>(16, "Refresh", "", "Repaints at once.")),
      table::Events(Row::Event<&S::Change>(1, "Change", "", "Value was set, also to what it was."),
                    Row::Event<&S::Click>(2, "Click", "", "Clicked."),
                    Row::Event<&S::DblClick>(3, "DblClick", "", "Clicked twice."),
                    Row::Event<&S::KeyDown>(4, "KeyDown", kKeyArguments, "A key went down."),
                    Row::Event<&S::KeyPress>(5, "KeyPress", kCharacterArguments, "A character was typed."),
                    Row::Event<&S::KeyUp>(6, "KeyUp", kKeyArguments, "A key went up."),
                    Row::Event<&S::MouseDown>(7, "MouseDown", kPointerArguments,
                                              "A pointer button went down, not on the thumb."),
                    Row::Event<&S::MouseMove>(8, "MouseMove", kPointerArguments, "The pointer moved."),
                    Row::Event<&S::MouseUp>(9, "MouseUp", kPointerArguments, "A pointer button went up.")));
  static constexpr ClassInfo info(data);
  return info;
}

FlatScroll::FlatScroll(std::shared_ptr<ControlSite> site)
    : ControlWith(std::move(site), {.back_color = kBackColor,
                                    .fore_color = kForeColor,
                                    .font = {.name = "Marlett", .size = 9.75, .charset = kSymbolCharset}}),
      timScroll_(*this, 0, [this] { Tick(); }) {}

void FlatScroll::OnInitProperties() {
  range_.max = kMax;
  large_change_ = kLargeChange;
  small_change_ = kSmallChange;
  value_ = kValue;
  button_color_ = kButtonColor;
  button_color_mouse_over_ = kButtonColorMouseOver;
  button_color_pushed_ = kButtonColorPushed;
  fore_color_mouse_over_ = kForeColorMouseOver;
  fore_color_pushed_ = kForeColorPushed;
  UpdateThumbLength();
}

// --- Range and value -----------------------------------------------------------------------------------

void FlatScroll::SetMin(std::int32_t min) {
  const auto keep = Reference();
  range_.min = min;
  if (min > value_ && min < range_.max) SetValue(min);
  UpdateThumbLength();
}

void FlatScroll::SetMax(std::int32_t max) {
  const auto keep = Reference();
  range_.max = max;
  if (max < value_ && max > range_.min) SetValue(max);
  UpdateThumbLength();
}

void FlatScroll::SetValue(std::int32_t value) { WriteValue(value, CheckedPosition(value)); }

Twips FlatScroll::CheckedPosition(std::int32_t value) const {
  if (value < range_.min || value > range_.max) {
    RaiseControlError(kInvalidValueCode, "FlatScroll", "Invalid Value");
  }
  return layout_.PositionFor(value, range_);
}

void FlatScroll::WriteValue(std::int32_t value, Twips position) {
  const auto keep = Reference();
  Assign("Value", Then::kRepaintThenNotify, [&] {
    layout_.SetThumbPosition(position);
    value_ = value;
  });
  Change.Raise();
}

void FlatScroll::UpdateThumbLength() {
  LayOut();
  if (layout_.UpdateThumbLength(range_)) OnPaint();
}

void FlatScroll::LayOut() {
  ScreenApi& screen = GetSurface().GetPlatform().Screen();
  layout_.SetSurface({GetSurface().ScaleWidth(), GetSurface().ScaleHeight()},
                     orientation_ == ksxOrientationHorizontal, screen.TwipsPerPixelX(),
                     screen.TwipsPerPixelY());
}

void FlatScroll::OnResize() {
  LayOut();
  const std::int32_t value = std::min(value_, range_.max);
  Twips position;
  try {
    position = CheckedPosition(value);
  } catch (const Error&) {
    return;  // a range that admits no value leaves the thumb as it was: there is nobody here to notify
  }
  WriteValue(value, position);
}

void FlatScroll::SetOrientation(ksxOrientationConstants orientation) {
  Assign("Orientation", Then::kRepaintThenNotify, [&] {
    orientation_ = orientation;
    OnResize();
  });
}

void FlatScroll::SetLargeChange(std::int32_t change) {
  Store("LargeChange", Then::kNotify, large_change_, change);
}

void FlatScroll::SetSmallChange(std::int32_t change) {
  Store("SmallChange", Then::kNotify, small_change_, change);
}

// --- Looks -----------------------------------------------------------------------------------------------

void FlatScroll::SetBackColor(Color color) {
  Assign("BackColor", Then::kRepaintThenNotify, [&] { GetSurface().SetBackColor(color); });
}

void FlatScroll::SetForeColor(Color color) {
  Assign("ForeColor", Then::kRepaintThenNotify, [&] { GetSurface().SetForeColor(color); });
}

void FlatScroll::SetEnabled(bool enabled) {
  Assign("Enabled", Then::kNotify, [&] { Enable(enabled); });
}

void FlatScroll::SetButtonColor(Color color) {
  Store("ButtonColor", Then::kNotifyThenRepaint, button_color_, color);
}
void FlatScroll::SetButtonColorMouseOver(Color color) {
  Store("ButtonColorMouseOver", Then::kNotify, button_color_mouse_over_, color);
}
void FlatScroll::SetButtonColorPushed(Color color) {
  Store("ButtonColorPushed", Then::kNotify, button_color_pushed_, color);
}
void FlatScroll::SetForeColorMouseOver(Color color) {
  Store("ForeColorMouseOver", Then::kNotify, fore_color_mouse_over_, color);
}
void FlatScroll::SetForeColorPushed(Color color) {
  Store("ForeColorPushed", Then::kNotify, fore_color_pushed_, color);
}

Variant FlatScroll::Refresh() {
  GetSurface().Refresh();
  return {};
}

}  // namespace levelwidgets
