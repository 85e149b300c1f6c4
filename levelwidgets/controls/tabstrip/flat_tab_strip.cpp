#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>

namespace levelwidgets {

namespace {

constexpr Twips kTabWidth{1440};
constexpr std::int16_t kTabCount = 1;
constexpr Color kTabColor{0x00EFF7F7u};
constexpr Color kInactiveTabColor{0x00CEDBDEu};
constexpr Color kBorderColor{0x008C969Cu};

Variant DefaultCaption(std::int32_t tab) { return tab == 1 ? "Tab 1" : ""; }

SurfaceLook LookOf(ControlSite& site) {
  return {.back_color = site.AmbientBackColor(), .fore_color = site.AmbientForeColor(), .font = {}};
}

[[noreturn]] void Refuse(std::string_view description) {
  RaiseControlError(kInvalidTabCode, "FlatTabStrip", description);
}

}  // namespace

template <>
const EnumerationInfo& EnumerationOf<ksxTabOrientationConstants>() {
  static const EnumerationInfo info{
      "ksxTabOrientationConstants",
      {{"ksxTabOrientationTop", ksxTabOrientationTop}, {"ksxTabOrientationBottom", ksxTabOrientationBottom}}};
  return info;
}

const ClassInfo& FlatTabStrip::Table() {
  using Strip = FlatTabStrip;
  static const ClassInfo info =
      Describe<Strip>("FlatTabStrip", "A row of flat tabs above or below a flat page frame.")
          .Property("Orientation", &Strip::Orientation, &Strip::SetOrientation,
                    {.defaults = Always(std::int16_t{ksxTabOrientationTop}),
                     .stored_as = VariantType::kInt16,
                     .help = "Whether the tabs are above or below the page."})
          .Property("BackColor", &Strip::BackColor, &Strip::SetBackColor,
                    {.defaults = Always(kAmbientBackColor), .help = "Colour behind the tabs."})
          .Property("ForeColor", &Strip::ForeColor, &Strip::SetForeColor,
                    {.defaults = Always(kAmbientForeColor), .help = "Colour of the captions."})
          .Property("Enabled", &Strip::Enabled, &Strip::SetEnabled,
                    {.defaults = Always(true), .help = "Whether the tab strip takes input."})
          .Property("Font", &Strip::GetFont, &Strip::SetFont,
                    {.defaults = Always(kAmbientFont), .help = "Font of the captions."})
          .Property("TabWidth", &Strip::TabWidth, &Strip::SetTabWidth,
                    {.defaults = Always(kTabWidth), .help = "Width of every tab, in twips."})
          .Property("TabCount", &Strip::TabCount, &Strip::SetTabCount,
                    {.defaults = Always(kTabCount), .help = "How many tabs there are."})
          .Indexed("TabCaption", &Strip::TabCaption, &Strip::SetTabCaption, {"Index"},
                   {.help = "Text of the tab Index, from 1; empty for all but the first.",
                    .default_at = DefaultCaption})
          // Behind TabCount, so that what assigns in this order can select any tab.
          .Property("SelectedTab", &Strip::SelectedTab, &Strip::SetSelectedTab,
                    {.help = "The selected tab, from 1; 0 until one is selected."})
          .Property("TabColor", &Strip::TabColor, &Strip::SetTabColor,
                    {.defaults = Always(kTabColor), .help = "Colour of the selected tab and the page."})
          .Property("InactiveTabColor", &Strip::InactiveTabColor, &Strip::SetInactiveTabColor,
                    {.defaults = Always(kInactiveTabColor), .help = "Colour of the other tabs."})
          .Property("BorderColor", &Strip::BorderColor, &Strip::SetBorderColor,
                    {.defaults = Always(kBorderColor), .help = "Colour of the frames."})
          .ReadOnly("hWnd", &Strip::hWnd, "Handle of the tab strip's window.")
          .CountedBy("TabCaption", &Strip::TabCount)
          .Persisted({"BackColor", "ForeColor", "Enabled", "Font", "TabWidth", "TabCount", "TabColor",
                      "InactiveTabColor", "Orientation", "BorderColor", "TabCaption"})
          .DefaultMember("SelectedTab")
          .Event(1, "Click", &Strip::Click, {}, "Clicked.")
          .Event(2, "DblClick", &Strip::DblClick, {}, "Clicked twice.")
          .Event(3, "KeyDown", &Strip::KeyDown, kKeyArguments, "A key went down.")
          .Event(4, "KeyPress", &Strip::KeyPress, kCharacterArguments, "A character was typed.")
          .Event(5, "KeyUp", &Strip::KeyUp, kKeyArguments, "A key went up.")
          .Event(6, "MouseDown", &Strip::MouseDown, kPointerArguments, "A pointer button went down.")
          .Event(7, "MouseMove", &Strip::MouseMove, kPointerArguments, "The pointer moved.")
          .Event(8, "MouseUp", &Strip::MouseUp, kPointerArguments, "A pointer button went up.")
          .Event(9, "TabChange", &Strip::TabChange, {"PreviousTab", "NewTab"}, "Another tab was selected.")
          .DefaultSize(Twips(4800), Twips(3600))
          .Build();
  return info;
}

FlatTabStrip::FlatTabStrip(std::shared_ptr<ControlSite> site)
    : ControlWith(site, LookOf(*site)),
      tab_color_(kTabColor),
      inactive_tab_color_(kInactiveTabColor),
      border_color_(kBorderColor),
      pen_(BorderPen()),
      back_brush_(BrushOf(BackColor())),
      selected_brush_(BrushOf(tab_color_)),
      inactive_brush_(BrushOf(inactive_tab_color_)) {}

void FlatTabStrip::OnInitProperties() {
  GetSurface().SetFont(Site().AmbientFont());
  RebuildFont();
  tab_width_ = kTabWidth;
  tab_count_ = kTabCount;
  captions_ = {"Tab 1"};
}

void FlatTabStrip::SetSelectedTab(std::int16_t tab) {
  if (tab < 1 || tab > tab_count_) Refuse("Invalid TabIndex");
  if (tab == selected_tab_) return;
  const auto keep = Reference();  // the event comes before the notice
  const std::int16_t previous = std::exchange(selected_tab_, tab);
  OnPaint();
  TabChange.Raise(previous, tab);
  PropertyChanged("SelectedTab");
}

void FlatTabStrip::SetOrientation(ksxTabOrientationConstants orientation) {
  const auto stored = static_cast<ksxTabOrientationConstants>(ToInt16(std::int32_t{orientation}));
  Store("Orientation", Then::kRepaintThenNotify, orientation_, stored);
}

void FlatTabStrip::SetBackColor(Color color) {
  Assign("BackColor", Then::kRepaintThenNotify, [&] {
    GetSurface().SetBackColor(color);
    back_brush_ = BrushOf(color);
  });
}

void FlatTabStrip::SetForeColor(Color color) {
  Assign("ForeColor", Then::kRepaintThenNotify, [&] { GetSurface().SetForeColor(color); });
}

void FlatTabStrip::SetEnabled(bool enabled) {
  Assign("Enabled", Then::kRepaintThenNotify, [&] { Enable(enabled); });
}

void FlatTabStrip::SetFont(FontRef font) {
  Assign("Font", Then::kRepaintThenNotify, [&] {
    GetSurface().SetFont(std::move(font));
    RebuildFont();
  });
}

void FlatTabStrip::SetTabWidth(Twips width) {
  Store("TabWidth", Then::kRepaintThenNotify, tab_width_, width);
}

void FlatTabStrip::SetTabCount(std::int16_t count) {
  if (count < 0) Refuse("Invalid TabCount");
  Assign("TabCount", Then::kNotify, [&] {
    const auto captions = static_cast<std::size_t>(count);
    if (captions_.size() < captions) captions_.resize(captions);
    tab_count_ = count;
  });
}

const std::string& FlatTabStrip::TabCaption(std::int16_t index) const {
  if (index < 1 || index > tab_count_) Refuse("Invalid TabIndex");
  return captions_[static_cast<std::size_t>(index) - 1];
}

void FlatTabStrip::SetTabCaption(std::int16_t index, std::string caption) {
  if (index < 1 || index > tab_count_) Refuse("Invalid TabIndex");
  const Then then = Layout().CanSee(index) ? Then::kRepaintThenNotify : Then::kNotify;
  Store("TabCaption", then, captions_[static_cast<std::size_t>(index) - 1], std::move(caption));
}

void FlatTabStrip::SetTabColor(Color color) {
  Assign("TabColor", Then::kRepaintThenNotify, [&] {
    tab_color_ = color;
    selected_brush_ = BrushOf(color);
  });
}

void FlatTabStrip::SetInactiveTabColor(Color color) {
  Assign("InactiveTabColor", Then::kRepaintThenNotify, [&] {
    inactive_tab_color_ = color;
    inactive_brush_ = BrushOf(color);
  });
}

void FlatTabStrip::SetBorderColor(Color color) {
  Assign("BorderColor", Then::kRepaintThenNotify, [&] {
    border_color_ = color;
    pen_ = BorderPen();
  });
}

}  // namespace levelwidgets
