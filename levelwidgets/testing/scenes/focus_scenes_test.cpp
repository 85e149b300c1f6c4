// Who gets the focus and who becomes active.
#include <levelwidgets/testing/scenes/scene.h>

namespace levelwidgets::testing {
namespace {

class FocusScenes : public SceneTest {
 protected:
  // Two forms with two children each; the second one is active.
  void TwoForms() {
    one = Top("one", {50, 50, 250, 200});
    first = Child("first", one, {0, 0, 50, 50});
    second = Child("second", one, {0, 50, 50, 100});
    two = Top("two", {300, 50, 500, 200});
    other = Child("other", two, {0, 0, 50, 50});
    Driver().Settle();
    Hear(kFocusMessages);
  }

  WindowHandle one;
  WindowHandle first;
  WindowHandle second;
  WindowHandle two;
  WindowHandle other;
};

TEST_F(FocusScenes, FocusMovesWithinAForm) {
  TwoForms();
  Do("a child", [&] { Note("before " + NameOf(Api().SetFocus(first))); });
  Do("its sibling", [&] { Note("before " + NameOf(Api().SetFocus(second))); });
  Do("the same again", [&] { Note("before " + NameOf(Api().SetFocus(second))); });
  Do("nobody", [&] { Note("before " + NameOf(Api().SetFocus({}))); });
  NoteFocus();
  Do("from nobody", [&] { Note("before " + NameOf(Api().SetFocus(first))); });
  Expect(R"(
    * a child
    two Activate 0 to one
    one Activate 1 from two
    two KillFocus to one
    one SetFocus from two
    one KillFocus to first
    first SetFocus from one
    before one
    * its sibling
    first KillFocus to second
    second SetFocus from first
    before first
    * the same again
    before second
    * nobody
    second KillFocus to none
    before second
    active one, focus none
    * from nobody
    first SetFocus from none
    before none
  )");
}

TEST_F(FocusScenes, FocusIntoAFormThatIsNotActiveGoesByTheForm) {
  TwoForms();
  On(one, kWmSetFocus, [&](WParam, LParam) {
    Note("the form hands it on");
    Api().SetFocus(second);
    return 0;
  });
  Do("into the form that is not active", [&] { Note("before " + NameOf(Api().SetFocus(first))); });
  NoteFocus();
  Expect(R"(
    * into the form that is not active
    two Activate 0 to one
    one Activate 1 from two
    two KillFocus to one
    one SetFocus from two
    the form hands it on
    one KillFocus to second
    second SetFocus from one
    second KillFocus to first
    first SetFocus from second
    before second
    active one, focus first
  )");
}

TEST_F(FocusScenes, AFormThatAnswersItsActivationItselfIsNotGivenTheFocus) {
  TwoForms();
  On(one, kWmActivate, [&](WParam, LParam) { return 0; });
  Do("into the form that is not active", [&] { Api().SetFocus(first); });
  NoteFocus();
  Do("activate the other", [&] { Api().SetActiveWindow(two); });
  Do("activate it", [&] { Api().SetActiveWindow(one); });
  NoteFocus();
  Expect(R"(
    * into the form that is not active
    two Activate 0 to one
    one Activate 1 from two
    two KillFocus to first
    first SetFocus from two
    active one, focus first
    * activate the other
    one Activate 0 to two
    two Activate 1 from one
    first KillFocus to two
    two SetFocus from first
    * activate it
    two Activate 0 to one
    one Activate 1 from two
    two KillFocus to one
    one SetFocus from two
    active one, focus one
  )");
}

TEST_F(FocusScenes, WhoIsActiveWhileOneIsDeactivated) {
  TwoForms();
  On(two, kWmActivate, [&](WParam wparam, LParam lparam) {
    NoteFocus();
    return Default(two, kWmActivate, wparam, lparam);
  });
  On(one, kWmActivate, [&](WParam wparam, LParam lparam) {
    NoteFocus();
    return Default(one, kWmActivate, wparam, lparam);
  });
  Do("activate one", [&] { Note("before " + NameOf(Api().SetActiveWindow(one))); });
  NoteFocus();
  Do("activate one again", [&] { Note("before " + NameOf(Api().SetActiveWindow(one))); });
  Do("activate a child", [&] { Note("before " + NameOf(Api().SetActiveWindow(other))); });
  NoteFocus();
  Do("activate nobody", [&] { Note("before " + NameOf(Api().SetActiveWindow({}))); });
  NoteFocus();
  Expect(R"(
    * activate one
    two Activate 0 to one
    active two, focus two
    one Activate 1 from two
    active one, focus two
    two KillFocus to one
    one SetFocus from two
    before two
    active one, focus one
    * activate one again
    before one
    * activate a child
    before one
    active one, focus one
    * activate nobody
    one Activate 0 to none
    active one, focus one
    one KillFocus to none
    before one
    active none, focus none
  )");
}

TEST_F(FocusScenes, AFormThatStopsItsOwnActivation) {
  TwoForms();
  On(one, kWmActivate, [&](WParam wparam, LParam lparam) {
    if (wparam == 0) return Default(one, kWmActivate, wparam, lparam);
    Api().SetActiveWindow(two);
    return LResult{0};
  });
  Do("into it", [&] { Note("before " + NameOf(Api().SetFocus(first))); });
  NoteFocus();
  Expect(R"(
    * into it
    two Activate 0 to one
    one Activate 1 from two
    one Activate 0 to two
    two Activate 1 from one
    before none
    active two, focus two
  )");
}

TEST_F(FocusScenes, AWindowThatMovesTheFocusAwayWhileItLosesIt) {
  TwoForms();
  Api().SetFocus(first);
  On(first, kWmKillFocus, [&](WParam, LParam) {
    On(first, kWmKillFocus, [](WParam, LParam) { return 0; });
    Api().SetFocus(one);
    return 0;
  });
  Do("to its sibling", [&] { Note("before " + NameOf(Api().SetFocus(second))); });
  NoteFocus();
  Expect(R"(
    two Activate 0 to one
    one Activate 1 from two
    two KillFocus to one
    one SetFocus from two
    one KillFocus to first
    first SetFocus from one
    * to its sibling
    first KillFocus to second
    second KillFocus to one
    one SetFocus from second
    before first
    active one, focus one
  )");
}

TEST_F(FocusScenes, AWindowThatIsHiddenHandsOnItsOwnFocusAndNotThatOfAWindowInside) {
  TwoForms();
  const WindowHandle outer = Child("outer", one, {100, 0, 150, 50});
  const WindowHandle inner = Child("inner", outer, {0, 0, 20, 20});
  Do("focus a window", [&] { Api().SetFocus(outer); });
  Do("hide the window with the focus", [&] { Api().ShowWindow(outer, kSwHide); });
  NoteFocus();
  Do("show it again and focus one inside", [&] {
    Api().ShowWindow(outer, kSwShow);
    Api().SetFocus(inner);
  });
  Do("hide the window around it", [&] { Api().ShowWindow(outer, kSwHide); });
  NoteFocus();
  Do("end that", [&] { Api().DestroyWindow(outer); });
  NoteFocus();
  Expect(R"(
    * focus a window
    two Activate 0 to one
    one Activate 1 from two
    two KillFocus to one
    one SetFocus from two
    one KillFocus to outer
    outer SetFocus from one
    * hide the window with the focus
    outer KillFocus to one
    one SetFocus from outer
    active one, focus one
    * show it again and focus one inside
    one KillFocus to inner
    inner SetFocus from one
    * hide the window around it
    active one, focus inner
    * end that
    active one, focus none
  )");
}

TEST_F(FocusScenes, HiddenWindowsTakeFocusAndActivation) {
  TwoForms();
  const WindowHandle hidden_child = Child("hidden child", one, {100, 0, 150, 50}, kWsChild);
  const WindowHandle hidden = Top("hidden", {300, 300, 400, 400}, kHiddenForm);
  const WindowHandle inside = Child("inside", hidden, {0, 0, 50, 50});
  Do("focus a hidden child", [&] { Note("before " + NameOf(Api().SetFocus(hidden_child))); });
  NoteFocus();
  Do("focus a hidden form", [&] { Note("before " + NameOf(Api().SetFocus(hidden))); });
  NoteFocus();
  Do("focus a child of a hidden form", [&] { Note("before " + NameOf(Api().SetFocus(inside))); });
  NoteFocus();
  Do("activate a form", [&] { Note("before " + NameOf(Api().SetActiveWindow(two))); });
  Do("activate a hidden form", [&] { Note("before " + NameOf(Api().SetActiveWindow(hidden))); });
  NoteFocus();
  Do("activate a form", [&] { Note("before " + NameOf(Api().SetActiveWindow(two))); });
  Do("place a hidden form", [&] {
    Note(Api().SetWindowPos(hidden, {kHwndTop}, {0, 0, 0, 0}, kSwpNoSize | kSwpNoMove) ? "done" : "refused");
  });
  NoteFocus();
  Expect(R"(
    * focus a hidden child
    two Activate 0 to one
    one Activate 1 from two
    two KillFocus to one
    one SetFocus from two
    one KillFocus to hidden child
    hidden child SetFocus from one
    before one
    active one, focus hidden child
    * focus a hidden form
    one Activate 0 to hidden
    hidden Activate 1 from one
    hidden child KillFocus to hidden
    hidden SetFocus from hidden child
    before hidden
    active hidden, focus hidden
    * focus a child of a hidden form
    hidden KillFocus to inside
    inside SetFocus from hidden
    before hidden
    active hidden, focus inside
    * activate a form
    hidden Activate 0 to two
    two Activate 1 from hidden
    inside KillFocus to two
    two SetFocus from inside
    before hidden
    * activate a hidden form
    two Activate 0 to hidden
    hidden Activate 1 from two
    two KillFocus to hidden
    hidden SetFocus from two
    before two
    active hidden, focus hidden
    * activate a form
    hidden Activate 0 to two
    two Activate 1 from hidden
    hidden KillFocus to two
    two SetFocus from hidden
    before hidden
    * place a hidden form
    two Activate 0 to hidden
    hidden Activate 1 from two
    two KillFocus to hidden
    hidden SetFocus from two
    done
    active hidden, focus hidden
  )");
}

TEST_F(FocusScenes, DisabledWindowsTakeNeitherFocusNorActivation) {
  TwoForms();
  Api().EnableWindow(first, false);
  Do("focus a disabled child", [&] { Note("before " + NameOf(Api().SetFocus(first))); });
  NoteFocus();
  Api().EnableWindow(one, false);
  Do("focus a child of a disabled form", [&] { Note("before " + NameOf(Api().SetFocus(second))); });
  Do("focus a disabled form", [&] { Note("before " + NameOf(Api().SetFocus(one))); });
  NoteFocus();
  Do("activate a disabled form", [&] { Note("before " + NameOf(Api().SetActiveWindow(one))); });
  NoteFocus();
  Expect(R"(
    * focus a disabled child
    before none
    active two, focus two
    * focus a child of a disabled form
    before none
    * focus a disabled form
    before none
    active two, focus two
    * activate a disabled form
    two Activate 0 to one  [system: a disabled form becomes active]
    one Activate 1 from two  [system: a disabled form becomes active]
    two KillFocus to one  [system: a disabled form becomes active]
    one SetFocus from two  [system: a disabled form becomes active]
    before two  [system: a disabled form becomes active]
    active one, focus one  [system: a disabled form becomes active]
    before none  [memory: a disabled form becomes active]
    active two, focus two  [memory: a disabled form becomes active]
  )");
}

TEST_F(FocusScenes, AChildPanelBecomesAPopupTwice) {
  one = Top("one", {50, 50, 250, 200});
  first = Child("first", one, {0, 0, 50, 50});
  Hear(kFocusMessages);
  const WindowHandle panel = Child("panel", one, {0, 100, 50, 150}, kWsChild);
  const WindowHandle part = Child("part", panel, {0, 0, 20, 20});
  Api().SetFocus(first);
  const auto open = [&] {
    Do("extended style", [&] { Api().SetWindowLongA(panel, kGwlExStyle, kWsExToolWindow); });
    Do("parent", [&] { Api().SetParent(panel, {}); });
    NoteFocus();
    Do("style",
       [&] { Api().SetWindowLongA(panel, kGwlStyle, static_cast<std::int32_t>(kWsPopup | kWsBorder)); });
    Do("top-most", [&] { Api().SetWindowPos(panel, {kHwndTopMost}, {}, kSwpNoSize | kSwpNoRedraw); });
    NoteFocus();
    Do("place", [&] { Api().SetWindowPos(panel, {}, {60, 200, 160, 260}, kSwpNoZOrder | kSwpNoActivate); });
    Do("show", [&] { Api().ShowWindow(panel, kSwShowNoActivate); });
    Do("to the front",
       [&] { Api().SetWindowPos(panel, {kHwndTop}, {}, kSwpNoSize | kSwpNoMove | kSwpNoActivate); });
    Do("focus", [&] { Note("before " + NameOf(Api().SetFocus(panel))); });
    NoteFocus();
    NoteOrder();
  };
  open();
  Do("focus into it", [&] { Note("before " + NameOf(Api().SetFocus(part))); });
  Do("hide", [&] { Api().ShowWindow(panel, kSwHide); });
  NoteFocus();
  Do("focus back", [&] { Api().SetFocus(first); });
  open();
  Do("focus back", [&] { Note("before " + NameOf(Api().SetFocus(first))); });
  NoteFocus();
  Do("hide", [&] { Api().ShowWindow(panel, kSwHide); });
  Api().DestroyWindow(panel);
  Expect(R"(
    one KillFocus to first
    first SetFocus from one
    * extended style
    * parent
    active one, focus first
    * style
    * top-most
    one Activate 0 to panel
    panel Activate 1 from one
    first KillFocus to panel
    panel SetFocus from first
    active panel, focus panel
    * place
    * show
    * to the front
    * focus
    before panel
    active panel, focus panel
    order panel > one
    * focus into it
    panel KillFocus to part
    part SetFocus from panel
    before panel
    * hide
    panel Activate 0 to one
    one Activate 1 from panel
    part KillFocus to one
    one SetFocus from part
    active one, focus one
    * focus back
    one KillFocus to first
    first SetFocus from one
    * extended style
    * parent
    one Activate 0 to panel
    panel Activate 1 from one
    first KillFocus to panel
    panel SetFocus from first
    active panel, focus panel
    * style
    * top-most
    active panel, focus panel
    * place
    * show
    * to the front
    * focus
    before panel
    active panel, focus panel
    order panel > one
    * focus back
    panel Activate 0 to one
    one Activate 1 from panel
    panel KillFocus to one
    one SetFocus from panel
    one KillFocus to first
    first SetFocus from one
    before one
    active one, focus first
    * hide
  )");
}

TEST_F(FocusScenes, TheFocusedWindowIsHiddenDisabledOrEnded) {
  TwoForms();
  Hear(kFocusMessages + kStateMessages);
  Api().SetFocus(first);
  Do("hide it", [&] { Api().ShowWindow(first, kSwHide); });
  NoteFocus();
  Api().SetFocus(second);
  Do("disable it", [&] { Api().EnableWindow(second, false); });
  NoteFocus();
  Api().EnableWindow(second, true);
  Api().SetFocus(second);
  Do("end it", [&] { Api().DestroyWindow(second); });
  NoteFocus();
  Expect(R"(
    two Activate 0 to one
    one Activate 1 from two
    two KillFocus to one
    one SetFocus from two
    one KillFocus to first
    first SetFocus from one
    * hide it
    first KillFocus to one
    one SetFocus from first
    active one, focus one
    one KillFocus to second
    second SetFocus from one
    * disable it
    second CancelMode
    second KillFocus to none
    second Enable 0
    active one, focus none
    second Enable 1
    second SetFocus from none
    * end it
    second KillFocus to one
    one SetFocus from second
    second Destroy
    active one, focus one
  )");
}

// The active window and the order of all, front to back, each owner behind what it owns.
TEST_F(FocusScenes, TheNextActiveWindowWhenOneIsHidden) {
  const WindowHandle back = Top("back", {0, 0, 100, 100});
  const WindowHandle middle = Top("middle", {50, 50, 150, 150});
  const WindowHandle tool = Top("tool", {100, 100, 200, 200}, kPlainForm, {}, kWsExToolWindow);
  const WindowHandle front = Top("front", {150, 150, 250, 250});
  const WindowHandle dialog = Top("dialog", {200, 200, 300, 300}, kPlainForm, back);
  const auto order = [&](const std::vector<WindowHandle>& windows) {
    for (const WindowHandle window : windows) {
      Api().SetWindowPos(window, {kHwndBottom}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
    }
    NoteOrder();
  };
  Driver().Settle();
  Hear({kWmActivate});
  Do("what has an owner", [&] { Api().ShowWindow(dialog, kSwHide); });
  NoteFocus();
  Api().SetActiveWindow(front);
  order({front, tool, middle, back});
  Do("what has a tool window and another one behind it", [&] { Api().ShowWindow(front, kSwHide); });
  NoteFocus();
  Api().SetActiveWindow(back);
  order({middle, tool, back});
  Do("what is behind all", [&] { Api().ShowWindow(back, kSwHide); });
  NoteFocus();
  Do("end the last but a tool window", [&] { Api().DestroyWindow(middle); });
  NoteFocus();
  Do("the last", [&] { Api().ShowWindow(tool, kSwHide); });
  NoteFocus();
  Expect(R"(
    * what has an owner
    dialog Activate 0 to back
    back Activate 1 from dialog
    active back, focus back
    back Activate 0 to front
    front Activate 1 from back
    order front > tool > middle > back
    * what has a tool window and another one behind it
    front Activate 0 to tool  [system: tool windows are not last]
    tool Activate 1 from front  [system: tool windows are not last]
    active tool, focus tool  [system: tool windows are not last]
    tool Activate 0 to back  [system: tool windows are not last]
    back Activate 1 from tool  [system: tool windows are not last]
    front Activate 0 to middle  [memory: tool windows are not last]
    middle Activate 1 from front  [memory: tool windows are not last]
    active middle, focus middle  [memory: tool windows are not last]
    middle Activate 0 to back  [memory: tool windows are not last]
    back Activate 1 from middle  [memory: tool windows are not last]
    order middle > tool > back
    * what is behind all
    back Activate 0 to middle
    middle Activate 1 from back
    active middle, focus middle
    * end the last but a tool window
    middle Activate 0 to tool
    tool Activate 1 from middle
    active tool, focus tool
    * the last
    tool Activate 0 to none
    active none, focus none
  )");
}

TEST_F(FocusScenes, OwnersAndOwnedWindowsGoTogether) {
  const WindowHandle owner = Top("owner", {0, 0, 100, 100});
  const WindowHandle owned = Top("owned", {50, 50, 150, 150}, kPlainForm, owner);
  const WindowHandle third = Top("third", {100, 100, 200, 200}, kPlainForm, owned);
  const WindowHandle stranger = Top("stranger", {150, 150, 250, 250});
  Driver().Settle();
  Hear({kWmActivate});
  NoteOrder();
  Do("activate the owned window", [&] { Api().SetActiveWindow(owned); });
  NoteOrder();
  Do("activate the stranger", [&] { Api().SetActiveWindow(stranger); });
  NoteOrder();
  Do("activate the owner", [&] { Api().SetActiveWindow(owner); });
  NoteOrder();
  Api().SetActiveWindow(stranger);
  Do("activate what an owned window owns", [&] { Api().SetActiveWindow(third); });
  NoteOrder();
  Api().SetActiveWindow(stranger);
  Do("make the owner top-most",
     [&] { Api().SetWindowPos(owner, {kHwndTopMost}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate); });
  NoteOrder();
  for (const WindowHandle window : {owner, owned, third, stranger}) {
    const bool top_most = (Api().GetWindowLongA(window, kGwlExStyle) & kWsExTopMost) != 0;
    Note(NameOf(window) + (top_most ? " is top-most" : " is not top-most"));
  }
  Do("no longer",
     [&] { Api().SetWindowPos(owner, {kHwndNoTopMost}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate); });
  NoteOrder();
  for (const WindowHandle window : {owner, owned, third}) {
    const bool top_most = (Api().GetWindowLongA(window, kGwlExStyle) & kWsExTopMost) != 0;
    Note(NameOf(window) + (top_most ? " is top-most" : " is not top-most"));
  }
  Api().SetActiveWindow(stranger);
  Do("make an owned window top-most",
     [&] { Api().SetWindowPos(owned, {kHwndTopMost}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate); });
  NoteOrder();
  Expect(R"(
    order stranger > third > owned > owner
    * activate the owned window
    stranger Activate 0 to owned
    owned Activate 1 from stranger
    order stranger > owned > third > owner  [system: owned windows stay where they are]
    order third > owned > owner > stranger  [memory: owned windows stay where they are]
    * activate the stranger
    owned Activate 0 to stranger
    stranger Activate 1 from owned
    order stranger > owned > third > owner  [system: owned windows stay where they are]
    order stranger > third > owned > owner  [memory: owned windows stay where they are]
    * activate the owner
    stranger Activate 0 to owner
    owner Activate 1 from stranger
    order stranger > owner > owned > third  [system: owned windows stay where they are]
    order third > owned > owner > stranger  [memory: owned windows stay where they are]
    owner Activate 0 to stranger
    stranger Activate 1 from owner
    * activate what an owned window owns
    stranger Activate 0 to third
    third Activate 1 from stranger
    order third > stranger > owner > owned  [system: owned windows stay where they are]
    order third > owned > owner > stranger  [memory: owned windows stay where they are]
    third Activate 0 to stranger
    stranger Activate 1 from third
    * make the owner top-most
    order owner > stranger > third > owned  [system: owned windows stay where they are]
    order third > owned > owner > stranger  [memory: owned windows stay where they are]
    owner is top-most
    owned is not top-most  [system: owned windows stay where they are]
    owned is top-most  [memory: owned windows stay where they are]
    third is not top-most  [system: owned windows stay where they are]
    third is top-most  [memory: owned windows stay where they are]
    stranger is not top-most
    * no longer
    order stranger > third > owned > owner  [system: owned windows stay where they are]
    order third > owned > owner > stranger  [memory: owned windows stay where they are]
    owner is not top-most
    owned is not top-most
    third is not top-most
    * make an owned window top-most
    order third > owned > stranger > owner  [system: owned windows stay where they are]
    order third > owned > owner > stranger  [memory: owned windows stay where they are]
  )");
}

}  // namespace
}  // namespace levelwidgets::testing
