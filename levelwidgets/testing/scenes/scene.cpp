#include <levelwidgets/testing/scenes/scene.h>

#include <algorithm>

#include <levelwidgets/platform/message_names_testing.h>
#include <levelwidgets/testing/driver.h>
#include <levelwidgets/testing/scenes/lines.h>

namespace levelwidgets::testing {

namespace {

// Where the pointer rests between scenes: over no window.
constexpr PixelPoint kAway{1000, 750};

std::string PointOf(LParam lparam) {
  const PixelPoint point = PointOfLParam(lparam);
  return std::to_string(point.x) + "," + std::to_string(point.y);
}

}  // namespace

const MessageSet kFocusMessages{kWmActivate, kWmSetFocus, kWmKillFocus, kWmMouseActivate};
const MessageSet kPlaceMessages{kWmShowWindow, kWmSize, kWmMove};
const MessageSet kPressMessages{kWmLButtonDown, kWmLButtonUp,  kWmLButtonDblClk, kWmRButtonDown,
                                kWmRButtonUp,   kWmMouseWheel, kWmCaptureChanged};
const MessageSet kMoveMessages{kWmMouseMove};
const MessageSet kKeyMessages{kWmKeyDown, kWmKeyUp, kWmChar, kWmSysKeyDown, kWmSysKeyUp, kWmSysChar};
const MessageSet kPaintMessages{kWmPaint};
const MessageSet kStateMessages{kWmEnable, kWmCancelMode, kWmDestroy, kWmClose};

MessageSet operator+(MessageSet a, const MessageSet& b) {
  a.insert(b.begin(), b.end());
  return a;
}

void SceneTest::SetUp() {
  driver_ = MakeDriver();
  driver_->MovePointer(kAway);
}

std::shared_ptr<DesktopDriver> SceneTest::MakeDriver() { return TestDriver(); }

void SceneTest::TearDown() {
  over_ = true;
  handlers_.clear();
  Api().ReleaseCapture();
  for (const WindowHandle window : top_level_) Api().DestroyWindow(window);
  driver_->Settle();
}

// --- Windows ---------------------------------------------------------------------------------

WindowHandle SceneTest::Top(const std::string& name, PixelRect rect, std::uint32_t style, WindowHandle owner,
                            std::uint32_t ex_style) {
  being_made_ = name;
  const WindowHandle window = Api().CreateWindowExA({"", name, style, ex_style, rect, owner, this});
  being_made_.clear();
  names_[window.value] = name;
  top_level_.push_back(window);
  return window;
}

WindowHandle SceneTest::Child(const std::string& name, WindowHandle parent, PixelRect rect,
                              std::uint32_t style) {
  being_made_ = name;
  const WindowHandle window = Api().CreateWindowExA({"", name, style, 0, rect, parent, this});
  being_made_.clear();
  names_[window.value] = name;
  return window;
}

void SceneTest::On(WindowHandle window, std::uint32_t message, Handler handler) {
  handlers_[{window.value, message}] = std::move(handler);
}

LResult SceneTest::OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
  if (!over_ && heard_.contains(message)) Note(Line(window, message, wparam, lparam));
  const auto found = handlers_.find({window.value, message});
  if (found == handlers_.end()) return Default(window, message, wparam, lparam);
  const Handler handler = found->second;  // which may be replaced meanwhile
  return handler(wparam, lparam);
}

std::string SceneTest::NameOf(WindowHandle window) const {
  if (!window) return "none";
  const auto found = names_.find(window.value);
  if (found != names_.end()) return found->second;
  return being_made_.empty() ? "other" : being_made_;
}

std::string SceneTest::Line(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) const {
  const std::string start = NameOf(window) + " " + NameOfMessage(message);
  const WindowHandle first{static_cast<std::uint32_t>(wparam)};
  const WindowHandle second{static_cast<std::uint32_t>(lparam)};
  switch (message) {
    case kWmKillFocus: return start + " to " + NameOf(first);
    case kWmSetFocus: return start + " from " + NameOf(first);
    case kWmCaptureChanged: return start + " to " + NameOf(second);
    case kWmActivate:
      return start + " " + std::to_string(wparam & 0xFFFF) + (wparam != 0 ? " from " : " to ") +
             NameOf(second);
    case kWmMove:
    case kWmSize: return start + " " + PointOf(lparam);
    case kWmEnable:
    case kWmShowWindow:
    case kWmChar:
    case kWmSysChar: return start + " " + std::to_string(wparam);
    case kWmKeyDown:
    case kWmKeyUp:
    case kWmSysKeyDown:
    case kWmSysKeyUp:
      return start + " " + std::to_string(wparam) + ((lparam & 1 << 29) != 0 ? " with Alt" : "");
    case kWmMouseWheel:
      return start + " " + std::to_string(static_cast<std::int16_t>(wparam >> 16)) + " at " + PointOf(lparam);
    case kWmMouseMove:
    case kWmLButtonDown:
    case kWmLButtonUp:
    case kWmLButtonDblClk:
    case kWmRButtonDown:
    case kWmRButtonUp: return start + " " + std::to_string(wparam) + " at " + PointOf(lparam);
    default: return start;
  }
}

PixelPoint SceneTest::OnScreen(WindowHandle window, PixelPoint inside) {
  Api().ClientToScreen(window, inside);
  return inside;
}

// --- Lines -----------------------------------------------------------------------------------

void SceneTest::Do(const std::string& heading, const std::function<void()>& action) {
  driver_->Settle();
  Note("* " + heading);
  action();
  driver_->Settle();
}

void SceneTest::Note(const std::string& line) { lines_.push_back(line); }

void SceneTest::NoteFocus() {
  Note("active " + NameOf(Api().GetActiveWindow()) + ", focus " + NameOf(Api().GetFocus()));
}

void SceneTest::NoteOrder() {
  std::string order;
  for (const TopLevelWindow& window : driver_->TopLevelWindows()) {
    order += (order.empty() ? "" : " > ") + NameOf(window.handle);
  }
  Note("order " + order);
}

void SceneTest::Expect(std::string_view expected) {
  driver_->Settle();
  const std::vector<std::string> wanted = LinesFor(PlatformName(), expected);
  if (wanted == lines_) return;
  ADD_FAILURE() << "The scene goes otherwise: - what was expected, + what happened\n"
                << Differing(wanted, lines_);
}

}  // namespace levelwidgets::testing
