// What the tests of FlatDropDown have in common. Not for use outside this folder.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/dropdown/flat_drop_down.h>
#include <levelwidgets/testing/panel_fixture.h>

namespace levelwidgets::testing {

class FlatDropDownTest : public PanelTest<FlatDropDown> {
 protected:
  // With the items "1", "2" and so on.
  FlatDropDown& Make(int count, const PropertyBag& saved = {}) {
    drop_ = &Load(saved);
    for (int i = 1; i <= count; ++i) Add(std::to_string(i));
    return *drop_;
  }
  FlatDropDown& MakeOf(const std::vector<std::string>& items) {
    Make(0);
    for (const std::string& item : items) Add(item);
    return *drop_;
  }
  void Add(std::string item) { drop_->AddItem(item); }
  FlatDropDown& Drop() { return *drop_; }
  // In the middle of a row that is shown, from 0.
  PixelPoint Row(int row) {
    const PixelRect panel = PanelRect();
    const int height = (panel.height() - 2) / std::min(8, static_cast<int>(Drop().Items().size()));
    return {panel.left + 20, panel.top + 1 + height * row + height / 2};
  }
  // The button with the arrow down of an open list's bar.
  PixelPoint BottomOfBar() {
    const PixelRect panel = PanelRect();
    return {panel.right - 1 - 8, panel.bottom - 1 - 4};
  }
  // The panel hears that the wheel has turned by `delta`, 120 for a notch, away from the user.
  void TurnWheel(int delta) {
    const auto wparam = static_cast<WParam>(static_cast<std::uint32_t>(delta) << 16);
    Windows().SendMessageA(Drop().Panel()->hWnd(), kWmMouseWheel, wparam, 0);
  }
  // The names of the calls that draw on the panel while `action` runs.
  std::vector<std::string> DrawnIn(const PopupPanel& panel, const std::function<void()>& action) {
    std::vector<std::string> names;
    for (const TracedCall& call : CallsNamed({"FillRect", "DrawTextA"}, action)) {
      const bool is_on_it = std::get<std::int64_t>(call.arguments[0]) == panel.GetSurface().hDC().value;
      if (is_on_it)
        names.push_back(call.name == "FillRect" ? call.name : std::get<std::string>(call.arguments[1]));
    }
    return names;
  }

  // Without those of the pointer.
  Journal EventsOf(const std::function<void()>& action) {
    Journal events = PanelTest::EventsOf(action);
    std::erase_if(events, [](const std::string& line) { return line.starts_with("Mouse"); });
    return events;
  }

 private:
  FlatDropDown* drop_ = nullptr;
};

}  // namespace levelwidgets::testing
