// The windows of the desktop in memory.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <levelwidgets/platform/memory/memory_clock.h>
#include <levelwidgets/platform/memory/memory_drawing.h>
#include <levelwidgets/platform/memory/memory_screen.h>
#include <levelwidgets/platform/memory/window_frame.h>
#include <levelwidgets/platform/memory/window_tree.h>
#include <levelwidgets/platform/window.h>

namespace levelwidgets::memory {

// Makes what answers the messages of one window of a built-in class ("EDIT"). Texts in its messages are
// bytes of the code page, ended by 0.
using ClassFactory = std::function<std::unique_ptr<WindowClient>()>;

// Where the pointer is and which keys (and buttons, by their key codes) are down.
struct InputState {
  PixelPoint pointer;
  std::array<bool, 256> down{};
  WindowHandle menu;  // the open menu, to which all input goes
  int pointer_shape = kIdcArrow;
};

// Which window the pointer is over: the deepest enabled one, or none.
struct PointerHit {
  WindowHandle window;     // gets the pointer's messages; none over a frame or what is disabled
  WindowHandle top_level;  // also when its frame is hit
  bool disabled = false;   // the top-level window takes no input
};

// Where in a window the pointer is: WM_SETCURSOR names it.
inline constexpr LParam kHtClient = 1;

// Beyond the promises of WindowApi:
// - A child starts behind its siblings, a top-level window in front of its band; a window that is neither
//   child nor popup gets a caption.
// - kWmCreate comes with no parameters and refuses the window by -1; kWmSize and kWmMove follow it.
// - Hiding a focused child gives the focus to its parent, disabling it to nobody.
// - A window that answers kWmPaint again and again without BeginPaint raises std::logic_error, which names
//   its class, out of whatever did the pending paints. The system would hang.
// - The title of a plain window is kept as it is set; no message reports it.
class MemoryWindows final : public WindowApi {
 public:
  MemoryWindows(MemoryScreen& screen, MemoryDrawing& drawing, MemoryClock& clock);
  ~MemoryWindows() override;

  // --- For the desktop -----------------------------------------------------------------------

  WindowTree& Tree() { return tree_; }
  InputState& Input() { return input_; }
  // Who is handed to window procedures instead of this, when it stands behind another one.
  void SetOutwardApi(WindowApi& api) { outward_ = &api; }
  // The name counts without case. `pointer_shape` is the pointer's over windows of the class.
  void RegisterClass(std::string_view name, ClassFactory factory, int pointer_shape = kIdcArrow);

  PointerHit WindowAt(PixelPoint screen);
  FramePart FrameAt(WindowHandle top_level, PixelPoint screen);
  // Those that a press there drags.
  FrameEdges EdgesAt(WindowHandle top_level, PixelPoint screen);
  // Whether its caption can be dragged.
  bool CanBeMoved(WindowHandle top_level);
  // Maximises a window that can be, or makes it what it was before.
  void DoubleClickCaption(WindowHandle top_level);
  // As a press does it: asks `hit` whether to activate its top-level window. False: no message for the
  // press is wanted.
  bool ActivateByPress(WindowHandle hit, WindowHandle top_level, std::uint32_t message);
  // Destroys the open menu.
  void EndMenu();
  // Another program is active.
  void Deactivate() { Activate({}, false, true); }
  // The same, and back to the window that was active then, or else to the frontmost one.
  void LeaveProgram();
  void EnterProgram();
  const MemoryScreen& Screen() const { return screen_; }

  // Does the paint that is due next: of what is pending the outermost window, and of siblings the frontmost.
  PaintTurn PaintNext();
  // What of the client area waits for its paint and can be seen, in client pixels.
  Region PendingPaint(WindowHandle window);

  // --- WindowApi -----------------------------------------------------------------------------

  WindowHandle CreateWindowExA(const WindowRequest& request) override;
  bool DestroyWindow(WindowHandle window) override;
  bool IsWindow(WindowHandle window) override;

  WindowHandle SetParent(WindowHandle window, WindowHandle parent) override;
  WindowHandle GetParent(WindowHandle window) override;
  bool SetWindowPos(WindowHandle window, WindowHandle insert_after, PixelRect place,
                    std::uint32_t flags) override;
  bool GetWindowRect(WindowHandle window, PixelRect& rect) override;
  bool GetClientRect(WindowHandle window, PixelRect& rect) override;
  bool ClientToScreen(WindowHandle window, PixelPoint& point) override;
  bool ScreenToClient(WindowHandle window, PixelPoint& point) override;
  PixelRect AdjustWindowRectEx(PixelRect client, std::uint32_t style, std::uint32_t ex_style) override;

  std::intptr_t SetWindowLongA(WindowHandle window, int index, std::intptr_t value) override;
  std::intptr_t GetWindowLongA(WindowHandle window, int index) override;
  bool SetWindowTextA(WindowHandle window, std::string_view text) override;
  std::string GetWindowTextA(WindowHandle window) override;

  bool ShowWindow(WindowHandle window, int command) override;
  bool IsWindowVisible(WindowHandle window) override;
  bool EnableWindow(WindowHandle window, bool enable) override;
  bool IsWindowEnabled(WindowHandle window) override;

