// What is measured: forms on a desktop in memory.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/platform/memory/desktop.h>

namespace levelwidgets::bench {

// A form of `size` pixels in the corner of a desktop of 1920 by 1080, shown.
class ShownForm {
 public:
  explicit ShownForm(PixelSize size);

  memory::Desktop& GetDesktop() { return desktop_; }

  // A new control of class T at a place in pixels.
  template <typename T>
  T& Add(const std::string& name, PixelRect place, const PropertyBag* saved = nullptr) {
    return dynamic_cast<T&>(*AddHosted(T::Table(), name, place, saved).GetControl());
  }
  HostedControl& AddHosted(const ClassInfo& control_class, const std::string& name, PixelRect place,
                           const PropertyBag* saved = nullptr);

 private:
  memory::Desktop desktop_{{.screen = {1920, 1080}}};
  std::shared_ptr<Form> form_;
};

// A form with one button of `size` pixels.
class OneButton {
 public:
  explicit OneButton(PixelSize size);
  // All of it, through its window's paint message.
  void Repaint() { button_.GetSurface().Refresh(); }

 private:
  ShownForm form_;
  FlatButton& button_;
};

// A form with 100 buttons in ten rows, and a pointer that goes over all of them, from each to the next. Two
// moves belong to a button: the first takes the highlight from the one before, the second gives it to this
// one.
class HundredButtons {
 public:
  static constexpr PixelSize kButtonSize{90, 32};

  HundredButtons();
  // Raises std::logic_error when the button that has to be highlighted, or normal again, is not.
  void Move();

 private:
  static constexpr int kColumns = 10;
  static constexpr int kCount = 100;
  void Check(std::size_t button, Color expected) const;

  ShownForm form_;
  std::vector<FlatButton*> buttons_;
  std::vector<PixelPoint> path_;  // two points of each button
  std::size_t next_ = 0;
};

// The form of FormTextOf.
inline constexpr PixelSize kFormSize{1250, 920};
enum class Mix { kLabelsAndButtons, kWithTextBoxes, kLabels, kLabelsInOnePlace };
// The text of a form file with `count` controls of 48 by 21 pixels in rows of 25, two pixels apart: buttons
// and labels in turn, or buttons, labels and text boxes, or labels alone. Rows beyond the first 40 begin at
// the top again.
std::string FormTextOf(int count, Mix mix);
// The text of a form file with `count` drop-down lists, placed like the others.
std::string DropDownFormText(int count);
// The text of a form file with one button.
std::string OneButtonFormText(PixelSize size);

// Loads `text` on a desktop; what is wrong with it is raised as std::runtime_error.
std::shared_ptr<Form> LoadChecked(Platform& platform, const std::string& text);

}  // namespace levelwidgets::bench
