// What the components of one thread have in common.
#pragma once

#include <functional>
#include <memory>
#include <unordered_map>

#include <levelwidgets/activex/com/com_ptr.h>
#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/com/owner_thread.h>
#include <levelwidgets/frame/text_conversions.h>
#include <levelwidgets/platform/win32/win32_platform.h>

namespace levelwidgets {
class Object;
}

namespace levelwidgets::activex {

class Fonts;

// Lives as long as there is a component on its thread.
class Runtime {
 public:
  static std::shared_ptr<Runtime> OfThread();
  Runtime();
  ~Runtime();
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;

  bool OnOwnThread() const { return thread_.IsCurrent(); }
  // Ends an object on the thread of this, from whichever its last reference went.
  void EndObject(std::function<void()> end) const { thread_.Call(std::move(end)); }
  win32::Win32Platform& GetPlatform() { return platform_; }
  TextConversions Texts() { return platform_.Conversions(); }
  Fonts& GetFonts() { return *fonts_; }
  // A window that nobody sees: controls without a place in a container are in it.
  WindowHandle ParkingWindow();

  // The one component object of an object of ours, so that two callers get the same. Null when it has none.
  // Callers do not own a reference to it.
  IDispatch* DispatchOf(const Object& object) const;
  void NoteDispatch(const Object& object, IDispatch* dispatch) { dispatches_[&object] = dispatch; }
  void ForgetDispatch(const Object& object) { dispatches_.erase(&object); }

 private:
  class Parking;

  OwnerThread thread_;
  win32::Win32Platform platform_;
  std::unique_ptr<Parking> parking_;
  std::unique_ptr<Fonts> fonts_;
  std::unordered_map<const Object*, IDispatch*> dispatches_;
};

}  // namespace levelwidgets::activex
