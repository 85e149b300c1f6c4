// Windows that are shown, hidden, sized and moved.
#include <levelwidgets/testing/scenes/scene.h>

namespace levelwidgets::testing {
namespace {

using ShowScenes = SceneTest;

constexpr std::uint32_t kCaptioned =
    kWsCaption | kWsSysMenu | kWsMinimizeBox | kWsThickFrame | kWsClipChildren;

TEST_F(ShowScenes, AFormIsMadeShownHiddenAndShownAgain) {
  Hear(kFocusMessages + kPlaceMessages);
  WindowHandle form;
  Do("make it", [&] { form = Top("form", {50, 50, 350, 250}, kHiddenForm); });
  Do("show it", [&] { Note(Api().ShowWindow(form, kSwShow) ? "was shown" : "was hidden"); });
  NoteFocus();
  Do("hide it", [&] { Note(Api().ShowWindow(form, kSwHide) ? "was shown" : "was hidden"); });
  NoteFocus();
  Do("show it again", [&] { Note(Api().ShowWindow(form, kSwShow) ? "was shown" : "was hidden"); });
  Do("show it once more", [&] { Note(Api().ShowWindow(form, kSwShow) ? "was shown" : "was hidden"); });
  Expect(R"(
    * make it
    form Size 300,200
    form Move 50,50
    * show it
    form ShowWindow 1
    form Activate 1 from none
    form SetFocus from none
    was hidden
    active form, focus form
    * hide it
    form ShowWindow 0
    form Activate 0 to none
    form KillFocus to none
    was shown
    active none, focus none
    * show it again
    form ShowWindow 1
    form Activate 1 from none
    form SetFocus from none
    was hidden
    * show it once more
    was shown
  )");
}

TEST_F(ShowScenes, AMinimisedFormIsOnNoMonitorAndTheNextOneIsActive) {
  const WindowHandle other = Top("other", {450, 100, 600, 300}, kCaptioned | kWsVisible);
  const WindowHandle form = Top("form", {100, 100, 400, 300}, kCaptioned | kWsVisible);
  const auto note_place = [&] {
    PixelRect rect;
    Api().GetWindowRect(form, rect);
    Note(rect.right <= 0 ? "on no monitor" : rect.left == 100 ? "at its place" : "an icon");
  };
  Do("minimise it", [&] { Driver().SystemCommand(form, kScMinimize); });
  note_place();
  NoteFocus();
  Api().SetActiveWindow(other);
  Do("restore it", [&] { Driver().SystemCommand(form, kScRestore); });
  note_place();
  NoteFocus();
  Expect(R"(
    * minimise it
    on no monitor  [memory: icons on the desktop]
    an icon  [system: icons on the desktop]
    active other, focus other  [memory: icons on the desktop]
    active form, focus none  [system: icons on the desktop]
    * restore it
    at its place
    active form, focus form
  )");
}

TEST_F(ShowScenes, ACaptionedFormIsResizedWhenItIsFirstShown) {
  Hear({kWmActivate, kWmSetFocus, kWmKillFocus, kWmShowWindow, kWmSize});
  const PixelRect client{0, 0, 300, 200};
  const PixelRect outer = Api().AdjustWindowRectEx(client, kCaptioned, 0);
  WindowHandle form;
  Do("make it", [&] { form = Top("form", outer.Offset(50 - outer.left, 50 - outer.top), kCaptioned); });
  Do("size it", [&] {
    Api().SetWindowPos(form, {}, {0, 0, outer.width() + 20, outer.height() + 10},
                       kSwpNoMove | kSwpNoZOrder | kSwpNoActivate);
  });
  Do("show it", [&] { Api().ShowWindow(form, kSwShow); });
  Do("hide it", [&] { Api().ShowWindow(form, kSwHide); });
  Do("show it again", [&] { Api().ShowWindow(form, kSwShow); });
  Expect(R"(
    * make it
    * size it
    form Size 320,210
    * show it
    form ShowWindow 1
    form Activate 1 from none
    form SetFocus from none
    form Size 320,210
    * hide it
    form ShowWindow 0
    form Activate 0 to none
    form KillFocus to none
    * show it again
    form ShowWindow 1
    form Activate 1 from none
    form SetFocus from none
  )");
}

TEST_F(ShowScenes, AFormThatIsMadeShown) {
  Hear(kFocusMessages + kPlaceMessages);
  Do("without a caption", [&] { Top("plain", {50, 50, 350, 250}); });
  Hear({kWmActivate, kWmSetFocus, kWmKillFocus, kWmShowWindow});
  Do("with a caption", [&] { Top("captioned", {50, 50, 350, 250}, kCaptioned | kWsVisible); });
  Expect(R"(
    * without a caption
    plain Size 300,200
    plain Move 50,50
    plain ShowWindow 1
    plain Activate 1 from none
    plain SetFocus from none
    * with a caption
    captioned ShowWindow 1
    plain Activate 0 to captioned
    captioned Activate 1 from plain
    plain KillFocus to captioned
    captioned SetFocus from plain
  )");
}

TEST_F(ShowScenes, AChildIsMadeShownMovedAndHidden) {
  const WindowHandle form = Top("form", {50, 50, 350, 250});
  Driver().Settle();
  Hear(kFocusMessages + kPlaceMessages);
  WindowHandle child;
  Do("make it", [&] { child = Child("child", form, {10, 10, 60, 40}, kWsChild); });
  Do("show it", [&] { Note(Api().ShowWindow(child, kSwShow) ? "was shown" : "was hidden"); });
  NoteFocus();
  Do("move and size it", [&] {
    Api().SetWindowPos(child, {}, {20, 30, 80, 90}, kSwpNoZOrder | kSwpNoActivate);
  });
  Do("place it where it is", [&] { Api().SetWindowPos(child, {}, {20, 30, 80, 90}, kSwpNoZOrder); });
  Do("hide it", [&] { Note(Api().ShowWindow(child, kSwHide) ? "was shown" : "was hidden"); });
  Do("show it by its placing",
     [&] { Api().SetWindowPos(child, {}, {}, kSwpNoMove | kSwpNoSize | kSwpNoZOrder | kSwpShowWindow); });
  Do("hide it by its placing",
     [&] { Api().SetWindowPos(child, {}, {}, kSwpNoMove | kSwpNoSize | kSwpNoZOrder | kSwpHideWindow); });
  Expect(R"(
    * make it
    child Size 50,30
    child Move 10,10
    * show it
    child ShowWindow 1
    was hidden
    active form, focus form
    * move and size it
    child Move 20,30
    child Size 60,60
    * place it where it is
    * hide it
    child ShowWindow 0
    was shown
    * show it by its placing
    * hide it by its placing
  )");
}

TEST_F(ShowScenes, FormsShownWithoutActivation) {
  const WindowHandle form = Top("form", {50, 50, 350, 250});
  const WindowHandle quiet = Top("quiet", {100, 100, 200, 200}, kHiddenForm);
  Driver().Settle();
  Hear(kFocusMessages + MessageSet{kWmShowWindow});
  Do("show without activation", [&] { Api().ShowWindow(quiet, kSwShowNoActivate); });
  NoteFocus();
  NoteOrder();
  Do("hide it", [&] { Api().ShowWindow(quiet, kSwHide); });
  NoteFocus();
  Do("show by placing", [&] {
    Api().SetWindowPos(quiet, {}, {},
                       kSwpNoMove | kSwpNoSize | kSwpNoZOrder | kSwpNoActivate | kSwpShowWindow);
  });
  NoteFocus();
  Do("place with activation", [&] { Api().SetWindowPos(form, {}, {}, kSwpNoMove | kSwpNoSize); });
  NoteFocus();
  NoteOrder();
  Do("place with activation, the order kept",
     [&] { Api().SetWindowPos(quiet, {}, {}, kSwpNoMove | kSwpNoSize | kSwpNoZOrder); });
  NoteFocus();
  NoteOrder();
  Expect(R"(
    * show without activation
    quiet ShowWindow 1
    active form, focus form
    order quiet > form
    * hide it
    quiet ShowWindow 0
    active form, focus form
    * show by placing
    active form, focus form
    * place with activation
    active form, focus form
    order form > quiet
    * place with activation, the order kept
    form Activate 0 to quiet
    quiet Activate 1 from form
    form KillFocus to quiet
    quiet SetFocus from form
    active quiet, focus quiet
    order quiet > form
  )");
}

TEST_F(ShowScenes, CaptionedFormsHaveASmallestAndALargestSize) {
  const auto note = [&](const char* what, WindowHandle window, const char* limit, PixelSize asked) {
    PixelRect rect;
    Api().GetWindowRect(window, rect);
    const bool as_asked = rect.width() == asked.width && rect.height() == asked.height;
    Note(std::string(what) + (as_asked ? " is as asked" : limit));
  };
  const PixelSize screen = Driver().GetPlatform().Screen().Size();
  const WindowHandle captioned = Top("captioned", {50, 50, 350, 250}, kCaptioned);
  const WindowHandle plain = Top("plain", {50, 50, 350, 250}, kHiddenForm);
  const auto size = [&](WindowHandle window, int width, int height) {
    Api().SetWindowPos(window, {}, {0, 0, width, height}, kSwpNoMove | kSwpNoZOrder | kSwpNoActivate);
  };
  for (const WindowHandle window : {captioned, plain}) {
    Note("* " + NameOf(window));
    size(window, 5, 5);
    note("5 by 5", window, " is larger", {5, 5});
    size(window, 300, 200);
    note("300 by 200", window, " is otherwise", {300, 200});
    size(window, screen.width, screen.height);
    note("the screen's size", window, " is otherwise", screen);
    size(window, screen.width + 500, screen.height + 500);
    note("more than the screen", window, " is smaller", {screen.width + 500, screen.height + 500});
  }
  PixelRect rect;
  Api().GetWindowRect(captioned, rect);
  const PixelSize more{rect.width() - screen.width, rect.height() - screen.height};
  const bool largest = more.width > 0 && more.width <= 40 && more.height > 0 && more.height <= 40;
  Note(largest ? "the largest is the screen with its frame" : "the largest is otherwise");
  size(captioned, 5, 5);
  Api().GetWindowRect(captioned, rect);
  const PixelRect smallest = rect;
  const PixelRect frame = Api().AdjustWindowRectEx({0, 0, 0, 0}, kCaptioned, 0);
  Note(rect.height() == frame.height() ? "the lowest is its frame" : "the lowest is otherwise");
  const WindowHandle small = Top("small", {50, 50, 55, 55}, kCaptioned);
  note("made 5 by 5", small, " is larger", {5, 5});
  Api().GetWindowRect(small, rect);
  const bool same = rect.width() == smallest.width() && rect.height() == smallest.height();
  Note(same ? "and as small as it can become" : "and otherwise");
  Expect(R"(
    * captioned
    5 by 5 is larger
    300 by 200 is as asked
    the screen's size is as asked
    more than the screen is smaller
    * plain
    5 by 5 is as asked
    300 by 200 is as asked
    the screen's size is as asked
    more than the screen is as asked
    the largest is the screen with its frame
    the lowest is its frame
    made 5 by 5 is larger
    and as small as it can become
  )");
}

}  // namespace
}  // namespace levelwidgets::testing
