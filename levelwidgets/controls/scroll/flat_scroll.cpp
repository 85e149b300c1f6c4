#include <levelwidgets/controls/scroll/flat_scroll.h>

#include <algorithm>

namespace levelwidgets {

namespace {

constexpr Color kBackColor{0x00EFF7F7u};
constexpr Color kForeColor{0x80000012u};  // button text
constexpr Color kButtonColor{0x00CEDBDEu};
constexpr Color kButtonColorMouseOver{0x00DEE7EFu};
constexpr Color kButtonColorPushed{0x00CEDBDEu};
constexpr Color kForeColorMouseOver{0x00FFFFFFu};
constexpr Color kForeColorPushed{0x00FFFFFFu};
constexpr std::int32_t kMax = 100;
constexpr std::int32_t kLargeChange = 3;
constexpr std::int32_t kSmallChange = 1;
constexpr std::int32_t kValue = 1;

PropertyOptions Short(Defaults defaults, std::string help) {
  return {.defaults = std::move(defaults), .stored_as = VariantType::kInt16, .help = std::move(help)};
}

}  // namespace

template <>
const EnumerationInfo& EnumerationOf<ksxOrientationConstants>() {
  static const EnumerationInfo info{"ksxOrientationConstants",
                                    {{"ksxOrientationVertical", ksxOrientationVertical},
                                     {"ksxOrientationHorizontal", ksxOrientationHorizontal}}};
  return info;
}

const ClassInfo& FlatScroll::Table() {
  using S = FlatScroll;
  static const ClassInfo info =
      Describe<S>("FlatScroll", "A flat scroll bar, vertical or horizontal.")
          .Property("BackColor", &S::BackColor, &S::SetBackColor,
                    {.defaults = Always(kBackColor), .help = "Colour of the track."})
          .Property("ForeColor", &S::ForeColor, &S::SetForeColor,
                    {.defaults = Always(kForeColor), .help = "Colour of outlines and arrows."})
          .Property("Enabled", &S::Enabled, &S::SetEnabled,
                    {.defaults = Always(true), .help = "Whether the bar takes input."})
          .ReadOnly("hWnd", &S::hWnd, "Handle of the bar's window.")
          .Property("Min", &S::Min, &S::SetMin,
                    Short({.when_new = 0, .when_read = 1, .when_written = 1}, "Lower end of the range."))
          .Property("Max", &S::Max, &S::SetMax, Short(Always(kMax), "Upper end of the range."))
          .Property(
              "Orientation", &S::Orientation, &S::SetOrientation,
              {.defaults = Always(std::int32_t{ksxOrientationVertical}), .help = "Which way the bar lies."})
          .Property("LargeChange", &S::LargeChange, &S::SetLargeChange,
                    Short(Always(kLargeChange), "What a click on the track changes Value by."))
          .Property("SmallChange", &S::SmallChange, &S::SetSmallChange,
                    Short(Always(kSmallChange), "What a click on an arrow changes Value by."))
          .Property("Value", &S::Value, &S::SetValue, Short(Always(kValue), "The position, from Min to Max."))
          .Property("ButtonColor", &S::ButtonColor, &S::SetButtonColor,
                    {.defaults = Always(kButtonColor), .help = "Fill of the arrow buttons and the thumb."})
          .Property("ButtonColorMouseOver", &S::ButtonColorMouseOver, &S::SetButtonColorMouseOver,
                    {.defaults = Always(kButtonColorMouseOver),
                     .help = "Fill of an arrow button under the pointer."})
          .Property("ButtonColorPushed", &S::ButtonColorPushed, &S::SetButtonColorPushed,
                    {.defaults = Always(kButtonColorPushed), .help = "Fill of an arrow button held down."})
          .Property("ForeColorMouseOver", &S::ForeColorMouseOver, &S::SetForeColorMouseOver,
                    {.defaults = Always(kForeColorMouseOver), .help = "Kept for the form; not drawn."})
          .Property("ForeColorPushed", &S::ForeColorPushed, &S::SetForeColorPushed,
                    {.defaults = Always(kForeColorPushed), .help = "Kept for the form; not drawn."})
          .Persisted({"BackColor", "ForeColor", "Enabled", "Min", "Max", "LargeChange", "SmallChange",
                      "Value", "ButtonColor", "ButtonColorMouseOver", "ButtonColorPushed",
                      "ForeColorMouseOver", "ForeColorPushed", "Orientation"})
          .Method("Refresh", &S::Refresh, {}, "Repaints at once.")
          .Event(1, "Change", &S::Change, {}, "Value was set, also to what it was.")
          .Event(2, "Click", &S::Click, {}, "Clicked.")
          .Event(3, "DblClick", &S::DblClick, {}, "Clicked twice.")
          .Event(4, "KeyDown", &S::KeyDown, kKeyArguments, "A key went down.")
          .Event(5, "KeyPress", &S::KeyPress, kCharacterArguments, "A character was typed.")
          .Event(6, "KeyUp", &S::KeyUp, kKeyArguments, "A key went up.")
          .Event(7, "MouseDown", &S::MouseDown, kPointerArguments,
                 "A pointer button went down, not on the thumb.")
          .Event(8, "MouseMove", &S::MouseMove, kPointerArguments, "The pointer moved.")
          .Event(9, "MouseUp", &S::MouseUp, kPointerArguments, "A pointer button went up.")
          .DefaultSize(Twips(255), Twips(1500))
          .Build();
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
    return;  // a range that admits no value leaves the thumb as it was: there is nobody here to tell
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
