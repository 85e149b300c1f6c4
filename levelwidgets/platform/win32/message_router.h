// From the system's window procedures to the clients and window procedures of the seam.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>

#include <levelwidgets/platform/win32/exception_relay.h>
#include <levelwidgets/platform/window.h>

namespace levelwidgets::win32 {

// Knows every window made through the seam. Keeps those promises about plain windows that the system
// does not keep by itself: the press capture, the background that nobody erases, and moves only when the
// pointer has moved.
class MessageRouter {
 public:
  MessageRouter(WindowApi& windows, ExceptionRelay& relay);
  // Destroys the windows that are left, silently.
  ~MessageRouter();
  MessageRouter(const MessageRouter&) = delete;
  MessageRouter& operator=(const MessageRouter&) = delete;

  // The operations of WindowApi that deal with clients and procedures.
  WindowHandle CreateWindowExA(const WindowRequest& request);
  std::intptr_t SetProcedure(WindowHandle window, std::intptr_t procedure);
  std::intptr_t GetProcedure(WindowHandle window);
  LResult CallWindowProcA(std::intptr_t previous, WindowHandle window, std::uint32_t message, WParam wparam,
                          LParam lparam);

  std::size_t LiveWindows() const;
  // Takes the next move for one, wherever it goes.
  void ForgetPointer() { pointer_.reset(); }

 private:
  struct Native;
  struct Window {
    bool plain = false;
    WindowClient* client = nullptr;
    WindowProc replacement = nullptr;  // set while the native procedure is our trampoline
  };

  Window* Find(WindowHandle window);
  std::intptr_t DeliverToClient(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam);
  std::intptr_t DeliverToReplacement(WindowHandle window, std::uint32_t message, WParam wparam,
                                     LParam lparam);
  bool Suppressed(WindowHandle window, std::uint32_t message, LParam lparam);
  bool PointerRests(WindowHandle window, LParam lparam);
  void PointerLeft();
  void TrackPress(WindowHandle window, std::uint32_t message, WParam wparam);
  void Forget(WindowHandle window);

  WindowApi& windows_;
  ExceptionRelay& relay_;
  std::unordered_map<std::uint32_t, Window> known_;
  std::set<std::intptr_t> native_procedures_;  // all that SetProcedure and GetProcedure have returned
  bool pressed_ = false;
  std::optional<PixelPoint> pointer_;  // screen pixels, of the last move delivered
};

}  // namespace levelwidgets::win32
