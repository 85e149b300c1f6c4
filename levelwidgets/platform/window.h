// What a control asks of the operating system's windows, input and message routing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <levelwidgets/platform/constants.h>
#include <levelwidgets/platform/types.h>

namespace levelwidgets {

using WParam = std::uintptr_t;
using LParam = std::intptr_t;
using LResult = std::intptr_t;

class WindowApi;

// Receives the messages of the windows that name it. It must outlive them.
class WindowClient {
 public:
  virtual ~WindowClient() = default;
  virtual LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) = 0;
};

// A window procedure for SetWindowLongA(kGwlWndProc): replaces how a window's messages are handled.
using WindowProc = LResult (*)(WindowApi& windows, WindowHandle window, std::uint32_t message, WParam wparam,
                               LParam lparam);

struct WindowRequest {
  std::string class_name;  // "" a plain window, whose messages go to `client`
  std::string title;       // UTF-8
  std::uint32_t style = 0;
  std::uint32_t ex_style = 0;
  PixelRect rect;       // outer rectangle: screen pixels, or the parent's client pixels for a child
  WindowHandle parent;  // the parent of a child; the owner, or none, of a top-level window
  WindowClient* client = nullptr;
};

// Operations of the operating system under their own names and with its flag values. An unknown
// window makes an operation return false, 0 or a null handle; none throws.
//
// Promises about plain windows, kept on every platform:
//
// Drawing and painting
// - A window has a drawing context of its own. GetDC and BeginPaint always return it, with the objects and
//   colours last selected into it, so a paint need not select anything again. It starts with the stock
//   objects, transparent background mode and black text.
// - A window whose size changes is invalidated as a whole; of one that is moved only what comes to light,
//   because its pixels go with it. The platform never erases the background.
// - kWmPaint asks for a paint after all posted messages and input, and before a timer's tick: a parent
//   before its children, siblings from the front to the back. It comes again until BeginPaint has been
//   called. UpdateWindow asks at once.
//
// The pointer
// - Pointer messages carry client pixels in the second parameter (x in the low, y in the high word, signed)
//   and the button and key bits in the first. A press captures the pointer to its window until the last
//   button is up; this press capture, or the capture that took its place, has ended when that release is
//   delivered. Otherwise an explicit SetCapture lasts until it is released or taken over.
// - A move is delivered only when the pointer has moved since the last move, never because a window or the
//   capture changed under the pointer.
// - Before a move is delivered while no window has the capture, kWmSetCursor (with the window in its first
//   parameter) asks for the pointer's shape. Who answers other than 0 has set it; otherwise the window's
//   parents are asked, and then it is that of the window's class: an I-beam over an edit box, an arrow over
//   any other. While a window has the capture the shape stays as it is.
// - The second press on a window within the double-click time and rectangle arrives as ...DblClk instead of
//   ...Down.
// - A press activates the top-level window under it before it is delivered; it does not move the focus,
//   except as activation does. While a window has the capture, presses go straight to it and activate
//   nothing.
// - The wheel (kWmMouseWheel) goes to the window under the pointer, and up its parents until one handles
//   it. A person can set the system so that it goes to the window with the focus; the desktop in memory has
//   an option.
// - A disabled window gets no pointer messages. Those over a disabled child go to what is behind it: a
//   sibling, or else the parent; those over a disabled top-level window to nobody. Disabling sends
//   kWmCancelMode first, which ends a capture.
// - A top-level window with kWsExTransparent is seen and never hit: pointer messages go to what is behind
//   it.
//
// Focus, activation and keys
// - A top-level window that becomes active gets the focus by the default handling of its kWmActivate, or
//   after it when no window inside it has the focus by then. So the focus goes by the window of a form that
//   is not active, and what that does with it, before it reaches a control in it. GetActiveWindow gives the
//   former one while that is deactivated.
// - The active window that is hidden or ends hands on to its owner, or else to the next window behind it,
//   to tool windows last.
// - A child window that is hidden or ends hands its focus on to its parent. A window inside a hidden one
//   keeps the focus; inside one that ends it is lost, and nobody hears of it.
// - A hidden window takes focus and activation like any other, a disabled one takes neither.
// - kWmKillFocus carries the handle of the window that gets the focus, kWmSetFocus that of the one that has
//   lost it: in the low 32 bits of the first parameter, 0 when that is nobody, or no window of this
//   program. The window that loses the focus hears of it first; GetFocus then gives the other one.
// - Keys go to the focus window: kWmKeyDown, kWmChar (a character of the system's code page), kWmKeyUp;
//   with Alt held kWmSysKeyDown, kWmSysChar, kWmSysKeyUp. Shift, Ctrl and Alt are keys like any other.
//
// Place and life
// - A window with a caption or a border for sizing (neither child nor popup, or kWsThickFrame) has a
//   smallest and a largest size. One that is neither child nor popup hears its first kWmSize and kWmMove
//   when it is first shown, after it has become active; any other when it is made.
// - kWmSysCommand asks a window with a caption to do what its system menu offers (kScMinimize and the
//   others); the default does it, kScClose by kWmClose. kWmSize says in its first parameter whether the
//   window is minimised, maximised or neither, and the style has kWsMinimize or kWsMaximize. A minimised
//   window takes no part in painting and input; its client area is 0 by 0 pixels.
// - Owned windows stay in front of their owner, and whichever of them comes to the front takes the others
//   along. An owner that becomes top-most makes what it owns top-most; one of them that ceases to be makes
//   all cease.
// - DestroyWindow sends kWmDestroy to the window, then to its children, and ends its capture, focus and
//   context. It does not hear that its capture ends, and nothing is sent to `client` afterwards.
//
// docs/platforms.md lists where the two platforms still differ, and why.
class WindowApi {
 public:
  virtual ~WindowApi() = default;

