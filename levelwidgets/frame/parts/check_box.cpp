#include <levelwidgets/frame/parts/check_box.h>

#include <levelwidgets/frame/access_key.h>

namespace levelwidgets {

const ClassInfo& CheckBox::Table() {
  using Row = table::Row<CheckBox>;
  static constexpr auto data = ClassTable(
      ControlClass<CheckBox>("CheckBox", "A box with a caption that is checked or not.",
                             {Twips(1215), Twips(255)}),
      table::Properties(Row::Property<&CheckBox::BackColor, &CheckBox::SetBackColor>(
                            1, "BackColor", Always(kAmbientBackColor), "Background colour of the caption."),
                        Row::Property<&CheckBox::ForeColor, &CheckBox::SetForeColor>(
                            2, "ForeColor", Always(kAmbientForeColor), "Colour of the caption."),
                        Row::Property<&CheckBox::Enabled, &CheckBox::SetEnabled>(
                            3, "Enabled", Always(true), "Whether the check box takes input."),
                        Row::Property<&CheckBox::GetFont, &CheckBox::SetFont>(4, "Font", Always(kAmbientFont),
                                                                              "Font of the caption."),
                        Row::ReadOnly<&CheckBox::hWnd>(5, "hWnd", "Handle of the check box's window."),
                        Row::Property<&CheckBox::Caption, &CheckBox::SetCaption>(
                            6, "Caption", {.when_new = kDisplayName, .when_read = "", .when_written = ""},
                            "Text shown; \"&\" marks the access key."),
                        Row::Property<&CheckBox::Value, &CheckBox::SetValue>(7, "Value", Always(kUnchecked),
                                                                             "1 when checked, 0 when not.")),
      table::Persisted("BackColor", "ForeColor", "Enabled", "Font", "Caption", "Value"), table::Methods(),
      table::Events(
          Row::Event<&CheckBox::Click>(1, "Click", "", "Value has changed."),
          Row::Event<&CheckBox::KeyDown>(2, "KeyDown", kKeyArguments, "A key went down."),
          Row::Event<&CheckBox::KeyPress>(3, "KeyPress", kCharacterArguments, "A character was typed."),
          Row::Event<&CheckBox::KeyUp>(4, "KeyUp", kKeyArguments, "A key went up."),
          Row::Event<&CheckBox::MouseDown>(5, "MouseDown", kPointerArguments, "A pointer button went down."),
          Row::Event<&CheckBox::MouseMove>(6, "MouseMove", kPointerArguments, "The pointer moved."),
          Row::Event<&CheckBox::MouseUp>(7, "MouseUp", kPointerArguments, "A pointer button went up.")));
  static constexpr ClassInfo info(data);
  return info;
}

CheckBox::CheckBox(std::shared_ptr<ControlSite> site)
    : ControlWith(
          site,
          {.back_color = site->AmbientBackColor(), .fore_color = site->AmbientForeColor(), .font = {}}) {}

void CheckBox::OnInitProperties() {
  GetSurface().SetFont(Site().AmbientFont());
  // Directly: a name has no access key.
  caption_ = Site().DisplayName();
}

void CheckBox::SetBackColor(Color color) {
  Assign("BackColor", Then::kRepaintThenNotify, [&] { GetSurface().SetBackColor(color); });
}

void CheckBox::SetForeColor(Color color) {
  Assign("ForeColor", Then::kRepaintThenNotify, [&] { GetSurface().SetForeColor(color); });
}

void CheckBox::SetEnabled(bool enabled) {
  Assign("Enabled", Then::kRepaintThenNotify, [&] { Enable(enabled); });
}

void CheckBox::SetFont(FontRef font) {
  Assign("Font", Then::kRepaintThenNotify, [&] { GetSurface().SetFont(std::move(font)); });
}

void CheckBox::SetCaption(std::string caption) {
  Assign("Caption", Then::kRepaintThenNotify, [&] {
    caption_ = std::move(caption);
    GetSurface().SetAccessKeys(AccessKeyOf(caption_));
  });
}

void CheckBox::SetValue(std::int32_t value) {
  if (value != kUnchecked && value != kChecked) {
    throw Error(kInvalidPropertyValue, Class().QualifiedName(),
                "Value is 0 (not checked) or 1 (checked), not " + std::to_string(value));
  }
  if (value == value_) return;
  const auto keep = Reference();
  Store("Value", Then::kRepaintThenNotify, value_, value);
  Click.Raise();
}

void CheckBox::SetFocus() { GetSurface().Windows().SetFocus(hWnd()); }

}  // namespace levelwidgets
