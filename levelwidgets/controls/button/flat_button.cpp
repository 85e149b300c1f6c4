#include <levelwidgets/controls/button/flat_button.h>

#include <levelwidgets/frame/access_key.h>

namespace levelwidgets {

namespace {
constexpr Color kBackColor{0x00CDD9DDu};
constexpr Color kForeColor{0x80000012u};  // button text
constexpr Color kBackColorMouseOver{0x00D9E5E9u};
constexpr Color kBackColorPushed{0x00CDD9DDu};
constexpr Color kForeColorDisabled{0x008C969Cu};
}  // namespace

const ClassInfo& FlatButton::Table() {
  static const ClassInfo info =
      Describe<FlatButton>("FlatButton", "A flat push button with a one-line caption.")
          .Property("BackColor", &FlatButton::BackColor, &FlatButton::SetBackColor,
                    {.defaults = Always(kBackColor), .help = "Background colour."})
          .Property("ForeColor", &FlatButton::ForeColor, &FlatButton::SetForeColor,
                    {.defaults = Always(kForeColor), .help = "Colour of the caption and the frame."})
          .Property("Enabled", &FlatButton::Enabled, &FlatButton::SetEnabled,
                    {.defaults = Always(true), .help = "Whether the button takes input."})
          .Property("Font", &FlatButton::GetFont, &FlatButton::SetFont,
                    {.defaults = Always(kAmbientFont), .help = "Font of the caption."})
          .ReadOnly("hWnd", &FlatButton::hWnd, "Handle of the button's window.")
          .Property("Caption", &FlatButton::Caption, &FlatButton::SetCaption,
                    {.defaults = {.when_new = kDisplayName, .when_read = "", .when_written = ""},
                     .help = "Text shown; \"&\" marks the access key."})
          .Property("BackColorMouseOver", &FlatButton::BackColorMouseOver, &FlatButton::SetBackColorMouseOver,
                    {.defaults = Always(kBackColorMouseOver),
                     .help = "Background colour while the pointer is over the button."})
          .Property("BackColorPushed", &FlatButton::BackColorPushed, &FlatButton::SetBackColorPushed,
                    {.defaults = Always(kBackColorPushed),
                     .help = "Background colour while the left button is held down on it."})
          .Property("ForeColorDisabled", &FlatButton::ForeColorDisabled, &FlatButton::SetForeColorDisabled,
                    {.defaults = Always(kForeColorDisabled), .help = "Caption colour while disabled."})
          .Persisted({"BackColor", "ForeColor", "Enabled", "Font", "Caption", "BackColorMouseOver",
                      "BackColorPushed", "ForeColorDisabled"})
          .Event(1, "Click", &FlatButton::Click, {}, "Clicked, or its access key pressed.")
          .Event(2, "KeyDown", &FlatButton::KeyDown, kKeyArguments, "A key went down.")
          .Event(3, "KeyPress", &FlatButton::KeyPress, kCharacterArguments, "A character was typed.")
          .Event(4, "KeyUp", &FlatButton::KeyUp, kKeyArguments, "A key went up.")
          .Event(5, "MouseDown", &FlatButton::MouseDown, kPointerArguments, "A pointer button went down.")
          .Event(6, "MouseMove", &FlatButton::MouseMove, kPointerArguments, "The pointer moved.")
          .Event(7, "MouseUp", &FlatButton::MouseUp, kPointerArguments, "A pointer button went up.")
          .DefaultSize(Twips(1215), Twips(375))
          .Build();
  return info;
}

FlatButton::FlatButton(std::shared_ptr<ControlSite> site)
    : ControlWith(std::move(site), {.back_color = kBackColor, .fore_color = kForeColor, .font = {}}),
      back_color_(kBackColor),
      fore_color_(kForeColor) {}

void FlatButton::OnInitProperties() {
  GetSurface().SetFont(Site().AmbientFont());
  back_color_mouse_over_ = kBackColorMouseOver;
  back_color_pushed_ = kBackColorPushed;
  fore_color_disabled_ = kForeColorDisabled;
  // Directly: a name has no access key.
  caption_ = Site().DisplayName();
}

void FlatButton::SetBackColor(Color color) {
  Assign("BackColor", Then::kRepaintThenNotify, [&] {
    back_color_ = color;
    GetSurface().SetBackColor(color);
  });
}

void FlatButton::SetForeColor(Color color) {
  Assign("ForeColor", Then::kRepaintThenNotify, [&] {
    fore_color_ = color;
    GetSurface().SetForeColor(color);
  });
}

void FlatButton::SetEnabled(bool enabled) {
  Assign("Enabled", Then::kRepaintThenNotify, [&] {
    if (!enabled) EndFeedback();
    Enable(enabled);
  });
}

void FlatButton::SetFont(FontRef font) {
  Assign("Font", Then::kRepaintThenNotify, [&] { GetSurface().SetFont(std::move(font)); });
}

void FlatButton::SetCaption(std::string caption) {
  Assign("Caption", Then::kNotifyThenRepaint, [&] {
    caption_ = std::move(caption);
    GetSurface().SetAccessKeys(AccessKeyOf(caption_));
  });
}

void FlatButton::SetBackColorMouseOver(Color color) {
  Store("BackColorMouseOver", Then::kNotify, back_color_mouse_over_, color);
}

void FlatButton::SetBackColorPushed(Color color) {
  Store("BackColorPushed", Then::kNotify, back_color_pushed_, color);
}

void FlatButton::SetForeColorDisabled(Color color) {
  Store("ForeColorDisabled", Then::kNotify, fore_color_disabled_, color);
}

}  // namespace levelwidgets
