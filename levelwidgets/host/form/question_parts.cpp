#include <levelwidgets/host/form/question_parts.h>

#include <levelwidgets/host/form/form_scale.h>

namespace levelwidgets {

std::string CaptionOf(std::string_view text) {
  std::string caption;
  for (const char c : text) caption += c == '&' ? "&&" : std::string(1, c);
  return caption;
}

void SetSteadyColors(FlatLabel& label, Color back, Color fore) {
  label.SetForeColor(fore);
  label.SetForeColorMouseOver(fore);
  label.SetForeColorPushed(fore);
  label.SetBackColorMouseOver(back);
  label.SetBackColorPushed(back);
  label.SetBackColor(back);
}

FlatLabel& AddText(Form& form, const std::string& name, std::string_view text, const Placement& place) {
  FlatLabel& label = form.Add<FlatLabel>(name, place);
  form.Find(name)->SetTabStop(false);
  label.SetMouseUnderline(false);
  // A new label has a colour for dark forms.
  SetSteadyColors(label, form.BackColor(), kButtonText);
  label.SetCaption(CaptionOf(text));
  return label;
}

void AddFrame(Form& form, const std::string& name, const Placement& around) {
  const FormScale scale(form.GetPlatform().Screen());
  const Twips across = scale.TwipsX(1), down = scale.TwipsY(1);
  const auto& [at, size] = around;
  FlatLabel& frame = AddText(
      form, name, "",
      {{at.x - across, at.y - down}, TwipSize{size->width + across + across, size->height + down + down}});
  SetSteadyColors(frame, kWindowFrame, kWindowFrame);
  form.Find(name)->ZOrder(1);
}

FlatButton& AddButton(Form& form, const std::string& name, const std::string& caption,
                      const Placement& place) {
  FlatButton& button = form.Add<FlatButton>(name, place);
  button.SetBackColor(kButtonFace);
  button.SetBackColorPushed(kButtonFace);
  button.SetBackColorMouseOver(kButtonHighlight);
  button.SetForeColor(kButtonText);
  button.SetCaption(caption);
  return button;
}

Twips WidthOf(std::string_view line, const Surface& surface) {
  PixelSize size;
  surface.Drawing().GetTextExtentPoint32A(surface.hDC(), line, size);
  return FormScale(surface.GetPlatform().Screen()).TwipsX(size.width);
}

}  // namespace levelwidgets
