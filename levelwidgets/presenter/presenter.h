// Shows the windows of a desktop in memory as native windows, and brings it what a person does there.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/platform/memory/desktop.h>
#include <levelwidgets/presenter/end_signals.h>
#include <levelwidgets/presenter/native_display.h>
#include <levelwidgets/presenter/native_pointer.h>
#include <levelwidgets/presenter/native_window.h>
#include <levelwidgets/presenter/primary_selection.h>

union SDL_Event;
struct SDL_WindowEvent;

namespace levelwidgets::presenter {

// Each shown top-level window has a native one: one with a caption shows its client area in the native frame,
// any other is a bare popup. Where each stands is the same on both sides, whoever moves it.
class Presenter {
 public:
  // From now on the desktop's loop waits here. Both outlive this.
  Presenter(NativeDisplay& display, memory::Desktop& desktop);
  ~Presenter();
  Presenter(const Presenter&) = delete;
  Presenter& operator=(const Presenter&) = delete;

  // Runs until no form is visible (returns 0), somebody outside asks the program to end (0), or Quit (returns
  // its status).
  int Run();

  // --- One turn of the loop, in parts ----------------------------------------------------------------

  // Makes the native windows follow the desktop's.
  void Sync();
  // Does what has come from the native side, in that order; `events` are those of one turn.
  void Handle(const std::vector<SDL_Event>& events);
  // How long nothing will happen by itself, in milliseconds; -1 for ever.
  int TimeToWait() const;

  // Of the native window that shows `window`; 0 for none.
  std::uint32_t NativeIdOf(WindowHandle window) const;

 private:
  struct Shown {
    WindowHandle window;
    std::unique_ptr<NativeWindow> native;
    std::string title;
    PixelRect part;           // on the desktop: the part of the window that is shown
    PixelSize native_size;    // that the native window was given, or has taken
    std::uint32_t state = 0;  // kWsMinimize, kWsMaximize or neither, the same on both sides
  };

  void Wait();
  void FollowTime();

  // Windows to the native side: presenter_windows.cpp.
  void SyncWindow(memory::Window& window, std::vector<Shown>& vanished);
  Shown& Appear(memory::Window& window, std::vector<Shown>& vanished);
  void Follow(Shown& shown, const memory::Window& window);
  void SyncActivation();
  void SyncClipboard();
  void FollowState(Shown& shown, std::uint32_t state);
  void RaisePopups();
  Shown* Find(WindowHandle window);
  Shown* FindNative(std::uint32_t id);

  // From the native side: presenter_input.cpp.
  std::size_t HandleKey(const std::vector<SDL_Event>& events, std::size_t at);
  void HandleEvent(const SDL_Event& event);
  void HandlePointer(const SDL_Event& event);
  void PressIn(std::uint32_t native_id, int button);
  void HandleWindow(const SDL_WindowEvent& event);
  void PointTo(std::uint32_t native_id, PixelPoint place);
  void NativeState(Shown& shown, std::uint32_t state);
  void TakePlaceAndSize(WindowHandle window);
  void MovePopups(WindowHandle form, PixelPoint by);
  void NativeMoved(Shown& shown, PixelPoint place);
  void NativeResized(Shown& shown, PixelSize size);
  void AskForFocus();
  void TakeFocus();
  bool HasOpenPopup(WindowHandle form);
  void TakeClipboard();
  void LeaveIfOutside();

  NativeDisplay& display_;
  memory::Desktop& desktop_;
  EndSignals signals_;
  NativePointer pointer_;
  PrimarySelection selection_;
  std::vector<Shown> shown_;
  std::chrono::steady_clock::time_point started_;
  std::uint64_t started_tick_;

  WindowHandle active_;  // as of the last Sync
  std::optional<std::uint64_t>
      pressed_at_;                  // SDL's milliseconds; until the keyboard has come to this program
  WindowHandle pressed_popup_;      // has become active by a press, in
  WindowHandle pressed_form_;       // this form
  std::uint32_t focus_ = 0;         // the native window with the keyboard
  std::uint32_t native_focus_ = 0;  // the same as of the last event, inside a turn
  std::string clipboard_;           // the same on both sides
  bool left_ = false;               // another program has it: no window of ours comes in front
  bool asks_for_focus_ = false;     // until SDL knows what the system has said about it
  bool pointer_left_ = false;
  bool quiet_ = false;  // nothing has come in the last turn
};

}  // namespace levelwidgets::presenter
