#include <levelwidgets/controls/label/flat_label.h>

#include <levelwidgets/frame/access_key.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

namespace {

// A new label is white on black; a loaded one takes these where nothing was saved.
constexpr Color kNewBackColor{0x00000000u};
constexpr Color kNewForeColor{0x00FFFFFFu};
constexpr Color kBackColor{0x00CEDBDEu};
constexpr Color kForeColor = kButtonText;
constexpr Color kNewBackColorMouseOver{0x00000000u};
constexpr Color kBackColorMouseOver{0x00EFF7F7u};
constexpr Color kNewBackColorPushed{0x00000000u};
constexpr Color kBackColorPushed{0x00BDCBCEu};
constexpr Color kNewForeColorMouseOver{0x009CDFF7u};
constexpr Color kForeColorMouseOver{0x00EFF7F7u};
constexpr Color kNewForeColorPushed{0x00FFFFFFu};
constexpr Color kForeColorPushed{0x00BDCBCEu};
constexpr Color kForeColorDisabled{0x008C969Cu};

constexpr Defaults Differing(Color when_new, Color otherwise) { return {when_new, otherwise, otherwise}; }

}  // namespace

const ClassInfo& FlatLabel::Table() {
  using Row = table::Row<FlatLabel>;
  static constexpr auto data = ClassTable(
      ControlClass<FlatLabel>("FlatLabel", "A one-line text label that behaves like a hyperlink.",
                              {Twips(1215), Twips(255)}),
      table::Properties(
          Row::Property<&FlatLabel::BackColor, &FlatLabel::SetBackColor>(
              1, "BackColor", Differing(kNewBackColor, kBackColor), "Background colour."),
          Row::Property<&FlatLabel::ForeColor, &FlatLabel::SetForeColor>(
              2, "ForeColor", Differing(kNewForeColor, kForeColor), "Text colour.",
              {.flags = MemberFlags::kShownLater}),
          Row::Property<&FlatLabel::Enabled, &FlatLabel::SetEnabled>(3, "Enabled", Always(true),
                                                                     "Whether the label takes input."),
          Row::Property<&FlatLabel::GetFont, &FlatLabel::SetFont>(
              4, "Font", Always(kAmbientFont), "Font of the text.",
              {.flags = MemberFlags::kChangesUnderPointer}),
          Row::Property<&FlatLabel::MouseUnderline, &FlatLabel::SetMouseUnderline>(
              5, "MouseUnderline", Always(true), "Underline the text while the pointer is over it."),
          Row::Property<&FlatLabel::Caption, &FlatLabel::SetCaption>(
              6, "Caption", {.when_new = kDisplayName, .when_read = "", .when_written = ""},
              "Text shown; \"&\" marks the access key."),
          Row::Property<&FlatLabel::Alignment, &FlatLabel::SetAlignment>(
              7, "Alignment", Always(std::int32_t{ksxLeft}), "Horizontal alignment of the text."),
          Row::Property<&FlatLabel::BackColorMouseOver, &FlatLabel::SetBackColorMouseOver>(
              8, "BackColorMouseOver", Differing(kNewBackColorMouseOver, kBackColorMouseOver),
              "Background colour while the pointer is over the label."),
          Row::Property<&FlatLabel::BackColorPushed, &FlatLabel::SetBackColorPushed>(
              9, "BackColorPushed", Differing(kNewBackColorPushed, kBackColorPushed),
              "Background colour while the left button is held down on it."),
          Row::Property<&FlatLabel::ForeColorDisabled, &FlatLabel::SetForeColorDisabled>(
              10, "ForeColorDisabled", Always(kForeColorDisabled), "Kept for the form; not drawn."),
          Row::Property<&FlatLabel::ForeColorMouseOver, &FlatLabel::SetForeColorMouseOver>(
              11, "ForeColorMouseOver", Differing(kNewForeColorMouseOver, kForeColorMouseOver),
              "Text colour while the pointer is over the label."),
          Row::Property<&FlatLabel::ForeColorPushed, &FlatLabel::SetForeColorPushed>(
              12, "ForeColorPushed", Differing(kNewForeColorPushed, kForeColorPushed),
              "Text colour while the left button is held down on it."),
          Row::ReadOnly<&FlatLabel::hWnd>(13, "hWnd", "Handle of the label's window.")),
      table::Persisted("Alignment", "BackColor", "ForeColor", "Enabled", "Font", "Caption",
                       "BackColorMouseOver", "BackColorPushed", "ForeColorDisabled", "ForeColorMouseOver",
                       "ForeColorPushed", "MouseUnderline"),
      table::Methods(Row::Method<&FlatLabel::Refresh>(14, "Refresh", "", "Repaints at once.")),
      table::Events(
          Row::Event<&FlatLabel::Click>(1, "Click", "", "Clicked, or its access key pressed."),
          Row::Event<&FlatLabel::DblClick>(2, "DblClick", "", "Clicked twice."),
          Row::Event<&FlatLabel::KeyDown>(3, "KeyDown", kKeyArguments, "A key went down."),
          Row::Event<&FlatLabel::KeyPress>(4, "KeyPress", kCharacterArguments, "A character was typed."),
          Row::Event<&FlatLabel::KeyUp>(5, "KeyUp", kKeyArguments, "A key went up."),
          Row::Event<&FlatLabel::MouseDown>(6, "MouseDown", kPointerArguments, "A pointer button went down."),
          Row::Event<&FlatLabel::MouseMove>(7, "MouseMove", kPointerArguments, "The pointer moved."),
          Row::Event<&FlatLabel::MouseUp>(8, "MouseUp", kPointerArguments, "A pointer button went up.")));
  static constexpr ClassInfo info(data);
  return info;
}

