#include <levelwidgets/controls/button/flat_button.h>

#include <levelwidgets/frame/access_key.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

namespace {
constexpr Color kBackColor{0x00CDD9DDu};
constexpr Color kForeColor = kButtonText;
constexpr Color kBackColorMouseOver{0x00D9E5E9u};
constexpr Color kBackColorPushed{0x00CDD9DDu};
constexpr Color kForeColorDisabled{0x008C969Cu};
}  // namespace

const ClassInfo& FlatButton::Table() {
  using Row = table::Row<FlatButton>;
  static constexpr auto data = ClassTable(
      ControlClass<FlatButton>("FlatButton", "A flat push button with a one-line caption.",
                               {Twips(1215), Twips(375)}),
      table::Properties(Row::Property<&FlatButton::BackColor, &FlatButton::SetBackColor>(
                            1, "BackColor", Always(kBackColor), "Background colour."),
                        Row::Property<&FlatButton::ForeColor, &FlatButton::SetForeColor>(
                            2, "ForeColor", Always(kForeColor), "Colour of the caption and the frame."),
                        Row::Property<&FlatButton::Enabled, &FlatButton::SetEnabled>(
                            3, "Enabled", Always(true), "Whether the button takes input."),
                        Row::Property<&FlatButton::GetFont, &FlatButton::SetFont>(
                            4, "Font", Always(kAmbientFont), "Font of the caption."),
                        Row::ReadOnly<&FlatButton::hWnd>(5, "hWnd", "Handle of the button's window."),
                        Row::Property<&FlatButton::Caption, &FlatButton::SetCaption>(
                            6, "Caption", {.when_new = kDisplayName, .when_read = "", .when_written = ""},
                            "Text shown; \"&\" marks the access key."),
                        Row::Property<&FlatButton::BackColorMouseOver, &FlatButton::SetBackColorMouseOver>(
                            7, "BackColorMouseOver", Always(kBackColorMouseOver),
                            "Background colour while the pointer is over the button."),
                        Row::Property<&FlatButton::BackColorPushed, &FlatButton::SetBackColorPushed>(
                            8, "BackColorPushed", Always(kBackColorPushed),
                            "Background colour while the left button is held down on it."),
                        Row::Property<&FlatButton::ForeColorDisabled, &FlatButton::SetForeColorDisabled>(
                            9, "ForeColorDisabled", Always(kForeColorDisabled),
                            "Caption colour while disabled.", {.flags = MemberFlags::kShownLater})),
      table::Persisted("BackColor", "ForeColor", "Enabled", "Font", "Caption", "BackColorMouseOver",
                       "BackColorPushed", "ForeColorDisabled"),
      table::Methods(),
      table::Events(
          Row::Event<&FlatButton::Click>(1, "Click", "", "Clicked, or its access key pressed."),
          Row::Event<&FlatButton::KeyDown>(2, "KeyDown", kKeyArguments, "A key went down."),
          Row::Event<&FlatButton::KeyPress>(3, "KeyPress", kCharacterArguments, "A character was typed."),
          Row::Event<&FlatButton::KeyUp>(4, "KeyUp", kKeyArguments, "A key went up."),
          Row::Event<&FlatButton::MouseDown>(5, "MouseDown", kPointerArguments,
                                             "A pointer button went down."),
          Row::Event<&FlatButton::MouseMove>(6, "MouseMove", kPointerArguments, "The pointer moved."),
          Row::Event<&FlatButton::MouseUp>(7, "MouseUp", kPointerArguments, "A pointer button went up.")));
  static constexpr ClassInfo info(data);
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
