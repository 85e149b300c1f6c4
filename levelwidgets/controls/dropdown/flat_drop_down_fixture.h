// What the tests of FlatDropDown have in common. Not for use outside this folder.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {

inline constexpr std::uint32_t kLongerThanADoubleClick = 600;  // milliseconds

class FlatDropDownTest : public DesktopTest {
 protected:
  // Of 1800 by 315 twips, with the items "1", "2" and so on.
  FlatDropDown& Make(int count, const PropertyBag& saved = {}) {
    drop_ = &AddLoaded<FlatDropDown>("cbo", saved, {Twips(600), Twips(600)}, {Twips(1800), Twips(315)});
    for (int i = 1; i <= count; ++i) Add(std::to_string(i));
    Hosted(*drop_).SetFocus();
    Driver().Settle();
    return *drop_;
  }
  FlatDropDown& MakeOf(const std::vector<std::string>& items) {
    Make(0);
    for (const std::string& item : items) Add(item);
    return *drop_;
  }
  void Add(std::string item) { drop_->AddItem(item); }
  FlatDropDown& Drop() { return *drop_; }
  bool IsOpen() const { return drop_->Panel().IsOpen(); }
  void Open() {
    Driver().Key(kKeyF4);
    Driver().Settle();
  }
  PixelRect PanelRect() {
    PixelRect rect;
    Windows().GetWindowRect(drop_->Panel().hWnd(), rect);
    return rect;
  }
  PixelRect ControlRect() {
    PixelRect rect;
    Windows().GetWindowRect(drop_->hWnd(), rect);
    return rect;
  }
  // In the middle of a row that is shown, from 0.
  PixelPoint Row(int row) {
    const PixelRect panel = PanelRect();
    const int height = (panel.height() - 2) / std::min(8, static_cast<int>(drop_->Items().size()));
    return {panel.left + 20, panel.top + 1 + height * row + height / 2};
  }
  PixelPoint Strip() {
    const PixelRect rect = ControlRect();
    return {rect.right - 6, (rect.top + rect.bottom) / 2};
  }
  ColorRef StripColor() { return PixelAt(*drop_, PixelPoint{ControlRect().width() - 2, 1}); }
  // The button with the arrow down of an open list's bar.
  PixelPoint BottomOfBar() {
    const PixelRect panel = PanelRect();
    return {panel.right - 1 - 8, panel.bottom - 1 - 4};
  }
  Journal EventsOf(const std::function<void()>& action) {
    if (watched_ != drop_) Watch(*drop_);
    watched_ = drop_;
    TakeJournal();
    action();
    Driver().Settle();
    Journal events;
    for (const std::string& line : TakeJournal()) {
      const bool is_pointer = line.starts_with("Mouse");
      if (!is_pointer && line != "paint" && line != "capture" && line != "release capture")
        events.push_back(line);
    }
    return events;
  }

  FlatDropDown* drop_ = nullptr;
  FlatDropDown* watched_ = nullptr;
};

}  // namespace levelwidgets::testing
