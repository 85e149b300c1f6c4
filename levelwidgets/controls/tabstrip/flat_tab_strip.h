// A row of flat tabs above or below a flat page frame.
#pragma once

#include <string>
#include <vector>

#include <levelwidgets/controls/tabstrip/flat_tab_strip_layout.h>
#include <levelwidgets/frame/control_with.h>

namespace levelwidgets {

// Any value but 0 puts the tabs at the bottom.
enum ksxTabOrientationConstants : std::int32_t { ksxTabOrientationTop = 0, ksxTabOrientationBottom = 1 };

inline constexpr EnumerationItem kTabOrientations[] = {{"ksxTabOrientationTop", ksxTabOrientationTop},
                                                       {"ksxTabOrientationBottom", ksxTabOrientationBottom}};
template <>
inline constexpr EnumerationInfo kEnumerationOf<ksxTabOrientationConstants>{"ksxTabOrientationConstants",
                                                                            kTabOrientations};

// Holds no pages: the container shows and hides its controls on TabChange. Draws off the screen and copies
// the picture in one operation.
//
// Tabs count from 1. Only those that can be seen are drawn. Captions belong to the tabs 1 to TabCount; those
// of tabs taken away come back with them, and new tabs have empty ones.
class FlatTabStrip : public ControlWith<ClickEvents, DblClickEvents, KeyEvents, PointerEvents, FocusFlag> {
 public:
  static const ClassInfo& Table();
  explicit FlatTabStrip(std::shared_ptr<ControlSite> site);

  // --- Properties -------------------------------------------------------------------------------
  // Setters repaint, then notify, unless they say otherwise.

  // 0 until one is selected; beyond TabCount when tabs were taken away.
  std::int16_t SelectedTab() const { return selected_tab_; }
  // Raises "Invalid TabIndex" unless 1 <= tab <= TabCount(). A tab that is not the selected one repaints,
  // raises TabChange, then notifies.
  void SetSelectedTab(std::int16_t tab);
  ksxTabOrientationConstants Orientation() const { return orientation_; }
  // Any 16-bit value; raises 6 (overflow) for others.
  void SetOrientation(ksxTabOrientationConstants orientation);
  // What is behind the tabs.
  Color BackColor() const { return GetSurface().BackColor(); }
  void SetBackColor(Color color);
  // Colour of the captions.
  Color ForeColor() const { return GetSurface().ForeColor(); }
  void SetForeColor(Color color);
  bool Enabled() const { return GetSurface().Enabled(); }
  void SetEnabled(bool enabled);
  FontRef GetFont() const { return GetSurface().GetFont(); }
  // The captions and the height of the tabs follow the font as it is now, not its later changes.
  void SetFont(FontRef font);
  // Of every tab; any value is accepted.
  Twips TabWidth() const { return tab_width_; }
  void SetTabWidth(Twips width);
  std::int16_t TabCount() const { return tab_count_; }
  // Notifies without a repaint. Raises "Invalid TabCount" below 0.
  void SetTabCount(std::int16_t count);
  // Both raise "Invalid TabIndex" unless 1 <= index <= TabCount().
  const std::string& TabCaption(std::int16_t index) const;
  // Repaints only where the tab can be seen.
  void SetTabCaption(std::int16_t index, std::string caption);
  // Of the selected tab and the page.
  Color TabColor() const { return tab_color_; }
  void SetTabColor(Color color);
  Color InactiveTabColor() const { return inactive_tab_color_; }
  void SetInactiveTabColor(Color color);
  Color BorderColor() const { return border_color_; }
  void SetBorderColor(Color color);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }

  // --- Events -----------------------------------------------------------------------------------

  Event<std::int16_t, std::int16_t> TabChange;

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }
  void OnInitProperties() override;
  void OnResize() override;
  void OnPaint() override;
  void OnKeyDown(std::int16_t code, std::int16_t shift) override;
  void OnMouseDown(const PointerInput& input) override;

 private:
  // --- Painting ---------------------------------------------------------------------------------

  // The drawing objects are kept, each replaced with the property that it shows.
  DrawingObject BrushOf(Color color) const;
  DrawingObject BorderPen() const;
  void RebuildFont();
  void DrawTab(const TabStripLayout& layout, int tab);
  void DrawFocus(PixelRect interior, const std::string& caption);

  // --- Geometry ---------------------------------------------------------------------------------

  TabStripLayout Layout() const;

  // --- Input ------------------------------------------------------------------------------------

  std::int16_t NextTab() const;
  std::int16_t PreviousTab() const;
  void SelectByKey(std::int16_t tab);

  // --- State ------------------------------------------------------------------------------------

  Twips tab_width_;
  int band_height_ = 0;  // pixels
  std::int16_t selected_tab_ = 0;
  std::int16_t tab_count_ = 0;
  ksxTabOrientationConstants orientation_ = ksxTabOrientationTop;
  std::vector<std::string> captions_;  // as many as there have been tabs
  Color tab_color_;
  Color inactive_tab_color_;
  Color border_color_;
  PixelRect surface_;
  DrawingObject font_;
  DrawingObject pen_;
  DrawingObject back_brush_;
  DrawingObject selected_brush_;
  DrawingObject inactive_brush_;
  MemoryContext off_screen_;  // null until there is a size
};

}  // namespace levelwidgets