  // --- Life ----------------------------------------------------------------------------------

  // A null handle when the parent is unknown or a child has none.
  virtual WindowHandle CreateWindowExA(const WindowRequest& request) = 0;
  virtual bool DestroyWindow(WindowHandle window) = 0;
  virtual bool IsWindow(WindowHandle window) = 0;

  // --- Place ---------------------------------------------------------------------------------

  // A null parent is the desktop: the window is no longer clipped by its former parent and its
  // coordinates are the screen's. Returns the former parent.
  virtual WindowHandle SetParent(WindowHandle window, WindowHandle parent) = 0;
  virtual WindowHandle GetParent(WindowHandle window) = 0;
  virtual bool SetWindowPos(WindowHandle window, WindowHandle insert_after, PixelRect place,
                            std::uint32_t flags) = 0;
  // Outer rectangle in screen pixels.
  virtual bool GetWindowRect(WindowHandle window, PixelRect& rect) = 0;
  // (0, 0, width, height) of the inner area.
  virtual bool GetClientRect(WindowHandle window, PixelRect& rect) = 0;
  virtual bool ClientToScreen(WindowHandle window, PixelPoint& point) = 0;
  virtual bool ScreenToClient(WindowHandle window, PixelPoint& point) = 0;
  // The outer rectangle whose client area is `client` for the styles given.
  virtual PixelRect AdjustWindowRectEx(PixelRect client, std::uint32_t style, std::uint32_t ex_style) = 0;

  // --- Attributes ----------------------------------------------------------------------------

  // kGwlStyle, kGwlExStyle, kGwlUserData, or kGwlWndProc with a WindowProc cast to a number (or a value
  // that this call returned before). Returns the former value; 0 for an unknown index.
  virtual std::intptr_t SetWindowLongA(WindowHandle window, int index, std::intptr_t value) = 0;
  virtual std::intptr_t GetWindowLongA(WindowHandle window, int index) = 0;
  virtual bool SetWindowTextA(WindowHandle window, std::string_view text) = 0;
  virtual std::string GetWindowTextA(WindowHandle window) = 0;

