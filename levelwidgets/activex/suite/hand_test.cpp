// What a person does with pointer and keyboard to a control on a form and to its component in a container:
// both raise the same events.
#include <set>

#include <levelwidgets/activex/suite/both_sides_fixture.h>
#include <levelwidgets/controls/grid/ksx_edit_type.h>
#include <levelwidgets/platform/win32/native.h>

namespace levelwidgets::activex {
namespace {

class HandTest : public BothSidesTest {
 protected:
  static constexpr PixelSize kSize{200, 120};

  // With something to choose from.
  void BeginWithContents(const ClassInfo& info) {
    Begin(info, false, kSize);
    const auto run = [&](const char* method, const Arguments& arguments) {
      Both(method, [&](Driven& driven) { return driven.Run(*info.FindMethod(method), arguments); });
    };
    const auto write = [&](const char* property, const Arguments& indices, const Variant& value) {
      Both(property,
           [&](Driven& driven) { return driven.Write(*info.FindProperty(property), indices, value); });
    };
    if (info.FindMethod("AddItem")) {
      for (const char* item : {"one", "two", "three"}) run("AddItem", {item});
    }
    if (info.FindProperty("TabCount")) write("TabCount", {}, 3);
    if (info.FindProperty("Columns")) {
      AddColumns();
      write("RowCount", {}, 3);
      write("AllowEdits", {}, true);
      write("RowIndex", {}, 1);
    }
    Driver().Settle();
    Take();
  }

  // What comes of the same input on both sides, the pointer over one after the other.
  template <typename Input>
  void BothHands(const std::string& name, Input input) {
    input(Placed());
    Leave(Placed());
    const Happenings of_component = Events(TakeOfComponent());
    const WindowHandle itself = TheControl()->GetSurface().hWnd();
    input(itself);
    Leave(itself);
    const Happenings of_control = Events(TakeOfControl());
    EXPECT_EQ(of_component, of_control) << TheClass().Name() << ", " << name;
    for (const std::string& line : of_control) raised_.insert(line.substr(0, line.find(' ')));
  }

  // The component's window.
  WindowHandle Placed() {
    HWND native = nullptr;
    As<IOleInPlaceObject>(TheComponent())->GetWindow(&native);
    return win32::FromNative<WindowHandle>(native);
  }
  PixelPoint On(WindowHandle window, int x, int y) {
    PixelRect rect;
    Driver().GetPlatform().Windows().GetWindowRect(window, rect);
    return {rect.left + x, rect.top + y};
  }

  std::set<std::string> raised_;

 private:
  void AddColumns() {
    TurnTo("Columns", {});
    const MethodInfo& add = *TheClass().FindMethod("Add");
    for (const char* caption : {"Name", "Number"})
      Both("Add", [&](Driven& driven) {
        return driven.Run(add, {caption, 1200, 0, 0, static_cast<int>(ksxEditText), true});
      });
    TurnToControl();
  }
  // A button that was clicked sees the first move outside.
  void Leave(WindowHandle window) {
    for (const int outside : {-20, -30}) Driver().MovePointer(On(window, outside, outside));
  }
  // A control notices its properties when it has the focus, which one of both has.
  static Happenings Events(Happenings lines) {
    std::erase_if(lines, [](const std::string& line) { return line.starts_with("changed "); });
    return lines;
  }
};

TEST_F(HandTest, PointerAndKeysRaiseEveryEventOnBothSidesAlike) {
  for (const ClassInfo* info : ControlClasses()) {
    raised_.clear();
    BeginWithContents(*info);
    const PixelPoint middle{kSize.width / 2, kSize.height / 2};
    BothHands("a click", [&](WindowHandle window) { Driver().Click(On(window, middle.x, middle.y)); });
    BothHands("a double click", [&](WindowHandle window) { Driver().DoubleClick(On(window, 60, middle.y)); });
    BothHands("a click at the top", [&](WindowHandle window) { Driver().Click(On(window, 30, 8)); });
    // The right one opens the menu of a text, which waits for its end.
    BothHands("a drag with the middle button", [&](WindowHandle window) {
      Driver().MovePointer(On(window, 30, 10));
      Driver().Press(kMiddleButton);
      Driver().MovePointer(On(window, 60, 50));
      Driver().Release(kMiddleButton);
    });
    BothHands("the drop button and a row below it", [&](WindowHandle window) {
      Driver().Click(On(window, kSize.width - 6, middle.y));
      Driver().Click(On(window, 30, kSize.height + 40));
      Driver().Key(kKeyEscape);
    });
    BothHands("keys", [&](WindowHandle window) {
      Driver().Click(On(window, middle.x, middle.y));
      for (const std::int16_t key : {kKeyHome, kKeyDown, kKeyRight, kKeyUp, kKeyLeft, kKeyEnd})
        Driver().Key(key);
      Driver().Type("a1");
      Driver().Key(kKeyEnter);
      Driver().Key(kKeyEscape);
    });
    BothHands("an edited cell", [&](WindowHandle window) {
      Driver().Click(On(window, 30, 30));
      Driver().Key(kKeyF2);
      Driver().Type("12");
      Driver().Key(kKeyEnter);
      Driver().Key(kKeyDown);
    });
    for (const EventInfo& event : info->Events())
      EXPECT_TRUE(raised_.contains(std::string(event.name))) << info->Name() << "." << event.name;
    End();
  }
}

TEST_F(HandTest, TheFontThatAClientHoldsIsUnderlinedWhileThePointerIsOverTheLabel) {
  Begin(*FindControlClass("FlatLabel"), false, kSize);
  const CallResult font = Get(TheComponent(), "Font");
  ASSERT_EQ(font.value.vt, VT_DISPATCH);
  EXPECT_EQ(Shown(Get(font.value.pdispVal, "Underline")), "False");
  Driver().MovePointer(On(Placed(), 10, 10));
  EXPECT_EQ(Shown(Get(font.value.pdispVal, "Underline")), "True");
  Driver().MovePointer(On(Placed(), -30, -30));
  Driver().Advance(250);  // the label looks every 100 ms
  EXPECT_EQ(Shown(Get(font.value.pdispVal, "Underline")), "False");
  End();
}

}  // namespace
}  // namespace levelwidgets::activex
