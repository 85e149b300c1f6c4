// Presses, moves, the wheel and the capture.
#include <levelwidgets/testing/scenes/scene.h>

namespace levelwidgets::testing {
namespace {

class PointerScenes : public SceneTest {
 protected:
  void TwoForms() {
    one = Top("one", {50, 50, 250, 200});
    first = Child("first", one, {10, 10, 60, 60});
    second = Child("second", one, {70, 10, 120, 60});
    two = Top("two", {300, 50, 500, 200});
    other = Child("other", two, {10, 10, 60, 60});
    Driver().MovePointer({700, 500});
    Driver().Settle();
  }
  void Click(PixelPoint at) {
    Driver().MovePointer(at);
    Driver().Press(kLeftButton);
    Driver().Release(kLeftButton);
  }

  WindowHandle one;
  WindowHandle first;
  WindowHandle second;
  WindowHandle two;
  WindowHandle other;
};

TEST_F(PointerScenes, APressActivatesTheFormUnderItAndCapturesThePointer) {
  TwoForms();
  Hear(kFocusMessages + kPressMessages + kMoveMessages);
  Do("over a child of the form that is not active", [&] { Driver().MovePointer({70, 70}); });
  Do("press", [&] { Driver().Press(kLeftButton); });
  NoteFocus();
  Note("capture " + NameOf(Api().GetCapture()));
  Do("drag over its sibling", [&] { Driver().MovePointer({130, 70}); });
  Do("drag over the other form", [&] { Driver().MovePointer({400, 100}); });
  Do("release", [&] { Driver().Release(kLeftButton); });
  Note("capture " + NameOf(Api().GetCapture()));
  Expect(R"(
    * over a child of the form that is not active
    first MouseMove 0 at 10,10
    * press
    first MouseActivate
    one MouseActivate
    two Activate 0 to one
    one Activate 2 from two
    two KillFocus to one
    one SetFocus from two
    first LButtonDown 1 at 10,10
    active one, focus one
    capture first
    * drag over its sibling
    first MouseMove 1 at 70,10
    * drag over the other form
    first MouseMove 1 at 340,40
    * release
    first CaptureChanged to none
    first LButtonUp 0 at 340,40
    capture none
  )");
}

TEST_F(PointerScenes, APressWhileAWindowHasTheCaptureGoesStraightToIt) {
  TwoForms();
  Hear(kFocusMessages + kPressMessages);
  Do("the active form's child takes the capture", [&] { Api().SetCapture(other); });
  Do("press over the form that is not active", [&] {
    Driver().MovePointer({70, 70});
    Driver().Press(kLeftButton);
  });
  NoteFocus();
  NoteOrder();
  Do("release", [&] { Driver().Release(kLeftButton); });
  Note("capture " + NameOf(Api().GetCapture()));
  Do("a child of the form that is not active takes the capture", [&] { Api().SetCapture(first); });
  Do("press over it", [&] { Driver().Press(kLeftButton); });
  NoteFocus();
  Do("release", [&] { Driver().Release(kLeftButton); });
  Do("take the capture", [&] { Api().SetCapture(first); });
  Do("press over nothing of ours", [&] {
    Driver().MovePointer({700, 500});
    Driver().Press(kLeftButton);
  });
  NoteFocus();
  Do("release", [&] { Driver().Release(kLeftButton); });
  Expect(R"(
    * the active form's child takes the capture
    * press over the form that is not active
    other LButtonDown 1 at -240,10
    active two, focus two
    order two > one
    * release
    other CaptureChanged to none
    other LButtonUp 0 at -240,10
    capture none
    * a child of the form that is not active takes the capture
    * press over it
    first LButtonDown 1 at 10,10
    active two, focus two
    * release
    first CaptureChanged to none
    first LButtonUp 0 at 10,10
    * take the capture
    * press over nothing of ours
    first LButtonDown 1 at 640,440
    active two, focus two
    * release
    first CaptureChanged to none
    first LButtonUp 0 at 640,440
  )");
}

TEST_F(PointerScenes, ADisabledChildLetsThePointerThroughToTheSiblingBehindIt) {
  Hear(kPressMessages + kMoveMessages + MessageSet{kWmMouseActivate});
  const WindowHandle form = Top("form", {50, 50, 350, 250});
  const WindowHandle front = Child("front", form, {10, 10, 110, 110});
  Child("behind", form, {60, 10, 160, 110});
  Child("inside", front, {10, 10, 30, 30});
  Do("over the enabled front", [&] { Driver().MovePointer({130, 100}); });
  Api().EnableWindow(front, false);
  Do("over both, the front disabled", [&] { Driver().MovePointer({131, 100}); });
  Do("press", [&] { Driver().Press(kLeftButton); });
  Do("release", [&] { Driver().Release(kLeftButton); });
  Do("over the disabled one alone", [&] { Driver().MovePointer({100, 130}); });
  Do("press", [&] { Driver().Press(kLeftButton); });
  Do("release", [&] { Driver().Release(kLeftButton); });
  Do("over an enabled child of the disabled one", [&] { Driver().MovePointer({75, 75}); });
  Expect(R"(
    * over the enabled front
    front MouseMove 0 at 70,40
    * over both, the front disabled
    behind MouseMove 0 at 21,40
    * press
    behind MouseActivate
    form MouseActivate
    behind LButtonDown 1 at 21,40
    * release
    behind CaptureChanged to none
    behind LButtonUp 0 at 21,40
    * over the disabled one alone
    form MouseMove 0 at 50,80
    * press
    form LButtonDown 1 at 50,80
    * release
    form CaptureChanged to none
    form LButtonUp 0 at 50,80
    * over an enabled child of the disabled one
    form MouseMove 0 at 25,25
  )");
}

TEST_F(PointerScenes, ADisabledFormGetsNothing) {
  TwoForms();
  Hear(kFocusMessages + kPressMessages + kMoveMessages);
  Api().EnableWindow(one, false);
  Do("over it", [&] { Driver().MovePointer({70, 70}); });
  Do("press", [&] { Driver().Press(kLeftButton); });
  Do("release", [&] { Driver().Release(kLeftButton); });
  NoteFocus();
  Expect(R"(
    * over it
    * press
    * release
    active two, focus two
  )");
}

TEST_F(PointerScenes, TheFirstPressesOfAllMayBeADoubleClick) {
  TwoForms();
  Hear({kWmLButtonDown, kWmLButtonDblClk});
  Click({80, 80});
  Driver().Advance(300);
  Click({80, 80});
  Expect(R"(
    first LButtonDown 1 at 20,20
    first LButtonDblClk 1 at 20,20
  )");
}

TEST_F(PointerScenes, ADoubleClickIsWithinARectangleAroundTheFirstPress) {
  TwoForms();
  On(other, kWmMouseActivate, [](WParam, LParam) { return 4; });
  Hear({kWmLButtonDown, kWmLButtonDblClk});
  for (const int distance : {0, 1, 2, 3, -1, -2, -3}) {
    Do(std::to_string(distance) + " to the right, then below", [&] {
      Click({350, 100});  // ends the click before
      Click({80, 80});
      Click({80 + distance, 80});
      Click({350, 100});
      Click({80, 80});
      Click({80, 80 + distance});
    });
  }
  Do("after half a second", [&] {
    Click({350, 100});
    Click({80, 80});
    Driver().Advance(560);
    Click({80, 80});
  });
  Expect(R"(
    * 0 to the right, then below
    first LButtonDown 1 at 20,20
    first LButtonDblClk 1 at 20,20
    first LButtonDown 1 at 20,20
    first LButtonDblClk 1 at 20,20
    * 1 to the right, then below
    first LButtonDown 1 at 20,20
    first LButtonDblClk 1 at 21,20
    first LButtonDown 1 at 20,20
    first LButtonDblClk 1 at 20,21
    * 2 to the right, then below
    first LButtonDown 1 at 20,20
    first LButtonDown 1 at 22,20
    first LButtonDown 1 at 20,20
    first LButtonDown 1 at 20,22
    * 3 to the right, then below
    first LButtonDown 1 at 20,20
    first LButtonDown 1 at 23,20
    first LButtonDown 1 at 20,20
    first LButtonDown 1 at 20,23
    * -1 to the right, then below
    first LButtonDown 1 at 20,20
    first LButtonDblClk 1 at 19,20
    first LButtonDown 1 at 20,20
    first LButtonDblClk 1 at 20,19
    * -2 to the right, then below
    first LButtonDown 1 at 20,20
    first LButtonDown 1 at 18,20  [system: the rectangle of a double click]
    first LButtonDblClk 1 at 18,20  [memory: the rectangle of a double click]
    first LButtonDown 1 at 20,20
    first LButtonDown 1 at 20,18  [system: the rectangle of a double click]
    first LButtonDblClk 1 at 20,18  [memory: the rectangle of a double click]
    * -3 to the right, then below
    first LButtonDown 1 at 20,20
    first LButtonDown 1 at 17,20
    first LButtonDown 1 at 20,20
    first LButtonDown 1 at 20,17
    * after half a second
    first LButtonDown 1 at 20,20
    first LButtonDown 1 at 20,20
  )");
}

TEST_F(PointerScenes, AThirdPressBeginsANewClick) {
  TwoForms();
  Hear(kPressMessages);
  Driver().MovePointer({80, 80});
  Do("three clicks", [&] {
    Click({80, 80});
    Click({80, 80});
    Click({80, 80});
  });
  Do("one on another window", [&] {
    Click({140, 80});
    Click({80, 80});
  });
  Do("two buttons", [&] {
    Click({140, 80});
    Click({80, 80});
    Driver().Press(kRightButton);
    Driver().Release(kRightButton);
    Click({80, 80});
  });
  Expect(R"(
    * three clicks
    first LButtonDown 1 at 20,20
    first CaptureChanged to none
    first LButtonUp 0 at 20,20
    first LButtonDblClk 1 at 20,20
    first CaptureChanged to none
    first LButtonUp 0 at 20,20
    first LButtonDown 1 at 20,20
    first CaptureChanged to none
    first LButtonUp 0 at 20,20
    * one on another window
    second LButtonDown 1 at 20,20
    second CaptureChanged to none
    second LButtonUp 0 at 20,20
    first LButtonDown 1 at 20,20
    first CaptureChanged to none
    first LButtonUp 0 at 20,20
    * two buttons
    second LButtonDown 1 at 20,20
    second CaptureChanged to none
    second LButtonUp 0 at 20,20
    first LButtonDown 1 at 20,20
    first CaptureChanged to none
    first LButtonUp 0 at 20,20
    first RButtonDown 2 at 20,20
    first CaptureChanged to none
    first RButtonUp 0 at 20,20
    first LButtonDown 1 at 20,20
    first CaptureChanged to none
    first LButtonUp 0 at 20,20
  )");
}

TEST_F(PointerScenes, TheWheelGoesToTheWindowUnderThePointer) {
  TwoForms();
  Hear({kWmMouseWheel});
  Api().SetFocus(other);
  Do("over a child of another form", [&] {
    Driver().MovePointer({70, 70});
    Driver().Wheel(1);
  });
  Do("over nothing of ours", [&] {
    Driver().MovePointer({700, 500});
    Driver().Wheel(-2);
  });
  Do("over another form, the capture elsewhere", [&] {
    Api().SetCapture(other);
    Driver().MovePointer({70, 70});
    Driver().Wheel(1);
    Api().ReleaseCapture();
  });
  Expect(R"(
    * over a child of another form
    first MouseWheel 120 at 70,70
    one MouseWheel 120 at 70,70
    * over nothing of ours
    * over another form, the capture elsewhere
    other MouseWheel 120 at 70,70
    two MouseWheel 120 at 70,70
  )");
}

TEST_F(PointerScenes, TheCaptureGoesFromOneToAnother) {
  TwoForms();
  Hear(kPressMessages + kMoveMessages);
  Do("take it", [&] { Note("before " + NameOf(Api().SetCapture(first))); });
  Do("move over nothing of ours", [&] { Driver().MovePointer({600, 400}); });
  Do("take it again", [&] { Note("before " + NameOf(Api().SetCapture(first))); });
  Do("another takes it", [&] { Note("before " + NameOf(Api().SetCapture(other))); });
  Do("let it go", [&] { Note(Api().ReleaseCapture() ? "done" : "refused"); });
  Do("let it go again", [&] { Note(Api().ReleaseCapture() ? "done" : "refused"); });
  Do("nobody takes it", [&] { Note("before " + NameOf(Api().SetCapture({}))); });
  Expect(R"(
    * take it
    before none
    * move over nothing of ours
    first MouseMove 0 at 540,340
    * take it again
    before first
    * another takes it
    first CaptureChanged to other
    before first
    * let it go
    other CaptureChanged to none
    done
    * let it go again
    done
    * nobody takes it
    before none
  )");
}

TEST_F(PointerScenes, ACaptureEndsWithDisablingHidingAndEnding) {
  TwoForms();
  Hear(kStateMessages + MessageSet{kWmCaptureChanged});
  Api().SetCapture(first);
  Do("disable the holder", [&] { Api().EnableWindow(first, false); });
  Note("capture " + NameOf(Api().GetCapture()));
  Do("enable it", [&] { Api().EnableWindow(first, true); });
  Do("enable it again", [&] { Api().EnableWindow(first, true); });
  Api().SetCapture(first);
  Do("disable its form", [&] { Api().EnableWindow(one, false); });
  Note("capture " + NameOf(Api().GetCapture()));
  Do("disable it again", [&] { Api().EnableWindow(one, false); });
  Api().EnableWindow(one, true);
  Api().SetCapture(first);
  Do("hide the holder", [&] { Api().ShowWindow(first, kSwHide); });
  Note("capture " + NameOf(Api().GetCapture()));
  Api().ShowWindow(first, kSwShow);
  Api().SetCapture(first);
  Do("hide its form", [&] { Api().ShowWindow(one, kSwHide); });
  Note("capture " + NameOf(Api().GetCapture()));
  Api().ShowWindow(one, kSwShow);
  Api().SetCapture(first);
  Do("end the holder", [&] { Api().DestroyWindow(first); });
  Note("capture " + NameOf(Api().GetCapture()));
  Api().SetCapture(second);
  Do("end its form", [&] { Api().DestroyWindow(one); });
  Note("capture " + NameOf(Api().GetCapture()));
  Expect(R"(
    * disable the holder
    first CancelMode
    first CaptureChanged to none
    first Enable 0
    capture none
    * enable it
    first Enable 1
    * enable it again
    * disable its form
    one CancelMode
    one Enable 0
    capture first
    * disable it again
    one CancelMode
    one Enable 1
    * hide the holder
    capture first
    * hide its form
    capture first
    * end the holder
    first Destroy
    capture none
    * end its form
    one Destroy
    second Destroy
    capture none
  )");
}

TEST_F(PointerScenes, APressThatIsNotToActivate) {
  TwoForms();
  Hear(kFocusMessages + kPressMessages);
  On(first, kWmMouseActivate, [](WParam, LParam) { return 3; });
  Do("press what answers not to activate", [&] { Click({70, 70}); });
  NoteFocus();
  On(first, kWmMouseActivate, [](WParam, LParam) { return 4; });
  Do("press what answers not to activate and to take the press away", [&] { Click({70, 70}); });
  NoteFocus();
  On(first, kWmMouseActivate, [](WParam, LParam) { return 2; });
  Do("press what answers to activate and to take the press away", [&] { Click({70, 70}); });
  NoteFocus();
  Expect(R"(
    * press what answers not to activate
    first MouseActivate
    first LButtonDown 1 at 10,10
    first CaptureChanged to none
    first LButtonUp 0 at 10,10
    active two, focus two
    * press what answers not to activate and to take the press away
    first MouseActivate
    first LButtonUp 0 at 10,10
    active two, focus two
    * press what answers to activate and to take the press away
    first MouseActivate
    two Activate 0 to one
    one Activate 2 from two
    two KillFocus to one
    one SetFocus from two
    first LButtonUp 0 at 10,10
    active one, focus one
  )");
}

}  // namespace
}  // namespace levelwidgets::testing