  // --- State ---------------------------------------------------------------------------------

  // Returns whether the window was visible before.
  virtual bool ShowWindow(WindowHandle window, int command) = 0;
  // Visible itself and with all its ancestors.
  virtual bool IsWindowVisible(WindowHandle window) = 0;
  // Returns whether the window was disabled before.
  virtual bool EnableWindow(WindowHandle window, bool enable) = 0;
  virtual bool IsWindowEnabled(WindowHandle window) = 0;

  // --- Focus and activation ------------------------------------------------------------------

  // Also activates the top-level window of `window`. Returns the window that had the focus.
  virtual WindowHandle SetFocus(WindowHandle window) = 0;
  virtual WindowHandle GetFocus() = 0;
  virtual WindowHandle SetActiveWindow(WindowHandle window) = 0;
  virtual WindowHandle GetActiveWindow() = 0;

  // --- Pointer and keys ----------------------------------------------------------------------

  // Directs all later pointer messages to `window`, even while the pointer is outside it. Returns the
  // window that had the capture; a different window gets kWmCaptureChanged.
  virtual WindowHandle SetCapture(WindowHandle window) = 0;
  virtual bool ReleaseCapture() = 0;
  virtual WindowHandle GetCapture() = 0;
  virtual bool GetCursorPos(PixelPoint& point) = 0;
  // The shape of the pointer from now on, a kIdc...; 0 for none that can be seen. Returns the former. The
  // next move decides again.
  virtual int SetCursor(int shape) = 0;
  // Negative while the key `code` is down, as of the message being handled.
  virtual std::int16_t GetKeyState(int code) = 0;
  // Negative while the key or pointer button `code` is down at this moment, whoever hears of its release. The
  // left button is the one that presses, also for a person who has swapped the two.
  virtual std::int16_t GetAsyncKeyState(int code) = 0;

  // --- Messages ------------------------------------------------------------------------------

  virtual LResult SendMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) = 0;
  virtual bool PostMessageA(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) = 0;
  // `previous` is a value that SetWindowLongA(kGwlWndProc) returned.
  virtual LResult CallWindowProcA(std::intptr_t previous, WindowHandle window, std::uint32_t message,
                                  WParam wparam, LParam lparam) = 0;
  virtual LResult DefWindowProcA(WindowHandle window, std::uint32_t message, WParam wparam,
                                 LParam lparam) = 0;

  // --- Painting ------------------------------------------------------------------------------

  virtual DcHandle GetDC(WindowHandle window) = 0;
  virtual bool ReleaseDC(WindowHandle window, DcHandle dc) = 0;
  // The whole client area, or what of it is in `area`, in client pixels.
  virtual bool InvalidateRect(WindowHandle window) = 0;
  virtual bool InvalidateRect(WindowHandle window, const PixelRect& area) = 0;
  // Delivers kWmPaint at once when anything of the window is invalid and can be seen.
  virtual bool UpdateWindow(WindowHandle window) = 0;
  // Between the two the context is clipped to the invalid part, which is then valid. `part` becomes the
  // rectangle around what of it can be seen, in client pixels: empty when there is nothing to paint.
  virtual DcHandle BeginPaint(WindowHandle window, PixelRect& part) = 0;
  DcHandle BeginPaint(WindowHandle window) {
    PixelRect part;
    return BeginPaint(window, part);
  }
  virtual bool EndPaint(WindowHandle window) = 0;
};

// The signed client coordinates of a pointer message.
constexpr PixelPoint PointOfLParam(LParam lparam) {
  return {static_cast<std::int16_t>(lparam & 0xFFFF), static_cast<std::int16_t>((lparam >> 16) & 0xFFFF)};
}

constexpr LParam LParamOfPoint(PixelPoint p) {
  return static_cast<LParam>(static_cast<std::uint32_t>(static_cast<std::uint16_t>(p.x)) |
                             static_cast<std::uint32_t>(static_cast<std::uint16_t>(p.y)) << 16);
}

}  // namespace levelwidgets
