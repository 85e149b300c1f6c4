// Keys, their characters, and the keys that modify others.
#include <levelwidgets/testing/scenes/scene.h>

namespace levelwidgets::testing {
namespace {

class KeyScenes : public SceneTest {
 protected:
  void Begin() {
    form = Top("form", {50, 50, 350, 250});
    child = Child("child", form, {10, 10, 60, 60});
    Api().SetFocus(child);
    Driver().Settle();
    Hear(kKeyMessages);
  }
  // What modifies the key while each of the messages is handled.
  void NoteStateWith(std::uint32_t message) {
    On(child, message, [this, message](WParam wparam, LParam lparam) {
      std::string held = "held";
      for (const auto& [code, name] : {std::pair{16, " Shift"}, {17, " Ctrl"}, {18, " Alt"}}) {
        if (Api().GetKeyState(code) < 0) held += name;
      }
      Note(held);
      return message == kWmSysKeyDown || message == kWmSysKeyUp ? 0 : Default(child, message, wparam, lparam);
    });
  }
  void Press(int code, int shift) {
    Driver().KeyDown(code, shift);
    Driver().KeyUp(code, shift);
  }

  WindowHandle form;
  WindowHandle child;
};

TEST_F(KeyScenes, KeysAndCharactersOfALetter) {
  Begin();
  Do("a letter", [&] { Press('A', 0); });
  Do("held", [&] {
    Driver().KeyDown('A', 0);
    Driver().KeyDown('A', 0);
    Driver().KeyUp('A', 0);
  });
  Do("an arrow", [&] { Press(kKeyLeft, 0); });
  Do("typed", [&] { Driver().Type("aB"); });
  Expect(R"(
    * a letter
    child KeyDown 65
    child Char 97
    child KeyUp 65
    * held
    child KeyDown 65
    child Char 97
    child KeyDown 65
    child Char 97
    child KeyUp 65
    * an arrow
    child KeyDown 37
    child KeyUp 37
    * typed
    child KeyDown 65
    child Char 97
    child KeyUp 65
    child KeyDown 16
    child KeyDown 66
    child Char 66
    child KeyUp 66
    child KeyUp 16
  )");
}

TEST_F(KeyScenes, KeysThatModifyOthersAreSentBeforeAndAfter) {
  Begin();
  for (const std::uint32_t message : {kWmKeyDown, kWmKeyUp, kWmSysKeyDown, kWmSysKeyUp})
    NoteStateWith(message);
  Do("Shift", [&] { Press('A', kShiftMask); });
  Do("Ctrl", [&] { Press('A', kCtrlMask); });
  Do("Alt", [&] { Press('A', kAltMask); });
  Do("Shift and Ctrl", [&] { Press(kKeyLeft, kShiftMask | kCtrlMask); });
  Do("Ctrl and Alt", [&] { Press(kKeyLeft, kCtrlMask | kAltMask); });
  Do("Shift and Alt", [&] { Press(kKeyLeft, kShiftMask | kAltMask); });
  Do("all", [&] { Press(kKeyLeft, kShiftMask | kCtrlMask | kAltMask); });
  Expect(R"(
    * Shift
    child KeyDown 16
    held Shift
    child KeyDown 65
    held Shift
    child Char 65
    child KeyUp 65
    held Shift
    child KeyUp 16
    held
    * Ctrl
    child KeyDown 17
    held Ctrl
    child KeyDown 65
    held Ctrl
    child Char 1
    child KeyUp 65
    held Ctrl
    child KeyUp 17
    held
    * Alt
    child SysKeyDown 18 with Alt
    held Alt
    child SysKeyDown 65 with Alt
    held Alt
    child SysChar 97
    child SysKeyUp 65 with Alt
    held Alt
    child KeyUp 18
    held
    * Shift and Ctrl
    child KeyDown 16
    held Shift
    child KeyDown 17
    held Shift Ctrl
    child KeyDown 37
    held Shift Ctrl
    child KeyUp 37
    held Shift Ctrl
    child KeyUp 16
    held Ctrl
    child KeyUp 17
    held
    * Ctrl and Alt
    child KeyDown 17
    held Ctrl
    child KeyDown 18 with Alt
    held Ctrl Alt
    child KeyDown 37 with Alt
    held Ctrl Alt
    child KeyUp 37 with Alt
    held Ctrl Alt
    child SysKeyUp 17 with Alt
    held Alt
    child KeyUp 18
    held
    * Shift and Alt
    child KeyDown 16
    held Shift
    child SysKeyDown 18 with Alt
    held Shift Alt
    child SysKeyDown 37 with Alt
    held Shift Alt
    child SysKeyUp 37 with Alt
    held Shift Alt
    child SysKeyUp 16 with Alt
    held Alt
    child KeyUp 18
    held
    * all
    child KeyDown 16
    held Shift
    child KeyDown 17
    held Shift Ctrl
    child KeyDown 18 with Alt
    held Shift Ctrl Alt
    child KeyDown 37 with Alt
    held Shift Ctrl Alt
    child KeyUp 37 with Alt
    held Shift Ctrl Alt
    child KeyUp 16 with Alt
    held Ctrl Alt
    child SysKeyUp 17 with Alt
    held Alt
    child KeyUp 18
    held
  )");
}

TEST_F(KeyScenes, KeysThatModifyOthersAlone) {
  Begin();
  for (const std::uint32_t message : {kWmSysKeyDown, kWmSysKeyUp}) NoteStateWith(message);
  Do("Shift", [&] { Press(kKeyShift, 0); });
  Do("Shift, as it says itself", [&] { Press(kKeyShift, kShiftMask); });
  Do("Ctrl", [&] { Press(kKeyControl, kCtrlMask); });
  Do("Alt", [&] { Press(kKeyAlt, kAltMask); });
  Do("Alt and a letter, the letter let go last", [&] {
    Driver().KeyDown(kKeyAlt, kAltMask);
    Driver().KeyDown('A', kAltMask);
    Driver().KeyUp(kKeyAlt, 0);
    Driver().KeyUp('A', 0);
  });
  Do("F10", [&] { Driver().KeyDown(121, 0); });
  Expect(R"(
    * Shift
    child KeyDown 16
    child KeyUp 16
    * Shift, as it says itself
    child KeyDown 16
    child KeyUp 16
    * Ctrl
    child KeyDown 17
    child KeyUp 17
    * Alt
    child SysKeyDown 18 with Alt
    held Alt
    child SysKeyUp 18
    held
    * Alt and a letter, the letter let go last
    child SysKeyDown 18 with Alt
    held Alt
    child SysKeyDown 65 with Alt
    held Alt
    child SysChar 97
    child KeyUp 18
    child KeyUp 65
    * F10
    child SysKeyDown 121
    held
  )");
}

TEST_F(KeyScenes, KeysWithoutAFocusGoToTheActiveWindowAsSystemKeys) {
  Begin();
  Api().SetFocus({});
  On(form, kWmSysKeyDown, [](WParam, LParam) { return 0; });
  On(form, kWmSysKeyUp, [](WParam, LParam) { return 0; });
  Do("a letter", [&] { Press('A', 0); });
  Do("with Shift", [&] { Press('A', kShiftMask); });
  Expect(R"(
    * a letter
    form SysKeyDown 65
    form SysChar 97
    form SysKeyUp 65
    * with Shift
    form SysKeyDown 16
    form SysKeyDown 65
    form SysChar 65
    form SysKeyUp 65
    form SysKeyUp 16
  )");
}

TEST_F(KeyScenes, TypingACapitalHoldsShift) {
  Begin();
  NoteStateWith(kWmChar);
  Do("typed", [&] { Driver().Type("aB"); });
  Expect(R"(
    * typed
    child KeyDown 65
    child Char 97
    held
    child KeyUp 65
    child KeyDown 16
    child KeyDown 66
    child Char 66
    held Shift
    child KeyUp 66
    child KeyUp 16
  )");
}

}  // namespace
}  // namespace levelwidgets::testing
