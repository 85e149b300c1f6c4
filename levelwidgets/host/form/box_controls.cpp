#include <levelwidgets/host/form/box_controls.h>

#include <levelwidgets/frame/parts/frame_box.h>

namespace levelwidgets {

const ClassInfo& FrameControl::Table() {
  using Row = table::Row<FrameControl>;
  static constexpr auto data = ClassTable(
      ControlClass<FrameControl>("Frame", "A frame with a caption around other controls.",
                                 {Twips(3000), Twips(1500)}),
      table::Properties(Row::Property<&FrameControl::BackColor, &FrameControl::SetBackColor>(
                            1, "BackColor", Always(kAmbientBackColor), "Background colour."),
                        Row::Property<&FrameControl::ForeColor, &FrameControl::SetForeColor>(
                            2, "ForeColor", Always(kAmbientForeColor), "Colour of the caption."),
                        Row::Property<&FrameControl::GetFont, &FrameControl::SetFont>(
                            3, "Font", Always(kAmbientFont), "Font of the caption."),
                        Row::ReadOnly<&FrameControl::hWnd>(4, "hWnd", "Handle of the frame's window."),
                        Row::Property<&FrameControl::Caption, &FrameControl::SetCaption>(
                            5, "Caption", {.when_new = kDisplayName, .when_read = "", .when_written = ""},
                            "Text set into the top line.")),
      table::Persisted("BackColor", "ForeColor", "Font", "Caption"));
  static constexpr ClassInfo info(data);
  return info;
}

FrameControl::FrameControl(std::shared_ptr<ControlSite> site)
    : Control(site,
              {.back_color = site->AmbientBackColor(), .fore_color = site->AmbientForeColor(), .font = {}}) {
  // Its window leaves the pointer to what is behind it, and the form passes it by.
  GetSurface().SetEnabled(false);
}

void FrameControl::OnInitProperties() {
  GetSurface().SetFont(Site().AmbientFont());
  caption_ = Site().DisplayName();
}

void FrameControl::OnPaint() {
  GetSurface().Cls();
  PaintFrame(GetSurface(), caption_);
}

void FrameControl::SetBackColor(Color color) {
  Assign("BackColor", Then::kRepaintThenNotify, [&] { GetSurface().SetBackColor(color); });
}

void FrameControl::SetForeColor(Color color) {
  Assign("ForeColor", Then::kRepaintThenNotify, [&] { GetSurface().SetForeColor(color); });
}

void FrameControl::SetFont(FontRef font) {
  Assign("Font", Then::kRepaintThenNotify, [&] { GetSurface().SetFont(std::move(font)); });
}

void FrameControl::SetCaption(std::string caption) {
  Store("Caption", Then::kRepaintThenNotify, caption_, std::move(caption));
}

}  // namespace levelwidgets
