// The check box and the frame as controls of the library's own forms. No toolbox offers them and no form
// file names them.
#pragma once

#include <string>

#include <levelwidgets/frame/control.h>
#include <levelwidgets/frame/parts/check_box.h>

namespace levelwidgets {

using CheckBoxControl = CheckBox;

// A frame behind other controls of the form, which are to be added later than it. It takes no focus and no
// input: what the pointer does over it, it does over the form.
class FrameControl : public Control {
 public:
  static const ClassInfo& Table();
  explicit FrameControl(std::shared_ptr<ControlSite> site);

  // Colours are those of the form at first. Each setter repaints, then notifies.
  Color BackColor() const { return GetSurface().BackColor(); }
  void SetBackColor(Color color);
  Color ForeColor() const { return GetSurface().ForeColor(); }
  void SetForeColor(Color color);
  FontRef GetFont() const { return GetSurface().GetFont(); }
  void SetFont(FontRef font);
  WindowHandle hWnd() const { return GetSurface().hWnd(); }
  // "" lets the line go around at the edge.
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  const ClassInfo& Class() const override { return Table(); }
  void OnInitProperties() override;
  void OnPaint() override;

 private:
  std::string caption_;
};

}  // namespace levelwidgets
