#include <levelwidgets/controls/label/flat_label.h>

#include <levelwidgets/frame/access_key.h>

namespace levelwidgets {

namespace {

// A new label is white on black; a loaded one takes these where nothing was saved.
constexpr Color kNewBackColor{0x00000000u};
constexpr Color kNewForeColor{0x00FFFFFFu};
constexpr Color kBackColor{0x00CEDBDEu};
constexpr Color kForeColor{0x80000012u};  // button text
constexpr Color kNewBackColorMouseOver{0x00000000u};
constexpr Color kBackColorMouseOver{0x00EFF7F7u};
constexpr Color kNewBackColorPushed{0x00000000u};
constexpr Color kBackColorPushed{0x00BDCBCEu};
constexpr Color kNewForeColorMouseOver{0x009CDFF7u};
constexpr Color kForeColorMouseOver{0x00EFF7F7u};
constexpr Color kNewForeColorPushed{0x00FFFFFFu};
constexpr Color kForeColorPushed{0x00BDCBCEu};
constexpr Color kForeColorDisabled{0x008C969Cu};

Defaults Differing(Color when_new, Color otherwise) { return {when_new, otherwise, otherwise}; }

}  // namespace

const ClassInfo& FlatLabel::Table() {
  static const ClassInfo info =
      Describe<FlatLabel>("FlatLabel", "A one-line text label that behaves like a hyperlink.")
          .Property("BackColor", &FlatLabel::BackColor, &FlatLabel::SetBackColor,
                    {.defaults = Differing(kNewBackColor, kBackColor), .help = "Background colour."})
          .Property("ForeColor", &FlatLabel::ForeColor, &FlatLabel::SetForeColor,
                    {.defaults = Differing(kNewForeColor, kForeColor), .help = "Text colour."})
          .Property("Enabled", &FlatLabel::Enabled, &FlatLabel::SetEnabled,
                    {.defaults = Always(true), .help = "Whether the label takes input."})
          .Property("Font", &FlatLabel::GetFont, &FlatLabel::SetFont,
                    {.defaults = Always(kAmbientFont), .help = "Font of the text."})
          .Property("MouseUnderline", &FlatLabel::MouseUnderline, &FlatLabel::SetMouseUnderline,
                    {.defaults = Always(true), .help = "Underline the text while the pointer is over it."})
          .Property("Caption", &FlatLabel::Caption, &FlatLabel::SetCaption,
                    {.defaults = {.when_new = kDisplayName, .when_read = "", .when_written = ""},
                     .help = "Text shown; \"&\" marks the access key."})
          .Property("Alignment", &FlatLabel::Alignment, &FlatLabel::SetAlignment,
                    {.defaults = Always(std::int32_t{ksxLeft}), .help = "Horizontal alignment of the text."})
          .Property("BackColorMouseOver", &FlatLabel::BackColorMouseOver, &FlatLabel::SetBackColorMouseOver,
                    {.defaults = Differing(kNewBackColorMouseOver, kBackColorMouseOver),
                     .help = "Background colour while the pointer is over the label."})
          .Property("BackColorPushed", &FlatLabel::BackColorPushed, &FlatLabel::SetBackColorPushed,
                    {.defaults = Differing(kNewBackColorPushed, kBackColorPushed),
                     .help = "Background colour while the left button is held down on it."})
          .Property("ForeColorDisabled", &FlatLabel::ForeColorDisabled, &FlatLabel::SetForeColorDisabled,
                    {.defaults = Always(kForeColorDisabled), .help = "Kept for the form; not drawn."})
          .Property("ForeColorMouseOver", &FlatLabel::ForeColorMouseOver, &FlatLabel::SetForeColorMouseOver,
                    {.defaults = Differing(kNewForeColorMouseOver, kForeColorMouseOver),
                     .help = "Text colour while the pointer is over the label."})
          .Property("ForeColorPushed", &FlatLabel::ForeColorPushed, &FlatLabel::SetForeColorPushed,
                    {.defaults = Differing(kNewForeColorPushed, kForeColorPushed),
                     .help = "Text colour while the left button is held down on it."})
          .ReadOnly("hWnd", &FlatLabel::hWnd, "Handle of the label's window.")
          .Persisted({"Alignment", "BackColor", "ForeColor", "Enabled", "Font", "Caption",
                      "BackColorMouseOver", "BackColorPushed", "ForeColorDisabled", "ForeColorMouseOver",
                      "ForeColorPushed", "MouseUnderline"})
          .Method("Refresh", &FlatLabel::Refresh, {}, "Repaints at once.")
          .Event(1, "Click", &FlatLabel::Click, {}, "Clicked, or its access key pressed.")
          .Event(2, "DblClick", &FlatLabel::DblClick, {}, "Clicked twice.")
          .Event(3, "KeyDown", &FlatLabel::KeyDown, kKeyArguments, "A key went down.")
          .Event(4, "KeyPress", &FlatLabel::KeyPress, kCharacterArguments, "A character was typed.")
          .Event(5, "KeyUp", &FlatLabel::KeyUp, kKeyArguments, "A key went up.")
          .Event(6, "MouseDown", &FlatLabel::MouseDown, kPointerArguments, "A pointer button went down.")
          .Event(7, "MouseMove", &FlatLabel::MouseMove, kPointerArguments, "The pointer moved.")
          .Event(8, "MouseUp", &FlatLabel::MouseUp, kPointerArguments, "A pointer button went up.")
          .DefaultSize(Twips(1215), Twips(255))
          .Build();
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
