// What the tests of controls around an edit box with a panel that drops down share.
#pragma once

#include <functional>
#include <string>

#include <levelwidgets/frame/panel_edit_control.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {

// Tests of a control of class T of 1800 by 315 twips, which is made when a test first needs it, has the focus
// and something to show when it opens.
template <typename T>
class PanelTest : public DesktopTest {
 protected:
  static constexpr bool kIsList = requires(T & control, std::string item) { control.AddItem(item); };

  T& Subject() {
    if (!subject_) Fill(Load({}));
    return *subject_;
  }
  // Enter takes the first item of a list.
  static void Fill(T& control) {
    if constexpr (kIsList) {
      for (std::string item : {"1", "2", "3"}) control.AddItem(item);
      control.SetListIndex(1);
    }
  }
  // A control without items.
  T& Load(const PropertyBag& saved, TwipSize size = {Twips(1800), Twips(315)}) {
    subject_ = &AddLoaded<T>("edt", saved, {Twips(600), Twips(600)}, size);
    Hosted(*subject_).SetFocus();
    Driver().Settle();
    return *subject_;
  }
  bool IsOpen() { return Subject().PanelIsOpen(); }
  void Open() {
    Subject();
    Driver().Key(kKeyF4);
    Driver().Settle();
  }
  // Lets the open panel be looked at.
  void Watched() { Driver().Advance(110); }

  PixelRect RectOf(WindowHandle window) {
    PixelRect rect;
    Windows().GetWindowRect(window, rect);
    return rect;
  }
  PixelRect PanelRect() { return RectOf(Subject().Panel()->hWnd()); }
  PixelRect ControlRect() { return RectOf(Subject().hWnd()); }
  // Of the drop button, in screen pixels.
  PixelPoint Strip() {
    const PixelRect rect = ControlRect();
    return {rect.right - 6, (rect.top + rect.bottom) / 2};
  }
  // Of a point on the open panel, in twips of its inner area.
  PixelPoint OnPanel(int x, int y) {
    ScreenApi& screen = FormPlatform().Screen();
    PixelPoint point{ToPixels(Twips(x), screen.TwipsPerPixelX()),
                     ToPixels(Twips(y), screen.TwipsPerPixelY())};
    Windows().ClientToScreen(Subject().Panel()->hWnd(), point);
    return point;
  }
  ColorRef PixelOnPanel(int x, int y) {
    Driver().Settle();
    return Driver().PixelAt(OnPanel(x, y));
  }
  ColorRef StripPixel() {
    const PixelRect rect = ControlRect();
    Driver().Settle();
    return Driver().PixelAt({rect.right - 2, rect.top + 1});
  }

  // What a control raises when its text changes other than by Text.
  static Journal ChangedText() {
    if constexpr (kIsList) return {"PropertyChanged(Text)", "Change()"};
    return {"Change()"};
  }

  // A click that makes no double click with the one before.
  void ClickApart(PixelPoint at) {
    constexpr std::uint32_t kDoubleClickIsOver = 600;
    if (at == clicked_) Driver().Advance(kDoubleClickIsOver);
    clicked_ = at;
    Driver().Click(at);
    Driver().Settle();
  }

  // With one line for each paint, which may fill the strip by itself: the journal has one for each fill.
  Journal TakeJournal() {
    Journal journal;
    bool filled = false;
    for (const std::string& line : DesktopTest::TakeJournal()) {
      filled = kIsList && line == "paint" && !filled;
      if (!filled) journal.push_back(line);
    }
    return journal;
  }
  // The events and notices that `action` leads to.
  Journal EventsOf(const std::function<void()>& action) {
    if (watched_ != &Subject()) Watch(Subject());
    watched_ = &Subject();
    TakeJournal();
    action();
    Driver().Settle();
    Journal events = TakeJournal();
    std::erase_if(events, [](const std::string& line) {
      return line == "paint" || line == "capture" || line == "release capture";
    });
    return events;
  }

 private:
  T* subject_ = nullptr;
  const T* watched_ = nullptr;
  PixelPoint clicked_{-1, -1};
};

}  // namespace levelwidgets::testing
