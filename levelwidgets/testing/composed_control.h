// A control with every kind of part, for tests of what parts, controls and containers owe each other.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/frame/edit_control.h>
#include <levelwidgets/frame/parts/child_control.h>
#include <levelwidgets/frame/parts/line_shape.h>
#include <levelwidgets/frame/parts/picture_box.h>
#include <levelwidgets/frame/parts/text_label.h>
#include <levelwidgets/frame/parts/timer.h>

namespace levelwidgets::testing {

// An edit box over the left half, and a panel over the right half until Open() makes it a window of the
// desktop below the control. In the panel a frame, and in the frame a FlatLabel, an edit box, two texts that
// overlap, and a line.
class Composed : public EditControl {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Composed>("Composed", "Made of parts."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Composed(std::shared_ptr<ControlSite> site)
      : EditControl(std::move(site), {.back_color = Color(0x00C0C0C0), .fore_color = Color(0), .font = {}},
                    txtMain) {
    Relay(txtMain);
    txtMain.SetVisible(true);
    picPanel.SetBackColor(Color(0x00FF0000));
    picPanel.Move({Twips(1500), Twips(0)}, kPanelSize);
    picPanel.SetVisible(true);
    frmInner.Move({Twips(150), Twips(150)}, {Twips(2400), Twips(1200)});
    frmInner.SetVisible(true);
    flblInner.Move({Twips(150), Twips(150)}, {Twips(600), Twips(300)});
    flblInner.SetVisible(true);
    txtInner.Move({Twips(900), Twips(150)}, {Twips(600), Twips(300)});
    txtInner.SetVisible(true);
    lblUnder.SetBackColor(Color(0x000000FF));
    lblUnder.Move({Twips(150), Twips(600)}, {Twips(600), Twips(300)});
    lblOver.SetBackColor(Color(0x0000FF00));
    lblOver.Move({Twips(450), Twips(600)}, {Twips(600), Twips(300)});
    LineMain.SetBorderColor(Color(0x00FFFFFF));
    LineMain.Move({Twips(300), Twips(750)}, {Twips(1500), Twips(750)});
  }

  static constexpr TwipSize kPanelSize{Twips(2700), Twips(1500)};

  const ClassInfo& Class() const override { return Table(); }
  void OnResize() override { txtMain.Move({}, {Twips(1200), GetSurface().ScaleHeight()}); }
  void OnPaint() override { GetSurface().Cls(); }
  void OnEnterFocus() override { notes.push_back("enter"); }
  void OnExitFocus() override { notes.push_back("exit"); }
  bool OnKeyPreview(KeyMessage& key) override { return preview && preview(key); }

  void SetEnabled(bool enabled) { Enable(enabled); }
  void Open() {
    WindowApi& windows = GetSurface().Windows();
    windows.SetWindowLongA(picPanel.hWnd(), kGwlExStyle, kWsExToolWindow);
    windows.SetParent(picPanel.hWnd(), {});
    windows.SetWindowLongA(picPanel.hWnd(), kGwlStyle, static_cast<std::int32_t>(kWsPopup));
    windows.SetWindowPos(picPanel.hWnd(), {kHwndTopMost}, {}, kSwpNoSize | kSwpNoRedraw);
    PixelRect owner;
    windows.GetWindowRect(GetSurface().hWnd(), owner);
    ScreenApi& screen = GetSurface().GetPlatform().Screen();
    picPanel.Move(
        {ToTwips(owner.left, screen.TwipsPerPixelX()), ToTwips(owner.bottom, screen.TwipsPerPixelY())},
        kPanelSize);
    picPanel.SetVisible(true);
    picPanel.BringToFront();
    picPanel.SetFocus();
    timStatus.SetEnabled(true);
  }
  void Close() {
    timStatus.SetEnabled(false);
    picPanel.SetVisible(false);
  }

  std::vector<std::string> notes;
  std::function<bool(KeyMessage&)> preview;
  Event<> Tick;

  TextBox txtMain{*this, false};
  PictureBox picPanel{*this};
  PictureBox frmInner{picPanel};
  ChildControl<FlatLabel> flblInner{frmInner, "flblInner", {Twips(600), Twips(300)}};
  TextBox txtInner{frmInner, false};
  TextLabel lblUnder{frmInner};
  TextLabel lblOver{frmInner};
  LineShape LineMain{frmInner};
  Timer timStatus{*this, 100, [this] { Tick.Raise(); }};
};

// A control with a composed one inside.
class Outer : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Outer>("Outer", "Holds a composed control."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Outer(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0x00808080), .fore_color = Color(0), .font = {}}) {
    cmpInner.SetVisible(true);
  }

  const ClassInfo& Class() const override { return Table(); }
  void OnPaint() override { GetSurface().Cls(); }
  void OnResize() override { cmpInner.Move({}, {GetSurface().ScaleWidth(), GetSurface().ScaleHeight()}); }
  void OnEnterFocus() override { notes.push_back("enter"); }
  void OnExitFocus() override { notes.push_back("exit"); }
  bool OnKeyPreview(KeyMessage& key) override { return preview && preview(key); }

  std::vector<std::string> notes;
  std::function<bool(KeyMessage&)> preview;
  ChildControl<Composed> cmpInner{*this, "cmpInner", {Twips(4500), Twips(1500)}};

 protected:
  WindowHandle FocusWindow() const override { return cmpInner->txtMain.hWnd(); }
};

}  // namespace levelwidgets::testing