FlatLabel::FlatLabel(std::shared_ptr<ControlSite> site)
    : ControlWith(std::move(site), {.back_color = kNewBackColor, .fore_color = kNewForeColor, .font = {}}),
      back_color_(kNewBackColor),
      fore_color_(kNewForeColor) {}

void FlatLabel::OnInitProperties() {
  ShareFont(Site().AmbientFont());
  back_color_mouse_over_ = kNewBackColorMouseOver;
  back_color_pushed_ = kNewBackColorPushed;
  fore_color_mouse_over_ = kNewForeColorMouseOver;
  fore_color_pushed_ = kNewForeColorPushed;
  fore_color_disabled_ = kForeColorDisabled;
  mouse_underline_ = true;
  // Directly: a name has no access key.
  caption_ = Site().DisplayName();
}

void FlatLabel::SetBackColor(Color color) {
  Assign("BackColor", Then::kRepaintThenNotify, [&] {
    back_color_ = color;
    GetSurface().SetBackColor(color);
  });
}

void FlatLabel::SetForeColor(Color color) {
  Assign("ForeColor", Then::kNotify, [&] {
    fore_color_ = color;
    GetSurface().SetForeColor(color);
  });
}

void FlatLabel::SetEnabled(bool enabled) {
  Assign("Enabled", Then::kNotify, [&] { Enable(enabled); });
}

void FlatLabel::SetFont(FontRef font) {
  Assign("Font", Then::kRepaintThenNotify, [&] { ShareFont(std::move(font)); });
}

void FlatLabel::ShareFont(FontRef font) {
  font_underline_ = font->Underline();
  GetSurface().SetFont(std::move(font));
}

void FlatLabel::SetCaption(std::string caption) {
  Assign("Caption", Then::kRepaintThenNotify, [&] {
    caption_ = std::move(caption);
    GetSurface().SetAccessKeys(AccessKeyOf(caption_));
  });
}

void FlatLabel::SetAlignment(ksxAlignmentConstants alignment) {
  Store("Alignment", Then::kRepaint, alignment_, alignment);
}

void FlatLabel::SetBackColorMouseOver(Color color) {
  Store("BackColorMouseOver", Then::kRepaintThenNotify, back_color_mouse_over_, color);
}
void FlatLabel::SetBackColorPushed(Color color) {
  Store("BackColorPushed", Then::kRepaintThenNotify, back_color_pushed_, color);
}
void FlatLabel::SetForeColorDisabled(Color color) {
  Store("ForeColorDisabled", Then::kRepaintThenNotify, fore_color_disabled_, color);
}
void FlatLabel::SetForeColorMouseOver(Color color) {
  Store("ForeColorMouseOver", Then::kRepaintThenNotify, fore_color_mouse_over_, color);
}
void FlatLabel::SetForeColorPushed(Color color) {
  Store("ForeColorPushed", Then::kRepaintThenNotify, fore_color_pushed_, color);
}

Variant FlatLabel::Refresh() {
  GetSurface().Refresh();
  return {};
}

}  // namespace levelwidgets
