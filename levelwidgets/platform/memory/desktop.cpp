#include <levelwidgets/platform/memory/desktop.h>

#include <levelwidgets/platform/memory/edit/edit_box.h>
#include <levelwidgets/platform/memory/static_text.h>

namespace levelwidgets::memory {

std::vector<std::string_view> LocaleNames() { return conversions::LocaleNames(); }

bool IsLocaleName(std::string_view name) { return conversions::FindLocale(name) != nullptr; }

bool IsCodePage(int number) { return text::IsCodePage(number); }

namespace {

// The system colour of the bare desktop.
constexpr int kColorBackground = 1;

std::vector<PixelRect> MonitorsOf(const DesktopOptions& options) {
  if (!options.monitors.empty()) return options.monitors;
  return {{0, 0, options.screen.width, options.screen.height}};
}

DrawingOptions DrawingOptionsOf(const DesktopOptions& options, PixelSize screen) {
  DrawingOptions drawing;
  drawing.dpi_x = TextDotsPerInch(options.dpi_x);
  drawing.dpi_y = TextDotsPerInch(options.dpi_y);
  drawing.screen = screen;
  drawing.code_page = options.code_page.value_or(conversions::LocaleOrDefault(options.locale).code_page);
  drawing.palette = options.palette;
  drawing.fonts = options.fonts;
  return drawing;
}

}  // namespace

Desktop::Desktop(const DesktopOptions& options)
    : options_(options),
      screen_(MonitorsOf(options), options.dpi_x, options.dpi_y),
      drawing_(DrawingOptionsOf(options, screen_.Size())),
      clock_(options.now, [this] { return windows_.PaintNext(); }),
      edit_host_(windows_, clock_, drawing_, clipboard_),
      windows_(screen_, drawing_, clock_),
      input_(windows_, clock_, drawing_),
      code_page_(drawing_),
      conversions_(
          conversions::LocaleOrDefault(options.locale), [this] { return clock_.Now(); }, &code_page_) {
  input_.SetWheelToFocus(options.wheel_to_focus);
  windows_.RegisterClass(
      "EDIT", [this] { return std::make_unique<EditBox>(edit_host_); }, kIdcIBeam);
  windows_.RegisterClass(
      "STATIC", [this] { return std::make_unique<StaticText>(windows_); }, kIdcArrow);
}

void Desktop::SetOutwardPlatform(Platform* platform) {
  outward_ = platform;
  windows_.SetOutwardApi(platform ? platform->Windows() : windows_);
}

// --- Input -----------------------------------------------------------------------------------

void Desktop::MovePointer(PixelPoint screen) {
  input_.MovePointer(screen);
  Settle();
}

void Desktop::Press(int button) {
  input_.Press(button);
  Settle();
}

void Desktop::Release(int button) {
  input_.Release(button);
  Settle();
}

void Desktop::Wheel(int notches) {
  input_.Wheel(notches);
  Settle();
}

void Desktop::KeyDown(int code, int shift) {
  input_.KeyDown(code, shift);
  Settle();
}

void Desktop::KeyUp(int code, int shift) {
  input_.KeyUp(code, shift);
  Settle();
}

void Desktop::Type(std::string_view text) {
  input_.Type(text);
  Settle();
}

void Desktop::KeyDown(int code, int shift, std::string_view text) {
  input_.KeyDown(code, shift, text);
  Settle();
}

void Desktop::HoldShift(int shift) {
  input_.HoldShift(shift);
  Settle();
}

void Desktop::LiftKey(int code, int shift) {
  input_.LiftKey(code, shift);
  Settle();
}

void Desktop::EnterText(std::string_view text) {
  input_.EnterText(text);
  Settle();
}

void Desktop::Leave() {
  windows_.LeaveProgram();
  Settle();
}

void Desktop::Enter() {
  windows_.EnterProgram();
  Settle();
}

void Desktop::SystemCommand(WindowHandle window, std::uintptr_t command) {
  windows_.PostMessageA(window, kWmSysCommand, command, 0);
  Settle();
}

// --- What can be seen ------------------------------------------------------------------------

ColorRef Desktop::PixelAt(PixelPoint screen) {
  if (!screen_.Contains(screen)) return kInvalidColorRef;
  return Capture({screen.x, screen.y, screen.x + 1, screen.y + 1}).At({0, 0});
}

Picture Desktop::Capture(PixelRect screen) {
  Settle();
  return ComposeScreen(windows_.Tree(), screen_, drawing_.GetSysColor(kColorBackground), screen);
}

std::vector<TopLevelWindow> Desktop::TopLevelWindows() {
  std::vector<TopLevelWindow> windows;
  for (const Window* window : windows_.Tree().Desktop().children) {
    if (!window->Shown()) continue;
    windows.push_back({window->handle, window->title, window->rect,
                       window->handle == windows_.GetActiveWindow(), OnlyTextIn(*window)});
  }
  return windows;
}

}  // namespace levelwidgets::memory
