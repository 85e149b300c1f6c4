// A scroll bar, vertical or horizontal, with arrow buttons, a track and a thumb.
#pragma once

#include <levelwidgets/controls/scroll/flat_scroll_layout.h>
#include <levelwidgets/frame/control_with.h>
#include <levelwidgets/frame/hover.h>
#include <levelwidgets/frame/parts/timer.h>

namespace levelwidgets {

enum ksxOrientationConstants : std::int32_t { ksxOrientationVertical = 0, ksxOrientationHorizontal = 1 };

inline constexpr EnumerationItem kOrientations[] = {{"ksxOrientationVertical", ksxOrientationVertical},
                                                    {"ksxOrientationHorizontal", ksxOrientationHorizontal}};
template <>
inline constexpr EnumerationInfo kEnumerationOf<ksxOrientationConstants>{"ksxOrientationConstants",
                                                                         kOrientations};

// The arrow buttons step by SmallChange, the track pages by LargeChange, both again while held; the thumb can
// be dragged. Every change raises Change, also one to the same value. Keys are passed on and do not move the
// bar.
//
// Only Value is validated. Min, Max and the steps take any 32-bit value; where their sums do not fit 32 bits,
// 6 (overflow) is raised. They are saved as 16-bit integers.
class FlatScroll : public ControlWith<ClickEvents, DblClickEvents, KeyEvents, PointerEvents> {
 public:
  static const ClassInfo& Table();
  explicit FlatScroll(std::shared_ptr<ControlSite> site);

  // --- Properties -------------------------------------------------------------------------------

  // The track. Repaints, then notifies.
  Color BackColor() const { return GetSurface().BackColor(); }
  void SetBackColor(Color color);
  // Outlines and arrows. Repaints, then notifies.
  Color ForeColor() const { return GetSurface().ForeColor(); }
  void SetForeColor(Color color);
  // Notifies; no repaint.
  bool Enabled() const { return GetSurface().Enabled(); }
  void SetEnabled(bool enabled);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }
  // Moves Value along when they pass it, as long as the range is not inverted; recompute the thumb's length.
  // Notify nobody.
  std::int32_t Min() const { return range_.min; }
  void SetMin(std::int32_t min);
  std::int32_t Max() const { return range_.max; }
  void SetMax(std::int32_t max);
  // Lays out, repaints, then notifies. Any other value than ksxOrientationHorizontal is vertical.
  ksxOrientationConstants Orientation() const { return orientation_; }
  void SetOrientation(ksxOrientationConstants orientation);
  std::int32_t LargeChange() const { return large_change_; }
  void SetLargeChange(std::int32_t change);
  std::int32_t SmallChange() const { return small_change_; }
  void SetSmallChange(std::int32_t change);
  // Raises 1002 "Invalid Value" outside Min to Max. Repaints, notifies, and raises Change.
  std::int32_t Value() const { return value_; }
  void SetValue(std::int32_t value);
  // The fill of the buttons and the thumb. Notifies, then repaints.
  Color ButtonColor() const { return button_color_; }
  void SetButtonColor(Color color);
  // Those of passing states notify only.
  Color ButtonColorMouseOver() const { return button_color_mouse_over_; }
  void SetButtonColorMouseOver(Color color);
  Color ButtonColorPushed() const { return button_color_pushed_; }
  void SetButtonColorPushed(Color color);
  // Kept and saved; the drawing does not use them.
  Color ForeColorMouseOver() const { return fore_color_mouse_over_; }
  void SetForeColorMouseOver(Color color);
  Color ForeColorPushed() const { return fore_color_pushed_; }
  void SetForeColorPushed(Color color);

  // --- Methods ----------------------------------------------------------------------------------

  // Repaints at once. Returns an empty value.
  Variant Refresh();
  // Moves Value by `change`, at most to the end of the range. A Value that stays, and an inverted range,
  // raise nothing.
  void ScrollBy(std::int32_t change);

  // --- Events -----------------------------------------------------------------------------------

  Event<> Change;

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnInitialize() override { action_ = Action::kNone; }
  void OnInitProperties() override;
  void OnResize() override;
  void OnPaint() override;
  void OnMouseDown(const PointerInput& input) override;
  void OnMouseMove(const PointerInput& input) override;
  void OnMouseUp(const PointerInput& input) override;

 private:
  // The action that the held mouse button repeats.
  enum class Action { kNone, kPageBack, kStepBack, kPageForward, kStepForward, kDragThumb };
  enum class ButtonState { kNone, kFirstMouseOver, kSecondMouseOver, kFirstPushed, kSecondPushed };

  // --- Painting ---------------------------------------------------------------------------------

  void PaintButton(PixelRect box, std::string_view glyph, ButtonState mouse_over, ButtonState pushed);

  // --- Input ------------------------------------------------------------------------------------

  void PressThumb(const PointerInput& input);
  void Repeat(Action action);
  void Tick();
  void Drag(const PointerInput& input);
  void Hover(TwipPoint at);
  void ShowButtonState(ButtonState state);
  void WriteWhenDifferent(std::int32_t value);
  Twips PointerAlong() const;

  // --- Geometry and state -----------------------------------------------------------------------

  void LayOut();
  void UpdateThumbLength();
  // Where `value` puts the thumb; raises what SetValue raises.
  Twips CheckedPosition(std::int32_t value) const;
  void WriteValue(std::int32_t value, Twips position);

  FlatScrollLayout layout_;
  ScrollRange range_;
  std::int32_t large_change_ = 0;
  std::int32_t small_change_ = 0;
  std::int32_t value_ = 0;
  ksxOrientationConstants orientation_ = ksxOrientationVertical;
  Color button_color_;
  Color button_color_mouse_over_;
  Color button_color_pushed_;
  Color fore_color_mouse_over_;
  Color fore_color_pushed_;
  Action action_ = Action::kNone;
  ButtonState button_state_ = ButtonState::kNone;
  Twips drag_anchor_{-1};  // below 0: no drag
  std::int32_t value_at_press_ = 0;
  Timer timScroll_;
};

}  // namespace levelwidgets
