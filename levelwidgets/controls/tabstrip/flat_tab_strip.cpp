#include <levelwidgets/controls/tabstrip/flat_tab_strip.h>

namespace levelwidgets {

namespace {

constexpr Twips kTabWidth{1440};
constexpr std::int16_t kTabCount = 1;
constexpr Color kTabColor{0x00EFF7F7u};
constexpr Color kInactiveTabColor{0x00CEDBDEu};
constexpr Color kBorderColor{0x008C969Cu};

constexpr Literal DefaultCaption(std::int32_t tab) { return tab == 1 ? "Tab 1" : ""; }

SurfaceLook LookOf(ControlSite& site) {
  return {.back_color = site.AmbientBackColor(), .fore_color = site.AmbientForeColor(), .font = {}};
}

[[noreturn]] void Refuse(std::string_view description) {
  RaiseControlError(kInvalidTabCode, "FlatTabStrip", description);
}

}  // namespace

const ClassInfo& FlatTabStrip::Table() {
  using Strip = FlatTabStrip;
  using Row = table::Row<Strip>;
  static constexpr auto data = ClassTable(
      ControlClass<Strip>("FlatTabStrip", "A row of flat tabs above or below a flat page frame.",
                          {Twips(4800), Twips(3600)}),
      table::Properties(
          Row::Property<&Strip::Orientation, &Strip::SetOrientation>(
              1, "Orientation", Always(std::int16_t{ksxTabOrientationTop}),
              "Whether the tabs are above or below the page.", {.stored_as = VariantType::kInt16}),
          Row::Property<&Strip::BackColor, &Strip::SetBackColor>(2, "BackColor", Always(kAmbientBackColor),
                                                                 "Colour behind the tabs."),
          Row::Property<&Strip::ForeColor, &Strip::SetForeColor>(3, "ForeColor", Always(kAmbientForeColor),
                                                                 "Colour of the captions."),
          Row::Property<&Strip::Enabled, &Strip::SetEnabled>(4, "Enabled", Always(true),
                                                             "Whether the tab strip takes input."),
          Row::Property<&Strip::GetFont, &Strip::SetFont>(5, "Font", Always(kAmbientFont),
                                                          "Font of the captions."),
          Row::Property<&Strip::TabWidth, &Strip::SetTabWidth>(6, "TabWidth", Always(kTabWidth),
                                                               "Width of every tab, in twips."),
          Row::Property<&Strip::TabCount, &Strip::SetTabCount>(7, "TabCount", Always(kTabCount),
                                                               "How many tabs there are.",
                                                               {.flags = MemberFlags::kShownLater}),
          Row::Indexed<&Strip::TabCaption, &Strip::SetTabCaption, &Strip::TabCount>(
              8, "TabCaption", "Index", "Text of the tab Index, from 1; empty for all but the first.",
              {.default_at = DefaultCaption}),
          // Behind TabCount, so that what assigns in this order can select any tab.
          Row::Property<&Strip::SelectedTab, &Strip::SetSelectedTab>(
              9, "SelectedTab", kNoDefault, "The selected tab, from 1; 0 until one is selected.",
              {.flags = MemberFlags::kDefault | MemberFlags::kRefusesItsOwn}),
          Row::Property<&Strip::TabColor, &Strip::SetTabColor>(10, "TabColor", Always(kTabColor),
                                                               "Colour of the selected tab and the page."),
          Row::Property<&Strip::InactiveTabColor, &Strip::SetInactiveTabColor>(
              11, "InactiveTabColor", Always(kInactiveTabColor), "Colour of the other tabs."),
          Row::Property<&Strip::BorderColor, &Strip::SetBorderColor>(12, "BorderColor", Always(kBorderColor),
                                                                     "Colour of the frames."),
          Row::ReadOnly<&Strip::hWnd>(13, "hWnd", "Handle of the tab strip's window.")),
      table::Persisted("BackColor", "ForeColor", "Enabled", "Font", "TabWidth", "TabCount", "TabColor",
                       "InactiveTabColor", "Orientation", "BorderColor", "TabCaption"),
      table::Methods(),
      table::Events(
          Row::Event<&Strip::Click>(1, "Click", "", "Clicked."),
          Row::Event<&Strip::DblClick>(2, "DblClick", "", "Clicked twice."),
          Row::Event<&Strip::KeyDown>(3, "KeyDown", kKeyArguments, "A key went down."),
          Row::Event<&Strip::KeyPress>(4, "KeyPress", kCharacterArguments, "A character was typed."),
          Row::Event<&Strip::KeyUp>(5, "KeyUp", kKeyArguments, "A key went up."),
          Row::Event<&Strip::MouseDown>(6, "MouseDown", kPointerArguments, "A pointer button went down."),
          Row::Event<&Strip::MouseMove>(7, "MouseMove", kPointerArguments, "The pointer moved."),
          Row::Event<&Strip::MouseUp>(8, "MouseUp", kPointerArguments, "A pointer button went up."),
          Row::Event<&Strip::TabChange>(9, "TabChange", "PreviousTab, NewTab", "Another tab was selected.")));
  static constexpr ClassInfo info(data);
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
