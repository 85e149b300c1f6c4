// Scenes of windows and input, driven through the seam on every platform. What the windows hear, and what the
// calls answer, is written down and compared with one text for all platforms.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <levelwidgets/platform/driver.h>

namespace levelwidgets::testing {

// The messages that a scene writes down. Each gives one line, as "form Activate 1 from none".
using MessageSet = std::set<std::uint32_t>;
extern const MessageSet kFocusMessages;  // activation, focus, and the question whether a press activates
extern const MessageSet kPlaceMessages;  // showing, size and place
extern const MessageSet kPressMessages;  // buttons, wheel and capture
extern const MessageSet kMoveMessages;   // moves of the pointer
extern const MessageSet kKeyMessages;
extern const MessageSet kPaintMessages;
extern const MessageSet kStateMessages;  // enabling, cancelling, ending
MessageSet operator+(MessageSet a, const MessageSet& b);

class SceneTest : public ::testing::Test, public WindowClient {
 protected:
  static constexpr std::uint32_t kPlainForm = kWsPopup | kWsVisible | kWsClipChildren;
  static constexpr std::uint32_t kHiddenForm = kWsPopup | kWsClipChildren;
  static constexpr std::uint32_t kPlainChild = kWsChild | kWsVisible | kWsClipSiblings;

  void SetUp() override;
  void TearDown() override;
  virtual std::shared_ptr<DesktopDriver> MakeDriver();

  DesktopDriver& Driver() { return *driver_; }
  WindowApi& Api() { return driver_->GetPlatform().Windows(); }
  ClockApi& Clock() { return driver_->GetPlatform().Clock(); }

  // Windows that write down what they hear under the name given. They end with the scene.
  WindowHandle Top(const std::string& name, PixelRect rect, std::uint32_t style = kPlainForm,
                   WindowHandle owner = {}, std::uint32_t ex_style = 0);
  WindowHandle Child(const std::string& name, WindowHandle parent, PixelRect rect,
                     std::uint32_t style = kPlainChild);
  // Before the windows are made that are to be heard; nothing is written down without.
  void Hear(MessageSet messages) { heard_ = std::move(messages); }
  // What `window` does with `message` instead of the default. `handler` gives the answer.
  using Handler = std::function<LResult(WParam, LParam)>;
  void On(WindowHandle window, std::uint32_t message, Handler handler);
  LResult Default(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) {
    return Api().DefWindowProcA(window, message, wparam, lparam);
  }

  // A heading, what `action` makes happen, and all that it leaves pending.
  void Do(const std::string& heading, const std::function<void()>& action);
  // One line.
  void Note(const std::string& line);
  std::string NameOf(WindowHandle window) const;
  // "active form, focus child"
  void NoteFocus();
  // The visible windows of this scene, front to back.
  void NoteOrder();
  PixelPoint OnScreen(WindowHandle window, PixelPoint inside);

  // Compares all lines with `expected`: a line each, indented at will, empty ones left out. One that ends
  // with
  // "[memory: a difference]" or "[system: a difference]" belongs to that platform alone.
  void Expect(std::string_view expected);

  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

 private:
  std::string Line(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) const;

  std::shared_ptr<DesktopDriver> driver_;
  MessageSet heard_;
  std::vector<WindowHandle> top_level_;
  std::map<std::uint32_t, std::string> names_;
  std::string being_made_;
  std::map<std::pair<std::uint32_t, std::uint32_t>, Handler> handlers_;
  std::vector<std::string> lines_;
  bool over_ = false;
};

}  // namespace levelwidgets::testing
