// What the forms that ask a person something have in common.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

inline constexpr Twips kQuestionMargin(225);
inline constexpr Twips kQuestionGap(120);
inline constexpr Twips kQuestionLine(240);
inline constexpr TwipSize kQuestionButton{Twips(1200), Twips(375)};

// As a caption that shows the text: there "&" marks the access key.
std::string CaptionOf(std::string_view text);

// The colours that a label has whatever the pointer does.
void SetSteadyColors(FlatLabel& label, Color back, Color fore);

// A label that looks the same whatever the pointer does, in the form's colours. The Tab key passes it.
FlatLabel& AddText(Form& form, const std::string& name, std::string_view text, const Placement& place);

// A line around a control without one, so that it can be told from the form in every palette.
void AddFrame(Form& form, const std::string& name, const Placement& around);

// In the system's colours: with those of a new button its text could not be read in every palette.
FlatButton& AddButton(Form& form, const std::string& name, const std::string& caption,
                      const Placement& place);

// How wide a line of text is in the surface's font.
Twips WidthOf(std::string_view line, const Surface& surface);

// Does `action` with the control of that name and class, if the form and the control are there still.
template <typename T, typename Action>
void With(const std::weak_ptr<Form>& form, std::string_view name, Action action) {
  const auto there = form.lock();
  const auto hosted = there ? there->Find(name) : nullptr;
  const auto control = hosted ? std::dynamic_pointer_cast<T>(hosted->GetControl()) : nullptr;
  if (control) action(*control);
}

}  // namespace levelwidgets