  WindowHandle SetFocus(WindowHandle window) override;
  WindowHandle GetFocus() override { return focus_; }
  WindowHandle SetActiveWindow(WindowHandle window) override;
  WindowHandle GetActiveWindow() override { return active_; }

  WindowHandle SetCapture(WindowHandle window) override;
  bool ReleaseCapture() override;
  WindowHandle GetCapture() override { return capture_; }
  bool GetCursorPos(PixelPoint& point) override;
  int SetCursor(int shape) override { return std::exchange(input_.pointer_shape, shape); }
  std::int16_t GetKeyState(int code) override;
  std::int16_t GetAsyncKeyState(int code) override { return GetKeyState(code); }

  LResult SendMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;
  bool PostMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;
  LResult CallWindowProcA(std::intptr_t previous, WindowHandle window, std::uint32_t message, WParam wparam,
                          LParam lparam) override;
  LResult DefWindowProcA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

  DcHandle GetDC(WindowHandle window) override;
  bool ReleaseDC(WindowHandle window, DcHandle dc) override;
  bool InvalidateRect(WindowHandle window) override;
  bool InvalidateRect(WindowHandle window, const PixelRect& area) override;
  bool UpdateWindow(WindowHandle window) override;
  using WindowApi::BeginPaint;
  DcHandle BeginPaint(WindowHandle window, PixelRect& part) override;
  bool EndPaint(WindowHandle window) override;

 private:
  // Life
  bool Prepare(Window& window, const WindowRequest& request);
  void SendFirstSize(WindowHandle window);
  void DestroyOwned(WindowHandle owner);
  void Retire(WindowHandle window);
  void SendDestroy(WindowHandle window);
  void Free(Window& window);

  // Messages
  LResult CallClient(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam);
  LResult ForwardToParent(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam,
                          LResult without_parent);
  LResult StoredText(Window& window, WParam room, LParam buffer);
  LResult ShapePointer(WindowHandle window, WParam over, LParam where);
  void DoSystemCommand(WindowHandle window, WParam command);

  // Place
  // What a window was before a change of its place, order or visibility.
  struct Before {
    Region visible;  // of the outer rectangle, in the store of `root`
    PixelRect rect;
    PixelPoint client_corner;  // in the parent's client pixels
    PixelSize client_size;
    std::uint32_t style = 0;
    bool shown = false;
  };
  Before Remember(Window& window);
  void Rearranged(Window& window, const Before& before, bool redraw);
  Region MovePixels(Window& window, const Before& before, const Region& visible);
  void SetShown(Window& window, bool shown, bool redraw);
  PixelRect Fitting(const PixelRect& rect, std::uint32_t style) const;
  void SendMovedAndSized(WindowHandle window, const Before& before);
  void PutAt(Window& window, WindowHandle insert_after);
  void Raise(Window& window);
  void RaiseWithOwned(Window& window, const Window& front);
  void SetTopMost(Window& window, bool top_most);
  std::vector<Window*> OwnedBy(const Window& owner);
  bool CanBePlacedActive(const Window& window) const;
  void StoreStyle(Window& window, std::uint32_t style);

  // Focus
  bool Activate(WindowHandle window, bool by_press, bool move_focus);
  WindowHandle ChangeFocus(WindowHandle window);
  void LeaveHidden(WindowHandle window);
  WindowHandle NextActive(const Window& leaving);
  bool HasFocusInside(WindowHandle window);
  static bool TakesFocus(const Window& window);
  void LoseCaptureInside(const Window& window);

  // Painting
  void Invalidate(Window& window, Region area, bool children);
  void InvalidateChildren(Window& window, const Region& area, const Window* except);
  void InvalidateWithChildren(Window& window);
  void InvalidateBehind(Window& window, const Region& uncovered);
  void InvalidateFrame(Window& window);
  void QueuePaint(Window& window);
  void SortPaints();
  bool Paint(WindowHandle window);
  void CheckAnswered(WindowHandle window);
  void PaintWithChildren(WindowHandle window);

  // Minimised and maximised windows
  void TakeState(WindowHandle window, int command);
  void SetState(WindowHandle window, std::uint32_t state);
  PixelRect RectInState(const Window& window, std::uint32_t state) const;

  MemoryScreen& screen_;
  MemoryDrawing& drawing_;
  MemoryClock& clock_;
  WindowFrame frame_;
  WindowTree tree_;
  WindowApi* outward_ = this;
  struct WindowClass {
    ClassFactory factory;
    int pointer_shape = kIdcArrow;
  };
  std::map<std::string, WindowClass> classes_;  // by name in upper case
  InputState input_;

  PixelSize smallest_;  // of windows with a caption or a border for sizing
  PixelSize largest_;

  WindowHandle focus_;
  WindowHandle active_;
  WindowHandle active_when_left_;
  WindowHandle capture_;

  std::vector<WindowHandle> to_paint_;  // the next one last, after SortPaints
  std::size_t sorted_paints_ = 0;       // how many of them, from the beginning, are in their order
  std::uint64_t order_when_sorted_ = 0;
  std::uint64_t paint_turn_ = 1;
  // Parts of freed windows, kept until no message is being handled: one may be handling its own end.
  std::vector<std::unique_ptr<WindowClient>> retired_;
  int messages_in_progress_ = 0;
};

}  // namespace levelwidgets::memory
