#include <levelwidgets/presenter/primary_selection.h>

#include <SDL.h>

#include <levelwidgets/platform/finally.h>
#include <levelwidgets/presenter/native_text.h>

namespace levelwidgets::presenter {

namespace {

std::string TakeNativeSelection() {
#if SDL_VERSION_ATLEAST(2, 26, 0)
  char* text = SDL_GetPrimarySelectionText();
  std::string taken = text ? text : "";
  SDL_free(text);
  return taken;
#else
  return {};
#endif
}

void SetNativeSelection([[maybe_unused]] const std::string& text) {
#if SDL_VERSION_ATLEAST(2, 26, 0)
  SDL_SetPrimarySelectionText(text.c_str());
#endif
}

}  // namespace

// The only class of windows that the desktop itself has.
bool PrimarySelection::IsEditBox(WindowHandle window) {
  const memory::Window* found = desktop_.Windows().Tree().Find(window);
  return found && found->class_part;
}

PrimarySelection::Selected PrimarySelection::Find() {
  memory::MemoryWindows& windows = desktop_.Windows();
  const WindowHandle window = windows.GetFocus();
  if (!IsEditBox(window) || windows.SendMessageA(window, kEmGetPasswordChar, 0, 0) != 0) return {};
  std::uint32_t first = 0;
  std::uint32_t end = 0;
  windows.SendMessageA(window, kEmGetSel, reinterpret_cast<WParam>(&first), reinterpret_cast<LParam>(&end));
  if (first == end) return {};
  return {window, static_cast<int>(first), static_cast<int>(end)};
}

void PrimarySelection::Offer() {
  for (const int button : {1, 2, 4}) {
    if (desktop_.Windows().GetKeyState(button) < 0) return;
  }
  const Selected selected = Find();
  if (selected == offered_) return;
  offered_ = selected;
  if (selected.window) SetNativeSelection(ToNativeLines(TextOf(selected)));
}

// The places of a selection are bytes of the code page.
std::string PrimarySelection::TextOf(const Selected& selected) {
  memory::MemoryWindows& windows = desktop_.Windows();
  const LResult length = windows.SendMessageA(selected.window, kWmGetTextLength, 0, 0);
  std::string bytes(static_cast<std::size_t>(length) + 1, '\0');
  windows.SendMessageA(selected.window, kWmGetText, bytes.size(), reinterpret_cast<LParam>(bytes.data()));
  const auto first = static_cast<std::size_t>(selected.first);
  return desktop_.Drawing().FromCodePage(
      std::string_view(bytes).substr(first, static_cast<std::size_t>(selected.end) - first));
}

void PrimarySelection::Insert() {
  memory::MemoryWindows& windows = desktop_.Windows();
  PixelPoint pointer;
  windows.GetCursorPos(pointer);
  const WindowHandle window = windows.WindowAt(pointer).window;
  if (!IsEditBox(window)) return;
  if ((static_cast<std::uint32_t>(windows.GetWindowLongA(window, kGwlStyle)) & kEsReadOnly) != 0) return;
  const std::string text = ToDesktopLines(TakeNativeSelection());
  if (text.empty()) return;
  windows.SetFocus(window);
  if (windows.GetFocus() != window) return;
  PlaceCaretAtPointer(window);
  // By the way of pasting, with its limits and line breaks.
  const Finally restore([this, before = desktop_.Clipboard()] { desktop_.SetClipboard(before); });
  desktop_.SetClipboard(text);
  windows.SendMessageA(window, kWmPaste, 0, 0);
  desktop_.Settle();
}

// The box answers with the lower 16 bits of the character and of the line.
void PrimarySelection::PlaceCaretAtPointer(WindowHandle window) {
  memory::MemoryWindows& windows = desktop_.Windows();
  PixelPoint point;
  windows.GetCursorPos(point);
  windows.ScreenToClient(window, point);
  const auto at =
      static_cast<std::uint32_t>(windows.SendMessageA(window, kEmCharFromPos, 0, LParamOfPoint(point)));
  const LResult line = windows.SendMessageA(window, kEmLineIndex, at >> 16, 0);
  const auto begin = static_cast<std::uint32_t>(line);
  const std::uint32_t place = begin + ((at - begin) & 0xFFFF);
  windows.SendMessageA(window, kEmSetSel, place, place);
}

}  // namespace levelwidgets::presenter
